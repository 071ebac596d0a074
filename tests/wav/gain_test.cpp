// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/gain.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"
#include "wav/samples.h"

namespace brindle {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();
constexpr double Smallest = std::numeric_limits<double>::denorm_min();
constexpr int Bottom = -32768;
constexpr int Top = 32767;

std::int16_t Level(int level) { return static_cast<std::int16_t>(level); }

struct GainCase {
  std::string name;
  int lowest = 0;
  int highest = 0;
  double targetPercent = 0;
  std::optional<double> gain;
};

class FindsGain : public ::testing::TestWithParam<GainCase> {};

TEST_P(FindsGain, FromThePeaks) {
  const auto& [name, lowest, highest, targetPercent, expected] = GetParam();
  const auto gain = GainFor(Level(lowest), Level(highest), targetPercent);
  ASSERT_EQ(gain.has_value(), expected.has_value());
  if (gain) {
    EXPECT_DOUBLE_EQ(*gain, *expected);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FindsGain,
    ::testing::Values(GainCase{"BottomIsNearer", -16384, 8191, 100, 2},
                      GainCase{"TopIsNearer", -8192, 16384, 100, 32767.0 / 16384},
                      GainCase{"TopWouldBeJustMoreThanTheBottom", -16384, 16383, 100, 2},
                      GainCase{"TopIsJustLessThanTheBottom", -16384, 16384, 100, 32767.0 / 16384},
                      GainCase{"FullRange", Bottom, Top, 100, 1},
                      GainCase{"OnlyTheBottomFull", Bottom, 1, 100, 1},
                      GainCase{"OnlyTheTopFull", -1, Top, 100, 1},
                      GainCase{"AlmostFullTop", Bottom, 32000, 100, 1},
                      GainCase{"QuietestOfAll", -1, 1, 100, 32767},
                      GainCase{"Silent", 0, 0, 100, std::nullopt},
                      GainCase{"SilentAndNoTarget", 0, 0, 0, std::nullopt},
                      GainCase{"SilentAndHugeTarget", 0, 0, 1e300, std::nullopt},
                      GainCase{"NothingBelowZero", 0, 8191, 100, 32767.0 / 8191},
                      GainCase{"NothingBelowZeroAndQuiet", 0, 1, 100, 32767},
                      GainCase{"NothingBelowZeroAndFull", 0, Top, 100, 1},
                      GainCase{"NothingAboveZero", -16384, 0, 100, 2},
                      GainCase{"NothingAboveZeroAndQuiet", -1, 0, 100, 32768},
                      GainCase{"NothingAboveZeroAndFull", Bottom, 0, 100, 1},
                      GainCase{"HalfTarget", -16384, 8191, 50, 1},
                      GainCase{"TargetOf95", Bottom, Top, 95, 0.95},
                      GainCase{"TargetOfMoreThanAll", Bottom, Top, 250, 2.5},
                      GainCase{"FractionOfAPercent", Bottom, Top, 0.5, 0.005},
                      GainCase{"NoTarget", -16384, 8191, 0, 0},
                      GainCase{"NegativeTarget", -16384, 8191, -100, -2},
                      GainCase{"NegativeTargetOneSide", 0, Top, -50, -0.5},
                      GainCase{"HugeTarget", Bottom, Top, 1e300, 1e298},
                      GainCase{"HugeNegativeTarget", Bottom, Top, -1e300, -1e298},
                      GainCase{"HugeTargetQuietFile", -1, 1, 1e300, 3.2767e302},
                      GainCase{"TinyTarget", Bottom, Top, 1e-300, 1e-302}),
    NameOf);

struct RequiredCase {
  std::string name;
  double amplification = 0;
  double tolerance = 0;
  bool isRequired = false;
};

class DecidesOnAPass : public ::testing::TestWithParam<RequiredCase> {};

TEST_P(DecidesOnAPass, ByTheTolerance) {
  const auto& [name, amplification, tolerance, isRequired] = GetParam();
  EXPECT_EQ(IsNormalizationRequired(amplification, tolerance), isRequired);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, DecidesOnAPass,
    ::testing::Values(RequiredCase{"ExactlyWithoutTolerance", 100, 0, true},
                      RequiredCase{"MoreWithoutTolerance", 100.001, 0, true},
                      RequiredCase{"ExactlyWithinOne", 100, 1, false},
                      RequiredCase{"AtTheUpperEnd", 101, 1, true},
                      RequiredCase{"JustBelowTheUpperEnd", std::nextafter(101, 0), 1, false},
                      RequiredCase{"JustAboveTheUpperEnd", std::nextafter(101, 200), 1, true},
                      RequiredCase{"AtTheLowerEnd", 99, 1, true},
                      RequiredCase{"JustAboveTheLowerEnd", std::nextafter(99, 200), 1, false},
                      RequiredCase{"JustBelowTheLowerEnd", std::nextafter(99, 0), 1, true},
                      RequiredCase{"WidestTolerance", 70.5, 30, false},
                      RequiredCase{"BeyondTheWidestTolerance", 130, 30, true},
                      RequiredCase{"ToleranceOfSinglePrecision", 100.1, double{0.1F}, false},
                      RequiredCase{"NegativeToleranceKeepsNothing", 100, -1, true},
                      RequiredCase{"ToleranceOfMoreThanAll", 0, 101, false},
                      RequiredCase{"NoAmplification", 0, 30, true},
                      RequiredCase{"NegativeAmplification", -100, 30, true},
                      RequiredCase{"HugeAmplification", 1e302, 30, true},
                      RequiredCase{"HugeNegativeAmplification", -1e302, 30, true}),
    NameOf);

TEST(Peaks, ThatFillTheRangeAreMappedUnchanged) {
  const auto gain = GainFor(Level(Bottom), Level(Top), 100);
  ASSERT_TRUE(gain);
  EXPECT_TRUE(IsNormalizationRequired(100 * *gain, 0));
  const GainTable table(*gain);
  for (int level = Bottom; level <= Top; ++level) {
    ASSERT_EQ(table(Level(level)), level);
  }
}

struct LevelCase {
  std::string name;
  double gain = 0;
  int level = 0;
  int mapped = 0;
};

class MapsLevel : public ::testing::TestWithParam<LevelCase> {};

TEST_P(MapsLevel, ByTheGain) {
  const auto& [name, gain, level, mapped] = GetParam();
  EXPECT_EQ(GainTable(gain)(Level(level)), mapped);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, MapsLevel,
    ::testing::Values(
        LevelCase{"DoubledTop", 2, 8191, 16382}, LevelCase{"DoubledBottom", 2, -16384, -32768},
        LevelCase{"DoubledBeyondTheBottom", 2, -16385, -32768},
        LevelCase{"DoubledToTheLastEven", 2, 16383, 32766},
        LevelCase{"DoubledBeyondTheTop", 2, 16384, 32767},
        LevelCase{"ClippedAtTheTop", 1.5, 30000, 32767},
        LevelCase{"ClippedAtTheBottom", 1.5, -30000, -32768},
        LevelCase{"TieUpToTheEven", 0.5, 3, 2}, LevelCase{"TieDownToTheEven", 0.5, 5, 2},
        LevelCase{"TieDownToZero", 0.5, 1, 0}, LevelCase{"NegativeTieToTheEven", 0.5, -3, -2},
        LevelCase{"NegativeTieToTheSmallerEven", 0.5, -5, -2},
        LevelCase{"NegativeTieToZero", 0.5, -1, 0}, LevelCase{"BelowATie", 0.49, 5, 2},
        LevelCase{"AboveATie", 0.51, 5, 3}, LevelCase{"QuarterTie", 0.25, 6, 2},
        LevelCase{"QuarterTieDown", 0.25, 10, 2}, LevelCase{"Silenced", 0, 32767, 0},
        LevelCase{"ZeroStays", 32768, 0, 0}, LevelCase{"ZeroStaysAtHugeGain", Largest, 0, 0},
        LevelCase{"TurnedOverTop", -1, 32767, -32767},
        LevelCase{"TurnedOverBottomIsClipped", -1, -32768, 32767},
        LevelCase{"TurnedOverTie", -0.5, 3, -2}, LevelCase{"HugeUp", 1e302, 1, 32767},
        LevelCase{"HugeDown", 1e302, -1, -32768}, LevelCase{"HugeTurnedOver", -1e302, 1, -32768},
        LevelCase{"HugeTurnedOverUp", -1e302, -1, 32767},
        LevelCase{"BeyondAllNumbers", Largest, 32767, 32767},
        LevelCase{"BeyondAllNumbersDown", Largest, -32768, -32768},
        LevelCase{"TinyGain", Smallest, 32767, 0}, LevelCase{"TinyGainDown", -Smallest, 32767, 0}),
    NameOf);

// What the table must hold, reckoned without the rounding of the machine.
int NearestInRange(double exact) {
  if (exact >= Top) {
    return Top;
  }
  if (exact <= Bottom) {
    return Bottom;
  }
  const double below = std::floor(exact);
  const double rest = exact - below;
  const bool isUp = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0);
  return static_cast<int>(below) + (isUp ? 1 : 0);
}

TEST(GainTable, HoldsTheNearestNumberOfEveryLevel) {
  for (const double gain : {0.0,         0.5,     1.0,     1.5,     2.0,
                            -1.0,        -0.5,    -1.37,   0.25,    0.125,
                            1.0 / 3,     0.95,    0.99999, 1.00001, 32767.0 / 16384,
                            32767.0 / 3, 32767.0, 32768.0, 1e-5,    1e-300,
                            Smallest,    1e10,    -1e10,   1e298,   -1e298,
                            3.2767e302,  Largest, -Largest}) {
    SCOPED_TRACE(gain);
    const GainTable table(gain);
    for (int level = Bottom; level <= Top; ++level) {
      ASSERT_EQ(table(Level(level)), NearestInRange(level * gain)) << "level " << level;
    }
  }
}

TEST(GainTable, MapsASpanAsItMapsEachLevel) {
  const GainTable table(-0.7);
  SampleBuffer samples;
  for (int level = Top; level >= Bottom; --level) {
    samples.push_back(Level(level));
  }
  const auto before = samples;
  table.Map(Samples(samples).subspan(1, samples.size() - 2));
  EXPECT_EQ(samples.front(), Top) << "in front of the span";
  EXPECT_EQ(samples.back(), Bottom) << "behind the span";
  for (std::size_t i = 1; i + 1 < samples.size(); ++i) {
    ASSERT_EQ(samples[i], table(before[i])) << "level " << before[i];
  }
  table.Map({});
}

// A percentage of any size can be typed in.
TEST(GainTable, OfAnyPercentageAndPeaksKeepsSilenceAndRange) {
  for (const double percent : {1e300, -1e300, 1.7e308, Largest, -Largest, Smallest, -0.0}) {
    for (const int peak : {1, 2, 16384, Top}) {
      SCOPED_TRACE(std::to_string(percent) + " % of " + std::to_string(peak));
      const auto gain = GainFor(Level(-peak), Level(peak), percent);
      ASSERT_TRUE(gain);
      const GainTable table(*gain);
      EXPECT_EQ(table(0), 0);
      if (std::abs(percent) > 1) {
        EXPECT_EQ(table(1), percent > 0 ? Top : Bottom);
        EXPECT_EQ(table(-1), percent > 0 ? Bottom : Top);
      } else {
        EXPECT_EQ(table(Level(Top)), 0);
        EXPECT_EQ(table(Level(Bottom)), 0);
      }
      EXPECT_TRUE(IsNormalizationRequired(100 * *gain, 30));
    }
  }
}

TEST(CutOff, IsWhatTheTableStopsAtAnEnd) {
  for (const double gain : {1.0, 1.5, 2.0, 1.00001, 1.000015, 260.0, -1.0, -1.5, 0.5, 0.0, 1e300}) {
    for (int level = Bottom; level <= Top; ++level) {
      const double exact = std::nearbyint(level * gain);
      ASSERT_EQ(IsCutOff(Level(level), gain), exact > Top || exact < Bottom)
          << level << " times " << gain;
    }
  }
}

}  // namespace
}  // namespace brindle
