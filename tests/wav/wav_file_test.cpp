// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_file.h"

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <variant>
#include <vector>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <gtest/gtest.h>

#include "tests/app/settings/child_process.h"
#include "tests/app/settings/temporary_folder.h"
#include "tests/support/named_case.h"
#include "tests/wav/pass_support.h"
#include "wav/wav_header.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

using Names = std::vector<std::string>;
using Failed = WavError::Failed;

struct MessageCase {
  std::string name;
  WavError error;
  std::string text;
};

class MessageOfWavError : public ::testing::TestWithParam<MessageCase> {};

TEST_P(MessageOfWavError, SaysWhatCannotBeDone) {
  EXPECT_EQ(MessageOf(GetParam().error).toStdString(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, MessageOfWavError,
    ::testing::Values(
        MessageCase{
            "Reading",
            {.failed = Failed::Reading, .error = {.path = u"/a/b.wav"_s, .reason = u"gone"_s}},
            "Cannot read /a/b.wav: gone"},
        MessageCase{
            "Writing",
            {.failed = Failed::Writing, .error = {.path = u"/a/b.wav"_s, .reason = u"full"_s}},
            "Cannot write /a/b.wav: full"},
        MessageCase{"PlaceholdersInThePath",
                    {.failed = Failed::Writing, .error = {.path = u"/%1/%2"_s, .reason = u"%1"_s}},
                    "Cannot write /%1/%2: %1"},
        MessageCase{
            "OtherScripts",
            {.failed = Failed::Reading, .error = {.path = u"/\u00e9\u4e2d"_s, .reason = u"gone"_s}},
            "Cannot read /\u00e9\u4e2d: gone"}),
    NameOf);

class WavFileTest : public ::testing::Test {
 protected:
  // The bytes read, or the message of the error.
  static std::string Read(WavFile& file, qint64 position, std::size_t count) {
    std::string bytes(count, '?');
    const auto error = file.Read(position, std::as_writable_bytes(std::span(bytes)));
    return error ? TextOf(error) : bytes;
  }
  // The bytes with their padding, and how many are there.
  static std::string ReadPadded(WavFile& file, qint64 position, std::size_t count) {
    std::string bytes(count, '?');
    const auto there = file.ReadPadded(position, std::as_writable_bytes(std::span(bytes)));
    if (const auto* error = std::get_if<WavError>(&there)) {
      return TextOf(*error);
    }
    return bytes + std::to_string(std::get<std::size_t>(there));
  }
  static std::string Write(WavFile& file, qint64 position, const std::string& bytes) {
    return TextOf(file.Write(position, std::as_bytes(std::span(bytes))));
  }

  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }
  [[nodiscard]] QString Path() const { return folder_.PathOf("file.wav"); }

 private:
  TemporaryFolder folder_;
};

TEST_F(WavFileTest, PositionsCountFromOne) {
  Folder().Put("file.wav", "abcdefgh");
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForReading(Path())), "no error");
  EXPECT_EQ(file.Length(), 8);
  EXPECT_EQ(Read(file, 1, 1), "a");
  EXPECT_EQ(Read(file, 8, 1), "h");
  EXPECT_EQ(Read(file, 3, 4), "cdef");
  EXPECT_EQ(Read(file, 1, 8), "abcdefgh");
}

TEST_F(WavFileTest, ShortReadIsAnError) {
  Folder().Put("file.wav", "abcdefgh");
  const auto message = "Cannot read " + NativeText(Path()) + ": the file became shorter";
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForReading(Path())), "no error");
  EXPECT_EQ(Read(file, 1, 9), message);
  EXPECT_EQ(Read(file, 8, 2), message);
  EXPECT_EQ(Read(file, 9, 1), message);
  EXPECT_EQ(Read(file, 1000, 1), message);
  // An error is not the end of it.
  EXPECT_EQ(Read(file, 2, 3), "bcd");
}

TEST_F(WavFileTest, PaddedReadCountsZerosBehindTheEnd) {
  using namespace std::string_literals;
  Folder().Put("file.wav", "abcdefgh");
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForReading(Path())), "no error");
  EXPECT_EQ(ReadPadded(file, 1, 3), "abc3");
  EXPECT_EQ(ReadPadded(file, 6, 3), "fgh3");
  EXPECT_EQ(ReadPadded(file, 7, 3), "gh\0"s + "2");
  EXPECT_EQ(ReadPadded(file, 9, 3), "\0\0\0"s + "0");
  EXPECT_EQ(ReadPadded(file, 5000, 3), "\0\0\0"s + "0");
}

TEST_F(WavFileTest, LengthIsThatOfTheMoment) {
  Folder().Put("file.wav", "abcdefgh");
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForReading(Path())), "no error");
  std::filesystem::resize_file(Path().toStdString(), 3);
  EXPECT_EQ(file.Length(), 3);
  std::filesystem::resize_file(Path().toStdString(), 300);
  EXPECT_EQ(file.Length(), 300);
}

TEST_F(WavFileTest, WhatIsWrittenIsSeenAtOnce) {
  Folder().Put("file.wav", "abcdefgh");
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForChanging(Path())), "no error");
  EXPECT_EQ(Write(file, 1, "A"), "no error");
  EXPECT_EQ(Folder().Bytes("file.wav"), "Abcdefgh");
  EXPECT_EQ(Write(file, 4, "DE"), "no error");
  EXPECT_EQ(Folder().Bytes("file.wav"), "AbcDEfgh");
  EXPECT_EQ(Write(file, 8, "HI"), "no error");
  EXPECT_EQ(Folder().Bytes("file.wav"), "AbcDEfgHI");
  EXPECT_EQ(Read(file, 3, 4), "cDEf");
}

TEST_F(WavFileTest, PositionsBehindFourGigabytes) {
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenOrCreate(Path())), "no error");
  constexpr qint64 far = 5'000'000'001;
  EXPECT_EQ(Write(file, far, "far away"), "no error");
  EXPECT_EQ(file.Length(), far + 7);
  EXPECT_EQ(Read(file, far, 8), "far away");
  EXPECT_EQ(ReadPadded(file, far + 4, 4), "away4");
  EXPECT_EQ(Read(file, far - (qint64{1} << 32), 1), std::string(1, '\0'));
}

TEST_F(WavFileTest, MissingFileIsNotMadeByOpening) {
  WavFile file;
  EXPECT_EQ(TextOf(file.OpenForReading(Path())),
            "Cannot read " + NativeText(Path()) + ": " + ReasonOf(ENOENT));
  EXPECT_EQ(TextOf(file.OpenForChanging(Path())),
            "Cannot write " + NativeText(Path()) + ": " + ReasonOf(ENOENT));
  EXPECT_EQ(Folder().Names(), Names{});
}

TEST_F(WavFileTest, CreatingKeepsWhatStandsThere) {
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenOrCreate(Path())), "no error");
  EXPECT_EQ(file.Length(), 0);
  EXPECT_EQ(Folder().Bytes("file.wav"), "");
  EXPECT_EQ(Write(file, 1, "abc"), "no error");
  file.Close();
  ASSERT_EQ(TextOf(file.OpenOrCreate(Path())), "no error");
  EXPECT_EQ(file.Length(), 3);
  EXPECT_EQ(Folder().Bytes("file.wav"), "abc");
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
              "Cannot read " + NativeText(path) + ": not a file\nCannot write " + NativeText(path) +
                  ": not a file\nCannot write " + NativeText(path) + ": not a file");
  }
}

TEST_F(WavFileTest, FileThatMayOnlyBeRead) {
  Folder().Put("file.wav", "abc");
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    SetMode(Path(), S_IRUSR);
    const auto message = "Cannot write " + NativeText(Path()) + ": " + ReasonOf(EACCES);
    WavFile file;
    found.ExpectEqual(TextOf(file.OpenForChanging(Path())), message, "changing");
    found.ExpectEqual(TextOf(file.OpenOrCreate(Path())), message, "creating");
    found.ExpectEqual(TextOf(file.OpenForReading(Path())), "no error", "reading");
    found.ExpectEqual(Read(file, 1, 3), "abc", "what is read");
  });
}

TEST_F(WavFileTest, ErrorNamesTheFile) {
  Folder().Put("file.wav", "abc");
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForReading(Path())), "no error");
  EXPECT_EQ(TextOf(file.ErrorBecause(Failed::Reading, u"it rains"_s)),
            "Cannot read " + NativeText(Path()) + ": it rains");
  EXPECT_EQ(TextOf(file.ErrorBecause(Failed::Writing, u"it rains"_s)),
            "Cannot write " + NativeText(Path()) + ": it rains");
}

// Which paths lead to one file.

class SameFileTest : public WavFileTest {
 protected:
  void SetUp() override {
    Folder().Put("file.wav", "abc");
    Folder().Put("copy.wav", "abc");
    ASSERT_TRUE(QDir().mkdir(Folder().PathOf("folder")));
    ASSERT_TRUE(QFile::link(Path(), Folder().PathOf("link.wav")));
    ASSERT_TRUE(QFile::link(Folder().PathOf("link.wav"), Folder().PathOf("link_to_link.wav")));
    ASSERT_TRUE(QFile::link(Folder().PathOf("nowhere.wav"), Folder().PathOf("dangling.wav")));
    std::filesystem::create_hard_link(Path().toStdString(),
                                      Folder().PathOf("hard.wav").toStdString());
  }

  void ExpectSame(const QString& path, bool isSame) const {
    EXPECT_EQ(LeadToSameFile(Path(), path), isSame) << path.toStdString();
    EXPECT_EQ(LeadToSameFile(path, Path()), isSame) << path.toStdString();
  }
};

TEST_F(SameFileTest, LinksAndFormsOfThePath) {
  for (const char* name : {"file.wav", "link.wav", "link_to_link.wav", "hard.wav",
                           "folder/../file.wav", "./file.wav"}) {
    ExpectSame(Folder().PathOf(name), true);
  }
  ExpectSame(Folder().Path() + u"//file.wav"_s, true);
  ExpectSame(QDir().relativeFilePath(Path()), true);
}

TEST_F(SameFileTest, OthersAndThoseThatAreNotThere) {
  for (const char* name : {"copy.wav", "folder", "dangling.wav", "nowhere.wav", "FILE.WAV", ""}) {
    ExpectSame(Folder().PathOf(name), false);
  }
  ExpectSame({}, false);
}

TEST_F(SameFileTest, MissingFileIsNotTheSameAsItself) {
  EXPECT_FALSE(LeadToSameFile(Folder().PathOf("nowhere.wav"), Folder().PathOf("nowhere.wav")));
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
  void SetUp() override { folder_.Put("file.wav", WavBytes({.samples = "abcd"})); }

  // What opening says, asked in a process that holds no lock of its own.
  [[nodiscard]] std::string Opening() const {
    return InImpatientChild([this]() -> std::string {
      const auto header = ReadHeader(folder_.PathOf("file.wav"));
      if (const auto* refusal = std::get_if<WavRefusal>(&header)) {
        return *refusal == WavRefusal::AlreadyOpen ? "already open" : "no WAV";
      }
      if (const auto* error = std::get_if<WavError>(&header)) {
        return TextOf(*error);
      }
      return std::to_string(std::get<WavHeader>(header).dataLength);
    });
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
  EXPECT_EQ(Opening(), "4");
  {
    QFile holder(Folder().PathOf("file.wav"));
    ASSERT_TRUE(holder.open(QIODevice::ReadWrite | QIODevice::ExistingOnly));
    ASSERT_TRUE(LockIt(holder.handle()));
    EXPECT_EQ(Opening(), GetParam().isExclusive ? "already open" : "4");
  }
  EXPECT_EQ(Opening(), "4");
}

TEST_P(LockedWav, IsSaidBeforeWhatIsWrongWithTheFile) {
  Folder().Put("file.wav", "no WAV at all");
  QFile holder(Folder().PathOf("file.wav"));
  ASSERT_TRUE(holder.open(QIODevice::ReadWrite | QIODevice::ExistingOnly));
  ASSERT_TRUE(LockIt(holder.handle()));
  EXPECT_EQ(Opening(), GetParam().isExclusive ? "already open" : "no WAV");
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
  EXPECT_TRUE(file.IsLockedByAnother());
  ASSERT_EQ(flock(holder.handle(), LOCK_UN), 0);
  EXPECT_FALSE(file.IsLockedByAnother());
}

TEST_F(LockOfWavFile, LookingLeavesNoLockBehind) {
  Folder().Put("file.wav", "abc");
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForChanging(Path())), "no error");
  EXPECT_FALSE(file.IsLockedByAnother());
  QFile other(Path());
  ASSERT_TRUE(other.open(QIODevice::ReadWrite | QIODevice::ExistingOnly));
  EXPECT_EQ(flock(other.handle(), LOCK_EX | LOCK_NB), 0);
}

}  // namespace
}  // namespace brindle
