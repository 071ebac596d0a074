// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/numbers/running_time.h"

#include <algorithm>
#include <string>

#include "app/numbers/numeric_text.h"
#include "app/numbers/rounding.h"

namespace brindle {

RunningTime TakeApart(double minutes) {
  RunningTime time;
  time.seconds = minutes * 60;
  time.hours = WholePart(time.seconds / 3600);
  // A whole part that the 15th digit lifted leaves a rest below 0, which is noise.
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
