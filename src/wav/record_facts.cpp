// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/record_facts.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include <QByteArray>
#include <QChar>

#include "wav/buffering.h"
#include "wav/piece_grid.h"
#include "wav/samples.h"
#include "wav/sealed_numbers.h"

namespace brindle {

QByteArray BytesOf(const PassFacts& facts) {
  return NumberWriter().Of(facts.path, facts.stamp.volume, facts.stamp.number, facts.stamp.changed,
                           facts.created, facts.fileLength, facts.headLength, facts.headHash,
                           facts.grid.start, facts.grid.end, facts.grid.size, facts.bitsRoom,
                           std::bit_cast<quint64>(facts.gain),
                           static_cast<quint8>(facts.buffering == Buffering::Multi ? 1 : 0));
}

bool IsPossible(const PassFacts& facts) {
  constexpr qint64 largestFile = std::numeric_limits<qint64>::max() / 128;
  const auto& grid = facts.grid;
  return facts.fileLength >= 0 && facts.fileLength <= largestFile && grid.size > 0 &&
         grid.size <= LargestPiece && grid.size % BlockSize == 0 && grid.start >= 1 &&
         grid.end >= grid.start && grid.end - 1 <= facts.fileLength &&
         (grid.end - grid.start) % WordSize == 0 &&
         facts.headLength == HeadLength(grid.start, facts.fileLength) && facts.bitsRoom >= 0 &&
         facts.bitsRoom <= facts.fileLength + grid.Count() && std::isfinite(facts.gain) &&
         facts.path.isValidUtf16() && !facts.path.contains(QChar());
}

std::optional<PassFacts> PassFactsOf(const QByteArray& bytes) {
  PassFacts facts;
  quint64 gain = 0;
  quint8 isMulti = 0;
  NumberReader reader(bytes);
  if (!reader.To(facts.path, facts.stamp.volume, facts.stamp.number, facts.stamp.changed,
                 facts.created, facts.fileLength, facts.headLength, facts.headHash,
                 facts.grid.start, facts.grid.end, facts.grid.size, facts.bitsRoom, gain,
                 isMulti) ||
      !reader.IsAtEnd()) {
    return std::nullopt;
  }
  facts.gain = std::bit_cast<double>(gain);
  facts.buffering = isMulti != 0 ? Buffering::Multi : Buffering::Single;
  return IsPossible(facts) ? std::optional(facts) : std::nullopt;
}

QByteArray BytesOf(const PieceFacts& facts) {
  return Sealed(NumberWriter().Of(facts.originalHash, facts.bitsHash, facts.bitsEnd,
                                  facts.range.lowest, facts.range.highest));
}

std::optional<PieceFacts> PieceFactsOf(const QByteArray& bytes) {
  const auto numbers = Unsealed(bytes);
  PieceFacts facts;
  const bool isThere =
      numbers && NumberReader(*numbers).To(facts.originalHash, facts.bitsHash, facts.bitsEnd,
                                           facts.range.lowest, facts.range.highest);
  return isThere ? std::optional(facts) : std::nullopt;
}

}  // namespace brindle
