// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "base/numbers/decimal_digits.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "base/numbers/running_time.h"
#include "base/numbers/stepping.h"

namespace brindle {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
// From here on every double is a whole number and adding 1 may change nothing.
constexpr double FirstWithoutFraction = 9007199254740992;

// Reads back exactly; only for the reports.
std::string Exact(double value) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), end.ptr};
}

std::string Escaped(std::string_view text) {
  constexpr std::string_view hex = "0123456789ABCDEF";
  std::string escaped = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte < 0x7F) {
      escaped += c;
    } else {
      escaped += {'\\', 'x', hex[byte / 16U], hex[byte % 16U]};
    }
  }
  return escaped + "\"";
}

// A law checked with very many inputs: counts those that break it and keeps the first.
class Law {
 public:
  explicit Law(std::string name) : name_(std::move(name)) {}
  Law(const Law&) = delete;
  Law(Law&&) = delete;
  Law& operator=(const Law&) = delete;
  Law& operator=(Law&&) = delete;
  ~Law() {
    EXPECT_GT(checks_, 0U) << name_ << ": held against nothing";
    EXPECT_EQ(failures_, 0U) << name_ << ": first broken by " << first_;
  }

  template <std::invocable Describe>
  void Check(bool holds, Describe describe) {
    ++checks_;
    if (!holds && ++failures_ == 1) {
      first_ = describe();
    }
  }

  void Check(bool holds, double value) {
    Check(holds, [value] { return Exact(value); });
  }

  void Check(bool holds, std::string_view text) {
    Check(holds, [text] { return Escaped(text); });
  }

 private:
  std::string name_;
  std::string first_;
  std::size_t checks_ = 0;
  std::size_t failures_ = 0;
};

// How many random inputs: all of these in the long run (scripts/test long), else a tenth.
std::size_t Many(std::size_t all) {
  static const bool isLong = std::getenv("BRINDLE_TEST_LONG") != nullptr;
  return isLong ? all : all / 10;
}

// The same numbers on every platform: the engine is exact, the standard distributions are not.
class Random {
 public:
  explicit Random(std::uint64_t seed) : engine_(seed) {}

  std::uint64_t Bits() { return engine_(); }

  std::size_t Below(std::size_t end) { return static_cast<std::size_t>(engine_() % end); }

  int Between(int first, int last) {
    return first + static_cast<int>(Below(static_cast<std::size_t>(last - first) + 1));
  }

  char OneOf(std::string_view characters) { return characters[Below(characters.size())]; }

 private:
  std::mt19937_64 engine_;
};

double Parsed(std::string_view text) {
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

void AppendWithNeighbours(std::vector<double>& values, double value) {
  for (const double x : {value, std::nextafter(value, 0.0), std::nextafter(value, Infinity)}) {
    values.push_back(x);
    values.push_back(-x);
  }
}

std::vector<double> EdgeNumbers() {
  std::vector<double> values{0.0, -0.0, Infinity, -Infinity, NotANumber, -NotANumber};
  for (int power = -1074; power <= 1023; ++power) {
    AppendWithNeighbours(values, std::ldexp(1.0, power));
  }
  for (int power = -323; power <= 308; ++power) {
    AppendWithNeighbours(values, Parsed("1e" + std::to_string(power)));
    AppendWithNeighbours(values, Parsed("5e" + std::to_string(power)));
  }
  AppendWithNeighbours(values, std::numeric_limits<double>::max());
  AppendWithNeighbours(values, std::numeric_limits<double>::min());
  for (const double end : {32767.0, 32768.0, 2147483647.0, 2147483648.0}) {
    for (const double step : {-1.5, -1.0, -0.5, 0.0, 0.5, 1.0, 1.5}) {
      AppendWithNeighbours(values, end + step);
    }
  }
  for (int halves = 0; halves <= 2000; ++halves) {
    AppendWithNeighbours(values, halves / 2.0);
  }
  return values;
}

// A number as a person types it: few digits, few decimals, often a tie of some rounding.
double TypedNumber(Random& random) {
  const auto digits = random.Below(9) + 1;
  std::string text = random.Below(4) == 0 ? "-" : "";
  for (std::size_t i = 0; i < digits; ++i) {
    text += random.OneOf("0123456789");
  }
  text += '.';
  for (auto decimals = random.Below(5); decimals > 0; --decimals) {
    text += random.OneOf("0123456789");
  }
  return Parsed(text + (random.Below(2) == 0 ? "5" : ""));
}

std::size_t RandomPatterns() { return Many(1'000'000); }

const std::vector<double>& Numbers() {
  static const auto numbers = [] {
    const std::size_t typedNumbers = Many(40'000);
    const std::size_t subnormals = Many(10'000);
    auto values = EdgeNumbers();
    Random random(20260101);
    for (std::size_t i = 0; i < typedNumbers; ++i) {
      values.push_back(TypedNumber(random));
    }
    for (std::size_t i = 0; i < subnormals; ++i) {
      values.push_back(std::bit_cast<double>(random.Bits() >> (12 + random.Below(50))));
    }
    for (std::size_t i = 0; i < RandomPatterns(); ++i) {
      values.push_back(std::bit_cast<double>(random.Bits()));
    }
    return values;
  }();
  return numbers;
}

// Every edge, every typed number, every subnormal, and one in `stride` of the random patterns: for
// laws that are slow to check.
template <class Visit>
void VisitSome(std::size_t stride, Visit visit) {
  const auto& numbers = Numbers();
  const std::size_t chosen = numbers.size() - RandomPatterns();
  for (std::size_t i = 0; i < numbers.size(); i += i < chosen ? 1 : stride) {
    visit(numbers[i]);
  }
}

// Exact decimal digits of a finite double by long multiplication, with whole numbers only.
class ExactDecimal {
 public:
  explicit ExactDecimal(double value) {
    int power = 0;
    const double fraction = std::frexp(std::abs(value), &power);
    auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, 53));
    for (power -= 53; mantissa != 0 && mantissa % 2 == 0; ++power) {
      mantissa /= 2;
    }
    for (; mantissa != 0; mantissa /= Base) {
      limbs_.push_back(static_cast<std::uint32_t>(mantissa % Base));
    }
    // m x 2^-k is m x 5^k with the period moved by k places.
    for (int left = power; left > 0; left -= 29) {
      Multiply(std::uint32_t{1} << static_cast<unsigned>(std::min(left, 29)));
    }
    for (int left = power; left < 0; left += 12) {
      std::uint32_t fives = 1;
      for (int i = 0; i < std::min(-left, 12); ++i) {
        fives *= 5;
      }
      Multiply(fives);
    }
    for (std::size_t i = limbs_.size(); i > 0; --i) {
      const auto part = std::to_string(limbs_[i - 1]);
      digits_ += (digits_.empty() ? "" : std::string(9 - part.size(), '0')) + part;
    }
    exponent_ = limbs_.empty() ? 0 : static_cast<int>(digits_.size()) + std::min(power, 0);
  }

  [[nodiscard]] DecimalDigits AtFifteenDigits() const {
    constexpr std::size_t kept = 15;
    DecimalDigits number{false, digits_, exponent_};
    if (number.digits.size() > kept) {
      const auto rest = number.digits.substr(kept);
      const auto half = "5" + std::string(rest.size() - 1, '0');
      number.digits.resize(kept);
      const bool odd = (number.digits.back() - '0') % 2 != 0;
      if (rest > half || (rest == half && odd)) {
        auto digit = number.digits.rbegin();
        for (; digit != number.digits.rend() && *digit == '9'; ++digit) {
          *digit = '0';
        }
        if (digit == number.digits.rend()) {
          number.digits = "1";
          ++number.exponent;
        } else {
          ++*digit;
        }
      }
    }
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
    return number;
  }

 private:
  static constexpr std::uint64_t Base = 1'000'000'000;

  void Multiply(std::uint32_t factor) {
    std::uint64_t carry = 0;
    for (auto& limb : limbs_) {
      carry += std::uint64_t{limb} * factor;
      limb = static_cast<std::uint32_t>(carry % Base);
      carry /= Base;
    }
    if (carry != 0) {
      limbs_.push_back(static_cast<std::uint32_t>(carry));
    }
  }

  std::vector<std::uint32_t> limbs_;
  std::string digits_;
  int exponent_ = 0;
};

// A text of a number written out without exponent: "-1.5E+3" is "-", "1500", "".
struct WrittenOut {
  bool negative = false;
  std::string whole;
  std::string fraction;
};

WrittenOut WriteOut(std::string_view text) {
  WrittenOut number;
  if (text.starts_with('-')) {
    number.negative = true;
    text.remove_prefix(1);
  }
  const auto mark = std::min(text.find('E'), text.size());
  const auto mantissa = text.substr(0, mark);
  const auto period = std::min(mantissa.find('.'), mantissa.size());
  number.whole = mantissa.substr(0, period);
  number.fraction = mantissa.substr(std::min(period + 1, mantissa.size()));
  int exponent = 0;
  if (mark < text.size()) {
    const auto digits = text.substr(mark + 2);
    std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    exponent = text[mark + 1] == '-' ? -exponent : exponent;
  }
  auto all = number.whole + number.fraction;
  const int point = static_cast<int>(number.whole.size()) + exponent;
  all.insert(0, static_cast<std::size_t>(std::max(-point, 0)), '0');
  const auto split = static_cast<std::size_t>(std::max(point, 0));
  all.resize(std::max(all.size(), split), '0');
  number.whole = all.substr(0, split);
  number.fraction = all.substr(split);
  number.whole.erase(0, number.whole.find_first_not_of('0'));
  return number;
}

// Rounds as taught at school: cut, then carry from right to left.
void RoundOff(WrittenOut& number, std::size_t decimals, Tie tie) {
  if (number.fraction.size() > decimals) {
    const auto rest = number.fraction.substr(decimals);
    number.fraction.resize(decimals);
    auto all = "0" + number.whole + number.fraction;
    const bool half = rest.front() == '5' && rest.find_first_not_of('0', 1) == std::string::npos;
    const bool odd = (all.back() - '0') % 2 != 0;
    if (half ? tie == Tie::AwayFromZero || odd : rest.front() >= '5') {
      auto last = all.size() - 1;
      for (; all[last] == '9'; --last) {
        all[last] = '0';
      }
      ++all[last];
    }
    number.whole = all.substr(0, all.size() - decimals);
    number.fraction = all.substr(all.size() - decimals);
    number.whole.erase(0, number.whole.find_first_not_of('0'));
  }
  number.fraction.erase(number.fraction.find_last_not_of('0') + 1);
}

struct Pattern {
  std::string_view text;
  std::size_t wholeDigits = 0;
  std::size_t leastDecimals = 0;
  std::size_t mostDecimals = 0;
};

constexpr std::array<Pattern, 9> Patterns{{
    {"#", 0, 0, 0},
    {"#.0", 0, 1, 1},
    {"#0.###", 1, 0, 3},
    {"00.00", 2, 2, 2},
    {"00.###", 2, 0, 3},
    {"0.0#", 1, 1, 2},
    {"#.##", 0, 0, 2},
    {"000", 3, 0, 0},
    {"#0.0000000000000000##", 1, 16, 18},
}};

std::string SlowlyFormatted(double value, const Pattern& pattern) {
  if (!std::isfinite(value)) {
    return "";
  }
  auto number = WriteOut(TextOf(value));
  RoundOff(number, pattern.mostDecimals, Tie::AwayFromZero);
  const bool isZero = number.whole.empty() && number.fraction.empty();
  while (number.whole.size() < pattern.wholeDigits) {
    number.whole.insert(0, 1, '0');
  }
  while (number.fraction.size() < pattern.leastDecimals) {
    number.fraction += '0';
  }
  return (number.negative && !isZero ? "-" : "") + number.whole +
         (number.fraction.empty() ? "" : "." + number.fraction);
}

std::string SlowlyRounded(double value, std::size_t decimals) {
  auto number = WriteOut(TextOf(value));
  RoundOff(number, decimals, Tie::ToEven);
  return (number.negative ? "-0" : "0") + number.whole + "." + number.fraction;
}

bool IsPlain(std::string_view text) {
  return text.find_first_not_of("-.0123456789") == std::string_view::npos;
}

TEST(NumbersPropertyTest, FifteenDigitsAreThoseOfTheExactValue) {
  Law digits("digits are those of long multiplication");
  std::size_t position = 0;
  VisitSome(500, [&](double value) {
    if (!std::isfinite(value) || ++position % 4 != 0) {
      return;
    }
    const auto number = FifteenDigits(value);
    const auto exact = ExactDecimal(value).AtFifteenDigits();
    const bool isBeyond = exact.exponent == 309 && exact.digits > "179769313486231";
    digits.Check(number.digits == (isBeyond ? "179769313486231" : exact.digits) &&
                     number.exponent == exact.exponent &&
                     number.negative == (std::signbit(value) && value != 0),
                 value);
  });
}

TEST(NumbersPropertyTest, TextsOfNumbersReadBack) {
  Law readable("text of a finite number is numeric");
  Law stable("text -> number -> text is stable");
  Law near("text reads back to the number at 15 digits");
  Law blank("text of what is not finite is empty");
  Law notation("an exponent stands exactly outside 1e-15 <= |x| < 1e21");
  std::size_t position = 0;
  for (const double value : Numbers()) {
    const auto text = TextOf(value);
    if (!std::isfinite(value)) {
      blank.Check(text.empty(), value);
      continue;
    }
    const double back = NumberOf(text);
    readable.Check(IsNumeric(text) && std::isfinite(back), value);
    if (++position % 3 == 0) {
      stable.Check(TextOf(back) == text, value);
    }
    // Half a unit of the 15th digit is at most 5e-15 of the number; the largest doubles lose one.
    near.Check(std::abs(back - value) <= std::abs(value) * 1.01e-14, value);
    const bool isPlain = back == 0 || (std::abs(back) >= 1e-15 && std::abs(back) < 1e21) ||
                         text == "0.000000000000001";
    notation.Check((text.find('E') == std::string::npos) == isPlain, value);
  }
}

TEST(NumbersPropertyTest, TextsOfSinglesReadBack) {
  Law same("text of a Single reads back to the same Single");
  Law fewest("no text with one digit less reads back to the same Single");
  Law blank("text of what is not finite is empty");
  Random random(20260102);
  for (std::size_t i = 0, end = Many(200'000); i < end; ++i) {
    const auto bits = static_cast<std::uint32_t>(random.Bits());
    const auto value = std::bit_cast<float>(i % 8 == 0 ? bits & 0x807FFFFFU : bits);
    const auto text = TextOfSingle(value);
    if (!std::isfinite(value)) {
      blank.Check(text.empty(), value);
      continue;
    }
    float back = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), back);
    same.Check(read.ec == std::errc() && read.ptr == text.data() + text.size() && back == value,
               value);
    same.Check(static_cast<float>(NumberOf(text)) == value, value);
    auto number = ShortestDigits(value);
    if (number.digits.size() > 1) {
      number.digits.pop_back();
      auto above = number;
      ++above.digits.back();  // after a 9 this is not a digit: nothing to read, nothing to compare
      const bool belowDiffers = static_cast<float>(ValueOf(number)) != value;
      const bool aboveDiffers =
          above.digits.back() > '9' || static_cast<float>(ValueOf(above)) != value;
      fewest.Check(belowDiffers && aboveDiffers, value);
    }
  }
}

TEST(NumbersPropertyTest, FormattedIsWhatSchoolArithmeticGives) {
  Law model("the pattern is filled as by school arithmetic");
  // A step that shares no factor with the number of patterns: each meets every kind of number.
  std::size_t position = 0;
  VisitSome(40, [&](double value) {
    const auto& pattern = Patterns[(position += 4) % Patterns.size()];
    model.Check(Formatted(value, pattern.text) == SlowlyFormatted(value, pattern),
                [&] { return Exact(value) + " in " + std::string(pattern.text); });
  });
}

TEST(NumbersPropertyTest, FormattedNeverShowsAnExponent) {
  Law plain("neither an exponent nor inf nor nan is shown");
  Law blank("what is not finite shows nothing");
  std::size_t position = 0;
  VisitSome(8, [&](double value) {
    const auto shown = Formatted(value, Patterns[position++ % Patterns.size()].text);
    plain.Check(IsPlain(shown), value);
    blank.Check(std::isfinite(value) || shown.empty(), value);
  });
}

TEST(NumbersPropertyTest, WholePartIsTheFloorAtFifteenDigits) {
  Law notAbove("the whole part is not above the number at 15 digits");
  Law lessThanOneBelow("the whole part is less than 1 below the number at 15 digits");
  Law whole("the whole part is a whole number");
  Law same("a number is whole exactly where it is its own whole part");
  Law notFinite("what is not finite comes back and is not whole");
  VisitSome(8, [&](double value) {
    const double part = WholePart(value);
    if (!std::isfinite(value)) {
      notFinite.Check((std::isnan(value) ? std::isnan(part) : part == value) && !IsWhole(value),
                      value);
      return;
    }
    const double atFifteen = NumberOf(TextOf(value));
    notAbove.Check(part <= atFifteen, value);
    lessThanOneBelow.Check(
        std::abs(atFifteen) < FirstWithoutFraction ? atFifteen < part + 1 : atFifteen == part,
        value);
    whole.Check(part == std::trunc(part), value);
    same.Check(IsWhole(value) == (part == atFifteen), value);
  });
}

TEST(NumbersPropertyTest, RoundedToIsWhatSchoolArithmeticGives) {
  Law model("rounded as by school arithmetic, ties to even");
  Law stable("rounding once more changes nothing");
  Law notFinite("what is not finite comes back");
  std::size_t position = 0;
  VisitSome(40, [&](double value) {
    const auto decimals = position++ % 16;
    const double rounded = RoundedTo(value, static_cast<int>(decimals));
    if (!std::isfinite(value)) {
      notFinite.Check(std::isnan(value) ? std::isnan(rounded) : rounded == value, value);
      return;
    }
    model.Check(rounded == Parsed(SlowlyRounded(value, decimals)),
                [&] { return Exact(value) + " to " + std::to_string(decimals); });
    stable.Check(RoundedTo(rounded, static_cast<int>(decimals)) == rounded, value);
  });
}

template <class Integer>
void CheckNearest(Integer (*convert)(double), std::string_view name) {
  constexpr double lowest = std::numeric_limits<Integer>::min();
  constexpr double highest = std::numeric_limits<Integer>::max();
  Law nearest(std::string(name) + " is the nearest, ties to even");
  Law stops(std::string(name) + " stops at the ends");
  Law nothing(std::string(name) + " of not-a-number is 0");
  for (const double value : Numbers()) {
    const double result = convert(value);
    if (std::isnan(value)) {
      nothing.Check(result == 0, value);
    } else if (value <= lowest || value >= highest) {
      stops.Check(result == (value < 0 ? lowest : highest), value);
    } else {
      const double distance = std::abs(result - value);
      nearest.Check(distance < 0.5 || (distance == 0.5 && std::fmod(result, 2) == 0), value);
    }
  }
}

TEST(NumbersPropertyTest, ConversionsGoToTheNearestEven) {
  CheckNearest(ToInteger16, "16-bit");
  CheckNearest(ToInteger32, "32-bit");
}

TEST(NumbersPropertyTest, QuotientAndRemainderMakeTheDividend) {
  Law sum("quotient x divisor + remainder is the dividend");
  Law size("the remainder is smaller than the divisor");
  Law sign("the remainder has the sign of the dividend");
  Law nothing("there is no result exactly where the divisor rounds to 0");
  Random random(20260103);
  const auto& numbers = Numbers();
  for (std::size_t i = 0, end = Many(300'000); i < end; ++i) {
    const auto pick = [&] {
      return i % 3 == 0 ? numbers[random.Below(numbers.size())]
                        : static_cast<double>(random.Between(-400, 400)) / 4;
    };
    const double a = pick();
    const double b = pick();
    const std::int64_t dividend = ToInteger32(a);
    const std::int64_t divisor = ToInteger32(b);
    const auto quotient = IntegerDivided(a, b);
    const auto remainder = Modulo(a, b);
    const auto describe = [&] { return Exact(a) + " by " + Exact(b); };
    nothing.Check(quotient.has_value() == (divisor != 0) && remainder.has_value() == (divisor != 0),
                  describe);
    if (quotient && remainder) {
      sum.Check(*quotient * divisor + *remainder == dividend, describe);
      size.Check(std::abs(*remainder) < std::abs(divisor), describe);
      sign.Check(*remainder == 0 || (*remainder < 0) == (dividend < 0), describe);
    }
  }
}

TEST(NumbersPropertyTest, StepsStayWithinTheirBound) {
  Law up("a step up never exceeds the bound");
  Law down("a step down never falls below the bound");
  Law oneUp("a step up is 1, or nothing, or to the bound");
  Law oneDown("a step down is 1, or nothing, or to the bound");
  Law free("without a bound a step is 1");
  Random random(20260104);
  const auto& numbers = Numbers();
  for (std::size_t i = 0, end = Many(300'000); i < end; ++i) {
    const double value = numbers[random.Below(numbers.size())];
    const double limit = i % 2 == 0 ? numbers[random.Below(numbers.size())]
                                    : value + static_cast<double>(random.Between(-12, 12)) / 8;
    if (std::isnan(value) || std::isnan(limit)) {
      continue;
    }
    const double stepUp = StepUp(value, limit);
    const double stepDown = StepDown(value, limit);
    const auto describe = [&] { return Exact(value) + " with the bound " + Exact(limit); };
    up.Check(stepUp <= limit, describe);
    down.Check(stepDown >= limit, describe);
    oneUp.Check(
        value >= limit ? stepUp == limit : stepUp == (value + 1 > limit ? value : value + 1),
        describe);
    oneDown.Check(
        value <= limit ? stepDown == limit : stepDown == (value - 1 < limit ? value : value - 1),
        describe);
    free.Check(
        StepUp(value, std::nullopt) == value + 1 && StepDown(value, std::nullopt) == value - 1,
        describe);
  }
}

TEST(NumbersPropertyTest, ShrinkingByTensStops) {
  Law fits("the result is not above a limit from 0 upwards");
  Law keeps("a value that fits stays as it is at 15 digits");
  Law oneDigit("one tens more would not have been needed");
  Law finite("the result is finite");
  Random random(20260105);
  const auto& numbers = Numbers();
  for (std::size_t i = 0, end = Many(100'000); i < end; ++i) {
    const double value = numbers[random.Below(numbers.size())];
    constexpr std::array<double, 6> usual{999, 99, 99.999, 99999999, 1e20, 0};
    const double limit =
        i % 2 == 0 ? usual[random.Below(usual.size())] : numbers[random.Below(numbers.size())];
    const double shrunk = ShrinkByTens(value, limit);
    const double atFifteen = NumberOf(TextOf(value));
    const auto describe = [&] { return Exact(value) + " with the limit " + Exact(limit); };
    finite.Check(std::isfinite(shrunk), describe);
    if (limit >= 0) {
      fits.Check(shrunk <= limit, describe);
      keeps.Check(atFifteen > limit || shrunk == atFifteen, describe);
      // Far from the subnormals, where a division by 10 loses digits.
      oneDigit.Check(atFifteen <= limit || limit < 1e-290 || shrunk * 10 > limit * (1 - 1e-14),
                     describe);
    }
  }
}

TEST(NumbersPropertyTest, RunningTimesAddUp) {
  Law sum("the parts add up to the minutes");
  Law ranges("minutes and seconds stay within theirs");
  Random random(20260106);
  for (std::size_t i = 0, end = Many(100'000); i < end; ++i) {
    const double minutes = static_cast<double>(random.Between(0, 60'000'000)) / 1000;
    const auto time = TakeApart(minutes * 60);
    sum.Check(std::abs(InMinutes(time) - minutes) < 1e-9, minutes);
    ranges.Check(time.hours >= 0 && time.minutes >= 0 && time.minutes < 60 &&
                     time.seconds > -1e-6 && time.seconds < 60,
                 minutes);
    ranges.Check(IsWhole(time.hours) && IsWhole(time.minutes), minutes);
    const auto shown = TakeApart(SecondsToHundredths(minutes));
    sum.Check(std::abs(InMinutes(shown) - minutes) < 0.005 / 60 + 1e-9, minutes);
    ranges.Check(shown.minutes < 60 && NumberOf(Formatted(shown.seconds, "00.00")) < 60, minutes);
  }
}

// A second reading of what a number looks like, one character at a time.
enum class Stage { Blank, Sign, Whole, BarePeriod, Fraction, Mark, MarkSign, Power };

std::optional<Stage> Next(Stage stage, char c) {
  const bool isDigit = c >= '0' && c <= '9';
  const bool isSign = c == '+' || c == '-';
  const bool isMark = c == 'e' || c == 'E';
  switch (stage) {
    case Stage::Blank:
    case Stage::Sign:
      if (isDigit) {
        return Stage::Whole;
      }
      if (c == '.') {
        return Stage::BarePeriod;
      }
      return stage == Stage::Blank && isSign ? std::optional(Stage::Sign) : std::nullopt;
    case Stage::Whole:
      if (c == '.') {
        return Stage::Fraction;
      }
      [[fallthrough]];
    case Stage::Fraction:
      if (isMark) {
        return Stage::Mark;
      }
      return isDigit ? std::optional(stage) : std::nullopt;
    case Stage::BarePeriod:
      return isDigit ? std::optional(Stage::Fraction) : std::nullopt;
    case Stage::Mark:
      if (isSign) {
        return Stage::MarkSign;
      }
      [[fallthrough]];
    case Stage::MarkSign:
    case Stage::Power:
      return isDigit ? std::optional(Stage::Power) : std::nullopt;
  }
  return std::nullopt;
}

struct Reading {
  std::optional<double> leading;  // nothing: no number, or not a finite one
  bool isAll = false;             // nothing but blanks around the number
};

// The value of a text that has the form of a number; nothing if it is not finite. Brings it to
// 0.digits x 10^power first, with a power that cannot overflow.
std::optional<double> SlowValue(std::string_view form) {
  constexpr std::int64_t endless = 1'000'000;
  const bool negative = form.starts_with('-');
  const auto mark = std::min(form.find_first_of("eE"), form.size());
  std::string digits;
  std::int64_t power = 0;
  bool isBehindPeriod = false;
  for (const char c : form.substr(0, mark)) {
    if (c == '.') {
      isBehindPeriod = true;
    } else if (c >= '0' && c <= '9') {
      power += isBehindPeriod ? 0 : 1;
      digits += c;
    }
  }
  const auto zeros = std::min(digits.find_first_not_of('0'), digits.size());
  digits.erase(0, zeros);
  power -= static_cast<std::int64_t>(zeros);
  if (digits.empty()) {
    return 0;
  }
  std::int64_t exponent = 0;
  for (const char c : form.substr(mark)) {
    if (c >= '0' && c <= '9') {
      exponent = std::min(exponent * 10 + (c - '0'), endless);
    }
  }
  power += form.substr(mark).find('-') == std::string_view::npos ? exponent : -exponent;
  if (power > 309) {
    return std::nullopt;
  }
  if (power < -330) {
    return 0;
  }
  const auto text = "0." + digits + "e" + std::to_string(power);
  double value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec == std::errc::result_out_of_range) {
    return power > 0 ? std::nullopt : std::optional(0.0);
  }
  return negative ? -value : value;
}

Reading SlowlyRead(std::string_view text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  std::size_t begin = 0;
  while (begin < text.size() && isBlank(text[begin])) {
    ++begin;
  }
  std::size_t end = begin;
  auto stage = std::optional(Stage::Blank);
  for (std::size_t i = begin; i < text.size(); ++i) {
    stage = Next(*stage, text[i]);
    if (!stage) {
      break;
    }
    if (stage == Stage::Whole || stage == Stage::Fraction || stage == Stage::Power) {
      end = i + 1;
    }
  }
  if (end == begin) {
    return {};
  }
  return {SlowValue(text.substr(begin, end - begin)),
          std::all_of(text.begin() + static_cast<std::ptrdiff_t>(end), text.end(), isBlank)};
}

std::string RandomText(Random& random) {
  using std::string_view_literals::operator""sv;
  constexpr std::array<std::string_view, 6> alphabets{
      "0123456789"sv,         "0123456789.-+eE"sv,
      "0123456789.-+eE \t"sv, "0123456789.,-+eE \t\nxainfINF&Hkg#\0\x80\xC2\xD9\xFF"sv,
      "00009.e-"sv,           "#0."sv,
  };
  const auto alphabet = alphabets[random.Below(alphabets.size())];
  const auto length = random.Below(random.Below(8) == 0 ? 401 : 16);
  std::string text;
  while (text.size() < length) {
    text += random.OneOf(alphabet);
  }
  return text;
}

// A numeric text of arbitrary shape; one in three is spoilt at one place.
std::string RandomNumber(Random& random) {
  constexpr std::array<std::string_view, 8> exponents{"e308",
                                                      "E-308",
                                                      "e-324",
                                                      "e+309",
                                                      "e99999999999999999999",
                                                      "e-99999999999999999999",
                                                      "e9223372036854775807",
                                                      "e-9223372036854775808"};
  const auto digits = [&random] {
    std::string text;
    for (auto count = random.Below(random.Below(16) == 0 ? 120 : 7); count > 0; --count) {
      text += random.OneOf("0123456789");
    }
    return text;
  };
  std::string text = std::string(random.Below(3), ' ');
  if (random.Below(2) == 0) {
    text += random.OneOf("+-");
  }
  text += digits();
  if (random.Below(2) == 0) {
    text += "." + digits();
  }
  if (random.Below(8) == 0) {
    text += exponents[random.Below(exponents.size())];
  } else if (random.Below(2) == 0) {
    text += "e" + std::to_string(random.Between(-400, 400));
  }
  text += std::string(random.Below(3), '\t');
  if (random.Below(3) == 0 && !text.empty()) {
    text[random.Below(text.size())] = random.OneOf("0.e- x,");
  }
  return text;
}

TEST(NumbersPropertyTest, TextsAreReadAsByASecondReader) {
  Law finite("what is read is finite");
  Law agrees("a numeric text has one value in both readings");
  Law numeric("numeric is what the second reader calls numeric");
  Law leading("the leading number is that of the second reader");
  Law number("the number of any other text is 0");
  Law begun("a number just begun is not numeric yet");
  Law stable("text -> number -> text is stable");
  Random random(20260107);
  for (std::size_t i = 0, end = Many(150'000); i < end; ++i) {
    const auto text = i % 2 == 0 ? RandomText(random) : RandomNumber(random);
    const auto reading = SlowlyRead(text);
    const double first = LeadingNumber(text);
    const double all = NumberOf(text);
    const bool isNumeric = IsNumeric(text);
    finite.Check(std::isfinite(first) && std::isfinite(all), text);
    agrees.Check(!isNumeric || first == all, text);
    numeric.Check(isNumeric == (reading.isAll && reading.leading.has_value()), text);
    leading.Check(first == reading.leading.value_or(0), text);
    number.Check(isNumeric || all == 0, text);
    begun.Check(!IsJustBegun(text) || (!isNumeric && all == 0 && text.size() <= 2), text);
    const auto written = TextOf(first);
    stable.Check(TextOf(NumberOf(written)) == written, text);
  }
}

TEST(NumbersPropertyTest, AnyTextMayBeAPattern) {
  Law plain("any pattern shows digits, sign and period only");
  Law blank("what is not finite shows nothing");
  Random random(20260108);
  const auto& numbers = Numbers();
  for (std::size_t i = 0, end = Many(50'000); i < end; ++i) {
    const auto pattern = RandomText(random);
    const double value = numbers[random.Below(numbers.size())];
    const auto shown = Formatted(value, pattern);
    plain.Check(IsPlain(shown), pattern);
    blank.Check(std::isfinite(value) || shown.empty(), pattern);
  }
}

TEST(NumbersPropertyTest, TextsBeingTypedKeepTheirValue) {
  Law begins("the text of the value comes first");
  Law tail("only a period and zeros follow it");
  Law same("what follows does not change the value");
  Random random(20260109);
  const auto& numbers = Numbers();
  for (std::size_t i = 0, end = Many(100'000); i < end; ++i) {
    const auto typed = i % 2 == 0 ? RandomText(random) : RandomNumber(random);
    const double value = i % 4 == 3 ? numbers[random.Below(numbers.size())] : LeadingNumber(typed);
    const auto text = TextOf(value);
    const auto shown = TextWhileTyping(typed, value);
    begins.Check(shown.starts_with(text), typed);
    tail.Check(shown.find_first_not_of(".0", text.size()) == std::string::npos, typed);
    same.Check(NumberOf(shown) == NumberOf(text), typed);
  }
}

TEST(NumbersPropertyTest, NumbersCanBeTypedKeyByKey) {
  Law typedOut("a number typed key by key stands there as it was typed");
  Random random(20260110);
  for (std::size_t i = 0, end = Many(50'000); i < end; ++i) {
    const auto fractionDigits = random.Below(7);
    auto typed = std::to_string(random.Between(0, i % 2 == 0 ? 99 : 9999999));
    typed += fractionDigits == 0 && random.Below(2) == 0 ? "" : ".";
    for (std::size_t digit = 0; digit < fractionDigits; ++digit) {
      typed += random.OneOf("0005");
    }
    std::string field;
    for (const char key : typed) {
      field += key;
      field = TextWhileTyping(field, NumberOf(field));
    }
    typedOut.Check(field == typed, typed);
  }
}

}  // namespace
}  // namespace brindle
