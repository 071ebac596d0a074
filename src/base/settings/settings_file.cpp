// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/settings/settings_file.h"

#include <algorithm>
#include <array>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QString>
#include <QTemporaryFile>
#include <QThread>

#include "base/files/at_path.h"
#include "base/files/leftovers.h"
#include "base/files/sync_file.h"
#include "base/files/system_files.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 LargestFile = 1'048'576;  // bytes
// What follows the file's name in the names of this program's temporary files. Nobody else uses it,
// so the files that a killed program left can be told from a person's own copies.
constexpr QLatin1StringView TemporaryMark(".tmp-");
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
  QTemporaryFile file(folder + u'/' + ProbeName + TemporaryMark + u"XXXXXX"_s);
  return file.open();
}

// A disk that fills up takes a part first and gives its reason only when asked to take the rest.
bool WriteAll(QFile& file, const QByteArray& bytes) {
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

// The file that a save of `path` replaces: links are written through.
QFileInfo WhereLinksLead(const QString& path) {
  constexpr int mostLinks = 128;  // some form a circle
  QFileInfo file(path);
  for (int links = 0; links < mostLinks && file.isSymLink(); ++links) {
    file.setFile(file.symLinkTarget());
  }
  return file;
}

// The error is the system's reason why the bytes are not on the disk yet.
tl::expected<void, QString> WriteOut(QFile& file, const QByteArray& bytes) {
  if (!WriteAll(file, bytes)) {
    return tl::unexpected(file.errorString());
  }
  return SyncFile(file.handle());
}

// The new file is on the disk before it is renamed over the old one: any failure leaves the old.
FileResult<void> TryToReplace(const QString& path, const QByteArray& bytes) {
  if (const auto standing = IsFileAt(path); !standing) {
    return tl::unexpected(standing.error());
  }
  const QString target = WhereLinksLead(path).filePath();
  QFile old(target);
  if (old.exists() && !old.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
    return tl::unexpected(ErrorOf(path, old));
  }
  const auto number = QRandomGenerator::system()->generate();
  QFile file(target + TemporaryMark + u"%1"_s.arg(number, 8, 16, QChar(u'0')));
  // Unbuffered: if a buffer could not be written when the file is finished, nobody would notice.
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
    return tl::unexpected(ErrorOf(path, file));
  }
  const BeingWritten mark(file.handle());
  if (old.isOpen()) {
    file.setPermissions(old.permissions());
    old.close();
  }
  auto replaced = WriteOut(file, bytes);
  file.close();
  if (replaced) {
    replaced = RenameFile(file.fileName(), target);
  }
  if (!replaced) {
    file.remove();
    return tl::unexpected(ErrorOf(path, replaced.error()));
  }
  return {};
}

// A program that looks at every new file, for viruses or for copies, holds it for a moment.
FileResult<void> Replace(const QString& path, const QByteArray& bytes) {
  constexpr unsigned long betweenTries = 50;  // ms
  constexpr int mostTries = 20;               // about a second
  auto replaced = TryToReplace(path, bytes);
  for (int tries = 0; !replaced && tries < mostTries && IsHeld(path); ++tries) {
    QThread::msleep(betweenTries);
    replaced = TryToReplace(path, bytes);
  }
  return replaced;
}

// The file's contents, up to the size of the largest file.
FileResult<QByteArray> ReadExisting(const QString& path) {
  if (const auto standing = IsFileAt(path); !standing) {
    return tl::unexpected(standing.error());
  }
  QFile file(path);
  if (file.open(QIODevice::ReadOnly)) {
    auto bytes = file.read(LargestFile);
    if (file.error() == QFileDevice::NoError) {
      return bytes;
    }
  }
  return tl::unexpected(ErrorOf(path, file));
}

// The temporary files in the folder that were made for a file of this name.
QFileInfoList TemporaryFiles(const QDir& folder, const QString& name) {
  const QRegularExpression ours(QRegularExpression::anchoredPattern(
      QRegularExpression::escape(name + TemporaryMark) + u"([0-9a-f]{8}|[A-Za-z]{6})"_s));
  QFileInfoList found;
  for (const auto& file : folder.entryInfoList(QDir::Files | QDir::Hidden | QDir::NoSymLinks)) {
    if (ours.match(file.fileName()).hasMatch()) {
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

QString UndoFolder(const QString& settingsFolder) {
  if (settingsFolder != DesktopConfigFolder()) {
    return settingsFolder + u"/Brindle2.undo"_s;
  }
#ifdef Q_OS_WIN
  return settingsFolder + u"/undo"_s;
#else
  const auto state = qEnvironmentVariable("XDG_STATE_HOME");
  return (QDir::isAbsolutePath(state) ? state : QDir::homePath() + u"/.local/state"_s) +
         u"/brindle2"_s;
#endif
}

SettingsFile::SettingsFile(const QString& folder)
    : path_(folder + u"/Brindle2.ini"_s), keptPath_(path_ + u".bak"_s) {}

FileResult<QByteArray> SettingsFile::Read() const {
  if (const auto standing = IsFileAt(path_); standing && !*standing) {
    return QByteArray();
  }
  return ReadExisting(path_);
}

FileResult<void> SettingsFile::Write(const QByteArray& bytes) const {
  return Replace(path_, bytes);
}

FileResult<void> SettingsFile::KeepUnusable() const {
  return ReadExisting(path_).and_then(
      [this](const QByteArray& bytes) { return Replace(keptPath_, bytes); });
}

void SettingsFile::SweepLeftovers() const {
  for (const auto& path : {path_, keptPath_}) {
    const auto file = WhereLinksLead(path);
    for (const auto& leftover : TemporaryFiles(file.dir(), file.fileName())) {
      RemoveLeftover(leftover.filePath());
    }
  }
  for (const auto& probe : TemporaryFiles(QFileInfo(path_).dir(), ProbeName)) {
    RemoveLeftover(probe.filePath());
  }
}

}  // namespace brindle
