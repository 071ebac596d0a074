// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "audiodisk/hd_calc.h"

#include <cstdint>
#include <initializer_list>
#include <optional>

#include <QString>
#include <QWidget>

#include "audiodisk/disk_space.h"
#include "base/input/common_choices.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/wiring.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"

namespace brindle {

using namespace Qt::StringLiterals;

HDCalc::HDCalc(Services& services)
    : Form(u"HDCalc"_s, u"Velbrin's Brindle 2 : HD Space Calc"_s),
      record_(services.record),
      spin_(*this, services.clock, services.record),
      Video(u"Video"_s),
      Video1(new TextField(u"Video1"_s, u"Video bitrate in kbps"_s)),
      Video1P(new SpinButton(u"Video1P"_s, SpinDirection::Plus)),
      Video1M(new SpinButton(u"Video1M"_s, SpinDirection::Minus)),
      Video2(new TextField(u"Video2"_s, u"Video-only file size in Megabytes"_s)),
      Video2P(new SpinButton(u"Video2P"_s, SpinDirection::Plus)),
      Video2M(new SpinButton(u"Video2M"_s, SpinDirection::Minus)),
      DivX(u"DivX"_s),
      MLength(new TextField(u"MLength"_s, u"Movie length in minutes"_s)),
      MLengthP(new SpinButton(u"MLengthP"_s, SpinDirection::Plus)),
      MLengthM(new SpinButton(u"MLengthM"_s, SpinDirection::Minus)),
      Audio(u"Audio"_s),
      MP2(new EditableList(u"MP2"_s, u"AC3/Mp3 audio bitrate in kbps"_s)),
      Result(new ResultLabel(u"Result"_s,
                             u"Megabytes of HD space needed for the Audio & Video files"_s, 9)) {
  MakeLayout();
  WireEvents();
  Form_Load();
  Focus().Begin(Video.TabStop());
}

void HDCalc::MakeLayout() {
  const auto divXLabel = u"DivX version :"_s;
  auto* byBitrate = Video.Add(ByBitrate, u"Bitrate (kbps)"_s, u"Video bitrate in kbps"_s);
  auto* bySize = Video.Add(BySize, u"Size (MB)"_s, u"Video-only file size in Megabytes"_s);
  auto* wav44 = Audio.Add(Wav44, u"WAV 44.1kHz"_s, u"44.1 kHz uncompressed wave file"_s);
  auto* wav48 = Audio.Add(Wav48, u"WAV 48kHz"_s, u"48 kHz uncompressed wave file"_s);
  auto* compressed = Audio.Add(Compressed, u"Other (kbps):"_s,
                               u"Compressed constant bitrate sound (AC3, mp3...)"_s);
  auto* minutes = MakeLabel(u"Label1"_s, u"minutes"_s);
  const auto length = u"Movie Length"_s;
  NameByLabel(length + u' ' + minutes->text(), {MLength, MLengthP, MLengthM});
  MP2->Field()->setText(u"224"_s);
  // Here the buttons tell what their field tells.
  for (auto* button : {Video1P, Video1M}) {
    button->setToolTip(Video1->toolTip());
  }
  for (auto* button : {Video2P, Video2M}) {
    button->setToolTip(Video2->toolTip());
  }
  for (auto* button : {MLengthP, MLengthM}) {
    button->setToolTip(MLength->toolTip());
  }

  // clang-format off
  LayOut(this,
    Tiles({
      {
        MakeFrame(u"VideoF"_s, u"Video"_s, {
          {byBitrate, {Video1, Video1P, Video1M}},
          {bySize, {Video2, Video2P, Video2M}},
          {MakeLabel(u"Label13"_s, divXLabel), AddDivXVersions(DivX, divXLabel)},
        }),
        MakeFrame(u"AudioF"_s, u"Audio"_s, {
          {wav44, {}},
          {wav48, {}},
          {compressed, {MP2}},
        }),
      },
      {
        MakeFrame(u"MLengthF"_s, length, {
          {{}, {MLength, MLengthP, MLengthM, minutes}},
        }),
        MakeFrame({}, {
          {MakeLabel(u"Label2"_s, u"Hard Disk Space Required (MB) :"_s), {Result}},
        }),
      },
    }));
  // clang-format on
}

void HDCalc::WireEvents() {
  using Self = HDCalc;
  const Wires on(this);
  // clang-format off
  on(&Video).Click(&Self::Video_Click);
  on(Video1).GotFocus(&Self::Video1_GotFocus).KeyUp(&Self::Video1_KeyUp)
    .LostFocus(&Self::Video1_LostFocus).MouseDown(&Self::Video1_MouseDown)
    .MouseUp(&Self::Video1_MouseUp).Arrows(Video1P, Video1M);
  on(Video1P).MouseDown(&Self::Video1P_MouseDown).MouseUp(&Self::Video1P_MouseUp);
  on(Video1M).MouseDown(&Self::Video1M_MouseDown).MouseUp(&Self::Video1M_MouseUp);
  on(Video2).GotFocus(&Self::Video2_GotFocus).KeyUp(&Self::Video2_KeyUp)
    .LostFocus(&Self::Video2_LostFocus).MouseDown(&Self::Video2_MouseDown)
    .MouseUp(&Self::Video2_MouseUp).Arrows(Video2P, Video2M);
  on(Video2P).MouseDown(&Self::Video2P_MouseDown).MouseUp(&Self::Video2P_MouseUp);
  on(Video2M).MouseDown(&Self::Video2M_MouseDown).MouseUp(&Self::Video2M_MouseUp);
  on(&DivX).Click(&Self::DivX_Click);
  on(&Audio).Click(&Self::Audio_Click);
  on(MP2).Click(&Self::MP2_Click).KeyUp(&Self::MP2_KeyUp).LostFocus(&Self::MP2_LostFocus);
  on(MLength).GotFocus(&Self::MLength_GotFocus).KeyUp(&Self::MLength_KeyUp)
    .LostFocus(&Self::MLength_LostFocus).MouseDown(&Self::MLength_MouseDown)
    .MouseUp(&Self::MLength_MouseUp).Arrows(MLengthP, MLengthM);
  on(MLengthP).MouseDown(&Self::MLengthP_MouseDown).MouseUp(&Self::MLengthP_MouseUp);
  on(MLengthM).MouseDown(&Self::MLengthM_MouseDown).MouseUp(&Self::MLengthM_MouseUp);
  // clang-format on
}

void HDCalc::Form_Load() {
  if (record_.MovieLength == 0) {
    record_.MovieLength = 1;
  }
  DivX.Select(record_.DivXOption);
  // Here, too: an unknown option selects nothing, and no handler runs.
  VideoFactor = VideoFactorOf(record_.DivXOption);
  Video.Select(ToInteger16(record_.HDVideoMode));
  Audio.Select(record_.HDAudioType);
  MP2->Fill(UsualAudioBitrates());
  WriteMinutes(MLength, record_.MovieLength);
  WriteNumber(MP2->Field(), record_.HDAudioBitrate);
  WriteNumber(Video1, record_.HDVideoBitrate);
  WriteNumber(Video2, record_.VideoOnlySize);
  CalcAudioRate();
  MP2->setEnabled(Audio.Selected() == Compressed);
  CalcVideo();
  CalcAndShowTotal();
}

void HDCalc::Video_Click(int index) {
  CalcVideo();
  record_.HDVideoMode = index;
  ShowVideoInputs();
  CalcAndShowTotal();
}

void HDCalc::Video1_GotFocus() { SelectFirstTen(Video1); }
void HDCalc::Video1_KeyUp() {
  record_.HDVideoBitrate = RepairAndRead(Video1);
  CalcVideoByBitrate();
  CalcAndShowTotal();
}
void HDCalc::Video1_LostFocus() {
  FillBlank(Video1, u"1"_s);
  Video1_KeyUp();
}
void HDCalc::Video1_MouseDown() {
  FillBlank(MLength, u"1"_s);
  Video1_KeyUp();
}
void HDCalc::Video1_MouseUp() { RepairText(Video1); }

void HDCalc::Video1P_MouseDown() { HoldPlus(Video1, &HDCalc::Video1_KeyUp); }
void HDCalc::Video1P_MouseUp() { spin_.Release(Video1); }
void HDCalc::Video1M_MouseDown() { HoldMinus(Video1, 1, &HDCalc::Video1_KeyUp); }
void HDCalc::Video1M_MouseUp() { spin_.Release(Video1); }

void HDCalc::Video2_GotFocus() { SelectFirstTen(Video2); }
void HDCalc::Video2_KeyUp() {
  record_.VideoOnlySize = RepairAndRead(Video2);
  if (Video.Selected() == BySize) {
    VideoMB = record_.VideoOnlySize;
  }
  CalcAndShowTotal();
}
void HDCalc::Video2_LostFocus() {
  FillBlank(Video2, u"1"_s);
  Video2_KeyUp();
}
void HDCalc::Video2_MouseDown() {
  FillBlank(MLength, u"1"_s);
  Video2_KeyUp();
}
void HDCalc::Video2_MouseUp() { RepairText(Video2); }

void HDCalc::Video2P_MouseDown() { HoldPlus(Video2, &HDCalc::Video2_KeyUp); }
void HDCalc::Video2P_MouseUp() { spin_.Release(Video2); }
// Down to 0, deliberately unlike the bitrate: there may be no video yet.
void HDCalc::Video2M_MouseDown() { HoldMinus(Video2, 0, &HDCalc::Video2_KeyUp); }
void HDCalc::Video2M_MouseUp() { spin_.Release(Video2); }

void HDCalc::DivX_Click(int index) {
  record_.DivXOption = static_cast<std::int16_t>(index);
  VideoFactor = VideoFactorOf(record_.DivXOption);
  if (!IsEmpty(MLength)) {
    CalcVideoByBitrate();
  }
  CalcAndShowTotal();
}

void HDCalc::Audio_Click(int index) {
  CalcAudioRate();
  record_.HDAudioType = static_cast<std::int16_t>(index);
  MP2->setEnabled(index == Compressed);
  CalcAndShowTotal();
}

void HDCalc::MP2_Click() { MP2_KeyUp(); }
void HDCalc::MP2_KeyUp() {
  const double kiloBits = RepairAndRead(MP2->Field());
  if (!IsEmpty(MP2->Field())) {
    record_.HDAudioBitrate = kiloBits;
  }
  if (Audio.Selected() == Compressed) {
    CalcAudioRate();
  }
  CalcAndShowTotal();
}
// Deliberately counts what it filled in without storing it, and asks no option: the list cannot
// hold the focus unless its option is selected.
void HDCalc::MP2_LostFocus() {
  FillBlank(MP2->Field(), u"1"_s);
  AudioRate = CompressedKiloBytesPerSecond(NumberIn(MP2->Field()));
  CalcAndShowTotal();
}

// Deliberately fills without storing or counting.
void HDCalc::MLength_GotFocus() {
  SelectFirstTen(MLength);
  FillBlank(Video1, u"1"_s);
  FillBlank(Video2, u"1"_s);
}
void HDCalc::MLength_KeyUp() {
  const double minutes = RepairAndRead(MLength);
  CalcVideoByBitrate();
  CalcTotal();
  if (!IsEmpty(MLength)) {
    record_.MovieLength = minutes;
  }
  // Deliberately nothing without a running time, here only: a film by size has a total.
  ShowTotal(minutes > 0);
}
void HDCalc::MLength_LostFocus() {
  FillBlank(MLength, u"1"_s);
  MLength_KeyUp();
}
void HDCalc::MLength_MouseDown() {
  FillBlank(Video2, u"1"_s);
  FillBlank(Video1, u"1"_s);
  MLength_KeyUp();
}
void HDCalc::MLength_MouseUp() { RepairText(MLength); }

void HDCalc::MLengthP_MouseDown() { HoldPlus(MLength, &HDCalc::MLength_KeyUp); }
void HDCalc::MLengthP_MouseUp() { spin_.Release(MLength); }
void HDCalc::MLengthM_MouseDown() { HoldMinus(MLength, 1, &HDCalc::MLength_KeyUp); }
void HDCalc::MLengthM_MouseUp() { spin_.Release(MLength); }

void HDCalc::ShowVideoInputs() {
  const bool byBitrate = Video.Selected() == ByBitrate;
  for (auto* control : std::initializer_list<QWidget*>{Video1, Video1P, Video1M}) {
    control->setEnabled(byBitrate);
  }
  for (auto* control : std::initializer_list<QWidget*>{Video2, Video2P, Video2M}) {
    control->setEnabled(!byBitrate);
  }
}

void HDCalc::CalcVideo() {
  VideoMB = Video.Selected() == BySize ? NumberIn(Video2) : 0;
  CalcVideoByBitrate();
}

void HDCalc::CalcVideoByBitrate() {
  if (Video.Selected() == ByBitrate) {
    VideoMB = VideoMegaBytes(NumberIn(Video1), NumberIn(MLength), VideoFactor);
  }
}

void HDCalc::CalcAudioRate() {
  const auto type = Audio.Selected();
  AudioRate = type == Wav44        ? Wav44KiloBytesPerSecond
              : type == Wav48      ? Wav48KiloBytesPerSecond
              : type == Compressed ? CompressedKiloBytesPerSecond(NumberIn(MP2->Field()))
                                   : 0;
}

void HDCalc::CalcTotal() { TotalMB = TotalMegaBytes(NumberIn(MLength), AudioRate, VideoMB); }

void HDCalc::ShowTotal(bool hasRunningTime) {
  const bool isShown = hasRunningTime && TotalMB > 0;
  Result->Write(isShown ? ToQString(Formatted(TotalMB, "#")) : QString());
}

void HDCalc::CalcAndShowTotal() {
  CalcTotal();
  ShowTotal(true);
}

void HDCalc::HoldPlus(TextField* field, void (HDCalc::*keyUp)()) {
  spin_.PressPlus(field, std::nullopt, [this, keyUp] { (this->*keyUp)(); });
}

void HDCalc::HoldMinus(TextField* field, double lowest, void (HDCalc::*keyUp)()) {
  spin_.PressMinus(field, lowest, [this, keyUp] { (this->*keyUp)(); });
}

}  // namespace brindle
