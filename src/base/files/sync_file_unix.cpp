// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include <QString>

#include "base/files/sync_file.h"

namespace brindle {

namespace {

bool IsWrittenOut(int handle) {
  int result = 0;
  do {
    result = fdatasync(handle);
  } while (result != 0 && errno == EINTR);
  return result == 0 || errno == EINVAL || errno == ENOTSUP;
}

// Closing a copy reports what closing the file itself would. A signal that interrupts it does no
// harm: the file is written out by then.
bool CanBeClosed(int handle) {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
  const int copy = fcntl(handle, F_DUPFD_CLOEXEC, 0);
  return copy >= 0 && (close(copy) == 0 || errno == EINTR);
}

}  // namespace

tl::expected<void, QString> SyncFile(int handle) {
  if (IsWrittenOut(handle) && CanBeClosed(handle)) {
    return {};
  }
  return tl::unexpected(qt_error_string(errno));
}

}  // namespace brindle
