// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QString>
#include <QUrl>
#include <QWidget>

#include "media/film.h"

namespace brindle {

/// An AVI film of 1:42:30 with a key frame every 300 frames, every 12 seconds, and 2.5 MB from one
/// to the next: 512.5 intervals, 1281.25 MB with 50 MB of sound, and a header of 10,000 bytes.
inline Film SampleFilm() {
  constexpr std::int64_t frames = 153750;
  constexpr std::int64_t distance = 300;
  constexpr std::int64_t bytesOfInterval = 2'621'440;
  constexpr std::int64_t audioOfInterval = 102'400;
  constexpr std::int64_t containerOfInterval = 20'000;
  constexpr std::int64_t header = 10'000;
  Film film;
  film.container = "avi";
  film.seconds = 6150;
  film.parts.container = "avi";
  film.parts.fixedBytes = header;
  const auto before = [&](std::int64_t frame) {
    FilmKeyFrame at;
    at.frame = frame;
    const auto intervals = frame / distance;
    at.audioBytes = intervals * audioOfInterval;
    at.containerBytes = intervals * containerOfInterval;
    at.videoBytes = intervals * bytesOfInterval - at.audioBytes - at.containerBytes;
    at.position = header + intervals * bytesOfInterval;
    at.packets = frame * 2;
    return at;
  };
  for (std::int64_t frame = 0; frame < frames; frame += distance) {
    film.keyFrames.push_back(before(frame));
  }
  film.parts.end = before(frames + distance / 2);
  film.parts.end.frame = frames;
  FilmVideo video;
  video.codec = "mpeg4";
  video.width = 640;
  video.height = 272;
  video.frameRate = {25, 1};
  video.frames = frames;
  video.bytes = film.parts.end.videoBytes;
  film.video = video;
  film.audio = {{.codec = "mp3", .kilobitsPerSecond = 128, .channels = 2, .sampleRate = 48000},
                {.codec = "mp3", .kilobitsPerSecond = 64, .channels = 1, .sampleRate = 48000}};
  film.containerBytes = header + film.parts.end.containerBytes;
  film.bytes = film.parts.end.position;
  film.framesBetweenAudio = 12.4;
  return film;
}

/// Drops a file on a widget, as the desktop does. Whether it was taken.
inline bool DropFile(QWidget* widget, const QString& path) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(path)});
  QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(widget, &enter);
  if (!enter.isAccepted()) {
    return false;
  }
  QDropEvent drop({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(widget, &drop);
  QCoreApplication::processEvents();
  return drop.isAccepted();
}

}  // namespace brindle
