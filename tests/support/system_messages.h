// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include <QDir>
#include <QString>

namespace brindle {

/// The system's number for a file that is not there: ENOENT, and the same on Windows.
inline constexpr int NoSuchFile = 2;
/// The one for a file in a folder that is not there: only Windows tells the two apart.
#ifdef Q_OS_WIN
inline constexpr int NoSuchFolder = 3;
#else
inline constexpr int NoSuchFolder = NoSuchFile;
#endif

/// What the system says of an error of its own, in the language of the run.
inline std::string ReasonOf(int error) { return qt_error_string(error).toStdString(); }

/// The same as the command line says it: without the period that Windows ends it with.
inline std::string PlainReasonOf(int error) {
  auto reason = ReasonOf(error);
  if (reason.ends_with('.')) {
    reason.pop_back();
  }
  return reason;
}

/// The path as messages show it.
inline std::string NativePath(const QString& path) {
  return QDir::toNativeSeparators(path).toStdString();
}

}  // namespace brindle
