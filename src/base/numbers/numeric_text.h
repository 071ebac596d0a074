// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace brindle {

/// Whether `text` is a numeric text: blanks (space, tab), an optional sign, digits 0-9 with at most
/// one period among, before or after them, an optional exponent (e or E, optional sign, digits),
/// blanks; and its value is a finite double. "12.", ".5", " -1e3 " are; "", "1,5", "12e", "1e999",
/// "inf" are not. The decimal separator is the period in every locale.
[[nodiscard]] bool IsNumeric(std::string_view text);

/// Whether `text` is the beginning of a number without a digit yet: exactly one of - + . -. +.
[[nodiscard]] bool IsJustBegun(std::string_view text);

/// The value of the longest prefix of `text` (after leading blanks) that has the form of a numeric
/// text; 0 if there is none or its value is not finite. "-3.5kg" gives -3.5, "12e" gives 12,
/// "1e999" gives 0. Always finite.
[[nodiscard]] double LeadingNumber(std::string_view text);

/// The value of a numeric text, 0 for any other text ("12xyz" gives 0). Always finite.
[[nodiscard]] double NumberOf(std::string_view text);

/// The 32-bit float nearest to a numeric text, 0 for any other text; a value outside the type's
/// range becomes the nearer end of it.
[[nodiscard]] float SingleOf(std::string_view text);

/// The number in at most 15 significant digits, rounded from its exact value, without trailing
/// zeros: plain digits if the rounded number is in 1e-15 <= |x| < 1e21 ("0.5", "1024"), otherwise
/// with an exponent ("1.5E+300", "2E-16"); "0" for both zeros, empty if the number is not finite.
/// NumberOf() reads every non-empty result back as a finite number: the very largest doubles, whose
/// 15 digits would round up beyond the range, are written one step lower.
[[nodiscard]] std::string TextOf(double value);

/// The fewest digits that read back to the same double, in the notation of TextOf(): a third gives
/// "0.3333333333333333". Empty for what is not finite.
[[nodiscard]] std::string ExactTextOf(double value);

/// The fewest digits that read back to the same 32-bit float, in the notation of TextOf(): 1.778F
/// gives "1.778". Empty for what is not finite.
[[nodiscard]] std::string TextOfSingle(float value);

/// What a field shows for its own value while a person is typing in it: TextOf(value), but it keeps
/// the trailing period or the trailing zeros of the fraction in `typed` ("10." stays "10.", "10.0"
/// stays "10.0"), so that "10.05" can be typed. `typed` is the field's text, `value` its number.
[[nodiscard]] std::string TextWhileTyping(std::string_view typed, double value);

/// The number in a display pattern, "00.00" for example: before the period, the places from the
/// pattern's first 0 on are always shown, and a # in front of it asks for none; after the period, a
/// 0 is a place that is always shown, and a # one that is shown when needed. Rounded from 15
/// significant digits, halves away from zero. A period without a digit after it is dropped; there
/// is never an exponent; a negative number keeps its sign unless every digit shown is 0.
/// Formatted(612.25, "#.0") is "612.3", Formatted(0.5, "#.0") is ".5", Formatted(0.4, "#") is
/// empty. Empty if the number is not finite. Characters of the pattern other than 0, # and the
/// first period are ignored.
[[nodiscard]] std::string Formatted(double value, std::string_view pattern);

}  // namespace brindle
