// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <QFile>
#include <QString>

#include "base/files/leftovers.h"

namespace brindle {

// A lock, which the system releases when its holder is killed. A copy of the descriptor holds it,
// because the toolkit closes its own descriptor before it renames the file; no program started in
// the meantime inherits the copy.
BeingWritten::BeingWritten(int handle)
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
    : mark_(fcntl(handle, F_DUPFD_CLOEXEC, 0)) {
  flock(mark_, LOCK_EX | LOCK_NB);
}

BeingWritten::~BeingWritten() {
  if (mark_ >= 0) {
    close(mark_);
  }
}

void RemoveLeftover(const QString& path) {
  const auto name = QFile::encodeName(path);
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
  const int file = open(name.constData(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) {
    return;
  }
  if (flock(file, LOCK_EX | LOCK_NB) == 0) {
    unlink(name.constData());
  }
  close(file);
}

}  // namespace brindle
