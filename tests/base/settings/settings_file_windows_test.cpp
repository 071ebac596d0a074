// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <chrono>
#include <memory>
#include <shlobj.h>
#include <string>
#include <thread>
#include <vector>
#include <windows.h>

#include <QDir>
#include <QFileInfo>
#include <QString>
#include <gtest/gtest.h>

#include "base/settings/settings_file.h"
#include "tests/base/settings/environment.h"
#include "tests/base/settings/settings_file_support.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

std::wstring SystemPath(const QString& path) {
  return QDir::toNativeSeparators(path).toStdWString();
}

// A file that another program has open for reading, and what it lets others do in the meantime.
class HeldFile {
 public:
  HeldFile(const QString& path, DWORD share)
      : handle_(CreateFileW(SystemPath(path).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr)) {
    EXPECT_NE(handle_, INVALID_HANDLE_VALUE) << ReasonOf(static_cast<int>(GetLastError()));
  }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;
  HeldFile(HeldFile&&) = delete;
  HeldFile& operator=(HeldFile&&) = delete;
  ~HeldFile() { CloseHandle(handle_); }

  // From where it was last read to the end.
  [[nodiscard]] std::string Rest() const {
    std::string bytes(2 * LongBytes().size(), '\0');
    DWORD length = 0;
    EXPECT_NE(ReadFile(handle_, bytes.data(), static_cast<DWORD>(bytes.size()), &length, nullptr),
              FALSE);
    bytes.resize(length);
    return bytes;
  }

 private:
  HANDLE handle_;
};

constexpr DWORD NotShared = 0;

void SetAttributes(const QString& path, DWORD attributes) {
  EXPECT_NE(SetFileAttributesW(SystemPath(path).c_str(), attributes), FALSE);
}

// Expects the old content and a message that says why, or the new content and no message.
void ExpectWholeFile(const QString& path, const std::string& message, const std::string& oldBytes,
                     const std::string& newBytes) {
  if (message.empty()) {
    EXPECT_EQ(TemporaryFolder::BytesOf(path), newBytes);
  } else {
    EXPECT_TRUE(SaysWhyItCannotWrite(message, path)) << message;
    EXPECT_EQ(TemporaryFolder::BytesOf(path), oldBytes);
  }
}

struct ShareCase {
  const char* name = "";
  DWORD share = NotShared;
};

class HeldFileTest : public ::testing::TestWithParam<ShareCase> {};

TEST_P(HeldFileTest, WriteReplacesItAsAWholeOrSaysWhyNot) {
  for (const auto& [oldBytes, newBytes] :
       {std::array{LongBytes(), BuiltInBytes()}, std::array{OldBytes, LongBytes()}}) {
    const TemporaryFolder folder;
    folder.Put(FileName, oldBytes);
    std::string message;
    {
      const HeldFile held(folder.PathOf(FileName), GetParam().share);
      message = Write(folder.Path(), newBytes);
      EXPECT_EQ(held.Rest(), oldBytes) << "who has the old file open sees another";
    }
    ExpectWholeFile(folder.PathOf(FileName), message, oldBytes, newBytes);
    EXPECT_EQ(folder.Names(), Names{FileName});
    EXPECT_EQ(Write(folder.Path(), newBytes), "") << "nobody has it open any more";
    EXPECT_EQ(folder.Bytes(FileName), newBytes);
    EXPECT_EQ(folder.Names(), Names{FileName});
  }
}

TEST_P(HeldFileTest, WriteWaitsForWhoHoldsItForAMoment) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  auto held = std::make_unique<HeldFile>(folder.PathOf(FileName), GetParam().share);
  std::thread other([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    held.reset();
  });
  EXPECT_EQ(Write(folder.Path(), LongBytes()), "");
  other.join();
  EXPECT_EQ(folder.Bytes(FileName), LongBytes());
  EXPECT_EQ(folder.Names(), Names{FileName});
}

TEST_P(HeldFileTest, KeepUnusableReplacesTheCopyAsAWholeOrSaysWhyNot) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  folder.Put(BackupName, LongBytes());
  std::string message;
  {
    const HeldFile held(folder.PathOf(BackupName), GetParam().share);
    message = KeepUnusable(folder.Path());
  }
  ExpectWholeFile(folder.PathOf(BackupName), message, LongBytes(), OldBytes);
  EXPECT_EQ(folder.Bytes(FileName), OldBytes);
  EXPECT_EQ(KeepUnusable(folder.Path()), "") << "nobody has it open any more";
  EXPECT_EQ(folder.Bytes(BackupName), OldBytes);
  EXPECT_EQ(folder.Names(), (Names{FileName, BackupName}));
}

TEST_P(HeldFileTest, ReadGivesItWhereThatIsShared) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  const HeldFile held(folder.PathOf(FileName), GetParam().share);
  if ((GetParam().share & FILE_SHARE_READ) != 0) {
    EXPECT_EQ(WhatIsRead(folder.Path()), OldBytes);
  } else {
    EXPECT_EQ(WhatIsRead(folder.Path()), "Cannot read " + NativePath(folder.PathOf(FileName)) +
                                             ": " + ReasonOf(ERROR_SHARING_VIOLATION));
  }
}

const std::vector<ShareCase> Shares{
    {"SharedForAll", FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE},
    {"SharedForReadingAndWriting", FILE_SHARE_READ | FILE_SHARE_WRITE},
    {"SharedForReading", FILE_SHARE_READ},
    {"SharedForWriting", FILE_SHARE_WRITE},
    {"NotShared", NotShared},
};

INSTANTIATE_TEST_SUITE_P(Held, HeldFileTest, ::testing::ValuesIn(Shares), NameOf);

TEST(ReadTest, MessageHasThePathInTheSystemsForm) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  const HeldFile held(folder.PathOf(FileName), NotShared);
  const auto message = WhatIsRead(folder.Path());
  const auto path = message.substr(0, message.find(FileName));
  EXPECT_TRUE(path.ends_with('\\')) << message;
  EXPECT_EQ(path.find('/'), std::string::npos) << message;
}

TEST(KeepUnusableTest, FileThatCannotBeReadIsAnErrorAndTheOlderCopyStays) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  folder.Put(BackupName, LongBytes());
  {
    const HeldFile held(folder.PathOf(FileName), NotShared);
    EXPECT_NE(KeepUnusable(folder.Path()), "");
  }
  EXPECT_EQ(folder.Bytes(FileName), OldBytes);
  EXPECT_EQ(folder.Bytes(BackupName), LongBytes());
  EXPECT_EQ(folder.Names(), (Names{FileName, BackupName}));
}

TEST(WriteTest, ReadOnlyFileIsReplacedAsAWholeOrStaysWithAMessage) {
  const TemporaryFolder folder;
  const QString path = folder.PathOf(FileName);
  folder.Put(FileName, LongBytes());
  SetAttributes(path, FILE_ATTRIBUTE_READONLY);
  ExpectWholeFile(path, Write(folder.Path(), BuiltInBytes()), LongBytes(), BuiltInBytes());
  EXPECT_EQ(folder.Names(), Names{FileName});
  SetAttributes(path, FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(Write(folder.Path(), OldBytes), "");
  EXPECT_EQ(folder.Bytes(FileName), OldBytes);
  EXPECT_EQ(folder.Names(), Names{FileName});
}

TEST(LeftoversTest, GoUnlessSomebodyHasThemOpen) {
  const TemporaryFolder folder;
  const Names others{FileName, BackupName, "Brindle2.ini.backup"};
  for (const auto& name : others) {
    folder.Put(name.c_str(), OldBytes);
  }
  for (const char* name : {"Brindle2.ini.tmp-61426344", "Brindle2.ini.bak.tmp-61426344"}) {
    folder.Put(name, OldBytes);
  }
  folder.Put("Brindle2.tmp-aBcDeF", "");
  {
    const HeldFile held(folder.PathOf("Brindle2.ini.tmp-61426344"), NotShared);
    SettingsFile(folder.Path()).SweepLeftovers();
    EXPECT_EQ(folder.Names().size(), others.size() + 1);
    EXPECT_TRUE(QFileInfo::exists(folder.PathOf("Brindle2.ini.tmp-61426344")));
  }
  SettingsFile(folder.Path()).SweepLeftovers();
  EXPECT_EQ(folder.Names().size(), others.size());
  for (const auto& name : others) {
    EXPECT_EQ(folder.Bytes(name.c_str()), OldBytes);
  }
}

TEST(ReadTest, ReadOnlyFileIsRead) {
  const TemporaryFolder folder;
  folder.Put(FileName, OldBytes);
  SetAttributes(folder.PathOf(FileName), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(WhatIsRead(folder.Path()), OldBytes);
  SetAttributes(folder.PathOf(FileName), FILE_ATTRIBUTE_NORMAL);
}

TEST(ChooseAppFolderTest, FolderOfOtherScriptsWithBlanksServesAsAnyOther) {
  const TemporaryFolder folder;
  const QString own = folder.PathOf("Größe 音 и %1 #1");
  const QString config = folder.PathOf("config");
  ASSERT_TRUE(QDir().mkdir(own));
  EXPECT_EQ(ChooseAppFolder(own, config).toStdString(), own.toStdString());
  EXPECT_FALSE(QFileInfo::exists(config));
  EXPECT_EQ(Write(own, OldBytes), "");
  EXPECT_EQ(KeepUnusable(own), "");
  EXPECT_EQ(Write(own, BuiltInBytes()), "");
  EXPECT_EQ(WhatIsRead(own), BuiltInBytes());
  EXPECT_EQ(TemporaryFolder::NamesIn(own), (Names{FileName, BackupName}));
  const QString path = own + u"/Brindle2.ini"_s;
  const HeldFile held(path, NotShared);
  EXPECT_EQ(WhatIsRead(own),
            "Cannot read " + NativePath(path) + ": " + ReasonOf(ERROR_SHARING_VIOLATION));
}

// The system's packages install into two folders of the test's own.
class ProgramFilesTest : public ::testing::Test {
 protected:
  ProgramFilesTest() {
    programs.Set(QDir::toNativeSeparators(Made("Program Files")));
    programsOf32Bits.Set(QDir::toNativeSeparators(Made("Program Files (x86)")));
  }

  // A folder, which exists from now on.
  [[nodiscard]] QString Made(const char* name) const {
    const QString path =
        QFileInfo(folder.Path()).canonicalFilePath() + u'/' + QString::fromUtf8(name);
    EXPECT_TRUE(QDir().mkpath(path));
    return path;
  }

  void ExpectOwnFolderFor(const QString& own) const {
    const QString config = folder.PathOf("config");
    EXPECT_EQ(ChooseAppFolder(own, config).toStdString(), own.toStdString());
    EXPECT_FALSE(QFileInfo::exists(config));
    EXPECT_EQ(TemporaryFolder::NamesIn(own), Names{});
  }

  TemporaryFolder folder;
  Environment programs{"ProgramFiles"};
  Environment programsOf32Bits{"ProgramFiles(x86)"};
};

struct PlaceCase {
  const char* name = "";
  const char* folder = "";
};

class PlaceTest : public ProgramFilesTest, public ::testing::WithParamInterface<PlaceCase> {};

TEST_P(PlaceTest, GivesTheConfigFolderAndCreatesIt) {
  ExpectConfigFolderFor(Made(GetParam().folder));
}

const std::vector<PlaceCase> Places{
    {"FolderOfAProgram", "Program Files/Brindle"},
    {"FolderOfA32BitProgram", "Program Files (x86)/Brindle"},
    {"FolderInAFolder", "Program Files/Velbrin/Brindle 2/bin"},
    {"TopOfThePrograms", "Program Files"},
    {"TopOfThe32BitPrograms", "Program Files (x86)"},
    {"OtherLetterCase", "PROGRAM files/brindle"},
    {"OtherLetterCaseOf32Bits", "program FILES (X86)/brindle"},
    {"RoundaboutPath", "Program Files/Velbrin/../Brindle"},
};

INSTANTIATE_TEST_SUITE_P(ProgramFolder, PlaceTest, ::testing::ValuesIn(Places), NameOf);

TEST_F(ProgramFilesTest, FolderWhoseNameOnlyBeginsAlikeIsNoPlaceOfPackages) {
  for (const auto* name : {"Program Files Mine", "Program Files Mine/Brindle", "Program File",
                           "Program Files (x86) Mine/Brindle", "Mine/Program Files/Brindle"}) {
    ExpectOwnFolderFor(Made(name));
  }
}

TEST_F(ProgramFilesTest, WithoutTheVariablesNoFolderIsAPlaceOfPackages) {
  programs.Unset();
  programsOf32Bits.Unset();
  ExpectOwnFolderFor(Made("Program Files/Brindle"));
  ExpectOwnFolderFor(Made("Program Files (x86)/Brindle"));
}

TEST(ChooseAppFolderTest, FolderThatIsMissingGivesTheConfigFolder) {
  const TemporaryFolder folder;
  ExpectConfigFolderFor(folder.PathOf("missing"));
  EXPECT_EQ(folder.Names(), Names{});
}

TEST(DesktopConfigFolderTest, LiesInTheUsersLocalApplicationData) {
  std::array<wchar_t, MAX_PATH> data{};
  ASSERT_EQ(
      SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, data.data()),
      S_OK);
  const QString folder = QDir::fromNativeSeparators(QString::fromWCharArray(data.data()));
  EXPECT_EQ(DesktopConfigFolder().toStdString(), QString(folder + u"/brindle2"_s).toStdString());
}

}  // namespace
}  // namespace brindle
