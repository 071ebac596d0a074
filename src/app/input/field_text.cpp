// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/input/field_text.h"

#include <cmath>
#include <string>
#include <string_view>

#include <QString>

#include "app/input/text_field.h"
#include "app/numbers/numeric_text.h"
#include "app/numbers/stepping.h"

namespace brindle {

QString ToQString(const std::string& text) { return QString::fromStdString(text); }

double NumberIn(const TextField* field) { return NumberOf(field->text().toStdString()); }

double LeadingNumberIn(const TextField* field) {
  return LeadingNumber(field->text().toStdString());
}

bool IsEmpty(const TextField* field) { return field->text().isEmpty(); }

bool IsNumericIn(const TextField* field) {
  const auto text = field->text().toStdString();
  return IsNumeric(text) || (IsJustBegun(text) && field->IsBeingEdited());
}

void WriteNumber(TextField* field, double value) { field->Write(ToQString(TextOf(value))); }

void WriteOwnNumber(TextField* field, double value) {
  if (field->IsBeingEdited()) {
    field->Write(ToQString(TextWhileTyping(field->text().toStdString(), value)));
  } else {
    WriteNumber(field, value);
  }
}

void WriteFormatted(TextField* field, double value, std::string_view pattern) {
  field->Write(ToQString(Formatted(value, pattern)));
}

void RepairText(TextField* field) {
  if (!IsEmpty(field) && !IsNumericIn(field)) {
    WriteNumber(field, std::abs(LeadingNumberIn(field)));
  }
}

void RepairSign(TextField* field) {
  if (!IsEmpty(field) && NumberIn(field) < 0) {
    WriteNumber(field, -NumberIn(field));
  }
}

double RepairedNumber(TextField* field) {
  RepairText(field);
  RepairSign(field);
  return NumberIn(field);
}

void RewriteWithin(TextField* field, double limit) {
  RepairText(field);
  if (!IsEmpty(field)) {
    WriteOwnNumber(field, ShrinkByTens(NumberIn(field), limit));
  }
}

void RepairWithin(TextField* field, double limit) {
  RepairText(field);
  if (!IsEmpty(field) && NumberIn(field) > limit) {
    WriteOwnNumber(field, ShrinkByTens(NumberIn(field), limit));
  }
}

void FillBlank(TextField* field, const QString& text) {
  if (IsEmpty(field)) {
    field->Write(text);
  }
}

void SelectFirstTen(TextField* field) { field->setSelection(0, 10); }

void SelectWholeText(TextField* field) { field->selectAll(); }

}  // namespace brindle
