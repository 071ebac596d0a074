// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/gain.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "base/numbers/rounding.h"
#include "wav/level_range.h"

namespace brindle {

namespace {

constexpr double LowestLevel = std::numeric_limits<std::int16_t>::min();
constexpr double HighestLevel = std::numeric_limits<std::int16_t>::max();

// The factor that takes the peak to that end of the range; a peak of 0 never decides.
double FactorTo(double end, std::int16_t peak) {
  return peak == 0 ? std::numeric_limits<double>::infinity() : std::abs(end / peak);
}

}  // namespace

std::optional<double> GainFor(std::int16_t lowest, std::int16_t highest, double targetPercent) {
  if (lowest == 0 && highest == 0) {
    return std::nullopt;
  }
  const double gain = std::min(FactorTo(HighestLevel, highest), FactorTo(LowestLevel, lowest));
  return gain * targetPercent / 100;
}

bool IsNormalizationRequired(double amplification, double tolerance) {
  return !(amplification < 100 + tolerance && amplification > 100 - tolerance);
}

bool IsCutOff(std::int16_t level, double gain) {
  const auto amplified = ToInteger32(level * gain);
  return amplified < LowestLevel || amplified > HighestLevel;
}

GainTable::GainTable(double gain) {
  for (int level = AllLevels.lowest; level <= AllLevels.highest; ++level) {
    levels_[static_cast<std::int16_t>(level)] = ToInteger16(level * gain);
  }
}

}  // namespace brindle
