// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <csignal>
#include <cstring>
#include <functional>
#include <grp.h>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <gtest/gtest.h>

#include "base/settings/settings_file.h"
#include "tests/base/settings/child_process.h"
#include "tests/base/settings/environment.h"
#include "tests/base/settings/settings_file_support.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

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

TEST(WriteTest, ReaderThatHasTheOldFileOpenStillSeesTheOldFile) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  QFile reader(folder.PathOf(FileName));
  ASSERT_TRUE(reader.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
  EXPECT_EQ(Write(folder.Path(), BuiltInBytes()), "");
  EXPECT_EQ(reader.readAll().toStdString(), OldBytes);
  EXPECT_EQ(folder.Bytes(FileName), BuiltInBytes());
}

TEST(KeepUnusableTest, ErrorWhileReadingIsAnErrorAndTheOlderCopyStays) {
  const TemporaryFolder folder;
  folder.Put(BackupName, OldBytes);
  ASSERT_TRUE(LinkToAFileThatCannotBeRead(folder));
  EXPECT_NE(KeepUnusable(folder.Path()), "");
  EXPECT_EQ(folder.Bytes(BackupName), OldBytes);
  EXPECT_EQ(folder.Names(), (Names{FileName, BackupName}));
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
  ExpectConfigFolderFor(QString::fromUtf8(GetParam().folder));
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

TEST(DesktopConfigFolderTest, LiesWhereTheDesktopKeepsConfiguration) {
  const TemporaryFolder home;
  Environment place("XDG_CONFIG_HOME");
  place.Set(home.Path());
  const auto folder = DesktopConfigFolder();
  EXPECT_TRUE(folder.startsWith(QString(home.Path() + u'/'))) << folder.toStdString();
  EXPECT_FALSE(folder.endsWith(u'/'));
  EXPECT_EQ(home.Names(), Names{});
}

struct LimitCase {
  const char* name = "";
  rlim_t bytes = 0;
};

// A disk that fills up after this many bytes of any one file.
class FullDiskTest : public ::testing::TestWithParam<LimitCase> {
 protected:
  static void FillUp() { FillDisk(GetParam().bytes); }
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

// The superuser may do everything, which proves nothing: these checks run in a child process
// without privileges.
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
  // Why permissions do not bind this process; empty if they do.
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
