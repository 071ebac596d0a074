// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/files/system_disk.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <system_error>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QStorageInfo>
#include <QString>
#include <QStringList>

#include "base/files/at_path.h"
#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "base/files/sync_file.h"
#include "base/files/system_files.h"

namespace brindle {

namespace {

// The toolkit's files take characters, not bytes.
// NOLINTBEGIN(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes by either name
char* Chars(std::byte* bytes) { return reinterpret_cast<char*>(bytes); }
const char* Chars(const std::byte* bytes) { return reinterpret_cast<const char*>(bytes); }
// NOLINTEND(cppcoreguidelines-pro-type-reinterpret-cast)

FileResult<void> ResultOf(std::error_code code, const QString& path) {
  if (code) {
    return tl::unexpected(ErrorOf(path, qt_error_string(code.value())));
  }
  return {};
}

// Nobody else may look into it, where the system knows such a thing. It is no error if it does not.
FileResult<void> MakeOwnFolder(const QString& path) {
  namespace fs = std::filesystem;
  const fs::path folder(path.toStdU16String());
  std::error_code code;
  if (fs::create_directory(folder, code)) {
    std::error_code ignored;
    fs::permissions(folder, fs::perms::owner_all, ignored);
  }
  return ResultOf(code, path);
}

QIODevice::OpenMode ModeOf(OpenFor use) {
  switch (use) {
    case OpenFor::Reading:
      return QIODevice::ReadOnly | QIODevice::ExistingOnly | QIODevice::Unbuffered;
    case OpenFor::Changing:
      return QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered;
    case OpenFor::ChangingOrCreate:
      break;
    case OpenFor::CreatingOnly:
      return QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered;
  }
  return QIODevice::ReadWrite | QIODevice::Unbuffered;
}

class SystemFile : public DiskFile {
 public:
  explicit SystemFile(const QString& path) : file_(path) {}

  [[nodiscard]] FileResult<void> Open(OpenFor use) {
    return IsFileAt(file_.fileName()).and_then([&](bool) -> FileResult<void> {
      return Done(file_.open(ModeOf(use)));
    });
  }

  [[nodiscard]] FileResult<std::size_t> Read(qint64 offset, std::span<std::byte> bytes) override {
    if (!SeekTo(offset)) {
      return tl::unexpected(LastError());
    }
    std::size_t there = 0;
    while (there < bytes.size()) {
      const auto rest = bytes.subspan(there);
      const qint64 read = file_.read(Chars(rest.data()), static_cast<qint64>(rest.size()));
      if (read < 0) {
        return tl::unexpected(LastError());
      }
      if (read == 0) {
        break;
      }
      there += static_cast<std::size_t>(read);
    }
    return there;
  }

  // A disk that fills up first accepts a part, and gives its reason only when asked to take the
  // rest.
  [[nodiscard]] FileResult<void> Write(qint64 offset, std::span<const std::byte> bytes) override {
    bool isDone = SeekTo(offset);
    while (isDone && !bytes.empty()) {
      const qint64 written = file_.write(Chars(bytes.data()), static_cast<qint64>(bytes.size()));
      isDone = written > 0;
      bytes = bytes.subspan(isDone ? static_cast<std::size_t>(written) : 0);
    }
    return Done(isDone);
  }

  [[nodiscard]] FileResult<void> WriteDirect(qint64 offset,
                                             std::span<const std::byte> bytes) override {
    if (!direct_) {
      direct_.emplace(file_);
    }
    return direct_->Write(offset, bytes) ? FileResult<void>() : Write(offset, bytes);
  }

  [[nodiscard]] FileResult<qint64> Length() const override {
    return LengthOf(file_).map_error(AsError());
  }

  [[nodiscard]] FileResult<void> SetLength(qint64 length) override {
    return Length().and_then([&](qint64 now) {
      return length > now ? SetRoomAside(file_, length).map_error(AsError())
                          : Done(file_.resize(length));
    });
  }

  [[nodiscard]] FileResult<void> Sync() const override {
    return SyncFile(file_.handle()).map_error(AsError());
  }

  [[nodiscard]] FileResult<void> CheckAtItsPath() const override {
    return brindle::CheckAtItsPath(file_).map_error(AsError());
  }

  [[nodiscard]] FileResult<FileStamp> Stamp() const override {
    return StampOf(file_).map_error(AsError());
  }

  [[nodiscard]] FileResult<void> Lock(bool isToBeWritten) override {
    return LockFile(file_, isToBeWritten).map_error(AsError());
  }
  void Unlock() override { UnlockFile(file_); }

 private:
  [[nodiscard]] FileError LastError() const { return ErrorOf(file_.fileName(), file_); }
  [[nodiscard]] FileResult<void> Done(bool isDone) const {
    return isDone ? FileResult<void>() : tl::unexpected(LastError());
  }
  [[nodiscard]] std::function<FileError(const QString& reason)> AsError() const {
    return [this](const QString& reason) { return ErrorOf(file_.fileName(), reason); };
  }
  [[nodiscard]] bool SeekTo(qint64 offset) { return file_.pos() == offset || file_.seek(offset); }

  QFile file_;
  std::optional<DirectWriter> direct_;
};

}  // namespace

FileResult<std::unique_ptr<DiskFile>> SystemDisk::Open(const QString& path, OpenFor use) const {
  auto file = std::make_unique<SystemFile>(path);
  if (const auto opened = file->Open(use); !opened) {
    return tl::unexpected(opened.error());
  }
  return file;
}

FileResult<void> SystemDisk::Remove(const QString& path) const {
  QFile file(path);
  if (!file.remove()) {
    return tl::unexpected(ErrorOf(path, file));
  }
  return {};
}

FileResult<void> SystemDisk::Rename(const QString& from, const QString& to) const {
  return RenameFile(from, to).map_error(
      [&](const QString& reason) { return ErrorOf(from, reason); });
}

FileResult<void> SystemDisk::MakeFolder(const QString& path) const {
  QStringList missing;
  for (QString folder = path; !QFileInfo(folder).isDir(); folder = QFileInfo(folder).path()) {
    if (missing.contains(folder)) {
      break;  // not even the drive is there
    }
    missing.prepend(folder);
  }
  for (const auto& folder : missing) {
    auto made =
        MakeOwnFolder(folder).and_then([&] { return SyncFolder(QFileInfo(folder).path()); });
    if (!made) {
      return made;
    }
  }
  return {};
}

FileResult<void> SystemDisk::SyncFolder(const QString& path) const {
  return SyncFolderAt(path).map_error([&](const QString& reason) { return ErrorOf(path, reason); });
}

QStringList SystemDisk::FilesIn(const QString& folder) const {
  return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDir::Name);
}

std::optional<qint64> SystemDisk::FreeBytes(const QString& folder) const {
  const QStorageInfo volume(folder);
  // Some file systems report no room at all, because they do not know.
  const bool isKnown = volume.isValid() && volume.bytesTotal() > 0;
  return isKnown ? std::optional(volume.bytesAvailable()) : std::nullopt;
}

const Disk& TheSystemsDisk() {
  static const SystemDisk disk;
  return disk;
}

}  // namespace brindle
