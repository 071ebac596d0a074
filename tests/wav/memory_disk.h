// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <QString>
#include <QStringList>

#include "base/files/disk.h"
#include "base/files/file_error.h"

namespace brindle {

/// The files of a disk, by path.
using DiskImage = std::map<std::string, std::string>;

/// A disk in memory that writes down every call that changes something or has it written out, so
/// that a test can find out what a crash would have left at any moment.
class MemoryDisk : public Disk {
 public:
  enum class Call { Write, SetLength, Sync, Create, Remove, Rename, SyncFolder, Open, Read };
  struct Logged {
    Call call = Call::Write;
    std::string path;
    std::size_t offset = 0;  // of a write; the length, of SetLength
    std::string bytes;       // of a write; the new path, of Rename
  };
  /// Asked before each call; true makes it fail with "the disk refuses".
  using Fails = std::function<bool(Call call, const std::string& path)>;

  explicit MemoryDisk(DiskImage files);

  [[nodiscard]] FileResult<std::unique_ptr<DiskFile>> Open(const QString& path,
                                                           OpenFor use) const override;
  [[nodiscard]] FileResult<void> Remove(const QString& path) const override;
  [[nodiscard]] FileResult<void> Rename(const QString& from, const QString& to) const override;
  [[nodiscard]] FileResult<void> MakeFolder(const QString& path) const override;
  [[nodiscard]] FileResult<void> SyncFolder(const QString& path) const override;
  [[nodiscard]] QStringList FilesIn(const QString& folder) const override;
  [[nodiscard]] std::optional<qint64> FreeBytes(const QString& folder) const override;

  /// What a program sees in a file now; nothing if there is none.
  [[nodiscard]] std::optional<std::string> Bytes(const std::string& path) const;
  [[nodiscard]] DiskImage Files() const;
  /// What is on it from now on, as if another program had written it.
  void Put(const std::string& path, const std::string& bytes);

  [[nodiscard]] std::vector<Logged> Log() const;
  void SetFailure(Fails fails);

 private:
  class File;
  struct State;
  std::shared_ptr<State> state_;
};

/// What a crash after the first `calls` of the log may leave of the files. Everything that was
/// written out is there; of the other writes any part may be, in any order and torn anywhere.
[[nodiscard]] DiskImage AfterCrash(const DiskImage& before,
                                   const std::vector<MemoryDisk::Logged>& log, std::size_t calls,
                                   std::mt19937& random);

}  // namespace brindle
