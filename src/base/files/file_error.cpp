// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/files/file_error.h"

#include <QDir>
#include <QFileDevice>
#include <QString>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

QString Message(const char* cannot, const FileError& error) {
  return QLatin1StringView(cannot) + error.path + u": "_s + error.reason;
}

}  // namespace

FileError ErrorOf(const QString& path, const QString& reason) {
  return {QDir::toNativeSeparators(path), reason};
}

FileError ErrorOf(const QString& path, const QFileDevice& file) {
  return ErrorOf(path, file.errorString());
}

QString CannotRead(const FileError& error) { return Message("Cannot read ", error); }

QString CannotWrite(const FileError& error) { return Message("Cannot write ", error); }

}  // namespace brindle
