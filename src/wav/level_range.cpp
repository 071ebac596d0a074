// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/level_range.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/numbers/rounding.h"

namespace brindle {

namespace {

// The compiler makes vector instructions of a loop only if it knows its length and nothing is left
// over. Long enough for what joins the lanes at its end not to count.
constexpr std::size_t PartWords = 256;

// Two plain comparisons: neither depends on the order of the levels, and both have an instruction
// for eight words.
template <class Levels>
LevelRange RangeOneByOne(const Levels& levels) {
  LevelRange range;
  for (const auto level : levels) {
    range.Include({.lowest = level, .highest = level});
  }
  return range;
}

}  // namespace

LevelRange RangeOf(std::span<const std::int16_t> levels) {
  LevelRange range;
  for (; levels.size() >= PartWords; levels = levels.subspan(PartWords)) {
    range.Include(RangeOneByOne(levels.first<PartWords>()));
  }
  range.Include(RangeOneByOne(levels));
  return range;
}

LevelRange Amplified(LevelRange range, double gain) {
  if (range.IsEmpty()) {
    return range;
  }
  const auto [lowest, highest] =
      std::minmax({ToInteger16(range.lowest * gain), ToInteger16(range.highest * gain)});
  return {.lowest = lowest, .highest = highest};
}

}  // namespace brindle
