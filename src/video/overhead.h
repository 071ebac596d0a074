// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace brindle {

// How much the AVI container itself adds, in KB (1024 bytes) per second of running time. Every
// video frame and every interleaved chunk of audio costs 24 bytes: 8 for its header and 16 for its
// entry in the index. No other part of the container is counted.

/// 24 bytes a frame: 0.5859375 KB/s at 25 frames per second.
[[nodiscard]] double VideoFrameOverheadOf(double framesPerSecond);

/// Audio interleaved at intervals of this many milliseconds: 0.05859375 KB/s at 400 ms. An interval
/// that is not positive, or so short that the rate is out of range, yields no overhead.
[[nodiscard]] double InterleaveOverheadByTime(double milliSeconds);

/// Audio interleaved at intervals of this many video frames: 0.5859375 KB/s for every frame at 25
/// frames per second. An interval or a frame rate that is not positive, or a rate out of range,
/// yields no overhead.
[[nodiscard]] double InterleaveOverheadByFrames(double frames, double framesPerSecond);

/// The interleave time to store for an entry: whole milliseconds from 40 to 400000. Rounds down,
/// and a negative time becomes 40: 1234.9 gives 1234, -500 gives 40.
[[nodiscard]] double AcceptedInterleaveTime(double milliSeconds);

/// The interleave interval to store for an entry: whole frames from 1 to 10000. Rounds down and
/// then drops the sign, deliberately unlike the time: -3.5 gives 4, as it always has
/// (AcceptedFrames, NegativeFractionRoundsDown).
[[nodiscard]] double AcceptedInterleaveFrames(double frames);

}  // namespace brindle
