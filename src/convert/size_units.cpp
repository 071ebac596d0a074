// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "convert/size_units.h"

#include <array>
#include <cstddef>
#include <string>

#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"

namespace brindle {
namespace {

constexpr double Base = 1024;
constexpr double LargestUntidied = 9999999999;

}  // namespace

double LargestSize(SizeUnit unit) {
  static constexpr std::array largest{1e20, 9.765625e16, 95367431640625.0, 93132257462.0};
  return largest.at(IndexOf(unit));
}

Sizes SizesFrom(SizeUnit unit, double size) {
  Sizes sizes{};
  const std::size_t source = IndexOf(unit);
  sizes.at(source) = size;
  for (std::size_t i = source + 1; i < sizes.size(); ++i) {
    sizes.at(i) = sizes.at(i - 1) / Base;
  }
  for (std::size_t i = source; i > 0; --i) {
    sizes.at(i - 1) = sizes.at(i) * Base;
  }
  return sizes;
}

std::string TidiedSize(SizeUnit unit, const std::string& text) {
  if (text.empty()) {
    return text;
  }
  std::string tidied = text;
  if (NumberOf(tidied) > LargestUntidied) {
    tidied = Formatted(NumberOf(tidied), "#.#");
  }
  const double size = NumberOf(tidied);
  if (IsWhole(size)) {
    tidied = unit == SizeUnit::B ? TextOf(WholePart(size)) : Formatted(size, "#");
  }
  return tidied;
}

}  // namespace brindle
