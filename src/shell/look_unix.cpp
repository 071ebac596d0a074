// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/look.h"

namespace brindle {

// Palette and style come from the desktop here, and fit.

void AskForDarkPalette() {}

void FollowPalette() {}

}  // namespace brindle
