// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "wav/level_range.h"
#include "wav/sound_picture.h"

namespace brindle {

/// How far a pass would take some levels if there were no end of the range: level times gain, not
/// rounded. 20000 with a gain of 2 reaches 40000.
struct Reach {
  double lowest = 0;
  double highest = 0;
};

/// The picture of a sound, and what a pass makes of it.
struct SoundOutlook {
  SoundPicture picture;        ///< as it is before the pass
  double targetPercent = 100;  ///< of the range, that the pass aims at
  std::optional<double> gain;  ///< of the pass that is ahead, or runs; none: there is no such pass
  std::size_t done = 0;        ///< how many of the first columns the pass has mapped

  /// What the file has from column `first` to `end`, which does not belong to them.
  [[nodiscard]] LevelRange Now(std::size_t first, std::size_t end) const;

  /// What the pass will make of those of them that it has not mapped yet; empty if there is nothing
  /// to map, or no pass.
  [[nodiscard]] LevelRange Ahead(std::size_t first, std::size_t end) const;

  /// How far it would take these if nothing were cut off; 0 and 0 where Ahead() is empty.
  [[nodiscard]] Reach ReachAhead(std::size_t first, std::size_t end) const;

  /// The share of the columns read in which the pass cuts something off, in percent; 0 without a
  /// pass. One of 2048 columns is 0.048828125 %.
  [[nodiscard]] double CutOffPercent() const;
};

/// What the picture shows, in words: the peaks in percent of their end of the range, the target,
/// and how much the pass would cut off. "Peaks at -50% and 25% of full scale. The target is 100%.
/// Nothing would be cut off." Without a pass it ends after the peaks. Peaks have one decimal, what
/// is cut off has two.
[[nodiscard]] std::string TextOf(const SoundOutlook& outlook);

}  // namespace brindle
