// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/libav/avi_parts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "media/part_sizes.h"

namespace brindle {
namespace {

std::int64_t ChunkLength(std::size_t contents) {
  return AviBytes::PacketHeader + static_cast<std::int64_t>(contents + contents % 2);
}

double SecondsOf(const AviTrack& track, double units) {
  return units * static_cast<double>(track.scale) / static_cast<double>(track.rate);
}

}  // namespace

AviTracks::AviTracks(const AviLayout& layout) : layout_(layout) {
  for (const auto kind : {AviTrack::Kind::Video, AviTrack::Kind::Audio}) {
    for (std::size_t i = 0; i < layout.tracks.size(); ++i) {
      if (layout.tracks[i].kind == kind && (kind == AviTrack::Kind::Audio || !hasVideo_)) {
        chosen_.push_back(i);
        hasVideo_ = hasVideo_ || kind == AviTrack::Kind::Video;
      }
    }
  }
  std::vector<std::size_t> chosenOf(layout.tracks.size(), chosen_.size());
  for (std::size_t i = 0; i < chosen_.size(); ++i) {
    chosenOf[chosen_[i]] = i;
  }
  pieces_.resize(chosen_.size());
  bytes_.resize(chosen_.size());
  bytesBefore_.resize(chosen_.size());
  oddBefore_.resize(chosen_.size());
  std::vector<std::int64_t> odd(chosen_.size());
  for (std::size_t i = 0; i < layout.pieces.size(); ++i) {
    const auto& piece = layout.pieces[i];
    const auto chosen = chosenOf[piece.track];
    if (chosen == chosen_.size()) {
      continue;
    }
    if (hasVideo_ && chosen == 0 && piece.isKey) {
      keys_.push_back(static_cast<std::uint32_t>(pieces_[0].size()));
    }
    pieces_[chosen].push_back(static_cast<std::uint32_t>(i));
    bytesBefore_[chosen].push_back(bytes_[chosen]);
    oddBefore_[chosen].push_back(odd[chosen]);
    bytes_[chosen] += piece.size;
    odd[chosen] += piece.size % 2;
  }
  for (std::size_t i = 0; i < chosen_.size(); ++i) {
    bytesBefore_[i].push_back(bytes_[i]);
    oddBefore_[i].push_back(odd[i]);
  }
  FindCuts();
}

std::int64_t AviTracks::UnitsOf(const AviTrack& track, std::int64_t bytes) const {
  // The alignment says how much a unit holds at most; that of AAC says nothing.
  constexpr std::int64_t leastAlign = 4;
  if (track.kind == AviTrack::Kind::Video || track.blockAlign <= leastAlign) {
    return 1;
  }
  return std::max<std::int64_t>((bytes + track.blockAlign - 1) / track.blockAlign, 1);
}

std::int64_t AviTracks::Units(std::size_t chosen, PlaceInTrack from, PlaceInTrack to) const {
  const auto& track = layout_.tracks[chosen_[chosen]];
  if (track.kind == AviTrack::Kind::Video) {
    return static_cast<std::int64_t>(to.pieces - from.pieces);
  }
  if (track.sampleSize > 0) {
    const auto bytes =
        bytesBefore_[chosen][to.pieces] + to.bytes - bytesBefore_[chosen][from.pieces] - from.bytes;
    return bytes / track.sampleSize;
  }
  std::int64_t units = 0;
  for (auto i = from.pieces; i < to.pieces; ++i) {
    units += UnitsOf(track, layout_.pieces[pieces_[chosen][i]].size);
  }
  return units;
}

double AviTracks::Seconds(std::size_t chosen) const {
  const auto& track = layout_.tracks[chosen_[chosen]];
  const auto units = Units(chosen, {}, {pieces_[chosen].size(), 0}) + track.start;
  return SecondsOf(track, static_cast<double>(units));
}

void AviTracks::FindCuts() {
  cuts_.assign(keys_.size(), std::vector<PlaceInTrack>(chosen_.size()));
  for (std::size_t key = 0; key < keys_.size(); ++key) {
    cuts_[key][0].pieces = keys_[key];
  }
  for (std::size_t i = hasVideo_ ? 1 : 0; i < chosen_.size() && !keys_.empty(); ++i) {
    CutAudio(i);
  }
}

void AviTracks::CutAudio(std::size_t chosen) {
  constexpr double shortPiece = 0.05;  // seconds
  const auto& video = layout_.tracks[chosen_[0]];
  const auto& track = layout_.tracks[chosen_[chosen]];
  const auto& pieces = pieces_[chosen];
  // What is cut off is of an even length: then the container adds the same to it as to the whole.
  const auto step = track.blockAlign % 2 == 0 ? track.blockAlign : 2 * track.blockAlign;
  std::size_t piece = 0;
  auto start = static_cast<double>(track.start);  // of the piece, in units
  for (std::size_t key = 0; key < keys_.size(); ++key) {
    const auto frame = static_cast<double>(keys_[key]) + static_cast<double>(video.start);
    const auto wanted = SecondsOf(video, frame) * static_cast<double>(track.rate) /
                        static_cast<double>(track.scale);
    for (; piece < pieces.size(); ++piece) {
      const std::int64_t size = layout_.pieces[pieces[piece]].size;
      const auto length = track.sampleSize > 0
                              ? static_cast<double>(size) / static_cast<double>(track.sampleSize)
                              : static_cast<double>(UnitsOf(track, size));
      const bool isWhole = track.sampleSize == 0 || SecondsOf(track, length) <= shortPiece;
      if (start + length * (isWhole ? 0.5 : 1) > wanted) {
        if (!isWhole && wanted > start) {
          // A whole unit may come out as a little less.
          constexpr double little = 1e-6;
          const auto bytes =
              static_cast<std::int64_t>(std::floor(wanted - start + little)) * track.sampleSize;
          cuts_[key][chosen].bytes =
              static_cast<std::uint32_t>(std::clamp<std::int64_t>(bytes, 0, size) / step * step);
        }
        break;
      }
      start += length;
    }
    cuts_[key][chosen].pieces = piece;
  }
}

FilmKeyFrame AviTracks::Before(const std::vector<PlaceInTrack>& places) const {
  constexpr auto packet = AviBytes::PacketHeader + AviBytes::OldIndexEntry;
  FilmKeyFrame before;
  for (std::size_t i = 0; i < chosen_.size(); ++i) {
    const auto [pieces, into] = places[i];
    (hasVideo_ && i == 0 ? before.videoBytes : before.audioBytes) += bytesBefore_[i][pieces] + into;
    before.packets += static_cast<std::int64_t>(pieces + (into > 0 ? 1 : 0));
    before.containerBytes += oddBefore_[i][pieces];
    before.extraBytes += into > 0 ? packet : 0;
  }
  before.containerBytes += before.packets * packet;
  return before;
}

std::vector<FilmKeyFrame> AviTracks::KeyFrames() const {
  std::vector<FilmKeyFrame> keyFrames;
  keyFrames.reserve(keys_.size());
  for (std::size_t key = 0; key < keys_.size(); ++key) {
    auto before = Before(cuts_[key]);
    before.frame = keys_[key];
    before.position = layout_.pieces[pieces_[0][keys_[key]]].position;
    keyFrames.push_back(before);
  }
  return keyFrames;
}

FilmKeyFrame AviTracks::End() const {
  auto end = Before(EndOfAll());
  end.frame = hasVideo_ ? static_cast<std::int64_t>(pieces_[0].size()) : 0;
  return end;
}

std::vector<PlaceInTrack> AviTracks::EndOfAll() const {
  std::vector<PlaceInTrack> places(chosen_.size());
  for (std::size_t i = 0; i < chosen_.size(); ++i) {
    places[i].pieces = pieces_[i].size();
  }
  return places;
}

std::int64_t AviTracks::FixedBytes() const {
  constexpr std::int64_t list = 12;  // its header with the letters of what it contains
  // The file, the headers, the pieces; and the header of the index.
  std::int64_t bytes = 3 * list + ChunkLength(layout_.mainHeader.size()) + AviBytes::PacketHeader;
  for (const auto i : chosen_) {
    const auto& track = layout_.tracks[i];
    bytes += list + ChunkLength(track.header.size()) + ChunkLength(track.format.size());
    for (const auto& chunk : track.rest) {
      bytes += static_cast<std::int64_t>(chunk.size() + chunk.size() % 2);
    }
  }
  return bytes;
}

}  // namespace brindle
