// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "gallery/holiday_film.h"

#include <cstdint>
#include <memory>

#include <QString>

namespace brindle {

namespace {

constexpr std::int64_t Frames = 153750;
constexpr std::int64_t Header = 8192;

// What lies before a frame: 192 kbit/s of sound, and the rest video.
FilmKeyFrame Before(std::int64_t frame) {
  constexpr std::int64_t audioOfFrame = 960;
  constexpr std::int64_t videoOfFrame = 12291;
  constexpr std::int64_t containerOfFrame = 48;
  return {.frame = frame,
          .position = Header + frame * (audioOfFrame + videoOfFrame + containerOfFrame),
          .videoBytes = frame * videoOfFrame,
          .audioBytes = frame * audioOfFrame,
          .containerBytes = frame * containerOfFrame,
          .packets = frame * 2};
}

}  // namespace

Film HolidayFilm() {
  Film film;
  film.container = "avi";
  film.seconds = Frames / 25.0;
  // Scenes of 40 to 297 frames.
  constexpr std::int64_t shortest = 40;
  constexpr std::int64_t spread = 258;
  constexpr std::int64_t step = 97;
  std::int64_t length = 0;
  for (std::int64_t frame = 0; frame < Frames; frame += shortest + length) {
    film.keyFrames.push_back(Before(frame));
    length = (length + step) % spread;
  }
  film.parts = {"avi", Header, Before(Frames)};
  film.bytes = film.parts.end.position;
  film.containerBytes = Header + film.parts.end.containerBytes;
  film.framesBetweenAudio = 12;
  film.video = FilmVideo{.codec = "mpeg4",
                         .width = 640,
                         .height = 272,
                         .frameRate = {25, 1},
                         .frames = Frames,
                         .bytes = film.parts.end.videoBytes};
  const FilmAudio track{
      .codec = "mp3", .kilobitsPerSecond = 96, .channels = 2, .sampleRate = 48000};
  film.audio = {track, track};
  return film;
}

std::unique_ptr<FilmJob> HolidayFilms::Begin(const QString& /*path*/, const Calls& calls) {
  calls.ended(HolidayFilm());
  return nullptr;
}

std::unique_ptr<FilmJob> NoParts::Begin(const PartOrder& /*order*/, const Calls& /*calls*/) {
  return nullptr;
}

}  // namespace brindle
