// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "base/interface.h"

namespace brindle {

/// Who opened the overhead window, as the settings record has it.
inline constexpr std::int16_t OpenedByVideo = 1;
inline constexpr std::int16_t OpenedByAudio = 2;

/// A window that the overhead window was opened from, as that window sees it.
class OverheadOpener : public Interface {
 public:
  /// Recomputes its bitrate with the overheads of the settings record.
  virtual void Recompute() = 0;

  /// Shows whether any overhead is counted.
  virtual void ShowInterleaving() = 0;
};

}  // namespace brindle
