// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include <QLineEdit>
#include <QRadioButton>

#include "base/input/editable_list.h"
#include "base/input/spin_button.h"
#include "base/input/text_field.h"
#include "tests/support/calculator_window.h"

namespace brindle {

/// The video bitrate calculator, open, with its controls at hand as a user sees them.
class BitrateWindow : public RecordingWindow {
 protected:
  BitrateWindow() : RecordingWindow(WindowId::BitrateCalc, {}) {}

  /// Makes the next recomputation visible: Stat(2) shows another size then.
  void ArmRecomputation() {
    overheadBefore_ = Text("Stat(2)");
    record.VideoFrameOverhead += 50;
  }
  [[nodiscard]] bool Recomputed() const { return Text("Stat(2)") != overheadBefore_; }

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

 private:
  void FindControls() override {
    Take(Audio, "Audio");
    Take(CDs, "CDs");
    Take(Capacity, "Capacity");
    Take(MLength, "MLength");
    Take(Extra, "Extra");
    Take(Time1, "Time1");
    Take(Time2, "Time2");
    Take(Time3, "Time3");
    Take(MLengthP, "MLengthP");
    Take(MLengthM, "MLengthM");
    Take(ExtraP, "ExtraP");
    Take(ExtraM, "ExtraM");
    Take(DivX3, "DivX(0)");
    Take(DivX4, "DivX(1)");
    Take(Result, "Result");
  }

  std::string overheadBefore_;
};

}  // namespace brindle
