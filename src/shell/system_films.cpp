// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/system_films.h"

#include <cstdint>
#include <memory>
#include <vector>

#include <QByteArray>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include "media/film_json.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

QString Message(const QString& what, const QString& path, const RunFailure& failure) {
  return failure.isMessage
             ? failure.text
             : u"Cannot %1 %2: %3"_s.arg(what, QDir::toNativeSeparators(path), failure.text);
}

}  // namespace

std::unique_ptr<FilmJob> SystemFilmSource::Begin(const QString& path, const Calls& calls) {
  const QStringList arguments{u"info"_s,       QFileInfo(path).absoluteFilePath(),
                              u"--json"_s,     u"--key-frames"_s,
                              u"--progress"_s, u"--limited"_s};
  const auto ended = [path, ended = calls.ended](const auto& answer) {
    if (!answer) {
      ended(tl::unexpected(Message(u"read"_s, path, answer.error())));
      return;
    }
    const auto film = FilmOfJson(*answer);
    ended(film ? FilmSource::Read(*film)
               : FilmSource::Read(tl::unexpected(Message(
                     u"read"_s, path,
                     RunFailure{false, u"the answer of brindle is wrong: "_s + film.error()}))));
  };
  return CommandRun::Start(clock_, limits_, CommandLineProgram(programFolder_), arguments,
                           {.progress = calls.progress, .ended = ended});
}

std::unique_ptr<FilmJob> SystemPartWriter::Begin(const PartOrder& order, const Calls& calls) {
  QStringList arguments{u"parts"_s,           QFileInfo(order.film).absoluteFilePath(),
                        u"--output-folder"_s, QFileInfo(order.folder).absoluteFilePath(),
                        u"--json"_s,          u"--progress"_s};
  for (const auto frame : order.cuts) {
    arguments += {u"--cut"_s, QString::number(frame)};
  }
  if (order.overwrites) {
    arguments.append(u"--force"_s);
  }
  const auto ended = [folder = order.folder, ended = calls.ended](const auto& answer) {
    if (!answer) {
      ended(tl::unexpected(Message(u"write"_s, folder, answer.error())));
      return;
    }
    const auto parts = PartsOfJson(*answer);
    ended(parts ? PartWriter::Written(*parts)
                : PartWriter::Written(tl::unexpected(
                      Message(u"write"_s, folder, RunFailure{false, parts.error()}))));
  };
  return CommandRun::Start(clock_, limits_, CommandLineProgram(programFolder_), arguments,
                           {.progress = calls.progress, .ended = ended});
}

tl::expected<std::vector<WrittenPart>, QString> PartsOfJson(const QByteArray& json) {
  constexpr double mostBytes = 9007199254740992;  // all whole numbers up to it are exact
  std::vector<WrittenPart> parts;
  for (const auto& each : QJsonDocument::fromJson(json).object().value(u"parts"_s).toArray()) {
    const auto part = each.toObject();
    const double bytes = part.value(u"size_b"_s).toDouble(-1);
    const double seconds = part.value(u"duration_seconds"_s).toDouble(-1);
    const auto path = part.value(u"file"_s).toString();
    if (path.isEmpty() || bytes < 0 || bytes > mostBytes || seconds < 0) {
      return tl::unexpected(u"its answer cannot be read"_s);
    }
    parts.push_back({path, static_cast<std::int64_t>(bytes), seconds});
  }
  if (parts.empty()) {
    return tl::unexpected(u"its answer cannot be read"_s);
  }
  return parts;
}

}  // namespace brindle
