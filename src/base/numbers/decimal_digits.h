// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace brindle {

/// A finite number as decimal digits: 0.d1d2d3... x 10^exponent, no leading and no trailing zero
/// among the digits; none at all for zero. What every text and every rounding of this folder starts
/// from.
struct DecimalDigits {
  bool negative = false;
  std::string digits;
  int exponent = 0;  ///< 12.5 has 2, 0.05 has -1
};

enum class Tie { AwayFromZero, ToEven };

/// `value` (finite) at 15 significant digits, rounded on its exact value; the very largest doubles,
/// which would round up beyond the range, one step lower.
[[nodiscard]] DecimalDigits FifteenDigits(double value);

/// The fewest digits that read back to the same finite number of that type.
[[nodiscard]] DecimalDigits ShortestDigits(float value);
[[nodiscard]] DecimalDigits ShortestDigits(double value);

/// Rounds to `decimals` places behind the period; `tie` says where an exact half goes.
[[nodiscard]] DecimalDigits Rounded(DecimalDigits number, int decimals, Tie tie);

/// The nearest double; always finite for what FifteenDigits() and Rounded() give.
[[nodiscard]] double ValueOf(const DecimalDigits& number);

}  // namespace brindle
