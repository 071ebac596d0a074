// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace brindle {

/// What to cut, and into which parts. Sizes are in MB; only their ratios count.
struct SplitInputs {
  double frames = 0;            ///< frames of the whole file
  double megaBytes = 0;         ///< size of the whole file
  double firstMegaBytes = 0;    ///< size of the first part
  double secondMegaBytes = 0;   ///< size of the second of three parts; of two parts the rest
  double keyFrameInterval = 0;  ///< frames from one key frame to the next
};

/// A frame number, or none.
using FrameNumber = std::optional<double>;

/// Frames to delete: from `start` to `end`. The end of a range that runs to the end of the file is
/// the number of frames itself, one past the last frame. That is deliberate: it is what the end of
/// a selection means there, and the help tells users to expect it (CutsInTwo).
struct FrameRange {
  FrameNumber start;
  FrameNumber end;
};

/// The frames to delete: after the first part, before the second, and of three parts after the
/// second and before the third. A number below 0 becomes nothing.
using SplitPlan = std::array<FrameRange, 4>;

/// Frames from one key frame to the next: the floor of seconds x the frame rate rounded to a whole
/// number, deliberately not the exact rate: 10 seconds at 29.97 are 300 frames, as the help says
/// (TenSecondsNtscAt30NotAt299).
[[nodiscard]] double KeyFrameInterval(double seconds, double framesPerSecond);

/// How many whole key-frame intervals there are; nothing if the interval is 0 frames or the frames
/// are not finite.
[[nodiscard]] std::optional<std::int64_t> KeyFrames(double frames, double keyFrameInterval);

/// What remains of the file after its parts, in MB, rounded to 9 decimals so that sizes typed as
/// decimals leave no noise: 100.3 - (33.1 + 67.2) is 0.
[[nodiscard]] double Remainder(double megaBytes, double firstMegaBytes, double secondMegaBytes = 0);

/// Where to cut a file in two so that the first part has its share of the bytes, moved down to the
/// previous key frame. Nothing if a size is negative, the parts exceed the file, the file is 0, or
/// the interval is not positive. Example: 150000 frames, 1300 MB, 650 MB, every 250: delete 75000
/// to 150000, and 0 to 74999.
[[nodiscard]] SplitPlan PlanOfTwo(const SplitInputs& inputs);

/// The same for three parts; the lengths of the first and the second part are moved down
/// separately.
[[nodiscard]] SplitPlan PlanOfThree(const SplitInputs& inputs);

}  // namespace brindle
