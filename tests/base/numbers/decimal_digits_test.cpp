// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/decimal_digits.h"

#include <limits>
#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();

void ExpectDigits(const DecimalDigits& number, const DecimalDigits& expected) {
  EXPECT_EQ(number.negative, expected.negative);
  EXPECT_EQ(number.digits, expected.digits);
  EXPECT_EQ(number.exponent, expected.exponent);
}

struct FifteenCase {
  const char* name = "";
  double value = 0;
  DecimalDigits expected;
};

const std::vector<FifteenCase> FifteenCases{
    {"Zero", 0, {false, "", 0}},
    {"NegativeZero", -0.0, {false, "", 0}},
    {"TwoWholeDigits", 12.5, {false, "125", 2}},
    {"Negative", -12.5, {true, "125", 2}},
    {"ZeroBehindThePeriod", 0.05, {false, "5", -1}},
    {"One", 1, {false, "1", 1}},
    {"JustBelowOne", 0.999999999999999, {false, "999999999999999", 0}},
    {"RoundsUpToOne", 0.9999999999999999, {false, "1", 1}},
    {"TrailingZerosGo", 1200, {false, "12", 4}},
    {"ExactHalfBehindAnEvenDigit", 100000000000000.5, {false, "1", 15}},
    {"ExactHalfBehindAnOddDigit", 100000000000001.5, {false, "100000000000002", 15}},
    {"Third", 1.0 / 3, {false, "333333333333333", 0}},
    {"LastThatStaysInTheRange", 1.7976931348623149e308, {false, "179769313486231", 309}},
    {"FirstThatWouldLeaveTheRange", 1.7976931348623151e308, {false, "179769313486231", 309}},
    {"Largest", LargestDouble, {false, "179769313486231", 309}},
    {"NegativeLargest", -LargestDouble, {true, "179769313486231", 309}},
    {"SmallestNormal", std::numeric_limits<double>::min(), {false, "22250738585072", -307}},
    {"SmallestSubnormal",
     std::numeric_limits<double>::denorm_min(),
     {false, "494065645841247", -323}},
};

class FifteenDigitsTest : public testing::TestWithParam<FifteenCase> {};

TEST_P(FifteenDigitsTest, AreRoundedOnTheExactValue) {
  ExpectDigits(FifteenDigits(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Numbers, FifteenDigitsTest, testing::ValuesIn(FifteenCases), NameOf);

struct ShortestCase {
  const char* name = "";
  float value = 0;
  DecimalDigits expected;
};

const std::vector<ShortestCase> ShortestCases{
    {"Zero", 0.0F, {false, "", 0}},
    {"NegativeZero", -0.0F, {false, "", 0}},
    {"ThreeDecimals", 1.778F, {false, "1778", 1}},
    {"Negative", -0.05F, {true, "5", -1}},
    {"Third", 1.0F / 3, {false, "33333334", 0}},
    {"Hundred", 100.0F, {false, "1", 3}},
    {"Largest", std::numeric_limits<float>::max(), {false, "34028235", 39}},
    {"SmallestSubnormal", std::numeric_limits<float>::denorm_min(), {false, "1", -44}},
};

class ShortestDigitsTest : public testing::TestWithParam<ShortestCase> {};

TEST_P(ShortestDigitsTest, AreTheFewest) {
  ExpectDigits(ShortestDigits(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Numbers, ShortestDigitsTest, testing::ValuesIn(ShortestCases), NameOf);

struct RoundedCase {
  const char* name = "";
  DecimalDigits number;
  int decimals = 0;
  DecimalDigits away;  // what an exact half away from zero gives
  DecimalDigits even;  // what an exact half to the even digit gives
};

const std::vector<RoundedCase> RoundedCases{
    {"Zero", {}, 2, {}, {}},
    {"FewerDecimalsThanAsked", {false, "125", 2}, 3, {false, "125", 2}, {false, "125", 2}},
    {"AsManyDecimalsAsAsked", {false, "125", 2}, 1, {false, "125", 2}, {false, "125", 2}},
    {"HalfBehindAnEvenDigit", {false, "125", 2}, 0, {false, "13", 2}, {false, "12", 2}},
    {"HalfBehindAnOddDigit", {false, "135", 2}, 0, {false, "14", 2}, {false, "14", 2}},
    {"NegativeHalfBehindAnEvenDigit", {true, "125", 2}, 0, {true, "13", 2}, {true, "12", 2}},
    {"JustBelowHalf", {false, "1249", 2}, 0, {false, "12", 2}, {false, "12", 2}},
    {"JustAboveHalf", {false, "12500000000001", 2}, 0, {false, "13", 2}, {false, "13", 2}},
    {"HalfBehindNoDigit", {false, "5", 0}, 0, {false, "1", 1}, {}},
    {"NegativeHalfBehindNoDigit", {true, "5", 0}, 0, {true, "1", 1}, {}},
    {"AboveHalfBehindNoDigit", {false, "51", 0}, 0, {false, "1", 1}, {false, "1", 1}},
    {"BelowHalfBehindNoDigit", {false, "49", 0}, 0, {}, {}},
    {"NegativeBelowHalfBehindNoDigit", {true, "49", 0}, 0, {}, {}},
    {"HalfOfTheLastDecimal", {false, "5", -1}, 1, {false, "1", 0}, {}},
    {"FarBehindTheLastDecimal", {false, "9", -1}, 0, {}, {}},
    {"CarryThroughEveryNine", {false, "9995", 2}, 1, {false, "1", 3}, {false, "1", 3}},
    {"CarryLeavesNoTrailingZero", {false, "1996", 1}, 2, {false, "2", 1}, {false, "2", 1}},
    {"CutLeavesNoTrailingZero", {false, "1001", 2}, 1, {false, "1", 2}, {false, "1", 2}},
    {"HugeIsWhole", {false, "15", 301}, 0, {false, "15", 301}, {false, "15", 301}},
    {"TinyIsNothing", {false, "494065645841247", -323}, 15, {}, {}},
};

class RoundedTest : public testing::TestWithParam<RoundedCase> {};

TEST_P(RoundedTest, HalvesGoAwayFromZero) {
  ExpectDigits(Rounded(GetParam().number, GetParam().decimals, Tie::AwayFromZero), GetParam().away);
}

TEST_P(RoundedTest, HalvesGoToTheEvenDigit) {
  ExpectDigits(Rounded(GetParam().number, GetParam().decimals, Tie::ToEven), GetParam().even);
}

INSTANTIATE_TEST_SUITE_P(Digits, RoundedTest, testing::ValuesIn(RoundedCases), NameOf);

struct ValueCase {
  const char* name = "";
  DecimalDigits number;
  double expected = 0;
};

const std::vector<ValueCase> ValueCases{
    {"Zero", {}, 0},
    {"Fraction", {false, "5", -1}, 0.05},
    {"Negative", {true, "125", 2}, -12.5},
    {"Whole", {false, "12", 4}, 1200},
    {"Largest", {false, "179769313486231", 309}, 1.79769313486231e308},
    {"SmallestSubnormal",
     {false, "494065645841247", -323},
     std::numeric_limits<double>::denorm_min()},
};

class ValueOfTest : public testing::TestWithParam<ValueCase> {};

TEST_P(ValueOfTest, IsTheNearestDouble) {
  EXPECT_EQ(ValueOf(GetParam().number), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Digits, ValueOfTest, testing::ValuesIn(ValueCases), NameOf);

}  // namespace
}  // namespace brindle
