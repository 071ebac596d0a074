// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace brindle {

/// Before the application is made: lets it have the desktop's dark palette where a program has to
/// ask for that.
void AskForDarkPalette();

/// Once the application is made: keeps it in a style that can draw with its palette, now and
/// whenever that changes.
void FollowPalette();

}  // namespace brindle
