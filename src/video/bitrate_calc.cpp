// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/bitrate_calc.h"

#include <cmath>
#include <cstddef>
#include <optional>

#include <QPushButton>
#include <QString>
#include <QStringList>

#include "base/input/common_choices.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/wiring.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "base/numbers/stepping.h"
#include "base/windows/window_list.h"
#include "video/time_fields.h"
#include "video/video_bitrate.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

const auto WidestSize = u"8888888.8MB"_s;

// A size that is 0 or negative, or out of range, is shown as nothing.
QString SizeText(double megaBytes) {
  if (!std::isfinite(megaBytes) || megaBytes <= 0) {
    return {};
  }
  return ToQString(Formatted(megaBytes, "#.0")) + u"MB"_s;
}

}  // namespace

BitrateCalc::BitrateCalc(Services& services)
    : Form(u"BitrateCalc"_s, u"Velbrin's Brindle 2 : Video Bitrate Calc"_s),
      services_(services),
      record_(services.record),
      spin_(*this, services.clock, services.record),
      Audio(new EditableList(u"Audio"_s, u"Audio bitrate in kbps (assumes constant bitrate)"_s)),
      CDs(new EditableList(u"CDs"_s, u"Number of CD's to fit the movie on"_s)),
      MLength(new TextField(u"MLength"_s, u"Movie length in minutes"_s)),
      MLengthP(new SpinButton(u"MLengthP"_s, SpinDirection::Plus)),
      MLengthM(new SpinButton(u"MLengthM"_s, SpinDirection::Minus)),
      Time1(new TextField(u"Time1"_s, u"Movie running time (Hours)"_s)),
      Time2(new TextField(u"Time2"_s, u"Movie running time (Minutes)"_s)),
      Time3(new TextField(u"Time3"_s, u"Movie running time (Seconds)"_s)),
      time_(Time1, Time2, Time3),
      Capacity(new EditableList(u"Capacity"_s,
                                u"Size of the storage medium, or AVI target size in Megabytes"_s)),
      Extra(new TextField(
          u"Extra"_s, u"Reserve diskspace in Megabytes for extra material (Trailers, menus...)"_s)),
      ExtraP(new SpinButton(u"ExtraP"_s, SpinDirection::Plus)),
      ExtraM(new SpinButton(u"ExtraM"_s, SpinDirection::Minus)),
      DivX(u"DivX"_s),
      Advance(MakeButton(u"Advance"_s, u"Advanced"_s, u"Advanced interleaving settings"_s)),
      Interl(new InterleavingLabel(services.record)),
      Result(new ResultField(
          u"Result"_s, u"Video bitrate setting for DivX 3 (low-motion) or DivX 4/5 (2-pass)"_s, 6)),
      Stat{new ValueLabel(u"Stat(0)"_s, u"Total size of the video."_s, {WidestSize}),
           new ValueLabel(u"Stat(1)"_s, u"Total size of the audio."_s, {WidestSize}),
           new ValueLabel(u"Stat(2)"_s, u"Total size of the AVI overhead."_s, {WidestSize})},
      Qual(new ValueLabel(
          u"Qual"_s, u"Estimated quality is a very coarse estimation for a 640x... resolution"_s,
          {u"Max. setting is 10000"_s})) {
  MakeLayout();
  WireEvents();
  Form_Load();
  Focus().Begin(Audio);
}

void BitrateCalc::MakeLayout() {
  const auto timeLabel = u"Hr:Min:Secs :"_s;
  const auto divXLabel = u"DivX version :"_s;
  NameByTooltip(timeLabel, {Time1, Time2, Time3});
  for (auto* part : {Time1, Time2, Time3}) {
    part->SetVisibleDigits(5);
  }
  Time3->setText(u"00.00"_s);
  Qual->Write(u"Medium"_s);

  // clang-format off
  LayOut(this,
    Tiles({
      {
        MakeFrame(u"Basic Settings"_s, {
          {u"Audio Bitrate (kbps) :"_s, {Audio}},
          {u"No.Of CD's :"_s, {CDs}},
          {u"Movie Length (Min) :"_s, {MLength, MLengthP, MLengthM}},
          {timeLabel, {Time1, Time2, Time3}},
        }),
        MakeFrame(u"Extra Settings"_s, {
          {u"CD Capacity (MB) :"_s, {Capacity}},
          {u"Extra material (MB) :"_s, {Extra, ExtraP, ExtraM}},
          {divXLabel, AddDivXVersions(DivX, divXLabel)},
          {u"Interleaving:"_s, {Interl, Advance}},
        }),
      },
      {
        MakeFrame({}, {
          {u"Estimated Video Bitrate :"_s, {Result, MakeLabel(u"kbps"_s)}},
          {u"Estimated Quality :"_s, {Qual}},
        }),
        MakeFrame({}, {
          {u"Video:"_s, {Stat[0]}},
          {u"Audio:"_s, {Stat[1]}},
          {u"Overhead:"_s, {Stat[2]}},
        }),
      },
    }));
  // clang-format on
}

void BitrateCalc::WireEvents() {
  using Self = BitrateCalc;
  const Wires on(this);
  // clang-format off
  on(Audio).Click(&Self::Audio_Click).KeyUp(&Self::Audio_KeyUp).LostFocus(&Self::Audio_LostFocus)
    .GotFocus(&Self::Audio_GotFocus);
  on(CDs).Click(&Self::CDs_Click).KeyUp(&Self::CDs_KeyUp).GotFocus(&Self::CDs_GotFocus)
    .LostFocus(&Self::CDs_LostFocus);
  on(MLength).GotFocus(&Self::MLength_GotFocus).KeyUp(&Self::MLength_KeyUp)
    .MouseDown(&Self::MLength_MouseDown).LostFocus(&Self::MLength_LostFocus)
    .Arrows(MLengthP, MLengthM);
  on(MLengthP).MouseDown(&Self::MLengthP_MouseDown).MouseUp(&Self::MLengthP_MouseUp);
  on(MLengthM).MouseDown(&Self::MLengthM_MouseDown).MouseUp(&Self::MLengthM_MouseUp);
  on(Time1).GotFocus(&Self::Time1_GotFocus).KeyPress(&Self::Time1_KeyPress)
    .KeyUp(&Self::Time1_KeyUp).MouseDown(&Self::Time1_MouseDown).LostFocus(&Self::Time1_LostFocus);
  on(Time2).GotFocus(&Self::Time2_GotFocus).KeyPress(&Self::Time2_KeyPress)
    .KeyUp(&Self::Time2_KeyUp).MouseDown(&Self::Time2_MouseDown).LostFocus(&Self::Time2_LostFocus);
  on(Time3).GotFocus(&Self::Time3_GotFocus).KeyPress(&Self::Time3_KeyPress)
    .KeyUp(&Self::Time3_KeyUp).MouseDown(&Self::Time3_MouseDown).MouseUp(&Self::Time3_MouseUp)
    .LostFocus(&Self::Time3_LostFocus);
  on(Capacity).Click(&Self::Capacity_Click).KeyUp(&Self::Capacity_KeyUp)
    .GotFocus(&Self::Capacity_GotFocus).LostFocus(&Self::Capacity_LostFocus);
  on(Extra).GotFocus(&Self::Extra_GotFocus).KeyUp(&Self::Extra_KeyUp)
    .MouseUp(&Self::Extra_MouseUp).Arrows(ExtraP, ExtraM);
  on(ExtraP).MouseDown(&Self::ExtraP_MouseDown).MouseUp(&Self::ExtraP_MouseUp);
  on(ExtraM).MouseDown(&Self::ExtraM_MouseDown).MouseUp(&Self::ExtraM_MouseUp);
  on(&DivX).Click(&Self::DivX_Click);
  on(Advance).Click(&Self::Advance_Click);
  // clang-format on
}

void BitrateCalc::Form_Load() {
  if (record_.MovieLength == 0) {
    record_.MovieLength = 1;
  }
  WriteNumber(MLength, record_.MovieLength);
  WriteNumber(Audio->Field(), record_.AudioBitrate);
  WriteNumber(CDs->Field(), record_.CDCount);
  WriteNumber(Capacity->Field(), record_.CDCapacity);
  WriteNumber(Extra, record_.ExtraMaterial);
  WriteMinutes(MLength, record_.MovieLength);
  DivX.Select(record_.DivXOption);
  DivXFactor = DivXFactorOf(record_.DivXOption);
  Audio->Fill(UsualAudioBitrates());
  CDs->Fill({u"1"_s, u"2"_s, u"3"_s, u"4"_s});
  Capacity->Fill({u"648"_s, u"650"_s, u"654"_s, u"700"_s, u"800"_s, u"880"_s});
  Interl->Refresh();
  CalcVideoBitrate();
}

void BitrateCalc::Audio_Click() { CalcVideoBitrate(); }
void BitrateCalc::Audio_KeyUp() { CalcVideoBitrate(); }
void BitrateCalc::Audio_LostFocus() { CalcVideoBitrate(); }
void BitrateCalc::Audio_GotFocus() { FillBlankFields(Editing::Audio); }

void BitrateCalc::CDs_Click() { CalcVideoBitrate(); }
void BitrateCalc::CDs_KeyUp() { CalcVideoBitrate(); }
void BitrateCalc::CDs_GotFocus() { FillBlankFields(Editing::CDs); }
void BitrateCalc::CDs_LostFocus() {
  FillBlankFields(Editing::None);
  CalcVideoBitrate();
}

// Deliberately fills no blanks, unlike its neighbours.
void BitrateCalc::MLength_GotFocus() { SelectFirstTen(MLength); }
void BitrateCalc::MLength_KeyUp() {
  FillBlankFields(Editing::MLength);
  CalcVideoBitrate();
}
void BitrateCalc::MLength_MouseDown() {
  FillBlankFields(Editing::MLength);
  CalcVideoBitrate();
}
void BitrateCalc::MLength_LostFocus() {
  FillBlankFields(Editing::None);
  CalcVideoBitrate();
}

void BitrateCalc::MLengthP_MouseDown() { Hold(MLengthPHeld, MLength, StepUp, std::nullopt); }
void BitrateCalc::MLengthP_MouseUp() { spin_.Release(MLength); }
void BitrateCalc::MLengthM_MouseDown() { Hold(MLengthMHeld, MLength, StepDown, 1); }
void BitrateCalc::MLengthM_MouseUp() { spin_.Release(MLength); }

void BitrateCalc::Time1_GotFocus() { SelectFirstTen(Time1); }
void BitrateCalc::Time1_KeyPress() { RepairHours(Time1); }
void BitrateCalc::Time1_KeyUp() {
  FillBlankFields(Editing::MLength);
  RepairText(Time1);
  RepairSign(Time1);
  RepairHours(Time1);
  TimeToLengthUnlessEmpty(Time1);
}
void BitrateCalc::Time1_MouseDown() {
  FillBlankFields(Editing::MLength);
  TimeToLengthUnlessEmpty(Time1);
}
void BitrateCalc::Time1_LostFocus() { TimeToLengthUnlessEmpty(Time1); }

void BitrateCalc::Time2_GotFocus() { SelectFirstTen(Time2); }
void BitrateCalc::Time2_KeyPress() { RepairMinutes(Time2); }
// Deliberately repairs nothing before TimeToLength() does, unlike the hours.
void BitrateCalc::Time2_KeyUp() {
  FillBlankFields(Editing::MLength);
  TimeToLengthUnlessEmpty(Time2);
}
void BitrateCalc::Time2_MouseDown() {
  FillBlankFields(Editing::MLength);
  TimeToLengthUnlessEmpty(Time2);
}
void BitrateCalc::Time2_LostFocus() { TimeToLengthUnlessEmpty(Time2); }

void BitrateCalc::Time3_GotFocus() { SelectFirstTen(Time3); }
void BitrateCalc::Time3_KeyPress() { RepairSeconds(Time3); }
void BitrateCalc::Time3_KeyUp() {
  FillBlankFields(Editing::MLength);
  EditingSeconds = true;
  TimeToLengthUnlessEmpty(Time3);
  EditingSeconds = false;
}
void BitrateCalc::Time3_MouseDown() {
  FillBlankFields(Editing::MLength);
  TimeToLengthUnlessEmpty(Time3);
}
void BitrateCalc::Time3_MouseUp() { RepairSeconds(Time3); }
void BitrateCalc::Time3_LostFocus() {
  TimeToLengthUnlessEmpty(Time3);
  RewriteFormatted(Time3, "00.00");
}

void BitrateCalc::Capacity_Click() { CalcVideoBitrate(); }
void BitrateCalc::Capacity_KeyUp() { CalcVideoBitrate(); }
void BitrateCalc::Capacity_GotFocus() { FillBlankFields(Editing::Capacity); }
void BitrateCalc::Capacity_LostFocus() {
  FillBlankFields(Editing::None);
  CalcVideoBitrate();
}

void BitrateCalc::Extra_GotFocus() {
  SelectFirstTen(Extra);
  FillBlankFields(Editing::Extra);
}
void BitrateCalc::Extra_KeyUp() { CalcVideoBitrate(); }
void BitrateCalc::Extra_MouseUp() { CalcVideoBitrate(); }

void BitrateCalc::ExtraP_MouseDown() {
  Hold(ExtraPHeld, Extra, StepUp, ToInteger32(NumberIn(Capacity->Field())));
}
void BitrateCalc::ExtraP_MouseUp() { spin_.Release(Extra); }
void BitrateCalc::ExtraM_MouseDown() { Hold(ExtraMHeld, Extra, StepDown, 0); }
void BitrateCalc::ExtraM_MouseUp() { spin_.Release(Extra); }

void BitrateCalc::DivX_Click(int index) {
  record_.DivXOption = static_cast<std::int16_t>(index);
  DivXFactor = DivXFactorOf(record_.DivXOption);
  CalcVideoBitrate();
}

void BitrateCalc::Advance_Click() {
  record_.AdvancedCaller = OpenedByVideo;
  services_.windows.Open(WindowId::Advanced);
}

void BitrateCalc::Recompute() { CalcVideoBitrate(); }

void BitrateCalc::ShowInterleaving() { Interl->Refresh(); }

void BitrateCalc::CalcVideoBitrate() {
  record_.AudioBitrate = RepairAndRead(Audio->Field());
  record_.CDCapacity = RepairAndRead(Capacity->Field());
  record_.CDCount = ToInteger16(RepairAndRead(CDs->Field()));
  record_.ExtraMaterial = RepairAndRead(Extra);
  RepairText(MLength);
  if (!IsEmpty(MLength)) {
    // Deliberately before the sign is repaired and the running time stored.
    LengthToTime();
    RepairSign(MLength);
    record_.MovieLength = NumberIn(MLength);
  }

  const auto result = ComputeVideoBitrate({
      .discMegaBytes = record_.CDCapacity,
      .discs = static_cast<double>(record_.CDCount),
      .extraMegaBytes = record_.ExtraMaterial,
      .minutes = record_.MovieLength,
      .audioKiloBits = record_.AudioBitrate,
      .overheadKiloBytesPerSecond = record_.VideoFrameOverhead + record_.AudioInterleaveOverhead,
      .divXFactor = DivXFactor,
  });
  Result->Write(result.kiloBits > 0 ? ToQString(Formatted(result.kiloBits, "#")) : QString());
  Stat[0]->Write(SizeText(result.videoMegaBytes));
  Stat[1]->Write(SizeText(result.audioMegaBytes));
  Stat[2]->Write(SizeText(result.overheadMegaBytes));
  RateQuality(result.kiloBits);
}

void BitrateCalc::RateQuality(double bitrate) {
  if (const auto rating = QualityRating(bitrate, record_.DivXOption)) {
    Qual->Write(QString::fromLatin1(rating->data(), static_cast<qsizetype>(rating->size())));
  }
}

void BitrateCalc::FillBlankFields(Editing editing) {
  struct Default {
    Editing code;
    TextField* field;
    const char* text;
  };
  for (const auto& [code, field, text] :
       {Default{Editing::Audio, Audio->Field(), "0"},
        Default{Editing::Capacity, Capacity->Field(), "1"},
        Default{Editing::CDs, CDs->Field(), "1"}, Default{Editing::Extra, Extra, "0"},
        Default{Editing::MLength, MLength, "1"}}) {
    if (code != editing) {
      FillBlank(field, QString::fromLatin1(text));
    }
  }
}

void BitrateCalc::TimeToLengthUnlessEmpty(const TextField* field) {
  if (!IsEmpty(field)) {
    TimeToLength();
  }
}

void BitrateCalc::TimeToLength() {
  record_.MovieLength = RepairedMinutes(time_);
  if (record_.MovieLength == 0) {
    PutIn(MLength, u"1"_s);
    record_.MovieLength = 1;
    PutIn(Time2, u"1"_s);
  }
  WriteMinutes(MLength, record_.MovieLength);
  CalcVideoBitrate();
}

void BitrateCalc::LengthToTime() {
  // A number just begun, a 0 with its period included, is 0 for now.
  const bool isBegun = MLength->IsBeingEdited() && MLength->text().contains(u'.');
  if (ShownNumberIn(MLength) == 0 && !isBegun && !IsJustBegun(MLength->text().toStdString())) {
    PutIn(MLength, u"1"_s);
  }
  ShowTime(time_, NumberIn(MLength), EditingSeconds);
}

void BitrateCalc::Hold(Spin state, TextField* field, double (*step)(double, std::optional<double>),
                       std::optional<double> limit) {
  spin_.Press({state, field, step, limit, [this] { CalcVideoBitrate(); }});
}

}  // namespace brindle
