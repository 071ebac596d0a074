// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/normalization.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"
#include "tests/wav/normalization_support.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/wav_builder.h"
#include "wav/gain.h"
#include "wav/pass.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr std::size_t MultiBlock = 64 * Block;
constexpr std::size_t Start = 45;

struct Place {
  std::size_t position = 0;  // that is told
  std::size_t written = 0;   // bytes of the output by then
};

struct LoopCase {
  std::string name;
  Buffering buffering = Buffering::Single;
  bool isInPlace = false;
  std::size_t dataBytes = 0;
  std::string behind;
  std::vector<Place> places;
};

Place BehindBlock(std::size_t position, std::size_t length) {
  return {position, position - 1 + length};
}

// The last whole block is left to the words.
std::vector<Place> FourSingleBlocks() {
  std::vector<Place> places;
  for (std::size_t i = 0; i < 4; ++i) {
    places.push_back(BehindBlock(Start + i * Block, Block));
  }
  return places;
}

constexpr std::size_t MultiLength = 2 * MultiBlock + 2 * Block + 7;

// The single blocks behind the multi blocks are not told, the three words behind them are.
std::vector<Place> MultiBlocksAndThreeWords(std::size_t multiBlocks) {
  std::vector<Place> places;
  for (std::size_t i = 0; i < multiBlocks; ++i) {
    places.push_back(BehindBlock(Start + i * MultiBlock, MultiBlock));
  }
  for (const std::size_t word : {0U, 2U, 4U}) {
    places.push_back(BehindBlock(Start + MultiLength - 7 + word, 2));
  }
  return places;
}

std::vector<Place> Words(std::size_t dataBytes) {
  std::vector<Place> places;
  for (std::size_t word = 0; word + 2 <= dataBytes; word += 2) {
    places.push_back(BehindBlock(Start + word, 2));
  }
  return places;
}

// Two bytes behind the samples are enough for the last whole block to be one of the blocks.
const std::vector<LoopCase> Loops{
    {"SingleBlocks", Buffering::Single, false, 5 * Block + 20, "", FourSingleBlocks()},
    {"SingleBlocksInPlace", Buffering::Single, true, 5 * Block + 20, "", FourSingleBlocks()},
    {"SingleWithAnOddByte", Buffering::Single, false, 5 * Block + 21, "", FourSingleBlocks()},
    {"SingleWithAChunkBehind", Buffering::Single, true, 4 * Block + 21, "xx", FourSingleBlocks()},
    {"SingleWithoutBlocks", Buffering::Single, false, 2 * Block - 2, "", {}},
    {"Multi", Buffering::Multi, false, MultiLength, "", MultiBlocksAndThreeWords(1)},
    {"MultiWithAChunkBehind", Buffering::Multi, true, MultiLength, "xx",
     MultiBlocksAndThreeWords(2)},
    {"MultiWords", Buffering::Multi, false, 10, "", Words(10)},
    {"MultiWordsInPlace", Buffering::Multi, true, 11, "xx", Words(11)},
    {"MultiWordBehindASingleBlock",
     Buffering::Multi,
     false,
     Block + 2,
     "",
     {{Start + Block, 46 + Block}}},
    {"NoSamples", Buffering::Multi, false, 0, "", {}},
};

class LoopOfPass : public ::testing::TestWithParam<LoopCase> {
 protected:
  [[nodiscard]] std::vector<float> ExpectedPercents(std::size_t count) const {
    const auto length = static_cast<double>(folder_.Source().size());
    std::vector<float> percents;
    for (std::size_t i = 0; i < count; ++i) {
      const auto position = static_cast<double>(GetParam().places[i].position);
      percents.push_back(static_cast<float>(position * 100 / length));
    }
    return percents;
  }

  // Runs the pass with an update at each place that has one.
  Ended Run(WatchedPass& pass, ObserverOfPass& observer) const {
    ScriptedQuestions questions;
    EXPECT_EQ(pass.Open(folder_.Files(GetParam().isInPlace), questions), Opened::Yes)
        << TextOf(pass.Error());
    const ReadClock clock(1);
    return pass.Run(GainTable(Gain), GetParam().buffering, clock, observer);
  }

  [[nodiscard]] const PassFolder& Folder() const { return folder_; }

 private:
  PassFolder folder_{{.samples = Noise(GetParam().dataBytes), .behind = GetParam().behind}};
};

TEST_P(LoopOfPass, TellsAndHasWrittenAllUntilThen) {
  const auto& row = GetParam();
  ObserverOfPass observer;
  observer.onUpdate = [&](std::size_t i) {
    ASSERT_LT(i, row.places.size());
    EXPECT_EQ(FirstDifference(Folder().Output(row.isInPlace),
                              Folder().WrittenTo(row.places[i].written, row.isInPlace)),
              "none")
        << "at update " << i;
  };
  WatchedPass pass;
  EXPECT_STREQ(TextOf(Run(pass, observer)), "completed");
  EXPECT_EQ(observer.Percents(), ExpectedPercents(row.places.size()));
  EXPECT_EQ(FirstDifference(Folder().Output(row.isInPlace), Folder().Mapped()), "none");
  EXPECT_EQ(TextOf(pass.Error()), "no error");
  for (std::size_t i = 1; i < observer.updates.size(); ++i) {
    EXPECT_GT(observer.updates[i].elapsed, observer.updates[i - 1].elapsed);
  }
  if (!row.isInPlace) {
    EXPECT_EQ(FirstDifference(Folder().Bytes("source.wav"), Folder().Source()), "none");
  }
}

TEST_P(LoopOfPass, WritesNothingMoreBehindAnAbort) {
  const auto& row = GetParam();
  for (std::size_t endsAt = 1; endsAt <= row.places.size(); ++endsAt) {
    Folder().Put("source.wav", Folder().Source());
    QFile::remove(Folder().PathOf("target.wav"));
    ObserverOfPass observer;
    observer.endsAt = endsAt;
    {
      WatchedPass pass;
      EXPECT_STREQ(TextOf(Run(pass, observer)), "aborted");
      EXPECT_EQ(pass.Throughput(), 0);
      EXPECT_EQ(TextOf(pass.Error()), "no error");
    }
    EXPECT_EQ(observer.Percents(), ExpectedPercents(endsAt));
    EXPECT_EQ(FirstDifference(Folder().Output(row.isInPlace),
                              Folder().WrittenTo(row.places[endsAt - 1].written, row.isInPlace)),
              "none")
        << "behind update " << endsAt;
    if (!row.isInPlace) {
      EXPECT_EQ(FirstDifference(Folder().Bytes("source.wav"), Folder().Source()), "none");
    }
  }
}

TEST_P(LoopOfPass, DestroyedBetweenTwoPiecesLeavesWhatAnAbortLeaves) {
  const auto& row = GetParam();
  for (std::size_t pieces = 1; pieces <= row.places.size(); ++pieces) {
    Folder().Put("source.wav", Folder().Source());
    QFile::remove(Folder().PathOf("target.wav"));
    {
      Normalization pass(Folder().Files(row.isInPlace));
      ASSERT_TRUE(pass.Open());
      const ReadClock clock(1);
      pass.Start(GainTable(Gain), row.buffering, clock);
      for (std::size_t i = 0; i < pieces; ++i) {
        EXPECT_TRUE(std::holds_alternative<PassGoesOn>(pass.Advance()));
      }
    }
    EXPECT_EQ(FirstDifference(Folder().Output(row.isInPlace),
                              Folder().WrittenTo(row.places[pieces - 1].written, row.isInPlace)),
              "none")
        << "after " << pieces << " pieces";
    if (!row.isInPlace) {
      EXPECT_EQ(FirstDifference(Folder().Bytes("source.wav"), Folder().Source()), "none");
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, LoopOfPass, ::testing::ValuesIn(Loops), NameOf);

// The loops that are told, each alone in its file, with the positions of its first checks.

struct IntervalCase {
  std::string name;
  Buffering buffering = Buffering::Single;
  double interval = 0;  // seconds
  std::size_t step = 0;
  std::size_t dataBytes = 0;
  std::string behind;
};

class IntervalOfPass : public ::testing::TestWithParam<IntervalCase> {
 protected:
  // The percentages of the updates, counted in checks from 0.
  [[nodiscard]] std::vector<float> PercentsAt(const std::vector<std::size_t>& checks) const {
    std::vector<float> percents;
    for (const auto check : checks) {
      percents.push_back(static_cast<float>(static_cast<double>(Start + check * GetParam().step) *
                                            100 / static_cast<double>(folder_.Source().size())));
    }
    return percents;
  }

  void Run(const Clock& clock, ObserverOfPass& observer) const {
    ScriptedQuestions questions;
    WatchedPass pass;
    ASSERT_EQ(pass.Open(folder_.Files(), questions), Opened::Yes) << TextOf(pass.Error());
    EXPECT_EQ(pass.Run(GainTable(Gain), GetParam().buffering, clock, observer), Ended::Completed);
  }

 private:
  PassFolder folder_{{.samples = Noise(GetParam().dataBytes), .behind = GetParam().behind}};
};

TEST_P(IntervalOfPass, TellsNothingAtTheInterval) {
  ReadClock clock;
  ObserverOfPass observer;
  clock.JumpAfter(1, GetParam().interval);
  Run(clock, observer);
  EXPECT_TRUE(observer.updates.empty());
}

TEST_P(IntervalOfPass, TellsJustBehindTheInterval) {
  ReadClock clock;
  ObserverOfPass observer;
  // The start and one check at one moment.
  clock.JumpAfter(2, GetParam().interval + Just);
  Run(clock, observer);
  EXPECT_EQ(observer.Percents(), PercentsAt({1}));
  ASSERT_EQ(observer.updates.size(), 1U);
  EXPECT_NEAR(observer.updates[0].elapsed, GetParam().interval + Just, Just / 10);
}

TEST_P(IntervalOfPass, CountsTheNextFromTheLast) {
  const double interval = GetParam().interval;
  ReadClock clock;
  ObserverOfPass observer;
  observer.onUpdate = [&](std::size_t index) {
    clock.JumpAfter(1, index == 0 ? interval + Just : interval);
  };
  clock.JumpAfter(1, 100);
  Run(clock, observer);
  EXPECT_EQ(observer.Percents(), PercentsAt({0, 2}));
  ASSERT_EQ(observer.updates.size(), 2U);
  EXPECT_EQ(observer.updates[0].elapsed, 100);
  EXPECT_NEAR(observer.updates[1].elapsed, 100 + interval, 2 * Just);
}

// With two bytes behind them the samples are all whole blocks, and no word is left.
INSTANTIATE_TEST_SUITE_P(
    Cases, IntervalOfPass,
    ::testing::Values(IntervalCase{"SingleBlocks", Buffering::Single, 0.25, Block, 6 * Block, "xx"},
                      IntervalCase{"MultiBlocks", Buffering::Multi, 0.5, MultiBlock, 3 * MultiBlock,
                                   "xx"},
                      IntervalCase{"MultiWords", Buffering::Multi, 0.25, 2, 20, ""}),
    NameOf);

struct LengthCase {
  std::string name;
  Buffering buffering = Buffering::Single;
  bool isInPlace = false;
  std::string behind;
};

class ThroughputOfPass : public ::testing::TestWithParam<LengthCase> {};

TEST_P(ThroughputOfPass, CountsTheWholeFile) {
  const auto& [name, buffering, isInPlace, behind] = GetParam();
  const PassFolder folder({.samples = Noise(3 * Block), .before = UpTo(1001), .behind = behind});
  ReadClock clock;
  clock.JumpAfter(1, 1.5);
  ObserverOfPass observer;
  ScriptedQuestions questions;
  WatchedPass pass;
  ASSERT_EQ(pass.Open(folder.Files(isInPlace), questions), Opened::Yes);
  EXPECT_EQ(pass.Throughput(), 0);
  ASSERT_EQ(pass.Run(GainTable(Gain), buffering, clock, observer), Ended::Completed);
  EXPECT_DOUBLE_EQ(pass.Throughput(),
                   static_cast<double>(1000 + 3 * Block + behind.size()) / 1.5 / MebiByte);
}

INSTANTIATE_TEST_SUITE_P(Cases, ThroughputOfPass,
                         ::testing::Values(LengthCase{"Single", Buffering::Single, false, ""},
                                           LengthCase{"SingleInPlace", Buffering::Single, true, ""},
                                           LengthCase{"Multi", Buffering::Multi, false, ""},
                                           LengthCase{"ChunkBehind", Buffering::Multi, false,
                                                      std::string(5000, 'x')},
                                           LengthCase{"ChunkBehindInPlace", Buffering::Single, true,
                                                      std::string(5000, 'x')}),
                         NameOf);

TEST(ThroughputOfPassTest, IsNoneWhereNoTimeHasPassed) {
  const PassFolder folder({.samples = Noise(100)});
  const ReadClock clock;
  ObserverOfPass observer;
  ScriptedQuestions questions;
  WatchedPass pass;
  ASSERT_EQ(pass.Open(folder.Files(), questions), Opened::Yes);
  ASSERT_EQ(pass.Run(GainTable(Gain), Buffering::Single, clock, observer), Ended::Completed);
  EXPECT_EQ(pass.Throughput(), 0);
}

// The files of a pass.

TEST_F(SourceOfPass, Missing) {
  QFile::remove(Source());
  ExpectTargetLeftAlone(CannotReadBecause(Source(), ReasonOf(NoSuchFile)));
}

TEST_F(SourceOfPass, MissingInPlaceIsNotCreated) {
  QFile::remove(Source());
  EXPECT_TRUE(RunInPlace().ends_with(NativePath(Source()) + ": " + ReasonOf(NoSuchFile)));
  EXPECT_EQ(Folder().Names(), Names{});
}

TEST_F(SourceOfPass, Folder) {
  QFile::remove(Source());
  ASSERT_TRUE(QDir().mkdir(Source()));
  ExpectTargetLeftAlone(CannotReadBecause(Source(), "not a file"));
  EXPECT_TRUE(RunInPlace().ends_with(NativePath(Source()) + ": not a file"));
}

TEST_F(SourceOfPass, HasNoSampleDataAnyMore) {
  Folder().Put("source.wav", std::string(100000, 'd') + "Data");
  ExpectTargetLeftAlone(CannotReadBecause(Source(), "no sample data"));
  EXPECT_TRUE(RunInPlace().ends_with(NativePath(Source()) + ": no sample data"));
  EXPECT_TRUE(Folder().Bytes("source.wav") == std::string(100000, 'd') + "Data");
}

TEST_F(SourceOfPass, IsEmpty) {
  Folder().Put("source.wav", "");
  ExpectTargetLeftAlone(CannotReadBecause(Source(), "no sample data"));
}

class CutSource : public ::testing::TestWithParam<int> {};

TEST_P(CutSource, WithinTheHeaderIsCopiedAndNothingIsMapped) {
  const TemporaryFolder folder;
  auto bytes = WavParts{.declared = 0xFFFFFFFF}.Bytes();
  bytes.resize(bytes.size() - static_cast<std::size_t>(GetParam()));
  folder.Put("source.wav", bytes);
  for (const auto buffering : {Buffering::Single, Buffering::Multi}) {
    for (const bool isInPlace : {false, true}) {
      QFile::remove(folder.PathOf("target.wav"));
      ScriptedQuestions questions;
      EXPECT_EQ(RunPass({.source = folder.PathOf("source.wav"),
                         .target = folder.PathOf("target.wav"),
                         .isInPlace = isInPlace},
                        buffering, Gain, questions),
                "completed");
      EXPECT_EQ(folder.Bytes("source.wav"), bytes);
      if (!isInPlace) {
        EXPECT_EQ(folder.Bytes("target.wav"), bytes);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Bytes, CutSource, ::testing::Values(0, 1, 2, 3, 4),
                         ::testing::PrintToStringParamName());

TEST_F(ChangingSource, GrowsAndIsTakenAsItWas) {
  for (const auto& moment : Moments) {
    StartAnew();
    const std::string more(3 * Block, 'm');
    EXPECT_EQ(RunWith(moment,
                      [&] {
                        QFile file(Source());
                        ASSERT_TRUE(file.open(QIODevice::Append));
                        file.write(QByteArray::fromStdString(more));
                      }),
              "completed")
        << moment.name;
    EXPECT_EQ(FirstDifference(Folder().Bytes("source.wav"),
                              (moment.isInPlace ? Folder().Mapped() : Folder().Source()) + more),
              "none")
        << moment.name;
    if (!moment.isInPlace) {
      ExpectMapped("target.wav");
    }
  }
}

// Targets.

TEST_F(TargetOfPass, IsMade) {
  for (const auto buffering : {Buffering::Single, Buffering::Multi}) {
    QFile::remove(Target());
    EXPECT_EQ(RunTo(Target(), buffering), "completed");
    ExpectMapped("target.wav");
  }
  ExpectNothingAsked();
  ExpectSourceIntact();
  EXPECT_EQ(Folder().Names(), (Names{"source.wav", "target.wav"}));
}

TEST_F(TargetOfPass, HoldsTheHeaderBeforeThePassRuns) {
  WatchedPass pass;
  ASSERT_EQ(pass.Open(Folder().Files(), Questions()), Opened::Yes);
  EXPECT_EQ(Folder().Bytes("target.wav"), Folder().Source().substr(0, 44));
}

TEST_F(TargetOfPass, InPlaceIsNotLookedAt) {
  Folder().Put("target.wav", "an older file");
  for (const auto& target : {Target(), u"C:\\Output.wav"_s, Folder().Path(), QString()}) {
    Folder().Put("source.wav", Folder().Source());
    EXPECT_EQ(RunPass({.source = Source(), .target = target, .isInPlace = true}, Buffering::Multi,
                      Gain, Questions()),
              "completed");
    ExpectMapped("source.wav");
  }
  ExpectNothingAsked();
  EXPECT_EQ(Folder().Bytes("target.wav"), "an older file");
  EXPECT_EQ(Folder().Names(), (Names{"source.wav", "target.wav"}));
}

TEST_F(TargetOfPass, RelativePath) { ExpectRefused(u"target.wav"_s, "not an absolute path"); }

TEST_F(TargetOfPass, RelativePathOfAnotherFile) {
  Folder().Put("target.wav", "an older file");
  ExpectRefused(u"target.wav"_s, "not an absolute path");
  EXPECT_EQ(Folder().Bytes("target.wav"), "an older file");
}

TEST_F(TargetOfPass, NoPath) { ExpectRefused({}, "not an absolute path"); }

TEST_F(TargetOfPass, Folder) {
  ASSERT_TRUE(QDir().mkdir(Target()));
  ExpectRefused(Target(), "not a file");
}

TEST_F(TargetOfPass, InAMissingFolder) {
  ExpectRefused(Folder().PathOf("missing/target.wav"), ReasonOf(NoSuchFolder));
}

TEST_F(TargetOfPass, EmptyFileIsReusedWithoutAQuestion) {
  Folder().Put("target.wav", "");
  std::filesystem::create_hard_link(Target().toStdU16String(),
                                    Folder().PathOf("linked.wav").toStdU16String());
  EXPECT_EQ(RunTo(Target()), "completed");
  ExpectNothingAsked();
  ExpectMapped("target.wav");
  ExpectMapped("linked.wav");
  ExpectSourceIntact();
}

TEST_F(TargetOfPass, FileIsReplacedAfterAYes) {
  // Longer than what comes, so that a rest of it would show.
  Folder().Put("target.wav", std::string(20 * Block, 'o'));
  Questions().answer = true;
  Questions().whenAsked = [&] {
    EXPECT_TRUE(Folder().Bytes("target.wav") == std::string(20 * Block, 'o'));
  };
  EXPECT_EQ(RunTo(Target()), "completed");
  EXPECT_EQ(Questions().asked, 1);
  EXPECT_EQ(Questions().worksInPlace, 0);
  ExpectMapped("target.wav");
  ExpectSourceIntact();
}

TEST_F(TargetOfPass, FileStaysAfterANo) {
  Folder().Put("target.wav", "x");
  EXPECT_EQ(RunTo(Target()), "refused");
  EXPECT_EQ(Questions().asked, 1);
  EXPECT_EQ(Folder().Bytes("target.wav"), "x");
  ExpectSourceIntact();
  EXPECT_EQ(Folder().Names(), (Names{"source.wav", "target.wav"}));
}

TEST_F(TargetOfPass, RefusalIsNoError) {
  Folder().Put("target.wav", "x");
  WatchedPass pass;
  EXPECT_EQ(pass.Open(Folder().Files(), Questions()), Opened::Refused);
  EXPECT_EQ(TextOf(pass.Error()), "no error");
}

TEST_F(TargetOfPass, OtherNamesOfADeletedFileKeepIt) {
  Folder().Put("target.wav", "an older file");
  std::filesystem::create_hard_link(Target().toStdU16String(),
                                    Folder().PathOf("linked.wav").toStdU16String());
  Questions().answer = true;
  EXPECT_EQ(RunTo(Target()), "completed");
  EXPECT_EQ(Questions().asked, 1);
  ExpectMapped("target.wav");
  EXPECT_EQ(Folder().Bytes("linked.wav"), "an older file");
}

// Targets that are the source.

TEST_F(SameFileOfPass, EqualPath) {
  EXPECT_EQ(RunTo(Source()), "completed");
  ExpectWorkedInPlace();
}

TEST_F(SameFileOfPass, RelativePath) {
  EXPECT_EQ(RunTo(QDir().relativeFilePath(Source())), "completed");
  ExpectWorkedInPlace();
}

TEST_F(SameFileOfPass, RoundaboutPath) {
  ASSERT_TRUE(QDir().mkdir(Folder().PathOf("folder")));
  EXPECT_EQ(RunTo(Folder().PathOf("folder/.././/source.wav")), "completed");
  ExpectWorkedInPlace();
}

TEST_F(SameFileOfPass, HardLink) {
  std::filesystem::create_hard_link(Source().toStdU16String(), Target().toStdU16String());
  Questions().answer = true;
  EXPECT_EQ(RunTo(Target()), "completed");
  ExpectWorkedInPlace();
  ExpectMapped("target.wav");
  EXPECT_TRUE(std::filesystem::equivalent(Source().toStdU16String(), Target().toStdU16String()));
}

TEST_F(SameFileOfPass, HardLinkMadeUnderTheQuestionDeletesNothing) {
  Folder().Put("target.wav", "an older file");
  ExpectNothingDeletedAfter([&] {
    QFile::remove(Target());
    std::filesystem::create_hard_link(Source().toStdU16String(), Target().toStdU16String());
  });
}

TEST_F(SameFileOfPass, CopyIsAnotherFile) {
  ASSERT_TRUE(QFile::copy(Source(), Target()));
  EXPECT_EQ(RunTo(Target()), "refused");
  EXPECT_EQ(Questions().asked, 1);
  EXPECT_EQ(Questions().worksInPlace, 0);
  ExpectSourceIntact();
}

}  // namespace
}  // namespace brindle
