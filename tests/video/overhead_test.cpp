// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/overhead.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Largest = std::numeric_limits<double>::max();
constexpr double Smallest = std::numeric_limits<double>::denorm_min();

struct FrameCase {
  std::string name;
  double framesPerSecond = 0;
  double expected = 0;
};

class FrameOverhead : public ::testing::TestWithParam<FrameCase> {};

TEST_P(FrameOverhead, Is24BytesAFrame) {
  EXPECT_DOUBLE_EQ(VideoFrameOverheadOf(GetParam().framesPerSecond), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Rates, FrameOverhead,
                         ::testing::Values(FrameCase{"Pal", 25, 0.5859375},
                                           FrameCase{"Film", 23.976, 0.5619375},
                                           FrameCase{"Ntsc", 29.97, 0.702421875},
                                           FrameCase{"One", 1, 0.0234375}, FrameCase{"None", 0, 0}),
                         NameOf);

struct TimeCase {
  std::string name;
  double milliSeconds = 0;
  double expected = 0;
};

class OverheadByTime : public ::testing::TestWithParam<TimeCase> {};

TEST_P(OverheadByTime, Is24BytesAChunk) {
  EXPECT_DOUBLE_EQ(InterleaveOverheadByTime(GetParam().milliSeconds), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Intervals, OverheadByTime,
                         ::testing::Values(TimeCase{"UsualTime", 400, 0.05859375},
                                           TimeCase{"ShortestAccepted", 40, 0.5859375},
                                           TimeCase{"LongestAccepted", 400000, 0.00005859375},
                                           TimeCase{"OneSecond", 1000, 0.0234375},
                                           TimeCase{"OneMilliSecond", 1, 23.4375},
                                           TimeCase{"Fraction", 0.5, 46.875},
                                           TimeCase{"TinyButInRange", 1e-306, 2.34375e307}),
                         NameOf);

INSTANTIATE_TEST_SUITE_P(
    NoOverhead, OverheadByTime,
    ::testing::Values(TimeCase{"Zero", 0, 0}, TimeCase{"MinusZero", -0.0, 0},
                      TimeCase{"Negative", -400, 0}, TimeCase{"NegativeTiny", -Smallest, 0},
                      TimeCase{"MostNegative", -Largest, 0}, TimeCase{"RateOutOfRange", 1e-307, 0},
                      TimeCase{"SmallestNumber", Smallest, 0}, TimeCase{"Endless", Infinity, 0},
                      TimeCase{"NotANumber", std::nan(""), 0}),
    NameOf);

struct FramesCase {
  std::string name;
  double frames = 0;
  double framesPerSecond = 0;
  double expected = 0;
};

class OverheadByFrames : public ::testing::TestWithParam<FramesCase> {};

TEST_P(OverheadByFrames, Is24BytesAChunk) {
  const auto& [name, frames, framesPerSecond, expected] = GetParam();
  EXPECT_DOUBLE_EQ(InterleaveOverheadByFrames(frames, framesPerSecond), expected);
}

// By hand: 24 bytes x frames per second / 1024 / frames.
INSTANTIATE_TEST_SUITE_P(
    Intervals, OverheadByFrames,
    ::testing::Values(FramesCase{"EveryFrameAtPal", 1, 25, 0.5859375},
                      FramesCase{"EveryFrameAtFilm", 1, 23.976, 0.5619375},
                      FramesCase{"EveryFrameAtNtsc", 1, 29.97, 0.702421875},
                      FramesCase{"TenFramesAtPal", 10, 25, 0.05859375},
                      FramesCase{"TenFramesAtFilm", 10, 23.976, 0.05619375},
                      FramesCase{"TenFramesAtNtsc", 10, 29.97, 0.0702421875},
                      FramesCase{"MostFramesAtPal", 10000, 25, 0.00005859375},
                      FramesCase{"MostFramesAtFilm", 10000, 23.976, 0.00005619375},
                      FramesCase{"MostFramesAtNtsc", 10000, 29.97, 0.0000702421875},
                      FramesCase{"HalfAFrame", 0.5, 25, 1.171875},
                      FramesCase{"TinyButInRange", 1e-306, 25, 5.859375e305},
                      FramesCase{"Huge", 1e300, 25, 5.859375e-301}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    NoOverhead, OverheadByFrames,
    ::testing::Values(
        FramesCase{"ZeroAtPal", 0, 25, 0}, FramesCase{"ZeroAtFilm", 0, 23.976, 0},
        FramesCase{"ZeroAtNtsc", 0, 29.97, 0}, FramesCase{"MinusZero", -0.0, 25, 0},
        FramesCase{"NegativeAtPal", -1, 25, 0}, FramesCase{"NegativeAtFilm", -3.5, 23.976, 0},
        FramesCase{"NegativeAtNtsc", -1e300, 29.97, 0}, FramesCase{"RateOutOfRange", 1e-309, 25, 0},
        FramesCase{"SmallestNumber", Smallest, 29.97, 0},
        FramesCase{"TooManyForARate", Largest, 25, 0}, FramesCase{"NoFrameRate", 1, 0, 0},
        FramesCase{"NoFrameRateAndNoFrames", 0, 0, 0},
        FramesCase{"NoFrameRateAndNegativeFrames", -1, 0, 0},
        FramesCase{"NegativeFrameRate", 1, -25, 0}, FramesCase{"NotANumber", std::nan(""), 25, 0}),
    NameOf);

struct AcceptedCase {
  std::string name;
  double typed = 0;
  double expected = 0;
};

class AcceptedTime : public ::testing::TestWithParam<AcceptedCase> {};

TEST_P(AcceptedTime, IsWholeMilliSeconds) {
  EXPECT_EQ(AcceptedInterleaveTime(GetParam().typed), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Typed, AcceptedTime,
    ::testing::Values(
        AcceptedCase{"Zero", 0, 40}, AcceptedCase{"MinusZero", -0.0, 40},
        AcceptedCase{"FarBelow", 12.7, 40}, AcceptedCase{"JustBelow", 39.999, 40},
        AcceptedCase{"Shortest", 40, 40}, AcceptedCase{"FractionAboveTheShortest", 40.9, 40},
        AcceptedCase{"FortyOne", 41, 41}, AcceptedCase{"UsualTime", 400, 400},
        AcceptedCase{"FractionIsCutOff", 1234.9, 1234},
        AcceptedCase{"FractionBelowTheLongest", 399999.9, 399999},
        AcceptedCase{"Longest", 400000, 400000},
        AcceptedCase{"FractionAboveTheLongest", 400000.5, 400000},
        AcceptedCase{"Above", 500000, 400000}, AcceptedCase{"NegativeIsTheShortest", -500, 40},
        AcceptedCase{"NegativeFraction", -40.5, 40}, AcceptedCase{"HugeNegative", -1e300, 40},
        AcceptedCase{"Huge", 1e300, 400000}, AcceptedCase{"SmallestNumber", Smallest, 40},
        AcceptedCase{"LastBitBelowAWholeNumber", std::nextafter(1234.0, 0.0), 1234}),
    NameOf);

class AcceptedFrames : public ::testing::TestWithParam<AcceptedCase> {};

TEST_P(AcceptedFrames, AreWholeFrames) {
  EXPECT_EQ(AcceptedInterleaveFrames(GetParam().typed), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Typed, AcceptedFrames,
    ::testing::Values(
        AcceptedCase{"Zero", 0, 1}, AcceptedCase{"MinusZero", -0.0, 1},
        AcceptedCase{"Half", 0.5, 1}, AcceptedCase{"JustBelowOne", 0.9, 1},
        AcceptedCase{"One", 1, 1}, AcceptedCase{"JustBelowTwo", 1.999, 1},
        AcceptedCase{"Two", 2, 2}, AcceptedCase{"JustBelowTheMost", 9999.9, 9999},
        AcceptedCase{"Most", 10000, 10000}, AcceptedCase{"FractionAboveTheMost", 10000.5, 10000},
        AcceptedCase{"Above", 10001, 10000}, AcceptedCase{"Huge", 1e300, 10000},
        AcceptedCase{"MinusHalf", -0.5, 1}, AcceptedCase{"MinusOne", -1, 1},
        AcceptedCase{"NegativeFractionRoundsDown", -3.5, 4},
        AcceptedCase{"NegativeJustBelowAWholeNumber", -3.001, 4},
        AcceptedCase{"NegativeLosesItsSign", -20, 20},
        AcceptedCase{"NegativeFractionBelowTheMost", -9999.5, 10000},
        AcceptedCase{"NegativeMost", -10000, 10000},
        AcceptedCase{"NegativeAboveTheMost", -10000.5, 10000},
        AcceptedCase{"HugeNegative", -1e300, 10000}, AcceptedCase{"SmallestNumber", Smallest, 1},
        AcceptedCase{"LastBitBelowAWholeNumber", std::nextafter(7.0, 0.0), 7},
        AcceptedCase{"LastBitBelowANegativeWholeNumber", std::nextafter(-3.0, -4.0), 3}),
    NameOf);

// Numbers of every size, by their bits.
class AnyNumber : public ::testing::Test {
 protected:
  double Next() {
    for (;;) {
      const auto number = std::bit_cast<double>(random_());
      if (std::isfinite(number)) {
        return number;
      }
    }
  }

 private:
  std::mt19937_64 random_{20260301};
};

TEST_F(AnyNumber, YieldsARateThatIsFiniteAndNotNegative) {
  for (int i = 0; i < 20000; ++i) {
    const double interval = Next();
    for (const double rate :
         {InterleaveOverheadByTime(interval), InterleaveOverheadByFrames(interval, 25),
          InterleaveOverheadByFrames(interval, 23.976), InterleaveOverheadByFrames(interval, 29.97),
          InterleaveOverheadByFrames(interval, 0)}) {
      EXPECT_TRUE(std::isfinite(rate) && rate >= 0) << interval << " gives " << rate;
    }
  }
}

TEST_F(AnyNumber, IsAcceptedAsAWholeNumberWithinTheLimits) {
  for (int i = 0; i < 20000; ++i) {
    const double typed = Next();
    const double time = AcceptedInterleaveTime(typed);
    EXPECT_TRUE(time >= 40 && time <= 400000 && time == std::floor(time)) << typed;
    EXPECT_EQ(AcceptedInterleaveTime(time), time);
    const double frames = AcceptedInterleaveFrames(typed);
    EXPECT_TRUE(frames >= 1 && frames <= 10000 && frames == std::floor(frames)) << typed;
    EXPECT_EQ(AcceptedInterleaveFrames(frames), frames);
  }
}

}  // namespace
}  // namespace brindle
