// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/bitrate_calc.h"

#include <cstdint>
#include <memory>
#include <optional>

#include <QString>

#include "base/input/common_choices.h"
#include "base/input/editable_list.h"
#include "base/input/form.h"
#include "base/input/form_filler.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/option_group.h"
#include "base/input/push_button.h"
#include "base/input/results.h"
#include "base/input/running_time_fields.h"
#include "base/input/spin_button.h"
#include "base/input/spin_hold.h"
#include "base/input/text_field.h"
#include "base/input/wiring.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "base/numbers/stepping.h"
#include "base/settings/settings.h"
#include "base/windows/film_form.h"
#include "base/windows/film_text.h"
#include "base/windows/interleaving_label.h"
#include "base/windows/overhead_opener.h"
#include "base/windows/services.h"
#include "base/windows/window_list.h"
#include "media/film.h"
#include "video/size_label.h"
#include "video/time_fields.h"
#include "video/video_bitrate.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class BitrateCalc : public FilmForm, public OverheadOpener {
  enum Spin { MLengthPHeld = 1, MLengthMHeld, ExtraPHeld, ExtraMHeld };

  Services& services_;
  Settings& record_;
  SpinHold spin_;
  double DivXFactor = 1;
  bool EditingSeconds = false;

  EditableList Audio{u"Audio"_s, u"Audio bitrate in kbps (assumes constant bitrate)"_s};
  EditableList CDs{u"CDs"_s, u"Number of CD's to fit the movie on"_s};
  TextField MLength{u"MLength"_s, u"Movie length in minutes"_s};
  SpinButton MLengthP{u"MLengthP"_s, SpinDirection::Plus};
  SpinButton MLengthM{u"MLengthM"_s, SpinDirection::Minus};
  TextField Time1{u"Time1"_s, u"Movie running time (Hours)"_s};
  TextField Time2{u"Time2"_s, u"Movie running time (Minutes)"_s};
  TextField Time3{u"Time3"_s, u"Movie running time (Seconds)"_s};
  RunningTimeFields time_{Time1, Time2, Time3};
  EditableList Capacity{u"Capacity"_s,
                        u"Size of the storage medium, or AVI target size in Megabytes"_s};
  TextField Extra{u"Extra"_s,
                  u"Reserve diskspace in Megabytes for extra material (Trailers, menus...)"_s};
  SpinButton ExtraP{u"ExtraP"_s, SpinDirection::Plus};
  SpinButton ExtraM{u"ExtraM"_s, SpinDirection::Minus};
  OptionGroup DivX{u"DivX"_s};
  PushButton Advance{u"Advance"_s, u"Advanced"_s, u"Advanced interleaving settings"_s};
  InterleavingLabel Interl{record_};
  ResultField Result{u"Result"_s,
                     u"Video bitrate setting for DivX 3 (low-motion) or DivX 4/5 (2-pass)"_s, 6};
  SizeLabel VideoSize{u"Stat(0)"_s, u"Total size of the video."_s};
  SizeLabel AudioSize{u"Stat(1)"_s, u"Total size of the audio."_s};
  SizeLabel OverheadSize{u"Stat(2)"_s, u"Total size of the AVI overhead."_s};
  ValueLabel Qual{u"Qual"_s,
                  u"Estimated quality is a very coarse estimation for a 640x... resolution"_s,
                  {u"Max. setting is 10000"_s}};

 public:
  explicit BitrateCalc(Services& services)
      : FilmForm(services, u"BitrateCalc"_s, u"Velbrin's Brindle 2 : Video Bitrate Calc"_s),
        services_(services),
        record_(services.record),
        spin_(*this, services.clock, services.record) {
    const auto timeLabel = u"Hr:Min:Secs :"_s;
    const auto divXLabel = u"DivX version :"_s;
    NameByTooltip(timeLabel, {&Time1, &Time2, &Time3});
    for (auto* part : {&Time1, &Time2, &Time3}) {
      part->SetVisibleDigits(5);
    }
    Time3.setText(u"00.00"_s);
    Qual.Write(u"Medium"_s);

    // clang-format off
    LayOutAboveFilm(
      Tiles({
        {
          MakeFrame(u"Basic Settings"_s, {
            {u"Audio Bitrate (kbps) :"_s, {&Audio}},
            {u"No.Of CD's :"_s, {&CDs}},
            {u"Movie Length (Min) :"_s, {&MLength, &MLengthP, &MLengthM}},
            {timeLabel, {&Time1, &Time2, &Time3}},
          }),
          MakeFrame(u"Extra Settings"_s, {
            {u"CD Capacity (MB) :"_s, {&Capacity}},
            {u"Extra material (MB) :"_s, {&Extra, &ExtraP, &ExtraM}},
            {divXLabel, AddDivXVersions(DivX, divXLabel)},
            {u"Interleaving:"_s, {&Interl, &Advance}},
          }),
        },
        {
          MakeFrame({}, {
            {u"Estimated Video Bitrate :"_s, {&Result, MakeLabel(u"kbps"_s)}},
            {u"Estimated Quality :"_s, {&Qual}},
          }),
          MakeFrame({}, {
            {u"Video:"_s, {&VideoSize}},
            {u"Audio:"_s, {&AudioSize}},
            {u"Overhead:"_s, {&OverheadSize}},
          }),
        },
      }));
    // clang-format on

    WireEvents();
    Form_Load();
    Focus().Begin(&Audio);
  }

  void Recompute() override { CalcVideoBitrate(); }
  void ShowInterleaving() override { Interl.Refresh(); }

 protected:
  void FillFrom(const Film& film, FormFiller& filler) override {
    FillTime(filler, film, MLength, {&Time1, &Time2, &Time3});
    FillIf(filler, Audio, AudioBitrateOf(film));
  }

 private:
  void WireEvents() {
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
    on(DivX).Click(&Self::DivX_Click);
    on(Advance).Click(&Self::Advance_Click);
    // clang-format on
  }

  void Form_Load() {
    if (record_.MovieLength == 0) {
      record_.MovieLength = 1;
    }
    WriteNumber(MLength, record_.MovieLength);
    WriteNumber(*Audio.Field(), record_.AudioBitrate);
    WriteNumber(*CDs.Field(), record_.CDCount);
    WriteNumber(*Capacity.Field(), record_.CDCapacity);
    WriteNumber(Extra, record_.ExtraMaterial);
    WriteMinutes(MLength, record_.MovieLength);
    DivX.Select(record_.DivXOption);
    DivXFactor = DivXFactorOf(record_.DivXOption);
    Audio.Fill(UsualAudioBitrates());
    CDs.Fill({u"1"_s, u"2"_s, u"3"_s, u"4"_s});
    Capacity.Fill({u"648"_s, u"650"_s, u"654"_s, u"700"_s, u"800"_s, u"880"_s});
    Interl.Refresh();
    CalcVideoBitrate();
  }

  void Audio_Click() { CalcVideoBitrate(); }
  void Audio_KeyUp() { CalcVideoBitrate(); }
  void Audio_LostFocus() { CalcVideoBitrate(); }
  void Audio_GotFocus() { FillBlankFields(Audio.Field()); }

  void CDs_Click() { CalcVideoBitrate(); }
  void CDs_KeyUp() { CalcVideoBitrate(); }
  void CDs_GotFocus() { FillBlankFields(CDs.Field()); }
  void CDs_LostFocus() {
    FillBlankFields();
    CalcVideoBitrate();
  }

  // Deliberately fills no blanks, unlike its neighbours: which event fills which field stays as it
  // has always been (BitrateHandlers).
  void MLength_GotFocus() { SelectFirstTen(MLength); }
  void MLength_KeyUp() {
    FillBlankFields(&MLength);
    CalcVideoBitrate();
  }
  void MLength_MouseDown() {
    FillBlankFields(&MLength);
    CalcVideoBitrate();
  }
  void MLength_LostFocus() {
    FillBlankFields();
    CalcVideoBitrate();
  }

  void MLengthP_MouseDown() { Hold(MLengthPHeld, MLength, StepUp, std::nullopt); }
  void MLengthP_MouseUp() { spin_.Release(MLength); }
  void MLengthM_MouseDown() { Hold(MLengthMHeld, MLength, StepDown, 1); }
  void MLengthM_MouseUp() { spin_.Release(MLength); }

  void Time1_GotFocus() { SelectFirstTen(Time1); }
  void Time1_KeyPress() { RepairHours(Time1); }
  void Time1_KeyUp() {
    FillBlankFields(&MLength);
    RepairText(Time1);
    RepairSign(Time1);
    RepairHours(Time1);
    TimeToLengthUnlessEmpty(Time1);
  }
  void Time1_MouseDown() {
    FillBlankFields(&MLength);
    TimeToLengthUnlessEmpty(Time1);
  }
  void Time1_LostFocus() { TimeToLengthUnlessEmpty(Time1); }

  void Time2_GotFocus() { SelectFirstTen(Time2); }
  void Time2_KeyPress() { RepairMinutes(Time2); }
  // Deliberately repairs nothing before TimeToLength() does, unlike the hours: which event repairs
  // which field stays as it has always been.
  void Time2_KeyUp() {
    FillBlankFields(&MLength);
    TimeToLengthUnlessEmpty(Time2);
  }
  void Time2_MouseDown() {
    FillBlankFields(&MLength);
    TimeToLengthUnlessEmpty(Time2);
  }
  void Time2_LostFocus() { TimeToLengthUnlessEmpty(Time2); }

  void Time3_GotFocus() { SelectFirstTen(Time3); }
  void Time3_KeyPress() { RepairSeconds(Time3); }
  void Time3_KeyUp() {
    FillBlankFields(&MLength);
    EditingSeconds = true;
    TimeToLengthUnlessEmpty(Time3);
    EditingSeconds = false;
  }
  void Time3_MouseDown() {
    FillBlankFields(&MLength);
    TimeToLengthUnlessEmpty(Time3);
  }
  void Time3_MouseUp() { RepairSeconds(Time3); }
  void Time3_LostFocus() {
    TimeToLengthUnlessEmpty(Time3);
    RewriteFormatted(Time3, "00.00");
  }

  void Capacity_Click() { CalcVideoBitrate(); }
  void Capacity_KeyUp() { CalcVideoBitrate(); }
  void Capacity_GotFocus() { FillBlankFields(Capacity.Field()); }
  void Capacity_LostFocus() {
    FillBlankFields();
    CalcVideoBitrate();
  }

  void Extra_GotFocus() {
    SelectFirstTen(Extra);
    FillBlankFields(&Extra);
  }
  void Extra_KeyUp() { CalcVideoBitrate(); }
  void Extra_MouseUp() { CalcVideoBitrate(); }

  void ExtraP_MouseDown() {
    Hold(ExtraPHeld, Extra, StepUp, ToInteger32(NumberIn(*Capacity.Field())));
  }
  void ExtraP_MouseUp() { spin_.Release(Extra); }
  void ExtraM_MouseDown() { Hold(ExtraMHeld, Extra, StepDown, 0); }
  void ExtraM_MouseUp() { spin_.Release(Extra); }

  void DivX_Click(int index) {
    record_.DivXOption = static_cast<std::int16_t>(index);
    DivXFactor = DivXFactorOf(record_.DivXOption);
    CalcVideoBitrate();
  }

  void Advance_Click() {
    record_.AdvancedCaller = OpenedByVideo;
    services_.windows.Open(WindowId::Advanced);
  }

  void TimeToLengthUnlessEmpty(const TextField& field) {
    if (!IsEmpty(field)) {
      TimeToLength();
    }
  }

  void TimeToLength() {
    record_.MovieLength = RepairedMinutes(time_);
    if (record_.MovieLength == 0) {
      PutIn(MLength, u"1"_s);
      record_.MovieLength = 1;
      PutIn(Time2, u"1"_s);
    }
    WriteMinutes(MLength, record_.MovieLength);
    CalcVideoBitrate();
  }

  void LengthToTime() {
    // A number that the user has just begun, even a 0 with its period, counts as 0 for now.
    const bool isBegun = MLength.IsBeingEdited() && MLength.text().contains(u'.');
    if (ShownNumberIn(MLength) == 0 && !isBegun && !IsJustBegun(MLength.text().toStdString())) {
      PutIn(MLength, u"1"_s);
    }
    ShowTime(time_, NumberIn(MLength), EditingSeconds);
  }

  // Puts its default into every empty field except the one that is being edited.
  void FillBlankFields(const TextField* editing = nullptr) {
    for (auto* field : {Audio.Field(), Capacity.Field(), CDs.Field(), &Extra, &MLength}) {
      const bool mayBeNothing = field == Audio.Field() || field == &Extra;
      if (field != editing) {
        FillBlank(*field, mayBeNothing ? u"0"_s : u"1"_s);
      }
    }
  }

  void Hold(Spin state, TextField& field, double (*step)(double, std::optional<double>),
            std::optional<double> limit) {
    spin_.Press({state, &field, step, limit, [this] { CalcVideoBitrate(); }});
  }

  void RateQuality(double bitrate) {
    if (const auto rating = QualityRating(bitrate, record_.DivXOption)) {
      Qual.Write(QString::fromLatin1(rating->data(), static_cast<qsizetype>(rating->size())));
    }
  }

  void CalcVideoBitrate() {
    record_.AudioBitrate = RepairAndRead(*Audio.Field());
    record_.CDCapacity = RepairAndRead(*Capacity.Field());
    record_.CDCount = ToInteger16(RepairAndRead(*CDs.Field()));
    record_.ExtraMaterial = RepairAndRead(Extra);
    RepairText(MLength);
    if (!IsEmpty(MLength)) {
      // Deliberately before the sign is repaired and the running time stored: the three fields show
      // a pasted -5 as a negative time, as they always have (BitrateCalcTest,
      // TheTimeFieldsOfANegativeRunningTimeAreTakenBeforeItsSignIsRepaired).
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
    Result.Write(result.kiloBits > 0 ? ToQString(Formatted(result.kiloBits, "#")) : QString());
    VideoSize.WriteSize(result.videoMegaBytes);
    AudioSize.WriteSize(result.audioMegaBytes);
    OverheadSize.WriteSize(result.overheadMegaBytes);
    RateQuality(result.kiloBits);
  }
};

}  // namespace

std::unique_ptr<Form> MakeBitrateCalc(Services& services) {
  return std::make_unique<BitrateCalc>(services);
}

}  // namespace brindle
