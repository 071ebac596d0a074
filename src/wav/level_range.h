// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <limits>
#include <span>

namespace brindle {

/// The lowest and the highest of some sample levels, 0 always among them.
struct Peaks {
  std::int16_t lowest = 0;   ///< never above 0
  std::int16_t highest = 0;  ///< never below 0
};

/// The lowest and the highest of some sample levels; empty at first. Levels 3, -5 and 4 give -5 and
/// 4.
struct LevelRange {
  std::int16_t lowest = std::numeric_limits<std::int16_t>::max();
  std::int16_t highest = std::numeric_limits<std::int16_t>::min();

  bool operator==(const LevelRange&) const = default;
  [[nodiscard]] bool IsEmpty() const { return lowest > highest; }

  void Include(LevelRange other) {
    lowest = other.lowest < lowest ? other.lowest : lowest;
    highest = highest < other.highest ? other.highest : highest;
  }
};

/// Every level that a word can have.
inline constexpr LevelRange AllLevels{.lowest = std::numeric_limits<std::int16_t>::min(),
                                      .highest = std::numeric_limits<std::int16_t>::max()};

/// The range of these levels. Works on eight words at a time, or sixteen, which takes less than
/// reading them from the system's cache.
[[nodiscard]] LevelRange RangeOf(std::span<const std::int16_t> levels);

/// What a pass with this gain makes of the range: both ends are mapped as GainTable does it, so it
/// is the range of the mapped levels. -5 and 4 become -8 and 10 with a gain of -2. An empty range
/// stays empty.
[[nodiscard]] LevelRange Amplified(LevelRange range, double gain);

}  // namespace brindle
