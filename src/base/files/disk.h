// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>

#include <QString>
#include <QStringList>

#include "base/files/file_error.h"
#include "base/interface.h"

namespace brindle {

/// Which file it is and when its bytes were last changed, as the system tells. 0 where it does not.
struct FileStamp {
  quint64 volume = 0;
  quint64 number = 0;   ///< of the file on its volume
  quint64 changed = 0;  ///< in a unit of the system's

  [[nodiscard]] bool operator==(const FileStamp&) const = default;
  [[nodiscard]] bool IsSameFile(const FileStamp& other) const {
    return number != 0 && volume == other.volume && number == other.number;
  }
};

/// A file that is open. Bytes are at offsets from 0 and go to the system at once, without a buffer
/// in between. The errors carry the path by which it was opened and the system's reason.
class DiskFile : public Interface {
 public:
  /// Fills `bytes` from `offset` on, and returns how many there were before the file ended.
  [[nodiscard]] virtual FileResult<std::size_t> Read(qint64 offset, std::span<std::byte> bytes) = 0;
  /// Writes all of `bytes`; the file grows if they go past its end.
  [[nodiscard]] virtual FileResult<void> Write(qint64 offset, std::span<const std::byte> bytes) = 0;
  /// The same for many bytes at once that nobody reads soon: spares the system a copy of them where
  /// it can. Address, offset and length are multiples of DirectUnit.
  [[nodiscard]] virtual FileResult<void> WriteDirect(qint64 offset,
                                                     std::span<const std::byte> bytes) = 0;
  /// Bytes, as the system reports them now.
  [[nodiscard]] virtual FileResult<qint64> Length() const = 0;
  /// Makes the file this long. What it grows by reads as 0, and the disk has set the room aside: a
  /// write there does not fail for want of it.
  [[nodiscard]] virtual FileResult<void> SetLength(qint64 length) = 0;
  /// Has the system write everything to the disk. May take long; may run on any thread while no
  /// other one uses the file.
  [[nodiscard]] virtual FileResult<void> Sync() const = 0;
  /// Nothing if the file is still the one at its path; else "the file is gone", "the file was
  /// replaced", or the system's reason for not answering.
  [[nodiscard]] virtual FileResult<void> CheckAtItsPath() const = 0;
  [[nodiscard]] virtual FileResult<FileStamp> Stamp() const = 0;
  /// Keeps other programs from writing the file or, if `isToBeWritten`, from using it at all, as
  /// far as the system can, until it is closed. The error is "another program is using the file".
  [[nodiscard]] virtual FileResult<void> Lock(bool isToBeWritten) = 0;
  /// Gives the lock up before that.
  virtual void Unlock() = 0;

  /// Bytes.
  static constexpr std::size_t DirectUnit = 4096;
};

/// What is to be done with a file that is opened.
enum class OpenFor {
  Reading,
  Changing,          ///< reading and writing
  ChangingOrCreate,  ///< the same; an empty file is created if there is none
  CreatingOnly,      ///< the same, but fails if there is a file
};

/// Where files are: the system's disks, or a stand-in for them in memory.
class Disk : public Interface {
 public:
  /// Opens regular files only: for anything else the reason is "not a file".
  [[nodiscard]] virtual FileResult<std::unique_ptr<DiskFile>> Open(const QString& path,
                                                                   OpenFor use) const = 0;
  [[nodiscard]] virtual FileResult<void> Remove(const QString& path) const = 0;
  [[nodiscard]] virtual FileResult<void> Rename(const QString& from, const QString& to) const = 0;
  /// Makes a folder, with those above it, if it is missing, and makes sure that it is on the disk.
  /// Only its user may look into what it has made.
  [[nodiscard]] virtual FileResult<void> MakeFolder(const QString& path) const = 0;
  /// Has the system write down which files a folder contains.
  [[nodiscard]] virtual FileResult<void> SyncFolder(const QString& path) const = 0;
  /// The names of the files in a folder, without folders and links; none if it cannot be read.
  [[nodiscard]] virtual QStringList FilesIn(const QString& folder) const = 0;
  /// Bytes that the user can still write to the volume of a folder; none if the system does not
  /// say.
  [[nodiscard]] virtual std::optional<qint64> FreeBytes(const QString& folder) const = 0;
};

}  // namespace brindle
