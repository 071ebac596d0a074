// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <windows.h>

#include <QString>

#include "base/files/sync_file.h"
#include "base/files/windows_path.h"

namespace brindle {

tl::expected<void, QString> SyncFile(int handle) {
  if (FlushFileBuffers(SystemHandle(handle)) != FALSE) {
    return {};
  }
  const auto code = GetLastError();
  if (code == ERROR_INVALID_FUNCTION || code == ERROR_NOT_SUPPORTED) {
    return {};
  }
  return tl::unexpected(qt_error_string(static_cast<int>(code)));
}

}  // namespace brindle
