// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "audiodisk/audio_calc.h"

#include <memory>
#include <optional>

#include <QString>

#include "audiodisk/audio_bitrate.h"
#include "base/input/form.h"
#include "base/input/form_filler.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/push_button.h"
#include "base/input/results.h"
#include "base/input/spin_button.h"
#include "base/input/spin_hold.h"
#include "base/input/text_field.h"
#include "base/input/wiring.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "base/settings/settings.h"
#include "base/windows/film_form.h"
#include "base/windows/film_text.h"
#include "base/windows/interleaving_label.h"
#include "base/windows/overhead_opener.h"
#include "base/windows/services.h"
#include "base/windows/window_list.h"
#include "media/film.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class AudioCalc : public FilmForm, public OverheadOpener {
  Services& services_;
  Settings& record_;
  SpinHold spin_;

  TextField MLength{u"MLength"_s, u"The movie length in minutes"_s};
  SpinButton MLengthP{u"MLengthP"_s, SpinDirection::Plus};
  SpinButton MLengthM{u"MLengthM"_s, SpinDirection::Minus};
  TextField Source{u"Source"_s, u"The size of the video-only file in megabytes"_s};
  SpinButton SourceP{u"SourceP"_s, SpinDirection::Plus};
  SpinButton SourceM{u"SourceM"_s, SpinDirection::Minus};
  TextField Target{u"Target"_s, u"The target size for the final AVI in Megabytes"_s};
  SpinButton TargetP{u"TargetP"_s, SpinDirection::Plus};
  SpinButton TargetM{u"TargetM"_s, SpinDirection::Minus};
  InterleavingLabel Interl{record_};
  PushButton Command1{u"Command1"_s, u"Advanced"_s, u"Advanced interleaving settings"_s};
  ResultField Result{u"Result"_s, u"The maximum bitrate that can be used for the audio"_s, 6};
  ValueLabel Qual{u"Qual"_s,
                  u"Bitrate rounded to the nearest MP3 standard"_s,
                  {u"160kbps (Very Good)"_s, u"224kbps (Excellent)"_s, u"320kbps (Maximum)"_s}};

 public:
  explicit AudioCalc(Services& services)
      : FilmForm(services, u"AudioCalc"_s, u"Velbrin's Brindle 2 : Audio Bitrate Calc"_s),
        services_(services),
        record_(services.record),
        spin_(*this, services.clock, services.record) {
    MLength.setText(u"100"_s);
    Source.setText(u"550"_s);
    Target.setText(u"650"_s);
    Qual.Write(u"128kbps (Good)"_s);

    // clang-format off
    LayOutAboveFilm(
      Down({
        MakeFrame(u"Frame1"_s, u"Settings"_s, {
          {MakeLabel(u"Label1"_s, u"Movie Length (min) :"_s), {&MLength, &MLengthP, &MLengthM}},
          {MakeLabel(u"Label3"_s, u"Video Only AVI Size (MB) :"_s), {&Source, &SourceP, &SourceM}},
          {MakeLabel(u"Label2"_s, u"Target AVI Size (MB) :"_s), {&Target, &TargetP, &TargetM}},
          {MakeLabel(u"Label8"_s, u"Interleaving:"_s, Interl.toolTip()), {&Interl, &Command1}},
        }),
        MakeFrame({}, {
          {MakeLabel(u"Label4"_s, u"Resulting Bitrate :"_s),
                    {&Result, MakeLabel(u"Label6"_s, u"kbps"_s)}},
          {MakeLabel(u"Label7"_s, u"Suggested Bitrate :"_s), {&Qual}},
        }),
      }));
    // clang-format on

    WireEvents();
    Form_Load();
    Focus().Begin(&MLength);
  }

  void Recompute() override { CalcAudioBitrate(); }
  void ShowInterleaving() override { Interl.Refresh(); }

 protected:
  void FillFrom(const Film& film, FormFiller& filler) override {
    FillIf(filler, MLength, MinutesOf(film));
    if (film.video) {
      filler.Type(Source, MegaBytesText(film.video->bytes));
    }
  }

 private:
  void WireEvents() {
    using Self = AudioCalc;
    const Wires on(this);
    // clang-format off
    on(MLength).GotFocus(&Self::MLength_GotFocus).KeyUp(&Self::MLength_KeyUp)
      .MouseDown(&Self::MLength_MouseDown).MouseUp(&Self::MLength_MouseUp)
      .LostFocus(&Self::MLength_LostFocus).Arrows(MLengthP, MLengthM);
    on(MLengthP).MouseDown(&Self::MLengthP_MouseDown).MouseUp(&Self::MLengthP_MouseUp);
    on(MLengthM).MouseDown(&Self::MLengthM_MouseDown).MouseUp(&Self::MLengthM_MouseUp);
    on(Source).GotFocus(&Self::Source_GotFocus).KeyUp(&Self::Source_KeyUp)
      .MouseDown(&Self::Source_MouseDown).MouseUp(&Self::Source_MouseUp).Arrows(SourceP, SourceM);
    on(SourceP).MouseDown(&Self::SourceP_MouseDown).MouseUp(&Self::SourceP_MouseUp);
    on(SourceM).MouseDown(&Self::SourceM_MouseDown).MouseUp(&Self::SourceM_MouseUp);
    on(Target).GotFocus(&Self::Target_GotFocus).KeyUp(&Self::Target_KeyUp)
      .MouseDown(&Self::Target_MouseDown).MouseUp(&Self::Target_MouseUp).Arrows(TargetP, TargetM);
    on(TargetP).MouseDown(&Self::TargetP_MouseDown).MouseUp(&Self::TargetP_MouseUp);
    on(TargetM).MouseDown(&Self::TargetM_MouseDown).MouseUp(&Self::TargetM_MouseUp);
    on(Command1).Click(&Self::Command1_Click);
    // clang-format on
  }

  void Form_Load() {
    if (record_.MovieLength == 0) {
      record_.MovieLength = 1;
    }
    Interl.Refresh();
    WriteNumber(Target, record_.TargetAVISize);
    WriteNumber(Source, record_.VideoOnlySize);
    WriteMinutes(MLength, record_.MovieLength);
    CalcAudioBitrate();
  }

  void MLength_GotFocus() { SelectFirstTen(MLength); }
  void MLength_KeyUp() { FillAndCalc(); }
  void MLength_MouseDown() { FillAndCalc(); }
  // Deliberately stores without recomputing: the press has recomputed already, and a release has
  // never done more than repair and store its own text (AudioLettingGo, RepairsItsOwnTextOnly).
  void MLength_MouseUp() {
    RepairText(MLength);
    if (!IsEmpty(MLength)) {
      record_.MovieLength = NumberIn(MLength);
    }
  }
  // Deliberately does not recompute: the result stays blank next to a 1 that the user did not type
  // (AudioTyping, ARunningTimeLeftEmptyBecomesOneWithoutRecomputing).
  void MLength_LostFocus() {
    if (LeadingNumberIn(MLength) == 0) {
      MLength.Write(u"1"_s);
    }
    record_.MovieLength = LeadingNumberIn(MLength);
  }

  void MLengthP_MouseDown() { HoldPlus(MLength, std::nullopt); }
  void MLengthP_MouseUp() { spin_.Release(MLength); }
  void MLengthM_MouseDown() { HoldMinus(MLength, 1); }
  void MLengthM_MouseUp() { spin_.Release(MLength); }

  void Source_GotFocus() { SelectFirstTen(Source); }
  void Source_KeyUp() { FillAndCalc(); }
  void Source_MouseDown() { FillAndCalc(); }
  void Source_MouseUp() { RepairText(Source); }

  void SourceP_MouseDown() { HoldPlus(Source, ToInteger32(NumberIn(Target))); }
  void SourceP_MouseUp() { spin_.Release(Source); }
  void SourceM_MouseDown() { HoldMinus(Source, 1); }
  void SourceM_MouseUp() { spin_.Release(Source); }

  void Target_GotFocus() { SelectFirstTen(Target); }
  void Target_KeyUp() { FillAndCalc(); }
  void Target_MouseDown() { FillAndCalc(); }
  void Target_MouseUp() { RepairText(Target); }

  void TargetP_MouseDown() { HoldPlus(Target, std::nullopt); }
  void TargetP_MouseUp() { spin_.Release(Target); }
  void TargetM_MouseDown() { HoldMinus(Target, ToInteger32(NumberIn(Source))); }
  void TargetM_MouseUp() { spin_.Release(Target); }

  void Command1_Click() {
    record_.AdvancedCaller = OpenedByAudio;
    services_.windows.Open(WindowId::Advanced);
  }

  void HoldPlus(TextField& field, std::optional<double> highest) {
    spin_.PressPlus(field, highest, [this] { CalcAudioBitrate(); });
  }

  void HoldMinus(TextField& field, std::optional<double> lowest) {
    spin_.PressMinus(field, lowest, [this] { CalcAudioBitrate(); });
  }

  // Deliberately fills even the field that is being edited, so that an emptied size counts as 1 at
  // once (AudioTyping, AClearedTargetBecomesOneThoughItIsBeingEdited).
  void FillAndCalc() {
    FillBlank(Target, u"1"_s);
    FillBlank(Source, u"1"_s);
    CalcAudioBitrate();
  }

  void CalcAudioBitrate() {
    record_.MovieLength = RepairAndRead(MLength);
    record_.VideoOnlySize = RepairAndRead(Source);
    record_.TargetAVISize = RepairAndRead(Target);
    const double bitrate = ComputeAudioBitrate({
        .targetMegaBytes = record_.TargetAVISize,
        .videoMegaBytes = record_.VideoOnlySize,
        .interleaveKiloBytesPerSecond = record_.AudioInterleaveOverhead,
        .minutes = record_.MovieLength,
    });
    Result.Write(bitrate > 0 ? ToQString(Formatted(bitrate, "#")) : QString());
    const auto suggestion = SuggestedBitrate(bitrate);
    Qual.Write(QString::fromLatin1(suggestion.data(), static_cast<qsizetype>(suggestion.size())));
  }
};

}  // namespace

std::unique_ptr<Form> MakeAudioCalc(Services& services) {
  return std::make_unique<AudioCalc>(services);
}

}  // namespace brindle
