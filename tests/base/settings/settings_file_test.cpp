// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/settings/settings_file.h"

#include <cerrno>
#include <cstddef>
#include <string>

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/settings_file_support.h"
#include "tests/base/settings/temporary_folder.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

#ifdef Q_OS_WIN
constexpr int FolderIsMissing = 3;  // which the system distinguishes from a missing file
#else
constexpr int FolderIsMissing = ENOENT;
#endif

TEST(FileErrorTest, CannotReadNamesPathAndReason) {
  EXPECT_EQ(CannotRead({u"/home/ann/Brindle2.ini"_s, u"Permission denied"_s}).toStdString(),
            "Cannot read /home/ann/Brindle2.ini: Permission denied");
}

TEST(FileErrorTest, CannotWriteNamesPathAndReason) {
  EXPECT_EQ(
      CannotWrite({u"C:\\Brindle\\Brindle2.ini"_s, u"No space left on device"_s}).toStdString(),
      "Cannot write C:\\Brindle\\Brindle2.ini: No space left on device");
}

TEST(FileErrorTest, PlaceholdersAndOtherScriptsInAPathStayAsTheyAre) {
  const FileError error{u"/%1/ü%2/音"_s, u"%1"_s};
  EXPECT_EQ(CannotRead(error).toStdString(), "Cannot read /%1/ü%2/音: %1");
  EXPECT_EQ(CannotWrite(error).toStdString(), "Cannot write /%1/ü%2/音: %1");
}

TEST(ReadTest, MissingFileGivesNoBytesAndIsNotCreated) {
  const TemporaryFolder folder;
  EXPECT_EQ(WhatIsRead(folder.Path()), "");
  EXPECT_EQ(folder.Names(), Names{});
}

TEST(ReadTest, EmptyFileGivesNoBytes) {
  const TemporaryFolder folder;
  folder.Put(FileName, "");
  EXPECT_EQ(WhatIsRead(folder.Path()), "");
}

TEST(ReadTest, EveryByteIsGivenAsItStands) {
  const TemporaryFolder folder;
  std::string bytes = "\xEF\xBB\xBF\r\n\n\r\x1A";
  for (int byte = 0; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
  }
  folder.Put(FileName, bytes);
  EXPECT_EQ(WhatIsRead(folder.Path()), bytes);
  EXPECT_EQ(folder.Bytes(FileName), bytes);
}

TEST(ReadTest, NoMoreThanAMebibyteIsRead) {
  constexpr std::size_t mostRead = 1'048'576;
  const TemporaryFolder folder;
  const std::string bytes(mostRead, 'a');
  folder.Put(FileName, bytes);
  EXPECT_TRUE(WhatIsRead(folder.Path()) == bytes);
  folder.Put(FileName, bytes + "b");
  EXPECT_TRUE(WhatIsRead(folder.Path()) == bytes);
}

TEST(ReadTest, OnlyTheFileOfThatNameIsRead) {
  const TemporaryFolder folder;
  folder.Put(BackupName, OldBytes);
  folder.Put("brindle2.txt", OldBytes);
  EXPECT_EQ(WhatIsRead(folder.Path()), "");
}

TEST(ReadTest, FolderOfOtherScriptsIsRead) {
  const TemporaryFolder folder;
  const QString inner = folder.PathOf("Größe 音 #1");
  ASSERT_TRUE(QDir().mkdir(inner));
  EXPECT_EQ(Write(inner, OldBytes), "");
  EXPECT_EQ(WhatIsRead(inner), OldBytes);
}

TEST(ReadTest, FolderOfThatNameIsAnError) {
  const TemporaryFolder folder;
  ASSERT_TRUE(QDir().mkdir(folder.PathOf(FileName)));
  const auto message = WhatIsRead(folder.Path());
  const auto start = "Cannot read " + NativePath(folder.PathOf(FileName)) + ": ";
  EXPECT_TRUE(message.starts_with(start)) << message;
  EXPECT_GT(message.size(), start.size());
}

TEST(WriteTest, NewFileHoldsTheBytesAndNothingIsBesideIt) {
  const TemporaryFolder folder;
  EXPECT_EQ(Write(folder.Path(), BuiltInBytes()), "");
  EXPECT_EQ(folder.Bytes(FileName), BuiltInBytes());
  EXPECT_EQ(folder.Names(), Names{FileName});
}

TEST(WriteTest, EveryByteIsWrittenAsItStands) {
  const TemporaryFolder folder;
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
  }
  EXPECT_EQ(Write(folder.Path(), bytes), "");
  EXPECT_EQ(folder.Bytes(FileName), bytes);
}

TEST(WriteTest, ShorterContentLeavesNothingOfTheLonger) {
  const TemporaryFolder folder;
  EXPECT_EQ(Write(folder.Path(), LongBytes()), "");
  EXPECT_EQ(folder.Bytes(FileName), LongBytes());
  EXPECT_EQ(Write(folder.Path(), OldBytes), "");
  EXPECT_EQ(folder.Bytes(FileName), OldBytes);
  EXPECT_EQ(Write(folder.Path(), ""), "");
  EXPECT_EQ(folder.Bytes(FileName), "");
  EXPECT_EQ(folder.Names(), Names{FileName});
}

TEST(WriteTest, OtherFilesOfTheFolderStay) {
  const TemporaryFolder folder;
  folder.Put(BackupName, "backup");
  folder.Put("Brindle2.ini.tmp", "another's");
  EXPECT_EQ(Write(folder.Path(), BuiltInBytes()), "");
  EXPECT_EQ(folder.Bytes(BackupName), "backup");
  EXPECT_EQ(folder.Bytes("Brindle2.ini.tmp"), "another's");
  EXPECT_EQ(folder.Names().size(), 3U);
}

TEST(WriteTest, MissingFolderIsAnErrorWithTheSystemsReason) {
  const TemporaryFolder folder;
  const QString missing = folder.PathOf("missing");
  EXPECT_EQ(Write(missing, BuiltInBytes()), "Cannot write " +
                                                NativePath(missing + u"/Brindle2.ini"_s) + ": " +
                                                ReasonOf(FolderIsMissing));
  EXPECT_EQ(folder.Names(), Names{});
}

TEST(WriteTest, FolderOfThatNameIsAnErrorAndStays) {
  const TemporaryFolder folder;
  ASSERT_TRUE(QDir().mkdir(folder.PathOf(FileName)));
  EXPECT_EQ(Write(folder.Path(), BuiltInBytes()),
            "Cannot write " + NativePath(folder.PathOf(FileName)) + ": not a file");
  EXPECT_EQ(folder.Names(), Names{FileName});
  EXPECT_TRUE(QFileInfo(folder.PathOf(FileName)).isDir());
}

TEST(KeepUnusableTest, CopyIsKeptAndTheFileStays) {
  const TemporaryFolder folder;
  const std::string bytes("\0\r\n\xFF not forty-two lines", 24);
  folder.Put(FileName, bytes);
  EXPECT_EQ(KeepUnusable(folder.Path()), "");
  EXPECT_EQ(folder.Bytes(BackupName), bytes);
  EXPECT_EQ(folder.Bytes(FileName), bytes);
  EXPECT_EQ(folder.Names(), (Names{FileName, BackupName}));
}

TEST(KeepUnusableTest, OlderCopyIsOverwritten) {
  const TemporaryFolder folder;
  folder.Put(BackupName, LongBytes());
  folder.Put(FileName, OldBytes);
  EXPECT_EQ(KeepUnusable(folder.Path()), "");
  EXPECT_EQ(folder.Bytes(BackupName), OldBytes);
  EXPECT_EQ(folder.Names(), (Names{FileName, BackupName}));
}

TEST(KeepUnusableTest, LongFileIsKeptWhole) {
  const TemporaryFolder folder;
  folder.Put(FileName, LongBytes());
  EXPECT_EQ(KeepUnusable(folder.Path()), "");
  EXPECT_EQ(folder.Bytes(BackupName), LongBytes());
}

TEST(KeepUnusableTest, NoMoreThanAMebibyteIsKept) {
  constexpr std::size_t mostKept = 1'048'576;
  const TemporaryFolder folder;
  std::string bytes(mostKept, 'a');
  folder.Put(FileName, bytes);
  EXPECT_EQ(KeepUnusable(folder.Path()), "");
  EXPECT_TRUE(folder.Bytes(BackupName) == bytes);
  folder.Put(FileName, bytes + "b");
  EXPECT_EQ(KeepUnusable(folder.Path()), "");
  EXPECT_TRUE(folder.Bytes(BackupName) == bytes);
  EXPECT_TRUE(folder.Bytes(FileName) == bytes + "b");
}

TEST(KeepUnusableTest, CopyOutlivesTheDefaultsThatReplaceTheFile) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  EXPECT_EQ(KeepUnusable(folder.Path()), "");
  EXPECT_EQ(Write(folder.Path(), BuiltInBytes()), "");
  EXPECT_EQ(folder.Bytes(BackupName), OldBytes);
  EXPECT_EQ(folder.Bytes(FileName), BuiltInBytes());
}

TEST(KeepUnusableTest, MissingFileIsAnErrorAndTheOlderCopyStays) {
  const TemporaryFolder folder;
  folder.Put(BackupName, OldBytes);
  EXPECT_NE(KeepUnusable(folder.Path()), "");
  EXPECT_EQ(folder.Bytes(BackupName), OldBytes);
  EXPECT_EQ(folder.Names(), Names{BackupName});
}

TEST(KeepUnusableTest, FolderInPlaceOfTheCopyIsAnErrorThatNamesIt) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  ASSERT_TRUE(QDir().mkdir(folder.PathOf(BackupName)));
  EXPECT_EQ(KeepUnusable(folder.Path()),
            "Cannot write " + NativePath(folder.PathOf(BackupName)) + ": not a file");
  EXPECT_EQ(folder.Bytes(FileName), OldBytes);
  EXPECT_EQ(folder.Names(), (Names{FileName, BackupName}));
}

TEST(ChooseAppFolderTest, OwnFolderWhereAFileCanBeCreatedInIt) {
  const TemporaryFolder own;
  const TemporaryFolder other;
  const QString config = other.PathOf("config");
  EXPECT_EQ(ChooseAppFolder(own.Path(), config).toStdString(), own.Path().toStdString());
  EXPECT_EQ(own.Names(), Names{});
  EXPECT_FALSE(QFileInfo::exists(config));
}

TEST(ChooseAppFolderTest, OwnFolderWithASettingsFileLeavesItAsItIs) {
  const TemporaryFolder own;
  const TemporaryFolder config;
  own.Put(FileName, OldBytes);
  EXPECT_EQ(ChooseAppFolder(own.Path(), config.Path()).toStdString(), own.Path().toStdString());
  EXPECT_EQ(own.Bytes(FileName), OldBytes);
  EXPECT_EQ(own.Names(), Names{FileName});
}

TEST(ChooseAppFolderTest, ConfigFolderThatExistsKeepsWhatIsInIt) {
  const TemporaryFolder folder;
  const TemporaryFolder config;
  config.Put(FileName, OldBytes);
  EXPECT_EQ(ChooseAppFolder(folder.PathOf("missing"), config.Path()).toStdString(),
            config.Path().toStdString());
  EXPECT_EQ(config.Bytes(FileName), OldBytes);
  EXPECT_EQ(config.Names(), Names{FileName});
}

TEST(ChooseAppFolderTest, ConfigFolderThatCannotBeCreatedFailsWhenItIsWritten) {
  const TemporaryFolder folder;
  folder.Put("file", OldBytes);
  const QString config = folder.PathOf("file/config");
  EXPECT_EQ(ChooseAppFolder(folder.PathOf("missing"), config).toStdString(), config.toStdString());
  EXPECT_EQ(WhatIsRead(config), "");
  const auto message = Write(config, BuiltInBytes());
  EXPECT_TRUE(SaysWhyItCannotWrite(message, QString(config + u"/Brindle2.ini"_s))) << message;
  EXPECT_EQ(folder.Bytes("file"), OldBytes);
}

}  // namespace
}  // namespace brindle
