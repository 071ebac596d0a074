// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/sound_picture.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"
#include "tests/wav/level_range_support.h"
#include "wav/level_range.h"
#include "wav/wav_header.h"

namespace brindle {
namespace {

using Levels = std::vector<std::int16_t>;
using Ranges = std::vector<LevelRange>;

constexpr qint64 Start = 45;

SampleData DataOf(qint64 bytes, qint64 behind = 0) {
  return {.start = Start, .length = bytes, .fileLength = Start - 1 + bytes + behind};
}
SampleData DataOfWords(qint64 words) { return DataOf(2 * words); }

Ranges ColumnsOf(const SoundPicture& picture) {
  const auto columns = picture.Columns();
  return {columns.begin(), columns.end()};
}

// Word by word, in whole numbers: word w of n belongs to column w * k / n of k.
Ranges NaiveColumns(qint64 words, qint64 firstWord, const Levels& levels) {
  const auto shared = std::max<qint64>(words, 1);
  const auto count = std::min<qint64>(shared, 2048);
  Ranges columns(static_cast<std::size_t>(count));
  for (auto word = firstWord; const auto level : levels) {
    const auto within = std::clamp<qint64>(word, 0, shared - 1);
    auto& column = columns[static_cast<std::size_t>(within * count / shared)];
    column.lowest = std::min(column.lowest, level);
    column.highest = std::max(column.highest, level);
    ++word;
  }
  return columns;
}

TEST(SoundPictureTest, OfNoFileIsEmpty) {
  const SoundPicture picture;
  EXPECT_TRUE(picture.Columns().empty());
  EXPECT_EQ(picture.Ends().lowest, 0);
  EXPECT_EQ(picture.Ends().highest, 0);
  EXPECT_EQ(picture.ColumnsWithin(100), 0U);
}

TEST(SoundPictureTest, HasTheWordsOfTheWorkedExample) {
  SoundPicture picture(DataOfWords(5000));
  Levels levels(5000);
  for (std::size_t word = 0; word < levels.size(); ++word) {
    levels[word] = static_cast<std::int16_t>(word);
  }
  picture.Add(Start, levels);
  const auto columns = ColumnsOf(picture);
  ASSERT_EQ(columns.size(), 2048U);
  EXPECT_EQ(columns[0], (LevelRange{0, 2}));
  EXPECT_EQ(columns[1], (LevelRange{3, 4}));
  EXPECT_EQ(columns[2], (LevelRange{5, 7}));
  EXPECT_EQ(columns[2047].highest, 4999);
}

struct SizeCase {
  std::string name;
  qint64 bytes = 0;
  std::size_t columns = 0;
};

class SizeOfPicture : public ::testing::TestWithParam<SizeCase> {};

TEST_P(SizeOfPicture, GoesByTheWords) {
  const SoundPicture picture(DataOf(GetParam().bytes));
  EXPECT_EQ(picture.Columns().size(), GetParam().columns);
  EXPECT_TRUE(std::all_of(picture.Columns().begin(), picture.Columns().end(),
                          [](const LevelRange& column) { return column.IsEmpty(); }));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SizeOfPicture,
    ::testing::Values(SizeCase{"BelowNothing", -3, 1}, SizeCase{"Nothing", 0, 1},
                      SizeCase{"OneByte", 1, 1}, SizeCase{"OneWord", 2, 1},
                      SizeCase{"AnOddByte", 3, 1}, SizeCase{"TwoWords", 4, 2},
                      SizeCase{"JustFewer", 4094, 2047}, SizeCase{"JustAsMany", 4096, 2048},
                      SizeCase{"AnOddByteMore", 4097, 2048}, SizeCase{"JustMore", 4098, 2048},
                      SizeCase{"FourGigabytes", 4294967294, 2048},
                      SizeCase{"BeyondWhatAHeaderDeclares", 1LL << 40, 2048}),
    NameOf);

TEST(SoundPictureTest, OfFewWordsHasAColumnForEach) {
  SoundPicture picture(DataOfWords(3));
  picture.Add(Start, Levels{5, -6, 7});
  EXPECT_EQ(ColumnsOf(picture), (Ranges{{5, 5}, {-6, -6}, {7, 7}}));
}

TEST(SoundPictureTest, IsEmptyWhereNothingWasRead) {
  SoundPicture picture(DataOfWords(3));
  picture.Add(Start + 2, Levels{-6});
  EXPECT_EQ(ColumnsOf(picture), (Ranges{{}, {-6, -6}, {}}));
  EXPECT_EQ(picture.Ends().lowest, -6);
  EXPECT_EQ(picture.Ends().highest, 0);
}

TEST(SoundPictureTest, KeepsWhatIsOutsideTheSamplesAtItsEnds) {
  SoundPicture picture(DataOfWords(3));
  picture.Add(Start - 5, Levels{10, 20, 30});  // half a word before the samples, and further
  picture.Add(Start + 4, Levels{1, 2, 900});
  EXPECT_EQ(ColumnsOf(picture), (Ranges{{10, 30}, {}, {1, 900}}));
}

TEST(SoundPictureTest, OfNoSamplesHasAPlaceForWhatWasReadAllTheSame) {
  SoundPicture picture(DataOf(-4));
  picture.Add(Start - 2, Levels{-1});
  EXPECT_EQ(ColumnsOf(picture), (Ranges{{-1, -1}}));
}

TEST(SoundPictureTest, IsTheSameHoweverItIsRead) {
  std::mt19937 random(20261124);  // NOLINT(cert-msc51-cpp): the same sound every time
  std::uniform_int_distribution<int> anyLevel(-32768, 32767);
  for (const qint64 words : {1, 2, 3, 255, 2047, 2048, 2049, 4095, 4096, 5000, 70001, 524288}) {
    Levels levels(static_cast<std::size_t>(words));
    for (auto& level : levels) {
      level = static_cast<std::int16_t>(anyLevel(random));
    }
    const auto naive = NaiveColumns(words, 0, levels);
    for (const std::size_t piece : {std::size_t{1}, std::size_t{1000}, std::size_t{32768}}) {
      SoundPicture picture(DataOfWords(words));
      for (std::size_t at = 0; at < levels.size(); at += piece) {
        const auto size = std::min(piece, levels.size() - at);
        picture.Add(Start + 2 * static_cast<qint64>(at), std::span(levels).subspan(at, size));
      }
      ASSERT_EQ(ColumnsOf(picture), naive) << words << " words by " << piece;
    }
  }
}

TEST(SoundPictureTest, OfAnyPieceIsThatOfAPlainLoop) {
  std::mt19937 random(20261125);  // NOLINT(cert-msc51-cpp): the same pieces every time
  std::uniform_int_distribution<int> anyLevel(-32768, 32767);
  std::uniform_int_distribution<qint64> anyCount(0, 100000);
  for (int i = 0; i < 200; ++i) {
    const auto words = anyCount(random) / (1 + i % 30);
    const auto first = anyCount(random) - 50000;
    Levels levels(static_cast<std::size_t>(anyCount(random)));
    for (auto& level : levels) {
      level = static_cast<std::int16_t>(anyLevel(random) / (1 + i % 9));
    }
    SoundPicture picture(DataOf(2 * words + i % 2));
    picture.Add(Start + 2 * first, levels);
    ASSERT_EQ(ColumnsOf(picture), NaiveColumns(words, first, levels)) << words << " from " << first;
  }
}

TEST(SoundPictureTest, OfAVeryLongFileHasItsColumnsAtTheirPlaces) {
  const qint64 words = 1LL << 39;
  SoundPicture picture(DataOfWords(words));
  const auto share = words / 2048;
  picture.Add(Start + 2 * (1024 * share - 1), Levels{-1, 1});
  picture.Add(Start + 2 * (words - 1), Levels{5});
  EXPECT_EQ(picture.Columns()[1023], (LevelRange{-1, -1}));
  EXPECT_EQ(picture.Columns()[1024], (LevelRange{1, 1}));
  EXPECT_EQ(picture.Columns()[2047], (LevelRange{5, 5}));
}

TEST(SoundPictureTest, AmplifiesItsFirstColumns) {
  SoundPicture picture(DataOfWords(4));
  picture.Add(Start, Levels{10, -10, 20000});
  picture.Amplify(2, 3);
  EXPECT_EQ(ColumnsOf(picture), (Ranges{{30, 30}, {-30, -30}, {20000, 20000}, {}}));
  picture.Amplify(4, 2);
  EXPECT_EQ(ColumnsOf(picture), (Ranges{{60, 60}, {-60, -60}, {32767, 32767}, {}}));
}

TEST(SoundPictureTest, TellsTheRangeOfSomeColumns) {
  SoundPicture picture(DataOfWords(4));
  picture.Add(Start, Levels{10, -10, 30});
  EXPECT_EQ(picture.RangeOfColumns(0, 2), (LevelRange{-10, 10}));
  EXPECT_EQ(picture.RangeOfColumns(2, 4), (LevelRange{30, 30}));
  EXPECT_TRUE(picture.RangeOfColumns(3, 4).IsEmpty());
  EXPECT_TRUE(picture.RangeOfColumns(1, 1).IsEmpty());
}

struct WithinCase {
  std::string name;
  SampleData data;
  double percent = 0;
  std::size_t columns = 0;
};

class WithinPicture : public ::testing::TestWithParam<WithinCase> {};

TEST_P(WithinPicture, AreTheColumnsThatTheProgressHasPassed) {
  EXPECT_EQ(SoundPicture(GetParam().data).ColumnsWithin(GetParam().percent), GetParam().columns);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, WithinPicture,
    ::testing::Values(WithinCase{"TheWorkedExample", DataOfWords(100), 50, 39},
                      WithinCase{"Nothing", DataOfWords(100), 0, 0},
                      WithinCase{"WithinTheHeader", DataOfWords(100), 10, 0},
                      WithinCase{"JustBelowAWord", DataOf(200, 56), 45 / 3.0, 0},
                      WithinCase{"AWord", DataOf(200, 56), 46 / 3.0, 1},
                      WithinCase{"All", DataOfWords(100), 100, 100},
                      WithinCase{"JustBelowAll", DataOfWords(100), 99.9, 99},
                      WithinCase{"AllBeforeTheChunkThatFollows", DataOf(200, 56), 250 / 3.0, 100},
                      WithinCase{"TheChunkThatFollows", DataOf(200, 56), 90, 100},
                      WithinCase{"BeyondTheEnd", DataOfWords(100), 120, 100},
                      WithinCase{"HalfOfManyWords", DataOfWords(1 << 20), 50, 1023},
                      WithinCase{"AllOfAnOddNumberOfBytes", DataOf(8193), 100, 2048},
                      WithinCase{"NoSamples", DataOf(0), 100, 0}),
    NameOf);

}  // namespace
}  // namespace brindle
