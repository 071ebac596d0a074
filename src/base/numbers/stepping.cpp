// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/stepping.h"

#include <optional>

#include "base/numbers/numeric_text.h"

namespace brindle {

double StepUp(double value, std::optional<double> limit) {
  if (!limit) {
    return value + 1;
  }
  if (value >= *limit) {
    return *limit;
  }
  return value + 1 > *limit ? value : value + 1;
}

double StepDown(double value, std::optional<double> limit) {
  if (!limit) {
    return value - 1;
  }
  if (value <= *limit) {
    return *limit;
  }
  return value - 1 < *limit ? value : value - 1;
}

double ShrinkByTens(double value, double limit) {
  double shrunk = NumberOf(TextOf(value));
  while (shrunk > limit && shrunk / 10 != shrunk) {
    shrunk /= 10;
  }
  return shrunk;
}

}  // namespace brindle
