// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/overhead.h"

#include <algorithm>
#include <cmath>

#include "base/numbers/rounding.h"

namespace brindle {
namespace {

constexpr double BytesPerChunk = 24;
// One chunk a millisecond, in KB/s.
constexpr double ChunkEveryMilliSecond = BytesPerChunk * 1000 / 1024;

constexpr double ShortestTime = 40;
constexpr double LongestTime = 400000;
constexpr double FewestFrames = 1;
constexpr double MostFrames = 10000;

double RateAt(double milliSeconds) {
  const double rate = ChunkEveryMilliSecond / milliSeconds;
  return milliSeconds > 0 && std::isfinite(rate) ? rate : 0;
}

}  // namespace

double VideoFrameOverheadOf(double framesPerSecond) {
  return BytesPerChunk * framesPerSecond / 1024;
}

double InterleaveOverheadByTime(double milliSeconds) { return RateAt(milliSeconds); }

double InterleaveOverheadByFrames(double frames, double framesPerSecond) {
  return RateAt(frames * (1000 / framesPerSecond));
}

double AcceptedInterleaveTime(double milliSeconds) {
  return WholePart(std::clamp(milliSeconds, ShortestTime, LongestTime));
}

double AcceptedInterleaveFrames(double frames) {
  return std::clamp(std::abs(WholePart(frames)), FewestFrames, MostFrames);
}

}  // namespace brindle
