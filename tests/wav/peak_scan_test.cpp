// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/peak_scan.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include <QByteArray>
#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/peak_scan_support.h"
#include "tests/wav/wav_builder.h"
#include "wav/pass.h"

namespace brindle {
namespace {

// Watching a pass, without a file.

struct PercentCase {
  std::string name;
  qint64 position = 0;
  qint64 fileLength = 0;
  int wholePercent = 0;
  float percent = 0;
};

class PercentOfPass : public ::testing::TestWithParam<PercentCase> {};

TEST_P(PercentOfPass, IsTold) {
  const auto& [name, position, fileLength, wholePercent, percent] = GetParam();
  const ReadClock clock;
  PassTimer timer(clock, fileLength);
  const auto progress = timer.ProgressAt(position);
  EXPECT_EQ(progress.wholePercent, wholePercent);
  EXPECT_EQ(progress.percent, percent);
  EXPECT_EQ(progress.elapsed, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PercentOfPass,
    ::testing::Values(PercentCase{"NothingMuch", 1, 1000000, 0, 0.0001F},
                      PercentCase{"BelowAHalf", 4999, 1000000, 0, 0.4999F},
                      PercentCase{"HalfGoesDownToZero", 5, 1000, 0, 0.5F},
                      PercentCase{"AboveAHalf", 5001, 1000000, 1, 0.5001F},
                      PercentCase{"HalfGoesUpToTwo", 15, 1000, 2, 1.5F},
                      PercentCase{"HalfGoesDownToTwo", 25, 1000, 2, 2.5F},
                      PercentCase{"HalfGoesUpToFortyTwo", 415, 1000, 42, 41.5F},
                      PercentCase{"HalfGoesDownToFortyTwo", 425, 1000, 42, 42.5F},
                      PercentCase{"AThird", 1, 3, 33, 33.3333333F},
                      PercentCase{"TwoThirds", 2, 3, 67, 66.6666667F},
                      PercentCase{"AlmostAll", 996, 1000, 100, 99.6F},
                      PercentCase{"HalfGoesUpToAll", 995, 1000, 100, 99.5F},
                      PercentCase{"All", 1000, 1000, 100, 100},
                      PercentCase{"BehindTheSignedInteger", 3000000000, 4000000000, 75, 75},
                      PercentCase{"BehindTheUnsignedInteger", 5000000000, 8000000000, 62, 62.5F}),
    NameOf);

struct DueCase {
  std::string name;
  double seconds = 0;  // since the last update
  bool isDueAtHalf = false;
  bool isDueAtQuarter = false;
};

class UpdateOfPass : public ::testing::TestWithParam<DueCase> {};

TEST_P(UpdateOfPass, IsDueOnlyBehindItsInterval) {
  const auto& [name, seconds, isDueAtHalf, isDueAtQuarter] = GetParam();
  ReadClock clock;
  clock.JumpAfter(1, seconds);
  const PassTimer timer(clock, 1000);
  EXPECT_EQ(timer.IsDue(UpdateInterval::Half), isDueAtHalf);
  EXPECT_EQ(timer.IsDue(UpdateInterval::Quarter), isDueAtQuarter);
}

INSTANTIATE_TEST_SUITE_P(Cases, UpdateOfPass,
                         ::testing::Values(DueCase{"AtOnce", 0, false, false},
                                           DueCase{"BelowAQuarter", 0.25 - Just, false, false},
                                           DueCase{"AQuarter", 0.25, false, false},
                                           DueCase{"JustBehindAQuarter", 0.25 + Just, false, true},
                                           DueCase{"BelowAHalf", 0.5 - Just, false, true},
                                           DueCase{"AHalf", 0.5, false, true},
                                           DueCase{"JustBehindAHalf", 0.5 + Just, true, true},
                                           DueCase{"LongAfter", 3600, true, true}),
                         NameOf);

TEST(TimerOfPassTest, TellsHowLongThePassHasTaken) {
  ReadClock clock;
  clock.JumpAfter(2, 0.375);
  PassTimer timer(clock, 1000);
  EXPECT_FALSE(timer.IsDue(UpdateInterval::Quarter));
  EXPECT_FALSE(timer.IsDue(UpdateInterval::Half));
  EXPECT_TRUE(timer.IsDue(UpdateInterval::Quarter));
  const auto progress = timer.ProgressAt(30);
  EXPECT_EQ(progress.percent, 3);
  EXPECT_EQ(progress.elapsed, 0.375);
}

TEST(TimerOfPassTest, CountsFromTheLastUpdate) {
  ReadClock clock;
  clock.JumpAfter(1, 0.75);
  PassTimer timer(clock, 1000);
  EXPECT_TRUE(timer.IsDue(UpdateInterval::Half));
  EXPECT_EQ(timer.ProgressAt(10).elapsed, 0.75);
  clock.JumpAfter(1, 0.5);
  EXPECT_FALSE(timer.IsDue(UpdateInterval::Half));
  EXPECT_FALSE(timer.IsDue(UpdateInterval::Half)) << "at the half itself";
  EXPECT_TRUE(timer.IsDue(UpdateInterval::Quarter));
  EXPECT_EQ(timer.ProgressAt(40).elapsed, 1.25);
}

TEST(TimerOfPassTest, ThroughputIsInMebibytes) {
  ReadClock clock;
  clock.JumpAfter(1, 4);
  const PassTimer timer(clock, 1000);
  EXPECT_EQ(timer.Throughput(10485760), 2.5);
}

TEST(TimerOfPassTest, NoTimeGivesNoThroughput) {
  const ReadClock clock;
  const PassTimer timer(clock, 1000);
  EXPECT_EQ(timer.Throughput(1048576), 0);
}

// The scan.

float PercentAt(std::size_t position, std::size_t fileLength) {
  return static_cast<float>(static_cast<double>(position) * 100 / static_cast<double>(fileLength));
}

TEST_F(PeakScanTest, UpdateComesBehindEachBlockAndInNoOtherPlace) {
  const ReadClock clock(1);
  ScriptedObserver observer;
  // The last whole block and the ten words behind it are the tail's.
  const auto scan = Scan({.samples = Noise(5 * Block + 20)}, clock, observer);
  constexpr std::size_t length = 44 + 5 * Block + 20;
  EXPECT_EQ(
      observer.Percents(),
      (std::vector<float>{PercentAt(45, length), PercentAt(45 + Block, length),
                          PercentAt(45 + 2 * Block, length), PercentAt(45 + 3 * Block, length)}));
  EXPECT_FALSE(scan.isAborted);
  for (std::size_t i = 1; i < observer.updates.size(); ++i) {
    EXPECT_GT(observer.updates[i].elapsed, observer.updates[i - 1].elapsed);
  }
}

TEST_F(PeakScanTest, FileWithoutBlocksIsNotTold) {
  const ReadClock clock(1);
  ScriptedObserver observer;
  const auto scan = Scan({.samples = Noise(2 * Block - 2)}, clock, observer);
  EXPECT_TRUE(observer.updates.empty());
  EXPECT_FALSE(scan.isAborted);
}

TEST_F(PeakScanTest, WholePercentOfATieIsEven) {
  const ReadClock clock(1);
  ScriptedObserver observer;
  // The second block at 65618 of 305200 bytes is at 21.5 %.
  const auto scan = Scan({.samples = Noise(305200 - 81), .before = UpTo(82)}, clock, observer);
  ASSERT_EQ(observer.updates.size(), 3U);
  EXPECT_EQ(observer.updates[1].percent, 21.5F);
  EXPECT_EQ(observer.updates[1].wholePercent, 22);
  EXPECT_FALSE(scan.isAborted);
}

TEST_F(PeakScanTest, HalfASecondIsNotYetTimeForAnUpdate) {
  ReadClock clock;
  ScriptedObserver observer;
  clock.JumpAfter(1, 0.5);
  (void)Scan({.samples = Noise(5 * Block)}, clock, observer);
  EXPECT_TRUE(observer.updates.empty());
}

TEST_F(PeakScanTest, UpdateComesJustBehindHalfASecond) {
  ReadClock clock;
  ScriptedObserver observer;
  // The start and two blocks at one moment.
  clock.JumpAfter(3, 0.5 + Just);
  (void)Scan({.samples = Noise(6 * Block)}, clock, observer);
  EXPECT_EQ(observer.Percents(), std::vector<float>{PercentAt(45 + 2 * Block, 44 + 6 * Block)});
  EXPECT_NEAR(observer.updates[0].elapsed, 0.5 + Just, Just / 10);
}

TEST_F(PeakScanTest, NextUpdateComesHalfASecondBehindTheLast) {
  ReadClock clock;
  ScriptedObserver observer;
  observer.onUpdate = [&](std::size_t index) { clock.JumpAfter(2, index == 0 ? 0.5 + Just : 0.5); };
  clock.JumpAfter(1, 10);
  (void)Scan({.samples = Noise(9 * Block)}, clock, observer);
  constexpr std::size_t length = 44 + 9 * Block;
  EXPECT_EQ(observer.Percents(),
            (std::vector<float>{PercentAt(45, length), PercentAt(45 + 3 * Block, length)}));
  EXPECT_EQ(observer.updates[0].elapsed, 10);
  EXPECT_NEAR(observer.updates[1].elapsed, 10.5, 2 * Just);
}

struct LevelsCase {
  std::string name;
  std::size_t endsAt = 0;
  std::int16_t lowest = 0;
  std::int16_t highest = 0;
};

class AbortOfScan : public ::testing::TestWithParam<LevelsCase> {};

TEST_P(AbortOfScan, GivesTheLevelsSoFar) {
  const auto& [name, endsAt, lowest, highest] = GetParam();
  const TemporaryFolder folder;
  folder.Put("scanned.wav",
             WavParts{.samples = Filled(Block, 100) + Filled(Block, -200) + Filled(Block, 300) +
                                 Filled(Block, 400) + Filled(20, -500)}
                 .Bytes());
  const ReadClock clock(1);
  ScriptedObserver observer;
  observer.endsAt = endsAt;
  const auto scan = ScanPeaks(folder.PathOf("scanned.wav"), clock, observer);
  EXPECT_EQ(scan.lowest, lowest);
  EXPECT_EQ(scan.highest, highest);
  EXPECT_EQ(scan.isAborted, endsAt != 0);
  EXPECT_EQ(TextOf(scan.error), "no error");
  EXPECT_EQ(observer.updates.size(), endsAt == 0 ? 3 : endsAt);
}

INSTANTIATE_TEST_SUITE_P(Cases, AbortOfScan,
                         ::testing::Values(LevelsCase{"AtTheFirstBlock", 1, 0, 100},
                                           LevelsCase{"AtTheSecondBlock", 2, -200, 100},
                                           LevelsCase{"AtTheLastBlock", 3, -200, 300},
                                           LevelsCase{"Never", 0, -500, 400}),
                         NameOf);

struct ThroughputCase {
  std::string name;
  std::size_t dataBytes = 0;
  std::size_t start = 45;
  std::size_t endPosition = 0;  // of the loops
};

class ThroughputOfScan : public ::testing::TestWithParam<ThroughputCase> {};

TEST_P(ThroughputOfScan, AddsTheStartToTheEnd) {
  const auto& [name, dataBytes, start, endPosition] = GetParam();
  const TemporaryFolder folder;
  folder.Put("scanned.wav", WavParts{.samples = Noise(dataBytes), .before = UpTo(start)}.Bytes());
  ReadClock clock;
  ScriptedObserver observer;
  // The checks behind the blocks are read after the jump, and one of them is told.
  clock.JumpAfter(1, 0.75);
  const auto scan = ScanPeaks(folder.PathOf("scanned.wav"), clock, observer);
  EXPECT_EQ(scan.throughput,
            static_cast<float>(static_cast<double>(endPosition + start + 2) / 0.75 / MebiByte));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ThroughputOfScan,
    ::testing::Values(ThroughputCase{"NoSamples", 0, 45, 45}, ThroughputCase{"OneWord", 2, 45, 47},
                      ThroughputCase{"OddByteIsNotVisited", 3, 45, 47},
                      ThroughputCase{"SamplesFarBehind", 20, 5000, 5020},
                      ThroughputCase{"Block", Block, 45, 45 + Block},
                      ThroughputCase{"ThreeBlocksAndTenWords", 3 * Block + 20, 45, 65 + 3 * Block},
                      ThroughputCase{"BlocksFarBehind", 3 * Block + 20, 777, 797 + 3 * Block}),
    NameOf);

TEST_F(PeakScanTest, NoTimeGivesNoThroughput) {
  const ReadClock clock;
  ScriptedObserver observer;
  const auto scan = Scan({.samples = Noise(3 * Block)}, clock, observer);
  EXPECT_EQ(scan.throughput, 0);
}

TEST_F(PeakScanTest, ThroughputOfAnAbortIsThatOfTheBlockItEndedBehind) {
  ReadClock clock;
  ScriptedObserver observer;
  observer.endsAt = 1;
  clock.JumpAfter(3, 2);
  const auto scan = Scan({.samples = Noise(6 * Block)}, clock, observer);
  EXPECT_TRUE(scan.isAborted);
  EXPECT_EQ(scan.throughput, static_cast<float>((45 + 2 * Block + 45 + 2) / 2.0 / MebiByte));
}

TEST_F(PeakScanTest, HeaderCutWithinItsLengthHasNoSamples) {
  const ReadClock clock(1);
  for (std::size_t cut = 1; cut <= 4; ++cut) {
    auto bytes = WavParts{.declared = 0xFFFFFFFF}.Bytes();
    bytes.resize(bytes.size() - cut);
    Folder().Put("cut.wav", bytes);
    ScriptedObserver observer;
    const auto scan = ScanPeaks(Folder().PathOf("cut.wav"), clock, observer);
    EXPECT_EQ(TextOf(scan.error), "no error") << cut;
    EXPECT_EQ(scan.lowest, 0) << cut;
    EXPECT_EQ(scan.highest, 0) << cut;
    EXPECT_TRUE(observer.updates.empty());
  }
}

TEST_F(PeakScanTest, TagIsFoundAtEveryPlaceTheFileMayEndBehindIt) {
  const ReadClock clock(1);
  // Around the places where a search that reads in pieces could lose it.
  for (const std::size_t middle : {std::size_t{4096}, Block, 2 * Block}) {
    for (std::size_t tag = middle - 8; tag <= middle + 8; ++tag) {
      for (std::size_t cut = 0; cut <= 4; ++cut) {
        auto bytes = WavParts{.before = UpTo(tag + 9), .declared = 0xFFFFFFFF}.Bytes();
        bytes.resize(bytes.size() - cut);
        Folder().Put("cut.wav", bytes);
        ScriptedObserver observer;
        const auto scan = ScanPeaks(Folder().PathOf("cut.wav"), clock, observer);
        ASSERT_EQ(TextOf(scan.error), "no error") << "tag at byte " << tag << ", cut " << cut;
        // Only a whole length field is there to be looked at.
        EXPECT_EQ(scan.lowest, cut == 0 ? -1 : 0);
        EXPECT_EQ(scan.highest, 0);
      }
    }
  }
}

// Files that cannot be scanned.

TEST_F(FailureOfScan, MissingFile) {
  EXPECT_EQ(
      ErrorOfScan(Folder().PathOf("missing.wav")),
      "Cannot read " + NativePath(Folder().PathOf("missing.wav")) + ": " + ReasonOf(NoSuchFile));
  EXPECT_TRUE(Folder().Names().empty());
}

TEST_F(FailureOfScan, NoPath) { EXPECT_TRUE(ErrorOfScan({}).starts_with("Cannot read : ")); }

TEST_F(FailureOfScan, FolderIsNotAFile) {
  EXPECT_EQ(ErrorOfScan(Folder().Path()),
            "Cannot read " + NativePath(Folder().Path()) + ": not a file");
}

TEST_F(FailureOfScan, NoSampleDataAnyMore) {
  Folder().Put("other.wav", std::string(200000, 'd') + "DATa");
  EXPECT_EQ(ErrorOfScan(Folder().PathOf("other.wav")),
            "Cannot read " + NativePath(Folder().PathOf("other.wav")) + ": no sample data");
}

TEST_F(FailureOfScan, EmptyFile) {
  Folder().Put("empty.wav", "");
  EXPECT_EQ(ErrorOfScan(Folder().PathOf("empty.wav")),
            "Cannot read " + NativePath(Folder().PathOf("empty.wav")) + ": no sample data");
}

TEST_F(PeakScanTest, FileThatGrowsMeanwhileIsScannedAsItWas) {
  const auto path = Folder().PathOf("growing.wav");
  Folder().Put("growing.wav",
               WavParts{.samples = Filled(4 * Block, 7), .declared = 0xFFFFFFFF}.Bytes());
  const ReadClock clock(1);
  ScriptedObserver observer;
  observer.onUpdate = [&](std::size_t) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(QByteArray::fromStdString(Filled(Block, 1000)));
  };
  const auto scan = ScanPeaks(path, clock, observer);
  EXPECT_EQ(TextOf(scan.error), "no error");
  EXPECT_EQ(observer.updates.size(), 3U);
  EXPECT_EQ(scan.highest, 7);
}

// Every word, and the words that a scan leaves out.

// Which words of some samples the loops of a scan read, written down word by word.
std::vector<bool> SeenWords(qint64 start, qint64 length, qint64 fileLength) {
  std::vector<bool> seen(static_cast<std::size_t>(std::max<qint64>(length / 2, 0)));
  const auto read = [&](qint64 position) {
    const qint64 offset = position - start;
    if (offset >= 0 && offset % 2 == 0 && offset / 2 < static_cast<qint64>(seen.size())) {
      seen[static_cast<std::size_t>(offset / 2)] = true;
    }
  };
  ForEachScannedWord(start, length, fileLength, read);
  return seen;
}

struct UnseenCase {
  std::string name;
  std::size_t samples = 0;  // bytes
  std::size_t behind = 0;   // bytes
};

class UnseenWords : public ::testing::TestWithParam<UnseenCase> {};

// Each word in turn would be cut off, in steps that meet every kind of place.
TEST_P(UnseenWords, AreThoseThatTheLoopsOfAScanDoNotRead) {
  const auto& [name, bytes, behind] = GetParam();
  const TemporaryFolder folder;
  const WavParts parts{.samples = Filled(bytes, 20000), .behind = std::string(behind, 'x')};
  folder.Put("scanned.wav", parts.Bytes());
  const auto path = folder.PathOf("scanned.wav");
  const auto length = static_cast<qint64>(bytes);
  const auto seen = SeenWords(45, length, 44 + length + static_cast<qint64>(behind));
  const auto unseen = std::count(seen.begin(), seen.end(), false);

  const auto all = CutOffUnseen(path, 2);
  EXPECT_EQ(all.cutOff, unseen);
  EXPECT_EQ(all.words, length / 2);
  EXPECT_EQ(CutOffUnseen(path, 1.5).cutOff, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, UnseenWords,
    ::testing::Values(UnseenCase{"None", 0, 0}, UnseenCase{"OneWord", 2, 0},
                      UnseenCase{"JustBelowABlock", Block - 2, 0}, UnseenCase{"ABlock", Block, 0},
                      UnseenCase{"JustAboveABlock", Block + 2, 0},
                      UnseenCase{"OneSecondOfMono", 88200, 0},
                      UnseenCase{"ManyBlocks", 5 * Block, 0},
                      UnseenCase{"ManyBlocksAndWords", 5 * Block + 1234, 0},
                      UnseenCase{"AnOddByte", 3 * Block + 7, 0},
                      UnseenCase{"AByteAfterThem", 3 * Block + 20, 1},
                      UnseenCase{"AWordAfterThem", 3 * Block + 20, 2},
                      UnseenCase{"AnOddChunkAfterThem", 3 * Block + 2000, 999},
                      UnseenCase{"AChunkAfterThem", 3 * Block + 2000, 1000},
                      UnseenCase{"ALongerChunkAfterThem", 3 * Block + 2000, 5000},
                      UnseenCase{"ABlockAfterThem", 3 * Block + 2000, Block},
                      UnseenCase{"MuchAfterThem", 3 * Block + 2000, 5 * Block + 3},
                      UnseenCase{"AChunkAfterAFewWords", 2000, 3000}),
    NameOf);

TEST(UnseenWordsTest, OfAFileThatCannotBeReadAreNone) {
  const TemporaryFolder folder;
  EXPECT_EQ(CutOffUnseen(folder.PathOf("missing.wav"), 100).cutOff, 0);
  folder.Put("text.wav", std::string("nothing to hear"));
  EXPECT_EQ(CutOffUnseen(folder.PathOf("text.wav"), 100).cutOff, 0);
}

TEST(EveryWordTest, IsLookedAtWhereTheUsualScanLeavesABlockOut) {
  const TemporaryFolder folder;
  for (const std::size_t bytes : {std::size_t{2}, Block - 2, Block, Block + 2, 3 * Block + 1234}) {
    for (const std::size_t at : {std::size_t{0}, bytes / 4 * 2, bytes - 2}) {
      auto samples = Filled(bytes, 100);
      const std::int16_t loud = -30000;
      std::memcpy(samples.data() + at, &loud, sizeof(loud));
      folder.Put("scanned.wav", WavParts{.samples = samples, .behind = "LIST"}.Bytes());
      const ReadClock clock;
      ScriptedObserver observer;
      const auto scan =
          ScanPeaks(folder.PathOf("scanned.wav"), clock, observer, Coverage::EveryWord);
      EXPECT_EQ(scan.lowest, loud) << bytes << " at " << at;
      EXPECT_EQ(scan.highest, bytes > 2 ? 100 : 0);
    }
  }
}

}  // namespace
}  // namespace brindle
