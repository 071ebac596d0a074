// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/decimal_digits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/numbers/numeric_text.h"

namespace brindle {
namespace {

// The longest scientific text of 15 digits: sign, 15 digits, period, e, sign, three digits.
constexpr std::size_t LongestScientific = 32;

DecimalDigits FromScientific(std::string_view text) {
  DecimalDigits number;
  if (text.front() == '-') {
    number.negative = true;
    text.remove_prefix(1);
  }
  const auto e = text.find('e');
  for (const char c : text.substr(0, e)) {
    if (c != '.') {
      number.digits += c;
    }
  }
  auto exponent = text.substr(e + 1);
  if (exponent.front() == '+') {
    exponent.remove_prefix(1);
  }
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), number.exponent);
  ++number.exponent;
  while (!number.digits.empty() && number.digits.back() == '0') {
    number.digits.pop_back();
  }
  if (number.digits.empty()) {
    return {};
  }
  return number;
}

std::string Scientific(const DecimalDigits& number) {
  return (number.negative ? "-0." : "0.") + number.digits + "0e" + std::to_string(number.exponent);
}

// Adds one unit in the last place of `digits`; true if that put a new digit in front.
bool AddUnit(std::string& digits) {
  const auto lastBelowNine = digits.find_last_not_of('9');
  if (lastBelowNine != std::string::npos) {
    ++digits[lastBelowNine];
    std::fill(digits.begin() + static_cast<std::ptrdiff_t>(lastBelowNine) + 1, digits.end(), '0');
    return false;
  }
  std::fill(digits.begin(), digits.end(), '0');
  digits.insert(digits.begin(), '1');
  return true;
}

template <class Float>
DecimalDigits Shortest(Float value) {
  std::array<char, LongestScientific> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific);
  return FromScientific({text.data(), end.ptr});
}

}  // namespace

DecimalDigits FifteenDigits(double value) {
  std::array<char, LongestScientific> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::scientific, 14);
  auto number = FromScientific({text.data(), end.ptr});
  if (!IsNumeric(Scientific(number))) {
    // Only the largest doubles round up beyond the range; their last digit is not 0.
    --number.digits.back();
  }
  return number;
}

DecimalDigits ShortestDigits(float value) { return Shortest(value); }

DecimalDigits ShortestDigits(double value) { return Shortest(value); }

DecimalDigits Rounded(DecimalDigits number, int decimals, Tie tie) {
  const int kept = number.exponent + decimals;
  if (kept >= static_cast<int>(number.digits.size())) {
    return number;
  }
  if (kept < 0) {
    return {};
  }
  const auto cut = static_cast<std::size_t>(kept);
  const char next = number.digits[cut];
  const bool half = next == '5' && number.digits.size() == cut + 1;
  const bool lastIsOdd = cut > 0 && (number.digits[cut - 1] - '0') % 2 == 1;
  const bool up = half ? tie == Tie::AwayFromZero || lastIsOdd : next >= '5';
  number.digits.resize(cut);
  if (up && AddUnit(number.digits)) {
    ++number.exponent;
  }
  while (!number.digits.empty() && number.digits.back() == '0') {
    number.digits.pop_back();
  }
  if (number.digits.empty()) {
    return {};
  }
  return number;
}

double ValueOf(const DecimalDigits& number) { return NumberOf(Scientific(number)); }

}  // namespace brindle
