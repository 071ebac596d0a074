// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "base/input/form.h"
#include "base/input/results.h"
#include "base/input/spin_button.h"
#include "base/input/spin_hold.h"
#include "base/input/text_field.h"
#include "base/settings/settings.h"
#include "base/windows/interleaving_label.h"
#include "base/windows/overhead_opener.h"
#include "base/windows/services.h"

class QPushButton;

namespace brindle {

/// The audio bitrate calculator: running time, video file and target size in; the bitrate that
/// still fits, and the standard one below it, out.
class AudioCalc : public Form, public OverheadOpener {
  Q_OBJECT

 public:
  explicit AudioCalc(Services& services);

  void Recompute() override;
  void ShowInterleaving() override;

 private:
  void MakeLayout();
  void WireEvents();

  void Form_Load();
  void MLength_GotFocus();
  void MLength_KeyUp();
  void MLength_MouseDown();
  void MLength_MouseUp();
  void MLength_LostFocus();
  void MLengthP_MouseDown();
  void MLengthP_MouseUp();
  void MLengthM_MouseDown();
  void MLengthM_MouseUp();
  void Source_GotFocus();
  void Source_KeyUp();
  void Source_MouseDown();
  void Source_MouseUp();
  void SourceP_MouseDown();
  void SourceP_MouseUp();
  void SourceM_MouseDown();
  void SourceM_MouseUp();
  void Target_GotFocus();
  void Target_KeyUp();
  void Target_MouseDown();
  void Target_MouseUp();
  void TargetP_MouseDown();
  void TargetP_MouseUp();
  void TargetM_MouseDown();
  void TargetM_MouseUp();
  void Command1_Click();

  void CalcAudioBitrate();
  void ShowAudioQuality(double bitrate);
  void FillAndCalc();
  void HoldPlus(TextField* field, std::optional<double> highest);
  void HoldMinus(TextField* field, std::optional<double> lowest);

  Services& services_;
  Settings& record_;
  SpinHold spin_;

  TextField* MLength;
  SpinButton* MLengthP;
  SpinButton* MLengthM;
  TextField* Source;
  SpinButton* SourceP;
  SpinButton* SourceM;
  TextField* Target;
  SpinButton* TargetP;
  SpinButton* TargetM;
  InterleavingLabel* Interl;
  QPushButton* Command1;
  ResultField* Result;
  ValueLabel* Qual;
};

}  // namespace brindle
