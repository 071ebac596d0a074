// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <windows.h>

#include <QDir>
#include <QString>

#include "base/files/at_path.h"
#include "base/files/file_error.h"
#include "base/files/windows_path.h"

namespace brindle {

using namespace Qt::StringLiterals;

FileResult<bool> IsFileAt(const QString& path) {
  const auto handle = LookAt(path);
  if (handle.get() == INVALID_HANDLE_VALUE) {
    const auto code = GetLastError();
    if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) {
      return false;
    }
    return tl::unexpected(ErrorOf(path, qt_error_string(static_cast<int>(code))));
  }
  BY_HANDLE_FILE_INFORMATION found = {};
  if (GetFileType(handle.get()) != FILE_TYPE_DISK ||
      GetFileInformationByHandle(handle.get(), &found) == FALSE ||
      (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    return tl::unexpected(ErrorOf(path, u"not a file"_s));
  }
  return true;
}

// A drive with its root, or a server: "C:file" is in the current folder of the drive, "\\file" on
// the current drive.
bool IsAbsolute(const QString& path) {
  constexpr qsizetype driveAndRoot = 3;
  const auto slashed = QDir::fromNativeSeparators(path);
  return slashed.startsWith(u"//"_s) || (slashed.size() >= driveAndRoot && slashed[0].isLetter() &&
                                         slashed[1] == u':' && slashed[2] == u'/');
}

}  // namespace brindle
