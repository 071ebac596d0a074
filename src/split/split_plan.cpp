// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "split/split_plan.h"

#include <cmath>
#include <cstdint>
#include <optional>

#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"

namespace brindle {
namespace {

constexpr int SizeDecimals = 9;

FrameNumber NotNegative(double frame) { return frame < 0 ? FrameNumber() : FrameNumber(frame); }

FrameRange Range(double start, double end) { return {NotNegative(start), NotNegative(end)}; }

// The number of frames in a part of this size, in whole key-frame intervals. Not finite without a
// file or an interval.
double Length(const SplitInputs& inputs, double megaBytes) {
  const double share = WholePart(inputs.frames * megaBytes / inputs.megaBytes);
  return WholePart(share / inputs.keyFrameInterval) * inputs.keyFrameInterval;
}

bool IsPossible(const SplitInputs& inputs, double firstMegaBytes, double secondMegaBytes) {
  return inputs.keyFrameInterval > 0 && firstMegaBytes >= 0 && secondMegaBytes >= 0 &&
         Remainder(inputs.megaBytes, firstMegaBytes, secondMegaBytes) >= 0;
}

}  // namespace

double KeyFrameInterval(double seconds, double framesPerSecond) {
  return WholePart(seconds * NumberOf(Formatted(framesPerSecond, "#")));
}

std::optional<std::int64_t> KeyFrames(double frames, double keyFrameInterval) {
  return std::isfinite(frames) ? IntegerDivided(frames, keyFrameInterval) : std::nullopt;
}

double Remainder(double megaBytes, double firstMegaBytes, double secondMegaBytes) {
  return RoundedTo(megaBytes - (firstMegaBytes + secondMegaBytes), SizeDecimals);
}

SplitPlan PlanOfTwo(const SplitInputs& inputs) {
  const double cut = Length(inputs, inputs.firstMegaBytes);
  if (!std::isfinite(cut) || !IsPossible(inputs, inputs.firstMegaBytes, 0)) {
    return {};
  }
  return {Range(cut, inputs.frames), Range(0, cut - 1)};
}

SplitPlan PlanOfThree(const SplitInputs& inputs) {
  const double first = Length(inputs, inputs.firstMegaBytes);
  const double second = Length(inputs, inputs.secondMegaBytes);
  if (!std::isfinite(first) || !std::isfinite(second) ||
      !IsPossible(inputs, inputs.firstMegaBytes, inputs.secondMegaBytes)) {
    return {};
  }
  return {Range(first, inputs.frames), Range(0, first - 1), Range(first + second, inputs.frames),
          Range(0, first + second - 1)};
}

}  // namespace brindle
