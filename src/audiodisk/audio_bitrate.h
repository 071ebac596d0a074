// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

namespace brindle {

/// What the audio bitrate depends on.
struct AudioBitrateInputs {
  double targetMegaBytes = 0;  ///< size of the finished file; 1 MB = 1024 KB of 1024 bytes
  double videoMegaBytes = 0;   ///< size of the file that holds only video
  double interleaveKiloBytesPerSecond = 0;  ///< overhead of interleaving audio with video
  double minutes = 0;                       ///< running time
};

/// The audio bitrate that fills the target together with the video, in kbit/s of 1000 bits. The
/// overhead of the video frames is deliberately not subtracted: it is already inside the video file
/// and would be counted twice. Nothing is clamped: a target too small gives a bitrate below 0. A
/// running time of 0, or figures out of range, give 0. Example: 650 MB, 550 MB, 0.05859375 KB/s,
/// 100 minutes: 139.33 kbit/s.
[[nodiscard]] double ComputeAudioBitrate(const AudioBitrateInputs& inputs);

/// The largest standard MP3 bitrate that is not above `kiloBits`, with a word for how it sounds:
/// "128kbps (Good)". Lower bounds are inclusive. 80 kbit/s is not among the steps, and exactly 320
/// gives nothing; both are deliberate, stated in the help, and checked (Suggests, At80WhichIsNoStep
/// and At320). Empty for 0 or less, "Inadequate Space" below 32.
[[nodiscard]] std::string_view SuggestedBitrate(double kiloBits);

}  // namespace brindle
