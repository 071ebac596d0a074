// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <variant>

#include <QFile>
#include <QString>

#include "base/files/file_error.h"

namespace brindle {

/// Why a file could not be read or written.
struct WavError {
  enum class Failed { Reading, Writing };
  Failed failed = Failed::Reading;
  FileError error;
};

/// "Cannot read PATH: REASON" or "Cannot write PATH: REASON".
[[nodiscard]] QString MessageOf(const WavError& error);

/// A file read and written at positions counted from 1, as the WAV searches count them, without a
/// buffer in between: what is written is the system's. Only regular files are opened.
class WavFile {
 public:
  /// Opens what stands at the path.
  [[nodiscard]] std::optional<WavError> OpenForReading(const QString& path);
  /// Opens what stands at the path for reading and writing; an error is one of writing.
  [[nodiscard]] std::optional<WavError> OpenForChanging(const QString& path);
  /// The same, but makes an empty file where nothing stands.
  [[nodiscard]] std::optional<WavError> OpenOrCreate(const QString& path);
  void Close() { file_.close(); }

  /// Bytes, asked of the system now. What is to be done with them says of which kind its refusal
  /// is.
  [[nodiscard]] std::variant<qint64, WavError> Length(WavError::Failed failed) const;
  /// Of an open file, or of one that could not be opened.
  [[nodiscard]] bool IsLockedByAnother() const;

  /// The error "the file became shorter" where the file ends before `position`.
  [[nodiscard]] std::optional<WavError> CheckReaches(qint64 position,
                                                     WavError::Failed failed) const;
  /// Has the system write out all that was written. Can take long, and runs on any thread while no
  /// other one uses the file.
  [[nodiscard]] std::optional<WavError> Sync() const;
  /// An error of writing where the file no longer stands at its path with `length` bytes or more.
  [[nodiscard]] std::optional<WavError> CheckStands(qint64 length) const;

  /// Fills `bytes` from `position` on. Short of that many it is an error, "the file became
  /// shorter".
  [[nodiscard]] std::optional<WavError> Read(qint64 position, std::span<std::byte> bytes);
  /// The same, but what lies behind the end of the file counts as 0. Gives the bytes that are
  /// there.
  [[nodiscard]] std::variant<std::size_t, WavError> ReadPadded(qint64 position,
                                                               std::span<std::byte> bytes);
  [[nodiscard]] std::optional<WavError> Write(qint64 position, std::span<const std::byte> bytes);

  /// An error of reading or writing this file.
  [[nodiscard]] WavError ErrorBecause(WavError::Failed failed, const QString& reason) const;

 private:
  [[nodiscard]] std::optional<WavError> Open(const QString& path, QIODevice::OpenMode mode,
                                             WavError::Failed failed);
  [[nodiscard]] WavError BecameShorter(WavError::Failed failed) const;
  [[nodiscard]] WavError SystemError(WavError::Failed failed) const;
  [[nodiscard]] bool SeekTo(qint64 position);

  QFile file_;
};

}  // namespace brindle
