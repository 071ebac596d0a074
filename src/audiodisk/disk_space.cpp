// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "audiodisk/disk_space.h"

#include <cstdint>

namespace brindle {

double VideoFactorOf(std::int16_t option) { return 1 - option * 0.0234375; }

double CompressedKiloBytesPerSecond(double kiloBits) { return kiloBits / 8; }

double VideoMegaBytes(double kiloBits, double minutes, double videoFactor) {
  return kiloBits * minutes * videoFactor * 60 / 8192;
}

double TotalMegaBytes(double minutes, double audioKiloBytesPerSecond, double videoMegaBytes) {
  return minutes * 60 * audioKiloBytesPerSecond / 1024 + videoMegaBytes;
}

}  // namespace brindle
