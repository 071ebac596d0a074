// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "audiodisk/audio_calc.h"

#include <optional>

#include <QPushButton>
#include <QString>

#include "audiodisk/audio_bitrate.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/wiring.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "base/windows/window_list.h"

namespace brindle {

using namespace Qt::StringLiterals;

AudioCalc::AudioCalc(Services& services)
    : Form(u"AudioCalc"_s, u"Velbrin's Brindle 2 : Audio Bitrate Calc"_s),
      services_(services),
      record_(services.record),
      spin_(*this, services.clock, services.record),
      MLength(new TextField(u"MLength"_s, u"The movie length in minutes"_s)),
      MLengthP(new SpinButton(u"MLengthP"_s, SpinDirection::Plus)),
      MLengthM(new SpinButton(u"MLengthM"_s, SpinDirection::Minus)),
      Source(new TextField(u"Source"_s, u"The size of the video-only file in megabytes"_s)),
      SourceP(new SpinButton(u"SourceP"_s, SpinDirection::Plus)),
      SourceM(new SpinButton(u"SourceM"_s, SpinDirection::Minus)),
      Target(new TextField(u"Target"_s, u"The target size for the final AVI in Megabytes"_s)),
      TargetP(new SpinButton(u"TargetP"_s, SpinDirection::Plus)),
      TargetM(new SpinButton(u"TargetM"_s, SpinDirection::Minus)),
      Interl(new InterleavingLabel(services.record)),
      Command1(MakeButton(u"Command1"_s, u"Advanced"_s, u"Advanced interleaving settings"_s)),
      Result(
          new ResultField(u"Result"_s, u"The maximum bitrate that can be used for the audio"_s, 6)),
      Qual(new ValueLabel(
          u"Qual"_s, u"Bitrate rounded to the nearest MP3 standard"_s,
          {u"160kbps (Very Good)"_s, u"224kbps (Excellent)"_s, u"320kbps (Maximum)"_s})) {
  MakeLayout();
  WireEvents();
  Form_Load();
  Focus().Begin(MLength);
}

void AudioCalc::MakeLayout() {
  MLength->setText(u"100"_s);
  Source->setText(u"550"_s);
  Target->setText(u"650"_s);
  Qual->Write(u"128kbps (Good)"_s);

  // clang-format off
  LayOut(this,
    Down({
      MakeFrame(u"Frame1"_s, u"Settings"_s, {
        {MakeLabel(u"Label1"_s, u"Movie Length (min) :"_s), {MLength, MLengthP, MLengthM}},
        {MakeLabel(u"Label3"_s, u"Video Only AVI Size (MB) :"_s), {Source, SourceP, SourceM}},
        {MakeLabel(u"Label2"_s, u"Target AVI Size (MB) :"_s), {Target, TargetP, TargetM}},
        {MakeLabel(u"Label8"_s, u"Interleaving:"_s, Interl->toolTip()), {Interl, Command1}},
      }),
      MakeFrame({}, {
        {MakeLabel(u"Label4"_s, u"Resulting Bitrate :"_s),
                  {Result, MakeLabel(u"Label6"_s, u"kbps"_s)}},
        {MakeLabel(u"Label7"_s, u"Suggested Bitrate :"_s), {Qual}},
      }),
    }));
  // clang-format on
}

void AudioCalc::WireEvents() {
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

void AudioCalc::Form_Load() {
  if (record_.MovieLength == 0) {
    record_.MovieLength = 1;
  }
  Interl->Refresh();
  WriteNumber(Target, record_.TargetAVISize);
  WriteNumber(Source, record_.VideoOnlySize);
  WriteMinutes(MLength, record_.MovieLength);
  CalcAudioBitrate();
}

void AudioCalc::MLength_GotFocus() { SelectFirstTen(MLength); }
void AudioCalc::MLength_KeyUp() { FillAndCalc(); }
void AudioCalc::MLength_MouseDown() { FillAndCalc(); }
// Deliberately stores without recomputing.
void AudioCalc::MLength_MouseUp() {
  RepairText(MLength);
  if (!IsEmpty(MLength)) {
    record_.MovieLength = NumberIn(MLength);
  }
}
// Deliberately does not recompute.
void AudioCalc::MLength_LostFocus() {
  if (LeadingNumberIn(MLength) == 0) {
    MLength->Write(u"1"_s);
  }
  record_.MovieLength = LeadingNumberIn(MLength);
}

void AudioCalc::MLengthP_MouseDown() { HoldPlus(MLength, std::nullopt); }
void AudioCalc::MLengthP_MouseUp() { spin_.Release(MLength); }
void AudioCalc::MLengthM_MouseDown() { HoldMinus(MLength, 1); }
void AudioCalc::MLengthM_MouseUp() { spin_.Release(MLength); }

void AudioCalc::Source_GotFocus() { SelectFirstTen(Source); }
void AudioCalc::Source_KeyUp() { FillAndCalc(); }
void AudioCalc::Source_MouseDown() { FillAndCalc(); }
void AudioCalc::Source_MouseUp() { RepairText(Source); }

void AudioCalc::SourceP_MouseDown() { HoldPlus(Source, ToInteger32(NumberIn(Target))); }
void AudioCalc::SourceP_MouseUp() { spin_.Release(Source); }
void AudioCalc::SourceM_MouseDown() { HoldMinus(Source, 1); }
void AudioCalc::SourceM_MouseUp() { spin_.Release(Source); }

void AudioCalc::Target_GotFocus() { SelectFirstTen(Target); }
void AudioCalc::Target_KeyUp() { FillAndCalc(); }
void AudioCalc::Target_MouseDown() { FillAndCalc(); }
void AudioCalc::Target_MouseUp() { RepairText(Target); }

void AudioCalc::TargetP_MouseDown() { HoldPlus(Target, std::nullopt); }
void AudioCalc::TargetP_MouseUp() { spin_.Release(Target); }
void AudioCalc::TargetM_MouseDown() { HoldMinus(Target, ToInteger32(NumberIn(Source))); }
void AudioCalc::TargetM_MouseUp() { spin_.Release(Target); }

void AudioCalc::Command1_Click() {
  record_.AdvancedCaller = OpenedByAudio;
  services_.windows.Open(WindowId::Advanced);
}

void AudioCalc::Recompute() { CalcAudioBitrate(); }

void AudioCalc::ShowInterleaving() { Interl->Refresh(); }

void AudioCalc::CalcAudioBitrate() {
  record_.MovieLength = RepairAndRead(MLength);
  record_.VideoOnlySize = RepairAndRead(Source);
  record_.TargetAVISize = RepairAndRead(Target);
  const double bitrate = ComputeAudioBitrate({
      .targetMegaBytes = record_.TargetAVISize,
      .videoMegaBytes = record_.VideoOnlySize,
      .interleaveKiloBytesPerSecond = record_.AudioInterleaveOverhead,
      .minutes = record_.MovieLength,
  });
  Result->Write(bitrate > 0 ? ToQString(Formatted(bitrate, "#")) : QString());
  ShowAudioQuality(bitrate);
}

void AudioCalc::ShowAudioQuality(double bitrate) {
  const auto suggestion = SuggestedBitrate(bitrate);
  Qual->Write(QString::fromLatin1(suggestion.data(), static_cast<qsizetype>(suggestion.size())));
}

// Deliberately fills the one that is being edited, too.
void AudioCalc::FillAndCalc() {
  FillBlank(Target, u"1"_s);
  FillBlank(Source, u"1"_s);
  CalcAudioBitrate();
}

void AudioCalc::HoldPlus(TextField* field, std::optional<double> highest) {
  spin_.PressPlus(field, highest, [this] { CalcAudioBitrate(); });
}

void AudioCalc::HoldMinus(TextField* field, std::optional<double> lowest) {
  spin_.PressMinus(field, lowest, [this] { CalcAudioBitrate(); });
}

}  // namespace brindle
