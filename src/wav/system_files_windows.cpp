// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cwchar>
#include <string>
#include <windows.h>

#include <QFile>
#include <QString>

#include "app/settings/at_path.h"
#include "app/settings/windows_path.h"
#include "wav/system_files.h"

namespace brindle {

namespace {

bool IsValid(const Handle& handle) { return handle.get() != INVALID_HANDLE_VALUE; }

std::wstring FinalPath(const Handle& handle) {
  std::wstring path(GetFinalPathNameByHandleW(handle.get(), nullptr, 0, 0), L'\0');
  path.resize(
      GetFinalPathNameByHandleW(handle.get(), path.data(), static_cast<DWORD>(path.size()), 0));
  return path;
}

}  // namespace

// Either it cannot even be opened as this program opens files, or ranges of it cannot be read.
bool IsLocked(const QFile& file) {
  if (!file.isOpen()) {
    // Opening a device or a pipe could do something.
    if (WhatIsAt(file.fileName()).error) {
      return false;
    }
    const auto handle =
        OpenExisting(file.fileName(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    return !IsValid(handle) && GetLastError() == ERROR_SHARING_VIOLATION;
  }
  auto* handle = SystemHandle(file.handle());
  OVERLAPPED fromStart = {};
  if (LockFileEx(handle, LOCKFILE_FAIL_IMMEDIATELY, 0, MAXDWORD, MAXDWORD, &fromStart) == FALSE) {
    return GetLastError() == ERROR_LOCK_VIOLATION;
  }
  UnlockFileEx(handle, 0, MAXDWORD, MAXDWORD, &fromStart);
  return false;
}

// Both are held open meanwhile: only so long is a file's number its own. Some servers number no
// file.
bool LeadToSameFile(const QString& path, const QString& other) {
  if (path.isEmpty() || other.isEmpty()) {
    return false;
  }
  const auto one = LookAt(path);
  const auto two = LookAt(other);
  BY_HANDLE_FILE_INFORMATION first = {};
  BY_HANDLE_FILE_INFORMATION second = {};
  if (!IsValid(one) || !IsValid(two) || GetFileInformationByHandle(one.get(), &first) == FALSE ||
      GetFileInformationByHandle(two.get(), &second) == FALSE ||
      first.dwVolumeSerialNumber != second.dwVolumeSerialNumber ||
      first.nFileIndexHigh != second.nFileIndexHigh ||
      first.nFileIndexLow != second.nFileIndexLow) {
    return false;
  }
  const bool isNumbered = first.nFileIndexHigh != 0 || first.nFileIndexLow != 0;
  return isNumbered || _wcsicmp(FinalPath(one).c_str(), FinalPath(two).c_str()) == 0;
}

}  // namespace brindle
