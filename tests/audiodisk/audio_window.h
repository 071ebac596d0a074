// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>
#include <QString>

#include "base/input/spin_button.h"
#include "base/input/text_field.h"
#include "tests/support/calculator_window.h"

namespace brindle {

/// The audio bitrate calculator, open, with its controls at hand.
class AudioWindow : public CalculatorWindow {
 protected:
  void OpenCalculator() {
    window = Open(WindowId::AudioCalc);
    MLength = Find<TextField>(window, QStringLiteral("MLength"));
    Source = Find<TextField>(window, QStringLiteral("Source"));
    Target = Find<TextField>(window, QStringLiteral("Target"));
    Result = Find<QLineEdit>(window, QStringLiteral("Result"));
  }

  /// Opens it with these figures and no overhead.
  void OpenWith(double minutes, double videoMegaBytes, double targetMegaBytes) {
    record.MovieLength = minutes;
    record.VideoOnlySize = videoMegaBytes;
    record.TargetAVISize = targetMegaBytes;
    record.VideoFrameOverhead = 0;
    record.AudioInterleaveOverhead = 0;
    OpenCalculator();
  }

  [[nodiscard]] SpinButton* Spin(const QString& name) const {
    return Find<SpinButton>(window, name);
  }

  TextField* MLength = nullptr;
  TextField* Source = nullptr;
  TextField* Target = nullptr;
  QLineEdit* Result = nullptr;
};

}  // namespace brindle
