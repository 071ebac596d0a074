// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "split/film_split.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "media/part_sizes.h"
#include "tests/support/named_case.h"
#include "tests/support/sample_film.h"

namespace brindle {
namespace {

using Numbers = std::vector<std::int64_t>;

constexpr std::int64_t Header = 10'000;
constexpr std::int64_t Interval = 2'621'440;

struct FilmSplitCase {
  std::string name;
  std::vector<double> megaBytes;
  Numbers cuts;
  Numbers intervals;  ///< in each part
};

class FilmIsSplit : public ::testing::TestWithParam<FilmSplitCase> {};

TEST_P(FilmIsSplit, OnItsKeyFrames) {
  const auto film = SampleFilm();
  const auto split = SplitOfFilm(film, GetParam().megaBytes);
  EXPECT_EQ(split.cuts, GetParam().cuts);
  Numbers bytes;
  for (const auto intervals : GetParam().intervals) {
    bytes.push_back(Header + intervals * Interval);
  }
  EXPECT_EQ(split.bytes, bytes);
}

constexpr double Huge = std::numeric_limits<double>::infinity();
constexpr double OneInterval = 2.5 + 10'000.0 / 1'048'576;

INSTANTIATE_TEST_SUITE_P(Sizes, FilmIsSplit,
                         ::testing::ValuesIn(std::vector<FilmSplitCase>{
                             {"InTwo", {700}, {83700}, {279, 234}},
                             {"InThree", {500, 400}, {59700, 107400}, {199, 159, 155}},
                             {"ExactlyOneInterval", {OneInterval + 1e-6}, {300}, {1, 512}},
                             {"JustBelowOneInterval", {OneInterval - 1e-6}, {}, {}},
                             {"FitsIntoOne", {1283}, {}, {513}},
                             {"FitsIntoTwoOfThree", {700, 700}, {83700}, {279, 234}},
                             {"Zero", {0}, {}, {}},
                             {"Negative", {-5}, {}, {}},
                             {"Infinite", {Huge}, {}, {513}},
                         }),
                         NameOf);

TEST(FilmSplit, OfAFilmWithoutKeyFramesIsNone) {
  auto film = SampleFilm();
  film.keyFrames.clear();
  EXPECT_TRUE(SplitOfFilm(film, {700}).bytes.empty());
}

std::string TextOf(const SplitPlan& plan) {
  std::string text;
  for (const auto& range : plan) {
    text += (text.empty() ? "" : " ") +
            (range.start ? std::to_string(static_cast<int>(*range.start)) : "") + "-" +
            (range.end ? std::to_string(static_cast<int>(*range.end)) : "");
  }
  return text;
}

TEST(FilmSplit, GivesTheFramesToDelete) {
  const auto film = SampleFilm();
  EXPECT_EQ(TextOf(PlanOfFilm(film, SplitOfFilm(film, {700}), 2)), "83700-153750 0-83699 - -");
  EXPECT_EQ(TextOf(PlanOfFilm(film, SplitOfFilm(film, {500, 400}), 3)),
            "59700-153750 0-59699 107400-153750 0-107399");
}

TEST(FilmSplit, GivesNoFramesUnlessThereAreSoManyParts) {
  const auto film = SampleFilm();
  EXPECT_EQ(TextOf(PlanOfFilm(film, SplitOfFilm(film, {1283}), 2)), "- - - -");
  EXPECT_EQ(TextOf(PlanOfFilm(film, SplitOfFilm(film, {0}), 2)), "- - - -");
  EXPECT_EQ(TextOf(PlanOfFilm(film, SplitOfFilm(film, {700, 700}), 3)), "- - - -");
}

// Whatever the sizes: each part but the last is within its size, and would not be with one key
// frame more.
TEST(FilmSplit, FillsEveryPartButTheLast) {
  const auto film = SampleFilm();
  for (double first = 3; first < 1300; first += 41.7) {
    const double second = 1300 - first;
    const auto split = SplitOfFilm(film, {first, second});
    std::size_t from = 0;
    for (std::size_t i = 0; i < split.cuts.size(); ++i) {
      const auto size = static_cast<std::int64_t>((i == 0 ? first : second) * 1048576);
      const auto to = static_cast<std::size_t>(split.cuts[i] / 300);
      EXPECT_LE(split.bytes[i], size);
      EXPECT_GT(PartBytes(film, from, to + 1), size) << first;
      from = to;
    }
  }
}

}  // namespace
}  // namespace brindle
