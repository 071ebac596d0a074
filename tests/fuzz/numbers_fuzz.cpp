// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/numbers/decimal_digits.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "base/numbers/running_time.h"
#include "base/numbers/stepping.h"

namespace brindle {
namespace {

void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

bool Same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool IsPlain(std::string_view text) {
  return text.find_first_not_of("-.0123456789") == std::string_view::npos;
}

bool IsBlankText(std::string_view text) {
  return text.find_first_not_of(" \t") == std::string_view::npos;
}

// No digit but 0: such a number has no sign.
bool IsZeroText(std::string_view text) {
  return text.find_first_of("123456789") == std::string_view::npos;
}

void CheckText(std::string_view text) {
  const double leading = LeadingNumber(text);
  const double number = NumberOf(text);
  const bool isNumeric = IsNumeric(text);
  Require(std::isfinite(leading) && std::isfinite(number));
  Require(!isNumeric || leading == number);
  Require(isNumeric || number == 0);
  Require(!IsJustBegun(text) || !isNumeric);
  Require(!isNumeric || !IsBlankText(text));

  // Blanks around a text change nothing, and neither does a character that cannot continue a
  // number.
  const auto around = " \t" + std::string(text) + "\t ";
  Require(IsNumeric(around) == isNumeric && LeadingNumber(around) == leading);
  const auto spoilt = std::string(text) + "x";
  Require(!IsNumeric(spoilt) && LeadingNumber(spoilt) == leading);

  // An exponent of 0 after a mantissa changes nothing; a sign before a number turns it round.
  if (isNumeric && text.find_first_of("eE \t") == std::string_view::npos) {
    Require(NumberOf(std::string(text) + "e0") == number);
  }
  if (isNumeric && text.find_first_of("+-") > text.find_first_of(".0123456789") &&
      !IsBlankText(text.substr(0, 1))) {
    Require(NumberOf("-" + std::string(text)) == -number);
    Require(NumberOf("+" + std::string(text)) == number);
  }

  const auto typing = TextWhileTyping(text, leading);
  Require(typing.starts_with(TextOf(leading)));
  Require(NumberOf(typing) == NumberOf(TextOf(leading)));
}

void CheckTexts(double value) {
  const auto text = TextOf(value);
  if (!std::isfinite(value)) {
    Require(text.empty());
    return;
  }
  const double back = NumberOf(text);
  Require(IsNumeric(text) && std::isfinite(back));
  Require(TextOf(back) == text);
  Require(std::abs(back - value) <= std::abs(value) * 1.01e-14);
  const auto digits = FifteenDigits(value);
  Require(digits.digits.size() <= 15 && ValueOf(digits) == back);
}

void CheckSingle(float value) {
  const auto text = TextOfSingle(value);
  if (!std::isfinite(value)) {
    Require(text.empty());
    return;
  }
  float back = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), back);
  Require(read.ec == std::errc() && read.ptr == text.data() + text.size() && back == value);
}

void CheckPattern(double value, std::string_view pattern) {
  const auto shown = Formatted(value, pattern);
  Require(IsPlain(shown));
  Require(std::isfinite(value) || shown.empty());
  Require(!IsZeroText(shown) || shown.find('-') == std::string::npos);
  if (std::isfinite(value) && Formatted(-value, pattern) != shown) {
    const bool isNegative = shown.starts_with('-');
    Require(Formatted(-value, pattern) == (isNegative ? shown.substr(1) : "-" + shown));
  }
}

void CheckUsualPattern(double value, std::size_t which) {
  struct Usual {
    std::string_view text;
    int decimals;
  };
  constexpr std::array<Usual, 5> patterns{
      {{"#", 0}, {"#.0", 1}, {"00.00", 2}, {"#0.###", 3}, {"00.###", 3}}};
  const auto& pattern = patterns[which % patterns.size()];
  CheckPattern(value, pattern.text);
  if (std::isfinite(value)) {
    const auto shown = Formatted(value, pattern.text);
    const double back = NumberOf(shown.empty() ? "0" : shown);
    const double rounded = RoundedTo(value, pattern.decimals);
    const double unit = std::pow(10, -pattern.decimals);
    // Both are the nearest with that many decimals; only an exact half makes them differ, by one
    // unit.
    Require(std::abs(back - rounded) <= unit * 1.001 + std::abs(value) * 1e-15);
    Require(Formatted(back, pattern.text) == shown);
  }
}

void CheckRounding(double value, int decimals) {
  const double part = WholePart(value);
  const double rounded = RoundedTo(value, decimals);
  if (!std::isfinite(value)) {
    Require(Same(part, value) && Same(rounded, value) && !IsWhole(value));
    return;
  }
  constexpr double firstWithoutFraction = 9007199254740992;
  const double atFifteen = NumberOf(TextOf(value));
  Require(part <= atFifteen && part == std::trunc(part));
  Require(std::abs(atFifteen) >= firstWithoutFraction ? part == atFifteen : atFifteen < part + 1);
  Require(IsWhole(value) == (part == atFifteen));
  Require(RoundedTo(rounded, decimals) == rounded);
  Require(RoundedTo(-value, decimals) == -rounded);
  const double half = std::pow(10, -decimals) / 2;
  Require(std::abs(rounded - atFifteen) <= half * (1 + 1e-9) + std::abs(atFifteen) * 1e-15);
}

template <class Integer>
void CheckNearest(Integer (*convert)(double), double value) {
  constexpr double lowest = std::numeric_limits<Integer>::min();
  constexpr double highest = std::numeric_limits<Integer>::max();
  const double result = convert(value);
  if (std::isnan(value)) {
    Require(result == 0);
  } else if (value <= lowest || value >= highest) {
    Require(result == (value < 0 ? lowest : highest));
  } else {
    const double distance = std::abs(result - value);
    Require(distance < 0.5 || (distance == 0.5 && std::fmod(result, 2) == 0));
  }
}

void CheckPair(double a, double b) {
  const std::int64_t dividend = ToInteger32(a);
  const std::int64_t divisor = ToInteger32(b);
  const auto quotient = IntegerDivided(a, b);
  const auto remainder = Modulo(a, b);
  Require(quotient.has_value() == (divisor != 0) && remainder.has_value() == (divisor != 0));
  if (quotient && remainder) {
    Require(*quotient * divisor + *remainder == dividend);
    Require(std::abs(*remainder) < std::abs(divisor));
    Require(*remainder == 0 || (*remainder < 0) == (dividend < 0));
  }
  if (!std::isnan(a) && !std::isnan(b)) {
    Require(StepUp(a, b) <= b && StepDown(a, b) >= b);
    Require(StepUp(a, std::nullopt) == a + 1 && StepDown(a, std::nullopt) == a - 1);
    Require(StepDown(-a, -b) == -StepUp(a, b));
  }
  const double shrunk = ShrinkByTens(a, b);
  Require(std::isfinite(shrunk));
  Require(!(b >= 0) || shrunk <= b);
}

void CheckRunningTime(double minutes) {
  const auto time = TakeApart(minutes * 60);
  const auto shown = TakeApart(SecondsToHundredths(minutes));
  Require(IsPlain(MinutesText(minutes)));
  Require(IsPlain(Formatted(shown.seconds, "00.00")));
  if (std::abs(minutes) < 1e9) {
    Require(std::abs(InMinutes(time) - minutes) <= std::abs(minutes) * 1e-14 + 1e-9);
    Require(IsWhole(time.hours) && IsWhole(time.minutes));
    Require(NumberOf(Formatted(shown.seconds, "00.00")) < 60);
  }
}

void Check(const std::uint8_t* data, std::size_t size) {
  std::array<double, 2> values{};
  int decimals = 0;
  if (size > sizeof(values)) {
    std::memcpy(values.data(), data, sizeof(values));
    decimals = data[sizeof(values)] % 16;
  }
  // A field holds 400 characters.
  std::string text(std::min<std::size_t>(size, 400), '\0');
  std::memcpy(text.data(), data, text.size());
  const auto tail = std::string_view(text).substr(std::min(text.size(), sizeof(values) + 1));

  CheckText(text);
  CheckText(tail);
  for (const double value : {LeadingNumber(text), LeadingNumber(tail), values[0], values[1]}) {
    CheckTexts(value);
    CheckPattern(value, text);
    CheckPattern(value, tail);
    CheckUsualPattern(value, size);
    CheckRounding(value, decimals);
    CheckNearest(ToInteger16, value);
    CheckNearest(ToInteger32, value);
    CheckPair(value, values[0]);
    CheckPair(values[0], value);
    CheckRunningTime(value);
  }
  float single = 0;
  std::memcpy(&single, values.data(), sizeof(single));
  CheckSingle(single);
}

}  // namespace
}  // namespace brindle

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 0) {
    brindle::Check(data, size);
  }
  return 0;
}
