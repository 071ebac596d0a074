// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <functional>
#include <span>

#include <QFile>
#include <QString>

#include "wav/wav_error.h"

namespace brindle {

/// A file read and written at positions counted from 1, as the WAV searches count them, without a
/// buffer in between: what is written is the system's. Only regular files are opened.
class WavFile {
 public:
  /// Opens what stands at the path.
  [[nodiscard]] WavResult<void> OpenForReading(const QString& path);
  /// Opens what stands at the path for reading and writing; an error is one of writing.
  [[nodiscard]] WavResult<void> OpenForChanging(const QString& path);
  /// The same, but makes an empty file where nothing stands.
  [[nodiscard]] WavResult<void> OpenOrCreate(const QString& path);
  void Close() { file_.close(); }

  /// Bytes, asked of the system now. What is to be done with them says of which kind its refusal
  /// is.
  [[nodiscard]] WavResult<qint64> Length(WavError::Failed failed) const;
  /// Of an open file, or of one that could not be opened.
  [[nodiscard]] bool IsLockedByAnother() const;

  /// The error "the file became shorter" where the file ends before `position`.
  [[nodiscard]] WavResult<void> CheckReaches(qint64 position, WavError::Failed failed) const;
  /// Has the system write out all that was written. Can take long, and runs on any thread while no
  /// other one uses the file.
  [[nodiscard]] WavResult<void> Sync() const;
  /// An error of writing where the file no longer stands at its path with `length` bytes or more.
  [[nodiscard]] WavResult<void> CheckStands(qint64 length) const;

  /// Fills `bytes` from `position` on. Short of that many it is an error, "the file became
  /// shorter".
  [[nodiscard]] WavResult<void> Read(qint64 position, std::span<std::byte> bytes);
  /// The same, but what lies behind the end of the file counts as 0. Gives the bytes that are
  /// there.
  [[nodiscard]] WavResult<std::size_t> ReadPadded(qint64 position, std::span<std::byte> bytes);
  [[nodiscard]] WavResult<void> Write(qint64 position, std::span<const std::byte> bytes);

  /// An error of reading or writing this file.
  [[nodiscard]] WavError ErrorBecause(WavError::Failed failed, const QString& reason) const;

 private:
  [[nodiscard]] WavResult<void> Open(const QString& path, QIODevice::OpenMode mode,
                                     WavError::Failed failed);
  /// Makes a reason of the system the error.
  [[nodiscard]] std::function<WavError(const QString& reason)> Because(
      WavError::Failed failed) const;
  [[nodiscard]] WavError BecameShorter(WavError::Failed failed) const;
  [[nodiscard]] WavError SystemError(WavError::Failed failed) const;
  [[nodiscard]] bool SeekTo(qint64 position);

  QFile file_;
};

}  // namespace brindle
