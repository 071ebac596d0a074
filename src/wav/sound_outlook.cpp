// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/sound_outlook.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>

#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "wav/gain.h"
#include "wav/level_range.h"

namespace brindle {

namespace {

constexpr double LowestLevel = std::numeric_limits<std::int16_t>::min();
constexpr double HighestLevel = std::numeric_limits<std::int16_t>::max();

// A gain may be infinite.
double Amplified(std::int16_t level, double gain) { return level == 0 ? 0 : level * gain; }

std::string PercentText(double percent, int decimals) {
  return TextOf(RoundedTo(percent, decimals)) + "%";
}

std::string PeaksText(Peaks peaks) {
  constexpr int decimals = 1;
  return "Peaks at " + PercentText(-100 * (peaks.lowest / LowestLevel), decimals) + " and " +
         PercentText(100 * (peaks.highest / HighestLevel), decimals) + " of full scale.";
}

std::string CutOffText(double percent) {
  constexpr int decimals = 2;
  return percent == 0
             ? "Nothing would be cut off."
             : "Samples would be cut off in " + PercentText(percent, decimals) + " of the sound.";
}

}  // namespace

LevelRange SoundOutlook::Now(std::size_t first, std::size_t end) const {
  const auto mapped = std::clamp(done, first, end);
  auto range = picture.RangeOfColumns(mapped, end);
  if (gain) {
    range.Include(brindle::Amplified(picture.RangeOfColumns(first, mapped), *gain));
  }
  return range;
}

LevelRange SoundOutlook::Ahead(std::size_t first, std::size_t end) const {
  return gain ? brindle::Amplified(picture.RangeOfColumns(std::clamp(done, first, end), end), *gain)
              : LevelRange();
}

Reach SoundOutlook::ReachAhead(std::size_t first, std::size_t end) const {
  const auto range = picture.RangeOfColumns(std::clamp(done, first, end), end);
  if (!gain || range.IsEmpty()) {
    return {};
  }
  const auto [lowest, highest] =
      std::minmax({Amplified(range.lowest, *gain), Amplified(range.highest, *gain)});
  return {.lowest = lowest, .highest = highest};
}

double SoundOutlook::CutOffPercent() const {
  const auto columns = picture.Columns();
  const auto read = std::count_if(columns.begin(), columns.end(),
                                  [](const LevelRange& column) { return !column.IsEmpty(); });
  if (!gain || read == 0) {
    return 0;
  }
  const auto cutOff = std::count_if(columns.begin(), columns.end(), [&](const LevelRange& column) {
    return !column.IsEmpty() && (IsCutOff(column.lowest, *gain) || IsCutOff(column.highest, *gain));
  });
  return 100 * static_cast<double>(cutOff) / static_cast<double>(read);
}

std::string TextOf(const SoundOutlook& outlook) {
  const auto all = outlook.Now(0, outlook.picture.Columns().size());
  if (all.IsEmpty()) {
    return "Nothing has been scanned.";
  }
  if (all == LevelRange{.lowest = 0, .highest = 0}) {
    return "Silence.";
  }
  const auto peaks = PeaksText({.lowest = std::min<std::int16_t>(all.lowest, 0),
                                .highest = std::max<std::int16_t>(all.highest, 0)});
  return outlook.gain ? peaks + " The target is " + TextOf(outlook.targetPercent) + "%. " +
                            CutOffText(outlook.CutOffPercent())
                      : peaks;
}

}  // namespace brindle
