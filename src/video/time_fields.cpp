// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/time_fields.h"

#include <cmath>

#include "base/input/number_fields.h"
#include "base/input/text_field.h"
#include "base/numbers/rounding.h"
#include "base/numbers/running_time.h"
#include "base/numbers/stepping.h"

namespace brindle {
namespace {

constexpr double SecondsOfMinute = 60;

void TakeWholePart(TextField& field, double limit) {
  // A number that the program wrote is whole already, and no limit applies to it.
  if (IsEmpty(field) || (field.WrittenFrom() && ShownNumberIn(field) >= 0)) {
    return;
  }
  WriteTyped(field, WholePart(std::abs(LeadingNumberIn(field))));
  WriteTyped(field, ShrinkByTens(ShownNumberIn(field), limit));
}

// Removes from the seconds the whole minutes that are now in the minutes field.
void CarryWholeMinutes(TextField& seconds) {
  constexpr int decimals = 9;  // so that the subtraction leaves no noise
  const double value = NumberIn(seconds);
  if (value >= SecondsOfMinute) {
    const double whole = WholePart(value / SecondsOfMinute) * SecondsOfMinute;
    WriteTyped(seconds, RoundedTo(value - whole, decimals));
  }
}

}  // namespace

void RepairHours(TextField& field) { RewriteWithin(field, MostHours); }

void RepairMinutes(TextField& field) { RewriteWithin(field, MostMinutes); }

void RepairSeconds(TextField& field) { RepairWithin(field, MostSeconds); }

double RepairedMinutes(const RunningTimeFields& fields) {
  TakeWholePart(fields.Hours(), MostHours);
  TakeWholePart(fields.WholeMinutes(), MostMinutes);
  auto& seconds = fields.Seconds();
  RepairSeconds(seconds);
  if (!IsEmpty(seconds) && !seconds.text().endsWith(u'.')) {
    RewriteWhileTyping(seconds);
  }
  return fields.Minutes();
}

void ShowTime(RunningTimeFields& fields, double minutes, bool editingSeconds) {
  auto& seconds = fields.Seconds();
  if (!IsNumericIn(seconds)) {
    WriteTyped(seconds, LeadingNumberIn(seconds));
  }
  if (editingSeconds && !seconds.WrittenFrom()) {
    fields.ShowBesideSeconds(minutes);
    CarryWholeMinutes(seconds);
  } else {
    fields.Write(minutes);
  }
}

}  // namespace brindle
