// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace brindle {

// The space of audio and video files before they are joined. 1 MB = 1024 KB of 1024 bytes, 1 kbit =
// 1000 bits unless said otherwise.

/// 1 - option x 0.0234375: 1 for codec version 3 (option 0), whose bitrates count 1024 bits,
/// 0.9765625 = 1000 / 1024 for versions 4 and 5 (option 1), whose bitrates count 1000.
[[nodiscard]] double VideoFactorOf(std::int16_t option);

/// KB/s of 16-bit stereo WAV audio: 44100 (172.265625 KB/s) or 48000 (187.5 KB/s) samples of 4
/// bytes.
inline constexpr double Wav44KiloBytesPerSecond = 44100.0 * 4 / 1024;
inline constexpr double Wav48KiloBytesPerSecond = 48000.0 * 4 / 1024;

/// KB/s of compressed audio of `kiloBits` kbit/s, deliberately counted at 1024 bits: 224 kbit/s are
/// 28 KB/s. The help says so, and totals stay comparable with older ones (RateOfCompressedAudio).
[[nodiscard]] double CompressedKiloBytesPerSecond(double kiloBits);

/// MB of `minutes` of video at `kiloBits` kbit/s, as the codec counts them: 1000 kbit/s, 100
/// minutes, factor 0.9765625: 715.2557 MB.
[[nodiscard]] double VideoMegaBytes(double kiloBits, double minutes, double videoFactor);

/// MB of `minutes` of audio and the video together: 100 minutes at 172.265625 KB/s without video:
/// 1009.3689 MB.
[[nodiscard]] double TotalMegaBytes(double minutes, double audioKiloBytesPerSecond,
                                    double videoMegaBytes);

}  // namespace brindle
