// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include <QLabel>

#include "base/input/labels.h"
#include "base/input/layout.h"

namespace brindle {

/// The labels of the normalizer that show the peaks of the last scan, and keep them for the
/// normalization, whichever file is open by then.
class PeakLabels {
 public:
  PeakLabels();
  [[nodiscard]] QBoxLayout* Line();

  void Write(std::int16_t lowest, std::int16_t highest);
  [[nodiscard]] std::int16_t Lowest() const;
  [[nodiscard]] std::int16_t Highest() const;

  void ShowPeaks() { SetVisible(true); }
  void HidePeaks() { SetVisible(false); }

 private:
  void SetVisible(bool visible);

  QLabel* Label1;
  ValueLabel* MinV;
  ValueLabel* MaxV;
};

}  // namespace brindle
