// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/numbers/running_time.h"

#include <string>

#include "app/numbers/numeric_text.h"
#include "app/numbers/rounding.h"

namespace brindle {

RunningTime TakeApart(double minutes) {
  RunningTime time;
  time.seconds = minutes * 60;
  time.hours = WholePart(time.seconds / 3600);
  time.seconds -= time.hours * 3600;
  time.minutes = WholePart(time.seconds / 60);
  time.seconds -= time.minutes * 60;
  return time;
}

double InMinutes(const RunningTime& time) {
  return time.hours * 60 + time.minutes + time.seconds / 60;
}

std::string MinutesText(double minutes) {
  return Formatted(minutes, IsWhole(minutes) ? "#" : "#0.###");
}

}  // namespace brindle
