// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"
#include "cli/options.h"

namespace brindle {

// What the program says about itself. All of it is made from the commands and their options.

[[nodiscard]] std::string VersionText();
[[nodiscard]] std::string HelpText();
[[nodiscard]] std::string HelpOf(const CommandText& command,
                                 const std::vector<OptionText>& options);

/// What the build asks for: "man", "bash" or "zsh". Nothing for any other kind.
[[nodiscard]] std::optional<std::string> Written(std::string_view kind);

}  // namespace brindle
