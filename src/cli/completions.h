// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"
#include "cli/options.h"

namespace brindle {

/// All there is to say about a command.
struct CommandPage {
  CommandText text;
  std::vector<OptionText> options;
};

// What lets a shell complete commands, options and their values.

[[nodiscard]] std::string BashCompletion(const std::vector<CommandPage>& pages);
[[nodiscard]] std::string ZshCompletion(const std::vector<CommandPage>& pages);

/// The texts in one, with a separator between them.
[[nodiscard]] std::string Joined(const std::vector<std::string>& texts, std::string_view separator);

}  // namespace brindle
