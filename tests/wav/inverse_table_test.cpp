// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/inverse_table.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"
#include "wav/gain.h"
#include "wav/level_range.h"
#include "wav/samples.h"

namespace brindle {
namespace {

constexpr LevelRange AllLevels{.lowest = std::numeric_limits<std::int16_t>::min(),
                               .highest = std::numeric_limits<std::int16_t>::max()};

SampleBuffer LevelsOf(LevelRange range) {
  SampleBuffer levels(static_cast<std::size_t>(range.highest - range.lowest) + 1);
  std::iota(levels.begin(), levels.end(), range.lowest);
  return levels;
}

// What it takes to tell the levels again.
struct Kept {
  std::vector<std::byte> bits;
  int used = 0;

  // All that were written.
  [[nodiscard]] std::size_t Count() const {
    return bits.empty() ? 0 : (bits.size() - 1) * 8 + (used == 0 ? 8 : static_cast<unsigned>(used));
  }
};

Kept KeptOf(const InverseTable& inverse, const GainTable& table, const SampleBuffer& levels) {
  Kept kept;
  inverse.Keep(levels, table, kept.bits, kept.used);
  return kept;
}

// The levels once they have been mapped and turned back, or nothing.
SampleBuffer ThereAndBack(const GainTable& table, LevelRange range, SampleBuffer levels) {
  const InverseTable inverse(table, range);
  const auto kept = KeptOf(inverse, table, levels);
  table.Map(levels);
  qint64 at = 0;
  if (!inverse.Restore(levels, kept.bits, at) || at != static_cast<qint64>(kept.Count())) {
    return {};
  }
  return levels;
}

struct InverseCase {
  std::string name;
  double gain = 1;
  LevelRange range = AllLevels;
  int mostBits = 0;
  std::size_t bits = 0;  // that one word of each level takes, all together
};

const std::vector<InverseCase> Cases{
    {"AsItIs", 1, AllLevels, 0, 0},
    {"UpsideDown", -1, AllLevels, 1, 2},  // -32768 and -32767 both become 32767
    {"UpsideDownWithoutTheEnd", -1, {.lowest = -32767, .highest = 32767}, 0, 0},
    {"DoubledAndNothingCutOff", 2, {.lowest = -16384, .highest = 16383}, 0, 0},
    // 32767 was 16384 or 16385.
    {"DoubledAndTwoLevelsCutOff", 2, {.lowest = -16384, .highest = 16385}, 1, 2},
    // -20000 to -16384 become -32768, and 16384 to 20000 become 32767.
    {"DoubledAndManyCutOff",
     2,
     {.lowest = -20000, .highest = 20000},
     12,
     std::size_t{2} * 3617 * 12},
    // 16385 levels become -32768, and 16384 become 32767.
    {"DoubledAndAllLevels", 2, AllLevels, 15, std::size_t{16385} * 15 + std::size_t{16384} * 14},
    // -1, 0 and 1 become 0; 3, 4 and 5 become 2.
    {"Halved", 0.5, {.lowest = -1, .highest = 5}, 2, 12},
    {"HalvedAndOneLevel", 0.5, {.lowest = 3, .highest = 3}, 0, 0},
    {"HalvedUpsideDown", -0.5, {.lowest = -5, .highest = 1}, 2, 12},
    {"Silenced", 0, AllLevels, 16, LevelCount * 16},
    {"SilencedAndOneLevel", 0, {.lowest = -7, .highest = -7}, 0, 0},
    {"SilencedAndTwoLevels", 0, {.lowest = -7, .highest = -6}, 1, 2},
    {"SilencedAndThreeLevels", 0, {.lowest = -7, .highest = -5}, 2, 6},
    // -50 to 50 become 0; they are 101 levels.
    {"NearlySilenced", 0.01, {.lowest = -50, .highest = 50}, 7, 707},
    // Between -109 and 109 every level keeps one of its own.
    {"OverdrivenAndNothingCutOff", 300, {.lowest = -109, .highest = 109}, 0, 0},
    {"OverdrivenAndNearlyAllCutOff", 300, AllLevels, 15,
     // -32768 to -110 become -32768, and 110 to 32767 become 32767.
     (std::size_t{32659} + std::size_t{32658}) * 15},
    {"TheLowestLevelOnly", 2, {.lowest = -32768, .highest = -32768}, 0, 0},
    {"TheHighestLevelOnly", 2, {.lowest = 32767, .highest = 32767}, 0, 0},
};

class Inverse : public ::testing::TestWithParam<InverseCase> {};

TEST_P(Inverse, TellsEveryLevelOfTheRangeAgain) {
  const auto& row = GetParam();
  const GainTable table(row.gain);
  const auto levels = LevelsOf(row.range);
  EXPECT_EQ(ThereAndBack(table, row.range, levels), levels);
  // The bits of the words follow one another whatever their number is.
  SampleBuffer backwards(levels.rbegin(), levels.rend());
  backwards.insert(backwards.end(), levels.begin(), levels.end());
  EXPECT_EQ(ThereAndBack(table, row.range, backwards), backwards);
}

TEST_P(Inverse, TakesNoMoreBitsThanItMust) {
  const auto& row = GetParam();
  const GainTable table(row.gain);
  const InverseTable inverse(table, row.range);
  EXPECT_EQ(inverse.MostBits(), row.mostBits);
  EXPECT_EQ(MostBitsLost(table, row.range), row.mostBits);
  EXPECT_EQ(KeptOf(inverse, table, LevelsOf(row.range)).Count(), row.bits);
}

TEST_P(Inverse, RefusesToGoOnWithoutAllBits) {
  const auto& row = GetParam();
  const GainTable table(row.gain);
  const InverseTable inverse(table, row.range);
  auto levels = LevelsOf(row.range);
  auto bits = KeptOf(inverse, table, levels).bits;
  table.Map(levels);
  if (bits.empty()) {
    return;
  }
  bits.pop_back();
  qint64 at = 0;
  EXPECT_FALSE(inverse.Restore(levels, bits, at));
}

INSTANTIATE_TEST_SUITE_P(Cases, Inverse, ::testing::ValuesIn(Cases), NameOf);

TEST(InverseTableTest, WordsThatCanHaveComeFromNoLevelAreRefused) {
  const GainTable table(2);
  const InverseTable inverse(table, {.lowest = -100, .highest = 100});
  for (const auto wrong : SampleBuffer{1, -1, 199, 202, -202, 32767, -32768}) {
    SampleBuffer words{0, 200, wrong, -200};
    qint64 at = 0;
    EXPECT_FALSE(inverse.Restore(words, {}, at)) << wrong;
  }
  SampleBuffer words{0, 200, -200, 2};
  qint64 at = 0;
  EXPECT_TRUE(inverse.Restore(words, {}, at));
  EXPECT_EQ(words, (SampleBuffer{0, 100, -100, 1}));
  EXPECT_EQ(at, 0);
}

TEST(InverseTableTest, BitsAreTakenFromTheGivenOneOn) {
  const GainTable table(0.5);
  const LevelRange range{.lowest = -1, .highest = 5};
  const InverseTable inverse(table, range);
  SampleBuffer first{-1, 0, 1};
  SampleBuffer second{5, 4, 3, 2, 1};
  Kept kept;
  inverse.Keep(first, table, kept.bits, kept.used);
  inverse.Keep(second, table, kept.bits, kept.used);
  EXPECT_EQ(kept.Count(), 14U);
  const auto whole = second;
  table.Map(second);
  qint64 at = 6;
  ASSERT_TRUE(inverse.Restore(second, kept.bits, at));
  EXPECT_EQ(second, whole);
  EXPECT_EQ(at, 14);
}

TEST(InverseTableTest, RandomGainsAndRanges) {
  std::mt19937 random(20260401);  // NOLINT(cert-msc51-cpp): the same ones every time
  std::uniform_int_distribution<int> level(-32768, 32767);
  std::uniform_real_distribution<double> exponent(-2, 2.5);
  for (int i = 0; i < 60; ++i) {
    const double gain = (i % 5 == 0 ? -1 : 1) * std::pow(10, exponent(random));
    const auto [low, high] = std::minmax({level(random), level(random)});
    const LevelRange range{.lowest = static_cast<std::int16_t>(low),
                           .highest = static_cast<std::int16_t>(high)};
    std::uniform_int_distribution<int> inRange(low, high);
    SampleBuffer samples(500);
    for (auto& sample : samples) {
      sample = static_cast<std::int16_t>(inRange(random));
    }
    EXPECT_EQ(ThereAndBack(GainTable(gain), range, samples), samples)
        << "gain " << gain << ", levels " << low << " to " << high;
  }
}

}  // namespace
}  // namespace brindle
