// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>

#include <QFile>
#include <QString>

#include "wav/system_files.h"

namespace brindle {

using namespace Qt::StringLiterals;

// Checks two independent kinds of locks: on a whole file, and on its ranges. Neither keeps a file
// from being opened.
bool IsLocked(const QFile& file) {
  const int descriptor = file.handle();
  if (flock(descriptor, LOCK_SH | LOCK_NB) == 0) {
    flock(descriptor, LOCK_UN);
  } else if (errno == EWOULDBLOCK) {
    return true;
  }
  struct flock range = {};
  range.l_type = F_RDLCK;
  range.l_whence = SEEK_SET;
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
  return fcntl(descriptor, F_GETLK, &range) == 0 && range.l_type == F_WRLCK;
}

tl::expected<qint64, QString> LengthOf(const QFile& file) {
  struct stat opened = {};
  if (fstat(file.handle(), &opened) != 0) {
    return tl::unexpected(qt_error_string(errno));
  }
  return qint64{opened.st_size};
}

tl::expected<void, QString> CheckAtItsPath(const QFile& file) {
  const auto path = QFile::encodeName(file.fileName());
  struct stat opened = {};
  struct stat standing = {};
  if (fstat(file.handle(), &opened) != 0) {
    return tl::unexpected(qt_error_string(errno));
  }
  if (stat(path.constData(), &standing) != 0) {
    return tl::unexpected(errno == ENOENT || errno == ENOTDIR ? u"the file is gone"_s
                                                              : qt_error_string(errno));
  }
  if (opened.st_dev != standing.st_dev || opened.st_ino != standing.st_ino) {
    return tl::unexpected(u"the file was replaced"_s);
  }
  return {};
}

bool LeadToSameFile(const QString& path, const QString& other) {
  std::error_code none;
  return std::filesystem::equivalent(path.toStdU16String(), other.toStdU16String(), none);
}

}  // namespace brindle
