// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/libav/film_library.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/files/at_path.h"
#include "base/files/system_disk.h"
#include "media/libav/av_file.h"
#include "media/libav/avi_layout.h"
#include "media/libav/avi_parts.h"
#include "media/libav/avi_writer.h"
#include "media/libav/packets.h"
#include "media/libav/stream_writer.h"

extern "C" {
#include <libavcodec/codec_desc.h>
#include <libavutil/rational.h>
}

namespace brindle {
namespace {

std::string CodecName(const AVStream& stream) {
  const auto* descriptor = avcodec_descriptor_get(stream.codecpar->codec_id);
  return descriptor != nullptr ? descriptor->name : "unknown";
}

// Of a quotient that may be none.
std::optional<Fraction> FractionOf(AVRational value) {
  if (value.num <= 0 || value.den <= 0) {
    return std::nullopt;
  }
  AVRational least{1, 1};
  av_reduce(&least.num, &least.den, value.num, value.den, std::numeric_limits<int>::max());
  return Fraction{least.num, least.den};
}

Fraction FractionOf(std::int64_t numerator, std::int64_t denominator) {
  AVRational least{1, 1};
  av_reduce(&least.num, &least.den, numerator, denominator, std::numeric_limits<int>::max());
  return FractionOf(least).value_or(Fraction{});
}

// The rate that the frames were made for, unless they do not keep to it.
std::optional<Fraction> RateOf(const AVStream& stream) {
  const auto mean = FractionOf(stream.avg_frame_rate);
  const auto least = FractionOf(stream.r_frame_rate);
  constexpr double near = 0.002;
  if (!mean || (least && std::abs(least->Value() / mean->Value() - 1) < near)) {
    return least;
  }
  return mean;
}

double KiloBits(std::int64_t bytes, double seconds) {
  constexpr double bits = 8;
  constexpr double kilo = 1000;
  return seconds > 0 ? static_cast<double>(bytes) * bits / kilo / seconds : 0;
}

void DescribeVideo(FilmVideo& video, AVFormatContext& context, AVStream& stream) {
  video.codec = CodecName(stream);
  video.width = stream.codecpar->width;
  video.height = stream.codecpar->height;
  video.pixelShape =
      FractionOf(av_guess_sample_aspect_ratio(&context, &stream, nullptr)).value_or(Fraction{});
}

void DescribeAudio(FilmAudio& audio, const AVStream& stream) {
  audio.codec = CodecName(stream);
  audio.channels = stream.codecpar->ch_layout.nb_channels;
  audio.sampleRate = stream.codecpar->sample_rate;
}

// Whether an MP4 film is written in fragments: then its index has the first one only.
bool HasFragments(DiskFile& file, std::int64_t length) {
  constexpr int mostBoxes = 100'000;
  std::int64_t at = 0;
  for (int box = 0; box < mostBoxes && at + 8 <= length; ++box) {
    std::array<std::byte, 16> head{};
    if (!file.Read(at, head)) {
      return true;
    }
    const auto number = [&head](std::size_t from, std::size_t count) {
      std::uint64_t value = 0;
      for (std::size_t i = from; i < from + count; ++i) {
        value = value << 8U | std::to_integer<std::uint64_t>(head[i]);
      }
      return value;
    };
    constexpr std::uint64_t fragment = 0x6D6F6F66;  // "moof"
    if (number(4, 4) == fragment) {
      return true;
    }
    auto size = number(0, 4);
    size = size == 1 ? number(8, 8) : size;
    if (size < 8 || size > static_cast<std::uint64_t>(length)) {
      return false;
    }
    at += static_cast<std::int64_t>(size);
  }
  return false;
}

tl::unexpected<FilmStop> Failed(FileError error) {
  return tl::unexpected(FilmStop{.error = std::move(error)});
}

tl::unexpected<FilmStop> Aborted() {
  return tl::unexpected(FilmStop{.error = {}, .isAborted = true});
}

// A film that has been read: its bytes, its facts, and where its packets are.
class ReadFilm : public FilmFile {
 public:
  ReadFilm(std::unique_ptr<DiskFile> file, std::int64_t length, QString path)
      : file_(std::move(file)), length_(length), path_(std::move(path)) {}

  // Stops with a reason, or reads everything.
  [[nodiscard]] tl::expected<void, FilmStop> Read(const FilmProgress& progress) {
    constexpr double whole = 100;
    const auto goesOn = [&](std::int64_t position) {
      return progress(
          std::min(whole, whole * static_cast<double>(position) / static_cast<double>(length_)));
    };
    if (IsAvi(*file_)) {
      auto layout = ReadAviLayout(*file_, path_, goesOn);
      if (!layout) {
        return Failed(layout.error());
      }
      if (!*layout) {
        return Aborted();
      }
      layout_ = std::move(*layout);
    }
    AvInput input(*file_, length_, goesOn);
    const auto opened = input.Open();
    if (auto stop = StopOf(input)) {
      return tl::unexpected(*stop);
    }
    if (!opened) {
      return Failed(ErrorOf(path_, opened.error()));
    }
    film_.bytes = length_;
    return (layout_ ? ReadAvi(input) : ReadPackets(input)).and_then([this] { return Check(); });
  }

  [[nodiscard]] const Film& Facts() const override { return film_; }

  [[nodiscard]] std::unique_ptr<PartsPass> WriteParts(const std::vector<std::size_t>& cuts,
                                                      const QStringList& targets,
                                                      bool isReplacing) override {
    if (layout_) {
      return WriteAviParts(*file_, *layout_, *tracks_, film_, cuts, targets, isReplacing);
    }
    return WriteStreamParts(*file_, path_, *table_, film_, cuts, targets, isReplacing);
  }

 private:
  [[nodiscard]] static std::optional<FilmStop> StopOf(const AvInput& input) {
    if (input.Error()) {
      return FilmStop{.error = *input.Error()};
    }
    if (input.IsStopped()) {
      return FilmStop{.error = {}, .isAborted = true};
    }
    return std::nullopt;
  }

  // Hands every packet to `take`.
  template <class Take>
  [[nodiscard]] static std::optional<FilmStop> ForEachPacket(const AvInput& input,
                                                             const Take& take) {
    AVPacket* packet = av_packet_alloc();
    if (packet == nullptr) {
      throw std::bad_alloc();
    }
    while (av_read_frame(input.Context(), packet) >= 0) {
      take(*packet);
      av_packet_unref(packet);
    }
    av_packet_free(&packet);
    return StopOf(input);
  }

  // A damaged header can say anything.
  [[nodiscard]] tl::expected<void, FilmStop> Check() const {
    constexpr double mostSeconds = 1e9;
    constexpr int mostPixels = 65536;
    const auto isSize = [](int pixels) { return pixels > 0 && pixels <= mostPixels; };
    if (film_.video && (!isSize(film_.video->width) || !isSize(film_.video->height))) {
      return Failed(ErrorOf(path_, QStringLiteral("its pictures have no size")));
    }
    if (!(film_.seconds >= 0 && film_.seconds <= mostSeconds)) {
      return Failed(ErrorOf(path_, QStringLiteral("its header is damaged")));
    }
    return {};
  }

  [[nodiscard]] tl::expected<void, FilmStop> ReadAvi(const AvInput& input) {
    auto& context = *input.Context();
    if (context.nb_streams < layout_->tracks.size()) {
      return Failed(ErrorOf(path_, QStringLiteral("its header is damaged")));
    }
    if (!layout_->hasIndex) {
      if (auto stop = FindKeyFrames(input)) {
        return tl::unexpected(*stop);
      }
    }
    tracks_.emplace(*layout_);
    film_.container = "avi";
    film_.containerBytes = film_.bytes;
    for (std::size_t i = 0; i < tracks_->Chosen().size(); ++i) {
      auto& stream = *context.streams[tracks_->Chosen()[i]];
      const auto& track = layout_->tracks[tracks_->Chosen()[i]];
      film_.containerBytes -= tracks_->Bytes(i);
      film_.seconds = i == 0 || !tracks_->HasVideo() ? std::max(film_.seconds, tracks_->Seconds(i))
                                                     : film_.seconds;
      if (i == 0 && tracks_->HasVideo()) {
        film_.video.emplace();
        DescribeVideo(*film_.video, context, stream);
        film_.video->frameRate = FractionOf(track.rate, track.scale);
        film_.video->frames = static_cast<std::int64_t>(tracks_->Pieces(0).size());
        film_.video->bytes = tracks_->Bytes(0);
      } else {
        FilmAudio audio;
        DescribeAudio(audio, stream);
        audio.bytes = tracks_->Bytes(i);
        audio.kilobitsPerSecond = KiloBits(audio.bytes, tracks_->Seconds(i));
        film_.audio.push_back(audio);
      }
    }
    if (film_.video && !film_.audio.empty() && !tracks_->Pieces(1).empty()) {
      film_.framesBetweenAudio =
          static_cast<double>(film_.video->frames) / static_cast<double>(tracks_->Pieces(1).size());
    }
    film_.keyFrames = tracks_->KeyFrames();
    film_.parts = {film_.keyFrames.empty() ? "" : "avi", tracks_->FixedBytes(), tracks_->End()};
    return {};
  }

  // Without an index, the library finds the key frames by looking into every frame.
  [[nodiscard]] std::optional<FilmStop> FindKeyFrames(const AvInput& input) {
    std::unordered_set<std::int64_t> keys;
    auto stop = ForEachPacket(input, [&keys](const AVPacket& packet) {
      if ((packet.flags & AV_PKT_FLAG_KEY) != 0) {
        keys.insert(packet.pos);
      }
    });
    constexpr std::int64_t header = 8;
    for (auto& piece : layout_->pieces) {
      if (layout_->tracks[piece.track].kind == AviTrack::Kind::Video) {
        piece.isKey = keys.contains(piece.position) || keys.contains(piece.position + header);
      }
    }
    return stop;
  }

  [[nodiscard]] tl::expected<void, FilmStop> ReadPackets(const AvInput& input) {
    auto& context = *input.Context();
    table_.emplace(context, length_);
    if (table_->Chosen().empty()) {
      return Failed(ErrorOf(path_, QStringLiteral("it has neither video nor audio")));
    }
    const bool hasIndex = input.IsMovFamily() && !HasFragments(*file_, length_) &&
                          table_->FromIndex(VideoDelay(context));
    if (!hasIndex) {
      auto stop = ForEachPacket(input, [this](const AVPacket& packet) { table_->Add(packet); });
      if (stop) {
        return tl::unexpected(*stop);
      }
    }
    table_->FindCuts();
    Describe(context);
    film_.parts = {film_.keyFrames.empty() ? "" : table_->Container(),
                   FixedBytesOf(context, *table_), table_->End()};
    return {};
  }

  // How long after its decoding a frame is shown, in seconds.
  [[nodiscard]] double VideoDelay(AVFormatContext& context) const {
    double delay = 0;
    AVPacket* packet = av_packet_alloc();
    constexpr int most = 1000;
    bool isFound = !table_->HasVideo();
    for (int i = 0; i < most && !isFound && av_read_frame(&context, packet) >= 0; ++i) {
      if (table_->PlaceOf(packet->stream_index) == 0 && packet->pts != AV_NOPTS_VALUE &&
          packet->dts != AV_NOPTS_VALUE) {
        delay = static_cast<double>(packet->pts - packet->dts) *
                av_q2d(context.streams[packet->stream_index]->time_base);
        isFound = true;
      }
      av_packet_unref(packet);
    }
    av_packet_free(&packet);
    return delay;
  }

  void Describe(AVFormatContext& context) {
    const std::string format = context.iformat->name;
    film_.container = format.starts_with("mov,") ? "mp4" : format.substr(0, format.find(','));
    film_.containerBytes = film_.bytes;
    for (std::size_t i = 0; i < table_->Chosen().size(); ++i) {
      auto& stream = *context.streams[table_->Chosen()[i]];
      const auto bytes = table_->Bytes(i);
      const auto seconds = table_->Seconds(i);
      if (i == 0 && table_->HasVideo()) {
        film_.video.emplace();
        DescribeVideo(*film_.video, context, stream);
        film_.video->frames = static_cast<std::int64_t>(table_->Packets(0).size());
        film_.video->bytes = bytes;
        constexpr double fine = 1000;
        const auto mean = seconds > 0 ? static_cast<double>(film_.video->frames) / seconds : 0;
        film_.video->frameRate = RateOf(stream).value_or(FractionOf(
            std::max<std::int64_t>(std::llround(mean * fine), 1), static_cast<std::int64_t>(fine)));
        film_.seconds =
            seconds > 0 ? seconds
                        : static_cast<double>(film_.video->frames) / film_.video->frameRate.Value();
      } else if (stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO) {
        FilmAudio audio;
        DescribeAudio(audio, stream);
        audio.bytes = bytes;
        audio.kilobitsPerSecond = KiloBits(bytes, seconds);
        film_.audio.push_back(audio);
        film_.seconds = film_.video ? film_.seconds : std::max(film_.seconds, seconds);
        if (film_.video && !film_.framesBetweenAudio && !table_->Packets(i).empty()) {
          film_.framesBetweenAudio = static_cast<double>(film_.video->frames) /
                                     static_cast<double>(table_->Packets(i).size());
        }
      } else {
        continue;
      }
      film_.containerBytes -= bytes;
    }
    film_.containerBytes = std::max<std::int64_t>(film_.containerBytes, 0);
    film_.keyFrames = table_->KeyFrames();
  }

  std::unique_ptr<DiskFile> file_;
  std::int64_t length_;
  QString path_;
  Film film_;
  std::optional<AviLayout> layout_;
  std::optional<AviTracks> tracks_;
  std::optional<PacketTable> table_;
};

class Reader : public FilmReader {
 public:
  [[nodiscard]] tl::expected<std::unique_ptr<FilmFile>, FilmStop> Read(
      const QString& path, const FilmProgress& progress) override {
    auto file = TheSystemsDisk().Open(path, OpenFor::Reading);
    if (!file) {
      return Failed(file.error());
    }
    const auto length = (*file)->Length();
    if (!length) {
      return Failed(length.error());
    }
    if (*length == 0) {
      return Failed(ErrorOf(path, QStringLiteral("it is empty")));
    }
    try {
      auto film = std::make_unique<ReadFilm>(std::move(*file), *length, path);
      if (const auto read = film->Read(progress); !read) {
        return tl::unexpected(read.error());
      }
      return film;
    } catch (const std::bad_alloc&) {
      return Failed(ErrorOf(path, QStringLiteral("it takes more memory than a film should")));
    }
  }
};

}  // namespace

std::unique_ptr<FilmReader> MakeFilmReader() { return std::make_unique<Reader>(); }

}  // namespace brindle
