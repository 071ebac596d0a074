// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/number_fields.h"

#include <cmath>
#include <string>
#include <string_view>

#include <QString>

#include "base/input/text_field.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/running_time.h"
#include "base/numbers/stepping.h"

namespace brindle {

namespace {

// A typed text keeps standing for what it reads as.
void Rewrite(TextField& field, const std::string& text) {
  if (const auto number = field.WrittenFrom()) {
    field.Write(ToQString(text), *number);
  } else {
    field.Write(ToQString(text));
  }
}

}  // namespace

QString ToQString(const std::string& text) { return QString::fromStdString(text); }

double NumberIn(const TextField& field) {
  return field.WrittenFrom().value_or(ShownNumberIn(field));
}

double LeadingNumberIn(const TextField& field) {
  return field.WrittenFrom().value_or(LeadingNumber(field.text().toStdString()));
}

double ShownNumberIn(const TextField& field) { return NumberOf(field.text().toStdString()); }

bool IsEmpty(const TextField& field) { return field.text().isEmpty(); }

bool IsNumericIn(const TextField& field) {
  const auto text = field.text().toStdString();
  return IsNumeric(text) || (IsJustBegun(text) && field.IsBeingEdited());
}

void WriteNumber(TextField& field, double value) { field.Write(ToQString(TextOf(value)), value); }

void WriteTyped(TextField& field, double value) { field.Write(ToQString(TextOf(value))); }

void WriteMinutes(TextField& field, double minutes) {
  const auto text = MinutesText(minutes);
  // Less than the field can show is not a running time.
  field.Write(ToQString(text), NumberOf(text) == 0 ? 0 : minutes);
}

void RewriteNumber(TextField& field) {
  Rewrite(field, TextOf(LeadingNumber(field.text().toStdString())));
}

void RewriteWhileTyping(TextField& field) {
  const auto typed = field.text().toStdString();
  const double shown = LeadingNumber(typed);
  Rewrite(field, field.IsBeingEdited() ? TextWhileTyping(typed, shown) : TextOf(shown));
}

void RewriteFormatted(TextField& field, std::string_view pattern) {
  field.Write(ToQString(Formatted(ShownNumberIn(field), pattern)), NumberIn(field));
}

void RepairText(TextField& field) {
  if (!IsEmpty(field) && !IsNumericIn(field)) {
    WriteTyped(field, std::abs(LeadingNumberIn(field)));
  }
}

void RepairSign(TextField& field) {
  if (ShownNumberIn(field) >= 0) {
    return;
  }
  if (const auto number = field.WrittenFrom()) {
    WriteNumber(field, -*number);
  } else {
    WriteTyped(field, -ShownNumberIn(field));
  }
}

double RepairAndRead(TextField& field) {
  RepairText(field);
  RepairSign(field);
  return NumberIn(field);
}

void RepairWithin(TextField& field, double limit) {
  RepairText(field);
  if (!field.WrittenFrom() && ShownNumberIn(field) > limit) {
    WriteTyped(field, ShrinkByTens(ShownNumberIn(field), limit));
  }
}

void RewriteWithin(TextField& field, double limit) {
  RepairWithin(field, limit);
  if (!IsEmpty(field)) {
    RewriteWhileTyping(field);
  }
}

void PutIn(TextField& field, const QString& text) {
  field.Write(text);
  if (field.IsBeingEdited()) {
    field.selectAll();
  }
}

void FillBlank(TextField& field, const QString& text) {
  if (IsEmpty(field)) {
    PutIn(field, text);
  }
}

void SelectFirstTen(TextField& field) { field.setSelection(0, 10); }

void SelectWholeText(TextField& field) { field.selectAll(); }

}  // namespace brindle
