// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "media/film.h"
#include "media/libav/avi_layout.h"

namespace brindle {

/// A place in a track: after so many pieces, and so many bytes into the next one.
struct PlaceInTrack {
  std::size_t pieces = 0;
  std::uint32_t bytes = 0;
};

/// What of an AVI file goes into its parts: the first track of video and all of audio.
class AviTracks {
 public:
  explicit AviTracks(const AviLayout& layout);

  /// Indexes of AviLayout::tracks: the video if there is any, then the audio.
  [[nodiscard]] const std::vector<std::size_t>& Chosen() const { return chosen_; }
  [[nodiscard]] bool HasVideo() const { return hasVideo_; }
  /// The indexes of the pieces of a chosen track.
  [[nodiscard]] const std::vector<std::uint32_t>& Pieces(std::size_t chosen) const {
    return pieces_[chosen];
  }
  [[nodiscard]] std::int64_t Bytes(std::size_t chosen) const { return bytes_[chosen]; }
  /// How long it lasts, with the wait before it begins.
  [[nodiscard]] double Seconds(std::size_t chosen) const;

  /// What lies before each key frame, and before the end.
  [[nodiscard]] std::vector<FilmKeyFrame> KeyFrames() const;
  [[nodiscard]] FilmKeyFrame End() const;
  /// Where each chosen track is cut, for each key frame in turn. Audio is cut at the time of the
  /// frame: between two pieces where they are short, else within one.
  [[nodiscard]] const std::vector<std::vector<PlaceInTrack>>& Cuts() const { return cuts_; }
  /// The place after everything.
  [[nodiscard]] std::vector<PlaceInTrack> EndOfAll() const;

  /// The units of a chosen track, as its header counts them, between two places.
  [[nodiscard]] std::int64_t Units(std::size_t chosen, PlaceInTrack from, PlaceInTrack to) const;

  /// Bytes of a part without a piece.
  [[nodiscard]] std::int64_t FixedBytes() const;

 private:
  void FindCuts();
  void CutAudio(std::size_t chosen);
  [[nodiscard]] std::int64_t UnitsOf(const AviTrack& track, std::int64_t bytes) const;
  [[nodiscard]] FilmKeyFrame Before(const std::vector<PlaceInTrack>& places) const;

  const AviLayout& layout_;
  std::vector<std::size_t> chosen_;
  bool hasVideo_ = false;
  std::vector<std::vector<std::uint32_t>> pieces_;
  std::vector<std::int64_t> bytes_;
  std::vector<std::vector<std::int64_t>> bytesBefore_;  // of each piece
  std::vector<std::vector<std::int64_t>> oddBefore_;    // pieces of an odd length
  std::vector<std::uint32_t> keys_;                     // frames
  std::vector<std::vector<PlaceInTrack>> cuts_;
};

}  // namespace brindle
