// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "wav/gain.h"
#include "wav/level_range.h"
#include "wav/level_table.h"
#include "wav/samples.h"

namespace brindle {

/// A table of gain turned round, for words whose levels lay in a range. Where several of these
/// levels share a new one (they were cut off, or the gain is below 1), it takes bits to tell which
/// of them a word was: as many as count them, and none where a level has kept one of its own.
///
/// Gain 2, levels -20000 to 20000: the new level 4000 was 2000, and takes no bits; 32767 was one of
/// 16384 to 20000, and takes 12.
class InverseTable {
 public:
  InverseTable(const GainTable& table, LevelRange range);

  /// How many bits the word takes that needs most, 0 to 16.
  [[nodiscard]] int MostBits() const { return mostBits_; }

  /// Appends what it takes to tell the originals of words again; `used` is how many bits of the
  /// last byte of `bits` are taken, 0 for all of them.
  void Keep(std::span<const std::int16_t> originals, const GainTable& table,
            std::vector<std::byte>& bits, int& used) const;

  /// Replaces new levels by the original ones. Takes the bits from number `at` on and moves it past
  /// them. False if a word can have come from no level of the range, or if the bits end early; the
  /// words are of no use then.
  [[nodiscard]] bool Restore(Samples words, std::span<const std::byte> bits, qint64& at) const;

 private:
  static constexpr std::uint8_t Impossible = 255;

  LevelTable first_;                // by new level: the lowest original, or one outside the range
  std::vector<std::uint8_t> bits_;  // by new level, from -32768 on: that tell the original
  LevelRange range_;
  int mostBits_ = 0;
};

/// MostBits() of the table's inverse, without building one if it is 0.
[[nodiscard]] int MostBitsLost(const GainTable& table, LevelRange range);

}  // namespace brindle
