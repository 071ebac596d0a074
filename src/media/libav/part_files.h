// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include <QString>
#include <QStringList>

#include "base/files/disk.h"
#include "base/files/file_error.h"

namespace brindle {

/// A file that is written from its beginning on, with few changes to what is written already.
class PartFile {
 public:
  explicit PartFile(std::unique_ptr<DiskFile> file);

  /// Goes on at the position. The first error stays, and nothing is written after it.
  void Write(std::span<const std::byte> bytes);
  void Seek(std::int64_t position);
  [[nodiscard]] std::int64_t Position() const {
    return start_ + static_cast<std::int64_t>(buffer_.size());
  }
  [[nodiscard]] std::int64_t Length() const { return std::max(length_, Position()); }
  /// Writes what is left and has the system write it to the disk.
  [[nodiscard]] FileResult<void> Finish();
  [[nodiscard]] const FileResult<void>& State() const { return state_; }

 private:
  void Flush();

  std::unique_ptr<DiskFile> file_;
  std::vector<std::byte> buffer_;
  std::int64_t start_ = 0;   // of the buffer in the file
  std::int64_t length_ = 0;  // of the file, without the buffer
  FileResult<void> state_;
};

/// The files of the parts: under names of their own until all are complete. What is not completed
/// is removed when this object goes.
class PartFiles {
 public:
  PartFiles(QStringList targets, bool isReplacing);
  PartFiles(const PartFiles&) = delete;
  PartFiles& operator=(const PartFiles&) = delete;
  PartFiles(PartFiles&&) = delete;
  PartFiles& operator=(PartFiles&&) = delete;
  ~PartFiles();

  /// The next part, which is created.
  [[nodiscard]] FileResult<std::unique_ptr<PartFile>> Next();
  /// Gives all parts their names. They must be closed.
  [[nodiscard]] FileResult<void> Complete();

 private:
  [[nodiscard]] FileResult<void> CheckTarget(const QString& target) const;

  QStringList targets_;
  bool isReplacing_;
  qsizetype created_ = 0;
  qsizetype completed_ = 0;
};

}  // namespace brindle
