// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/rounding.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/numbers/numeric_text.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double LargestDouble = std::numeric_limits<double>::max();
constexpr double SmallestSubnormal = std::numeric_limits<double>::denorm_min();
constexpr double Lowest32 = std::numeric_limits<std::int32_t>::min();

struct IntegerCase {
  const char* name = "";
  double value = 0;
  std::int32_t expected = 0;
};

// Holds for both widths.
const std::vector<IntegerCase> SmallCases{
    {"Zero", 0, 0},
    {"NegativeZero", -0.0, 0},
    {"Whole", 650, 650},
    {"NegativeWhole", -650, -650},
    {"HalfGoesToZero", 0.5, 0},
    {"NegativeHalfGoesToZero", -0.5, 0},
    {"OneAndAHalf", 1.5, 2},
    {"NegativeOneAndAHalf", -1.5, -2},
    {"TwoAndAHalf", 2.5, 2},
    {"NegativeTwoAndAHalf", -2.5, -2},
    {"ThreeAndAHalf", 3.5, 4},
    {"NegativeThreeAndAHalf", -3.5, -4},
    {"JustBelowHalf", 0.49999999999999994, 0},
    {"JustAboveHalf", 0.50000000000000011, 1},
    {"JustBelowTwoAndAHalf", 2.4999999999999996, 2},
    {"JustAboveTwoAndAHalf", 2.5000000000000004, 3},
    {"JustBelowThreeAndAHalf", 3.4999999999999996, 3},
    {"NegativeJustBeyondTwoAndAHalf", -2.5000000000000004, -3},
    {"NegativeJustWithinThreeAndAHalf", -3.4999999999999996, -3},
    {"SmallestSubnormal", SmallestSubnormal, 0},
    {"NegativeSmallestSubnormal", -SmallestSubnormal, 0},
    {"NotANumber", NotANumber, 0},
};

const std::vector<IntegerCase> Integer16Cases{
    {"AboveTheTypeStopsAtItsEnd", 40000, 32767},
    {"BelowTheTypeStopsAtItsEnd", -40000, -32768},
    {"HalfBelowTheLast", 32766.5, 32766},
    {"JustAboveHalfBelowTheLast", 32766.500000000004, 32767},
    {"Last", 32767, 32767},
    {"BelowHalfAboveTheLast", 32767.4, 32767},
    {"HalfAboveTheLast", 32767.5, 32767},
    {"FirstAboveTheType", 32768, 32767},
    {"HalfAboveTheFirst", -32767.5, -32768},
    {"JustAboveHalfAboveTheFirst", -32767.499999999996, -32767},
    {"First", -32768, -32768},
    {"HalfBelowTheFirst", -32768.5, -32768},
    {"FirstBelowTheType", -32769, -32768},
    {"BeyondThirtyTwoBits", 4294967296.0, 32767},
    {"Largest", LargestDouble, 32767},
    {"NegativeLargest", -LargestDouble, -32768},
    {"Infinity", Infinity, 32767},
    {"NegativeInfinity", -Infinity, -32768},
};

const std::vector<IntegerCase> Integer32Cases{
    {"BeyondSixteenBits", 40000, 40000},
    {"HalfBeyondSixteenBits", 40000.5, 40000},
    {"HalfTwoBelowTheLast", 2147483645.5, 2147483646},
    {"HalfBelowTheLast", 2147483646.5, 2147483646},
    {"JustAboveHalfBelowTheLast", 2147483646.5000005, 2147483647},
    {"Last", 2147483647.0, 2147483647},
    {"HalfAboveTheLast", 2147483647.5, 2147483647},
    {"FirstAboveTheType", 2147483648.0, 2147483647},
    {"HalfAboveTheFirst", -2147483647.5, std::numeric_limits<std::int32_t>::min()},
    {"JustAboveHalfAboveTheFirst", -2147483647.4999995, -2147483647},
    {"First", Lowest32, std::numeric_limits<std::int32_t>::min()},
    {"HalfBelowTheFirst", -2147483648.5, std::numeric_limits<std::int32_t>::min()},
    {"FirstBelowTheType", -2147483649.0, std::numeric_limits<std::int32_t>::min()},
    {"BeyondSixtyFourBits", 1e20, 2147483647},
    {"Largest", LargestDouble, 2147483647},
    {"NegativeLargest", -LargestDouble, std::numeric_limits<std::int32_t>::min()},
    {"Infinity", Infinity, 2147483647},
    {"NegativeInfinity", -Infinity, std::numeric_limits<std::int32_t>::min()},
};

class ToInteger16Test : public testing::TestWithParam<IntegerCase> {};

TEST_P(ToInteger16Test, IsTheNearestWithinTheType) {
  EXPECT_EQ(ToInteger16(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Small, ToInteger16Test, testing::ValuesIn(SmallCases), NameOf);
INSTANTIATE_TEST_SUITE_P(Ends, ToInteger16Test, testing::ValuesIn(Integer16Cases), NameOf);

class ToInteger32Test : public testing::TestWithParam<IntegerCase> {};

TEST_P(ToInteger32Test, IsTheNearestWithinTheType) {
  EXPECT_EQ(ToInteger32(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Small, ToInteger32Test, testing::ValuesIn(SmallCases), NameOf);
INSTANTIATE_TEST_SUITE_P(Ends, ToInteger32Test, testing::ValuesIn(Integer32Cases), NameOf);

struct DecimalsCase {
  const char* name = "";
  double value = 0;
  int decimals = 0;
  double expected = 0;
  std::string text;
};

const std::vector<DecimalsCase> DecimalsCases{
    {"Zero", 0, 2, 0, "0"},
    {"NegativeZero", -0.0, 2, 0, "0"},
    {"HalfBehindAnEvenDigit", 0.125, 2, 0.12, "0.12"},
    {"HalfBehindAnOddDigit", 0.375, 2, 0.38, "0.38"},
    {"NegativeHalfBehindAnEvenDigit", -0.125, 2, -0.12, "-0.12"},
    {"HalfAsTypedBehindAnOddDigit", 2.675, 2, 2.68, "2.68"},
    {"HalfAsTypedBehindAnEvenDigit", 2.665, 2, 2.66, "2.66"},
    {"HalfAsTypedBehindAZero", 1.005, 2, 1, "1"},
    {"JustBelowHalf", 1.00499999999999, 2, 1, "1"},
    {"JustAboveHalf", 1.00500000000001, 2, 1.01, "1.01"},
    {"SixteenthDigitMakesItAHalf", 1.0050000000000001, 2, 1, "1"},
    {"WholeHalfToZero", 0.5, 0, 0, "0"},
    {"WholeOneAndAHalf", 1.5, 0, 2, "2"},
    {"WholeTwoAndAHalf", 2.5, 0, 2, "2"},
    {"WholeNegativeHalf", -0.5, 0, 0, "0"},
    {"WholeNegativeOneAndAHalf", -1.5, 0, -2, "-2"},
    {"Carries", 99.996, 2, 100, "100"},
    {"FewerDecimalsThanAsked", 1.5, 4, 1.5, "1.5"},
    {"DifferenceOfTypedSizes", 100.3 - (33.1 + 67.2), 9, 0, "0"},
    {"SumOfTypedSizes", 33.1 + 67.2, 9, 100.3, "100.3"},
    {"NinthDecimalStays", 0.000000001, 9, 1e-9, "0.000000001"},
    {"TenthDecimalHalfGoes", 0.0000000005, 9, 0, "0"},
    {"TenthDecimalAboveHalf", 0.0000000006, 9, 1e-9, "0.000000001"},
    {"FifteenDecimals", 0.1234567890123456, 15, 0.123456789012346, "0.123456789012346"},
    {"Huge", 1.5e300, 2, 1.5e300, "1.5E+300"},
    {"Largest", LargestDouble, 2, 1.79769313486231e308, "1.79769313486231E+308"},
    {"NegativeLargest", -LargestDouble, 0, -1.79769313486231e308, "-1.79769313486231E+308"},
    {"SmallestSubnormal", SmallestSubnormal, 15, 0, "0"},
    {"Infinity", Infinity, 2, Infinity, ""},
    {"NegativeInfinity", -Infinity, 2, -Infinity, ""},
};

class RoundedToTest : public testing::TestWithParam<DecimalsCase> {};

TEST_P(RoundedToTest, HalvesGoToTheEvenDigit) {
  const auto rounded = RoundedTo(GetParam().value, GetParam().decimals);
  EXPECT_EQ(rounded, GetParam().expected);
  EXPECT_EQ(TextOf(rounded), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Numbers, RoundedToTest, testing::ValuesIn(DecimalsCases), NameOf);

TEST(RoundedToTest, NotANumberComesBack) { EXPECT_TRUE(std::isnan(RoundedTo(NotANumber, 2))); }

struct WholePartCase {
  const char* name = "";
  double value = 0;
  double expected = 0;
  bool isWhole = false;
};

const std::vector<WholePartCase> WholePartCases{
    {"Zero", 0, 0, true},
    {"NegativeZero", -0.0, 0, true},
    {"Whole", 29, 29, true},
    {"NegativeWhole", -29, -29, true},
    {"Fraction", 0.5, 0, false},
    {"NegativeFraction", -0.5, -1, false},
    {"HalfAboveAWhole", 28.5, 28, false},
    {"NegativeHalfBelowAWhole", -28.5, -29, false},
    {"OneStepBelowAWhole", 28.999999999999996, 29, true},
    {"OneStepAboveAWhole", 29.000000000000004, 29, true},
    {"NegativeOneStepAboveAWhole", -28.999999999999996, -29, true},
    {"NegativeOneStepBelowAWhole", -29.000000000000004, -29, true},
    {"FifteenDigitsBelowAWhole", 28.9999999999999, 28, false},
    {"FifteenDigitsAboveAWhole", 29.0000000000001, 29, false},
    {"NegativeFifteenDigitsBelowAWhole", -29.0000000000001, -30, false},
    {"NegativeFifteenDigitsAboveAWhole", -28.9999999999999, -29, false},
    {"FiftySevenFramesOfThirtyASecond", 57.0 / 30 / 60 * 60 * 30, 57, true},
    {"TwentyNineFramesOfTwentyFiveASecond", 29.0 / 25 / 60 * 60 * 25, 29, true},
    {"FifteenNinesBehindThePeriod", 0.999999999999999, 0, false},
    {"SixteenNinesBehindThePeriod", 0.9999999999999999, 1, true},
    {"FifteenDigitWhole", 999999999999999, 999999999999999, true},
    {"FifteenDigitWholeAndAFraction", 999999999999999.6, 1e15, true},
    {"SixteenDigitWhole", 1234567890123456, 1234567890123460, true},
    {"Huge", 1e300, 1e300, true},
    {"Largest", LargestDouble, 1.79769313486231e308, true},
    {"NegativeLargest", -LargestDouble, -1.79769313486231e308, true},
    {"SmallestSubnormal", SmallestSubnormal, 0, false},
    {"NegativeSmallestSubnormal", -SmallestSubnormal, -1, false},
    {"Infinity", Infinity, Infinity, false},
    {"NegativeInfinity", -Infinity, -Infinity, false},
};

class WholePartTest : public testing::TestWithParam<WholePartCase> {};

TEST_P(WholePartTest, IsTheFloorAtFifteenDigits) {
  EXPECT_EQ(WholePart(GetParam().value), GetParam().expected);
}

TEST_P(WholePartTest, IsWholeAtFifteenDigits) {
  EXPECT_EQ(IsWhole(GetParam().value), GetParam().isWhole);
}

INSTANTIATE_TEST_SUITE_P(Numbers, WholePartTest, testing::ValuesIn(WholePartCases), NameOf);

TEST(WholePartTest, NotANumberComesBackAndIsNotWhole) {
  EXPECT_TRUE(std::isnan(WholePart(NotANumber)));
  EXPECT_FALSE(IsWhole(NotANumber));
}

struct DivisionCase {
  const char* name = "";
  double dividend = 0;
  double divisor = 0;
  std::optional<std::int64_t> quotient;
  std::optional<std::int64_t> remainder;
};

const std::vector<DivisionCase> DivisionCases{
    {"Exact", 6, 3, 2, 0},
    {"CutTowardZero", 7, 2, 3, 1},
    {"NegativeDividend", -7, 2, -3, -1},
    {"NegativeDivisor", 7, -2, -3, 1},
    {"BothNegative", -7, -2, 3, -1},
    {"SecondsOfAMinute", 61, 60, 1, 1},
    {"LastSecondOfAMinute", 59, 60, 0, 59},
    {"WholeMinute", 60, 60, 1, 0},
    {"ZeroDividend", 0, 5, 0, 0},
    {"BothHalvesToTheEven", 7.5, 2.5, 4, 0},
    {"DividendHalfDownToTheEven", 6.5, 4, 1, 2},
    {"DividendJustAboveHalf", 6.5000000000000009, 4, 1, 3},
    {"DivisorHalfUpToTheEven", 9, 1.5, 4, 1},
    {"NegativeDividendHalf", -6.5, 4, -1, -2},
    {"DivisorZero", 5, 0, std::nullopt, std::nullopt},
    {"DivisorNegativeZero", 5, -0.0, std::nullopt, std::nullopt},
    {"DivisorRoundsToZero", 5, 0.5, std::nullopt, std::nullopt},
    {"DivisorJustAboveHalf", 5, 0.50000000000000011, 5, 0},
    {"NegativeDivisorRoundsToZero", 5, -0.5, std::nullopt, std::nullopt},
    {"DivisorNotANumber", 5, NotANumber, std::nullopt, std::nullopt},
    {"DividendNotANumber", NotANumber, 5, 0, 0},
    {"BothZero", 0, 0, std::nullopt, std::nullopt},
    {"DividendStopsAtTheTypesEnd", 1e300, 10, 214748364, 7},
    {"DividendInfinite", Infinity, 1, 2147483647, 0},
    {"DividendNegativeInfinite", -Infinity, 1, -2147483648LL, 0},
    {"DivisorInfinite", 5, Infinity, 0, 5},
    {"LowestByMinusOne", Lowest32, -1, 2147483648LL, 0},
    {"LargestByLargest", LargestDouble, LargestDouble, 1, 0},
};

class DivisionTest : public testing::TestWithParam<DivisionCase> {};

TEST_P(DivisionTest, QuotientIsCutTowardZero) {
  EXPECT_EQ(IntegerDivided(GetParam().dividend, GetParam().divisor), GetParam().quotient);
}

TEST_P(DivisionTest, RemainderHasTheSignOfTheDividend) {
  EXPECT_EQ(Modulo(GetParam().dividend, GetParam().divisor), GetParam().remainder);
}

INSTANTIATE_TEST_SUITE_P(Numbers, DivisionTest, testing::ValuesIn(DivisionCases), NameOf);

}  // namespace
}  // namespace brindle
