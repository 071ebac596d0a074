// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>

#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/child_process.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"
#include "tests/support/unprivileged.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/pass_unix_support.h"
#include "tests/wav/wav_builder.h"
#include "tests/wav/wav_file_support.h"
#include "wav/wav_file.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

TEST_F(WavFileTest, LengthIsThatOfTheMoment) {
  Folder().Put("file.wav", "abcdefgh");
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForReading(Path())), "no error");
  std::filesystem::resize_file(Path().toStdU16String(), 3);
  EXPECT_EQ(LengthOf(file), 3);
  std::filesystem::resize_file(Path().toStdU16String(), 300);
  EXPECT_EQ(LengthOf(file), 300);
}

TEST_F(WavFileTest, OnlyRegularFilesAreOpened) {
  const auto pipe = Folder().PathOf("pipe");
  ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), S_IRWXU), 0);
  for (const auto& path : {pipe, Folder().Path(), u"/dev/null"_s}) {
    EXPECT_EQ(InImpatientChild([&] {
                WavFile file;
                return TextOf(file.OpenForReading(path)) + "\n" +
                       TextOf(file.OpenForChanging(path)) + "\n" + TextOf(file.OpenOrCreate(path));
              }),
              "Cannot read " + NativePath(path) + ": not a file\nCannot write " + NativePath(path) +
                  ": not a file\nCannot write " + NativePath(path) + ": not a file");
  }
}

TEST_F(WavFileTest, FileThatMayOnlyBeRead) {
  Folder().Put("file.wav", "abc");
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    SetMode(Path(), S_IRUSR);
    const auto message = "Cannot write " + NativePath(Path()) + ": " + ReasonOf(EACCES);
    WavFile file;
    found.ExpectEqual(TextOf(file.OpenForChanging(Path())), message, "changing");
    found.ExpectEqual(TextOf(file.OpenOrCreate(Path())), message, "creating");
    found.ExpectEqual(TextOf(file.OpenForReading(Path())), "no error", "reading");
    found.ExpectEqual(Read(file, 1, 3), "abc", "what is read");
  });
}

// Which paths lead to one file.

TEST_F(SameFileTest, SymbolicLinks) {
  const auto link = Folder().PathOf("link.wav");
  const auto linkToLink = Folder().PathOf("link_to_link.wav");
  ASSERT_TRUE(QFile::link(Path(), link));
  ASSERT_TRUE(QFile::link(link, linkToLink));
  ExpectSame(link, true);
  ExpectSame(linkToLink, true);
}

TEST_F(SameFileTest, LinkToNothing) {
  const auto dangling = Folder().PathOf("dangling.wav");
  ASSERT_TRUE(QFile::link(Folder().PathOf("nowhere.wav"), dangling));
  ExpectSame(dangling, false);
}

TEST_F(SameFileTest, OtherLetterCaseIsAnotherFileHere) {
  ExpectSame(Folder().PathOf("FILE.WAV"), false);
}

// Files that another program has locked.

enum class Lock { WholeFile, Record };

struct LockCase {
  std::string name;
  Lock lock = Lock::WholeFile;
  bool isExclusive = false;
};

class LockedWav : public ::testing::TestWithParam<LockCase> {
 protected:
  void SetUp() override { folder_.Put("file.wav", WavParts{.samples = "abcd"}.Bytes()); }

  // Asked in a process that holds no lock of its own.
  [[nodiscard]] std::string OpeningHere() const {
    return InImpatientChild([this] { return Opening(folder_.PathOf("file.wav")); });
  }

  static bool LockIt(int descriptor) {
    const auto& [name, lock, isExclusive] = GetParam();
    if (lock == Lock::WholeFile) {
      return flock(descriptor, isExclusive ? LOCK_EX : LOCK_SH) == 0;
    }
    struct flock region {};
    region.l_type = isExclusive ? F_WRLCK : F_RDLCK;
    region.l_whence = SEEK_SET;
    return fcntl(descriptor, F_SETLK, &region) == 0;  // NOLINT(cppcoreguidelines-pro-type-vararg)
  }

  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }

 private:
  TemporaryFolder folder_;
};

TEST_P(LockedWav, IsAlreadyOpenUntilTheLockIsGone) {
  EXPECT_EQ(OpeningHere(), "4");
  {
    QFile holder(Folder().PathOf("file.wav"));
    ASSERT_TRUE(holder.open(QIODevice::ReadWrite | QIODevice::ExistingOnly));
    ASSERT_TRUE(LockIt(holder.handle()));
    EXPECT_EQ(OpeningHere(), GetParam().isExclusive ? "already open" : "4");
  }
  EXPECT_EQ(OpeningHere(), "4");
}

TEST_P(LockedWav, IsSaidBeforeWhatIsWrongWithTheFile) {
  Folder().Put("file.wav", "no WAV at all");
  QFile holder(Folder().PathOf("file.wav"));
  ASSERT_TRUE(holder.open(QIODevice::ReadWrite | QIODevice::ExistingOnly));
  ASSERT_TRUE(LockIt(holder.handle()));
  EXPECT_EQ(OpeningHere(), GetParam().isExclusive ? "already open" : "no WAV");
}

INSTANTIATE_TEST_SUITE_P(Locks, LockedWav,
                         ::testing::Values(LockCase{"ExclusiveWholeFile", Lock::WholeFile, true},
                                           LockCase{"SharedWholeFile", Lock::WholeFile, false},
                                           LockCase{"ExclusiveRecord", Lock::Record, true},
                                           LockCase{"SharedRecord", Lock::Record, false}),
                         NameOf);

class LockOfWavFile : public WavFileTest {};

TEST_F(LockOfWavFile, AnotherDescriptorOfOneProcessCounts) {
  Folder().Put("file.wav", "abc");
  QFile holder(Path());
  ASSERT_TRUE(holder.open(QIODevice::ReadOnly));
  ASSERT_EQ(flock(holder.handle(), LOCK_EX), 0);
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForReading(Path())), "no error");
  EXPECT_TRUE(IsLocked(Path()));
  ASSERT_EQ(flock(holder.handle(), LOCK_UN), 0);
  EXPECT_FALSE(IsLocked(Path()));
}

TEST_F(LockOfWavFile, LookingLeavesNoLockBehind) {
  Folder().Put("file.wav", "abc");
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForChanging(Path())), "no error");
  EXPECT_FALSE(IsLocked(Path()));
  QFile other(Path());
  ASSERT_TRUE(other.open(QIODevice::ReadWrite | QIODevice::ExistingOnly));
  EXPECT_EQ(flock(other.handle(), LOCK_EX | LOCK_NB), 0);
}

}  // namespace
}  // namespace brindle
