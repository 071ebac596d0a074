// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace brindle {

/// What the video bitrate depends on.
struct VideoBitrateInputs {
  double discMegaBytes = 0;  ///< capacity of one disc; 1 MB = 1024 KB
  double discs = 0;
  double extraMegaBytes = 0;              ///< reserved for extra material
  double minutes = 0;                     ///< running time
  double audioKiloBits = 0;               ///< audio bitrate in kbit/s of 1000 bits
  double overheadKiloBytesPerSecond = 0;  ///< video frame and audio interleave overhead together
  double divXFactor = 1;                  ///< see DivXFactorOf()
};

/// A bitrate and three sizes; all 0 if there is no running time. A value out of range is not
/// finite.
struct VideoBitrate {
  double kiloBits = 0;  ///< video bitrate, in 1024 bits/s at factor 1, 1000 at factor 1.024
  double videoMegaBytes = 0;
  double audioMegaBytes = 0;
  double overheadMegaBytes = 0;
};

/// 1 + 0.024 x option: 1 for codec version 3 (option 0), whose bitrates count 1024 bits, 1.024 for
/// versions 4 and 5 (option 1), whose bitrates count 1000. The difference is deliberate: each
/// generation of the codec gets the number that its own settings expect (DivXFactor,
/// FollowsItsFormulaForEveryOption).
[[nodiscard]] double DivXFactorOf(std::int16_t option);

/// The video bitrate that fills the discs exactly, and the size of each part of the file. Nothing
/// is clamped: if the discs are too small for the rest, the bitrate is below 0. A running time of 0
/// or less gives 0 throughout. Example: 700 MB, 1 disc, 100 minutes, 128 kbit/s of audio, 1.171875
/// KB/s of overhead, factor 1.024: 841.07 kbit/s, 601.59 MB of video, 91.55 MB of audio, 6.87 MB of
/// overhead.
[[nodiscard]] VideoBitrate ComputeVideoBitrate(const VideoBitrateInputs& inputs);

/// A coarse rating of a video bitrate (as ComputeVideoBitrate() gives it) for a codec generation;
/// empty for a bitrate of 0 or less. Lower bounds of the bands are inclusive, but a maximum (6000
/// for option 0, 10000 for option 1) belongs to the band below it. No value for any other option,
/// which has no scale.
[[nodiscard]] std::optional<std::string_view> QualityRating(double kiloBits, std::int16_t option);

}  // namespace brindle
