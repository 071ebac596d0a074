// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <string>
#include <windows.h>

#include <QDir>
#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include "base/files/system_files.h"
#include "tests/support/named_case.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/pass_windows_support.h"
#include "tests/wav/wav_builder.h"
#include "tests/wav/wav_file_support.h"
#include "wav/wav_file.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

TEST_F(WavFileTest, DevicesAreNotOpened) {
  for (const auto& path : {u"NUL"_s, u"nul"_s, u"COM1"_s, Folder().PathOf("NUL"),
                           Folder().PathOf("COM1"), u"\\\\.\\NUL"_s}) {
    const auto reason = NativePath(path) + ": not a file";
    WavFile file;
    EXPECT_EQ(TextOf(file.OpenForReading(path)), "Cannot read " + reason);
    EXPECT_EQ(TextOf(file.OpenForChanging(path)), "Cannot write " + reason);
    EXPECT_EQ(TextOf(file.OpenOrCreate(path)), "Cannot write " + reason);
    EXPECT_EQ(Opening(path), "Cannot read " + reason);
  }
  EXPECT_EQ(Folder().Names(), Names{});
}

// Which paths lead to one file.

TEST_F(SameFileTest, LetterCaseMakesNoDifference) {
  for (const char* name : {"FILE.WAV", "File.wav", "HARD.WAV", "FOLDER/../FILE.WAV"}) {
    ExpectSame(Folder().PathOf(name), true);
  }
  ExpectSame(Path().toUpper(), true);
  ExpectSame(Path().toLower(), true);
  ExpectSame(Folder().PathOf("COPY.WAV"), false);
}

TEST_F(SameFileTest, EitherSlash) {
  ExpectSame(QDir::toNativeSeparators(Path()), true);
  ExpectSame(QDir::fromNativeSeparators(Path()), true);
  ExpectSame(Folder().PathOf("folder\\..\\file.wav"), true);
  ExpectSame(QDir::toNativeSeparators(Folder().PathOf("copy.wav")), false);
}

TEST_F(SameFileTest, FormForAnyLength) {
  const auto prefix = u"\\\\?\\"_s;
  ExpectSame(prefix + QDir::toNativeSeparators(Path()), true);
  ExpectSame(prefix + QDir::toNativeSeparators(Folder().PathOf("hard.wav")), true);
  ExpectSame(prefix + QDir::toNativeSeparators(Folder().PathOf("copy.wav")), false);
}

TEST_F(SameFileTest, ShortNames) {
  const auto path = Folder().PathOf("a name of more than eight letters.wav");
  ASSERT_TRUE(QFile::copy(Path(), path));
  std::array<wchar_t, MAX_PATH> name{};
  const auto length = GetShortPathNameW(QDir::toNativeSeparators(path).toStdWString().c_str(),
                                        name.data(), static_cast<DWORD>(name.size()));
  ASSERT_GT(length, 0U);
  ASSERT_LT(length, name.size());
  // The path itself where the drive keeps no short names.
  const auto shortPath = QString::fromWCharArray(name.data(), static_cast<qsizetype>(length));
  EXPECT_TRUE(LeadToSameFile(path, shortPath)) << shortPath.toStdString();
  ExpectSame(shortPath, false);
}

TEST_F(SameFileTest, NamesOfOtherScripts) {
  const auto path = Folder().Path() + u"/\u00e9\u00df\u4e2d.wav"_s;
  ASSERT_TRUE(QFile::copy(Path(), path));
  const auto roundabout = Folder().Path() + u"/folder/../\u00c9\u00df\u4e2d.WAV"_s;
  EXPECT_TRUE(LeadToSameFile(path, roundabout));
  ExpectSame(path, false);
}

TEST_F(SameFileTest, TrailingDotsMakeNoDifference) {
  ExpectSame(Folder().PathOf("file.wav."), true);
  ExpectSame(Folder().PathOf("copy.wav."), false);
}

TEST_F(SameFileTest, Folders) {
  EXPECT_TRUE(LeadToSameFile(Folder().PathOf("folder"), Folder().PathOf("FOLDER")));
  EXPECT_FALSE(LeadToSameFile(Folder().PathOf("folder"), Folder().Path()));
}

TEST_F(SameFileTest, DevicesAreNoFiles) {
  for (const auto& path : {u"NUL"_s, Folder().PathOf("NUL"), u"\\\\.\\NUL"_s}) {
    ExpectSame(path, false);
    EXPECT_FALSE(LeadToSameFile(path, path)) << path.toStdString();
  }
}

TEST_F(SameFileTest, FileThatAnotherHoldsAlone) {
  const HeldFile holder(Path(), Changing, 0);
  ASSERT_TRUE(holder.IsHeld());
  ExpectSame(Folder().PathOf("FILE.WAV"), true);
  ExpectSame(Folder().PathOf("hard.wav"), true);
  ExpectSame(Folder().PathOf("copy.wav"), false);
}

// Files that another program holds, and does or does not share.

struct HoldCase {
  std::string name;
  DWORD access = 0;
  DWORD share = 0;
  bool isShared = false;  // with who reads, and lets others change the file
};

class HeldWav : public WavFileTest, public ::testing::WithParamInterface<HoldCase> {};

TEST_P(HeldWav, IsAlreadyOpenUnlessItIsShared) {
  const auto bytes = WavParts{.samples = "abcd"}.Bytes();
  Folder().Put("file.wav", bytes);
  EXPECT_EQ(Opening(Path()), "4");
  {
    const HeldFile holder(Path(), GetParam().access, GetParam().share);
    ASSERT_TRUE(holder.IsHeld());
    EXPECT_EQ(Opening(Path()), GetParam().isShared ? "4" : "already open");
  }
  EXPECT_EQ(Opening(Path()), "4");
  EXPECT_TRUE(CanBeHeldAlone(Path()));
  EXPECT_EQ(Folder().Bytes("file.wav"), bytes);
}

TEST_P(HeldWav, IsSaidBeforeWhatIsWrongWithTheFile) {
  Folder().Put("file.wav", "no WAV at all");
  const HeldFile holder(Path(), GetParam().access, GetParam().share);
  ASSERT_TRUE(holder.IsHeld());
  EXPECT_EQ(Opening(Path()), GetParam().isShared ? "no WAV" : "already open");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, HeldWav,
    ::testing::Values(HoldCase{"ReadAlone", GENERIC_READ, 0, false},
                      HoldCase{"ChangedAlone", Changing, 0, false},
                      HoldCase{"SharedForWritingOnly", GENERIC_READ, FILE_SHARE_WRITE, false},
                      HoldCase{"SharedForDeletingOnly", GENERIC_READ, FILE_SHARE_DELETE, false},
                      HoldCase{"ToBeDeleted", GENERIC_READ | DELETE, SharedForChanging, false},
                      HoldCase{"SharedForReading", GENERIC_READ, FILE_SHARE_READ, true},
                      HoldCase{"ChangedAndSharedForReading", Changing, FILE_SHARE_READ, true},
                      HoldCase{"SharedForAll", Changing, SharedForChanging | FILE_SHARE_DELETE,
                               true}),
    NameOf);

TEST_F(WavFileTest, FileThatIsNotThereIsNotLocked) {
  WavFile file;
  EXPECT_NE(TextOf(file.OpenForReading(Path())), "no error");
  EXPECT_FALSE(IsLocked(Path()));
}

// Files of which another program has locked a range.

struct LockCase {
  std::string name;
  bool isExclusive = false;
  DWORD first = 0;
  DWORD length = 0;
};

class LockedWav : public WavFileTest, public ::testing::WithParamInterface<LockCase> {
 protected:
  // Whether the holder has got the lock.
  [[nodiscard]] static bool LockIt(const HeldFile& holder) {
    return holder.Lock(GetParam().isExclusive, GetParam().first, GetParam().length);
  }
};

TEST_P(LockedWav, IsAlreadyOpenUntilTheLockIsGone) {
  Folder().Put("file.wav", WavParts{.samples = "abcd"}.Bytes());
  EXPECT_EQ(Opening(Path()), "4");
  {
    const HeldFile holder(Path(), Changing, SharedForChanging);
    ASSERT_TRUE(LockIt(holder));
    EXPECT_EQ(Opening(Path()), GetParam().isExclusive ? "already open" : "4");
  }
  EXPECT_EQ(Opening(Path()), "4");
}

TEST_P(LockedWav, IsSaidBeforeWhatIsWrongWithTheFile) {
  Folder().Put("file.wav", "no WAV at all");
  const HeldFile holder(Path(), Changing, SharedForChanging);
  ASSERT_TRUE(LockIt(holder));
  EXPECT_EQ(Opening(Path()), GetParam().isExclusive ? "already open" : "no WAV");
}

INSTANTIATE_TEST_SUITE_P(Cases, LockedWav,
                         ::testing::Values(LockCase{"ExclusiveFromTheStart", true, 0, MAXDWORD},
                                           LockCase{"ExclusiveByte", true, 45, 1},
                                           LockCase{"ExclusiveBehindTheEnd", true, 1'000'000, 1},
                                           LockCase{"SharedFromTheStart", false, 0, MAXDWORD},
                                           LockCase{"SharedByte", false, 45, 1}),
                         NameOf);

class LockOfWavFile : public WavFileTest {
 protected:
  void SetUp() override {
    Folder().Put("file.wav", "abc");
    ASSERT_EQ(TextOf(file_.OpenForChanging(Path())), "no error");
  }

 private:
  WavFile file_;
};

TEST_F(LockOfWavFile, LookingLeavesNoLockBehind) {
  EXPECT_FALSE(IsLocked(Path()));
  const HeldFile other(Path(), Changing, SharedForChanging);
  EXPECT_TRUE(other.Lock(true, 0, MAXDWORD));
}

TEST_F(LockOfWavFile, LookingLeavesTheLocksOfOthersAlone) {
  const HeldFile holder(Path(), Changing, SharedForChanging);
  const HeldFile third(Path(), Changing, SharedForChanging);
  ASSERT_TRUE(holder.Lock(true, 0, 3));
  EXPECT_TRUE(IsLocked(Path()));
  EXPECT_FALSE(third.Lock(false, 0, 3));
}

TEST_F(LockOfWavFile, SharedLockOfAnotherIsNotInTheWay) {
  const HeldFile holder(Path(), Changing, SharedForChanging);
  ASSERT_TRUE(holder.Lock(false, 0, 3));
  EXPECT_FALSE(IsLocked(Path()));
  EXPECT_TRUE(holder.Lock(false, 0, 3)) << "as often as it likes";
}

}  // namespace
}  // namespace brindle
