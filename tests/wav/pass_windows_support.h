// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <windows.h>

#include <QDir>
#include <QString>

namespace brindle {

constexpr DWORD Changing = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD SharedForChanging = FILE_SHARE_READ | FILE_SHARE_WRITE;

/// A file that is there already, held open as another program would hold it.
class HeldFile {
 public:
  HeldFile(const QString& path, DWORD access, DWORD share)
      : handle_(CreateFileW(QDir::toNativeSeparators(path).toStdWString().c_str(), access, share,
                            nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)),
        error_(IsHeld() ? ERROR_SUCCESS : GetLastError()) {}
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;
  HeldFile(HeldFile&&) = delete;
  HeldFile& operator=(HeldFile&&) = delete;
  ~HeldFile() {
    if (IsHeld()) {
      CloseHandle(handle_);
    }
  }

  [[nodiscard]] bool IsHeld() const { return handle_ != INVALID_HANDLE_VALUE; }
  /// Why it is not held, as the system numbers it.
  [[nodiscard]] int Error() const { return static_cast<int>(error_); }

  /// Locks `length` bytes from `first` on, counted from 0. Whether no other lock is in the way.
  [[nodiscard]] bool Lock(bool isExclusive, DWORD first, DWORD length) const {
    DWORD flags = LOCKFILE_FAIL_IMMEDIATELY;
    if (isExclusive) {
      flags |= LOCKFILE_EXCLUSIVE_LOCK;
    }
    OVERLAPPED from = {};
    from.Offset = first;
    return LockFileEx(handle_, flags, 0, length, 0, &from) != FALSE;
  }

 private:
  HANDLE handle_;
  DWORD error_;
};

/// Whether nobody holds the file.
inline bool CanBeHeldAlone(const QString& path) { return HeldFile(path, GENERIC_READ, 0).IsHeld(); }

}  // namespace brindle
