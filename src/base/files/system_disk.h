// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include <QString>
#include <QStringList>

#include "base/files/disk.h"
#include "base/files/file_error.h"

namespace brindle {

/// The disks of this computer.
class SystemDisk : public Disk {
 public:
  [[nodiscard]] FileResult<std::unique_ptr<DiskFile>> Open(const QString& path,
                                                           OpenFor use) const override;
  [[nodiscard]] FileResult<void> Remove(const QString& path) const override;
  [[nodiscard]] FileResult<void> Rename(const QString& from, const QString& to) const override;
  [[nodiscard]] FileResult<void> MakeFolder(const QString& path) const override;
  [[nodiscard]] FileResult<void> SyncFolder(const QString& path) const override;
  [[nodiscard]] QStringList FilesIn(const QString& folder) const override;
  [[nodiscard]] std::optional<qint64> FreeBytes(const QString& folder) const override;
};

/// The one that everything uses if it is not given another. It has no state.
[[nodiscard]] const Disk& TheSystemsDisk();

}  // namespace brindle
