// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include <QString>

#include "base/time/clock.h"
#include "cli/command.h"
#include "cli/console.h"

namespace brindle {

/// The folders that the program starts from: its own, and the user's for settings.
struct CommandLineFolders {
  QString program;
  QString config;
};

/// All options of a command, with those that every command has.
[[nodiscard]] std::vector<OptionText> OptionsOf(Command& command);

/// Runs the program with its arguments, without its name.
[[nodiscard]] ExitCode RunCommandLine(const std::vector<std::string>& arguments,
                                      const CommandLineFolders& folders, const Clock& clock,
                                      Console& console, const FilmReaderMaker& films);

}  // namespace brindle
