// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "base/files/file_error.h"

namespace brindle {

/// Whether a file stands at the path, links followed; false where nothing does. The error says why
/// what stands there cannot be opened as a file: "not a file" for a folder, a pipe, a device; the
/// system's reason where that cannot be found out. To be asked before a file is opened: opening a
/// pipe would wait for its other end.
[[nodiscard]] FileResult<bool> IsFileAt(const QString& path);

/// Whether the path names one file whatever the current folder and drive are.
[[nodiscard]] bool IsAbsolute(const QString& path);

}  // namespace brindle
