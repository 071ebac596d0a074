// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace brindle {

/// Before the application is made: asks for the desktop's dark palette, where a program has to ask
/// for it.
void AskForDarkPalette();

/// Once the application is made: keeps it in a style that can draw with its palette, now and
/// whenever the palette changes.
void FollowPalette();

}  // namespace brindle
