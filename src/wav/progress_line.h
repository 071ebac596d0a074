// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QProgressBar>

#include "base/input/labels.h"
#include "wav/pass.h"

namespace brindle {

/// The line of the normalizer that shows how far a pass is and how long it will take. It keeps its
/// space while it is hidden.
class ProgressLine {
 public:
  ProgressLine();

  /// The line, after the label that says what is running.
  [[nodiscard]] QBoxLayout* Line(QLabel* status);

  void ShowProgress();
  void HideProgress();
  void Update(const PassProgress& progress);

 private:
  /// `elapsed` is in seconds; nothing changes if `wholePercent` is not above 0.
  void ShowETA(double elapsed, int wholePercent);
  void SetVisible(bool visible);

  QProgressBar ProgBar;
  ValueLabel Perc;
  PlainLabel ETA1;
  ValueLabel ETA2;
};

}  // namespace brindle
