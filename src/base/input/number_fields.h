// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

#include <QString>

#include "base/input/text_field.h"

namespace brindle {

// Reading and writing fields as numbers. In the field that is being edited, a number just begun
// ("-", ".") counts as numeric, with the value 0, so that -20 and .5 can be typed.

/// A number's text as the toolkit's string.
[[nodiscard]] QString ToQString(const std::string& text);

/// The number that the field's text was written from; if the text stands for itself, the value of a
/// numeric text, and 0 for any other text.
[[nodiscard]] double NumberIn(const TextField& field);

/// The same, but if the text stands for itself, the value of its longest numeric prefix, and 0 if
/// there is none.
[[nodiscard]] double LeadingNumberIn(const TextField& field);

/// The number that a person reads there: the value of a numeric text, 0 for any other text, no
/// matter what it was written from.
[[nodiscard]] double ShownNumberIn(const TextField& field);

[[nodiscard]] bool IsEmpty(const TextField& field);

/// Whether the field holds a numeric text, or a number just begun while it is being edited.
[[nodiscard]] bool IsNumericIn(const TextField& field);

/// Writes the text of `value`, which it then stands for.
void WriteNumber(TextField& field, double value);

/// Writes the text of `value` in place of what was typed: it stands for what it reads as, like what
/// a person types.
void WriteTyped(TextField& field, double value);

/// Writes a running time of `minutes`, which the text then stands for, except if it shows 0.
void WriteMinutes(TextField& field, double minutes);

/// Rewrites the leading number that the field shows as plain text. It still stands for what it
/// stood for.
void RewriteNumber(TextField& field);

/// The same, but while the field is being edited, a trailing period and trailing zeros of a
/// fraction stay.
void RewriteWhileTyping(TextField& field);

/// Rewrites the number that the field shows in a display pattern. It still stands for what it stood
/// for.
void RewriteFormatted(TextField& field, std::string_view pattern);

/// A text that is neither empty nor numeric becomes the absolute value of its leading number.
void RepairText(TextField& field);

/// A text that is not empty and whose value is below 0 becomes its value times -1.
void RepairSign(TextField& field);

/// Repairs the text, then the sign, and gives the value; 0 for an empty field, which stays empty.
double RepairAndRead(TextField& field);

/// Repairs the text, and shrinks a value above `limit` by tens; any other text stays as typed. What
/// the program wrote has no limit: a mere press in the field must not change it.
void RepairWithin(TextField& field, double limit);

/// RepairWithin(), then RewriteWhileTyping() in any case.
void RewriteWithin(TextField& field, double limit);

/// Writes what a step puts in place of an empty text or of 0: in the field that is being edited it
/// is selected, so that the next key replaces it.
void PutIn(TextField& field, const QString& text);

/// PutIn() for a field that is empty.
void FillBlank(TextField& field, const QString& text);

/// Selects the first ten characters, a fixed number: a longer text keeps its tail unselected.
void SelectFirstTen(TextField& field);

/// Selects the whole text, however long.
void SelectWholeText(TextField& field);

}  // namespace brindle
