// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/level_range.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"
#include "tests/wav/level_range_support.h"
#include "wav/gain.h"

namespace brindle {
namespace {

using Levels = std::vector<std::int16_t>;

struct RangeCase {
  std::string name;
  Levels levels;
  LevelRange range;
};

class RangeOfLevels : public ::testing::TestWithParam<RangeCase> {};

TEST_P(RangeOfLevels, IsFromTheLowestToTheHighest) {
  const auto range = RangeOf(GetParam().levels);
  EXPECT_EQ(range, GetParam().range);
  EXPECT_EQ(range.IsEmpty(), GetParam().levels.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RangeOfLevels,
    ::testing::Values(RangeCase{"OfNothing", {}, {}}, RangeCase{"OfSilence", {0}, {0, 0}},
                      RangeCase{"OfOneLevel", {-7}, {-7, -7}},
                      RangeCase{"OfALoudOne", {32767}, {32767, 32767}},
                      RangeCase{"OfTheOtherEnd", {-32768}, {-32768, -32768}},
                      RangeCase{"OfBothEnds", {32767, -32768}, {-32768, 32767}},
                      RangeCase{"OfLevelsAboveZero", {9, 3, 4}, {3, 9}},
                      RangeCase{"OfLevelsBelowZero", {-9, -3, -4}, {-9, -3}},
                      RangeCase{"InAnyOrder", {3, -5, 4}, {-5, 4}}),
    NameOf);

// Around the lengths at which the levels are taken together.
TEST(RangeOfLevelsTest, FindsTheEndsAtEveryPlaceOfEveryLength) {
  for (const std::size_t length : {1U, 7U, 8U, 9U, 255U, 256U, 257U, 511U, 512U, 513U, 1000U}) {
    Levels levels(length, 100);
    for (auto& level : levels) {
      level = 30000;
      EXPECT_EQ(RangeOf(levels).highest, 30000) << length;
      level = -30000;
      EXPECT_EQ(RangeOf(levels).lowest, -30000) << length;
      EXPECT_EQ(RangeOf(levels).highest, length == 1 ? -30000 : 100);
      level = 100;
    }
  }
}

TEST(RangeOfLevelsTest, IsThatOfAPlainSearch) {
  std::mt19937 random(20261122);  // NOLINT(cert-msc51-cpp): the same levels every time
  std::uniform_int_distribution<int> anyLevel(-32768, 32767);
  std::uniform_int_distribution<std::size_t> anyLength(1, 3000);
  for (int i = 0; i < 300; ++i) {
    Levels levels(anyLength(random));
    for (auto& level : levels) {
      level = static_cast<std::int16_t>(anyLevel(random) / (1 + i % 5));
    }
    const auto [lowest, highest] = std::minmax_element(levels.begin(), levels.end());
    EXPECT_EQ(RangeOf(levels), (LevelRange{*lowest, *highest}));
  }
}

TEST(RangeTest, IncludesNothingOfAnEmptyOne) {
  LevelRange range{-3, 8};
  range.Include({});
  EXPECT_EQ(range, (LevelRange{-3, 8}));
  LevelRange empty;
  empty.Include({});
  EXPECT_TRUE(empty.IsEmpty());
  empty.Include({4, 5});
  EXPECT_EQ(empty, (LevelRange{4, 5}));
}

struct AmplifiedCase {
  std::string name;
  LevelRange range;
  double gain = 0;
  LevelRange amplified;
};

class AmplifiedRange : public ::testing::TestWithParam<AmplifiedCase> {};

TEST_P(AmplifiedRange, IsThatOfTheMappedLevels) {
  EXPECT_EQ(Amplified(GetParam().range, GetParam().gain), GetParam().amplified);
}

constexpr double Infinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Cases, AmplifiedRange,
    ::testing::Values(AmplifiedCase{"Louder", {-5, 4}, 2, {-10, 8}},
                      AmplifiedCase{"Quieter", {-5, 4}, 0.5, {-2, 2}},
                      AmplifiedCase{"Unchanged", {-32768, 32767}, 1, {-32768, 32767}},
                      AmplifiedCase{"ToSilence", {-5, 4}, 0, {0, 0}},
                      AmplifiedCase{"UpsideDown", {-5, 4}, -2, {-8, 10}},
                      AmplifiedCase{"TheLowestUpsideDown", {-32768, 1}, -1, {-1, 32767}},
                      AmplifiedCase{"CutOffAbove", {3, 20000}, 2, {6, 32767}},
                      AmplifiedCase{"CutOffBelow", {-20000, -3}, 2, {-32768, -6}},
                      AmplifiedCase{"CutOffAltogether", {20000, 30000}, 3, {32767, 32767}},
                      AmplifiedCase{"WithoutEnd", {-1, 1}, Infinity, {-32768, 32767}},
                      AmplifiedCase{"SilenceWithoutEnd", {0, 0}, Infinity, {0, 0}},
                      AmplifiedCase{"Nothing", {}, 2, {}},
                      AmplifiedCase{"NothingUpsideDown", {}, -2, {}}),
    NameOf);

TEST(AmplifiedRangeTest, IsWhatThePassMakesOfTheLevels) {
  std::mt19937 random(20261123);  // NOLINT(cert-msc51-cpp): the same levels every time
  std::uniform_int_distribution<int> anyLevel(-32768, 32767);
  std::uniform_real_distribution<double> anyGain(-4, 4);
  for (int i = 0; i < 50; ++i) {
    const double gain = anyGain(random);
    const GainTable table(gain);
    Levels levels(300);
    for (auto& level : levels) {
      level = static_cast<std::int16_t>(anyLevel(random) / (1 + i % 7));
    }
    const auto range = RangeOf(levels);
    table.Map(levels);
    EXPECT_EQ(Amplified(range, gain), RangeOf(levels)) << gain;
  }
}

}  // namespace
}  // namespace brindle
