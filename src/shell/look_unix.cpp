// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/look.h"

namespace brindle {

// Here palette and style come from the desktop, and they match.

void AskForDarkPalette() {}

void FollowPalette() {}

}  // namespace brindle
