// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <io.h>
#include <memory>
#include <string>
#include <windows.h>

#include <QDir>
#include <QFileInfo>
#include <QString>

namespace brindle {

// Files through the calls of Windows itself, only for the Windows source files.

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const {
    if (handle != INVALID_HANDLE_VALUE) {
      CloseHandle(handle);
    }
  }
};
using Handle = std::unique_ptr<HANDLE, HandleCloser>;

/// The path as the system wants it: a short path as it is, because then the system recognises its
/// devices; a long one in full and marked as a path of any length, unless it is marked already.
inline std::wstring SystemPath(const QString& path) {
  const auto whole = QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
  const bool isMarked = path.startsWith(QStringLiteral("\\\\?\\"));
  if (isMarked || whole.size() < MAX_PATH) {
    return QDir::toNativeSeparators(path).toStdWString();
  }
  const bool isOnServer = whole.startsWith(QStringLiteral("\\\\"));
  return (isOnServer ? QStringLiteral("\\\\?\\UNC") + whole.mid(1)
                     : QStringLiteral("\\\\?\\") + whole)
      .toStdWString();
}

/// Opens what is at the path, even a folder; an invalid handle, and the system's last error, if it
/// cannot.
inline Handle OpenExisting(const QString& path, DWORD access, DWORD share) {
  DWORD error = ERROR_SUCCESS;
  HANDLE handle = INVALID_HANDLE_VALUE;
  {
    const auto systemPath = SystemPath(path);
    handle = CreateFileW(systemPath.c_str(), access, share, nullptr, OPEN_EXISTING,
                         FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    error = GetLastError();
  }
  SetLastError(error);  // freeing the path's memory may have changed it
  return Handle(handle);
}

/// The same, only to look at it: needs no right to read it and gets in nobody's way.
inline Handle LookAt(const QString& path) {
  return OpenExisting(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
}

/// The system's handle of a file that the toolkit has opened; it still belongs to the toolkit.
inline HANDLE SystemHandle(int handle) {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the system's form
  return reinterpret_cast<HANDLE>(_get_osfhandle(handle));
}

}  // namespace brindle
