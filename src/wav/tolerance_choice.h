// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QObject>
#include <QWidget>

#include "base/input/labels.h"
#include "base/input/slider.h"
#include "base/settings/settings.h"

namespace brindle {

/// The slider of the normalizer for the smallest change that is worth a pass. Keeps the choice in
/// the settings record.
class ToleranceChoice : public QObject {
  Q_OBJECT

 public:
  explicit ToleranceChoice(Settings& record);

  /// The parts of the slider's line, label first.
  [[nodiscard]] QLabel* Caption() { return &Label4; }
  [[nodiscard]] QWidget* Range() { return &Toler; }
  [[nodiscard]] QWidget* Value() { return &TolerTxt; }

  /// A stored tolerance beyond the slider's range moves the slider to its end, but counts as
  /// stored.
  void Form_Load();

  /// The tolerance that is shown, in percent.
  [[nodiscard]] float Percent() const { return percent_; }

 private:
  void Toler_Change();
  void Write(float percent);

  Settings& record_;
  float percent_ = 0;

  Slider Toler;
  ValueLabel TolerTxt;
  PlainLabel Label4;
};

}  // namespace brindle
