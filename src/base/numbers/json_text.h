// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace brindle {

/// A text as JSON (RFC 8259) writes it: in quotes, with quotes, backslashes and control characters
/// escaped. UTF-8 stays as it is.
[[nodiscard]] std::string JsonText(std::string_view text);

}  // namespace brindle
