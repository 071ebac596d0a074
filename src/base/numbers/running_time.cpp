// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/running_time.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "base/numbers/decimal_digits.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"

namespace brindle {

double SecondsToHundredths(double minutes) {
  constexpr int hundredths = 2;
  const double seconds = minutes * 60;
  return std::isfinite(seconds)
             ? ValueOf(Rounded(FifteenDigits(seconds), hundredths, Tie::AwayFromZero))
             : seconds;
}

RunningTime TakeApart(double seconds) {
  RunningTime time;
  time.seconds = seconds;
  time.hours = WholePart(time.seconds / 3600);
  // If rounding at the 15th digit raised a whole part, the remainder is below 0; that is noise.
  time.seconds = std::max(time.seconds - time.hours * 3600, 0.0);
  time.minutes = WholePart(time.seconds / 60);
  time.seconds = std::max(time.seconds - time.minutes * 60, 0.0);
  return time;
}

double InMinutes(const RunningTime& time) {
  return time.hours * 60 + time.minutes + time.seconds / 60;
}

std::string MinutesText(double minutes) {
  return Formatted(minutes, IsWhole(minutes) ? "#" : "#0.###");
}

}  // namespace brindle
