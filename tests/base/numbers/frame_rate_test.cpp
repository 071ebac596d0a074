// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/frame_rate.h"

#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

TEST(FramesPerSecondTest, OfTheThreeSystemsAreExactDecimals) {
  EXPECT_EQ(FramesPerSecond(0), 25);
  EXPECT_EQ(FramesPerSecond(1), 23.976);
  EXPECT_EQ(FramesPerSecond(2), 29.97);
}

TEST(FramesPerSecondTest, OfAnyOtherSystemAreNone) {
  for (const int system : {-1, 3, 4, 7, 25, 32767, -32768, std::numeric_limits<int>::max(),
                           std::numeric_limits<int>::min()}) {
    EXPECT_EQ(FramesPerSecond(system), 0) << system;
  }
}

constexpr std::array Rates{25.0, 23.976, 29.97};

struct FramesCase {
  std::string name;
  double minutes = 0;
  double framesPerSecond = 0;
  double frames = 0;
};

class CountsWholeFrames : public ::testing::TestWithParam<FramesCase> {};

TEST_P(CountsWholeFrames, AsExpected) {
  const auto& [name, minutes, framesPerSecond, frames] = GetParam();
  EXPECT_EQ(WholeFrames(minutes, framesPerSecond), frames);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CountsWholeFrames,
    ::testing::Values(FramesCase{"HundredMinutesPal", 100, 25, 150000},
                      FramesCase{"HundredMinutesFilm", 100, 23.976, 143856},
                      FramesCase{"HundredMinutesNtsc", 100, 29.97, 179820},
                      FramesCase{"OneMinute", 1, 25, 1500},
                      FramesCase{"FractionOfAFrameIsCutOff", 90.33333, 25, 135499},
                      FramesCase{"JustBelowAFrame", 0.03999 / 60, 25, 0},
                      FramesCase{"JustAboveAFrame", 0.04001 / 60, 25, 1},
                      FramesCase{"NoTime", 0, 25, 0}, FramesCase{"NoRate", 100, 0, 0},
                      FramesCase{"NegativeTimeGoesDown", -0.05 / 60, 25, -2}),
    NameOf);

TEST(WholeFramesTest, OutOfRangeAreNotFinite) {
  EXPECT_FALSE(std::isfinite(WholeFrames(std::numeric_limits<double>::max(), 25)));
}

TEST(MinutesOfFramesTest, AreTheRunningTime) {
  EXPECT_EQ(MinutesOfFrames(150000, 25), 100);
  EXPECT_EQ(MinutesOfFrames(0, 25), 0);
  EXPECT_EQ(MinutesOfFrames(-1500, 25), -1);
  EXPECT_DOUBLE_EQ(MinutesOfFrames(143856, 23.976).value_or(0), 100);
  EXPECT_DOUBLE_EQ(MinutesOfFrames(179820, 29.97).value_or(0), 100);
  EXPECT_DOUBLE_EQ(MinutesOfFrames(1, 29.97).value_or(0), 1 / 29.97 / 60);
}

TEST(MinutesOfFramesTest, AreNothingWithoutARate) {
  EXPECT_EQ(MinutesOfFrames(0, 0), std::nullopt);
  EXPECT_EQ(MinutesOfFrames(150000, 0), std::nullopt);
  EXPECT_EQ(MinutesOfFrames(-1, 0), std::nullopt);
}

TEST(MinutesOfFramesTest, AreNothingWhereTheFramesAreNotFinite) {
  EXPECT_EQ(MinutesOfFrames(std::numeric_limits<double>::infinity(), 25), std::nullopt);
  EXPECT_EQ(MinutesOfFrames(std::nan(""), 25), std::nullopt);
}

TEST(MinutesOfFramesTest, GiveTheSameFramesAgain) {
  std::mt19937 random(20260104);  // NOLINT(cert-msc51-cpp): the same figures in every run
  std::uniform_int_distribution<int> more(0, 99999999);
  for (const double rate : Rates) {
    for (int i = 0; i < 60000; ++i) {
      const double frames = i < 20000 ? i : more(random);
      ASSERT_EQ(WholeFrames(MinutesOfFrames(frames, rate).value_or(-1), rate), frames)
          << frames << " at " << rate;
    }
    ASSERT_EQ(WholeFrames(MinutesOfFrames(99999999, rate).value_or(-1), rate), 99999999) << rate;
  }
}

}  // namespace
}  // namespace brindle
