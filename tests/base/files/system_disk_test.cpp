// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/files/system_disk.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include <QDir>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include "base/files/disk.h"
#include "tests/base/files/system_disk_support.h"
#include "tests/base/settings/temporary_folder.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr int NoSuchFile = 2;

// Files.

TEST_F(SystemDiskTest, ReadsAtAnyOffset) {
  const auto file = Opened(Path(), OpenFor::Reading);
  EXPECT_EQ(Read(*file, 0, 8), "abcdefgh");
  EXPECT_EQ(Read(*file, 3, 2), "de");
  EXPECT_EQ(Read(*file, 1, 3), "bcd");
  EXPECT_EQ(Read(*file, 4, 3), "efg");
  EXPECT_EQ(Read(*file, 0, 0), "");
}

TEST_F(SystemDiskTest, ReadsWhatThereIsBeforeTheEnd) {
  const auto file = Opened(Path(), OpenFor::Reading);
  EXPECT_EQ(Read(*file, 6, 100), "gh");
  EXPECT_EQ(Read(*file, 8, 5), "");
  EXPECT_EQ(Read(*file, 5000, 5), "");
}

TEST_F(SystemDiskTest, WritesAtAnyOffset) {
  const auto file = Opened(Path());
  EXPECT_EQ(Write(*file, 4, "XY"), "no error");
  EXPECT_EQ(Read(*file, 3, 4), "dXYg");
  EXPECT_EQ(Write(*file, 0, "Z"), "no error");
  // Without a buffer: everybody sees it at once.
  EXPECT_EQ(Bytes(), "ZbcdXYgh");
}

TEST_F(SystemDiskTest, GrowsByAWritePastItsEnd) {
  const auto file = Opened(Path());
  EXPECT_EQ(Write(*file, 7, "HI"), "no error");
  EXPECT_EQ(file->Length(), 9);
  EXPECT_EQ(Write(*file, 12, "!"), "no error");
  EXPECT_EQ(Bytes(), std::string("abcdefgHI\0\0\0!", 13));
}

TEST_F(SystemDiskTest, IsAsLongAsItIsMade) {
  const auto file = Opened(Path());
  EXPECT_EQ(ErrorOf(file->SetLength(10)), "no error");
  EXPECT_EQ(Bytes(), std::string("abcdefgh\0\0", 10));
  EXPECT_EQ(ErrorOf(file->SetLength(3)), "no error");
  EXPECT_EQ(file->Length(), 3);
  EXPECT_EQ(ErrorOf(file->SetLength(3)), "no error");
  EXPECT_EQ(ErrorOf(file->SetLength(5)), "no error");
  EXPECT_EQ(Bytes(), std::string("abc\0\0", 5)) << "what was cut off is gone";
  EXPECT_EQ(ErrorOf(file->SetLength(0)), "no error");
  EXPECT_EQ(Bytes(), "");
}

TEST_F(SystemDiskTest, LengthIsThatOfTheMoment) {
  const auto file = Opened(Path(), OpenFor::Reading);
  const auto other = Opened(Path());
  EXPECT_EQ(file->Length(), 8);
  EXPECT_EQ(Write(*other, 0, std::string(100, 'x')), "no error");
  EXPECT_EQ(file->Length(), 100);
}

TEST_F(SystemDiskTest, IsSynchronised) {
  const auto file = Opened(Path());
  EXPECT_EQ(ErrorOf(file->Sync()), "no error");
  EXPECT_EQ(Write(*file, 0, "x"), "no error");
  EXPECT_EQ(ErrorOf(file->Sync()), "no error");
  EXPECT_EQ(ErrorOf(Opened(Path(), OpenFor::Reading)->CheckAtItsPath()), "no error");
}

// Many bytes at once.

struct alignas(DiskFile::DirectUnit) Page {
  std::array<char, DiskFile::DirectUnit> bytes;
};

std::vector<Page> Pages(std::size_t count, char first) {
  std::vector<Page> pages(count);
  for (auto& page : pages) {
    page.bytes.fill(first++);
  }
  return pages;
}
std::string TextOf(const std::vector<Page>& pages) {
  std::string text;
  for (const auto& page : pages) {
    text.append(page.bytes.data(), page.bytes.size());
  }
  return text;
}

TEST_F(SystemDiskTest, DirectWritesAreLikeAnyOthers) {
  constexpr std::size_t unit = DiskFile::DirectUnit;
  const auto file = Opened(Path());
  const auto pages = Pages(5, 'A');
  EXPECT_EQ(ErrorOf(file->WriteDirect(unit, std::as_bytes(std::span(pages)))), "no error");
  EXPECT_EQ(file->Length(), static_cast<qint64>(6 * unit));
  EXPECT_EQ(Read(*file, unit, 5 * unit), TextOf(pages));
  EXPECT_EQ(Bytes(), "abcdefgh" + std::string(unit - 8, '\0') + TextOf(pages));

  // Over what the system has in its cache, and read from there again.
  EXPECT_EQ(Write(*file, 2 * unit + 10, "between"), "no error");
  const auto others = Pages(2, 'a');
  EXPECT_EQ(ErrorOf(file->WriteDirect(2 * unit, std::as_bytes(std::span(others)))), "no error");
  EXPECT_EQ(Read(*file, 2 * unit, 2 * unit), TextOf(others));
  EXPECT_EQ(Write(*file, 3 * unit + 10, "after"), "no error");
  EXPECT_EQ(Read(*file, 3 * unit + 9, 7), "bafterb");
  EXPECT_EQ(ErrorOf(file->Sync()), "no error");
}

TEST_F(SystemDiskTest, AFileForReadingTakesNoWrites) {
  const auto file = Opened(Path(), OpenFor::Reading);
  const auto pages = Pages(1, 'A');
  EXPECT_FALSE(file->Write(0, std::as_bytes(std::span(pages))));
  EXPECT_EQ(Bytes(), "abcdefgh");
}

// How they are opened.

TEST_F(SystemDiskTest, OpensWhatThereIs) {
  EXPECT_TRUE(TheSystemsDisk().Open(Path(), OpenFor::Reading));
  EXPECT_TRUE(TheSystemsDisk().Open(Path(), OpenFor::Changing));
  EXPECT_TRUE(TheSystemsDisk().Open(Path(), OpenFor::ChangingOrCreate));
  EXPECT_EQ(Bytes(), "abcdefgh");
}

TEST_F(SystemDiskTest, OpensNothingThatIsMissing) {
  for (const auto use : {OpenFor::Reading, OpenFor::Changing}) {
    EXPECT_EQ(ErrorOf(TheSystemsDisk().Open(Missing(), use)), ErrorAt(Missing(), NoSuchFile));
  }
  EXPECT_EQ(Folder().Names(), std::vector<std::string>{"file"});
}

TEST_F(SystemDiskTest, Creates) {
  EXPECT_EQ(Write(*Opened(Missing(), OpenFor::ChangingOrCreate), 0, "new"), "no error");
  EXPECT_EQ(Folder().Bytes("missing"), "new");
  const auto another = Folder().PathOf("another");
  const auto file = Opened(another, OpenFor::CreatingOnly);
  EXPECT_EQ(Write(*file, 0, "newer"), "no error");
  EXPECT_EQ(Read(*file, 0, 9), "newer");
  EXPECT_EQ(Folder().Bytes("another"), "newer");
}

TEST_F(SystemDiskTest, CreatesOnlyWhatThereIsNot) {
  const auto opened = TheSystemsDisk().Open(Path(), OpenFor::CreatingOnly);
  ASSERT_FALSE(opened);
  EXPECT_EQ(opened.error().path, QDir::toNativeSeparators(Path()));
  EXPECT_NE(opened.error().reason, QString());
  EXPECT_EQ(Bytes(), "abcdefgh");
}

TEST_F(SystemDiskTest, AFolderIsNotAFile) {
  for (const auto use :
       {OpenFor::Reading, OpenFor::Changing, OpenFor::ChangingOrCreate, OpenFor::CreatingOnly}) {
    EXPECT_EQ(ErrorOf(TheSystemsDisk().Open(Folder().Path(), use)),
              ErrorAt(Folder().Path(), "not a file"));
  }
}

// Which file it is.

TEST_F(SystemDiskTest, AStampTellsAFileByAnyPath) {
  Folder().Put("other", "abcdefgh");
  const auto stamp = *Opened(Path())->Stamp();
  EXPECT_TRUE(Opened(Path())->Stamp()->IsSameFile(stamp));
  EXPECT_FALSE(Opened(Folder().PathOf("other"))->Stamp()->IsSameFile(stamp));
  ASSERT_TRUE(TheSystemsDisk().Rename(Path(), Missing()));
  EXPECT_EQ(*Opened(Missing())->Stamp(), stamp);
}

TEST_F(SystemDiskTest, AStampTellsWhenAFileWasChanged) {
  const auto stamp = *Opened(Path())->Stamp();
  std::filesystem::last_write_time(
      Path().toStdU16String(),
      std::filesystem::last_write_time(Path().toStdU16String()) - std::chrono::hours(1));
  const auto changed = *Opened(Path())->Stamp();
  EXPECT_LT(changed.changed, stamp.changed);
  EXPECT_TRUE(changed.IsSameFile(stamp));
  EXPECT_NE(changed, stamp);
}

TEST_F(SystemDiskTest, FilesWithoutANumberAreNeverTheSame) {
  EXPECT_FALSE(FileStamp().IsSameFile(FileStamp()));
}

// Locks.

TEST_F(SystemDiskTest, ALockKeepsOthersOut) {
  const auto first = Opened(Path());
  const auto second = Opened(Path());
  EXPECT_EQ(ErrorOf(first->Lock(true)), "no error");
  const auto refused = ErrorAt(Path(), "another program is using the file");
  EXPECT_EQ(ErrorOf(second->Lock(true)), refused);
  EXPECT_EQ(ErrorOf(second->Lock(false)), refused);
  first->Unlock();
  EXPECT_EQ(ErrorOf(second->Lock(true)), "no error");
}

TEST_F(SystemDiskTest, ReadersShareALock) {
  const auto first = Opened(Path());
  const auto second = Opened(Path());
  EXPECT_EQ(ErrorOf(first->Lock(false)), "no error");
  EXPECT_EQ(ErrorOf(second->Lock(false)), "no error");
  const auto third = Opened(Path());
  EXPECT_EQ(ErrorOf(third->Lock(true)), ErrorAt(Path(), "another program is using the file"));
}

TEST_F(SystemDiskTest, AClosedFileIsLockedNoMore) {
  auto first = Opened(Path());
  EXPECT_EQ(ErrorOf(first->Lock(true)), "no error");
  first.reset();
  EXPECT_EQ(ErrorOf(Opened(Path())->Lock(true)), "no error");
}

// Folders.

TEST_F(SystemDiskTest, RemovesAFile) {
  EXPECT_EQ(ErrorOf(TheSystemsDisk().Remove(Path())), "no error");
  EXPECT_EQ(Folder().Names(), std::vector<std::string>());
  EXPECT_EQ(ErrorOf(TheSystemsDisk().Remove(Path())), ErrorAt(Path(), NoSuchFile));
}

TEST_F(SystemDiskTest, RenamesAFileOverAnother) {
  Folder().Put("other", "to be replaced");
  EXPECT_EQ(ErrorOf(TheSystemsDisk().Rename(Path(), Folder().PathOf("other"))), "no error");
  EXPECT_EQ(Folder().Names(), std::vector<std::string>{"other"});
  EXPECT_EQ(Folder().Bytes("other"), "abcdefgh");
  EXPECT_EQ(ErrorOf(TheSystemsDisk().Rename(Path(), Missing())), ErrorAt(Path(), NoSuchFile));
}

TEST_F(SystemDiskTest, MakesAFolderWithThoseAboveIt) {
  const auto path = Folder().Path() + u"/one/two/th\u00E4ree"_s;
  EXPECT_EQ(ErrorOf(TheSystemsDisk().MakeFolder(path)), "no error");
  EXPECT_TRUE(QDir(path).exists());
  EXPECT_EQ(ErrorOf(TheSystemsDisk().MakeFolder(path)), "no error");
  EXPECT_EQ(ErrorOf(TheSystemsDisk().SyncFolder(path)), "no error");
  const auto made = TheSystemsDisk().MakeFolder(Path() + u"/folder"_s);
  ASSERT_FALSE(made);
  EXPECT_EQ(made.error().path, QDir::toNativeSeparators(Path())) << "it is what stands in the way";
}

TEST_F(SystemDiskTest, ListsTheFilesOfAFolder) {
  Folder().Put(".hidden", "");
  Folder().Put("another", "");
  ASSERT_TRUE(QDir(Folder().Path()).mkdir(u"folder"_s));
  EXPECT_EQ(TheSystemsDisk().FilesIn(Folder().Path()),
            (QStringList{u".hidden"_s, u"another"_s, u"file"_s}));
  EXPECT_EQ(TheSystemsDisk().FilesIn(Missing()), QStringList());
  EXPECT_EQ(TheSystemsDisk().FilesIn(Path()), QStringList());
}

TEST_F(SystemDiskTest, KnowsTheRoomThatIsLeft) {
  const auto free = TheSystemsDisk().FreeBytes(Folder().Path());
  ASSERT_TRUE(free);
  EXPECT_GT(*free, 0);
}

}  // namespace
}  // namespace brindle
