// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>

#include "wav/samples.h"

namespace brindle {

/// A level for each level, -32768 to 32767, so that a sample costs one look-up.
class LevelTable {
 public:
  /// The same level for all of them at first.
  explicit LevelTable(std::int16_t level = 0) : levels_(LevelCount, level) {}

  [[nodiscard]] std::int16_t operator[](std::int16_t level) const { return Zero()[level]; }
  [[nodiscard]] std::int16_t& operator[](std::int16_t level) {
    const int index = static_cast<int>(LevelZero) + level;
    return levels_[static_cast<std::size_t>(index)];
  }

  /// Replaces every sample by what the table has for it.
  void Map(Samples samples) const;

 private:
  [[nodiscard]] const std::int16_t* Zero() const { return levels_.data() + LevelZero; }

  SampleBuffer levels_;
};

}  // namespace brindle
