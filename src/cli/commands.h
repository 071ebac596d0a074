// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <span>

#include "cli/command.h"

namespace brindle {

// One source file each.
[[nodiscard]] std::unique_ptr<Command> MakeBitrate();
[[nodiscard]] std::unique_ptr<Command> MakeAudio();
[[nodiscard]] std::unique_ptr<Command> MakeSpace();
[[nodiscard]] std::unique_ptr<Command> MakeSplit();
[[nodiscard]] std::unique_ptr<Command> MakeTime();
[[nodiscard]] std::unique_ptr<Command> MakeSize();
[[nodiscard]] std::unique_ptr<Command> MakeResolution();
[[nodiscard]] std::unique_ptr<Command> MakeInfo();
[[nodiscard]] std::unique_ptr<Command> MakeParts();
[[nodiscard]] std::unique_ptr<Command> MakePeaks();
[[nodiscard]] std::unique_ptr<Command> MakeNormalize();
[[nodiscard]] std::unique_ptr<Command> MakeUndo();

/// All of them, in the order in which the help lists them.
[[nodiscard]] std::span<std::unique_ptr<Command> (*const)()> AllCommands();

}  // namespace brindle
