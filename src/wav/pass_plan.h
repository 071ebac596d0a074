// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/peak_scan.h"

namespace brindle {

/// What a pass goes by from its start to its end, whatever is clicked meanwhile.
struct PassPlan {
  PassFiles files;
  Buffering buffering = Buffering::Multi;
  double tolerance = 0;        ///< percent
  double percent = 0;          ///< of the 16-bit range, that the peaks are to reach
  std::optional<double> gain;  ///< nothing for a silent file
  KnownLevels levels;          ///< of the samples

  void AimFor(Peaks peaks) { gain = GainFor(peaks.lowest, peaks.highest, percent); }

  /// Percent; of a plan that has a gain.
  [[nodiscard]] double Amplification() const { return 100 * *gain; }

  [[nodiscard]] bool IsRequired() const {
    return gain && IsNormalizationRequired(Amplification(), tolerance);
  }
};

}  // namespace brindle
