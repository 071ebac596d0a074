// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <sched.h>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include <QFile>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include "base/files/disk.h"
#include "base/files/system_disk.h"
#include "tests/base/files/system_disk_support.h"
#include "tests/base/settings/child_process.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/unprivileged.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr std::size_t Unit = DiskFile::DirectUnit;
constexpr const char* Used = "another program is using the file";

// Open with the system's own call, closed with this.
class RawFile {
 public:
  RawFile(const QString& path, int flags)
      // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
      : number_(open(path.toUtf8().constData(), flags | O_CLOEXEC)) {}
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;
  RawFile(RawFile&&) = delete;
  RawFile& operator=(RawFile&&) = delete;
  ~RawFile() {
    if (number_ >= 0) {
      close(number_);
    }
  }
  [[nodiscard]] int Number() const { return number_; }

 private:
  int number_;
};

// How many pages of the file are in the system's cache.
std::size_t CachedPages(const QString& path, std::size_t pages) {
  const RawFile file(path, O_RDWR);
  void* mapped = mmap(nullptr, pages * Unit, PROT_READ, MAP_SHARED, file.Number(), 0);
  EXPECT_NE(mapped, MAP_FAILED);
  std::vector<unsigned char> cached(pages);
  EXPECT_EQ(mincore(mapped, pages * Unit, cached.data()), 0);
  munmap(mapped, pages * Unit);
  std::size_t count = 0;
  for (const auto page : cached) {
    count += page & 1U;
  }
  return count;
}

struct alignas(Unit) Page {
  std::array<char, Unit> bytes = {};
};

// Files of every kind.

TEST_F(SystemDiskTest, OnlyRegularFilesAreOpened) {
  const auto pipe = Folder().PathOf("pipe");
  ASSERT_EQ(mkfifo(pipe.toUtf8().constData(), S_IRWXU), 0);
  const auto link = Folder().PathOf("link");
  ASSERT_TRUE(QFile::link(pipe, link));
  for (const auto& path : {pipe, link, u"/dev/null"_s}) {
    for (const auto use :
         {OpenFor::Reading, OpenFor::Changing, OpenFor::ChangingOrCreate, OpenFor::CreatingOnly}) {
      EXPECT_EQ(InChild([&] {
                  alarm(60);
                  return ErrorOf(TheSystemsDisk().Open(path, use));
                }),
                ErrorAt(path, "not a file"));
    }
  }
  EXPECT_EQ(TheSystemsDisk().FilesIn(Folder().Path()), QStringList(u"file"_s));
}

TEST_F(SystemDiskTest, LinksAreFollowedButNotCreatedThrough) {
  const auto link = Folder().PathOf("link");
  const auto dangling = Folder().PathOf("dangling");
  ASSERT_TRUE(QFile::link(Path(), link));
  ASSERT_TRUE(QFile::link(Missing(), dangling));
  EXPECT_EQ(Read(*Opened(link, OpenFor::Reading), 0, 8), "abcdefgh");
  EXPECT_TRUE(Opened(link)->Stamp()->IsSameFile(*Opened(Path())->Stamp()));
  EXPECT_EQ(ErrorOf(TheSystemsDisk().Open(dangling, OpenFor::CreatingOnly)),
            ErrorAt(dangling, EEXIST));
  EXPECT_FALSE(QFile::exists(Missing()));
  EXPECT_EQ(TheSystemsDisk().FilesIn(Folder().Path()), QStringList(u"file"_s));
}

TEST_F(SystemDiskTest, AFileIsMissedAtItsPath) {
  const auto file = Opened(Path());
  ASSERT_TRUE(TheSystemsDisk().Rename(Path(), Folder().PathOf("elsewhere")));
  EXPECT_EQ(ErrorOf(file->CheckAtItsPath()), ErrorAt(Path(), "the file is gone"));
  Folder().Put("file", "another");
  EXPECT_EQ(ErrorOf(file->CheckAtItsPath()), ErrorAt(Path(), "the file was replaced"));
  ASSERT_TRUE(TheSystemsDisk().Rename(Folder().PathOf("elsewhere"), Path()));
  EXPECT_EQ(ErrorOf(file->CheckAtItsPath()), "no error");
}

TEST_F(SystemDiskTest, AMissingFolderIsNotSynchronised) {
  EXPECT_EQ(ErrorOf(TheSystemsDisk().SyncFolder(Missing())), ErrorAt(Missing(), ENOENT));
  EXPECT_EQ(ErrorOf(TheSystemsDisk().SyncFolder(Path())), ErrorAt(Path(), ENOTDIR));
}

// Writes past the cache.

TEST_F(SystemDiskTest, DirectWritesSpareTheCache) {
  constexpr std::size_t pages = 16;
  const std::vector<Page> bytes(pages);
  Folder().Put("control", "");
  {
    const RawFile control(Folder().PathOf("control"), O_WRONLY | O_DIRECT);
    const bool isDirect =
        control.Number() >= 0 && pwrite(control.Number(), bytes.data(), pages * Unit, 0) ==
                                     static_cast<ssize_t>(pages * Unit);
    if (!isDirect || CachedPages(Folder().PathOf("control"), pages) != 0) {
      GTEST_SKIP() << "NOT RUN, cannot prove: the folder's file system always has a cache";
    }
  }
  EXPECT_EQ(ErrorOf(Opened(Path())->WriteDirect(0, std::as_bytes(std::span(bytes)))), "no error");
  EXPECT_EQ(CachedPages(Path(), pages), 0U);
  EXPECT_EQ(ErrorOf(Opened(Path())->Write(0, std::as_bytes(std::span(bytes)))), "no error");
  EXPECT_EQ(CachedPages(Path(), pages), pages);
}

// Some disks take such writes in the usual way only.
TEST_F(SystemDiskTest, DirectWritesThatTheSystemRefusesAreDoneAllTheSame) {
  const auto file = Opened(Path());
  const std::string odd(1000, 'x');  // neither the place nor the length suits the system
  EXPECT_EQ(ErrorOf(file->WriteDirect(3, BytesOf(odd))), "no error");
  EXPECT_EQ(Bytes(), "abc" + odd);
}

// Locks of other programs.

TEST_F(SystemDiskTest, ALockIsSeenByOtherPrograms) {
  const auto inAnother = [&](bool isToBeWritten) {
    return InChild([&] { return ErrorOf(Opened(Path())->Lock(isToBeWritten)); });
  };
  const auto file = Opened(Path());
  EXPECT_EQ(inAnother(true), "no error");
  ASSERT_TRUE(file->Lock(false));
  EXPECT_EQ(inAnother(true), ErrorAt(Path(), Used));
  EXPECT_EQ(inAnother(false), "no error");
  file->Unlock();
  EXPECT_EQ(inAnother(true), "no error");
  ASSERT_TRUE(file->Lock(true));
  EXPECT_EQ(inAnother(true), ErrorAt(Path(), Used));
  EXPECT_EQ(inAnother(false), ErrorAt(Path(), Used));
}

// Programs use one kind or the other.
TEST_F(SystemDiskTest, BothKindsOfLocksCount) {
  const auto inAnother = [&] {
    return InChild([&] { return ErrorOf(Opened(Path())->Lock(true)); });
  };
  {
    const RawFile other(Path(), O_RDWR);
    ASSERT_EQ(flock(other.Number(), LOCK_EX), 0);
    EXPECT_EQ(inAnother(), ErrorAt(Path(), Used));
  }
  {
    const RawFile other(Path(), O_RDWR);
    struct flock range = {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    range.l_start = 100;
    range.l_len = 1;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
    ASSERT_EQ(fcntl(other.Number(), F_SETLK, &range), 0);
    EXPECT_EQ(inAnother(), ErrorAt(Path(), Used));
  }
  EXPECT_EQ(inAnother(), "no error");
}

// This program's other descriptors of the file leave the lock alone when they are closed.
TEST_F(SystemDiskTest, ALockOutlivesOtherDescriptors) {
  const auto file = Opened(Path());
  ASSERT_TRUE(file->Lock(true));
  Opened(Path(), OpenFor::Reading).reset();
  EXPECT_EQ(InChild([&] { return ErrorOf(Opened(Path())->Lock(true)); }), ErrorAt(Path(), Used));
}

// Disks that are full.

// Runs the check in a process that sees a small disk of its own in the folder. Skipped if no disk
// can be mounted.
void OnASmallDisk(const QString& folder, const std::function<void(Findings&)>& check) {
  constexpr std::string_view cannotProve = "cannot prove: ";
  const auto report = InChild([&] {
    const auto path = folder.toUtf8();
    const bool isMounted =
        (unshare(CLONE_NEWNS) == 0 || unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0) &&
        mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
        mount("tmpfs", path.constData(), "tmpfs", 0, "size=1m") == 0;
    if (!isMounted) {
      return std::string(cannotProve) + "no disk can be mounted: " + std::strerror(errno);
    }
    Findings found;
    check(found);
    return found.Text();
  });
  if (report.starts_with(cannotProve)) {
    GTEST_SKIP() << "NOT RUN, " << report;
  }
  EXPECT_EQ(report, "");
}

TEST_F(SystemDiskTest, RoomIsSetAsideOrMissedAtOnce) {
  OnASmallDisk(Folder().Path(), [&](Findings& found) {
    constexpr qint64 half = 524'288;
    auto file = TheSystemsDisk().Open(Path(), OpenFor::CreatingOnly);
    found.ExpectEqual(ErrorOf(file), "no error", "creating");
    found.ExpectEqual(ErrorOf((*file)->SetLength(4 * half)), ErrorAt(Path(), ENOSPC), "too much");
    found.Expect((*file)->Length() == 0, "the file grew although there is no room");
    found.ExpectEqual(ErrorOf((*file)->SetLength(half)), "no error", "half of it");
    found.Expect(TheSystemsDisk().FreeBytes(Folder().Path()) == half, "other room is left");

    // Another file takes the rest.
    auto other = TheSystemsDisk().Open(Missing(), OpenFor::CreatingOnly);
    found.ExpectEqual(Write(**other, 0, std::string(2 * half, 'x')), ErrorAt(Missing(), ENOSPC),
                      "filling the disk");
    found.Expect(TheSystemsDisk().FreeBytes(Folder().Path()) == 0, "room is left");
    found.ExpectEqual(Write(**file, 0, std::string(half, 'y')), "no error", "into the room");
    found.ExpectEqual(Write(**file, half, "y"), ErrorAt(Path(), ENOSPC), "after the room");
    found.ExpectEqual(ErrorOf((*file)->SetLength(half + 1)), ErrorAt(Path(), ENOSPC), "more room");
    found.ExpectEqual(ErrorOf((*file)->SetLength(0)), "no error", "giving it back");
  });
}

TEST_F(SystemDiskTest, AWriteThatDoesNotFitIsAnError) {
  EXPECT_EQ(InChild([&] {
              FillDisk(100);
              const auto file = Opened(Path());
              return Write(*file, 0, std::string(60, 'x')) + "; " +
                     Write(*file, 60, std::string(60, 'y'));
            }),
            "no error; " + ErrorAt(Path(), EFBIG));
  EXPECT_EQ(Bytes(), std::string(60, 'x') + std::string(40, 'y'));
}

// Folders and files of others.

TEST_F(SystemDiskTest, AFolderThatMayNotBeWritten) {
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    chmod(Folder().Path().toUtf8().constData(), S_IRUSR | S_IXUSR);
    const auto& disk = TheSystemsDisk();
    const auto denied = [](const QString& path) { return ErrorAt(path, EACCES); };
    found.ExpectEqual(ErrorOf(disk.Open(Missing(), OpenFor::CreatingOnly)), denied(Missing()),
                      "creating only");
    found.ExpectEqual(ErrorOf(disk.Open(Missing(), OpenFor::ChangingOrCreate)), denied(Missing()),
                      "creating");
    found.ExpectEqual(ErrorOf(disk.Remove(Path())), denied(Path()), "removing");
    found.ExpectEqual(ErrorOf(disk.Rename(Path(), Missing())), denied(Path()), "renaming");
    found.ExpectEqual(ErrorOf(disk.MakeFolder(Missing())), denied(Missing()), "a folder");
    found.ExpectEqual(ErrorOf(disk.Open(Path(), OpenFor::Changing)), "no error", "changing");
    found.ExpectEqual(ErrorOf(disk.SyncFolder(Folder().Path())), "no error", "synchronising");
  });
}

TEST_F(SystemDiskTest, OnlyItsUserLooksIntoAFolderThatWasMade) {
  const auto path = Folder().Path() + u"/mine"_s;
  const auto mask = umask(0);
  EXPECT_EQ(ErrorOf(TheSystemsDisk().MakeFolder(path)), "no error");
  umask(mask);
  constexpr auto everyone = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                            QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
  EXPECT_EQ(QFile::permissions(path) & everyone, QFile::Permissions());
}

TEST_F(SystemDiskTest, AFileThatMayOnlyBeRead) {
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    chmod(Path().toUtf8().constData(), S_IRUSR);
    found.ExpectEqual(ErrorOf(TheSystemsDisk().Open(Path(), OpenFor::Changing)),
                      ErrorAt(Path(), EACCES), "changing");
    auto file = TheSystemsDisk().Open(Path(), OpenFor::Reading);
    found.ExpectEqual(ErrorOf(file), "no error", "reading");
    found.ExpectEqual(Read(**file, 0, 8), "abcdefgh", "what is read");
    found.ExpectEqual(ErrorOf((*file)->Lock(false)), "no error", "locking");
  });
}

TEST_F(SystemDiskTest, AFolderThatMayNotBeReadHasNoFiles) {
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    chmod(Folder().Path().toUtf8().constData(), 0);
    found.Expect(TheSystemsDisk().FilesIn(Folder().Path()).isEmpty(), "files are found");
    found.ExpectEqual(ErrorOf(TheSystemsDisk().Open(Path(), OpenFor::Reading)),
                      ErrorAt(Path(), EACCES), "reading");
  });
}

}  // namespace
}  // namespace brindle
