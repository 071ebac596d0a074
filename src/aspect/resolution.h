// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

namespace brindle {

/// The standard film ratios, width to height, in the order of the list: 1, 1.33, 1.66, 1.778, 1.85,
/// 2.35. Any other index gives 0, which is not a ratio.
[[nodiscard]] float StandardRatio(int index);

/// The nearest multiple of `modulus`, ties to the even one: 336 at 32 is 320.
[[nodiscard]] int Snapped(double resolution, int modulus);

/// The height that keeps a ratio (not 0) at this width, as a multiple of `modulus`: 640 at 1.778
/// and 16 is 352.
[[nodiscard]] int HeightFor(int width, float ratio, int modulus);

/// The width that keeps a ratio at this height, as a multiple of `modulus`.
[[nodiscard]] int WidthFor(int height, float ratio, int modulus);

/// The figures of a frame.
struct FrameStatistics {
  int pixels = 0;
  int macroblocks = 0;                 ///< blocks of 16 x 16 pixels
  double ratio = 0;                    ///< width to height, rounded to 3 decimals
  std::optional<double> errorPercent;  ///< of the rounded ratio against the film's, 2 decimals
};

/// The statistics of a frame `width` x `height` pixels (both above 0) for a film of `filmRatio`; no
/// error if that is 0. Macroblocks are counted as (height \\ 16 + s) x (width \\ 16 + s), where s
/// is 1 if the height is not a multiple of 16. So a remainder of the height rounds both factors up,
/// and a remainder of the width neither: 720 x 576 gives 1620, 712 x 576 gives 1584. That is
/// deliberate: the help states the difference, and counts stay comparable with older ones
/// (Statistics, OfAFrame).
[[nodiscard]] FrameStatistics StatisticsOf(int width, int height, float filmRatio);

}  // namespace brindle
