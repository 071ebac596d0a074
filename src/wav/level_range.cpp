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
// for eight words, or for sixteen.
template <class Levels>
[[gnu::always_inline]] inline LevelRange RangeOneByOne(const Levels& levels) {
  LevelRange range;
  for (const auto level : levels) {
    range.Include({.lowest = level, .highest = level});
  }
  return range;
}

[[gnu::always_inline]] inline LevelRange RangeInParts(std::span<const std::int16_t> levels) {
  LevelRange range;
  for (; levels.size() >= PartWords; levels = levels.subspan(PartWords)) {
    range.Include(RangeOneByOne(levels.first<PartWords>()));
  }
  range.Include(RangeOneByOne(levels));
  return range;
}

#ifdef __x86_64__
[[gnu::target("avx2")]] LevelRange WideRangeOf(std::span<const std::int16_t> levels) {
  return RangeInParts(levels);
}
#endif

}  // namespace

LevelRange RangeOf(std::span<const std::int16_t> levels) {
#ifdef __x86_64__
  if (__builtin_cpu_supports("avx2")) {
    return WideRangeOf(levels);
  }
#endif
  return RangeInParts(levels);
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
