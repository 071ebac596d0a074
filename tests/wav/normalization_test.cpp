// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/normalization.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <gtest/gtest.h>

#include "tests/app/settings/child_process.h"
#include "tests/app/settings/temporary_folder.h"
#include "tests/support/named_case.h"
#include "tests/wav/pass_support.h"
#include "wav/gain.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

using Names = std::vector<std::string>;
using Opened = Normalization::Opened;
using Ended = Normalization::Ended;

constexpr double MebiByte = 1024.0 * 1024.0;
constexpr double Gain = -1.75;
constexpr double Just = 1e-9;  // seconds
constexpr std::size_t Block = 65536;
constexpr std::size_t MultiBlock = 64 * Block;
constexpr std::size_t Start = 45;

/// A folder with a source of these parts, and a place for its target. What is behind the samples
/// must be too short for a block to reach it.
class PassFolder : public TemporaryFolder {
 public:
  explicit PassFolder(const WavParts& parts)
      : source_(WavBytes(parts)),
        mapped_(MappedWords(source_, parts.start, parts.samples.size(), Gain)) {
    Put("source.wav", source_);
  }

  [[nodiscard]] PassFiles Files(bool isInPlace = false) const {
    return {.source = PathOf("source.wav"), .target = PathOf("target.wav"), .isInPlace = isInPlace};
  }
  [[nodiscard]] PassFiles FilesTo(const QString& target) const {
    return {.source = PathOf("source.wav"), .target = target};
  }
  /// The bytes of the source.
  [[nodiscard]] const std::string& Source() const { return source_; }
  /// The bytes with every word of the samples mapped by the gain.
  [[nodiscard]] const std::string& Mapped() const { return mapped_; }

  /// What the output holds when the words below `end` (a count of bytes) are written.
  [[nodiscard]] std::string WrittenTo(std::size_t end, bool isInPlace) const {
    return mapped_.substr(0, end) + (isInPlace ? source_.substr(end) : std::string());
  }
  [[nodiscard]] std::string Output(bool isInPlace) const {
    return Bytes(isInPlace ? "source.wav" : "target.wav");
  }

 private:
  std::string source_;
  std::string mapped_;
};

// Big files are not printed when they differ.
std::string FirstDifference(const std::string& actual, const std::string& expected) {
  if (actual == expected) {
    return "none";
  }
  std::size_t at = 0;
  while (at < actual.size() && at < expected.size() && actual[at] == expected[at]) {
    ++at;
  }
  return "at byte " + std::to_string(at) + ", lengths " + std::to_string(actual.size()) + " and " +
         std::to_string(expected.size());
}

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
  Ended Run(Normalization& pass, ScriptedObserver& observer) const {
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
  ScriptedObserver observer;
  observer.onUpdate = [&](std::size_t i) {
    ASSERT_LT(i, row.places.size());
    EXPECT_EQ(FirstDifference(Folder().Output(row.isInPlace),
                              Folder().WrittenTo(row.places[i].written, row.isInPlace)),
              "none")
        << "at update " << i;
  };
  Normalization pass;
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
    ScriptedObserver observer;
    observer.endsAt = endsAt;
    {
      Normalization pass;
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

  void Run(const Clock& clock, ScriptedObserver& observer) const {
    ScriptedQuestions questions;
    Normalization pass;
    ASSERT_EQ(pass.Open(folder_.Files(), questions), Opened::Yes) << TextOf(pass.Error());
    EXPECT_EQ(pass.Run(GainTable(Gain), GetParam().buffering, clock, observer), Ended::Completed);
  }

 private:
  PassFolder folder_{{.samples = Noise(GetParam().dataBytes), .behind = GetParam().behind}};
};

TEST_P(IntervalOfPass, TellsNothingAtTheInterval) {
  ReadClock clock;
  ScriptedObserver observer;
  clock.JumpAfter(1, GetParam().interval);
  Run(clock, observer);
  EXPECT_TRUE(observer.updates.empty());
}

TEST_P(IntervalOfPass, TellsJustBehindTheInterval) {
  ReadClock clock;
  ScriptedObserver observer;
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
  ScriptedObserver observer;
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
  const PassFolder folder({.samples = Noise(3 * Block), .behind = behind, .start = 1001});
  ReadClock clock;
  clock.JumpAfter(1, 1.5);
  ScriptedObserver observer;
  ScriptedQuestions questions;
  Normalization pass;
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
  ScriptedObserver observer;
  ScriptedQuestions questions;
  Normalization pass;
  ASSERT_EQ(pass.Open(folder.Files(), questions), Opened::Yes);
  ASSERT_EQ(pass.Run(GainTable(Gain), Buffering::Single, clock, observer), Ended::Completed);
  EXPECT_EQ(pass.Throughput(), 0);
}

// The files of a pass.

class FilesOfPass : public ::testing::Test {
 protected:
  [[nodiscard]] std::string RunTo(const QString& target, Buffering buffering = Buffering::Single) {
    return RunPass(folder_.FilesTo(target), buffering, Gain, questions_);
  }
  [[nodiscard]] std::string RunInPlace() {
    return RunPass(folder_.Files(true), Buffering::Single, Gain, questions_);
  }
  [[nodiscard]] std::string Run(bool isInPlace) {
    return isInPlace ? RunInPlace() : RunTo(Target());
  }

  static std::string CannotReadBecause(const QString& path, const std::string& reason) {
    return "Cannot read " + NativeText(path) + ": " + reason;
  }
  static std::string CannotWriteBecause(const QString& path, const std::string& reason) {
    return "Cannot write " + NativeText(path) + ": " + reason;
  }

  void ExpectSourceIntact() const {
    EXPECT_EQ(FirstDifference(folder_.Bytes("source.wav"), folder_.Source()), "none");
  }
  void ExpectNothingAsked() const {
    EXPECT_EQ(questions_.asked, 0);
    EXPECT_EQ(questions_.worksInPlace, 0);
  }
  void ExpectMapped(const char* name) const {
    EXPECT_EQ(FirstDifference(folder_.Bytes(name), folder_.Mapped()), "none");
  }
  /// The pass found out by itself that it works in place.
  void ExpectWorkedInPlace() const {
    EXPECT_EQ(questions_.asked, 0);
    EXPECT_EQ(questions_.worksInPlace, 1);
    ExpectMapped("source.wav");
  }

  [[nodiscard]] const PassFolder& Folder() const { return folder_; }
  [[nodiscard]] QString Source() const { return folder_.PathOf("source.wav"); }
  [[nodiscard]] QString Target() const { return folder_.PathOf("target.wav"); }
  [[nodiscard]] ScriptedQuestions& Questions() { return questions_; }

 private:
  PassFolder folder_{{.samples = Noise(3 * Block + 11), .behind = "LIST and more"}};
  ScriptedQuestions questions_;
};

class SourceOfPass : public FilesOfPass {
 protected:
  // Nothing may become of a target while the source is no good.
  void ExpectTargetLeftAlone(const std::string& message) {
    EXPECT_EQ(RunTo(Target()), message);
    EXPECT_FALSE(QFileInfo::exists(Target()));
    Questions().answer = true;
    Folder().Put("target.wav", "an older file");
    EXPECT_EQ(RunTo(Target()), message);
    EXPECT_EQ(Folder().Bytes("target.wav"), "an older file");
    EXPECT_EQ(RunTo(Folder().Path()), message);
    ExpectNothingAsked();
  }
};

TEST_F(SourceOfPass, Missing) {
  QFile::remove(Source());
  ExpectTargetLeftAlone(CannotReadBecause(Source(), ReasonOf(ENOENT)));
}

TEST_F(SourceOfPass, MissingInPlaceIsNotCreated) {
  QFile::remove(Source());
  EXPECT_TRUE(RunInPlace().ends_with(NativeText(Source()) + ": " + ReasonOf(ENOENT)));
  EXPECT_EQ(Folder().Names(), Names{});
}

TEST_F(SourceOfPass, Folder) {
  QFile::remove(Source());
  ASSERT_TRUE(QDir().mkdir(Source()));
  ExpectTargetLeftAlone(CannotReadBecause(Source(), "not a file"));
  EXPECT_TRUE(RunInPlace().ends_with(NativeText(Source()) + ": not a file"));
}

TEST_F(SourceOfPass, PipeIsNotWaitedFor) {
  QFile::remove(Source());
  ASSERT_EQ(mkfifo(Source().toUtf8().constData(), S_IRWXU), 0);
  EXPECT_EQ(InImpatientChild([&] { return RunTo(Target()); }),
            CannotReadBecause(Source(), "not a file"));
  EXPECT_TRUE(InImpatientChild([&] {
                return RunInPlace();
              }).ends_with(NativeText(Source()) + ": not a file"));
  EXPECT_EQ(Folder().Names(), Names{"source.wav"});
}

TEST_F(SourceOfPass, MayNotBeRead) {
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    SetMode(Source(), 0);
    found.ExpectEqual(RunTo(Target()), CannotReadBecause(Source(), ReasonOf(EACCES)), "the pass");
    found.Expect(!QFileInfo::exists(Target()), "a target was made");
    found.Expect(RunInPlace().ends_with(NativeText(Source()) + ": " + ReasonOf(EACCES)),
                 "in place");
  });
  ExpectSourceIntact();
}

TEST_F(SourceOfPass, MayNotBeWritten) {
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    SetMode(Source(), S_IRUSR);
    found.ExpectEqual(RunInPlace(), CannotWriteBecause(Source(), ReasonOf(EACCES)), "in place");
    found.ExpectEqual(RunTo(Source()), CannotWriteBecause(Source(), ReasonOf(EACCES)),
                      "with itself as the target");
    found.ExpectEqual(RunTo(Target()), "completed", "to a target");
  });
  ExpectSourceIntact();
  ExpectMapped("target.wav");
}

TEST_F(SourceOfPass, HasNoSampleDataAnyMore) {
  Folder().Put("source.wav", std::string(100000, 'd') + "Data");
  ExpectTargetLeftAlone(CannotReadBecause(Source(), "no sample data"));
  EXPECT_TRUE(RunInPlace().ends_with(NativeText(Source()) + ": no sample data"));
  EXPECT_TRUE(Folder().Bytes("source.wav") == std::string(100000, 'd') + "Data");
}

TEST_F(SourceOfPass, IsEmpty) {
  Folder().Put("source.wav", "");
  ExpectTargetLeftAlone(CannotReadBecause(Source(), "no sample data"));
}

class CutSource : public ::testing::TestWithParam<int> {};

TEST_P(CutSource, WithinTheHeaderIsCopiedAndNothingIsMapped) {
  const TemporaryFolder folder;
  auto bytes = WavBytes({.samples = {}, .declared = 0xFFFFFFFF});
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

// A source that changes while the pass has it open.

class ChangingSource : public FilesOfPass {
 protected:
  struct Moment {
    std::string name;
    Buffering buffering = Buffering::Single;
    bool isInPlace = false;
    bool isBetween = false;  // Open() and Run(), else at the first update
  };

  // Changes the source at the moment; what comes of the pass in words.
  std::string RunWith(const Moment& moment, const std::function<void()>& change) {
    Normalization pass;
    ScriptedObserver observer;
    const ReadClock clock(1);
    if (pass.Open(Folder().Files(moment.isInPlace), Questions()) != Opened::Yes) {
      return "not opened";
    }
    if (moment.isBetween) {
      change();
    } else {
      observer.onUpdate = [&](std::size_t index) {
        if (index == 0) {
          change();
        }
      };
    }
    const auto ended = pass.Run(GainTable(Gain), moment.buffering, clock, observer);
    EXPECT_EQ(pass.Throughput() == 0, ended != Ended::Completed);
    EXPECT_EQ(pass.Error().has_value(), ended == Ended::Failed);
    return ended == Ended::Failed ? TextOf(pass.Error()) : TextOf(ended);
  }

  inline static const std::vector<Moment> Moments{
      {"between", Buffering::Single, false, true},
      {"between, multi", Buffering::Multi, false, true},
      {"between, in place", Buffering::Single, true, true},
      {"between, multi in place", Buffering::Multi, true, true},
      {"while it runs", Buffering::Single, false, false},
      {"while it runs in place", Buffering::Single, true, false},
      {"at the words", Buffering::Multi, false, false},
      {"at the words in place", Buffering::Multi, true, false},
  };

  void StartAnew() {
    Folder().Put("source.wav", Folder().Source());
    QFile::remove(Target());
  }
};

TEST_F(ChangingSource, BecomesShorter) {
  for (const auto& moment : Moments) {
    StartAnew();
    // All but the first words of the last loop.
    const std::size_t length = 44 + 3 * Block + 3;
    EXPECT_EQ(
        RunWith(moment, [&] { std::filesystem::resize_file(Source().toStdString(), length); }),
        CannotReadBecause(Source(), "the file became shorter"))
        << moment.name;
    EXPECT_EQ(Folder().Bytes("source.wav").size(), length) << moment.name;
    if (!moment.isInPlace) {
      // What was mapped stays.
      EXPECT_EQ(FirstDifference(Folder().Bytes("target.wav").substr(0, 44 + Block),
                                Folder().Mapped().substr(0, 44 + Block)),
                "none")
          << moment.name;
    }
  }
}

TEST_F(ChangingSource, LosesOnlyTheChunkBehindItsSamples) {
  for (const auto& moment : Moments) {
    StartAnew();
    const std::size_t length = 44 + 3 * Block + 11;
    const auto result =
        RunWith(moment, [&] { std::filesystem::resize_file(Source().toStdString(), length); });
    // Only a target has to have what is gone.
    EXPECT_EQ(result, moment.isInPlace ? std::string("completed")
                                       : CannotReadBecause(Source(), "the file became shorter"))
        << moment.name;
  }
}

TEST_F(ChangingSource, IsEmptied) {
  for (const auto& moment : Moments) {
    StartAnew();
    EXPECT_EQ(RunWith(moment, [&] { std::filesystem::resize_file(Source().toStdString(), 0); }),
              CannotReadBecause(Source(), "the file became shorter"))
        << moment.name;
    EXPECT_EQ(Folder().Bytes("source.wav").size(), 0U) << moment.name;
  }
}

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

TEST_F(ChangingSource, IsDeletedAndReadAllTheSame) {
  for (const auto& moment : Moments) {
    StartAnew();
    EXPECT_EQ(RunWith(moment, [&] { QFile::remove(Source()); }), "completed") << moment.name;
    EXPECT_FALSE(QFileInfo::exists(Source())) << moment.name;
    if (!moment.isInPlace) {
      ExpectMapped("target.wav");
    }
  }
}

// Targets.

class TargetOfPass : public FilesOfPass {
 protected:
  void ExpectRefused(const QString& target, const std::string& reason) {
    const auto names = Folder().Names();
    EXPECT_EQ(InImpatientChild([&] {
                // Relative paths must not lead to the folder that the tests run in.
                QDir::setCurrent(Folder().Path());
                Questions().answer = true;
                const auto result = RunTo(target);
                return result +
                       (Questions().asked + Questions().worksInPlace == 0 ? "" : ", asked");
              }),
              CannotWriteBecause(target, reason));
    EXPECT_EQ(Folder().Names(), names);
    ExpectSourceIntact();
  }
};

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
  Normalization pass;
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

TEST_F(TargetOfPass, PathOfAnotherPlatform) {
  ExpectRefused(u"C:\\Output.wav"_s, "not an absolute path");
}

TEST_F(TargetOfPass, NoPath) { ExpectRefused({}, "not an absolute path"); }

TEST_F(TargetOfPass, Folder) {
  ASSERT_TRUE(QDir().mkdir(Target()));
  ExpectRefused(Target(), "not a file");
}

TEST_F(TargetOfPass, PipeIsNotWaitedFor) {
  ASSERT_EQ(mkfifo(Target().toUtf8().constData(), S_IRWXU), 0);
  ExpectRefused(Target(), "not a file");
}

TEST_F(TargetOfPass, Devices) {
  for (const auto& device : {u"/dev/full"_s, u"/dev/null"_s, u"/dev/zero"_s}) {
    ExpectRefused(device, "not a file");
    EXPECT_TRUE(QFileInfo::exists(device));
  }
}

TEST_F(TargetOfPass, LinkToADevice) {
  ASSERT_TRUE(QFile::link(u"/dev/full"_s, Target()));
  ExpectRefused(Target(), "not a file");
}

TEST_F(TargetOfPass, InAMissingFolder) {
  ExpectRefused(Folder().PathOf("missing/target.wav"), ReasonOf(ENOENT));
}

TEST_F(TargetOfPass, BehindAFile) {
  ExpectRefused(Folder().PathOf("source.wav/target.wav"), ReasonOf(ENOTDIR));
}

TEST_F(TargetOfPass, LinksInACircle) {
  ASSERT_TRUE(QFile::link(Target(), Folder().PathOf("other.wav")));
  ASSERT_TRUE(QFile::link(Folder().PathOf("other.wav"), Target()));
  ExpectRefused(Target(), ReasonOf(ELOOP));
}

TEST_F(TargetOfPass, InAFolderThatMayNotBeWritten) {
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    SetMode(Folder().Path(), S_IRUSR | S_IXUSR);
    found.ExpectEqual(RunTo(Target()), CannotWriteBecause(Target(), ReasonOf(EACCES)), "the pass");
    found.Expect(Questions().asked == 0, "asked");
  });
  EXPECT_EQ(Folder().Names(), Names{"source.wav"});
  ExpectSourceIntact();
}

TEST_F(TargetOfPass, FileThatMayNotBeWrittenIsNeitherAskedForNorDeleted) {
  Folder().Put("target.wav", "an older file");
  Questions().answer = true;
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    SetMode(Target(), S_IRUSR);
    found.ExpectEqual(RunTo(Target()), CannotWriteBecause(Target(), ReasonOf(EACCES)), "the pass");
    found.Expect(Questions().asked == 0, "asked");
  });
  EXPECT_EQ(Folder().Bytes("target.wav"), "an older file");
  ExpectSourceIntact();
}

TEST_F(TargetOfPass, FileThatMayNotBeDeletedStays) {
  Folder().Put("target.wav", "an older file");
  Questions().answer = true;
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    SetMode(Folder().Path(), S_IRUSR | S_IXUSR);
    found.ExpectEqual(RunTo(Target()), CannotWriteBecause(Target(), ReasonOf(EACCES)), "the pass");
  });
  EXPECT_EQ(Folder().Bytes("target.wav"), "an older file");
  ExpectSourceIntact();
}

TEST_F(TargetOfPass, EmptyFileIsReusedWhereNoneCouldBeMade) {
  Folder().Put("target.wav", "");
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    SetMode(Folder().Path(), S_IRUSR | S_IXUSR);
    found.ExpectEqual(RunTo(Target()), "completed", "the pass");
    found.Expect(Questions().asked == 0, "asked");
  });
  ExpectMapped("target.wav");
  ExpectSourceIntact();
}

TEST_F(TargetOfPass, EmptyFileIsReusedWithoutAQuestion) {
  Folder().Put("target.wav", "");
  std::filesystem::create_hard_link(Target().toStdString(),
                                    Folder().PathOf("linked.wav").toStdString());
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
  Normalization pass;
  EXPECT_EQ(pass.Open(Folder().Files(), Questions()), Opened::Refused);
  EXPECT_EQ(TextOf(pass.Error()), "no error");
}

TEST_F(TargetOfPass, OtherNamesOfADeletedFileKeepIt) {
  Folder().Put("target.wav", "an older file");
  std::filesystem::create_hard_link(Target().toStdString(),
                                    Folder().PathOf("linked.wav").toStdString());
  Questions().answer = true;
  EXPECT_EQ(RunTo(Target()), "completed");
  EXPECT_EQ(Questions().asked, 1);
  ExpectMapped("target.wav");
  EXPECT_EQ(Folder().Bytes("linked.wav"), "an older file");
}

TEST_F(TargetOfPass, LinkToAnotherFileIsAskedForAndReplaced) {
  Folder().Put("other.wav", "an older file");
  ASSERT_TRUE(QFile::link(Folder().PathOf("other.wav"), Target()));
  EXPECT_EQ(RunTo(Target()), "refused");
  EXPECT_TRUE(QFileInfo(Target()).isSymLink());
  Questions().answer = true;
  EXPECT_EQ(RunTo(Target()), "completed");
  EXPECT_EQ(Questions().asked, 2);
  ExpectMapped("target.wav");
  EXPECT_FALSE(QFileInfo(Target()).isSymLink());
  EXPECT_EQ(Folder().Bytes("other.wav"), "an older file");
  ExpectSourceIntact();
}

TEST_F(TargetOfPass, LinkToAnEmptyFileFillsThat) {
  Folder().Put("other.wav", "");
  ASSERT_TRUE(QFile::link(Folder().PathOf("other.wav"), Target()));
  EXPECT_EQ(RunTo(Target()), "completed");
  ExpectNothingAsked();
  EXPECT_TRUE(QFileInfo(Target()).isSymLink());
  ExpectMapped("other.wav");
}

TEST_F(TargetOfPass, LinkToNothingIsFollowed) {
  ASSERT_TRUE(QFile::link(Folder().PathOf("other.wav"), Target()));
  EXPECT_EQ(RunTo(Target()), "completed");
  ExpectNothingAsked();
  EXPECT_TRUE(QFileInfo(Target()).isSymLink());
  ExpectMapped("other.wav");
  ExpectSourceIntact();
}

TEST_F(TargetOfPass, FilesAreClosedWithThePass) {
  const auto openFiles = [] {
    return QDir(u"/proc/self/fd"_s).entryList(QDir::System | QDir::AllEntries).size();
  };
  const auto before = openFiles();
  {
    Normalization pass;
    ASSERT_EQ(pass.Open(Folder().Files(), Questions()), Opened::Yes);
    EXPECT_GT(openFiles(), before);
  }
  EXPECT_EQ(openFiles(), before);
}

// Targets that are the source.

class SameFileOfPass : public FilesOfPass {};

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

TEST_F(SameFileOfPass, SymbolicLink) {
  ASSERT_TRUE(QFile::link(Source(), Target()));
  Questions().answer = true;
  EXPECT_EQ(RunTo(Target(), Buffering::Multi), "completed");
  ExpectWorkedInPlace();
  EXPECT_TRUE(QFileInfo(Target()).isSymLink());
}

TEST_F(SameFileOfPass, HardLink) {
  std::filesystem::create_hard_link(Source().toStdString(), Target().toStdString());
  Questions().answer = true;
  EXPECT_EQ(RunTo(Target()), "completed");
  ExpectWorkedInPlace();
  ExpectMapped("target.wav");
  EXPECT_EQ(std::filesystem::hard_link_count(Source().toStdString()), 2U);
}

TEST_F(SameFileOfPass, LinkedFolder) {
  ASSERT_TRUE(QFile::link(Folder().Path(), Folder().PathOf("folder")));
  EXPECT_EQ(RunTo(Folder().PathOf("folder/source.wav")), "completed");
  ExpectWorkedInPlace();
}

TEST_F(SameFileOfPass, SourceReachedByALink) {
  ASSERT_TRUE(QFile::link(Source(), Folder().PathOf("link.wav")));
  EXPECT_EQ(RunPass({.source = Folder().PathOf("link.wav"), .target = Source()}, Buffering::Single,
                    Gain, Questions()),
            "completed");
  ExpectWorkedInPlace();
}

TEST_F(SameFileOfPass, CopyIsAnotherFile) {
  ASSERT_TRUE(QFile::copy(Source(), Target()));
  EXPECT_EQ(RunTo(Target()), "refused");
  EXPECT_EQ(Questions().asked, 1);
  EXPECT_EQ(Questions().worksInPlace, 0);
  ExpectSourceIntact();
}

TEST_F(SameFileOfPass, OtherLetterCaseIsAnotherFileHere) {
  EXPECT_EQ(RunTo(Folder().PathOf("SOURCE.WAV")), "completed");
  ExpectNothingAsked();
  ExpectSourceIntact();
  ExpectMapped("SOURCE.WAV");
}

// A disk that fills up.

struct RoomCase {
  std::string name;
  rlim_t bytes = 0;
};

class FullDiskOfPass : public FilesOfPass, public ::testing::WithParamInterface<RoomCase> {
 protected:
  static void FillUp() {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{GetParam().bytes, GetParam().bytes};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
      _exit(2);
    }
  }
};

TEST_P(FullDiskOfPass, IsAnErrorOfTheTarget) {
  for (const auto buffering : {Buffering::Single, Buffering::Multi}) {
    QFile::remove(Target());
    EXPECT_EQ(InChild([&] {
                FillUp();
                return RunTo(Target(), buffering);
              }),
              CannotWriteBecause(Target(), ReasonOf(EFBIG)));
    const auto partial = Folder().Bytes("target.wav");
    EXPECT_LE(partial.size(), GetParam().bytes);
    EXPECT_EQ(FirstDifference(partial, Folder().Mapped().substr(0, partial.size())), "none");
    ExpectSourceIntact();
  }
}

const std::vector<RoomCase> Rooms{
    {"NoByte", 0},
    {"WithinTheHeader", 20},
    {"JustTheHeader", 44},
    {"HalfAWord", 45},
    {"WithinABlock", 44 + Block + 1000},
    {"JustABlock", 44 + Block},
    {"ByteShortOfABlock", 43 + 2 * Block},
    {"WithinTheWords", 44 + 3 * Block + 4},
    {"WithinAWord", 44 + 3 * Block + 5},
    {"JustTheWords", 44 + 3 * Block + 10},
    {"WithinTheRest", 44 + 3 * Block + 13},
    {"ByteShort", 44 + 3 * Block + 23},
};

INSTANTIATE_TEST_SUITE_P(Room, FullDiskOfPass, ::testing::ValuesIn(Rooms), NameOf);

class FullDiskInPlace : public FullDiskOfPass {};

TEST_P(FullDiskInPlace, IsAnErrorOfTheSource) {
  for (const auto buffering : {Buffering::Single, Buffering::Multi}) {
    Folder().Put("source.wav", Folder().Source());
    EXPECT_EQ(InChild([&] {
                FillUp();
                return RunPass(Folder().Files(true), buffering, Gain, Questions());
              }),
              CannotWriteBecause(Source(), ReasonOf(EFBIG)));
    // What could not be written is as it was.
    EXPECT_EQ(FirstDifference(Folder().Bytes("source.wav").substr(GetParam().bytes),
                              Folder().Source().substr(GetParam().bytes)),
              "none");
  }
}

INSTANTIATE_TEST_SUITE_P(Room, FullDiskInPlace, ::testing::ValuesIn(Rooms.begin(), Rooms.end() - 3),
                         NameOf);

TEST_F(FilesOfPass, JustEnoughRoomIsEnough) {
  EXPECT_EQ(InChild([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              const rlimit limit{Folder().Source().size(), Folder().Source().size()};
              return setrlimit(RLIMIT_FSIZE, &limit) == 0 ? RunTo(Target())
                                                          : std::string("no limit");
            }),
            "completed");
  ExpectMapped("target.wav");
}

}  // namespace
}  // namespace brindle
