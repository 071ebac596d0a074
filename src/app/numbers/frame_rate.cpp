// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/numbers/frame_rate.h"

namespace brindle {

double FramesPerSecond(int system) {
  switch (system) {
    case 0:
      return 25;
    case 1:
      return 23.976;
    case 2:
      return 29.97;
    default:
      return 0;
  }
}

}  // namespace brindle
