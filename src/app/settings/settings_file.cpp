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

#include "app/settings/at_path.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 LargestFile = 1'048'576;  // bytes

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

// Unbuffered: what a buffer could not write when the file is finished would go unnoticed.
bool OpenForReplacing(QSaveFile& file) {
  return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

// A disk that fills up takes a part first and tells its reason only when asked to take the rest.
bool WriteAll(QSaveFile& file, const QByteArray& bytes) {
  qint64 written = 0;
  while (written < bytes.size()) {
    const qint64 more = file.write(bytes.constData() + written, bytes.size() - written);
    if (more <= 0) {
      return false;
    }
    written += more;
  }
  return true;
}

}  // namespace

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
  const auto [anything, error] = WhatIsAt(path_);
  if (!anything) {
    return QByteArray();
  }
  if (error) {
    return *error;
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
  if (OpenForReplacing(file) && WriteAll(file, bytes) && file.commit()) {
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
  bool written = OpenForReplacing(kept);
  QByteArray piece;
  do {
    piece = source.read(pieceSize);
    if (source.error() != QFileDevice::NoError) {
      return ErrorOf(path_, source);
    }
    written = written && WriteAll(kept, piece);
  } while (written && !piece.isEmpty());
  if (written && kept.commit()) {
    return std::nullopt;
  }
  return ErrorOf(keptPath, kept);
}

}  // namespace brindle
