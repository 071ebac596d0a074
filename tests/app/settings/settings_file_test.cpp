// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/settings/settings_file.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <grp.h>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <variant>
#include <vector>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <gtest/gtest.h>

#include "app/settings/settings.h"
#include "app/settings/settings_lines.h"
#include "tests/app/settings/child_process.h"
#include "tests/app/settings/temporary_folder.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

using Names = std::vector<std::string>;

constexpr const char* FileName = "Brindle2.ini";
constexpr const char* BackupName = "Brindle2.ini.bak";

const std::string OldBytes = "old\r\nfile\r\n";

// Longer than any buffer between the program and the disk.
const std::string& LongBytes() {
  constexpr std::size_t length = 200'000;
  static const std::string bytes = [] {
    std::string text;
    while (text.size() < length) {
      text += "line " + std::to_string(text.size()) + "\r\n";
    }
    return text;
  }();
  return bytes;
}

std::string BuiltInBytes() { return WriteLines(BuiltInSettings(), true).toStdString(); }

std::string ReasonOf(int error) { return qt_error_string(error).toStdString(); }

std::string NativePath(const QString& path) { return QDir::toNativeSeparators(path).toStdString(); }

// The bytes, or the message that stands for the error.
std::string WhatIsRead(const QString& folder) {
  const auto content = SettingsFile(folder).Read();
  if (const auto* error = std::get_if<FileError>(&content)) {
    return CannotRead(*error).toStdString();
  }
  return std::get<QByteArray>(content).toStdString();
}

// Empty where it went well, else the message that stands for the error.
std::string MessageOf(const std::optional<FileError>& error) {
  return error ? CannotWrite(*error).toStdString() : std::string();
}

std::string Write(const QString& folder, const std::string& bytes) {
  return MessageOf(SettingsFile(folder).Write(QByteArray::fromStdString(bytes)));
}

std::string KeepUnusable(const QString& folder) {
  return MessageOf(SettingsFile(folder).KeepUnusable());
}

// "Cannot write PATH: " with a reason behind it.
bool SaysWhyItCannotWrite(const std::string& message, const QString& path) {
  const auto start = "Cannot write " + NativePath(path) + ": ";
  return message.starts_with(start) && message.size() > start.size() &&
         message.find("Unknown") == std::string::npos;
}

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

TEST(ReadTest, PipeOfThatNameIsAnErrorAndDoesNotWait) {
  const TemporaryFolder folder;
  ASSERT_EQ(mkfifo(folder.PathOf(FileName).toUtf8().constData(), S_IRUSR | S_IWUSR), 0);
  const auto message = WhatIsRead(folder.Path());
  EXPECT_TRUE(message.starts_with("Cannot read " + NativePath(folder.PathOf(FileName)) + ": "))
      << message;
}

// The memory of this process is a regular file whose first byte cannot be read.
bool LinkToAFileThatCannotBeRead(const TemporaryFolder& folder) {
  return QFile::link(u"/proc/self/mem"_s, folder.PathOf(FileName));
}

TEST(ReadTest, ErrorWhileReadingIsAnError) {
  const TemporaryFolder folder;
  ASSERT_TRUE(LinkToAFileThatCannotBeRead(folder));
  EXPECT_EQ(WhatIsRead(folder.Path()),
            "Cannot read " + NativePath(folder.PathOf(FileName)) + ": " + ReasonOf(EIO));
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

TEST(WriteTest, ReaderThatHasTheOldFileOpenStillSeesTheOldFile) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  QFile reader(folder.PathOf(FileName));
  ASSERT_TRUE(reader.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
  EXPECT_EQ(Write(folder.Path(), BuiltInBytes()), "");
  EXPECT_EQ(reader.readAll().toStdString(), OldBytes);
  EXPECT_EQ(folder.Bytes(FileName), BuiltInBytes());
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
  EXPECT_EQ(Write(missing, BuiltInBytes()),
            "Cannot write " + NativePath(missing) + "/Brindle2.ini: " + ReasonOf(ENOENT));
  EXPECT_EQ(folder.Names(), Names{});
}

TEST(WriteTest, FolderOfThatNameIsAnErrorAndStays) {
  const TemporaryFolder folder;
  ASSERT_TRUE(QDir().mkdir(folder.PathOf(FileName)));
  const auto message = Write(folder.Path(), BuiltInBytes());
  EXPECT_TRUE(SaysWhyItCannotWrite(message, folder.PathOf(FileName))) << message;
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
  const auto message = KeepUnusable(folder.Path());
  EXPECT_TRUE(SaysWhyItCannotWrite(message, folder.PathOf(BackupName))) << message;
  EXPECT_EQ(folder.Bytes(FileName), OldBytes);
  EXPECT_EQ(folder.Names(), (Names{FileName, BackupName}));
}

TEST(KeepUnusableTest, ErrorWhileReadingIsAnErrorAndTheOlderCopyStays) {
  const TemporaryFolder folder;
  folder.Put(BackupName, OldBytes);
  ASSERT_TRUE(LinkToAFileThatCannotBeRead(folder));
  EXPECT_NE(KeepUnusable(folder.Path()), "");
  EXPECT_EQ(folder.Bytes(BackupName), OldBytes);
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

TEST(ChooseAppFolderTest, OwnFolderWhosePathOnlyLooksLikeAPackagesPlace) {
  const TemporaryFolder folder;
  const TemporaryFolder config;
  for (const auto* inner : {"usr/bin", "opt/brindle"}) {
    const QString own = folder.PathOf(inner);
    ASSERT_TRUE(QDir().mkpath(own));
    EXPECT_EQ(ChooseAppFolder(own, config.Path()).toStdString(), own.toStdString());
  }
}

struct PlaceCase {
  const char* name = "";
  const char* folder = "";
};

class PlaceTest : public ::testing::TestWithParam<PlaceCase> {};

TEST_P(PlaceTest, GivesTheConfigFolderAndCreatesIt) {
  const TemporaryFolder home;
  const QString config = home.PathOf(".config/brindle2");
  const QString own = QString::fromUtf8(GetParam().folder);
  const auto before = TemporaryFolder::NamesIn(own);
  EXPECT_EQ(ChooseAppFolder(own, config).toStdString(), config.toStdString());
  EXPECT_TRUE(QFileInfo(config).isDir());
  EXPECT_EQ(TemporaryFolder::NamesIn(config), Names{});
  EXPECT_EQ(TemporaryFolder::NamesIn(own), before);
}

const std::vector<PlaceCase> Places{
    {"FolderOfSystemPrograms", "/usr/bin"},
    {"FolderOfPackagedLibraries", "/usr/lib"},
    {"FolderOfGames", "/usr/games"},
    {"TopOfThePackages", "/usr"},
    {"TopOfTheAddOns", "/opt"},
    {"RoundaboutPathToSystemPrograms", "/tmp/../usr/lib/../bin"},
    {"FolderThatIsMissing", "/nowhere/to/be/found"},
    {"FolderWhereNobodyCanCreateAFile", "/proc"},
};

INSTANTIATE_TEST_SUITE_P(ProgramFolder, PlaceTest, ::testing::ValuesIn(Places), NameOf);

TEST(ChooseAppFolderTest, LinkToSystemProgramsGivesTheConfigFolder) {
  const TemporaryFolder folder;
  const TemporaryFolder config;
  const QString link = folder.PathOf("link");
  ASSERT_TRUE(QFile::link(u"/usr/bin"_s, link));
  EXPECT_EQ(ChooseAppFolder(link, config.Path()).toStdString(), config.Path().toStdString());
}

TEST(ChooseAppFolderTest, ConfigFolderThatExistsKeepsWhatIsInIt) {
  const TemporaryFolder config;
  config.Put(FileName, OldBytes);
  EXPECT_EQ(ChooseAppFolder(u"/usr/bin"_s, config.Path()).toStdString(),
            config.Path().toStdString());
  EXPECT_EQ(config.Bytes(FileName), OldBytes);
  EXPECT_EQ(config.Names(), Names{FileName});
}

TEST(ChooseAppFolderTest, ConfigFolderThatCannotBeCreatedFailsWhenItIsWritten) {
  const QString config = u"/proc/nowhere/config"_s;
  EXPECT_EQ(ChooseAppFolder(u"/usr/bin"_s, config).toStdString(), config.toStdString());
  EXPECT_EQ(WhatIsRead(config), "");
  const auto message = Write(config, BuiltInBytes());
  EXPECT_TRUE(SaysWhyItCannotWrite(message, QString(config + u"/Brindle2.ini"_s))) << message;
}

TEST(DesktopConfigFolderTest, LiesWhereTheDesktopKeepsConfiguration) {
  const TemporaryFolder home;
  const QByteArray before = qgetenv("XDG_CONFIG_HOME");
  const bool wasSet = qEnvironmentVariableIsSet("XDG_CONFIG_HOME");
  qputenv("XDG_CONFIG_HOME", home.Path().toUtf8());
  const auto folder = DesktopConfigFolder();
  if (wasSet) {
    qputenv("XDG_CONFIG_HOME", before);
  } else {
    qunsetenv("XDG_CONFIG_HOME");
  }
  EXPECT_TRUE(folder.startsWith(QString(home.Path() + u'/'))) << folder.toStdString();
  EXPECT_FALSE(folder.endsWith(u'/'));
  EXPECT_EQ(home.Names(), Names{});
}

struct LimitCase {
  const char* name = "";
  rlim_t bytes = 0;
};

// A disk that fills up after so many bytes of any one file.
class FullDiskTest : public ::testing::TestWithParam<LimitCase> {
 protected:
  static void FillUp() {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{GetParam().bytes, GetParam().bytes};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
      _exit(2);
    }
  }
};

TEST_P(FullDiskTest, WriteIsAnErrorAndTheOldFileStays) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  const auto& newBytes = LongBytes();
  const auto findings = InChild([&] {
    FillUp();
    return Write(folder.Path(), newBytes);
  });
  EXPECT_EQ(findings,
            "Cannot write " + NativePath(folder.PathOf(FileName)) + ": " + ReasonOf(EFBIG));
  EXPECT_EQ(folder.Bytes(FileName), OldBytes);
  EXPECT_EQ(folder.Names(), Names{FileName});
}

TEST_P(FullDiskTest, FirstWriteIsAnErrorAndLeavesNothing) {
  const TemporaryFolder folder;
  const auto& newBytes = LongBytes();
  const auto findings = InChild([&] {
    FillUp();
    return Write(folder.Path(), newBytes);
  });
  EXPECT_EQ(findings,
            "Cannot write " + NativePath(folder.PathOf(FileName)) + ": " + ReasonOf(EFBIG));
  EXPECT_EQ(folder.Names(), Names{});
}

TEST_P(FullDiskTest, CopyOfAnUnusableFileIsAnErrorAndTheOlderCopyStays) {
  const TemporaryFolder folder;
  folder.Put(BackupName, "older");
  folder.Put(FileName, LongBytes());
  const auto findings = InChild([&] {
    FillUp();
    return KeepUnusable(folder.Path());
  });
  EXPECT_EQ(findings,
            "Cannot write " + NativePath(folder.PathOf(BackupName)) + ": " + ReasonOf(EFBIG));
  EXPECT_EQ(folder.Bytes(BackupName), "older");
  EXPECT_EQ(folder.Names(), (Names{FileName, BackupName}));
}

const std::vector<LimitCase> Limits{
    {"NoByte", 0},      {"OneByte", 1},           {"HundredBytes", 100},
    {"Page", 4096},     {"BehindABuffer", 16385}, {"BehindAPieceOfACopy", 65537},
    {"Almost", 199999},
};

INSTANTIATE_TEST_SUITE_P(Disk, FullDiskTest, ::testing::ValuesIn(Limits), NameOf);

TEST(FullDiskOfASettingsFileTest, FailsAtEveryLengthShortOfTheWhole) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  const auto newBytes = BuiltInBytes();
  const auto findings = InChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    Findings found;
    // The hard limit stays; the soft one may go up and down.
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    for (rlim_t bytes = 0; bytes < newBytes.size() && found.Text().empty(); ++bytes) {
      limit.rlim_cur = bytes;
      setrlimit(RLIMIT_FSIZE, &limit);
      const auto message = Write(folder.Path(), newBytes);
      found.Expect(SaysWhyItCannotWrite(message, folder.PathOf(FileName)),
                   "with room for " + std::to_string(bytes) + " it says: \"" + message + "\"");
      found.ExpectEqual(folder.Bytes(FileName), OldBytes, "the file");
    }
    if (found.Text().empty()) {
      limit.rlim_cur = newBytes.size();
      setrlimit(RLIMIT_FSIZE, &limit);
      found.ExpectEqual(Write(folder.Path(), newBytes), "", "with just enough room");
    }
    return found.Text();
  });
  EXPECT_EQ(findings, "");
  EXPECT_EQ(folder.Bytes(FileName), newBytes);
  EXPECT_EQ(folder.Names(), Names{FileName});
}

// What the superuser can always do proves nothing: these checks run in a child process without
// privileges.
class OrdinaryUserTest : public ::testing::Test {
 protected:
  static constexpr uid_t Nobody = 65534;
  static constexpr std::string_view CannotProve = "cannot prove: ";

  // A case that could not be run says so and counts as skipped.
  void ExpectNoFindings(const std::function<void(Findings&)>& check) {
    const auto path = folder_.Path().toUtf8();
    if (geteuid() == 0) {
      ASSERT_EQ(chown(path.constData(), Nobody, Nobody), 0) << std::strerror(errno);
    }
    const auto report = InChild([&] {
      if (geteuid() == 0 &&
          (setgroups(0, nullptr) != 0 || setgid(Nobody) != 0 || setuid(Nobody) != 0)) {
        return std::string(CannotProve) + "privileges cannot be dropped: " + std::strerror(errno);
      }
      if (const auto hindrance = Hindrance(); !hindrance.empty()) {
        return std::string(CannotProve) + hindrance;
      }
      Findings found;
      check(found);
      chmod(path.constData(), S_IRWXU);
      return found.Text();
    });
    if (report.starts_with(CannotProve)) {
      GTEST_SKIP() << "NOT RUN, " << report;
    }
    EXPECT_EQ(report, "");
  }

  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }

  static void SetMode(const QString& path, mode_t mode) {
    if (chmod(path.toUtf8().constData(), mode) != 0) {
      _exit(3);
    }
  }

 private:
  // Why permissions do not bind this process; empty where they do.
  [[nodiscard]] std::string Hindrance() const {
    const QString path = folder_.PathOf("probe");
    QFile probe(path);
    if (!probe.open(QIODevice::WriteOnly)) {
      return "no file can be created in the temporary folder";
    }
    probe.close();
    SetMode(path, 0);
    const bool bound = !probe.open(QIODevice::ReadOnly);
    probe.close();
    probe.remove();
    return bound ? "" : "this user may read every file";
  }

  TemporaryFolder folder_;
};

constexpr mode_t ReadOnlyFolder = S_IRUSR | S_IXUSR;

TEST_F(OrdinaryUserTest, FileWithoutPermissionCannotBeRead) {
  ExpectNoFindings([&](Findings& found) {
    Folder().Put(FileName, OldBytes);
    SetMode(Folder().PathOf(FileName), 0);
    found.ExpectEqual(
        WhatIsRead(Folder().Path()),
        "Cannot read " + NativePath(Folder().PathOf(FileName)) + ": " + ReasonOf(EACCES),
        "the message");
  });
}

TEST_F(OrdinaryUserTest, FileInAFolderThatMayNotBeSearchedCannotBeRead) {
  ExpectNoFindings([&](Findings& found) {
    Folder().Put(FileName, OldBytes);
    SetMode(Folder().Path(), S_IRUSR | S_IWUSR);
    const auto message = WhatIsRead(Folder().Path());
    SetMode(Folder().Path(), S_IRWXU);
    found.ExpectEqual(
        message, "Cannot read " + NativePath(Folder().PathOf(FileName)) + ": " + ReasonOf(EACCES),
        "the message");
  });
}

TEST_F(OrdinaryUserTest, FolderThatBecomesReadOnlyKeepsTheOldFile) {
  ExpectNoFindings([&](Findings& found) {
    found.ExpectEqual(Write(Folder().Path(), OldBytes), "", "the first message");
    SetMode(Folder().Path(), ReadOnlyFolder);
    found.ExpectEqual(
        Write(Folder().Path(), BuiltInBytes()),
        "Cannot write " + NativePath(Folder().PathOf(FileName)) + ": " + ReasonOf(EACCES),
        "the message");
    found.ExpectEqual(Folder().Bytes(FileName), OldBytes, "the file");
    found.Expect(Folder().Names() == Names{FileName}, "the folder holds more than the file");
    found.ExpectEqual(WhatIsRead(Folder().Path()), OldBytes, "what is read");
    SetMode(Folder().Path(), S_IRWXU);
    found.ExpectEqual(Write(Folder().Path(), BuiltInBytes()), "", "the message afterwards");
    found.ExpectEqual(Folder().Bytes(FileName), BuiltInBytes(), "the file afterwards");
  });
}

TEST_F(OrdinaryUserTest, NoCopyIsKeptInAReadOnlyFolder) {
  ExpectNoFindings([&](Findings& found) {
    Folder().Put(FileName, OldBytes);
    SetMode(Folder().Path(), ReadOnlyFolder);
    found.ExpectEqual(
        KeepUnusable(Folder().Path()),
        "Cannot write " + NativePath(Folder().PathOf(BackupName)) + ": " + ReasonOf(EACCES),
        "the message");
    found.ExpectEqual(Folder().Bytes(FileName), OldBytes, "the file");
    found.Expect(Folder().Names() == Names{FileName}, "the folder holds more than the file");
  });
}

TEST_F(OrdinaryUserTest, ReadOnlyProgramFolderGivesTheConfigFolderAndCreatesIt) {
  ExpectNoFindings([&](Findings& found) {
    const QString own = Folder().PathOf("program");
    const QString config = Folder().PathOf("home/.config/brindle2");
    found.Expect(QDir().mkdir(own), "no program folder");
    SetMode(own, ReadOnlyFolder);
    found.ExpectEqual(ChooseAppFolder(own, config).toStdString(), config.toStdString(),
                      "the folder");
    found.Expect(QFileInfo(config).isDir(), "the config folder is not there");
    found.ExpectEqual(Write(config, BuiltInBytes()), "", "the message");
    found.Expect(TemporaryFolder::NamesIn(own).empty(), "the program folder is not empty");
  });
}

TEST_F(OrdinaryUserTest, WritableProgramFolderIsTheFolderOfTheFile) {
  ExpectNoFindings([&](Findings& found) {
    const QString own = Folder().PathOf("program");
    const QString config = Folder().PathOf("config");
    found.Expect(QDir().mkdir(own), "no program folder");
    found.ExpectEqual(ChooseAppFolder(own, config).toStdString(), own.toStdString(), "the folder");
    found.Expect(!QFileInfo::exists(config), "the config folder was created");
  });
}

}  // namespace
}  // namespace brindle
