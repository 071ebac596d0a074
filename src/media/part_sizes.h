// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "media/film.h"

namespace brindle {

/// Bytes of the part from one key frame to another when it is written anew in the container of the
/// film's parts. Both are indexes of `film.keyFrames`; the first part begins at the beginning of
/// the film even if its first key frame does not, and `to` may be the number of key frames: then
/// the part runs to the end. For "avi" exact to the byte; for other containers never less than the
/// part will have. `from` is less than `to`.
[[nodiscard]] std::int64_t PartBytes(const Film& film, std::size_t from, std::size_t to);

/// Where to cut the film so that each part stays within its size: for each of `sizes`, in bytes,
/// the index of the last key frame at which its part may end and the next one begin. The last part
/// takes the rest, whatever its size. There are fewer cuts than sizes if the film ends within a
/// part. Nothing if a part cannot hold what lies between two key frames, or if the key frames are
/// unknown. Example: key frames every 10 MB, sizes of 25 and 35 MB: cuts at the key frames 2 and 5.
[[nodiscard]] std::optional<std::vector<std::size_t>> CutsFor(
    const Film& film, const std::vector<std::int64_t>& sizes);

/// An AVI file beyond this has an index for each of its segments, and none beyond 2 GB can do
/// without.
constexpr std::int64_t LargestPlainAvi = 1'900'000'000;

/// Where the segment that begins at the key frame `from` ends, in an AVI file of several segments
/// that ends at the key frame `to`. Above `from`, at most `to`.
[[nodiscard]] std::size_t AviSegmentEnd(const Film& film, std::size_t from, std::size_t to);

/// What an AVI file consists of, in bytes.
struct AviBytes {
  static constexpr std::int64_t PacketHeader = 8;
  static constexpr std::int64_t OldIndexEntry = 16;   ///< in the first segment, or the only one
  static constexpr std::int64_t NewIndexEntry = 8;    ///< in a file of several segments
  static constexpr std::int64_t NewIndexHeader = 32;  ///< one for each track in each segment
  static constexpr std::int64_t SegmentHeader = 24;   ///< of each segment after the first
  static constexpr std::int64_t MostSegments = 256;   ///< for which the header has room
  static constexpr std::int64_t IndexOfSegments = 32 + 16 * MostSegments;  ///< one for each track
  static constexpr std::int64_t WholeLength = 268;  ///< the frames of all segments
};

}  // namespace brindle
