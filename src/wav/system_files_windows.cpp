// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cwchar>
#include <string>
#include <windows.h>

#include <QFile>
#include <QString>

#include "base/files/at_path.h"
#include "base/files/windows_path.h"
#include "wav/system_files.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

bool IsValid(const Handle& handle) { return handle.get() != INVALID_HANDLE_VALUE; }

std::wstring FinalPath(HANDLE handle) {
  std::wstring path(GetFinalPathNameByHandleW(handle, nullptr, 0, 0), L'\0');
  path.resize(GetFinalPathNameByHandleW(handle, path.data(), static_cast<DWORD>(path.size()), 0));
  return path;
}

// Some servers give files no numbers; then the final paths decide.
bool AreSameFile(HANDLE one, HANDLE two) {
  BY_HANDLE_FILE_INFORMATION first = {};
  BY_HANDLE_FILE_INFORMATION second = {};
  if (GetFileInformationByHandle(one, &first) == FALSE ||
      GetFileInformationByHandle(two, &second) == FALSE ||
      first.dwVolumeSerialNumber != second.dwVolumeSerialNumber ||
      first.nFileIndexHigh != second.nFileIndexHigh ||
      first.nFileIndexLow != second.nFileIndexLow) {
    return false;
  }
  const bool isNumbered = first.nFileIndexHigh != 0 || first.nFileIndexLow != 0;
  return isNumbered || _wcsicmp(FinalPath(one).c_str(), FinalPath(two).c_str()) == 0;
}

}  // namespace

// A file is locked if it cannot be opened the way this program opens files, or if ranges of it
// cannot be read.
bool IsLocked(const QFile& file) {
  if (!file.isOpen()) {
    // Opening a device or a pipe could have side effects.
    if (!IsFileAt(file.fileName())) {
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

tl::expected<qint64, QString> LengthOf(const QFile& file) {
  LARGE_INTEGER length = {};
  if (GetFileSizeEx(SystemHandle(file.handle()), &length) == FALSE) {
    return tl::unexpected(qt_error_string(static_cast<int>(GetLastError())));
  }
  return qint64{length.QuadPart};
}

tl::expected<void, QString> CheckAtItsPath(const QFile& file) {
  const auto standing = LookAt(file.fileName());
  if (!IsValid(standing)) {
    const auto code = GetLastError();
    return tl::unexpected(code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND
                              ? u"the file is gone"_s
                              : qt_error_string(static_cast<int>(code)));
  }
  if (!AreSameFile(SystemHandle(file.handle()), standing.get())) {
    return tl::unexpected(u"the file was replaced"_s);
  }
  return {};
}

// Holds both files open: only while a file is open does its number belong to no other.
bool LeadToSameFile(const QString& path, const QString& other) {
  if (path.isEmpty() || other.isEmpty()) {
    return false;
  }
  const auto one = LookAt(path);
  const auto two = LookAt(other);
  return IsValid(one) && IsValid(two) && AreSameFile(one.get(), two.get());
}

}  // namespace brindle
