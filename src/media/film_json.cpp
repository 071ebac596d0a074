// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/film_json.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>

#include "base/numbers/json_text.h"
#include "base/numbers/numeric_text.h"

namespace brindle {
namespace {

// Whole numbers beyond this are not exact in JSON.
constexpr std::int64_t MostBytes = std::int64_t{1} << 53;
constexpr std::int64_t MostPixels = 65536;
constexpr std::int64_t MostTracks = 1000;
constexpr std::int64_t MostChannels = 1024;
constexpr std::int64_t MostSampleRate = 10'000'000;
constexpr double MostSeconds = 1e9;
constexpr double MostKiloBits = 1e9;
constexpr qsizetype MostOfName = 64;

// An object whose members keep their order.
class Members {
 public:
  void Text(std::string_view key, std::string_view value) { Raw(key, JsonText(value)); }
  void Whole(std::string_view key, std::int64_t value) { Raw(key, std::to_string(value)); }
  void Number(std::string_view key, double value) {
    const auto text = ExactTextOf(value);
    Raw(key, text.empty() ? "null" : text);
  }
  void Raw(std::string_view key, std::string_view value) {
    text_.append(text_.empty() ? "" : ",").append(JsonText(key)).append(":").append(value);
  }
  [[nodiscard]] std::string Object() const { return "{" + text_ + "}"; }

 private:
  std::string text_;
};

template <class List, class Write>
std::string ArrayOf(const List& list, const Write& write) {
  std::string text = "[";
  for (const auto& one : list) {
    text += (text.size() > 1 ? "," : "") + write(one);
  }
  return text + "]";
}

std::string JsonOfFraction(const Fraction& fraction) {
  return "[" + std::to_string(fraction.numerator) + "," + std::to_string(fraction.denominator) +
         "]";
}

std::string JsonOfVideo(const FilmVideo& video) {
  Members members;
  members.Text("codec", video.codec);
  members.Whole("width_pixels", video.width);
  members.Whole("height_pixels", video.height);
  members.Raw("pixel_shape", JsonOfFraction(video.pixelShape));
  members.Raw("rate_fps", JsonOfFraction(video.frameRate));
  members.Whole("frames", video.frames);
  members.Whole("size_b", video.bytes);
  return members.Object();
}

std::string JsonOfAudio(const FilmAudio& audio) {
  Members members;
  members.Text("codec", audio.codec);
  members.Number("bitrate_kbps", audio.kilobitsPerSecond);
  members.Whole("channels", audio.channels);
  members.Whole("sample_rate_hz", audio.sampleRate);
  members.Whole("size_b", audio.bytes);
  return members.Object();
}

std::string JsonOfKeyFrame(const FilmKeyFrame& key) {
  Members members;
  members.Whole("frame", key.frame);
  members.Whole("position_b", key.position);
  members.Whole("video_b", key.videoBytes);
  members.Whole("audio_b", key.audioBytes);
  members.Whole("container_b", key.containerBytes);
  members.Whole("packets", key.packets);
  members.Whole("extra_b", key.extraBytes);
  return members.Object();
}

std::string JsonOfParts(const FilmParts& parts) {
  Members members;
  members.Text("container", parts.container);
  members.Whole("fixed_b", parts.fixedBytes);
  members.Raw("end", JsonOfKeyFrame(parts.end));
  return members.Object();
}

std::string JsonOfFilm(const Film& film) {
  Members members;
  members.Text("container", film.container);
  members.Whole("size_b", film.bytes);
  members.Number("duration_seconds", film.seconds);
  members.Raw("video", film.video ? JsonOfVideo(*film.video) : "null");
  members.Raw("audio", ArrayOf(film.audio, JsonOfAudio));
  members.Whole("container_b", film.containerBytes);
  if (film.framesBetweenAudio) {
    members.Number("frames_between_audio", *film.framesBetweenAudio);
  } else {
    members.Raw("frames_between_audio", "null");
  }
  members.Raw("parts", JsonOfParts(film.parts));
  members.Raw("key_frames", ArrayOf(film.keyFrames, JsonOfKeyFrame));
  return members.Object();
}

// Reads the members of an object one by one and remembers the first thing that is wrong.
class Reading {
 public:
  Reading(const QJsonValue& value, QString name, QString& fault)
      : object_(value.toObject()), name_(std::move(name)), fault_(fault) {
    if (!value.isObject()) {
      Refuse(name_ + QStringLiteral(" is missing"));
    }
  }

  [[nodiscard]] QJsonValue Value(const char* key) const { return object_[QLatin1String(key)]; }

  [[nodiscard]] std::int64_t Whole(const char* key, std::int64_t most, std::int64_t least = 0) {
    return WholeOf(Value(key), key, most, least);
  }

  [[nodiscard]] int Int(const char* key, std::int64_t most, std::int64_t least = 0) {
    return static_cast<int>(Whole(key, most, least));
  }

  // From 0 to `most`.
  [[nodiscard]] double Number(const char* key, double most) {
    const double value = Value(key).toDouble(-1);
    if (!(value >= 0 && value <= most)) {
      OutOfRange(key);
      return 0;
    }
    return value;
  }

  [[nodiscard]] Fraction Quotient(const char* key) {
    const auto pair = Value(key).toArray();
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    if (!Value(key).isArray() || pair.size() != 2) {
      OutOfRange(key);
      return {};
    }
    Fraction fraction{WholeOf(pair[0], key, most, 1), WholeOf(pair[1], key, most, 1)};
    const auto common = std::gcd(fraction.numerator, fraction.denominator);
    return {fraction.numerator / common, fraction.denominator / common};
  }

  [[nodiscard]] std::string Name(const char* key) {
    const auto text = Value(key).toString();
    bool isPlain = Value(key).isString() && text.size() <= MostOfName;
    for (const QChar c : text) {
      isPlain = isPlain && c > u' ' && c < u'\x7F';
    }
    if (!isPlain) {
      OutOfRange(key);
      return {};
    }
    return text.toStdString();
  }

  void Refuse(const QString& fault) {
    if (fault_.isEmpty()) {
      fault_ = fault;
    }
  }
  [[nodiscard]] bool IsFaulty() const { return !fault_.isEmpty(); }

 private:
  void OutOfRange(const char* key) {
    Refuse(name_ + QStringLiteral(": ") + QLatin1String(key) + QStringLiteral(" is out of range"));
  }

  std::int64_t WholeOf(const QJsonValue& value, const char* key, std::int64_t most,
                       std::int64_t least) {
    const double number = value.toDouble(-1);
    if (!(number >= static_cast<double>(least) && number <= static_cast<double>(most)) ||
        number != std::floor(number)) {
      OutOfRange(key);
      return least;
    }
    return static_cast<std::int64_t>(number);
  }

  QJsonObject object_;
  QString name_;
  QString& fault_;
};

FilmVideo VideoOf(const QJsonValue& value, QString& fault) {
  Reading reading(value, QStringLiteral("video"), fault);
  FilmVideo video;
  video.codec = reading.Name("codec");
  video.width = reading.Int("width_pixels", MostPixels, 1);
  video.height = reading.Int("height_pixels", MostPixels, 1);
  video.pixelShape = reading.Quotient("pixel_shape");
  video.frameRate = reading.Quotient("rate_fps");
  video.frames = reading.Whole("frames", MostBytes);
  video.bytes = reading.Whole("size_b", MostBytes);
  return video;
}

FilmAudio AudioOf(const QJsonValue& value, QString& fault) {
  Reading reading(value, QStringLiteral("audio"), fault);
  FilmAudio audio;
  audio.codec = reading.Name("codec");
  audio.kilobitsPerSecond = reading.Number("bitrate_kbps", MostKiloBits);
  audio.channels = reading.Int("channels", MostChannels);
  audio.sampleRate = reading.Int("sample_rate_hz", MostSampleRate);
  audio.bytes = reading.Whole("size_b", MostBytes);
  return audio;
}

FilmKeyFrame KeyFrameOf(const QJsonValue& value, QString& fault) {
  Reading reading(value, QStringLiteral("key frame"), fault);
  FilmKeyFrame key;
  key.frame = reading.Whole("frame", MostBytes);
  key.position = reading.Whole("position_b", MostBytes);
  key.videoBytes = reading.Whole("video_b", MostBytes);
  key.audioBytes = reading.Whole("audio_b", MostBytes);
  key.containerBytes = reading.Whole("container_b", MostBytes);
  key.packets = reading.Whole("packets", MostBytes);
  key.extraBytes = reading.Whole("extra_b", MostBytes);
  return key;
}

bool DoesNotShrink(const FilmKeyFrame& from, const FilmKeyFrame& to) {
  return from.videoBytes <= to.videoBytes && from.audioBytes <= to.audioBytes &&
         from.containerBytes <= to.containerBytes && from.packets <= to.packets;
}

FilmParts PartsOf(const QJsonValue& value, QString& fault) {
  Reading reading(value, QStringLiteral("parts"), fault);
  FilmParts parts;
  parts.container = reading.Name("container");
  parts.fixedBytes = reading.Whole("fixed_b", MostBytes);
  parts.end = KeyFrameOf(reading.Value("end"), fault);
  return parts;
}

void ReadKeyFrames(Reading& reading, Film& film, QString& fault) {
  const auto list = reading.Value("key_frames");
  if (!list.isArray()) {
    reading.Refuse(QStringLiteral("the key frames are missing"));
  }
  const auto keys = list.toArray();
  for (const auto& value : keys) {
    const auto key = KeyFrameOf(value, fault);
    if (!film.keyFrames.empty() && key.frame <= film.keyFrames.back().frame) {
      reading.Refuse(QStringLiteral("the key frames are not in their order"));
    }
    if (!DoesNotShrink(film.keyFrames.empty() ? FilmKeyFrame{} : film.keyFrames.back(), key)) {
      reading.Refuse(QStringLiteral("the bytes before a key frame are fewer than before another"));
    }
    if (reading.IsFaulty()) {
      return;
    }
    film.keyFrames.push_back(key);
  }
  if (film.keyFrames.empty()) {
    return;
  }
  const auto& last = film.keyFrames.back();
  if (!film.video || last.frame >= film.video->frames || !DoesNotShrink(last, film.parts.end)) {
    reading.Refuse(QStringLiteral("a key frame is past the end"));
  }
}

Film FilmOf(const QJsonValue& value, QString& fault) {
  Reading reading(value, QStringLiteral("film"), fault);
  Film film;
  film.container = reading.Name("container");
  film.bytes = reading.Whole("size_b", MostBytes);
  film.seconds = reading.Number("duration_seconds", MostSeconds);
  if (const auto video = reading.Value("video"); !video.isNull()) {
    film.video = VideoOf(video, fault);
  }
  const auto tracks = reading.Value("audio");
  if (!tracks.isArray() || tracks.toArray().size() > MostTracks) {
    reading.Refuse(QStringLiteral("the audio tracks are missing"));
    return film;
  }
  const auto list = tracks.toArray();
  for (const auto& track : list) {
    film.audio.push_back(AudioOf(track, fault));
  }
  film.containerBytes = reading.Whole("container_b", MostBytes);
  if (const auto between = reading.Value("frames_between_audio"); !between.isNull()) {
    film.framesBetweenAudio = reading.Number("frames_between_audio", MostSeconds);
  }
  film.parts = PartsOf(reading.Value("parts"), fault);
  ReadKeyFrames(reading, film, fault);
  return film;
}

}  // namespace

std::string JsonOf(const Film& film, std::string_view file) {
  Members members;
  members.Whole("version", 1);
  members.Text("command", "info");
  members.Text("file", file);
  members.Raw("film", JsonOfFilm(film));
  return members.Object();
}

tl::expected<Film, QString> FilmOfJson(const QByteArray& json) {
  QJsonParseError error;
  const auto document = QJsonDocument::fromJson(json, &error);
  if (error.error != QJsonParseError::NoError || !document.isObject()) {
    return tl::unexpected(QStringLiteral("it is not a JSON object"));
  }
  const auto answer = document.object();
  if (answer[QLatin1String("version")].toInt() != 1 ||
      answer[QLatin1String("command")].toString() != QLatin1String("info")) {
    return tl::unexpected(QStringLiteral("it is not an answer about a film"));
  }
  QString fault;
  auto film = FilmOf(answer[QLatin1String("film")], fault);
  if (!fault.isEmpty()) {
    return tl::unexpected(fault);
  }
  return film;
}

}  // namespace brindle
