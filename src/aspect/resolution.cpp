// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "aspect/resolution.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "base/numbers/rounding.h"

namespace brindle {
namespace {

constexpr std::array StandardRatios{1.0F, 1.33F, 1.66F, 1.778F, 1.85F, 2.35F};
constexpr int MacroblockEdge = 16;  // pixels

}  // namespace

float StandardRatio(int index) {
  if (index < 0 || index >= static_cast<int>(StandardRatios.size())) {
    return 0;
  }
  return StandardRatios.at(static_cast<std::size_t>(index));
}

int Snapped(double resolution, int modulus) {
  // Far beyond any slider's range, but within the type's.
  constexpr double largest = 1e6;
  const double steps = std::clamp(resolution / modulus, -largest, largest);
  return ToInteger32(steps) * modulus;
}

int HeightFor(int width, float ratio, int modulus) {
  return Snapped(width / static_cast<double>(ratio), modulus);
}

int WidthFor(int height, float ratio, int modulus) {
  return Snapped(static_cast<double>(ratio) * height, modulus);
}

FrameStatistics StatisticsOf(int width, int height, float filmRatio) {
  FrameStatistics statistics;
  statistics.pixels = width * height;
  const int up = height % MacroblockEdge != 0 ? 1 : 0;
  statistics.macroblocks = (height / MacroblockEdge + up) * (width / MacroblockEdge + up);
  statistics.ratio = RoundedTo(static_cast<double>(width) / height, 3);
  if (filmRatio != 0) {
    statistics.errorPercent =
        RoundedTo(statistics.ratio / static_cast<double>(filmRatio) * 100 - 100, 2);
  }
  return statistics;
}

}  // namespace brindle
