// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/level_table.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "wav/samples.h"

namespace brindle {

namespace {

// Words that are looked up before the first of them is written back. The compiler cannot know that
// the table is none of the words, so it would not look ahead on its own: that takes a quarter
// longer.
constexpr std::size_t Together = 8;

}  // namespace

void LevelTable::Map(Samples samples) const {
  const auto* zero = Zero();
  for (; samples.size() >= Together; samples = samples.subspan(Together)) {
    const auto words = samples.first<Together>();
    std::array<std::int16_t, Together> found{};
    for (std::size_t word = 0; word < Together; ++word) {
      found[word] = zero[words[word]];
    }
    for (std::size_t word = 0; word < Together; ++word) {
      words[word] = found[word];
    }
  }
  for (auto& sample : samples) {
    sample = zero[sample];
  }
}

}  // namespace brindle
