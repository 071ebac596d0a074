// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/running_time_fields.h"

#include <cmath>

#include "base/input/number_fields.h"
#include "base/input/text_field.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/running_time.h"

namespace brindle {

RunningTimeFields::RunningTimeFields(TextField& hours, TextField& minutes, TextField& seconds)
    : hours_(hours), minutes_(minutes), seconds_(seconds) {}

void RunningTimeFields::Write(double minutes) {
  const auto time = TakeApart(SecondsToHundredths(minutes));
  ShowHoursAndMinutes(time);
  // A little below 0 if the rounding completed another minute.
  const double exactSeconds = minutes * 60 - (time.hours * 60 + time.minutes) * 60;
  seconds_.Write(ToQString(Formatted(time.seconds, "00.00")), exactSeconds);
  shown_ = std::isfinite(minutes) ? minutes : 0;
  shownParts_ = Parts();
}

void RunningTimeFields::ShowBesideSeconds(double minutes) {
  ShowHoursAndMinutes(TakeApart(minutes * 60));
}

// The sum of the parts may miss the whole by the last bit; a running time that nobody has touched
// must not.
double RunningTimeFields::Minutes() const {
  return Parts() == shownParts_ ? shown_ : InMinutes(Parts());
}

void RunningTimeFields::ShowHoursAndMinutes(const RunningTime& time) {
  WriteNumber(hours_, time.hours);
  WriteNumber(minutes_, time.minutes);
}

RunningTime RunningTimeFields::Parts() const {
  return {NumberIn(hours_), NumberIn(minutes_), NumberIn(seconds_)};
}

}  // namespace brindle
