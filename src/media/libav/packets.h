// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "media/film.h"
#include "media/libav/av_file.h"

namespace brindle {

/// A packet of a track, in the order of the file.
struct TrackPacket {
  double seconds = 0;  ///< when it is shown
  std::int64_t position = 0;
  std::int32_t size = 0;
  bool isKey = false;
};

/// All packets of the tracks that go into the parts: the first one of video, those of audio, and
/// subtitles where the container of the parts takes them.
class PacketTable {
 public:
  /// Chooses the tracks.
  PacketTable(const AVFormatContext& context, std::int64_t fileLength);

  /// "matroska" or "mp4".
  [[nodiscard]] const std::string& Container() const { return container_; }
  /// Indexes of streams; the video comes first.
  [[nodiscard]] const std::vector<std::size_t>& Chosen() const { return chosen_; }
  [[nodiscard]] bool HasVideo() const { return hasVideo_; }
  /// The place of a stream in Chosen(), or as many as it has.
  [[nodiscard]] std::size_t PlaceOf(int stream) const;
  [[nodiscard]] const std::vector<TrackPacket>& Packets(std::size_t chosen) const {
    return packets_[chosen];
  }
  [[nodiscard]] std::int64_t Bytes(std::size_t chosen) const;
  /// From its first packet to the end of its last one.
  [[nodiscard]] double Seconds(std::size_t chosen) const;

  /// Takes the packets from the index of the file. False, and it has none, if that is not complete.
  /// The index knows when a frame is decoded; it is shown `videoDelay` seconds later.
  [[nodiscard]] bool FromIndex(double videoDelay);
  void Add(const AVPacket& packet);

  /// Numbers of the video's packets that are key frames.
  [[nodiscard]] const std::vector<std::size_t>& Keys() const { return keys_; }
  /// For each key frame, the packets of each chosen track before it.
  [[nodiscard]] const std::vector<std::vector<std::size_t>>& Cuts() const { return cuts_; }
  /// To be called when all packets are there.
  void FindCuts();

  [[nodiscard]] std::vector<FilmKeyFrame> KeyFrames() const;
  [[nodiscard]] FilmKeyFrame End() const;

 private:
  [[nodiscard]] const AVStream& Stream(std::size_t chosen) const {
    return *context_.streams[chosen_[chosen]];
  }
  void AddTo(FilmKeyFrame& sum, std::size_t chosen, const TrackPacket& packet) const;
  void AddClusters(FilmKeyFrame& before, double seconds) const;

  const AVFormatContext& context_;
  std::string container_;
  bool isLong_ = false;  // positions in the file take 64 bits
  std::vector<std::size_t> chosen_;
  bool hasVideo_ = false;
  std::vector<std::vector<TrackPacket>> packets_;
  std::vector<std::size_t> keys_;
  std::vector<std::vector<std::size_t>> cuts_;
};

}  // namespace brindle
