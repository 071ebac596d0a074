// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include <QString>

#include "base/input/editable_list.h"
#include "base/input/form.h"
#include "base/input/labels.h"
#include "base/input/option_group.h"
#include "base/input/results.h"
#include "base/input/running_time_fields.h"
#include "base/input/spin_button.h"
#include "base/input/spin_hold.h"
#include "base/input/text_field.h"
#include "base/windows/interleaving_label.h"
#include "base/windows/overhead_opener.h"
#include "base/windows/services.h"

class QPushButton;

namespace brindle {

/// The video bitrate calculator: media, running time and audio in; bitrate, sizes and quality out.
class BitrateCalc : public Form, public OverheadOpener {
  Q_OBJECT

 public:
  explicit BitrateCalc(Services& services);

  void Recompute() override;
  void ShowInterleaving() override;

 private:
  /// The field that FillBlankFields() leaves alone.
  enum class Editing { None, Audio, Capacity, CDs, Extra, MLength };
  enum Spin { MLengthPHeld = 1, MLengthMHeld, ExtraPHeld, ExtraMHeld };

  void MakeLayout();
  void WireEvents();

  void Form_Load();
  void Audio_Click();
  void Audio_KeyUp();
  void Audio_LostFocus();
  void Audio_GotFocus();
  void CDs_Click();
  void CDs_KeyUp();
  void CDs_GotFocus();
  void CDs_LostFocus();
  void MLength_GotFocus();
  void MLength_KeyUp();
  void MLength_MouseDown();
  void MLength_LostFocus();
  void MLengthP_MouseDown();
  void MLengthP_MouseUp();
  void MLengthM_MouseDown();
  void MLengthM_MouseUp();
  void Time1_GotFocus();
  void Time1_KeyPress();
  void Time1_KeyUp();
  void Time1_MouseDown();
  void Time1_LostFocus();
  void Time2_GotFocus();
  void Time2_KeyPress();
  void Time2_KeyUp();
  void Time2_MouseDown();
  void Time2_LostFocus();
  void Time3_GotFocus();
  void Time3_KeyPress();
  void Time3_KeyUp();
  void Time3_MouseDown();
  void Time3_MouseUp();
  void Time3_LostFocus();
  void Capacity_Click();
  void Capacity_KeyUp();
  void Capacity_GotFocus();
  void Capacity_LostFocus();
  void Extra_GotFocus();
  void Extra_KeyUp();
  void Extra_MouseUp();
  void ExtraP_MouseDown();
  void ExtraP_MouseUp();
  void ExtraM_MouseDown();
  void ExtraM_MouseUp();
  void DivX_Click(int index);
  void Advance_Click();

  void CalcVideoBitrate();
  void RateQuality(double bitrate);
  void FillBlankFields(Editing editing);
  void TimeToLength();
  void LengthToTime();
  void TimeToLengthUnlessEmpty(const TextField* field);
  void Hold(Spin state, TextField* field, double (*step)(double, std::optional<double>),
            std::optional<double> limit);

  Services& services_;
  Settings& record_;
  SpinHold spin_;
  double DivXFactor = 1;
  bool EditingSeconds = false;

  EditableList* Audio;
  EditableList* CDs;
  TextField* MLength;
  SpinButton* MLengthP;
  SpinButton* MLengthM;
  TextField* Time1;
  TextField* Time2;
  TextField* Time3;
  RunningTimeFields time_;
  EditableList* Capacity;
  TextField* Extra;
  SpinButton* ExtraP;
  SpinButton* ExtraM;
  OptionGroup DivX;
  QPushButton* Advance;
  InterleavingLabel* Interl;
  ResultField* Result;
  std::array<ValueLabel*, 3> Stat;
  ValueLabel* Qual;
};

}  // namespace brindle
