// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QString>

#include "base/files/file_error.h"

namespace brindle {

/// What stands at a path, links followed.
struct AtPath {
  bool anything = true;
  /// Why it cannot be opened as a file: "not a file" for a folder, a pipe, a device; the system's
  /// reason where it cannot be told.
  std::optional<FileError> error;
};

/// To be looked at before a file is opened: opening a pipe would wait for its other end.
[[nodiscard]] AtPath WhatIsAt(const QString& path);

/// Whether the path names one file whatever the current folder and drive are.
[[nodiscard]] bool IsAbsolute(const QString& path);

}  // namespace brindle
