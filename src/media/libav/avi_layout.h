// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/files/disk.h"
#include "base/files/file_error.h"

namespace brindle {

/// Bytes of a file, as they stand there.
using RawBytes = std::vector<std::byte>;

/// A track of an AVI file. Its headers stay as they are; only what is looked at has a name here.
struct AviTrack {
  enum class Kind { Video, Audio, Other };

  Kind kind = Kind::Other;
  RawBytes header;             ///< strh without its own header; 48 bytes at least
  RawBytes format;             ///< strf
  std::vector<RawBytes> rest;  ///< other chunks, whole, but not its index
  std::int64_t scale = 1;      ///< a unit lasts scale / rate seconds; both above 0
  std::int64_t rate = 1;
  std::int64_t start = 0;       ///< units before it begins
  std::int64_t sampleSize = 0;  ///< bytes of a unit; 0 if a piece is a unit, or several
  std::int64_t blockAlign = 1;  ///< of audio: bytes of a block; above 0
};

/// A chunk with a part of a track: a frame, or a piece of audio.
struct AviPiece {
  std::int64_t position = 0;  ///< of the chunk's header in the file
  std::uint32_t size = 0;     ///< bytes after the header
  std::uint16_t track = 0;
  bool isKey = false;
  std::uint32_t id = 0;  ///< "00dc", as it stands there
};

/// What an AVI file consists of.
struct AviLayout {
  RawBytes mainHeader;  ///< avih without its own header; 56 bytes
  std::vector<AviTrack> tracks;
  std::vector<AviPiece> pieces;  ///< in the order of the file
  bool hasIndex = false;         ///< else nobody knows which frames are key frames
};

/// Whether a file begins like an AVI file.
[[nodiscard]] bool IsAvi(DiskFile& file);

/// Reads the index of an AVI file or, where there is none or it lies, goes from chunk to chunk. It
/// asks `goesOn` with the position now and then; false ends the reading, with nothing. What a file
/// that was cut short has lost is left out. The error is a reason for people.
[[nodiscard]] FileResult<std::optional<AviLayout>> ReadAviLayout(
    DiskFile& file, const QString& path, const std::function<bool(qint64)>& goesOn);

}  // namespace brindle
