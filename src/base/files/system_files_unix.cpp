// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <span>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include <QFile>
#include <QString>

#include "base/files/at_path.h"
#include "base/files/disk.h"
#include "base/files/sync_file.h"
#include "base/files/system_files.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

tl::unexpected<QString> BecauseOf(int error) { return tl::unexpected(qt_error_string(error)); }

// A lock of a range that covers the whole file.
struct flock WholeFile(short type) {
  struct flock range = {};
  range.l_type = type;
  range.l_whence = SEEK_SET;
  return range;
}

// An open descriptor that is closed with this.
class Descriptor {
 public:
  Descriptor(const QString& path, int flags)
      // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
      : number_(open(QFile::encodeName(path).constData(), flags | O_CLOEXEC)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() {
    if (number_ >= 0) {
      close(number_);
    }
  }
  [[nodiscard]] int Number() const { return number_; }

 private:
  int number_;
};

}  // namespace

// Checks two independent kinds of locks: on a whole file, and on its ranges. Neither keeps a file
// from being opened.
bool IsLocked(const QString& path) {
  // Opening a device or a pipe could have side effects.
  if (!IsFileAt(path).value_or(false)) {
    return false;
  }
  const Descriptor file(path, O_RDONLY);
  if (flock(file.Number(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    return true;
  }
  auto range = WholeFile(F_RDLCK);
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
  return fcntl(file.Number(), F_GETLK, &range) == 0 && range.l_type == F_WRLCK;
}

bool IsHeld(const QString&) { return false; }

tl::expected<void, QString> RenameFile(const QString& from, const QString& to) {
  std::error_code code;
  std::filesystem::rename(from.toStdU16String(), to.toStdU16String(), code);
  if (code) {
    return tl::unexpected(qt_error_string(code.value()));
  }
  return {};
}

tl::expected<qint64, QString> LengthOf(const QFile& file) {
  struct stat opened = {};
  if (fstat(file.handle(), &opened) != 0) {
    return BecauseOf(errno);
  }
  return qint64{opened.st_size};
}

tl::expected<void, QString> CheckAtItsPath(const QFile& file) {
  const auto path = QFile::encodeName(file.fileName());
  struct stat opened = {};
  struct stat standing = {};
  if (fstat(file.handle(), &opened) != 0) {
    return BecauseOf(errno);
  }
  if (stat(path.constData(), &standing) != 0) {
    return tl::unexpected(errno == ENOENT || errno == ENOTDIR ? u"the file is gone"_s
                                                              : qt_error_string(errno));
  }
  if (opened.st_dev != standing.st_dev || opened.st_ino != standing.st_ino) {
    return tl::unexpected(u"the file was replaced"_s);
  }
  return {};
}

bool LeadToSameFile(const QString& path, const QString& other) {
  std::error_code none;
  return std::filesystem::equivalent(path.toStdU16String(), other.toStdU16String(), none);
}

tl::expected<FileStamp, QString> StampOf(const QFile& file) {
  constexpr quint64 nanoseconds = 1'000'000'000;
  struct stat opened = {};
  if (fstat(file.handle(), &opened) != 0) {
    return BecauseOf(errno);
  }
  return FileStamp{.volume = opened.st_dev,
                   .number = opened.st_ino,
                   .changed = static_cast<quint64>(opened.st_mtim.tv_sec) * nanoseconds +
                              static_cast<quint64>(opened.st_mtim.tv_nsec)};
}

tl::expected<void, QString> SetRoomAside(QFile& file, qint64 length) {
  int error = 0;
  do {
    error = posix_fallocate(file.handle(), 0, length);
  } while (error == EINTR);
  if (error != 0) {
    return BecauseOf(error);
  }
  return {};
}

// Both kinds that IsLocked() knows. The lock of the range belongs to this descriptor: another one
// of this program that is closed in the meantime leaves it alone. On some network file systems the
// two kinds are one and in each other's way; then one is enough.
tl::expected<void, QString> LockFile(const QFile& file, bool isToBeWritten) {
  const auto lockRange = [&](short type) {
    auto range = WholeFile(type);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's form
    const int locked = fcntl(file.handle(), F_OFD_SETLK, &range);
    return locked == 0 || (errno != EAGAIN && errno != EACCES);
  };
  const auto lockWhole = [&] {
    const int kind = isToBeWritten ? LOCK_EX : LOCK_SH;
    return flock(file.handle(), kind | LOCK_NB) == 0 || errno != EWOULDBLOCK;
  };
  bool isLocked = lockRange(isToBeWritten ? F_WRLCK : F_RDLCK);
  if (isLocked && !lockWhole()) {
    lockRange(F_UNLCK);
    isLocked = lockWhole();
  }
  if (!isLocked) {
    return tl::unexpected(u"another program is using the file"_s);
  }
  return {};
}

void UnlockFile(const QFile& file) {
  flock(file.handle(), LOCK_UN);
  auto range = WholeFile(F_UNLCK);
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's form
  fcntl(file.handle(), F_OFD_SETLK, &range);
}

tl::expected<void, QString> SyncFolderAt(const QString& path) {
  const Descriptor folder(path, O_RDONLY | O_DIRECTORY);
  return folder.Number() < 0 ? BecauseOf(errno) : SyncFile(folder.Number());
}

DirectWriter::DirectWriter(const QFile& file) {
  const auto path = "/proc/self/fd/" + std::to_string(file.handle());
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
  descriptor_ = open(path.c_str(), O_WRONLY | O_DIRECT | O_CLOEXEC);
}

DirectWriter::~DirectWriter() {
  if (descriptor_ >= 0) {
    close(descriptor_);
  }
}

bool DirectWriter::Write(qint64 offset, std::span<const std::byte> bytes) const {
  while (!bytes.empty()) {
    const auto written = pwrite(descriptor_, bytes.data(), bytes.size(), offset);
    if (written <= 0) {
      return false;
    }
    offset += written;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace brindle
