// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <span>

#include <QString>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "base/files/system_disk.h"
#include "wav/wav_error.h"

namespace brindle {

/// A file read and written at positions counted from 1, as the WAV searches count them, without a
/// buffer in between: written bytes go straight to the system. Opens regular files only.
class WavFile {
 public:
  explicit WavFile(const Disk& disk = TheSystemsDisk()) : disk_(disk) {}
  WavFile(const WavFile&) = delete;
  WavFile& operator=(const WavFile&) = delete;
  WavFile(WavFile&&) = delete;
  WavFile& operator=(WavFile&&) = delete;
  ~WavFile() { Close(); }

  /// Opens the file at the path.
  [[nodiscard]] WavResult<void> OpenForReading(const QString& path);
  /// Opens the file at the path for reading and writing; an error is one of writing.
  [[nodiscard]] WavResult<void> OpenForChanging(const QString& path);
  /// The same, but creates an empty file if there is none.
  [[nodiscard]] WavResult<void> OpenOrCreate(const QString& path);
  /// A sync that still runs keeps the file, but not its lock.
  void Close();

  /// The open file itself.
  [[nodiscard]] const std::shared_ptr<DiskFile>& OnDisk() const { return file_; }

  /// Keeps other programs from writing the open file or, if `isToBeWritten`, from using it, until
  /// it is closed.
  [[nodiscard]] WavResult<void> Lock(bool isToBeWritten);

  /// Bytes, as the system reports them now. `failed` is the kind of the error if the system
  /// refuses: reading or writing, whichever the caller is about to do.
  [[nodiscard]] WavResult<qint64> Length(WavError::Failed failed) const;

  /// The error is "the file became shorter" if the file ends before `position`.
  [[nodiscard]] WavResult<void> CheckReaches(qint64 position, WavError::Failed failed) const;
  /// An error of writing if the file is no longer at its path with at least `length` bytes.
  [[nodiscard]] WavResult<void> CheckStands(qint64 length) const;

  /// Fills `bytes` from `position` on. If the file has fewer bytes, the error is "the file became
  /// shorter".
  [[nodiscard]] WavResult<void> Read(qint64 position, std::span<std::byte> bytes);
  /// The same, but bytes after the end of the file count as 0. Returns how many bytes there are.
  [[nodiscard]] WavResult<std::size_t> ReadPadded(qint64 position, std::span<std::byte> bytes);
  [[nodiscard]] WavResult<void> Write(qint64 position, std::span<const std::byte> bytes);

  /// An error of reading or writing this file.
  [[nodiscard]] WavError ErrorBecause(WavError::Failed failed, const QString& reason) const;

 private:
  [[nodiscard]] WavResult<void> Open(const QString& path, OpenFor use, WavError::Failed failed);
  [[nodiscard]] WavError BecameShorter(WavError::Failed failed) const;

  const Disk& disk_;
  QString path_;
  std::shared_ptr<DiskFile> file_;
};

}  // namespace brindle
