// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/editable_list.h"
#include "base/input/form.h"
#include "base/input/option_group.h"
#include "base/input/results.h"
#include "base/input/spin_button.h"
#include "base/input/spin_hold.h"
#include "base/input/text_field.h"
#include "base/settings/settings.h"
#include "base/windows/services.h"

namespace brindle {

/// The disk space calculator: video by bitrate or size, running time and audio in; megabytes out.
class HDCalc : public Form {
  Q_OBJECT

 public:
  explicit HDCalc(Services& services);

 private:
  enum VideoMode { ByBitrate, BySize };
  enum AudioType { Wav44, Wav48, Compressed };

  void MakeLayout();
  void WireEvents();

  void Form_Load();
  void Video_Click(int index);
  void Video1_GotFocus();
  void Video1_KeyUp();
  void Video1_LostFocus();
  void Video1_MouseDown();
  void Video1_MouseUp();
  void Video1P_MouseDown();
  void Video1P_MouseUp();
  void Video1M_MouseDown();
  void Video1M_MouseUp();
  void Video2_GotFocus();
  void Video2_KeyUp();
  void Video2_LostFocus();
  void Video2_MouseDown();
  void Video2_MouseUp();
  void Video2P_MouseDown();
  void Video2P_MouseUp();
  void Video2M_MouseDown();
  void Video2M_MouseUp();
  void DivX_Click(int index);
  void MLength_GotFocus();
  void MLength_KeyUp();
  void MLength_LostFocus();
  void MLength_MouseDown();
  void MLength_MouseUp();
  void MLengthP_MouseDown();
  void MLengthP_MouseUp();
  void MLengthM_MouseDown();
  void MLengthM_MouseUp();
  void Audio_Click(int index);
  void MP2_Click();
  void MP2_KeyUp();
  void MP2_LostFocus();

  void ShowVideoInputs();
  void CalcVideoByBitrate();
  void CalcVideo();
  void CalcAudioRate();
  void CalcTotal();
  void ShowTotal(bool hasRunningTime);
  void CalcAndShowTotal();
  void HoldPlus(TextField* field, void (HDCalc::*keyUp)());
  void HoldMinus(TextField* field, double lowest, void (HDCalc::*keyUp)());

  Settings& record_;
  SpinHold spin_;
  double VideoFactor = 1;  // see VideoFactorOf()
  double AudioRate = 0;    // KB/s
  double VideoMB = 0;      // megabytes of video
  double TotalMB = 0;      // megabytes of everything

  OptionGroup Video;
  TextField* Video1;
  SpinButton* Video1P;
  SpinButton* Video1M;
  TextField* Video2;
  SpinButton* Video2P;
  SpinButton* Video2M;
  OptionGroup DivX;
  TextField* MLength;
  SpinButton* MLengthP;
  SpinButton* MLengthM;
  OptionGroup Audio;
  EditableList* MP2;
  ResultLabel* Result;
};

}  // namespace brindle
