// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include <QString>

#include "app/input/text_field.h"

namespace brindle {

// Fields read and written as numbers. A number just begun ("-", ".") counts as numeric, with the
// value 0, in the field that is being edited, so that -20 and .5 can be typed.

/// The toolkit's text of a number text.
[[nodiscard]] QString ToQString(const std::string& text);

/// The value of the field's numeric text, 0 for any other text.
[[nodiscard]] double NumberIn(const TextField* field);

/// The value of the longest numeric prefix of the field's text, 0 where there is none.
[[nodiscard]] double LeadingNumberIn(const TextField* field);

[[nodiscard]] bool IsEmpty(const TextField* field);

/// Whether the field holds a numeric text, or a number just begun while it is being edited.
[[nodiscard]] bool IsNumericIn(const TextField* field);

/// Writes the text of `value`.
void WriteNumber(TextField* field, double value);

/// Writes the text of `value`, which is the field's own: while the field is being edited a trailing
/// period and trailing zeros of a fraction stay.
void WriteOwnNumber(TextField* field, double value);

/// Writes `value` in a display pattern.
void WriteFormatted(TextField* field, double value, std::string_view pattern);

/// A text that is neither empty nor numeric becomes the absolute value of its leading number.
void RepairText(TextField* field);

/// A text that is not empty and whose value is below 0 becomes its value times -1.
void RepairSign(TextField* field);

/// Repairs the text, then the sign, and gives the value; 0 for an empty field, which stays empty.
double RepairedNumber(TextField* field);

/// Repairs the text, shrinks the value by tens to `limit`, and writes it back in any case.
void RewriteWithin(TextField* field, double limit);

/// Repairs the text, and shrinks a value above `limit` by tens; any other text stays as typed.
void RepairWithin(TextField* field, double limit);

/// Writes `text` into an empty field.
void FillBlank(TextField* field, const QString& text);

/// Selects the first ten characters, a fixed number: a longer text keeps its tail unselected.
void SelectFirstTen(TextField* field);

/// Selects the whole text, however long.
void SelectWholeText(TextField* field);

}  // namespace brindle
