// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <io.h>
#include <optional>
#include <windows.h>

#include <QFile>
#include <QString>

#include "app/settings/windows_path.h"
#include "wav/system_files.h"

namespace brindle {

namespace {

// The file at the end of a path, as its file system numbers it.
std::optional<BY_HANDLE_FILE_INFORMATION> IdentityOf(const QString& path) {
  if (path.isEmpty()) {
    return std::nullopt;
  }
  const auto handle = LookAt(path);
  BY_HANDLE_FILE_INFORMATION identity = {};
  if (handle.get() == INVALID_HANDLE_VALUE ||
      GetFileInformationByHandle(handle.get(), &identity) == FALSE) {
    return std::nullopt;
  }
  return identity;
}

}  // namespace

// Either it cannot even be opened as this program opens files, or ranges of it cannot be read.
bool IsLocked(const QFile& file) {
  if (!file.isOpen()) {
    const auto handle =
        OpenExisting(file.fileName(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    return handle.get() == INVALID_HANDLE_VALUE && GetLastError() == ERROR_SHARING_VIOLATION;
  }
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the system's form
  auto* handle = reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
  OVERLAPPED fromStart = {};
  if (LockFileEx(handle, LOCKFILE_FAIL_IMMEDIATELY, 0, MAXDWORD, MAXDWORD, &fromStart) == FALSE) {
    return GetLastError() == ERROR_LOCK_VIOLATION;
  }
  UnlockFileEx(handle, 0, MAXDWORD, MAXDWORD, &fromStart);
  return false;
}

bool LeadToSameFile(const QString& path, const QString& other) {
  const auto one = IdentityOf(path);
  const auto two = IdentityOf(other);
  return one && two && one->dwVolumeSerialNumber == two->dwVolumeSerialNumber &&
         one->nFileIndexHigh == two->nFileIndexHigh && one->nFileIndexLow == two->nFileIndexLow;
}

}  // namespace brindle
