// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/libav/packets.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

extern "C" {
#include <libavutil/avutil.h>
#include <libavutil/mathematics.h>
}

namespace brindle {
namespace {

double SecondsOf(const AVStream& stream, std::int64_t shown, std::int64_t decoded, double other) {
  const auto time = shown != AV_NOPTS_VALUE ? shown : decoded;
  return time == AV_NOPTS_VALUE ? other : static_cast<double>(time) * av_q2d(stream.time_base);
}

bool IsPicture(const AVStream& stream) {
  return (stream.disposition & AV_DISPOSITION_ATTACHED_PIC) != 0;
}

}  // namespace

PacketTable::PacketTable(const AVFormatContext& context, std::int64_t fileLength)
    : context_(context), isLong_(fileLength > INT32_MAX) {
  const std::string_view format = context.iformat->name;
  container_ = format.starts_with("mov,") ? "mp4" : "matroska";
  const bool takesSubtitles = format.starts_with("mov,") || format.starts_with("matroska");
  for (const auto kind : {AVMEDIA_TYPE_VIDEO, AVMEDIA_TYPE_AUDIO, AVMEDIA_TYPE_SUBTITLE}) {
    for (std::size_t i = 0; i < context.nb_streams; ++i) {
      const auto& stream = *context.streams[i];
      if (stream.codecpar->codec_type != kind || IsPicture(stream) ||
          (kind == AVMEDIA_TYPE_VIDEO && hasVideo_) ||
          (kind == AVMEDIA_TYPE_SUBTITLE && !takesSubtitles)) {
        continue;
      }
      chosen_.push_back(i);
      hasVideo_ = hasVideo_ || kind == AVMEDIA_TYPE_VIDEO;
    }
  }
  packets_.resize(chosen_.size());
}

std::size_t PacketTable::PlaceOf(int stream) const {
  return static_cast<std::size_t>(
      std::find(chosen_.begin(), chosen_.end(), static_cast<std::size_t>(stream)) -
      chosen_.begin());
}

std::int64_t PacketTable::Bytes(std::size_t chosen) const {
  std::int64_t bytes = 0;
  for (const auto& packet : packets_[chosen]) {
    bytes += packet.size;
  }
  return bytes;
}

double PacketTable::Seconds(std::size_t chosen) const {
  const auto& packets = packets_[chosen];
  if (packets.size() < 2) {
    return 0;
  }
  const auto [first, last] = std::minmax_element(
      packets.begin(), packets.end(),
      [](const auto& one, const auto& other) { return one.seconds < other.seconds; });
  const auto count = static_cast<double>(packets.size());
  return (last->seconds - first->seconds) * count / (count - 1);
}

bool PacketTable::FromIndex(double videoDelay) {
  for (std::size_t i = 0; i < chosen_.size(); ++i) {
    auto* stream = context_.streams[chosen_[i]];
    const int count = avformat_index_get_entries_count(stream);
    if (count <= 0) {
      packets_.assign(chosen_.size(), {});
      return false;
    }
    const auto delay = i == 0 && hasVideo_ ? videoDelay : 0;
    packets_[i].reserve(static_cast<std::size_t>(count));
    for (int place = 0; place < count; ++place) {
      const auto* entry = avformat_index_get_entry(stream, place);
      const auto seconds = static_cast<double>(entry->timestamp) * av_q2d(stream->time_base);
      packets_[i].push_back(
          {seconds + delay, entry->pos, entry->size, (entry->flags & AVINDEX_KEYFRAME) != 0});
    }
  }
  return true;
}

void PacketTable::Add(const AVPacket& packet) {
  const auto place = PlaceOf(packet.stream_index);
  if (place == chosen_.size()) {
    return;
  }
  auto& packets = packets_[place];
  const auto before = packets.empty() ? 0 : packets.back().seconds;
  packets.push_back({SecondsOf(Stream(place), packet.pts, packet.dts, before), packet.pos,
                     packet.size, (packet.flags & AV_PKT_FLAG_KEY) != 0});
}

void PacketTable::FindCuts() {
  if (!hasVideo_) {
    return;
  }
  const auto& video = packets_.front();
  for (std::size_t i = 0; i < video.size(); ++i) {
    if (video[i].isKey) {
      keys_.push_back(i);
    }
  }
  cuts_.assign(keys_.size(), std::vector<std::size_t>(chosen_.size()));
  for (std::size_t key = 0; key < keys_.size(); ++key) {
    cuts_[key][0] = keys_[key];
  }
  for (std::size_t i = 1; i < chosen_.size(); ++i) {
    const auto& packets = packets_[i];
    std::size_t next = 0;
    for (std::size_t key = 0; key < keys_.size(); ++key) {
      const auto time = video[keys_[key]].seconds;
      // A packet belongs to the part that has the larger half of it.
      while (next < packets.size()) {
        const auto end =
            next + 1 < packets.size() ? packets[next + 1].seconds : packets[next].seconds;
        if ((packets[next].seconds + end) / 2 >= time) {
          break;
        }
        ++next;
      }
      cuts_[key][i] = next;
    }
  }
}

void PacketTable::AddTo(FilmKeyFrame& sum, std::size_t chosen, const TrackPacket& packet) const {
  const auto kind = Stream(chosen).codecpar->codec_type;
  const bool isVideo = kind == AVMEDIA_TYPE_VIDEO;
  auto& bytes = isVideo                      ? sum.videoBytes
                : kind == AVMEDIA_TYPE_AUDIO ? sum.audioBytes
                                             : sum.containerBytes;
  bytes += packet.size;
  ++sum.packets;
  if (container_ == "mp4") {
    // Its length, times and position, if no two packets in a row have any of that in common.
    constexpr std::int64_t each = 4 + 8 + 12 + 4;
    constexpr std::int64_t longPosition = 4;
    constexpr std::int64_t shown = 8;
    constexpr std::int64_t key = 4;
    sum.containerBytes += each + (isLong_ ? longPosition : 0) + (isVideo ? shown : 0) +
                          (isVideo && packet.isKey ? key : 0);
    return;
  }
  // The header of a block; at a key frame that of a cluster, and where it is found.
  constexpr std::int64_t smallBlock = 7;
  constexpr std::int64_t largeBlock = 9;
  constexpr std::int32_t small = 16'000;
  constexpr std::int64_t cluster = 80;
  const bool isFound = kind == AVMEDIA_TYPE_SUBTITLE || (isVideo && packet.isKey);
  sum.containerBytes += (packet.size < small ? smallBlock : largeBlock) + (isFound ? cluster : 0);
}

// Between key frames, clusters of Matroska begin every 5 seconds or 5 MB.
void PacketTable::AddClusters(FilmKeyFrame& before, double seconds) const {
  constexpr double cluster = 40;  // bytes
  constexpr double every = 5;
  constexpr double everyBytes = 5'000'000;
  if (container_ == "matroska") {
    const auto since = std::max(seconds - packets_.front().front().seconds, 0.0);
    const auto count =
        since / every + static_cast<double>(before.videoBytes + before.audioBytes) / everyBytes;
    before.containerBytes += static_cast<std::int64_t>(cluster * std::ceil(count));
  }
}

std::vector<FilmKeyFrame> PacketTable::KeyFrames() const {
  std::vector<FilmKeyFrame> keyFrames(keys_.size());
  for (std::size_t i = 0; i < chosen_.size(); ++i) {
    FilmKeyFrame sum;
    std::size_t next = 0;
    for (std::size_t key = 0; key < keys_.size(); ++key) {
      for (; next < cuts_[key][i]; ++next) {
        AddTo(sum, i, packets_[i][next]);
      }
      auto& before = keyFrames[key];
      before.videoBytes += sum.videoBytes;
      before.audioBytes += sum.audioBytes;
      before.containerBytes += sum.containerBytes;
      before.packets += sum.packets;
    }
  }
  double latest = 0;
  for (std::size_t key = 0; key < keys_.size(); ++key) {
    const auto& packet = packets_.front()[keys_[key]];
    keyFrames[key].frame = static_cast<std::int64_t>(keys_[key]);
    keyFrames[key].position = std::max<std::int64_t>(packet.position, 0);
    latest = key == 0 ? packet.seconds : std::max(latest, packet.seconds);
    AddClusters(keyFrames[key], latest);
  }
  return keyFrames;
}

FilmKeyFrame PacketTable::End() const {
  FilmKeyFrame end;
  for (std::size_t i = 0; i < chosen_.size(); ++i) {
    for (const auto& packet : packets_[i]) {
      AddTo(end, i, packet);
    }
  }
  if (hasVideo_ && !packets_.front().empty()) {
    const auto& packets = packets_.front();
    end.frame = static_cast<std::int64_t>(packets.size());
    const auto last = std::max_element(
        packets.begin(), packets.end(),
        [](const auto& one, const auto& other) { return one.seconds < other.seconds; });
    AddClusters(end, last->seconds);
  }
  return end;
}

}  // namespace brindle
