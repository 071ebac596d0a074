// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "aspect/resolution.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

constexpr int Moduli[] = {2, 4, 8, 16, 32};

struct RatioCase {
  std::string name;
  int index = 0;
  float expected = 0;
};

class StandardRatios : public ::testing::TestWithParam<RatioCase> {};

TEST_P(StandardRatios, OfAnIndex) {
  EXPECT_EQ(StandardRatio(GetParam().index), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Each, StandardRatios,
    ::testing::Values(RatioCase{"Square", 0, 1.0F}, RatioCase{"FourToThree", 1, 1.33F},
                      RatioCase{"OnePoint66", 2, 1.66F}, RatioCase{"SixteenToNine", 3, 1.778F},
                      RatioCase{"OnePoint85", 4, 1.85F}, RatioCase{"TwoPoint35", 5, 2.35F},
                      RatioCase{"BehindTheLast", 6, 0}, RatioCase{"BeforeTheFirst", -1, 0},
                      RatioCase{"LargestStored", 32767, 0}, RatioCase{"LeastStored", -32768, 0},
                      RatioCase{"Largest", std::numeric_limits<int>::max(), 0},
                      RatioCase{"Least", std::numeric_limits<int>::min(), 0}),
    NameOf);

struct SnapCase {
  std::string name;
  double resolution = 0;
  int modulus = 0;
  int expected = 0;
};

class Snapping : public ::testing::TestWithParam<SnapCase> {};

TEST_P(Snapping, GoesToTheNearestMultiple) {
  const auto& [name, resolution, modulus, expected] = GetParam();
  EXPECT_EQ(Snapped(resolution, modulus), expected);
}

INSTANTIATE_TEST_SUITE_P(Ties, Snapping,
                         ::testing::Values(SnapCase{"TenAndAHalfGoesDown", 336, 32, 320},
                                           SnapCase{"ElevenAndAHalfGoesUp", 368, 32, 384},
                                           SnapCase{"NineAndAHalfGoesUp", 304, 32, 320},
                                           SnapCase{"TwentyTwoAndAHalfGoesDown", 720, 32, 704},
                                           SnapCase{"OneHalfGoesDown", 8, 16, 0},
                                           SnapCase{"OneAndAHalfGoesUp", 24, 16, 32},
                                           SnapCase{"TwoAndAHalfGoesDown", 40, 16, 32},
                                           SnapCase{"OneOfTwo", 1, 2, 0},
                                           SnapCase{"ThreeOfTwo", 3, 2, 4},
                                           SnapCase{"FiveOfTwo", 5, 2, 4},
                                           SnapCase{"BelowZeroGoesToEvenToo", -24, 16, -32},
                                           SnapCase{"ShortlyBelowZero", -8, 16, 0}),
                         NameOf);

INSTANTIATE_TEST_SUITE_P(Others, Snapping,
                         ::testing::Values(SnapCase{"OnTheGrid", 352, 16, 352},
                                           SnapCase{"Zero", 0, 16, 0},
                                           SnapCase{"BelowTheTie", 343.999, 16, 336},
                                           SnapCase{"AboveTheTie", 344.001, 16, 352},
                                           SnapCase{"FractionAboveALine", 359.955, 16, 352},
                                           SnapCase{"OddAtEight", 717, 8, 720},
                                           SnapCase{"OddAtFour", 717, 4, 716}),
                         NameOf);

TEST(SnappedResolution, IsAMultipleAndNeverFartherThanHalfAStep) {
  std::mt19937 random(20260101);  // NOLINT(cert-msc51-cpp): the same figures in every run
  std::uniform_real_distribution<double> resolutions(-2000, 8000);
  for (int i = 0; i < 20000; ++i) {
    const double any = resolutions(random);
    for (const int modulus : Moduli) {
      for (const double resolution : {any, std::round(any), std::round(any / 8) * 8}) {
        const int snapped = Snapped(resolution, modulus);
        ASSERT_EQ(snapped % modulus, 0) << resolution << " at " << modulus;
        const double distance = std::abs(snapped - resolution);
        ASSERT_LE(distance, modulus / 2.0) << resolution << " at " << modulus;
        if (distance == modulus / 2.0) {
          ASSERT_EQ(snapped / modulus % 2, 0) << resolution << " at " << modulus;
        }
        ASSERT_EQ(Snapped(snapped, modulus), snapped);
      }
    }
  }
}

TEST(SnappedResolution, OfAnythingHugeStaysOnItsSideOfEverySlider) {
  for (const int modulus : Moduli) {
    for (const double huge : {1e9, 1e300, std::numeric_limits<double>::infinity()}) {
      EXPECT_GT(Snapped(huge, modulus), 720);
      EXPECT_EQ(Snapped(huge, modulus) % modulus, 0);
      EXPECT_LT(Snapped(-huge, modulus), 0);
    }
  }
}

struct LinkCase {
  std::string name;
  int from = 0;
  float ratio = 0;
  int modulus = 0;
  int expected = 0;
};

class LinkedHeight : public ::testing::TestWithParam<LinkCase> {};

TEST_P(LinkedHeight, OfAWidth) {
  const auto& [name, from, ratio, modulus, expected] = GetParam();
  EXPECT_EQ(HeightFor(from, ratio, modulus), expected);
}

// A single near 1.85 lies just above it: 518 / 1.85 is a tie at 16 for singles, not for doubles.
INSTANTIATE_TEST_SUITE_P(Each, LinkedHeight,
                         ::testing::Values(LinkCase{"SixteenToNine", 640, 1.778F, 16, 352},
                                           LinkCase{"Square", 576, 1.0F, 16, 576},
                                           LinkCase{"FourToThree", 640, 1.33F, 16, 480},
                                           LinkCase{"OnePoint66", 592, 1.66F, 16, 352},
                                           LinkCase{"OnePoint85", 592, 1.85F, 16, 320},
                                           LinkCase{"TwoPoint35", 720, 2.35F, 16, 304},
                                           LinkCase{"FinestGrid", 592, 1.778F, 2, 332},
                                           LinkCase{"CoarsestGrid", 576, 1.778F, 32, 320},
                                           LinkCase{"TieGoesUpToEven", 688, 2.0F, 16, 352},
                                           LinkCase{"TieGoesDownToEven", 656, 2.0F, 16, 320},
                                           LinkCase{"CountedInDoubles", 518, 1.85F, 16, 272},
                                           LinkCase{"BeyondTheSlider", 720, 0.5F, 16, 1440},
                                           LinkCase{"Flat", 720, 99.999F, 16, 0}),
                         NameOf);

class LinkedWidth : public ::testing::TestWithParam<LinkCase> {};

TEST_P(LinkedWidth, OfAHeight) {
  const auto& [name, from, ratio, modulus, expected] = GetParam();
  EXPECT_EQ(WidthFor(from, ratio, modulus), expected);
}

INSTANTIATE_TEST_SUITE_P(Each, LinkedWidth,
                         ::testing::Values(LinkCase{"SixteenToNine", 352, 1.778F, 16, 624},
                                           LinkCase{"Square", 576, 1.0F, 16, 576},
                                           LinkCase{"TwoPoint35", 304, 2.35F, 16, 720},
                                           LinkCase{"FinestGrid", 332, 1.778F, 2, 590},
                                           LinkCase{"CoarsestGrid", 320, 1.778F, 32, 576},
                                           LinkCase{"TieGoesUpToEven", 184, 1.0F, 16, 192},
                                           LinkCase{"TieGoesDownToEven", 168, 1.0F, 16, 160},
                                           LinkCase{"CountedInDoubles", 160, 1.85F, 16, 304},
                                           LinkCase{"BeyondTheSlider", 576, 1.778F, 16, 1024},
                                           LinkCase{"Narrow", 576, 0.001F, 16, 0}),
                         NameOf);

TEST(LinkedResolution, StaysFiniteForEveryRatio) {
  constexpr float least = std::numeric_limits<float>::denorm_min();
  constexpr float most = std::numeric_limits<float>::max();
  for (const int modulus : Moduli) {
    EXPECT_GT(HeightFor(320, least, modulus), 576);
    EXPECT_EQ(HeightFor(320, least, modulus) % modulus, 0);
    EXPECT_GT(HeightFor(720, 1e-30F, modulus), 576);
    EXPECT_EQ(HeightFor(720, most, modulus), 0);
    EXPECT_EQ(WidthFor(576, least, modulus), 0);
    EXPECT_GT(WidthFor(160, most, modulus), 720);
    EXPECT_EQ(WidthFor(160, most, modulus) % modulus, 0);
  }
}

struct FrameCase {
  std::string name;
  int width = 0;
  int height = 0;
  float filmRatio = 0;
  int pixels = 0;
  int macroblocks = 0;
  double ratio = 0;
  std::optional<double> errorPercent;
};

class Statistics : public ::testing::TestWithParam<FrameCase> {};

TEST_P(Statistics, OfAFrame) {
  const auto& expected = GetParam();
  const auto result = StatisticsOf(expected.width, expected.height, expected.filmRatio);
  EXPECT_EQ(result.pixels, expected.pixels);
  EXPECT_EQ(result.macroblocks, expected.macroblocks);
  EXPECT_EQ(result.ratio, expected.ratio);
  EXPECT_EQ(result.errorPercent, expected.errorPercent);
}

constexpr auto None = std::nullopt;

// A remainder of the height rounds both factors up, and a remainder of the width neither.
INSTANTIATE_TEST_SUITE_P(
    Blocks, Statistics,
    ::testing::Values(FrameCase{"NoRemainder", 720, 576, 0, 414720, 1620, 1.25, None},
                      FrameCase{"RemainderOfTheWidth", 712, 576, 0, 410112, 1584, 1.236, None},
                      FrameCase{"RemainderOfTheHeight", 720, 568, 0, 408960, 1656, 1.268, None},
                      FrameCase{"BothRemainders", 712, 568, 0, 404416, 1620, 1.254, None},
                      FrameCase{"LeastRemainderOfTheHeight", 592, 322, 0, 190624, 798, 1.839, None},
                      FrameCase{"OneBlock", 16, 16, 0, 256, 1, 1, None},
                      FrameCase{"NarrowerThanABlock", 15, 16, 0, 240, 0, 0.938, None},
                      FrameCase{"LowerThanABlock", 16, 15, 0, 240, 2, 1.067, None}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Ratios, Statistics,
    ::testing::Values(FrameCase{"TieToEvenDownwards", 592, 256, 0, 151552, 592, 2.312, None},
                      FrameCase{"TieToEvenUpwards", 304, 256, 0, 77824, 304, 1.188, None},
                      FrameCase{"Portrait", 320, 576, 0, 184320, 720, 0.556, None},
                      FrameCase{"Widest", 720, 160, 0, 115200, 450, 4.5, None}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Errors, Statistics,
    ::testing::Values(FrameCase{"NarrowerThanTheFilm", 720, 576, 1.778F, 414720, 1620, 1.25, -29.7},
                      FrameCase{"WiderThanTheFilm", 720, 400, 1.778F, 288000, 1125, 1.8, 1.24},
                      FrameCase{"OfTheRoundedRatio", 592, 336, 1.778F, 198912, 777, 1.762, -0.9},
                      FrameCase{"OfARatioRoundedToEven", 592, 256, 2.35F, 151552, 592, 2.312,
                                -1.62},
                      FrameCase{"Exact", 320, 320, 1.0F, 102400, 400, 1, 0.0},
                      FrameCase{"VeryFlatFilm", 720, 160, 99.999F, 115200, 450, 4.5, -95.5},
                      FrameCase{"VeryNarrowFilm", 592, 576, 0.001F, 340992, 1332, 1.028, 102700.0}),
    NameOf);

TEST(FrameStatisticsTest, ErrorStaysFiniteForEveryRatio) {
  for (const float ratio :
       {std::numeric_limits<float>::denorm_min(), 1e-30F, 1e30F, std::numeric_limits<float>::max(),
        -std::numeric_limits<float>::denorm_min()}) {
    const auto error = StatisticsOf(720, 160, ratio).errorPercent;
    ASSERT_TRUE(error.has_value()) << ratio;
    EXPECT_TRUE(std::isfinite(*error)) << ratio;
  }
}

TEST(FrameStatisticsTest, ThereIsNoErrorForEitherZero) {
  EXPECT_EQ(StatisticsOf(720, 576, 0.0F).errorPercent, std::nullopt);
  EXPECT_EQ(StatisticsOf(720, 576, -0.0F).errorPercent, std::nullopt);
}

}  // namespace
}  // namespace brindle
