// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <span>
#include <tl/expected.hpp>

#include <QFile>
#include <QString>

#include "base/files/disk.h"

namespace brindle {

// What the toolkit does not do with files, or does not report about them. The errors are the
// system's reasons.

/// Whether another program keeps others from reading the file. False if the system does not say.
[[nodiscard]] bool IsLocked(const QString& path);

/// Whether another program has the file open in a way that keeps this one from replacing it. Never
/// where open files can be replaced.
[[nodiscard]] bool IsHeld(const QString& path);

/// Renames a file, over the one that may be there already. Waits up to a second for other programs
/// that have that one open, where this keeps it from being replaced.
[[nodiscard]] tl::expected<void, QString> RenameFile(const QString& from, const QString& to);

/// Bytes of an open file, as the system reports them now. The toolkit treats a file of unknown
/// length as empty.
[[nodiscard]] tl::expected<qint64, QString> LengthOf(const QFile& file);

/// Whether an open file is still the one at its path. The error is "the file is gone", "the file
/// was replaced", or the system's reason for not answering.
[[nodiscard]] tl::expected<void, QString> CheckAtItsPath(const QFile& file);

/// Whether both paths lead to one existing file: links, relative forms, and letter case where the
/// file system ignores it, make no difference.
[[nodiscard]] bool LeadToSameFile(const QString& path, const QString& other);

[[nodiscard]] tl::expected<FileStamp, QString> StampOf(const QFile& file);

/// Sets room on the disk aside for the file up to this length, which the file then has at least.
[[nodiscard]] tl::expected<void, QString> SetRoomAside(QFile& file, qint64 length);

/// Locks an open file as DiskFile::Lock() says. A file system without locks is not a failure.
[[nodiscard]] tl::expected<void, QString> LockFile(const QFile& file, bool isToBeWritten);

/// Gives such a lock up.
void UnlockFile(const QFile& file);

/// Has the system write down which files a folder contains.
[[nodiscard]] tl::expected<void, QString> SyncFolderAt(const QString& path);

/// A second way into an open file, on which writes skip the system's cache where it can do that.
/// Its bytes are on no disk before the file itself is synchronised.
class DirectWriter {
 public:
  explicit DirectWriter(const QFile& file);
  DirectWriter(const DirectWriter&) = delete;
  DirectWriter& operator=(const DirectWriter&) = delete;
  DirectWriter(DirectWriter&&) = delete;
  DirectWriter& operator=(DirectWriter&&) = delete;
  ~DirectWriter();

  /// As DiskFile::WriteDirect() says. False, and an unknown part of it is written, if it must be
  /// done in the usual way.
  [[nodiscard]] bool Write(qint64 offset, std::span<const std::byte> bytes) const;

 private:
  int descriptor_ = -1;
};

}  // namespace brindle
