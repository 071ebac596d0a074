// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The picture that a scan draws.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <variant>
#include <vector>

#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"
#include "tests/wav/level_range_support.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/peak_scan_support.h"
#include "tests/wav/wav_builder.h"
#include "wav/level_range.h"
#include "wav/pass.h"
#include "wav/peak_scan.h"
#include "wav/sound_picture.h"

namespace brindle {
namespace {

using Ranges = std::vector<LevelRange>;

Ranges ColumnsOf(const SoundPicture& picture) {
  const auto columns = picture.Columns();
  return {columns.begin(), columns.end()};
}

// What the loops of a usual scan read, drawn word by word.
Ranges DrawnLiterally(const std::string& file, qint64 start, qint64 length) {
  const auto words = std::max<qint64>(length / 2, 1);
  const auto count = std::min<qint64>(words, 2048);
  Ranges columns(static_cast<std::size_t>(count));
  const auto read = [&](qint64 position) {
    std::int16_t level = 0;
    std::memcpy(&level, file.data() + position - 1, sizeof(level));
    const auto word = std::clamp<qint64>((position - start) / 2, 0, words - 1);
    columns[static_cast<std::size_t>(word * count / words)].Include({level, level});
  };
  const auto fileLength = static_cast<qint64>(file.size());
  ForEachScannedWord(start, length, fileLength, read);
  return columns;
}

struct SoundCase {
  std::string name;
  std::size_t samples = 0;  // bytes
  std::size_t before = 0;   // bytes
  std::size_t behind = 0;   // bytes
};

class PictureOfScan : public ::testing::TestWithParam<SoundCase> {};

TEST_P(PictureOfScan, ShowsWhatItsLoopsRead) {
  const auto& [name, samples, before, behind] = GetParam();
  const TemporaryFolder folder;
  const WavParts parts{.samples = Noise(samples), .before = Noise(before), .behind = Noise(behind)};
  folder.Put("scanned.wav", parts.Bytes());
  const ReadClock clock;
  PeakScan scan(folder.PathOf("scanned.wav"), clock);
  const auto end = RunToEnd(scan, [](const PassProgress&) { return true; });
  ASSERT_TRUE(std::holds_alternative<PassCompleted>(end));

  const auto literal = DrawnLiterally(parts.Bytes(), static_cast<qint64>(parts.Start()),
                                      static_cast<qint64>(samples));
  EXPECT_EQ(ColumnsOf(scan.Picture()), literal);
  LevelRange all{0, 0};
  for (const auto& column : literal) {
    all.Include(column);
  }
  EXPECT_EQ(scan.Found().lowest, all.lowest);
  EXPECT_EQ(scan.Found().highest, all.highest);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PictureOfScan,
    ::testing::Values(SoundCase{"OfNothing"}, SoundCase{"OfAWord", 2}, SoundCase{"OfAnOddByte", 3},
                      SoundCase{"OfTwoWords", 4}, SoundCase{"OfFewerWordsThanColumns", 3000},
                      SoundCase{"OfAsManyWordsAsColumns", 4096}, SoundCase{"OfOneWordMore", 4098},
                      SoundCase{"JustBelowABlock", Block - 2}, SoundCase{"OfABlock", Block},
                      SoundCase{"JustAboveABlock", Block + 2}, SoundCase{"OfBlocks", 5 * Block},
                      SoundCase{"OfBlocksAndWords", 5 * Block + 1234},
                      SoundCase{"OfBlocksAndAnOddByte", 3 * Block + 7},
                      SoundCase{"FarFromTheBeginning", 3 * Block + 20, 70000},
                      SoundCase{"BeforeAByte", 3 * Block + 20, 0, 1},
                      SoundCase{"BeforeAChunk", 3 * Block + 2000, 0, 1000},
                      SoundCase{"BeforeAnOddChunk", 3 * Block + 2000, 0, 999},
                      SoundCase{"BeforeMuchElse", 3 * Block + 2000, 0, 5 * Block + 3},
                      SoundCase{"OfAFewWordsBeforeAChunk", 2000, 0, 3000}),
    NameOf);

TEST(PictureOfScanTest, OfAnyFileShowsWhatItsLoopsRead) {
  std::mt19937 random(20261126);  // NOLINT(cert-msc51-cpp): the same files every time
  std::uniform_int_distribution<std::size_t> anySize(0, 4 * Block);
  const TemporaryFolder folder;
  for (int i = 0; i < 60; ++i) {
    const auto samples = anySize(random) / (1 + static_cast<std::size_t>(i % 40));
    const WavParts parts{.samples = Noise(samples),
                         .before = Noise(anySize(random) / 100),
                         .behind = Noise(anySize(random) / (i % 2 == 0 ? 50 : 1))};
    folder.Put("scanned.wav", parts.Bytes());
    const ReadClock clock;
    PeakScan scan(folder.PathOf("scanned.wav"), clock);
    (void)RunToEnd(scan, [](const PassProgress&) { return true; });
    ASSERT_EQ(ColumnsOf(scan.Picture()),
              DrawnLiterally(parts.Bytes(), static_cast<qint64>(parts.Start()),
                             static_cast<qint64>(samples)))
        << samples << " bytes, then " << parts.behind.size();
  }
}

TEST(PictureOfScanTest, OfEveryWordHasNoGap) {
  const TemporaryFolder folder;
  const std::size_t bytes = 2 * Block - 2;
  folder.Put("scanned.wav", WavParts{.samples = Filled(bytes, 100)}.Bytes());
  const ReadClock clock;
  const auto emptyColumns = [&](Coverage coverage) {
    PeakScan scan(folder.PathOf("scanned.wav"), clock, coverage);
    (void)RunToEnd(scan, [](const PassProgress&) { return true; });
    const auto columns = ColumnsOf(scan.Picture());
    return std::count(columns.begin(), columns.end(), LevelRange{});
  };
  EXPECT_GT(emptyColumns(Coverage::Usual), 0);
  EXPECT_EQ(emptyColumns(Coverage::EveryWord), 0);
}

// Three equal blocks are told of; the last one belongs to the words after them.
TEST(PictureOfScanTest, GrowsWithEachPieceAndStaysAsAnAbortLeavesIt) {
  const TemporaryFolder folder;
  folder.Put("scanned.wav", WavParts{.samples = Filled(4 * Block, 100)}.Bytes());
  const ReadClock clock(1);
  PeakScan scan(folder.PathOf("scanned.wav"), clock);
  EXPECT_TRUE(scan.Picture().Columns().empty());
  const Ranges drawn(512, LevelRange{100, 100});
  const Ranges undrawn(512);
  for (std::size_t pieces = 1; pieces <= 2; ++pieces) {
    ASSERT_TRUE(std::holds_alternative<PassGoesOn>(scan.Advance()));
    Ranges expected;
    for (std::size_t quarter = 0; quarter < 4; ++quarter) {
      const auto& part = quarter < pieces ? drawn : undrawn;
      expected.insert(expected.end(), part.begin(), part.end());
    }
    EXPECT_EQ(ColumnsOf(scan.Picture()), expected) << pieces;
  }
  const auto before = ColumnsOf(scan.Picture());
  EXPECT_TRUE(std::holds_alternative<PassAborted>(scan.Abort()));
  EXPECT_EQ(ColumnsOf(scan.Picture()), before);
}

TEST(PictureOfScanTest, OfAFileThatIsNotThereIsEmpty) {
  const TemporaryFolder folder;
  const ReadClock clock;
  PeakScan scan(folder.PathOf("missing.wav"), clock);
  EXPECT_TRUE(std::holds_alternative<WavError>(scan.Advance()));
  EXPECT_TRUE(scan.Picture().Columns().empty());
}

}  // namespace
}  // namespace brindle
