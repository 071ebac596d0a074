// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <optional>
#include <windows.h>

#include <QString>

#include "base/files/sync_file.h"
#include "base/files/windows_path.h"

namespace brindle {

std::optional<QString> SyncFile(int handle) {
  if (FlushFileBuffers(SystemHandle(handle)) != FALSE) {
    return std::nullopt;
  }
  const auto code = GetLastError();
  if (code == ERROR_INVALID_FUNCTION || code == ERROR_NOT_SUPPORTED) {
    return std::nullopt;
  }
  return qt_error_string(static_cast<int>(code));
}

}  // namespace brindle
