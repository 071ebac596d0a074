// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/frame_rate.h"

#include <cmath>
#include <optional>

#include "base/numbers/rounding.h"

namespace brindle {

double FramesPerSecond(int system) {
  switch (system) {
    case 0:
      return 25;
    case 1:
      return 23.976;
    case 2:
      return 29.97;
    default:
      return 0;
  }
}

double WholeFrames(double minutes, double framesPerSecond) {
  return WholePart(minutes * 60 * framesPerSecond);
}

std::optional<double> MinutesOfFrames(double frames, double framesPerSecond) {
  const double minutes = frames / framesPerSecond / 60;
  return std::isfinite(minutes) ? std::optional(minutes) : std::nullopt;
}

}  // namespace brindle
