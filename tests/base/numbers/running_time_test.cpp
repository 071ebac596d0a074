// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/running_time.h"

#include <limits>
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

struct ApartCase {
  const char* name = "";
  double minutes = 0;
  double hours = 0;
  double wholeMinutes = 0;
  std::string seconds;  // as the field shows them
};

const std::vector<ApartCase> ApartCases{
    {"TwoHoursFiveAndAHalfMinutes", 125.5, 2, 5, "30.00"},
    {"OneHourAndAHalf", 90, 1, 30, "00.00"},
    {"OneMinuteAndAHalf", 1.5, 0, 1, "30.00"},
    {"Zero", 0, 0, 0, "00.00"},
    {"OneSecond", 1.0 / 60, 0, 0, "01.00"},
    {"TwentyNineSeconds", 29.0 / 60, 0, 0, "29.00"},
    {"LastSecondOfAMinute", 59.0 / 60, 0, 0, "59.00"},
    {"OneStepBelowTwoMinutes", 1.9999999999999998, 0, 2, "00.00"},
    {"OneMinute", 1, 0, 1, "00.00"},
    {"OneSecondBelowAnHour", 60 - 1.0 / 60, 0, 59, "59.00"},
    {"OneHour", 60, 1, 0, "00.00"},
    {"OneStepAboveAnHour", 60.00000000000001, 1, 0, "00.00"},
    {"OneSecondAboveAnHour", 60 + 1.0 / 60, 1, 0, "01.00"},
    {"HundredthsOfASecond", 1.2345, 0, 1, "14.07"},
    {"AlmostAMinuteIsOne", 1.99999, 0, 2, "00.00"},
    {"AlmostAnHourIsOne", 59.99999, 1, 0, "00.00"},
    {"HalfAHundredthRoundsUp", 59.995 / 60, 0, 1, "00.00"},
    {"LessThanHalfAHundredthRoundsDown", 59.9949 / 60, 0, 0, "59.99"},
    {"HoursAreNotLimited", 100000, 1666, 40, "00.00"},
    {"LargestEntry", 999.0 * 60 + 99 + 99.999 / 60, 1000, 40, "40.00"},
    {"BelowZeroCountsUpFromTheHour", -1.5, -1, 58, "30.00"},
    {"WholeHourBelowZero", -60, -1, 0, "00.00"},
};

class TakeApartTest : public testing::TestWithParam<ApartCase> {};

TEST_P(TakeApartTest, GivesWholeHoursWholeMinutesAndTheRest) {
  const auto time = TakeApart(SecondsToHundredths(GetParam().minutes));
  EXPECT_EQ(time.hours, GetParam().hours);
  EXPECT_EQ(time.minutes, GetParam().wholeMinutes);
  EXPECT_EQ(Formatted(time.seconds, "00.00"), GetParam().seconds);
}

INSTANTIATE_TEST_SUITE_P(RunningTimes, TakeApartTest, testing::ValuesIn(ApartCases), NameOf);

TEST(TakeApartTest, EveryWholeSecondOfADayComesBack) {
  int failures = 0;
  for (int second = 0; second < 24 * 3600; ++second) {
    const int hours = second / 3600;
    const int minutes = second / 60 % 60;
    const int seconds = second % 60;
    const RunningTime given{static_cast<double>(hours), static_cast<double>(minutes),
                            static_cast<double>(seconds)};
    const auto time = TakeApart(SecondsToHundredths(InMinutes(given)));
    const bool same = time.hours == given.hours && time.minutes == given.minutes &&
                      Formatted(time.seconds, "00.00") == Formatted(given.seconds, "00.00");
    failures += same ? 0 : 1;
  }
  EXPECT_EQ(failures, 0);
}

TEST(TakeApartTest, NotFiniteShowsNothingNotFinite) {
  for (const double minutes : {Infinity, -Infinity, NotANumber, LargestDouble, -LargestDouble}) {
    const auto time = TakeApart(SecondsToHundredths(minutes));
    for (const auto& text :
         {TextOf(time.hours), TextOf(time.minutes), Formatted(time.seconds, "00.00")}) {
      EXPECT_TRUE(text.empty() || IsNumeric(text)) << text;
    }
  }
}

TEST(TakeApartTest, WithoutRoundingTheRestKeepsItsDigits) {
  const auto time = TakeApart(119.999);
  EXPECT_EQ(time.minutes, 1);
  EXPECT_EQ(TextOf(time.seconds), "59.999");
}

struct MinutesCase {
  const char* name = "";
  RunningTime time;
  double expected = 0;
  std::string text;
};

const std::vector<MinutesCase> MinutesCases{
    {"OneHourThirty", {1, 30, 0}, 90, "90"},
    {"OneMinuteThirty", {0, 1, 30}, 1.5, "1.5"},
    {"AllZero", {0, 0, 0}, 0, ""},
    {"TwoHoursFiveThirty", {2, 5, 30}, 125.5, "125.5"},
    {"OneMinute", {0, 1, 0}, 1, "1"},
    {"SecondsBeyondAMinute", {0, 0, 90}, 1.5, "1.5"},
    {"MinutesBeyondAnHour", {0, 99, 0}, 99, "99"},
    {"LargestHours", {999, 0, 0}, 59940, "59940"},
    {"SecondsWithDecimals", {0, 0, 12.35}, 12.35 / 60, "0.206"},
    {"OneSecond", {0, 0, 1}, 1.0 / 60, "0.017"},
    {"Negative", {-1, 0, 0}, -60, "-60"},
};

class InMinutesTest : public testing::TestWithParam<MinutesCase> {};

TEST_P(InMinutesTest, AddsUpThePartsAndShowsThem) {
  EXPECT_EQ(InMinutes(GetParam().time), GetParam().expected);
  EXPECT_EQ(MinutesText(InMinutes(GetParam().time)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(RunningTimes, InMinutesTest, testing::ValuesIn(MinutesCases), NameOf);

struct MinutesTextCase {
  const char* name = "";
  double minutes = 0;
  std::string expected;
};

const std::vector<MinutesTextCase> MinutesTextCases{
    {"ZeroIsEmpty", 0, ""},
    {"NegativeZeroIsEmpty", -0.0, ""},
    {"Whole", 90, "90"},
    {"HalfMinute", 1.5, "1.5"},
    {"ThreeDecimals", 1.125, "1.125"},
    {"FourthDecimalHalf", 1.0005, "1.001"},
    {"FourthDecimalBelowHalf", 1.0004, "1"},
    {"RoundsToNoMinute", 0.0004, "0"},
    {"RoundsToTheFirstThousandth", 0.0005, "0.001"},
    {"OneStepAboveAWhole", 30.000000000000004, "30"},
    {"LeadingZero", 0.25, "0.25"},
    {"Negative", -1.5, "-1.5"},
    {"NegativeRoundsToNoMinute", -0.0004, "0"},
    {"Huge", 1e21, "1000000000000000000000"},
    {"Infinity", Infinity, ""},
    {"NegativeInfinity", -Infinity, ""},
    {"NotANumber", NotANumber, ""},
};

class MinutesTextTest : public testing::TestWithParam<MinutesTextCase> {};

TEST_P(MinutesTextTest, IsWholeOrHasUpToThreeDecimals) {
  EXPECT_EQ(MinutesText(GetParam().minutes), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(RunningTimes, MinutesTextTest, testing::ValuesIn(MinutesTextCases),
                         NameOf);

}  // namespace
}  // namespace brindle
