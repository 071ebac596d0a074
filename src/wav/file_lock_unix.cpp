// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

#include "wav/file_lock.h"

namespace brindle {

// Two kinds of locks that do not know of each other: on a whole file, and on its ranges.
bool IsLocked(int descriptor) {
  if (flock(descriptor, LOCK_SH | LOCK_NB) == 0) {
    flock(descriptor, LOCK_UN);
  } else if (errno == EWOULDBLOCK) {
    return true;
  }
  struct flock range = {};
  range.l_type = F_RDLCK;
  range.l_whence = SEEK_SET;
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
  return fcntl(descriptor, F_GETLK, &range) == 0 && range.l_type == F_WRLCK;
}

}  // namespace brindle
