// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <ostream>

#include "wav/level_range.h"

namespace brindle {

/// How a failing test shows it.
inline void PrintTo(const LevelRange& range, std::ostream* out) {
  *out << range.lowest << " to " << range.highest;
}

}  // namespace brindle
