// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_text.h"

#include <limits>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

struct DurationCase {
  std::string name;
  double seconds = 0;
  std::string text;
  double rest = 0;
};

class FormatsDuration : public ::testing::TestWithParam<DurationCase> {};

TEST_P(FormatsDuration, AsHoursMinutesSeconds) {
  double seconds = GetParam().seconds;
  EXPECT_EQ(FormatDuration(seconds), GetParam().text);
  EXPECT_NEAR(seconds, GetParam().rest, 1e-9) << "what is left in the argument";
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FormatsDuration,
    ::testing::Values(
        DurationCase{"None", 0, "0:00:00", 0},
        DurationCase{"ThousandBytes", 1000.0 / 176400, "0:00:00.006", 1000.0 / 176400},
        DurationCase{"BelowAMillisecond", 0.0004, "0:00:00", 0.0004},
        DurationCase{"HalfAMillisecondGoesUp", 0.0005, "0:00:00.001", 0.0005},
        DurationCase{"OneDecimal", 1.5, "0:00:01.5", 1.5},
        DurationCase{"TwoDecimals", 12.25, "0:00:12.25", 12.25},
        DurationCase{"FourDecimalsAreRounded", 12.3456, "0:00:12.346", 12.3456},
        DurationCase{"BelowTheTie", 59.4, "0:00:59.4", 59.4},
        DurationCase{"TieToTheEvenMinute", 59.5, "0:01:-00.5", -0.5},
        DurationCase{"RoundedUpToAMinute", 59.7, "0:01:-00.3", -0.3},
        DurationCase{"RestIsRoundedToZero", 59.9999, "0:01:00", -0.0001},
        DurationCase{"Minute", 60, "0:01:00", 0}, DurationCase{"JustMore", 60.5, "0:01:00.5", 0.5},
        DurationCase{"BelowTwoMinutesTie", 119.5, "0:02:-00.5", -0.5},
        DurationCase{"TenMinutes", 600, "0:10:00", 0},
        DurationCase{"LastSecondOfTheHour", 3599, "0:59:59", 59},
        DurationCase{"BelowTheTieOfTheHour", 3599.4, "0:59:59.4", 59.4},
        DurationCase{"TieToTheEvenHour", 3599.5, "1:00:-00.5", -0.5},
        DurationCase{"RoundedUpToAnHour", 3599.6, "1:00:-00.4", -0.4},
        DurationCase{"Hour", 3600, "1:00:00", 0},
        DurationCase{"AllOfThem", 3661.5, "1:01:01.5", 1.5},
        DurationCase{"LastMinuteRoundedUp", 7199.75, "2:00:-00.25", -0.25},
        DurationCase{"MinuteRoundedUpWithinAnHour", 3719.75, "1:02:-00.25", -0.25},
        DurationCase{"TenHours", 36000, "10:00:00", 0},
        DurationCase{"HundredHours", 360000 + 59 * 60 + 59.125, "100:59:59.125", 59.125},
        DurationCase{"NegativeSeconds", -1.5, "0:00:-01.5", -1.5},
        DurationCase{"NegativeBelowAMinute", -59.7, "0:-01:00.3", 0.3},
        DurationCase{"NegativeMinute", -60, "0:-01:00", 0},
        DurationCase{"NegativeHour", -3600, "-1:00:00", 0},
        DurationCase{"LargestWhole", 2147483647, "596523:14:07", 7},
        DurationCase{"HoursStopWhereWholeNumbersEnd", 4294967295, "596523:35791394:855", 855},
        DurationCase{"LongestThatAHeaderCanTell", 34359738360, "596523:35791394:30064771920",
                     30064771920}),
    NameOf);

struct RemainingCase {
  std::string name;
  double elapsed = 0;
  int wholePercent = 0;
  std::optional<std::string> text;
};

class TellsRemainingTime : public ::testing::TestWithParam<RemainingCase> {};

TEST_P(TellsRemainingTime, FromTheElapsedOne) {
  EXPECT_EQ(RemainingTime(GetParam().elapsed, GetParam().wholePercent), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TellsRemainingTime,
    ::testing::Values(
        RemainingCase{"AtNothing", 10, 0, std::nullopt},
        RemainingCase{"BelowNothing", 10, -1, std::nullopt},
        RemainingCase{"AtTheFirstPercent", 1, 1, "1:39"},
        RemainingCase{"TwoDigitsOfSeconds", 187, 50, "3:07"},
        RemainingCase{"NoSeconds", 120, 50, "2:00"}, RemainingCase{"NothingLeft", 100, 100, "0:00"},
        RemainingCase{"NoTimePassed", 0, 50, "0:00"}, RemainingCase{"LastPercent", 99, 99, "0:01"},
        RemainingCase{"QuarterDone", 10, 25, "0:30"},
        RemainingCase{"BelowAMinute", 59.4, 50, "0:59"},
        RemainingCase{"TieUpToAMinute", 59.5, 50, "1:00"},
        RemainingCase{"RoundedUpToAMinute", 59.7, 50, "1:00"},
        RemainingCase{"TieOfTheSecondsGoesToTheEven", 60.5, 50, "1:00"},
        RemainingCase{"NextTieOfTheSeconds", 61.5, 50, "1:02"},
        RemainingCase{"TieBelowTheMinute", 58.5, 50, "0:58"},
        RemainingCase{"TenSeconds", 9.5, 50, "0:10"}, RemainingCase{"NineSeconds", 9.4, 50, "0:09"},
        RemainingCase{"HoursStayMinutes", 6000, 50, "100:00"},
        RemainingCase{"LongestMinutes", 6000, 1, "9900:00"},
        RemainingCase{"LastTwoCharactersOfTheSeconds", 1e12, 1, "35791394:60"}),
    NameOf);

struct StatisticsCase {
  std::string name;
  PassStatistics statistics;
  std::string text;
};

class TellsStatistics : public ::testing::TestWithParam<StatisticsCase> {};

TEST_P(TellsStatistics, OfTheWholePass) {
  EXPECT_EQ(StatisticsText(GetParam().statistics), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TellsStatistics,
    ::testing::Values(StatisticsCase{"MultiBuffer",
                                     {25.126, 12.5, 200, true},
                                     "WAV file was successfully normalized. Stats:\r\n"
                                     "\r\n"
                                     "Applied amplification: 200%\r\n"
                                     "Average scanning throughput: 25.13MB/s\r\n"
                                     "Average normalization throughput: 12.5MB/s\r\n"
                                     "Buffer: 4096KB (multi buffer)"},
                      StatisticsCase{"SingleBuffer",
                                     {0, 0.004, -0.5, false},
                                     "WAV file was successfully normalized. Stats:\r\n"
                                     "\r\n"
                                     "Applied amplification: -0.5%\r\n"
                                     "Average scanning throughput: 0MB/s\r\n"
                                     "Average normalization throughput: 0MB/s\r\n"
                                     "Buffer: 64KB (single buffer)"},
                      StatisticsCase{"TiesGoToTheEven",
                                     {1.005, 1.015, 2.345, true},
                                     "WAV file was successfully normalized. Stats:\r\n"
                                     "\r\n"
                                     "Applied amplification: 2.34%\r\n"
                                     "Average scanning throughput: 1MB/s\r\n"
                                     "Average normalization throughput: 1.02MB/s\r\n"
                                     "Buffer: 4096KB (multi buffer)"},
                      StatisticsCase{"SinglePrecisionScan",
                                     {double{98.7654321F}, 1234567.891, 1e302, false},
                                     "WAV file was successfully normalized. Stats:\r\n"
                                     "\r\n"
                                     "Applied amplification: 1E+302%\r\n"
                                     "Average scanning throughput: 98.77MB/s\r\n"
                                     "Average normalization throughput: 1234567.89MB/s\r\n"
                                     "Buffer: 64KB (single buffer)"},
                      StatisticsCase{"NotFinite",
                                     {1, 2, Infinity, false},
                                     "WAV file was successfully normalized. Stats:\r\n"
                                     "\r\n"
                                     "Applied amplification: %\r\n"
                                     "Average scanning throughput: 1MB/s\r\n"
                                     "Average normalization throughput: 2MB/s\r\n"
                                     "Buffer: 64KB (single buffer)"}),
    NameOf);

TEST(ChannelsText, CallsOneAndTwoByName) {
  EXPECT_EQ(ChannelsText(1), "Mono");
  EXPECT_EQ(ChannelsText(2), "Stereo");
  EXPECT_EQ(ChannelsText(3), "3Ch");
  EXPECT_EQ(ChannelsText(6), "6Ch");
  EXPECT_EQ(ChannelsText(32767), "32767Ch");
}

TEST(ChannelsText, SaysNothingOfNoChannels) {
  EXPECT_EQ(ChannelsText(0), std::nullopt);
  EXPECT_EQ(ChannelsText(-1), std::nullopt);
}

}  // namespace
}  // namespace brindle
