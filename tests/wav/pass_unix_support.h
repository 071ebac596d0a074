// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include <QString>

#include "tests/base/settings/child_process.h"

namespace brindle {

/// Changes who may do what with a file, inside a check of ExpectNoFindingsAsNobody().
inline void SetMode(const QString& path, mode_t mode) {
  if (chmod(path.toUtf8().constData(), mode) != 0) {
    _exit(3);
  }
}

/// Runs the check in a child that is killed should it hang.
inline std::string InImpatientChild(const std::function<std::string()>& check) {
  return InChild([&] {
    constexpr unsigned seconds = 60;
    alarm(seconds);
    return check();
  });
}

}  // namespace brindle
