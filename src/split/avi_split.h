// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/form.h"
#include "base/input/frame_count.h"
#include "base/input/labels.h"
#include "base/input/option_group.h"
#include "base/input/text_field.h"
#include "base/settings/settings.h"
#include "base/windows/services.h"
#include "split/range_table.h"
#include "split/split_plan.h"

class QLabel;

namespace brindle {

/// The AVI split calculator: which frames to delete so that each part of a large file has its size
/// and begins on a key frame.
class AVISplit : public Form {
  Q_OBJECT

 public:
  explicit AVISplit(Services& services);

 private:
  /// The field that FillBlankFields() leaves alone.
  enum class Editing { None, AVIsize, Frames, Size1, Size2, KeyFs };
  enum Segments { Two, Three };

  void MakeLayout();
  void WireEvents();

  void Form_Load();
  void AVIsize_GotFocus();
  void AVIsize_KeyUp();
  void AVIsize_MouseDown();
  void Frames_GotFocus();
  void Frames_KeyPress();
  void Frames_KeyUp();
  void Frames_MouseDown();
  void Frames_MouseUp();
  void Segs_Click(int index);
  void Size1_GotFocus();
  void Size1_KeyUp();
  void Size1_MouseDown();
  void Size2_GotFocus();
  void Size2_KeyUp();
  void Size2_MouseDown();
  void Size3_GotFocus();
  void System_Click(int index);
  void KeyFs_GotFocus();
  void KeyFs_KeyPress();
  void KeyFs_KeyUp();
  void KeyFs_MouseDown();

  void EditSize(Editing code, TextField* field, double& stored);
  void EditSize2();
  void EditFrames();
  void LimitFrames();
  void TakeWholeFrames();
  void EditKeyFs();
  void LimitKeyFs();

  void Recalculate();
  void SplitInTwo();
  void SplitInThree();
  void UpdateKeyframeCount();
  void UpdateFramesAndDuration();
  void StoreRunningTime();
  void FillBlankFields(Editing editing);
  void SelectSystem(int index);
  void SelectSplitMode(int index);
  void ShowThirdSegment(bool isShown);
  [[nodiscard]] SplitInputs InputsOf(double firstMegaBytes, double secondMegaBytes) const;
  [[nodiscard]] double CountedFrames() const;
  [[nodiscard]] double IntervalInFrames() const;

  Settings& record_;
  double FrameRate = 0;  // frames per second

  TextField* AVIsize;
  TextField* Frames;
  FrameCount frames_;
  OptionGroup Segs;
  TextField* Size1;
  TextField* Size2;
  TextField* Size3;
  QLabel* SegNo3Lab;
  OptionGroup System;
  TextField* KeyFs;
  ValueLabel* KeyFr;
  ValueLabel* Time1;
  ValueLabel* Time2;
  ValueLabel* Time3;
  RangeTable ranges_;
};

}  // namespace brindle
