// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace brindle {

/// A finite number as decimal digits: 0.d1d2d3... x 10^exponent, without leading or trailing zeros
/// among the digits; zero has no digits. Every text and every rounding in this folder starts from
/// it.
struct DecimalDigits {
  bool negative = false;
  std::string digits;
  int exponent = 0;  ///< 12.5 has 2, 0.05 has -1
};

enum class Tie { AwayFromZero, ToEven };

/// `value` (finite) at 15 significant digits, rounded from its exact value; the very largest
/// doubles, which would round up beyond the range, come out one step lower.
[[nodiscard]] DecimalDigits FifteenDigits(double value);

/// The fewest digits that read back to the same finite number of that type.
[[nodiscard]] DecimalDigits ShortestDigits(float value);
[[nodiscard]] DecimalDigits ShortestDigits(double value);

/// Rounds to `decimals` places after the period; `tie` says where an exact half goes.
[[nodiscard]] DecimalDigits Rounded(DecimalDigits number, int decimals, Tie tie);

/// The nearest double; always finite for a result of FifteenDigits() or Rounded().
[[nodiscard]] double ValueOf(const DecimalDigits& number);

}  // namespace brindle
