// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <QtGlobal>

#include "base/files/disk.h"
#include "wav/samples.h"

namespace brindle {

/// Bytes of the largest piece, which is the usual one.
inline constexpr qint64 LargestPiece = 64 * BlockSize;

/// The words of a file that a pass maps, in pieces of equal size; the last one may be shorter.
struct PieceGrid {
  qint64 start = 0;  ///< position of the first byte; the first byte of a file is 1
  qint64 end = 0;    ///< position after the last byte; a whole number of words from the start
  qint64 size = 0;   ///< bytes of a piece, a multiple of BlockSize

  [[nodiscard]] qint64 Count() const { return end <= start ? 0 : (end - start - 1) / size + 1; }
  [[nodiscard]] qint64 PieceAt(qint64 position) const { return (position - start) / size; }
  [[nodiscard]] qint64 PositionOf(qint64 piece) const {
    return std::min(start + piece * size, end);
  }
  [[nodiscard]] qint64 BytesOf(qint64 piece) const {
    return PositionOf(piece + 1) - PositionOf(piece);
  }

  [[nodiscard]] bool operator==(const PieceGrid&) const = default;
};

/// The words of one piece in memory, where the system can write them without a copy.
class PieceBuffer {
 public:
  /// `bytes` is the size of the largest piece.
  explicit PieceBuffer(qint64 bytes)
      : pages_((static_cast<std::size_t>(bytes) + DiskFile::DirectUnit - 1) /
               DiskFile::DirectUnit) {}

  /// The first `bytes` as words.
  [[nodiscard]] Samples Words(qint64 bytes) {
    return {pages_.front().words.data(), static_cast<std::size_t>(bytes / WordSize)};
  }
  /// As many bytes and those that fill up the last page.
  [[nodiscard]] std::span<const std::byte> WholePages(qint64 bytes) {
    const auto pages =
        (static_cast<std::size_t>(bytes) + DiskFile::DirectUnit - 1) / DiskFile::DirectUnit;
    return std::as_bytes(std::span(pages_).first(pages));
  }

 private:
  struct alignas(DiskFile::DirectUnit) Page {
    std::array<std::int16_t, DiskFile::DirectUnit / WordSize> words = {};
  };
  std::vector<Page> pages_;
};

}  // namespace brindle
