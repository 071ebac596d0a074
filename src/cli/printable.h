// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace brindle {

/// The text as it may stand on one line of a terminal: what would move the cursor or begin another
/// line, and bytes that are not UTF-8, are written as their codes: "\x0a".
[[nodiscard]] std::string Printable(std::string_view text);

/// The same in quotes, and not longer than about 60 bytes.
[[nodiscard]] std::string Quoted(std::string_view text);

}  // namespace brindle
