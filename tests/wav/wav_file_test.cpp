// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_file.h"

#include <string>

#include <QDir>
#include <QString>
#include <gtest/gtest.h>

#include "base/files/system_files.h"
#include "tests/support/named_case.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/wav_file_support.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

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

TEST_F(WavFileTest, PositionsCountFromOne) {
  Folder().Put("file.wav", "abcdefgh");
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForReading(Path())), "no error");
  EXPECT_EQ(LengthOf(file), 8);
  EXPECT_EQ(Read(file, 1, 1), "a");
  EXPECT_EQ(Read(file, 8, 1), "h");
  EXPECT_EQ(Read(file, 3, 4), "cdef");
  EXPECT_EQ(Read(file, 1, 8), "abcdefgh");
}

TEST_F(WavFileTest, ShortReadIsAnError) {
  Folder().Put("file.wav", "abcdefgh");
  const auto message = "Cannot read " + NativePath(Path()) + ": the file became shorter";
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
  EXPECT_EQ(LengthOf(file), far + 7);
  EXPECT_EQ(Read(file, far, 8), "far away");
  EXPECT_EQ(ReadPadded(file, far + 4, 4), "away4");
  EXPECT_EQ(Read(file, far - (qint64{1} << 32), 1), std::string(1, '\0'));
}

TEST_F(WavFileTest, MissingFileIsNotMadeByOpening) {
  WavFile file;
  EXPECT_EQ(TextOf(file.OpenForReading(Path())),
            "Cannot read " + NativePath(Path()) + ": " + ReasonOf(NoSuchFile));
  EXPECT_EQ(TextOf(file.OpenForChanging(Path())),
            "Cannot write " + NativePath(Path()) + ": " + ReasonOf(NoSuchFile));
  EXPECT_EQ(Folder().Names(), Names{});
}

TEST_F(WavFileTest, CreatingKeepsWhatStandsThere) {
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenOrCreate(Path())), "no error");
  EXPECT_EQ(LengthOf(file), 0);
  EXPECT_EQ(Folder().Bytes("file.wav"), "");
  EXPECT_EQ(Write(file, 1, "abc"), "no error");
  file.Close();
  ASSERT_EQ(TextOf(file.OpenOrCreate(Path())), "no error");
  EXPECT_EQ(LengthOf(file), 3);
  EXPECT_EQ(Folder().Bytes("file.wav"), "abc");
}

TEST_F(WavFileTest, ErrorNamesTheFile) {
  Folder().Put("file.wav", "abc");
  WavFile file;
  ASSERT_EQ(TextOf(file.OpenForReading(Path())), "no error");
  EXPECT_EQ(TextOf(file.ErrorBecause(Failed::Reading, u"it rains"_s)),
            "Cannot read " + NativePath(Path()) + ": it rains");
  EXPECT_EQ(TextOf(file.ErrorBecause(Failed::Writing, u"it rains"_s)),
            "Cannot write " + NativePath(Path()) + ": it rains");
}

TEST_F(WavFileTest, FolderIsNotOpened) {
  const auto path = Folder().Path();
  const auto reason = NativePath(path) + ": not a file";
  WavFile file;
  EXPECT_EQ(TextOf(file.OpenForReading(path)), "Cannot read " + reason);
  EXPECT_EQ(TextOf(file.OpenForChanging(path)), "Cannot write " + reason);
  EXPECT_EQ(TextOf(file.OpenOrCreate(path)), "Cannot write " + reason);
}

TEST_F(SameFileTest, HardLinksAndFormsOfThePath) {
  for (const char* name : {"file.wav", "hard.wav", "folder/../file.wav", "./file.wav"}) {
    ExpectSame(Folder().PathOf(name), true);
  }
  ExpectSame(Folder().Path() + u"//file.wav"_s, true);
  ExpectSame(QDir().relativeFilePath(Path()), true);
}

TEST_F(SameFileTest, OthersAndThoseThatAreNotThere) {
  for (const char* name : {"copy.wav", "folder", "nowhere.wav", ""}) {
    ExpectSame(Folder().PathOf(name), false);
  }
  ExpectSame({}, false);
}

TEST_F(SameFileTest, MissingFileIsNotTheSameAsItself) {
  EXPECT_FALSE(LeadToSameFile(Folder().PathOf("nowhere.wav"), Folder().PathOf("nowhere.wav")));
}

}  // namespace
}  // namespace brindle
