// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace brindle {

/// Frames per second of a frame-rate system, as exact decimals: 0 PAL 25, 1 NTSC 23.976 (film),
/// 2 NTSC 29.97. 0 for any other system.
[[nodiscard]] double FramesPerSecond(int system);

}  // namespace brindle
