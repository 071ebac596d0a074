// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/settings/settings_file.h"

#include <algorithm>
#include <array>
#include <optional>
#include <variant>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QString>
#include <QTemporaryFile>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 LargestFile = 1'048'576;  // bytes

QString Message(const char* cannot, const FileError& error) {
  return QLatin1StringView(cannot) + error.path + u": "_s + error.reason;
}

bool IsWherePackagesGo(const QString& folder) {
#ifdef Q_OS_WIN
  const std::array places{qEnvironmentVariable("ProgramFiles"),
                          qEnvironmentVariable("ProgramFiles(x86)")};
  constexpr auto sensitivity = Qt::CaseInsensitive;
#else
  const std::array places{u"/usr"_s, u"/opt"_s};
  constexpr auto sensitivity = Qt::CaseSensitive;
#endif
  const QString canonical = QFileInfo(folder).canonicalFilePath() + u'/';
  return std::any_of(places.begin(), places.end(), [&](const QString& place) {
    return !place.isEmpty() &&
           canonical.startsWith(QString(QDir::fromNativeSeparators(place) + u'/'), sensitivity);
  });
}

bool CanCreateFileIn(const QString& folder) {
  QTemporaryFile file(folder + u"/Brindle2.XXXXXX"_s);
  return file.open();
}

FileError ErrorOf(const QString& path, const QFileDevice& file) {
  return {QDir::toNativeSeparators(path), file.errorString()};
}

}  // namespace

QString CannotRead(const FileError& error) { return Message("Cannot read ", error); }

QString CannotWrite(const FileError& error) { return Message("Cannot write ", error); }

QString ChooseAppFolder(const QString& programFolder, const QString& configFolder) {
  if (!IsWherePackagesGo(programFolder) && CanCreateFileIn(programFolder)) {
    return programFolder;
  }
  QDir().mkpath(configFolder);
  return configFolder;
}

QString DesktopConfigFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/brindle2"_s;
}

SettingsFile::SettingsFile(const QString& folder) : path_(folder + u"/Brindle2.ini"_s) {}

std::variant<QByteArray, FileError> SettingsFile::Read() const {
  const QFileInfo info(path_);
  if (!info.exists()) {
    return QByteArray();
  }
  if (!info.isFile()) {
    return FileError{QDir::toNativeSeparators(path_), u"not a file"_s};
  }
  QFile file(path_);
  if (file.open(QIODevice::ReadOnly)) {
    auto bytes = file.read(LargestFile);
    if (file.error() == QFileDevice::NoError) {
      return bytes;
    }
  }
  return ErrorOf(path_, file);
}

std::optional<FileError> SettingsFile::Write(const QByteArray& bytes) const {
  QSaveFile file(path_);
  if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()) {
    return std::nullopt;
  }
  return ErrorOf(path_, file);
}

std::optional<FileError> SettingsFile::KeepUnusable() const {
  constexpr qint64 pieceSize = 65536;
  const QString keptPath = path_ + u".bak"_s;
  QFile source(path_);
  QSaveFile kept(keptPath);
  if (!source.open(QIODevice::ReadOnly)) {
    return ErrorOf(path_, source);
  }
  if (!kept.open(QIODevice::WriteOnly)) {
    return ErrorOf(keptPath, kept);
  }
  for (auto piece = source.read(pieceSize); !piece.isEmpty(); piece = source.read(pieceSize)) {
    if (kept.write(piece) != piece.size()) {
      return ErrorOf(keptPath, kept);
    }
  }
  return kept.commit() ? std::nullopt : std::optional(ErrorOf(keptPath, kept));
}

}  // namespace brindle
