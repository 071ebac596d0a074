// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/libav/stream_writer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "media/libav/av_file.h"
#include "media/libav/part_files.h"

extern "C" {
#include <libavcodec/packet.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/mathematics.h>
}

namespace brindle {
namespace {

// Gives a part the tracks of the film. An error of the library's, or 0.
int AddTracks(AVFormatContext& part, const AVFormatContext& source, const PacketTable& table) {
  av_dict_copy(&part.metadata, source.metadata, 0);
  for (const auto index : table.Chosen()) {
    const auto& from = *source.streams[index];
    auto* to = avformat_new_stream(&part, nullptr);
    if (to == nullptr) {
      return AVERROR(ENOMEM);
    }
    if (const int error = avcodec_parameters_copy(to->codecpar, from.codecpar); error < 0) {
      return error;
    }
    // The letters by which a container knows a codec are its own.
    to->codecpar->codec_tag = 0;
    if (std::string(source.iformat->name).starts_with("mov,")) {
      to->codecpar->codec_tag = from.codecpar->codec_tag;
    }
    to->time_base = from.time_base;
    to->avg_frame_rate = from.avg_frame_rate;
    to->r_frame_rate = from.r_frame_rate;
    to->sample_aspect_ratio = from.sample_aspect_ratio;
    to->disposition = from.disposition;
    av_dict_copy(&to->metadata, from.metadata, 0);
  }
  return 0;
}

// A part that is being written.
class StreamPart {
 public:
  StreamPart(std::unique_ptr<PartFile> file, const std::string& format)
      : file_(std::move(file)), output_(std::in_place, *file_, format) {}

  [[nodiscard]] int Begin(const AVFormatContext& source, const PacketTable& table) {
    const int error = AddTracks(*output_->Context(), source, table);
    return error < 0 ? error : avformat_write_header(output_->Context(), nullptr);
  }

  // Takes the packet.
  [[nodiscard]] int Write(AVPacket& packet, std::size_t track, AVRational timeBase) {
    auto* context = output_->Context();
    packet.stream_index = static_cast<int>(track);
    packet.pos = -1;
    av_packet_rescale_ts(&packet, timeBase, context->streams[track]->time_base);
    return av_interleaved_write_frame(context, &packet);
  }

  [[nodiscard]] int End() {
    const int error = av_write_trailer(output_->Context());
    output_.reset();
    return error;
  }

  [[nodiscard]] PartFile& File() { return *file_; }

 private:
  std::unique_ptr<PartFile> file_;
  std::optional<AvOutput> output_;
};

struct PacketFreer {
  void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};

class StreamPartsPass : public PartsPass {
 public:
  StreamPartsPass(DiskFile& source, QString path, const PacketTable& table, const Film& film,
                  std::vector<std::size_t> cuts, const QStringList& targets, bool isReplacing)
      : path_(std::move(path)),
        input_(source, film.bytes, [](std::int64_t) { return true; }),
        table_(table),
        film_(film),
        cuts_(std::move(cuts)),
        targets_(targets),
        files_(targets, isReplacing),
        packet_(av_packet_alloc()),
        taken_(table.Chosen().size()),
        partOf_(table.Chosen().size()),
        bytes_(static_cast<std::size_t>(targets.size())) {}

  [[nodiscard]] PartsState Advance() override {
    if (!isOpen_) {
      isOpen_ = true;
      if (const auto opened = input_.Open(); !opened) {
        return PartsFailed{ErrorOf(path_, opened.error()), false};
      }
    }
    constexpr std::int64_t atOnce = 4'000'000;
    for (std::int64_t copied = 0; copied < atOnce;) {
      const int error = av_read_frame(input_.Context(), packet_.get());
      if (error < 0) {
        return End();
      }
      copied += packet_->size;
      if (auto failure = Copy()) {
        return *failure;
      }
      av_packet_unref(packet_.get());
    }
    constexpr double whole = 100;
    return PartsGoOn{whole * static_cast<double>(copied_) /
                     static_cast<double>(std::max<std::int64_t>(film_.bytes, 1))};
  }

 private:
  using Failure = std::optional<PartsFailed>;

  [[nodiscard]] Failure Copy() {
    const auto track = table_.PlaceOf(packet_->stream_index);
    if (track == taken_.size()) {
      return {};
    }
    const auto& stream = *input_.Context()->streams[packet_->stream_index];
    const auto number = taken_[track]++;
    auto& part = partOf_[track];
    while (part < cuts_.size() && number >= table_.Cuts()[cuts_[part]][track]) {
      ++part;
    }
    copied_ += packet_->size;
    if (auto failure = BeginUpTo(part)) {
      return failure;
    }
    Shift(part, stream.time_base);
    auto& writer = parts_[part];
    if (!writer) {
      return PartsFailed{ErrorOf(path_, QStringLiteral("its packets are out of order")), false};
    }
    if (const int error = writer->Write(*packet_, track, stream.time_base); error < 0) {
      return FailureOf(part, error);
    }
    return EndBefore();
  }

  // Each part begins at 0, whenever the film does.
  void Shift(std::size_t part, AVRational timeBase) {
    constexpr std::int64_t fine = AV_TIME_BASE;
    const auto begin = input_.Context()->start_time;
    double seconds = begin == AV_NOPTS_VALUE ? 0 : static_cast<double>(begin) / fine;
    if (part > 0) {
      const auto& video = table_.Packets(0);
      seconds += video[table_.Keys()[cuts_[part - 1]]].seconds - video.front().seconds;
    }
    const auto shift = av_rescale_q(static_cast<std::int64_t>(seconds * fine),
                                    AVRational{1, static_cast<int>(fine)}, timeBase);
    if (packet_->pts != AV_NOPTS_VALUE) {
      packet_->pts -= shift;
    }
    if (packet_->dts != AV_NOPTS_VALUE) {
      packet_->dts -= shift;
    }
  }

  [[nodiscard]] Failure BeginUpTo(std::size_t part) {
    while (parts_.size() <= part) {
      auto file = files_.Next();
      if (!file) {
        return PartsFailed{file.error()};
      }
      parts_.push_back(std::make_unique<StreamPart>(std::move(*file), table_.Container()));
      if (const int error = parts_.back()->Begin(*input_.Context(), table_); error < 0) {
        return FailureOf(parts_.size() - 1, error);
      }
    }
    return {};
  }

  // Ends the parts for which no track has a packet any more.
  [[nodiscard]] Failure EndBefore() {
    auto least = partOf_.front();
    for (std::size_t track = 0; track < partOf_.size(); ++track) {
      if (taken_[track] < table_.Packets(track).size()) {
        auto next = partOf_[track];
        while (next < cuts_.size() && taken_[track] >= table_.Cuts()[cuts_[next]][track]) {
          ++next;
        }
        least = std::min(least, next);
      }
    }
    for (; ended_ < least; ++ended_) {
      if (auto failure = EndPart(ended_)) {
        return failure;
      }
    }
    return {};
  }

  [[nodiscard]] Failure EndPart(std::size_t part) {
    if (const int error = parts_[part]->End(); error < 0) {
      return FailureOf(part, error);
    }
    auto& file = parts_[part]->File();
    if (const auto done = file.Finish(); !done) {
      return PartsFailed{done.error()};
    }
    bytes_[part] = file.Length();
    parts_[part].reset();
    return {};
  }

  [[nodiscard]] PartsState End() {
    if (input_.Error()) {
      return PartsFailed{*input_.Error(), false};
    }
    if (auto failure = BeginUpTo(cuts_.size())) {
      return *failure;
    }
    for (; ended_ < parts_.size(); ++ended_) {
      if (auto failure = EndPart(ended_)) {
        return *failure;
      }
    }
    if (const auto done = files_.Complete(); !done) {
      return PartsFailed{done.error()};
    }
    return PartsCompleted{bytes_};
  }

  [[nodiscard]] PartsFailed FailureOf(std::size_t part, int error) {
    if (parts_[part]) {
      const auto state = parts_[part]->File().State();
      if (!state) {
        return PartsFailed{state.error()};
      }
    }
    return PartsFailed{ErrorOf(targets_[static_cast<qsizetype>(part)], ReasonOf(error))};
  }

  QString path_;
  AvInput input_;
  const PacketTable& table_;
  const Film& film_;
  std::vector<std::size_t> cuts_;
  QStringList targets_;
  PartFiles files_;
  std::vector<std::unique_ptr<StreamPart>> parts_;
  std::unique_ptr<AVPacket, PacketFreer> packet_;
  bool isOpen_ = false;
  std::vector<std::size_t> taken_;   // packets of each track
  std::vector<std::size_t> partOf_;  // for each track, the part of its last packet
  std::size_t ended_ = 0;            // parts
  std::int64_t copied_ = 0;
  std::vector<std::int64_t> bytes_;  // of each part
};

}  // namespace

std::unique_ptr<PartsPass> WriteStreamParts(DiskFile& source, const QString& path,
                                            const PacketTable& table, const Film& film,
                                            const std::vector<std::size_t>& cuts,
                                            const QStringList& targets, bool isReplacing) {
  return std::make_unique<StreamPartsPass>(source, path, table, film, cuts, targets, isReplacing);
}

std::int64_t FixedBytesOf(const AVFormatContext& source, const PacketTable& table) {
  // What the container writes only when there are packets.
  constexpr std::int64_t more = 4096;
  AVFormatContext* part = nullptr;
  if (avformat_alloc_output_context2(&part, nullptr, table.Container().c_str(), nullptr) < 0) {
    return more;
  }
  std::int64_t bytes = more;
  std::uint8_t* buffer = nullptr;
  if (avio_open_dyn_buf(&part->pb) >= 0) {
    if (AddTracks(*part, source, table) >= 0 && avformat_write_header(part, nullptr) >= 0) {
      av_write_trailer(part);
    }
    bytes += avio_close_dyn_buf(part->pb, &buffer);
    av_freep(static_cast<void*>(&buffer));
    part->pb = nullptr;
  }
  avformat_free_context(part);
  return bytes;
}

}  // namespace brindle
