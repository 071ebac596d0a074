// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>

#include "wav/level_table.h"
#include "wav/samples.h"

namespace brindle {

/// The factor for all samples that takes the peak nearer to its end of the 16-bit range to
/// `targetPercent` of that end: the smaller of |32767 / highest| and |-32768 / lowest|, times
/// targetPercent / 100. A peak of 0 does not count; a silent file, in which both are 0, has no
/// factor. Peaks -16384 and 8191 at 100 % give 2. A target of 0 or below is used as it is.
[[nodiscard]] std::optional<double> GainFor(std::int16_t lowest, std::int16_t highest,
                                            double targetPercent);

/// Whether an amplification lies outside 100 % plus or minus the tolerance; both limits count as
/// outside. All values are in percent.
[[nodiscard]] bool IsNormalizationRequired(double amplification, double tolerance);

/// Whether a level times the gain, rounded to the nearest whole number (ties to even), lies outside
/// the 16-bit range, so that a pass cuts it off.
[[nodiscard]] bool IsCutOff(std::int16_t level, double gain);

/// The new level for each level: times the gain, rounded to the nearest whole number (ties to even:
/// at 0.5, 3 becomes 2 and 5 becomes 2), limited to -32768 and 32767. Computed once, so that a
/// sample costs one look-up.
class GainTable {
 public:
  explicit GainTable(double gain);

  [[nodiscard]] std::int16_t operator()(std::int16_t level) const { return levels_[level]; }

  /// Replaces every sample by its new level.
  void Map(Samples samples) const { levels_.Map(samples); }

 private:
  LevelTable levels_;
};

}  // namespace brindle
