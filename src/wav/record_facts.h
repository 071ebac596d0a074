// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include <QByteArray>
#include <QString>

#include "base/files/disk.h"
#include "wav/buffering.h"
#include "wav/level_range.h"
#include "wav/piece_grid.h"

namespace brindle {

/// What a record says of its pass from the start on.
struct PassFacts {
  QString path;           ///< of the recording
  FileStamp stamp;        ///< of the recording, before the pass
  qint64 created = 0;     ///< microseconds since 1970
  qint64 fileLength = 0;  ///< bytes
  qint64 headLength = 0;  ///< bytes of the head that are hashed, see HeadLength()
  quint64 headHash = 0;   ///< of these bytes
  PieceGrid grid;         ///< what the pass maps
  qint64 bitsRoom = 0;    ///< bytes for what the table of the gain loses
  double gain = 1;
  Buffering buffering = Buffering::Multi;
};

/// What a record says of a piece that the pass has mapped.
struct PieceFacts {
  /// Of the piece as it was. Tells what the pass left, too: only that gives these originals.
  quint64 originalHash = 0;
  quint64 bitsHash = 0;  ///< of the bits that tell the originals
  qint64 bitsEnd = 0;    ///< bytes of bits up to the end of this piece's
  LevelRange range;      ///< of the originals
};

/// How many bytes of a file are hashed as its head: all before the samples that it has, but no more
/// than a mebibyte.
[[nodiscard]] inline qint64 HeadLength(qint64 start, qint64 fileLength) {
  return std::min<qint64>({start - 1, fileLength, 1'048'576});
}

/// Whether a pass can be like this. A record could have been made up to do harm: nothing of it may
/// lead out of the recording, or to numbers too large to calculate with.
[[nodiscard]] bool IsPossible(const PassFacts& facts);

// How a record writes them down, all numbers lowest byte first.

[[nodiscard]] QByteArray BytesOf(const PassFacts& facts);
/// Nothing if they are not those of a possible pass.
[[nodiscard]] std::optional<PassFacts> PassFactsOf(const QByteArray& bytes);

[[nodiscard]] QByteArray BytesOf(const PieceFacts& facts);
/// Nothing if they are damaged, or not there.
[[nodiscard]] std::optional<PieceFacts> PieceFactsOf(const QByteArray& bytes);
/// How many bytes these are.
inline constexpr qint64 PieceFactsLength = 4 * sizeof(quint64) + 2 * sizeof(std::int16_t);

}  // namespace brindle
