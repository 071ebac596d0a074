// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QProgressBar>

#include "base/input/labels.h"
#include "wav/pass.h"

namespace brindle {

/// The line of the normalizer in which a pass tells how far it is and how long it will take. It
/// keeps its room while it is hidden.
class ProgressLine {
 public:
  ProgressLine();

  /// The line, behind the label that says what is running.
  [[nodiscard]] QBoxLayout* Line(QLabel* status);

  void ShowProgress();
  void HideProgress();
  void Update(const PassProgress& progress);

 private:
  /// `elapsed` in seconds; nothing changes where `wholePercent` is not above 0.
  void ShowETA(double elapsed, int wholePercent);
  void SetVisible(bool visible);

  QProgressBar ProgBar;
  ValueLabel Perc;
  PlainLabel ETA1;
  ValueLabel ETA2;
};

}  // namespace brindle
