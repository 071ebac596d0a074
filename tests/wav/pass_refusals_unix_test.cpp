// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Passes whose files the system refuses late, and files that somebody else cuts short, takes away
// or replaces under a pass.

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <thread>
#include <variant>
#include <vector>

#include <QFile>
#include <QFileInfo>
#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/child_process.h"
#include "tests/support/interposed_calls.h"
#include "tests/support/named_case.h"
#include "tests/support/unprivileged.h"
#include "tests/wav/normalization_support.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/wav_builder.h"
#include "tests/wav/wav_file_support.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/peak_scan.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

// The system does not tell how long a file is.

class UnknownLength : public FilesOfPass {
 protected:
  static InterposedCalls::Answer RefusedFor(const QString& path) {
    return
        [path = path.toStdString()](const std::string& asked) { return asked == path ? EIO : 0; };
  }
};

TEST_F(UnknownLength, TargetIsNeitherTakenForAnEmptyOneNorTouched) {
  Folder().Put("target.wav", "an older file");
  Questions().answer = true;
  InterposedCalls calls;
  calls.length = RefusedFor(Target());
  EXPECT_EQ(RunTo(Target()), CannotWriteBecause(Target(), ReasonOf(EIO)));
  EXPECT_EQ(Questions().asked, 0);
  EXPECT_EQ(Folder().Bytes("target.wav"), "an older file");
  ExpectSourceIntact();
}

TEST_F(UnknownLength, SourceIsAnErrorOfThePassAndOfTheScan) {
  InterposedCalls calls;
  calls.length = RefusedFor(Source());
  EXPECT_EQ(RunTo(Target()), CannotReadBecause(Source(), ReasonOf(EIO)));
  EXPECT_EQ(RunInPlace(), CannotReadBecause(Source(), ReasonOf(EIO)));
  EXPECT_FALSE(QFileInfo::exists(Target()));
  const ReadClock clock;
  ScriptedObserver observer;
  EXPECT_EQ(TextOf(ScanPeaks(Source(), clock, observer).error),
            CannotReadBecause(Source(), ReasonOf(EIO)));
  ExpectSourceIntact();
}

TEST_F(UnknownLength, FoundOutWhileThePassRunsIsAnError) {
  for (const bool isInPlace : {false, true}) {
    Folder().Put("source.wav", Folder().Source());
    InterposedCalls calls;
    ObserverOfPass observer;
    observer.onUpdate = [&](std::size_t) {
      calls.length = RefusedFor(isInPlace ? Source() : Target());
    };
    WatchedPass pass;
    ASSERT_EQ(pass.Open(Folder().Files(isInPlace), Questions()), Opened::Yes);
    const ReadClock clock(1);
    EXPECT_EQ(pass.Run(GainTable(Gain), Buffering::Single, clock, observer), Ended::Failed);
    EXPECT_EQ(observer.updates.size(), 1U);
    EXPECT_EQ(TextOf(pass.Error()), isInPlace ? CannotReadBecause(Source(), ReasonOf(EIO))
                                              : CannotWriteBecause(Target(), ReasonOf(EIO)));
  }
}

// The disk refuses what it seemed to have taken.

struct LateCase {
  std::string name;
  InterposedCalls::Answer InterposedCalls::*call = nullptr;
  int error = 0;
};

class LateRefusalOfPass : public FilesOfPass, public ::testing::WithParamInterface<LateCase> {};

TEST_P(LateRefusalOfPass, IsNoSuccess) {
  for (const auto buffering : {Buffering::Single, Buffering::Multi}) {
    for (const bool isInPlace : {false, true}) {
      Folder().Put("source.wav", Folder().Source());
      QFile::remove(Target());
      InterposedCalls calls;
      calls.*GetParam().call = [](const std::string&) { return GetParam().error; };
      WatchedPass pass;
      ASSERT_EQ(pass.Open(Folder().Files(isInPlace), Questions()), Opened::Yes);
      const ReadClock clock(1e-6);
      ObserverOfPass observer;
      EXPECT_EQ(pass.Run(GainTable(Gain), buffering, clock, observer), Ended::Failed);
      EXPECT_EQ(TextOf(pass.Error()),
                CannotWriteBecause(isInPlace ? Source() : Target(), ReasonOf(GetParam().error)));
      EXPECT_EQ(pass.Throughput(), 0);
    }
  }
}

const std::vector<LateCase> LateCases{
    {"DiskFullAtTheSync", &InterposedCalls::sync, ENOSPC},
    {"DiskBrokenAtTheSync", &InterposedCalls::sync, EIO},
    {"QuotaAtTheClose", &InterposedCalls::closeOfSyncedFile, EDQUOT},
    {"ServerGoneAtTheClose", &InterposedCalls::closeOfSyncedFile, EIO},
};

INSTANTIATE_TEST_SUITE_P(Cases, LateRefusalOfPass, ::testing::ValuesIn(LateCases), NameOf);

// A disk that takes its time.
class SlowDisk : public FilesOfPass {
 protected:
  // Runs a pass whose sync lasts until `isOver` says so, or a minute.
  Ended Run(const Clock& clock, ObserverOfPass& observer, const std::function<bool()>& isOver) {
    InterposedCalls calls;
    calls.sync = [&](const std::string& path) {
      EXPECT_EQ(path, Target().toStdString());
      const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
      while (!isOver() && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(milliseconds(1));
      }
      return 0;
    };
    EXPECT_EQ(pass_.Open(Folder().Files(), Questions()), Opened::Yes);
    return pass_.Run(GainTable(Gain), Buffering::Single, clock, observer);
  }
  [[nodiscard]] const WatchedPass& Pass() const { return pass_; }

 private:
  WatchedPass pass_;
};

TEST_F(SlowDisk, ObserverIsToldUntilItHasTakenAll) {
  std::atomic<int> told{0};
  ObserverOfPass observer;
  observer.onSync = [&] {
    EXPECT_EQ(FirstDifference(Folder().Bytes("target.wav"), Folder().Mapped()), "none");
    ++told;
    return true;
  };
  const ReadClock clock(0.26);
  EXPECT_EQ(Run(clock, observer, [&] { return told >= 3; }), Ended::Completed);
  EXPECT_GE(told, 3);
  ExpectMapped("target.wav");
}

TEST_F(SlowDisk, AbortComesTooLate) {
  constexpr milliseconds some(300);
  std::atomic<int> told{0};
  ObserverOfPass observer;
  observer.onSync = [&] {
    ++told;
    return false;
  };
  const ReadClock clock(1);
  std::chrono::steady_clock::time_point first;
  EXPECT_EQ(Run(clock, observer,
                [&] {
                  const auto now = std::chrono::steady_clock::now();
                  if (told == 0) {
                    first = now;
                  }
                  return now > first + some;
                }),
            Ended::Completed);
  EXPECT_GT(told, 1) << "the window must live on";
  EXPECT_EQ(TextOf(Pass().Error()), "no error");
  ExpectMapped("target.wav");
}

TEST_F(SlowDisk, NobodyIsToldWhileNoTimePasses) {
  constexpr milliseconds some(300);
  ObserverOfPass observer;
  observer.onSync = [] {
    ADD_FAILURE() << "told";
    return true;
  };
  const ReadClock clock;
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Run(clock, observer, [&] { return std::chrono::steady_clock::now() > start + some; }),
            Ended::Completed);
  EXPECT_TRUE(observer.updates.empty());
}

// The window, or the program, can be closed then: all is with the system, and nobody waits.
TEST_F(SlowDisk, IsNotWaitedForWhenThePassIsDestroyed) {
  std::atomic<bool> isWriting{false};
  std::atomic<bool> isOver{false};
  std::atomic<bool> hasEnded{false};
  InterposedCalls calls;
  calls.sync = [&](const std::string&) {
    isWriting = true;
    while (!isOver) {
      std::this_thread::sleep_for(milliseconds(1));
    }
    hasEnded = true;
    return 0;
  };
  const ReadClock clock(1);
  {
    Normalization pass(Folder().Files());
    ASSERT_TRUE(pass.Open());
    pass.Start(GainTable(Gain), Buffering::Single, clock);
    while (!isWriting) {
      ASSERT_TRUE(std::holds_alternative<PassGoesOn>(pass.Advance()));
    }
  }
  EXPECT_FALSE(hasEnded);
  ExpectMapped("target.wav");
  isOver = true;
  while (!hasEnded) {
    std::this_thread::sleep_for(milliseconds(1));
  }
}

TEST_F(SlowDisk, CountsInTheThroughput) {
  Folder().Put("source.wav", WavParts{.samples = Noise(100)}.Bytes());
  std::atomic<bool> isOver{false};
  ObserverOfPass observer;
  observer.onSync = [&] {
    isOver = true;
    return false;
  };
  // Looked at when the pass begins, twice while the disk works, and at the end.
  const ReadClock clock(1);
  EXPECT_EQ(Run(clock, observer, [&] { return isOver.load(); }), Ended::Completed);
  EXPECT_TRUE(observer.updates.empty());
  EXPECT_GT(Pass().Throughput(), 0);
  EXPECT_LE(Pass().Throughput(), 144 / 3.0 / MebiByte);
}

// What nobody may start a thread for is synchronised all the same.
TEST_F(FilesOfPass, WithoutAThreadTheDiskIsAskedToo) {
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    const rlimit none{0, 0};
    found.Expect(setrlimit(RLIMIT_NPROC, &none) == 0, "no limit");
    InterposedCalls calls;
    calls.sync = [](const std::string&) { return ENOSPC; };
    found.ExpectEqual(RunTo(Target()), CannotWriteBecause(Target(), ReasonOf(ENOSPC)), "the pass");
  });
}

// The output no longer stands where it is to stand.

struct FateCase {
  std::string name;
  std::function<void(const QString& path)> happens;
  std::string reason;
};

class FateOfOutput : public FilesOfPass, public ::testing::WithParamInterface<FateCase> {
 protected:
  // What comes of a pass whose output meets its fate while the disk takes it in.
  std::string RunWithFate(bool isInPlace, Buffering buffering) {
    const auto path = isInPlace ? Source() : Target();
    InterposedCalls calls;
    calls.sync = [&](const std::string&) {
      GetParam().happens(path);
      return 0;
    };
    return RunPass(Folder().Files(isInPlace), buffering, Gain, Questions());
  }
};

TEST_P(FateOfOutput, IsNoSuccess) {
  for (const auto buffering : {Buffering::Single, Buffering::Multi}) {
    for (const bool isInPlace : {false, true}) {
      Folder().Put("source.wav", Folder().Source());
      QFile::remove(Target());
      EXPECT_EQ(RunWithFate(isInPlace, buffering),
                CannotWriteBecause(isInPlace ? Source() : Target(), GetParam().reason));
      QFile::remove(Source());
    }
  }
}

void ReplaceByCopy(const QString& path) {
  const QString copy = path + u".copy"_s;
  EXPECT_TRUE(QFile::copy(path, copy));
  EXPECT_TRUE(QFile::remove(path));
  EXPECT_TRUE(QFile::rename(copy, path));
}

void CutTo(const QString& path, std::size_t length) {
  std::filesystem::resize_file(path.toStdU16String(), length);
}

const std::vector<FateCase> Fates{
    {"Deleted", [](const QString& path) { EXPECT_TRUE(QFile::remove(path)); }, "the file is gone"},
    {"Renamed",
     [](const QString& path) {
       QFile::remove(path + u".old"_s);
       EXPECT_TRUE(QFile::rename(path, path + u".old"_s));
     },
     "the file is gone"},
    {"ReplacedByAnEqualFile", ReplaceByCopy, "the file was replaced"},
    {"CutWithinItsWords", [](const QString& path) { CutTo(path, 44 + 3 * Block + 9); },
     "the file became shorter"},
    {"Emptied", [](const QString& path) { CutTo(path, 0); }, "the file became shorter"},
};

INSTANTIATE_TEST_SUITE_P(Cases, FateOfOutput, ::testing::ValuesIn(Fates), NameOf);

TEST_F(TargetOfPass, LastByteLostIsNoSuccess) {
  InterposedCalls calls;
  calls.sync = [&](const std::string&) {
    CutTo(Target(), Folder().Source().size() - 1);
    return 0;
  };
  EXPECT_EQ(RunTo(Target()), CannotWriteBecause(Target(), "the file became shorter"));
}

// Files that are cut short at an update: what follows must not be written after a hole.

struct CutCase {
  std::string name;
  Buffering buffering = Buffering::Single;
  bool isInPlace = false;
  std::size_t dataBytes = 0;
  std::string behind;
};

class CutFile : public ::testing::TestWithParam<CutCase> {
 protected:
  // Runs a pass for each length worth a try and each update worth one, at which the file is cut to
  // that length where it is longer; has what comes of it in words looked at.
  void CutEverywhere(
      const char* name,
      const std::function<void(const std::string& result, std::size_t length)>& look) const {
    const auto path = folder_.PathOf(name);
    ObserverOfPass counting;
    ASSERT_EQ(Run(counting), "completed");
    const auto updates = counting.updates.size();
    ASSERT_GT(updates, 0U);
    int cuts = 0;
    for (const std::size_t update : {std::size_t{0}, updates / 2, updates - 1}) {
      for (const auto length : Lengths()) {
        bool isCut = false;
        ObserverOfPass observer;
        observer.onUpdate = [&](std::size_t index) {
          isCut |= index == update && static_cast<std::size_t>(QFileInfo(path).size()) > length;
          if (index == update && isCut) {
            CutTo(path, length);
          }
        };
        const auto result = Run(observer);
        if (isCut) {
          ++cuts;
          SCOPED_TRACE("to " + std::to_string(length) + " at update " + std::to_string(update));
          look(result, length);
        }
      }
    }
    EXPECT_GT(cuts, 0);
  }

  // Cuts the file, which the pass writes, within its header, each time after another read of the
  // source: what was read before must not be written any more.
  void CutAfterReads(const char* name, const std::string& message) const {
    constexpr std::size_t length = 20;
    ObserverOfPass observer;
    InterposedCalls calls;
    std::size_t reads = 0;
    std::size_t cutsAt = 0;  // counted from 1
    const auto watch = [&] {
      reads = 0;
      calls.afterRead = [&](const std::string& path) {
        if (path == folder_.PathOf("source.wav").toStdString() && ++reads == cutsAt) {
          CutTo(folder_.PathOf(name), length);
        }
      };
    };
    ASSERT_EQ(Run(observer, watch), "completed");
    const auto all = reads;
    ASSERT_GT(all, 0U);
    for (const std::size_t cut : {std::size_t{1}, all / 4, all / 2, all - 4, all - 1, all}) {
      if (cut == 0 || cut > all) {
        continue;
      }
      SCOPED_TRACE("after read " + std::to_string(cut) + " of " + std::to_string(all));
      calls.afterRead = nullptr;
      cutsAt = cut;
      EXPECT_EQ(Run(observer, watch), message);
      calls.afterRead = nullptr;
      EXPECT_EQ(folder_.Bytes(name), folder_.Source().substr(0, length));
    }
  }

  [[nodiscard]] const PassFolder& Folder() const { return folder_; }

 private:
  // Around the edges of what is read and written.
  [[nodiscard]] std::vector<std::size_t> Lengths() const {
    const auto end = folder_.Source().size();
    const auto endOfData = 44 + GetParam().dataBytes;
    return {0,
            1,
            44,
            44 + Block / 2,
            44 + GetParam().dataBytes / 2,
            end - 1,
            end - 2,
            end - 3,
            endOfData - 1,
            endOfData - 2,
            endOfData - 3};
  }

  [[nodiscard]] std::string Run(
      ObserverOfPass& observer, const std::function<void()>& onceOpen = [] {}) const {
    folder_.Put("source.wav", folder_.Source());
    QFile::remove(folder_.PathOf("target.wav"));
    ScriptedQuestions questions;
    WatchedPass pass;
    EXPECT_EQ(pass.Open(folder_.Files(GetParam().isInPlace), questions), Opened::Yes);
    onceOpen();
    const ReadClock clock(1);
    const auto ended = pass.Run(GainTable(Gain), GetParam().buffering, clock, observer);
    return ended == Ended::Failed ? TextOf(pass.Error()) : TextOf(ended);
  }

  PassFolder folder_{{.samples = Noise(GetParam().dataBytes), .behind = GetParam().behind}};
};

constexpr const char* BecameShorter = "the file became shorter";

// Nothing is written past the end that a file was given.
class CutTarget : public CutFile {};

TEST_P(CutTarget, IsNoSuccessAndHasNoHole) {
  CutEverywhere("target.wav", [&](const std::string& result, std::size_t length) {
    EXPECT_EQ(result,
              "Cannot write " + NativePath(Folder().PathOf("target.wav")) + ": " + BecameShorter);
    EXPECT_EQ(FirstDifference(Folder().Bytes("target.wav"), Folder().Mapped().substr(0, length)),
              "none");
  });
}

TEST_P(CutTarget, BetweenReadingAndWritingItHasNoHoleEither) {
  CutAfterReads("target.wav",
                "Cannot write " + NativePath(Folder().PathOf("target.wav")) + ": " + BecameShorter);
}

class CutSourceBesideATarget : public CutFile {};

TEST_P(CutSourceBesideATarget, IsNoSuccessAndTheTargetHasNoHole) {
  CutEverywhere("source.wav", [&](const std::string& result, std::size_t) {
    EXPECT_EQ(result,
              "Cannot read " + NativePath(Folder().PathOf("source.wav")) + ": " + BecameShorter);
    const auto written = Folder().Bytes("target.wav");
    EXPECT_EQ(FirstDifference(written, Folder().Mapped().substr(0, written.size())), "none");
  });
}

class CutInPlace : public CutFile {};

TEST_P(CutInPlace, HasNoHoleAndIsASuccessOnlyWithAllItsWords) {
  CutEverywhere("source.wav", [&](const std::string& result, std::size_t length) {
    const bool hasLostAWord = Folder().Mapped().substr(length) != Folder().Source().substr(length);
    if (hasLostAWord) {
      EXPECT_TRUE(
          result.ends_with(NativePath(Folder().PathOf("source.wav")) + ": " + BecameShorter))
          << result;
    } else {
      EXPECT_EQ(result, "completed");
    }
    const auto found = Folder().Bytes("source.wav");
    EXPECT_EQ(found.size(), length);
    std::size_t at = 0;
    while (at < found.size() &&
           (found[at] == Folder().Mapped()[at] || found[at] == Folder().Source()[at])) {
      ++at;
    }
    EXPECT_EQ(at, found.size()) << "a hole";
  });
}

TEST_P(CutInPlace, BetweenReadingAndWritingItHasNoHoleEither) {
  CutAfterReads("source.wav",
                "Cannot read " + NativePath(Folder().PathOf("source.wav")) + ": " + BecameShorter);
}

constexpr std::size_t MultiBlock = 64 * Block;

std::vector<CutCase> CutCases(bool isInPlace) {
  return {
      {"Blocks", Buffering::Single, isInPlace, 3 * Block + 11, "LIST and more"},
      {"BlocksWithoutARest", Buffering::Single, isInPlace, 3 * Block + 10, ""},
      {"Words", Buffering::Multi, isInPlace, 21, "LIST and more"},
      {"WordsWithoutARest", Buffering::Multi, isInPlace, 20, ""},
      {"ManyBlocks", Buffering::Multi, isInPlace, MultiBlock + 2 * Block + 7, "xx"},
  };
}

INSTANTIATE_TEST_SUITE_P(Cases, CutTarget, ::testing::ValuesIn(CutCases(false)), NameOf);
INSTANTIATE_TEST_SUITE_P(Cases, CutSourceBesideATarget, ::testing::ValuesIn(CutCases(false)),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Cases, CutInPlace, ::testing::ValuesIn(CutCases(true)), NameOf);

}  // namespace
}  // namespace brindle
