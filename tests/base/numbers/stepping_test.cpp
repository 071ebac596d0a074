// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/stepping.h"

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

struct StepCase {
  const char* name = "";
  double value = 0;
  std::optional<double> limit;
  double expected = 0;
};

const std::vector<StepCase> UpCases{
    {"AtTheBound", 650, 650, 650},
    {"AboveTheBound", 700, 650, 650},
    {"StepWouldCrossTheBound", 649.5, 650, 649.5},
    {"FractionBelowAHundred", 99.5, 100, 99.5},
    {"WithoutABound", 5, std::nullopt, 6},
    {"StepReachesTheBound", 649, 650, 650},
    {"StepStaysBelowTheBound", 648.9, 650, 649.9},
    {"JustBelowTheBound", 649.9999999999999, 650, 649.9999999999999},
    {"JustAboveTheBound", 650.0000000000001, 650, 650},
    {"StepJustCrossesTheBound", 649.0000000000001, 650, 649.0000000000001},
    {"BoundZero", -1, 0, 0},
    {"BoundZeroCrossed", -0.5, 0, -0.5},
    {"NegativeBound", -3, -5, -5},
    {"NegativeValue", -3, 5, -2},
    {"HoldingPlusOnAHundred", 100, std::nullopt, 101},
    {"NegativeWithoutABound", -0.5, std::nullopt, 0.5},
    {"LargestWithoutABound", LargestDouble, std::nullopt, LargestDouble},
    {"SmallestSubnormalUnderOne", SmallestSubnormal, 1, 1},
    {"BoundInfinite", 5, Infinity, 6},
    {"ValueInfinite", Infinity, 650, 650},
};

class StepUpTest : public testing::TestWithParam<StepCase> {};

TEST_P(StepUpTest, StopsAtTheBound) {
  EXPECT_EQ(StepUp(GetParam().value, GetParam().limit), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Values, StepUpTest, testing::ValuesIn(UpCases), NameOf);

const std::vector<StepCase> DownCases{
    {"AtTheBound", 1, 1, 1},
    {"BelowTheBound", 0, 1, 1},
    {"StepWouldCrossTheBound", 1.5, 1, 1.5},
    {"WithoutABound", 0, std::nullopt, -1},
    {"StepReachesTheBound", 2, 1, 1},
    {"StepStaysAboveTheBound", 2.5, 1, 1.5},
    {"JustAboveTheBound", 1.0000000000000002, 1, 1.0000000000000002},
    {"JustBelowTheBound", 0.9999999999999999, 1, 1},
    {"StepJustCrossesTheBound", 1.9999999999999998, 1, 1.9999999999999998},
    {"BoundZero", 1, 0, 0},
    {"BoundZeroCrossed", 0.5, 0, 0.5},
    {"BoundOfAnotherField", 550, 550, 550},
    {"NegativeValue", -3, -5, -4},
    {"NegativeBelowTheBound", -7, -5, -5},
    {"NegativeLargestWithoutABound", -LargestDouble, std::nullopt, -LargestDouble},
    {"BoundNegativeInfinite", 5, -Infinity, 4},
    {"ValueNegativeInfinite", -Infinity, 1, 1},
};

class StepDownTest : public testing::TestWithParam<StepCase> {};

TEST_P(StepDownTest, StopsAtTheBound) {
  EXPECT_EQ(StepDown(GetParam().value, GetParam().limit), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Values, StepDownTest, testing::ValuesIn(DownCases), NameOf);

struct ShrinkCase {
  const char* name = "";
  double value = 0;
  double limit = 0;
  std::string expected;
};

const std::vector<ShrinkCase> ShrinkCases{
    {"HoursOfFourDigits", 5000, 999, "500"},
    {"HoursLoseADigitToTheFraction", 1234, 999, "123.4"},
    {"MinutesOfThreeDigits", 250, 99, "25"},
    {"SecondsOfThreeDigits", 123.5, 99.999, "12.35"},
    {"FramesOfNineDigits", 123456789, 99999999, "12345678.9"},
    {"SeveralDigits", 1234567, 999, "123.4567"},
    {"JustBelowTheLimit", 998.999, 999, "998.999"},
    {"AtTheLimit", 999, 999, "999"},
    {"JustAboveTheLimit", 999.001, 999, "99.9001"},
    {"SixteenthDigitAboveTheLimit", 999.0000000000001, 999, "999"},
    {"FractionBelowTheLimit", 0.5, 999, "0.5"},
    {"Zero", 0, 999, "0"},
    {"Negative", -5000, 999, "-5000"},
    {"LimitZero", 5, 0, "0"},
    {"ZeroUnderLimitZero", 0, 0, "0"},
    {"ZeroUnderANegativeLimit", 0, -5, "0"},
    {"PositiveUnderANegativeLimit", 5, -5, "0"},
    {"NegativeUnderALowerLimit", -2, -5, "0"},
    {"NegativeBelowANegativeLimit", -7, -5, "-7"},
    {"Huge", 1e21, 1e20, "100000000000000000000"},
    {"SmallestSubnormal", SmallestSubnormal, 0, "0"},
    {"LimitInfinite", 5000, Infinity, "5000"},
    {"ValueInfinite", Infinity, 999, "0"},
    {"ValueNegativeInfinite", -Infinity, 999, "0"},
    {"ValueNotANumber", NotANumber, 999, "0"},
};

class ShrinkByTensTest : public testing::TestWithParam<ShrinkCase> {};

TEST_P(ShrinkByTensTest, DropsDigitsUntilItFits) {
  EXPECT_EQ(TextOf(ShrinkByTens(GetParam().value, GetParam().limit)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Values, ShrinkByTensTest, testing::ValuesIn(ShrinkCases), NameOf);

TEST(ShrinkByTensTest, LargestFits) {
  const auto shrunk = ShrinkByTens(LargestDouble, 999);
  EXPECT_LE(shrunk, 999);
  EXPECT_GT(shrunk, 99.9);
}

TEST(ShrinkByTensTest, LimitBelowEverythingStops) {
  EXPECT_EQ(ShrinkByTens(LargestDouble, -Infinity), 0);
  EXPECT_EQ(ShrinkByTens(-LargestDouble, -Infinity), 0);
}

TEST(ShrinkByTensTest, LimitThatIsNotANumberStops) {
  EXPECT_EQ(ShrinkByTens(5000, NotANumber), 5000);
}

}  // namespace
}  // namespace brindle
