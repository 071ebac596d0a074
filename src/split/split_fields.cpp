// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "split/split_fields.h"

#include <algorithm>

#include <QString>

#include "base/input/number_fields.h"
#include "base/numbers/rounding.h"
#include "base/numbers/stepping.h"
#include "split/split_plan.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr double MostFrames = 99999999;
constexpr double LongestInterval = 100;  // seconds

}  // namespace

void FillBlanks(const SplitFields& fields, const TypedSizes& typed, bool isThree,
                const TextField* editing) {
  const auto one = u"1"_s;
  if (editing != &fields.avi) {
    FillBlank(fields.avi, one);
  } else {
    WriteNumber(fields.first, typed.first);
    if (isThree) {
      WriteNumber(fields.second, typed.second);
    }
  }
  if (editing != &fields.frames) {
    FillBlank(fields.frames, one);
  }
  if (editing != &fields.first) {
    FillBlank(fields.first, one);
    if (LeadingNumberIn(fields.avi) < NumberIn(fields.first)) {
      WriteNumber(fields.first, LeadingNumberIn(fields.avi));
    }
  }
  if (editing != &fields.second && isThree) {
    FillBlank(fields.second, one);
    const double rest = Remainder(LeadingNumberIn(fields.avi), LeadingNumberIn(fields.first));
    if (rest < NumberIn(fields.second)) {
      WriteNumber(fields.second, std::max(rest, 0.0));
    }
  }
  if (editing != &fields.keyFrames) {
    FillBlank(fields.keyFrames, one);
  }
}

void TakeWholeFrames(TextField& frames) {
  if (!frames.WrittenFrom()) {
    WriteTyped(frames, WholePart(ShrinkByTens(LeadingNumberIn(frames), MostFrames)));
  }
}

void LimitInterval(TextField& seconds) {
  for (int i = 0; i < 2; ++i) {
    if (NumberIn(seconds) > LongestInterval) {
      WriteNumber(seconds, NumberIn(seconds) / 10);
    }
  }
}

void WriteOrClear(TextField& field, double value) {
  if (value < 0) {
    field.Write({});
  } else {
    WriteNumber(field, value);
  }
}

}  // namespace brindle
