// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <tl/expected.hpp>

#include <QFileDevice>
#include <QString>

namespace brindle {

/// What the system refused: the path, with the platform's own separators, and the system's reason.
struct FileError {
  QString path;
  QString reason;
};

/// What a file gave, or why it could not.
template <class Value>
using FileResult = tl::expected<Value, FileError>;

/// The error of `path` with this reason.
[[nodiscard]] FileError ErrorOf(const QString& path, const QString& reason);
/// The last error of `file`, which was opened by `path`.
[[nodiscard]] FileError ErrorOf(const QString& path, const QFileDevice& file);

/// "Cannot read PATH: REASON".
[[nodiscard]] QString CannotRead(const FileError& error);
/// "Cannot write PATH: REASON".
[[nodiscard]] QString CannotWrite(const FileError& error);

}  // namespace brindle
