// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include <QLineEdit>
#include <QRadioButton>
#include <QString>

#include "base/input/editable_list.h"
#include "base/input/spin_button.h"
#include "base/input/text_field.h"
#include "tests/support/calculator_window.h"

namespace brindle {

/// The video bitrate calculator, open, with its controls at hand as a user sees them.
class BitrateWindow : public CalculatorWindow {
 protected:
  void OpenCalculator() {
    window = Open(WindowId::BitrateCalc);
    Audio = Find<EditableList>(window, QStringLiteral("Audio"));
    CDs = Find<EditableList>(window, QStringLiteral("CDs"));
    Capacity = Find<EditableList>(window, QStringLiteral("Capacity"));
    MLength = Find<TextField>(window, QStringLiteral("MLength"));
    Extra = Find<TextField>(window, QStringLiteral("Extra"));
    Time1 = Find<TextField>(window, QStringLiteral("Time1"));
    Time2 = Find<TextField>(window, QStringLiteral("Time2"));
    Time3 = Find<TextField>(window, QStringLiteral("Time3"));
    MLengthP = Find<SpinButton>(window, QStringLiteral("MLengthP"));
    MLengthM = Find<SpinButton>(window, QStringLiteral("MLengthM"));
    ExtraP = Find<SpinButton>(window, QStringLiteral("ExtraP"));
    ExtraM = Find<SpinButton>(window, QStringLiteral("ExtraM"));
    DivX3 = Find<QRadioButton>(window, QStringLiteral("DivX(0)"));
    DivX4 = Find<QRadioButton>(window, QStringLiteral("DivX(1)"));
    Result = Find<QLineEdit>(window, QStringLiteral("Result"));
  }

  /// The running time as the three fields show it: "1:40:00.00".
  [[nodiscard]] std::string Time() const {
    return Text("Time1") + ":" + Text("Time2") + ":" + Text("Time3");
  }

  /// Makes the next recomputation visible: Stat(2) shows another size then.
  void ArmRecomputation() { record.VideoFrameOverhead += 50; }

  EditableList* Audio = nullptr;
  EditableList* CDs = nullptr;
  EditableList* Capacity = nullptr;
  TextField* MLength = nullptr;
  TextField* Extra = nullptr;
  TextField* Time1 = nullptr;
  TextField* Time2 = nullptr;
  TextField* Time3 = nullptr;
  SpinButton* MLengthP = nullptr;
  SpinButton* MLengthM = nullptr;
  SpinButton* ExtraP = nullptr;
  SpinButton* ExtraM = nullptr;
  QRadioButton* DivX3 = nullptr;
  QRadioButton* DivX4 = nullptr;
  QLineEdit* Result = nullptr;
};

}  // namespace brindle
