// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cstddef>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <windows.h>

#include <QFile>
#include <QString>

#include "base/files/at_path.h"
#include "base/files/disk.h"
#include "base/files/file_identity.h"
#include "base/files/system_files.h"
#include "base/files/windows_path.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

tl::unexpected<QString> LastReason() {
  return tl::unexpected(qt_error_string(static_cast<int>(GetLastError())));
}

bool IsValid(const Handle& handle) { return handle.get() != INVALID_HANDLE_VALUE; }

QString FinalPath(HANDLE handle) {
  std::wstring path(GetFinalPathNameByHandleW(handle, nullptr, 0, 0), L'\0');
  path.resize(GetFinalPathNameByHandleW(handle, path.data(), static_cast<DWORD>(path.size()), 0));
  return QString::fromStdWString(path);
}

quint64 Whole(DWORD high, DWORD low) {
  constexpr int halfBits = 32;
  return quint64{high} << halfBits | low;
}

// Nothing for a device. Numbers have 128 bits where the system knows them so long.
std::optional<FileIdentity> IdentityOf(HANDLE handle) {
  BY_HANDLE_FILE_INFORMATION shorter = {};
  if (GetFileInformationByHandle(handle, &shorter) == FALSE) {
    return std::nullopt;
  }
  FILE_ID_INFO found = {};
  if (GetFileInformationByHandleEx(handle, FileIdInfo, &found, sizeof(found)) == FALSE) {
    return FileIdentity{.volume = shorter.dwVolumeSerialNumber,
                        .low = Whole(shorter.nFileIndexHigh, shorter.nFileIndexLow)};
  }
  FileIdentity identity{.volume = found.VolumeSerialNumber};
  std::memcpy(&identity.low, found.FileId.Identifier, sizeof(identity.low));
  std::memcpy(&identity.high, found.FileId.Identifier + sizeof(identity.low),
              sizeof(identity.high));
  return identity;
}

bool AreSameFile(HANDLE one, HANDLE two) {
  auto first = IdentityOf(one);
  auto second = IdentityOf(two);
  if (!first || !second) {
    return false;
  }
  first->path = FinalPath(one);
  second->path = FinalPath(two);
  return first->IsSameFile(*second);
}

}  // namespace

// A file is locked if it cannot be opened the way this program opens files, or if ranges of it
// cannot be read.
bool IsLocked(const QString& path) {
  // Opening a device or a pipe could have side effects.
  if (!IsFileAt(path).value_or(false)) {
    return false;
  }
  const auto handle = OpenExisting(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
  if (!IsValid(handle)) {
    return GetLastError() == ERROR_SHARING_VIOLATION;
  }
  OVERLAPPED fromStart = {};
  return LockFileEx(handle.get(), LOCKFILE_FAIL_IMMEDIATELY, 0, MAXDWORD, MAXDWORD, &fromStart) ==
             FALSE &&
         GetLastError() == ERROR_LOCK_VIOLATION;
}

bool IsHeld(const QString& path) {
  const auto handle = OpenExisting(path, GENERIC_READ | GENERIC_WRITE | DELETE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
  return !IsValid(handle) && GetLastError() == ERROR_SHARING_VIOLATION;
}

// The standard library's rename does not tell the system's reasons apart.
tl::expected<void, QString> RenameFile(const QString& from, const QString& to) {
  constexpr DWORD betweenTries = 50;  // ms
  constexpr int mostTries = 20;       // about a second
  const auto source = SystemPath(from);
  const auto target = SystemPath(to);
  DWORD error = ERROR_SUCCESS;
  for (int tries = 0; tries < mostTries; ++tries) {
    if (MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE) {
      return {};
    }
    error = GetLastError();
    const bool isHeld = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
    if (!isHeld || !IsFileAt(from).value_or(false) || !IsFileAt(to).value_or(false)) {
      break;
    }
    Sleep(betweenTries);
  }
  return tl::unexpected(qt_error_string(static_cast<int>(error)));
}

tl::expected<qint64, QString> LengthOf(const QFile& file) {
  LARGE_INTEGER length = {};
  if (GetFileSizeEx(SystemHandle(file.handle()), &length) == FALSE) {
    return LastReason();
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

tl::expected<FileStamp, QString> StampOf(const QFile& file) {
  HANDLE handle = SystemHandle(file.handle());
  BY_HANDLE_FILE_INFORMATION found = {};
  const auto identity = IdentityOf(handle);
  if (!identity || GetFileInformationByHandle(handle, &found) == FALSE) {
    return LastReason();
  }
  return FileStamp{
      .volume = identity->volume,
      .number = identity->Number(),
      .changed = Whole(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime)};
}

tl::expected<void, QString> SetRoomAside(QFile& file, qint64 length) {
  if (!file.resize(length)) {
    return tl::unexpected(file.errorString());
  }
  return {};
}

tl::expected<void, QString> LockFile(const QFile& file, bool isToBeWritten) {
  OVERLAPPED fromStart = {};
  const DWORD flags =
      LOCKFILE_FAIL_IMMEDIATELY | (isToBeWritten ? LOCKFILE_EXCLUSIVE_LOCK : DWORD{0});
  if (LockFileEx(SystemHandle(file.handle()), flags, 0, MAXDWORD, MAXDWORD, &fromStart) == FALSE &&
      GetLastError() == ERROR_LOCK_VIOLATION) {
    return tl::unexpected(u"another program is using the file"_s);
  }
  return {};
}

void UnlockFile(const QFile& file) {
  OVERLAPPED fromStart = {};
  UnlockFileEx(SystemHandle(file.handle()), 0, MAXDWORD, MAXDWORD, &fromStart);
}

// The system's journal does this by itself.
tl::expected<void, QString> SyncFolderAt(const QString&) { return {}; }

// Not done here: the file would have to be opened anew, and for a part of what it is locked for.
DirectWriter::DirectWriter(const QFile&) {}
DirectWriter::~DirectWriter() = default;
bool DirectWriter::Write(qint64, std::span<const std::byte>) const { return false; }

}  // namespace brindle
