// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/settings/settings_file.h"

#include <algorithm>
#include <array>
#include <optional>
#include <variant>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>
#include <QString>
#include <QTemporaryFile>

#include "base/files/at_path.h"
#include "base/files/leftovers.h"
#include "base/files/sync_file.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 LargestFile = 1'048'576;  // bytes
constexpr QLatin1StringView ProbeName("Brindle2");

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
  QTemporaryFile file(folder + u'/' + ProbeName + u".XXXXXX"_s);
  return file.open();
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

// Why it cannot be opened for replacing `path`. The toolkit's own words for a file that may not be
// written name the path once more: the system is asked for its reason.
FileError ErrorOfOpening(const QSaveFile& file, const QString& path) {
  QFile old(path);
  if (old.exists() && !old.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
    return ErrorOf(path, old);
  }
  return ErrorOf(path, file);
}

// Whatever fails here leaves the old file: what is not committed is discarded.
std::optional<FileError> Replace(const QString& path, const QByteArray& bytes) {
  if (auto error = WhatIsAt(path).error) {
    return error;
  }
  QSaveFile file(path);
  // Unbuffered: what a buffer could not write when the file is finished would go unnoticed.
  if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
    return ErrorOfOpening(file, path);
  }
  const BeingWritten mark(file.handle());
  if (!WriteAll(file, bytes)) {
    return ErrorOf(path, file);
  }
  // Committing does not look at what these say.
  if (const auto reason = SyncFile(file.handle())) {
    return ErrorOf(path, *reason);
  }
  return file.commit() ? std::nullopt : std::optional(ErrorOf(path, file));
}

// What is there, up to the largest file.
std::variant<QByteArray, FileError> ReadExisting(const QString& path) {
  if (const auto error = WhatIsAt(path).error) {
    return *error;
  }
  QFile file(path);
  if (file.open(QIODevice::ReadOnly)) {
    auto bytes = file.read(LargestFile);
    if (file.error() == QFileDevice::NoError) {
      return bytes;
    }
  }
  return ErrorOf(path, file);
}

// The file that a save of `path` replaces: links are written through.
QFileInfo WhereLinksLead(const QString& path) {
  constexpr int mostLinks = 128;  // some lead in a circle
  QFileInfo file(path);
  for (int links = 0; links < mostLinks && file.isSymLink(); ++links) {
    file.setFile(file.symLinkTarget());
  }
  return file;
}

// What the toolkit made in the folder by this name and six letters at random. Letters that look
// like a word ("Brindle2.ini.backup") are somebody's own: few random ones do.
QFileInfoList TemporaryFiles(const QDir& folder, const QString& name) {
  const QRegularExpression mixedLetters(QRegularExpression::anchoredPattern(
      QRegularExpression::escape(name) + u"\\.(?=.*[a-z])[A-Za-z](?=.*[A-Z])[A-Za-z]{5}"_s));
  QFileInfoList found;
  for (const auto& file : folder.entryInfoList(QDir::Files | QDir::Hidden | QDir::NoSymLinks)) {
    if (mixedLetters.match(file.fileName()).hasMatch()) {
      found.append(file);
    }
  }
  return found;
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

SettingsFile::SettingsFile(const QString& folder)
    : path_(folder + u"/Brindle2.ini"_s), keptPath_(path_ + u".bak"_s) {}

std::variant<QByteArray, FileError> SettingsFile::Read() const {
  if (!WhatIsAt(path_).anything) {
    return QByteArray();
  }
  return ReadExisting(path_);
}

std::optional<FileError> SettingsFile::Write(const QByteArray& bytes) const {
  return Replace(path_, bytes);
}

std::optional<FileError> SettingsFile::KeepUnusable() const {
  const auto content = ReadExisting(path_);
  if (const auto* error = std::get_if<FileError>(&content)) {
    return *error;
  }
  return Replace(keptPath_, std::get<QByteArray>(content));
}

void SettingsFile::SweepLeftovers() const {
  for (const auto& path : {path_, keptPath_}) {
    const auto file = WhereLinksLead(path);
    for (const auto& leftover : TemporaryFiles(file.dir(), file.fileName())) {
      RemoveLeftover(leftover.filePath());
    }
  }
  for (const auto& probe : TemporaryFiles(QFileInfo(path_).dir(), ProbeName)) {
    if (probe.size() == 0) {
      RemoveLeftover(probe.filePath());
    }
  }
}

}  // namespace brindle
