// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// A save that the system refuses, early or late, and what a killed one leaves.

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
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
#include "tests/base/settings/settings_file_support.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/interposed_calls.h"
#include "tests/support/named_case.h"
#include "tests/support/unprivileged.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

std::string CannotWriteBecause(const QString& path, const std::string& reason) {
  return "Cannot write " + NativePath(path) + ": " + reason;
}

struct LateCase {
  const char* name = "";
  InterposedCalls::Answer InterposedCalls::*call = nullptr;
  int error = 0;
};

class LateRefusalTest : public ::testing::TestWithParam<LateCase> {
 protected:
  // Expects that saving under the name fails with the error and leaves all files as they are.
  void ExpectRefused(const char* name, std::string (*save)(const QString&)) {
    folder_.Put(FileName, OldBytes);
    folder_.Put(BackupName, "older");
    InterposedCalls calls;
    calls.*GetParam().call = [](const std::string&) { return GetParam().error; };
    EXPECT_EQ(save(folder_.Path()),
              CannotWriteBecause(folder_.PathOf(name), ReasonOf(GetParam().error)));
    EXPECT_EQ(folder_.Bytes(FileName), OldBytes);
    EXPECT_EQ(folder_.Bytes(BackupName), "older");
    EXPECT_EQ(folder_.Names(), (Names{FileName, BackupName}));
  }

 private:
  TemporaryFolder folder_;
};

TEST_P(LateRefusalTest, WriteIsAnErrorAndTheOldFileStays) {
  ExpectRefused(FileName, [](const QString& folder) { return Write(folder, BuiltInBytes()); });
}

TEST_P(LateRefusalTest, CopyOfAnUnusableFileIsAnErrorAndTheOlderCopyStays) {
  ExpectRefused(BackupName, [](const QString& folder) { return KeepUnusable(folder); });
}

const std::vector<LateCase> LateCases{
    {"DiskFullAtTheSync", &InterposedCalls::sync, ENOSPC},
    {"QuotaAtTheSync", &InterposedCalls::sync, EDQUOT},
    {"DiskBrokenAtTheSync", &InterposedCalls::sync, EIO},
    {"DiskFullAtTheClose", &InterposedCalls::closeOfSyncedFile, ENOSPC},
    {"ServerGoneAtTheClose", &InterposedCalls::closeOfSyncedFile, EIO},
    {"Rename", &InterposedCalls::rename, EACCES},
};

INSTANTIATE_TEST_SUITE_P(Save, LateRefusalTest, ::testing::ValuesIn(LateCases), NameOf);

TEST(SyncTest, FileSystemThatCannotSynchroniseIsNoFailure) {
  for (const int error : {EINVAL, ENOTSUP}) {
    const TemporaryFolder folder;
    folder.Put(FileName, OldBytes);
    InterposedCalls calls;
    calls.sync = [&](const std::string&) { return error; };
    EXPECT_EQ(Write(folder.Path(), BuiltInBytes()), "");
    EXPECT_EQ(folder.Bytes(FileName), BuiltInBytes());
  }
}

TEST(SyncTest, IsAskedForAgainAfterASignal) {
  const TemporaryFolder folder;
  int asked = 0;
  InterposedCalls calls;
  calls.sync = [&](const std::string&) { return ++asked < 3 ? EINTR : 0; };
  EXPECT_EQ(Write(folder.Path(), BuiltInBytes()), "");
  EXPECT_GE(asked, 3);
  EXPECT_EQ(folder.Bytes(FileName), BuiltInBytes());
}

TEST(SyncTest, IsOverBeforeTheOldFileIsReplaced) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  std::vector<std::string> order;
  InterposedCalls calls;
  calls.sync = [&](const std::string&) {
    order.push_back("sync of " + folder.Bytes(FileName));
    return 0;
  };
  calls.closeOfSyncedFile = [&](const std::string&) {
    order.push_back("close of " + folder.Bytes(FileName));
    return 0;
  };
  EXPECT_EQ(Write(folder.Path(), BuiltInBytes()), "");
  ASSERT_GE(order.size(), 2U);
  EXPECT_EQ(order[0], "sync of " + OldBytes);
  EXPECT_EQ(order[1], "close of " + OldBytes);
  EXPECT_EQ(folder.Bytes(FileName), BuiltInBytes());
}

// Something else in place of the file.

struct PlaceholderCase {
  const char* name = "";
  bool (*make)(const QString& path) = nullptr;
};

class NoFileTest : public ::testing::TestWithParam<PlaceholderCase> {
 protected:
  // Expects that a save under the name does nothing; opening what is there would wait for ever.
  void ExpectRefused(const char* name, std::string (*save)(const QString&)) {
    const QString path = folder_.PathOf(name);
    ASSERT_TRUE(GetParam().make(path));
    struct stat before = {};
    ASSERT_EQ(lstat(path.toUtf8().constData(), &before), 0);
    const auto names = folder_.Names();
    EXPECT_EQ(InChild([&] {
                constexpr unsigned seconds = 60;
                alarm(seconds);
                return save(folder_.Path());
              }),
              CannotWriteBecause(path, "not a file"));
    struct stat after = {};
    ASSERT_EQ(lstat(path.toUtf8().constData(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(folder_.Names(), names);
  }

  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }

 private:
  TemporaryFolder folder_;
};

TEST_P(NoFileTest, IsNotReplacedByASave) {
  ExpectRefused(FileName, [](const QString& folder) { return Write(folder, BuiltInBytes()); });
}

TEST_P(NoFileTest, IsNotReplacedByTheCopyOfAnUnusableFile) {
  Folder().Put(FileName, OldBytes);
  ExpectRefused(BackupName, [](const QString& folder) { return KeepUnusable(folder); });
}

TEST_P(NoFileTest, IsNotKeptAsUnusable) {
  ExpectRefused(FileName, [](const QString& folder) { return KeepUnusable(folder); });
}

bool MakePipe(const QString& path) {
  return mkfifo(path.toUtf8().constData(), S_IRUSR | S_IWUSR) == 0;
}

const std::vector<PlaceholderCase> Placeholders{
    {"Folder", [](const QString& path) { return QDir().mkdir(path); }},
    {"Pipe", MakePipe},
    {"LinkToAFolder", [](const QString& path) { return QFile::link(u"/tmp"_s, path); }},
    {"LinkToAPipe",
     [](const QString& path) {
       const QString pipe = path + u".pipe"_s;
       return MakePipe(pipe) && QFile::link(pipe, path);
     }},
    {"LinkToADevice", [](const QString& path) { return QFile::link(u"/dev/null"_s, path); }},
};

INSTANTIATE_TEST_SUITE_P(InPlaceOfTheFile, NoFileTest, ::testing::ValuesIn(Placeholders), NameOf);

TEST(LinkedFileTest, LinkToAFileIsWrittenThrough) {
  const TemporaryFolder folder;
  folder.Put("elsewhere", OldBytes);
  ASSERT_TRUE(QFile::link(folder.PathOf("elsewhere"), folder.PathOf(FileName)));
  EXPECT_EQ(Write(folder.Path(), BuiltInBytes()), "");
  EXPECT_TRUE(QFileInfo(folder.PathOf(FileName)).isSymLink());
  EXPECT_EQ(folder.Bytes("elsewhere"), BuiltInBytes());
}

TEST(LinkedFileTest, LinkToNothingMakesTheFileItNames) {
  const TemporaryFolder folder;
  ASSERT_TRUE(QFile::link(folder.PathOf("elsewhere"), folder.PathOf(FileName)));
  EXPECT_EQ(Write(folder.Path(), BuiltInBytes()), "");
  EXPECT_TRUE(QFileInfo(folder.PathOf(FileName)).isSymLink());
  EXPECT_EQ(folder.Bytes("elsewhere"), BuiltInBytes());
}

TEST(ReasonTest, FileThatMayNotBeWrittenIsNamedOnce) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  folder.Put(BackupName, "older");
  ExpectNoFindingsAsNobody(folder, [&](Findings& found) {
    for (const char* name : {FileName, BackupName}) {
      chmod(folder.PathOf(name).toUtf8().constData(), S_IRUSR);
    }
    found.ExpectEqual(Write(folder.Path(), BuiltInBytes()),
                      CannotWriteBecause(folder.PathOf(FileName), ReasonOf(EACCES)), "the save");
    found.ExpectEqual(KeepUnusable(folder.Path()),
                      CannotWriteBecause(folder.PathOf(BackupName), ReasonOf(EACCES)), "the copy");
  });
  EXPECT_EQ(folder.Bytes(FileName), OldBytes);
  EXPECT_EQ(folder.Bytes(BackupName), "older");
}

// The leftovers of a killed save.

class LeftoversTest : public ::testing::Test {
 protected:
  // Expects that the files of these names go, and no others.
  void ExpectSwept(const Names& leftovers) const {
    auto names = folder_.Names();
    for (const auto& name : leftovers) {
      folder_.Put(name.c_str(), "");
    }
    Sweep();
    EXPECT_EQ(folder_.Names(), names);
  }
  void ExpectStays(const char* name) const {
    const auto names = folder_.Names();
    Sweep();
    EXPECT_EQ(folder_.Names(), names) << name;
  }

  void Sweep() const { SettingsFile(folder_.Path()).SweepLeftovers(); }
  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }

 private:
  TemporaryFolder folder_;
};

TEST_F(LeftoversTest, OfTheFileItsCopyAndTheProbeGo) {
  Folder().Put(FileName, OldBytes);
  Folder().Put(BackupName, "older");
  ExpectSwept({"Brindle2.ini.tmp-61426344", "Brindle2.ini.tmp-5a5a5a5a",
               "Brindle2.ini.bak.tmp-71774572", "Brindle2.tmp-HlhuZX"});
  EXPECT_EQ(Folder().Bytes(FileName), OldBytes);
  EXPECT_EQ(Folder().Bytes(BackupName), "older");
}

TEST_F(LeftoversTest, WrittenHalfwayGo) {
  Folder().Put("Brindle2.ini.tmp-61426344", LongBytes());
  Folder().Put("Brindle2.ini.bak.tmp-61426344", LongBytes());
  Sweep();
  EXPECT_EQ(Folder().Names(), Names{});
}

TEST_F(LeftoversTest, FilesOfOthersStay) {
  for (const char* name :
       {"Brindle2.ini", "Brindle2.ini.bak", "Brindle2.ini.backup", "Brindle2.ini.MyCopy",
        "Brindle2.ini.tmp", "Brindle2.ini.tmp-", "Brindle2.ini.tmp-61426344a",
        "Brindle2.ini.tmp-6142634", "Brindle2.ini.tmp-6142634G", "Brindle2.ini.tmp-61426344.txt",
        "Brindle2_ini.tmp-61426344", "brindle2.ini.tmp-61426344", "MyBrindle2.ini.tmp-61426344",
        "Brindle2.tmp-backups", "Brindle2.backup", "other.tmp-61426344"}) {
    Folder().Put(name, "");
    ExpectStays(name);
  }
}

TEST_F(LeftoversTest, OnlyRegularFilesGo) {
  Folder().Put("elsewhere", "x");
  ASSERT_TRUE(QDir().mkdir(Folder().PathOf("Brindle2.ini.tmp-61426344")));
  ASSERT_TRUE(
      QFile::link(Folder().PathOf("elsewhere"), Folder().PathOf("Brindle2.ini.tmp-62436445")));
  ASSERT_TRUE(
      QFile::link(Folder().PathOf("nowhere"), Folder().PathOf("Brindle2.ini.tmp-63446546")));
  ASSERT_TRUE(MakePipe(Folder().PathOf("Brindle2.ini.tmp-64456647")));
  ExpectStays("what is no file");
}

TEST_F(LeftoversTest, BesideTheTargetOfALinkGo) {
  ASSERT_TRUE(QDir().mkdir(Folder().PathOf("elsewhere")));
  Folder().Put("elsewhere/mine.txt", OldBytes);
  ASSERT_TRUE(QFile::link(Folder().PathOf("elsewhere/mine.txt"), Folder().PathOf("link")));
  ASSERT_TRUE(QFile::link(Folder().PathOf("link"), Folder().PathOf(FileName)));
  for (const char* name :
       {"elsewhere/mine.txt.tmp-61426344", "elsewhere/Brindle2.ini.tmp-61426344"}) {
    Folder().Put(name, "");
  }
  Sweep();
  EXPECT_EQ(TemporaryFolder::NamesIn(Folder().PathOf("elsewhere")),
            (Names{"Brindle2.ini.tmp-61426344", "mine.txt"}));
}

TEST_F(LeftoversTest, LinksInACircleAreNoTrouble) {
  ASSERT_TRUE(QFile::link(Folder().PathOf("other"), Folder().PathOf(FileName)));
  ASSERT_TRUE(QFile::link(Folder().PathOf(FileName), Folder().PathOf("other")));
  ExpectStays("a circle");
}

TEST_F(LeftoversTest, ThatCannotBeRemovedStaySilently) {
  Folder().Put("Brindle2.ini.tmp-61426344", "");
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    chmod(Folder().Path().toUtf8().constData(), S_IRUSR | S_IXUSR);
    Sweep();
    found.Expect(Folder().Names() == Names{"Brindle2.ini.tmp-61426344"}, "something went");
  });
}

TEST_F(LeftoversTest, StayWhileSomebodyHoldsThem) {
  Folder().Put("Brindle2.ini.tmp-61426344", "");
  QFile held(Folder().PathOf("Brindle2.ini.tmp-61426344"));
  ASSERT_TRUE(held.open(QIODevice::ReadWrite));
  ASSERT_EQ(flock(held.handle(), LOCK_EX), 0);
  ExpectStays("a file that is held");
  held.close();
  Sweep();
  EXPECT_EQ(Folder().Names(), Names{});
}

// The moment when a save has named its temporary file and still has to rename it.
TEST_F(LeftoversTest, FileOfASaveThatGoesOnIsLeftToIt) {
  constexpr int saves = 20;
  Folder().Put(FileName, OldBytes);
  int sweeps = 0;
  InterposedCalls calls;
  calls.rename = [&](const std::string& path) {
    ++sweeps;
    Sweep();
    EXPECT_TRUE(QFileInfo::exists(QString::fromStdString(path))) << path;
    return 0;
  };
  for (int save = 0; save < saves; ++save) {
    EXPECT_EQ(Write(Folder().Path(), BuiltInBytes()), "");
  }
  EXPECT_EQ(sweeps, saves);
  EXPECT_EQ(Folder().Bytes(FileName), BuiltInBytes());
  EXPECT_EQ(Folder().Names(), Names{FileName});
}

}  // namespace
}  // namespace brindle
