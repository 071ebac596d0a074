// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/time_fields.h"

#include <cmath>

#include "app/input/field_text.h"
#include "app/input/text_field.h"
#include "app/numbers/rounding.h"
#include "app/numbers/running_time.h"
#include "app/numbers/stepping.h"

namespace brindle {
namespace {

void TakeWholePart(TextField* field, double limit) {
  if (!IsEmpty(field)) {
    WriteNumber(field, WholePart(std::abs(LeadingNumberIn(field))));
    WriteNumber(field, ShrinkByTens(NumberIn(field), limit));
  }
}

}  // namespace

void RepairHours(TextField* field) { RewriteWithin(field, MostHours); }

void RepairMinutes(TextField* field) { RewriteWithin(field, MostMinutes); }

void RepairSeconds(TextField* field) { RepairWithin(field, MostSeconds); }

double RepairedMinutes(const TimeFields& fields) {
  TakeWholePart(fields.hours, MostHours);
  TakeWholePart(fields.minutes, MostMinutes);
  RepairSeconds(fields.seconds);
  if (!IsEmpty(fields.seconds) && !fields.seconds->text().endsWith(u'.')) {
    WriteOwnNumber(fields.seconds, NumberIn(fields.seconds));
  }
  return InMinutes({NumberIn(fields.hours), NumberIn(fields.minutes), NumberIn(fields.seconds)});
}

void ShowTime(const TimeFields& fields, double minutes, bool editingSeconds) {
  const auto time = TakeApart(minutes);
  WriteNumber(fields.hours, time.hours);
  WriteNumber(fields.minutes, time.minutes);
  if (!IsNumericIn(fields.seconds)) {
    WriteNumber(fields.seconds, LeadingNumberIn(fields.seconds));
  }
  if (NumberIn(fields.seconds) > 60) {
    WriteNumber(fields.seconds,
                static_cast<double>(Modulo(NumberIn(fields.seconds), 60).value_or(0)));
  }
  if (!editingSeconds && IsNumericIn(fields.seconds)) {
    WriteFormatted(fields.seconds, time.seconds, "00.00");
  }
}

}  // namespace brindle
