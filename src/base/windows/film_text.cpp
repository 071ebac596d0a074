// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/windows/film_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

#include <QChar>
#include <QFileInfo>
#include <QString>
#include <QStringList>

#include "base/input/number_fields.h"
#include "base/numbers/frame_rate.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/running_time.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr int Systems = 3;
constexpr double BytesOfMegaByte = 1048576;
constexpr double BitsOfByte = 8;
constexpr double SecondsOfMinute = 60;
// 24000/1001 is the rate that is called 23.976.
constexpr double SameRate = 0.005;

QString Rounded(double value, const char* pattern) { return ToQString(Formatted(value, pattern)); }

std::optional<double> RateOf(const Film& film) {
  return film.video ? std::optional(film.video->frameRate.Value()) : std::nullopt;
}

QString RateText(double rate, std::optional<int> system) {
  auto text = Rounded(rate, "#0.###") + u" fps"_s;
  if (system && std::abs(FramesPerSecond(*system) - rate) > SameRate) {
    text += u" (nearest: %1)"_s.arg(Rounded(FramesPerSecond(*system), "#0.###"));
  }
  return text;
}

QString TracksText(std::size_t tracks) {
  return tracks == 0   ? u"no audio"_s
         : tracks == 1 ? u"1 audio track"_s
                       : u"%1 audio tracks"_s.arg(tracks);
}

}  // namespace

std::optional<QString> MinutesOf(const Film& film) {
  return film.seconds > 0 ? std::optional(ToQString(MinutesText(film.seconds / SecondsOfMinute)))
                          : std::nullopt;
}

std::optional<TimeTexts> TimeOf(const Film& film) {
  if (film.seconds <= 0) {
    return std::nullopt;
  }
  const auto time = TakeApart(SecondsToHundredths(film.seconds / SecondsOfMinute));
  return TimeTexts{Rounded(time.hours, "#0"), Rounded(time.minutes, "#0"),
                   Rounded(time.seconds, "#0.##")};
}

std::optional<QString> AudioBitrateOf(const Film& film) {
  if (film.audio.empty()) {
    return std::nullopt;
  }
  double sum = 0;
  for (const auto& track : film.audio) {
    sum += track.kilobitsPerSecond;
  }
  return Rounded(sum, "#0.#");
}

std::optional<QString> VideoBitrateOf(const Film& film, double bitsOfKiloBit) {
  if (!film.video || film.seconds <= 0) {
    return std::nullopt;
  }
  const double bits = static_cast<double>(film.video->bytes) * BitsOfByte;
  return Rounded(bits / bitsOfKiloBit / film.seconds, "#0");
}

std::optional<QString> ShapeOf(const Film& film) {
  return film.video ? std::optional(Rounded(film.video->Shape(), "#0.###")) : std::nullopt;
}

std::optional<QString> KeyFrameDistanceOf(const Film& film) {
  if (film.keyFrames.empty() || film.seconds <= 0) {
    return std::nullopt;
  }
  const double distance = film.seconds / static_cast<double>(film.keyFrames.size());
  return Rounded(std::max(1.0, std::round(distance)), "#0");
}

QString MegaBytesText(std::int64_t bytes) {
  return Rounded(static_cast<double>(bytes) / BytesOfMegaByte, "#0.##");
}

std::optional<int> NearestSystem(const Film& film) {
  const auto rate = RateOf(film);
  if (!rate) {
    return std::nullopt;
  }
  int nearest = 0;
  for (int system = 1; system < Systems; ++system) {
    if (std::abs(FramesPerSecond(system) - *rate) < std::abs(FramesPerSecond(nearest) - *rate)) {
      nearest = system;
    }
  }
  return nearest;
}

QString FilmText(const QString& path, const Film& film, std::optional<int> system) {
  QStringList facts;
  if (film.seconds > 0) {
    facts.append(DurationText(film.seconds));
  }
  if (film.video) {
    facts.append(RateText(film.video->frameRate.Value(), system));
    facts.append(u"%1 x %2"_s.arg(film.video->width).arg(film.video->height));
  } else {
    facts.append(u"no video"_s);
  }
  facts.append(TracksText(film.audio.size()));
  return NameOfFile(path) + u": "_s + facts.join(u", "_s);
}

QString DurationText(double seconds) {
  const auto time = TakeApart(std::round(seconds));
  const auto two = [](double value) {
    return u"%1"_s.arg(static_cast<int>(value), 2, 10, QChar(u'0'));
  };
  return Rounded(time.hours, "#0") + u':' + two(time.minutes) + u':' + two(time.seconds);
}

QString NameOfFile(const QString& path) {
  auto name = QFileInfo(path).fileName();
  for (auto& character : name) {
    if (!character.isPrint()) {
      character = u'?';
    }
  }
  return name;
}

}  // namespace brindle
