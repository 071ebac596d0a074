// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <filesystem>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/child_process.h"
#include "tests/support/named_case.h"
#include "tests/support/unprivileged.h"
#include "tests/wav/normalization_support.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/pass_unix_support.h"
#include "wav/normalization.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

TEST_F(SourceOfPass, PipeIsNotWaitedFor) {
  QFile::remove(Source());
  ASSERT_EQ(mkfifo(Source().toUtf8().constData(), S_IRWXU), 0);
  EXPECT_EQ(InImpatientChild([&] { return RunTo(Target()); }),
            CannotReadBecause(Source(), "not a file"));
  EXPECT_TRUE(InImpatientChild([&] {
                return RunInPlace();
              }).ends_with(NativePath(Source()) + ": not a file"));
  EXPECT_EQ(Folder().Names(), Names{"source.wav"});
}

TEST_F(SourceOfPass, MayNotBeRead) {
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    SetMode(Source(), 0);
    found.ExpectEqual(RunTo(Target()), CannotReadBecause(Source(), ReasonOf(EACCES)), "the pass");
    found.Expect(!QFileInfo::exists(Target()), "a target was made");
    found.Expect(RunInPlace().ends_with(NativePath(Source()) + ": " + ReasonOf(EACCES)),
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

// A source that changes while the pass has it open.

TEST_F(ChangingSource, BecomesShorter) {
  for (const auto& moment : Moments) {
    StartAnew();
    // All but the first words of the last loop.
    const std::size_t length = 44 + 3 * Block + 3;
    EXPECT_EQ(
        RunWith(moment, [&] { std::filesystem::resize_file(Source().toStdU16String(), length); }),
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
        RunWith(moment, [&] { std::filesystem::resize_file(Source().toStdU16String(), length); });
    // Only a target has to have what is gone.
    EXPECT_EQ(result, moment.isInPlace ? std::string("completed")
                                       : CannotReadBecause(Source(), "the file became shorter"))
        << moment.name;
  }
}

TEST_F(ChangingSource, IsEmptied) {
  for (const auto& moment : Moments) {
    StartAnew();
    EXPECT_EQ(RunWith(moment, [&] { std::filesystem::resize_file(Source().toStdU16String(), 0); }),
              CannotReadBecause(Source(), "the file became shorter"))
        << moment.name;
    EXPECT_EQ(Folder().Bytes("source.wav").size(), 0U) << moment.name;
  }
}

TEST_F(ChangingSource, IsDeletedAndReadAllTheSameButNotOverwritten) {
  for (const auto& moment : Moments) {
    StartAnew();
    EXPECT_EQ(RunWith(moment, [&] { QFile::remove(Source()); }),
              moment.isInPlace ? CannotWriteBecause(Source(), "the file is gone")
                               : std::string("completed"))
        << moment.name;
    EXPECT_FALSE(QFileInfo::exists(Source())) << moment.name;
    if (!moment.isInPlace) {
      ExpectMapped("target.wav");
    }
  }
}

// Targets.

TEST_F(TargetOfPass, PathOfAnotherPlatform) {
  ExpectRefused(u"C:\\Output.wav"_s, "not an absolute path");
}

TEST_F(TargetOfPass, PipeIsNotWaitedFor) {
  ASSERT_EQ(mkfifo(Target().toUtf8().constData(), S_IRWXU), 0);
  ExpectRefused(Target(), "not a file", InImpatientChild);
}

TEST_F(TargetOfPass, Devices) {
  for (const auto& device : {u"/dev/full"_s, u"/dev/null"_s, u"/dev/zero"_s}) {
    ExpectRefused(device, "not a file", InImpatientChild);
    EXPECT_TRUE(QFileInfo::exists(device));
  }
}

TEST_F(TargetOfPass, LinkToADevice) {
  ASSERT_TRUE(QFile::link(u"/dev/full"_s, Target()));
  ExpectRefused(Target(), "not a file", InImpatientChild);
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
    WatchedPass pass;
    ASSERT_EQ(pass.Open(Folder().Files(), Questions()), Opened::Yes);
    EXPECT_GT(openFiles(), before);
  }
  EXPECT_EQ(openFiles(), before);
}

// Targets that are the source.

TEST_F(SameFileOfPass, SymbolicLink) {
  ASSERT_TRUE(QFile::link(Source(), Target()));
  Questions().answer = true;
  EXPECT_EQ(RunTo(Target(), Buffering::Multi), "completed");
  ExpectWorkedInPlace();
  EXPECT_TRUE(QFileInfo(Target()).isSymLink());
}

TEST_F(SameFileOfPass, SymbolicLinkMadeUnderTheQuestionDeletesNothing) {
  Folder().Put("target.wav", "an older file");
  ExpectNothingDeletedAfter([&] {
    QFile::remove(Target());
    EXPECT_TRUE(QFile::link(Source(), Target()));
  });
  EXPECT_TRUE(QFileInfo(Target()).isSymLink());
}

// The target is the only file by then.
TEST_F(SameFileOfPass, SourceMovedToTheTargetUnderTheQuestionIsNotDeleted) {
  Folder().Put("target.wav", "an older file");
  ExpectNothingDeletedAfter([&] {
    QFile::remove(Target());
    EXPECT_TRUE(QFile::rename(Source(), Target()));
    EXPECT_TRUE(QFile::link(Target(), Source()));
  });
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
  static void FillUp() { FillDisk(GetParam().bytes); }
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
