// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

namespace brindle {

/// Frames per second of a frame-rate system, as exact decimals: 0 PAL 25, 1 NTSC 23.976 (film),
/// 2 NTSC 29.97. 0 for any other system.
[[nodiscard]] double FramesPerSecond(int system);

/// Whole frames of a running time: the floor of minutes x 60 x rate at 15 significant digits, so
/// that whole frames survive the way through MinutesOfFrames() and back.
[[nodiscard]] double WholeFrames(double minutes, double framesPerSecond);

/// The running time of this many frames, in minutes. Nothing without a frame rate.
[[nodiscard]] std::optional<double> MinutesOfFrames(double frames, double framesPerSecond);

}  // namespace brindle
