// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/settings/file_error.h"

#include <filesystem>
#include <optional>
#include <system_error>

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

AtPath WhatIsAt(const QString& path) {
  std::error_code code;
  const auto status = std::filesystem::status(path.toStdU16String(), code);
  if (status.type() == std::filesystem::file_type::not_found) {
    return {.anything = false, .error = std::nullopt};
  }
  if (code) {
    return {.error = ErrorOf(path, qt_error_string(code.value()))};
  }
  if (!std::filesystem::is_regular_file(status)) {
    return {.error = ErrorOf(path, u"not a file"_s)};
  }
  return {};
}

}  // namespace brindle
