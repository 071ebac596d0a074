// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/rounding.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "base/numbers/decimal_digits.h"

namespace brindle {
namespace {

// Every bound of a 16-bit or 32-bit whole number is exact in a double, so clamping may come first.
template <class Integer>
Integer NearestEven(double value) {
  constexpr double lowest = std::numeric_limits<Integer>::min();
  constexpr double highest = std::numeric_limits<Integer>::max();
  if (std::isnan(value)) {
    return 0;
  }
  if (value <= lowest) {
    return std::numeric_limits<Integer>::min();
  }
  if (value >= highest) {
    return std::numeric_limits<Integer>::max();
  }
  const double down = std::floor(value);
  const double rest = value - down;
  const bool up = rest > 0.5 || (rest == 0.5 && static_cast<Integer>(down) % 2 != 0);
  return static_cast<Integer>(up ? down + 1 : down);
}

struct WholeOperands {
  std::int64_t dividend = 0;
  std::int64_t divisor = 0;
};

std::optional<WholeOperands> Whole(double dividend, double divisor) {
  const WholeOperands operands{ToInteger32(dividend), ToInteger32(divisor)};
  return operands.divisor == 0 ? std::nullopt : std::optional(operands);
}

}  // namespace

std::int16_t ToInteger16(double value) { return NearestEven<std::int16_t>(value); }

std::int32_t ToInteger32(double value) { return NearestEven<std::int32_t>(value); }

double RoundedTo(double value, int decimals) {
  return std::isfinite(value) ? ValueOf(Rounded(FifteenDigits(value), decimals, Tie::ToEven))
                              : value;
}

double WholePart(double value) {
  return std::isfinite(value) ? std::floor(ValueOf(FifteenDigits(value))) : value;
}

bool IsWhole(double value) {
  if (!std::isfinite(value)) {
    return false;
  }
  const auto number = FifteenDigits(value);
  return number.exponent >= static_cast<int>(number.digits.size());
}

std::optional<std::int64_t> IntegerDivided(double dividend, double divisor) {
  const auto operands = Whole(dividend, divisor);
  return operands ? std::optional(operands->dividend / operands->divisor) : std::nullopt;
}

std::optional<std::int64_t> Modulo(double dividend, double divisor) {
  const auto operands = Whole(dividend, divisor);
  return operands ? std::optional(operands->dividend % operands->divisor) : std::nullopt;
}

}  // namespace brindle
