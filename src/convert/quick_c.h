// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/form.h"
#include "base/input/frame_count.h"
#include "base/input/option_group.h"
#include "base/input/running_time_fields.h"
#include "base/input/text_field.h"
#include "base/settings/settings.h"
#include "base/windows/services.h"
#include "convert/size_units.h"

namespace brindle {

/// The quick converter: a running time as hours, minutes and seconds, as minutes and as frames; a
/// size in bytes, kilobytes, megabytes and gigabytes.
class QuickC : public Form {
  Q_OBJECT

 public:
  explicit QuickC(Services& services);

 private:
  void MakeLayout();
  void WireEvents();

  void Form_Load();
  void Time1_KeyPress();
  void Time1_KeyUp();
  void Time1_MouseDown();
  void Time1_LostFocus();
  void Time2_KeyPress();
  void Time2_KeyUp();
  void Time2_MouseDown();
  void Time2_LostFocus();
  void Time3_KeyPress();
  void Time3_KeyUp();
  void Time3_MouseDown();
  void Time3_MouseUp();
  void Time3_LostFocus();
  void Min_KeyPress();
  void Min_KeyUp();
  void Min_MouseDown();
  void Min_MouseUp();
  void Min_LostFocus();
  void Frames_KeyPress();
  void Frames_KeyUp();
  void Frames_MouseDown();
  void Frames_MouseUp();
  void Frames_LostFocus();
  void System_Click(int index);
  void Unit_MouseDown(SizeUnit unit);

  void TimeChanged();
  void MinutesChanged();
  void FramesChanged();
  void TimeFromFrames();
  void TimeFromMinutes();
  void FramesFromMinutes();
  void MinutesFromTime();
  void NormalizeFields(const TextField* pressed = nullptr);
  void ConvertFrom(SizeUnit unit);
  void TidyUnitFields(SizeUnit editing);
  [[nodiscard]] TextField* FieldOf(SizeUnit unit) const;

  Settings& record_;
  double FrameRate = 0;  // frames per second

  TextField* Time1;
  TextField* Time2;
  TextField* Time3;
  RunningTimeFields time_;
  TextField* Min;
  TextField* Frames;
  FrameCount frames_;
  OptionGroup System;
  TextField* B;
  TextField* KB;
  TextField* MB;
  TextField* GB;
};

}  // namespace brindle
