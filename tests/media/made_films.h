// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include "media/film_work.h"
#include "media/libav/film_library.h"
#include "tests/base/settings/temporary_folder.h"

namespace brindle {

/// What a program wrote, its messages after the rest; nothing is expected to fail.
inline QByteArray OutputOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.setStandardInputFile(QProcess::nullDevice());
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(120'000)) << program.toStdString();
  const auto messages = process.readAllStandardError();
  EXPECT_EQ(process.exitCode(), 0) << arguments.join(u' ').toStdString() << "\n"
                                   << messages.toStdString();
  return process.readAllStandardOutput() + messages;
}

/// Films of some seconds, each made once for all tests of the program.
class MadeFilms {
 public:
  /// The path of the film. The arguments of ffmpeg stand between the sources, which are 10 seconds
  /// of moving squares and a tone, and the name.
  static QString Make(const QString& name, const QString& arguments) {
    const auto path = Folder().PathOf(qUtf8Printable(name));
    if (!QFile::exists(path)) {
      auto words = QStringLiteral(
                       "-v error -y -f lavfi -i testsrc2=duration=10:size=160x120:rate=25 "
                       "-f lavfi -i sine=frequency=440:duration=10 -fflags +bitexact")
                       .split(u' ');
      OutputOf(QStringLiteral("ffmpeg"),
               words + arguments.split(u' ', Qt::SkipEmptyParts) + QStringList{path});
    }
    return path;
  }

  static QString Avi() {
    return Make(QStringLiteral("plain.avi"),
                QStringLiteral("-c:v mpeg4 -g 25 -c:a libmp3lame -q:a 4"));
  }
  static QString Mp4() {
    return Make(QStringLiteral("plain.mp4"), QStringLiteral("-c:v libx264 -g 25 -c:a aac"));
  }

  static const TemporaryFolder& Folder() {
    static const TemporaryFolder folder;
    return folder;
  }
};

using FilmResult = tl::expected<std::unique_ptr<FilmFile>, FilmStop>;

inline FilmResult ReadFilmAt(const QString& path) {
  return MakeFilmReader()->Read(path, [](double) { return true; });
}

/// "" for a film that was read; else why it was not.
inline std::string ReasonFor(const FilmResult& result) {
  if (result) {
    return "";
  }
  return result.error().isAborted ? "aborted" : result.error().error.reason.toStdString();
}

}  // namespace brindle
