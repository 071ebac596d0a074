// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "wav/peak_scan.h"

namespace brindle {

/// The labels of the normalizer that show the peaks of the last scan.
class PeakLabels {
 public:
  PeakLabels();
  [[nodiscard]] QBoxLayout* Line();

  void Write(Peaks peaks);

  void ShowPeaks() { SetVisible(true); }
  void HidePeaks() { SetVisible(false); }

 private:
  void SetVisible(bool visible);

  PlainLabel Label1;
  ValueLabel MinV;
  ValueLabel MaxV;
};

}  // namespace brindle
