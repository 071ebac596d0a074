// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/numeric_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/numbers/decimal_digits.h"

namespace brindle {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsSign(char c) { return c == '-' || c == '+'; }

std::string_view WithoutLeadingBlanks(std::string_view text) {
  const auto* const first = std::find_if_not(text.begin(), text.end(), IsBlank);
  text.remove_prefix(static_cast<std::size_t>(first - text.begin()));
  return text;
}

bool IsAllBlanks(std::string_view text) { return std::all_of(text.begin(), text.end(), IsBlank); }

std::size_t CountDigits(std::string_view text) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), IsDigit);
  return static_cast<std::size_t>(end - text.begin());
}

std::string_view From(std::string_view text, std::size_t position) {
  return text.substr(std::min(position, text.size()));
}

bool StartsWith(std::string_view text, bool (*predicate)(char)) {
  return !text.empty() && predicate(text.front());
}

// Length of the longest prefix of `text` (no leading blanks) that has the form of a number; 0 if
// there is none.
std::size_t NumberLength(std::string_view text) {
  std::size_t length = StartsWith(text, IsSign) ? 1 : 0;
  const auto whole = CountDigits(From(text, length));
  length += whole;
  std::size_t fraction = 0;
  if (From(text, length).starts_with('.')) {
    fraction = CountDigits(From(text, length + 1));
    if (whole + fraction > 0) {
      length += 1 + fraction;
    }
  }
  if (whole + fraction == 0) {
    return 0;
  }
  const auto tail = From(text, length);
  if (tail.starts_with('e') || tail.starts_with('E')) {
    const std::size_t sign = StartsWith(From(tail, 1), IsSign) ? 1 : 0;
    const auto digits = CountDigits(From(tail, 1 + sign));
    if (digits > 0) {
      length += 1 + sign + digits;
    }
  }
  return length;
}

// Whether a number out of a double's range is too small for it rather than too large: its first
// digit that is not 0, moved by its exponent, comes after the period.
bool IsBelowRange(std::string_view number) {
  const auto e = std::min(number.find_first_of("eE"), number.size());
  const auto mantissa = number.substr(0, e);
  const auto first = mantissa.find_first_of("123456789");
  if (first == std::string_view::npos) {
    return true;
  }
  const auto period = std::min(mantissa.find('.'), mantissa.size());
  const auto place = static_cast<std::int64_t>(period) - static_cast<std::int64_t>(first);
  auto exponentText = From(number, e + 1);
  if (exponentText.starts_with('+')) {
    exponentText.remove_prefix(1);
  }
  std::int64_t exponent = 0;
  const auto read =
      std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
  if (read.ec == std::errc::result_out_of_range) {
    return exponentText.starts_with('-');
  }
  // No text is long enough to make up for an exponent as large as this.
  constexpr std::int64_t farAway = 1'000'000'000;
  return place + std::clamp(exponent, -farAway, farAway) < 0;
}

// The value of a text that has the form of a number and nothing around it; nothing if it is not
// finite.
template <class Float>
std::optional<Float> ValueOfForm(std::string_view number) {
  const auto unsignedPlus = number.starts_with('+') ? number.substr(1) : number;
  Float value = 0;
  const auto read =
      std::from_chars(unsignedPlus.data(), unsignedPlus.data() + unsignedPlus.size(), value);
  if (read.ec == std::errc::result_out_of_range) {
    return IsBelowRange(unsignedPlus) ? std::optional(Float{0}) : std::nullopt;
  }
  return value;
}

// The number in a text of that form without the blanks around it; empty for any other text.
std::string_view NumericForm(std::string_view text) {
  const auto number = WithoutLeadingBlanks(text);
  const auto length = NumberLength(number);
  return IsAllBlanks(From(number, length)) ? number.substr(0, length) : std::string_view();
}

std::optional<double> NumericValue(std::string_view text) {
  const auto number = NumericForm(text);
  return number.empty() ? std::nullopt : ValueOfForm<double>(number);
}

std::string Zeros(int count) {
  std::string zeros(static_cast<std::size_t>(std::max(count, 0)), '0');
  return zeros;
}

// Whole digits and decimals of a number, without sign and period; "" and "" for zero.
struct PlainDigits {
  std::string whole;
  std::string fraction;
};

PlainDigits Plain(const DecimalDigits& number) {
  const auto count = static_cast<int>(number.digits.size());
  if (number.exponent <= 0) {
    return {"", number.digits.empty() ? "" : Zeros(-number.exponent) + number.digits};
  }
  if (number.exponent >= count) {
    return {number.digits + Zeros(number.exponent - count), ""};
  }
  const auto split = static_cast<std::size_t>(number.exponent);
  return {number.digits.substr(0, split), number.digits.substr(split)};
}

std::size_t CountPlaces(std::string_view pattern) {
  return static_cast<std::size_t>(
      std::count_if(pattern.begin(), pattern.end(), [](char c) { return c == '0' || c == '#'; }));
}

std::string Written(const DecimalDigits& number) {
  // 1e-15 has exponent -14 in 0.d form, 1e20 has 21, 1e21 has 22.
  constexpr int smallestPlain = -14;
  constexpr int largestPlain = 21;
  if (number.digits.empty()) {
    return "0";
  }
  const std::string sign = number.negative ? "-" : "";
  if (number.exponent >= smallestPlain && number.exponent <= largestPlain) {
    const auto plain = Plain(number);
    return sign + (plain.whole.empty() ? "0" : plain.whole) +
           (plain.fraction.empty() ? "" : "." + plain.fraction);
  }
  const int exponent = number.exponent - 1;
  const auto rest = number.digits.substr(1);
  return sign + number.digits.front() + (rest.empty() ? "" : "." + rest) + "E" +
         (exponent < 0 ? "-" : "+") + std::to_string(std::abs(exponent));
}

}  // namespace

bool IsNumeric(std::string_view text) { return NumericValue(text).has_value(); }

bool IsJustBegun(std::string_view text) {
  return text == "-" || text == "+" || text == "." || text == "-." || text == "+.";
}

double LeadingNumber(std::string_view text) {
  const auto number = WithoutLeadingBlanks(text);
  const auto length = NumberLength(number);
  return length == 0 ? 0 : ValueOfForm<double>(number.substr(0, length)).value_or(0);
}

double NumberOf(std::string_view text) { return NumericValue(text).value_or(0); }

float SingleOf(std::string_view text) {
  constexpr float largest = std::numeric_limits<float>::max();
  const auto value = NumericValue(text);
  if (!value) {
    return 0;
  }
  // Not by way of the double: rounding twice can miss the nearest float.
  return ValueOfForm<float>(NumericForm(text)).value_or(std::signbit(*value) ? -largest : largest);
}

std::string TextOf(double value) {
  return std::isfinite(value) ? Written(FifteenDigits(value)) : std::string();
}

std::string ExactTextOf(double value) {
  return std::isfinite(value) ? Written(ShortestDigits(value)) : std::string();
}

std::string TextOfSingle(float value) {
  return std::isfinite(value) ? Written(ShortestDigits(value)) : std::string();
}

std::string TextWhileTyping(std::string_view typed, double value) {
  auto text = TextOf(value);
  const auto period = typed.find('.');
  if (period == std::string_view::npos ||
      !std::all_of(typed.begin() + static_cast<std::ptrdiff_t>(period) + 1, typed.end(), IsDigit)) {
    return text;
  }
  const auto lastDigit = typed.find_last_not_of('0');
  const auto tail = typed.substr(lastDigit == period ? period : lastDigit + 1);
  const bool continuesFraction = text.find('.') != std::string::npos;
  // The tail fits only if it continues the text: a period after a whole number, zeros after a
  // fraction.
  if (tail.empty() || tail.starts_with('.') == continuesFraction || NumberOf(typed) != value) {
    return text;
  }
  auto candidate = text + std::string(tail);
  return NumberOf(candidate) == NumberOf(text) ? candidate : text;
}

std::string Formatted(double value, std::string_view pattern) {
  if (!std::isfinite(value)) {
    return {};
  }
  const auto period = std::min(pattern.find('.'), pattern.size());
  const auto wholePattern = pattern.substr(0, period);
  const auto fractionPattern = From(pattern, period + 1);
  const auto firstZero = std::min(wholePattern.find('0'), wholePattern.size());
  const auto wholeNeeded = CountPlaces(wholePattern.substr(firstZero));
  const auto lastZero = fractionPattern.rfind('0');
  const auto decimalsNeeded =
      lastZero == std::string_view::npos ? 0 : CountPlaces(fractionPattern.substr(0, lastZero + 1));

  const auto number = Rounded(FifteenDigits(value), static_cast<int>(CountPlaces(fractionPattern)),
                              Tie::AwayFromZero);
  auto shown = Plain(number);
  if (shown.whole.size() < wholeNeeded) {
    shown.whole.insert(0, wholeNeeded - shown.whole.size(), '0');
  }
  if (shown.fraction.size() < decimalsNeeded) {
    shown.fraction.append(decimalsNeeded - shown.fraction.size(), '0');
  }
  return (number.negative ? "-" : "") + shown.whole +
         (shown.fraction.empty() ? "" : "." + shown.fraction);
}

}  // namespace brindle
