// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "audiodisk/hd_calc.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

#include <QString>
#include <QWidget>

#include "audiodisk/disk_space.h"
#include "base/input/common_choices.h"
#include "base/input/editable_list.h"
#include "base/input/form.h"
#include "base/input/form_filler.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/option_group.h"
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
#include "base/windows/services.h"
#include "media/film.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class HDCalc : public FilmForm {
  enum VideoMode { ByBitrate, BySize };
  enum AudioType { Wav44, Wav48, Compressed };

  Settings& record_;
  SpinHold spin_;
  double VideoFactor = 1;  // see VideoFactorOf()
  double AudioRate = 0;    // KB/s
  double VideoMB = 0;      // megabytes of video
  double TotalMB = 0;      // megabytes of everything

  OptionGroup Video{u"Video"_s,
                    {{ByBitrate, u"Bitrate (kbps)"_s, u"Video bitrate in kbps"_s},
                     {BySize, u"Size (MB)"_s, u"Video-only file size in Megabytes"_s}}};
  // In this window a spin button has the tooltip of its field.
  TextField Video1{u"Video1"_s, u"Video bitrate in kbps"_s};
  SpinButton Video1P{u"Video1P"_s, SpinDirection::Plus, Video1.toolTip()};
  SpinButton Video1M{u"Video1M"_s, SpinDirection::Minus, Video1.toolTip()};
  TextField Video2{u"Video2"_s, u"Video-only file size in Megabytes"_s};
  SpinButton Video2P{u"Video2P"_s, SpinDirection::Plus, Video2.toolTip()};
  SpinButton Video2M{u"Video2M"_s, SpinDirection::Minus, Video2.toolTip()};
  OptionGroup DivX{u"DivX"_s};
  TextField MLength{u"MLength"_s, u"Movie length in minutes"_s};
  SpinButton MLengthP{u"MLengthP"_s, SpinDirection::Plus, MLength.toolTip()};
  SpinButton MLengthM{u"MLengthM"_s, SpinDirection::Minus, MLength.toolTip()};
  OptionGroup Audio{
      u"Audio"_s,
      {{Wav44, u"WAV 44.1kHz"_s, u"44.1 kHz uncompressed wave file"_s},
       {Wav48, u"WAV 48kHz"_s, u"48 kHz uncompressed wave file"_s},
       {Compressed, u"Other (kbps):"_s, u"Compressed constant bitrate sound (AC3, mp3...)"_s}}};
  EditableList MP2{u"MP2"_s, u"AC3/Mp3 audio bitrate in kbps"_s};
  ResultLabel Result{u"Result"_s, u"Megabytes of HD space needed for the Audio & Video files"_s, 9};

 public:
  explicit HDCalc(Services& services)
      : FilmForm(services, u"HDCalc"_s, u"Velbrin's Brindle 2 : HD Space Calc"_s),
        record_(services.record),
        spin_(*this, services.clock, services.record) {
    const auto divXLabel = u"DivX version :"_s;
    auto* minutes = MakeLabel(u"Label1"_s, u"minutes"_s);
    const auto length = u"Movie Length"_s;
    NameByLabel(length + u' ' + minutes->text(), {&MLength, &MLengthP, &MLengthM});
    MP2.Field()->setText(u"224"_s);

    // clang-format off
    LayOutAboveFilm(
      Tiles({
        {
          MakeFrame(u"VideoF"_s, u"Video"_s, {
            {Video.At(ByBitrate), {&Video1, &Video1P, &Video1M}},
            {Video.At(BySize), {&Video2, &Video2P, &Video2M}},
            {MakeLabel(u"Label13"_s, divXLabel), AddDivXVersions(DivX, divXLabel)},
          }),
          MakeFrame(u"AudioF"_s, u"Audio"_s, {
            {Audio.At(Wav44), {}},
            {Audio.At(Wav48), {}},
            {Audio.At(Compressed), {&MP2}},
          }),
        },
        {
          MakeFrame(u"MLengthF"_s, length, {
            {{}, {&MLength, &MLengthP, &MLengthM, minutes}},
          }),
          MakeFrame({}, {
            {MakeLabel(u"Label2"_s, u"Hard Disk Space Required (MB) :"_s), {&Result}},
          }),
        },
      }));
    // clang-format on

    WireEvents();
    Form_Load();
    Focus().Begin(Video.TabStop());
  }

 protected:
  // The bitrate is in the kilobits of the codec that is chosen, so that the size comes out right.
  void FillFrom(const Film& film, FormFiller& filler) override {
    FillIf(filler, MLength, MinutesOf(film));
    if (film.video) {
      constexpr double mostBits = 1024;
      FillIf(filler, Video1, VideoBitrateOf(film, mostBits * VideoFactor));
      filler.Type(Video2, MegaBytesText(film.video->bytes));
    }
    if (!film.audio.empty()) {
      const auto type = TypeOf(film.audio);
      filler.Choose(Audio, type);
      if (type == Compressed) {
        FillIf(filler, MP2, AudioBitrateOf(film));
      }
    }
  }

 private:
  void WireEvents() {
    using Self = HDCalc;
    const Wires on(this);
    // clang-format off
    on(Video).Click(&Self::Video_Click);
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
    on(DivX).Click(&Self::DivX_Click);
    on(Audio).Click(&Self::Audio_Click);
    on(MP2).Click(&Self::MP2_Click).KeyUp(&Self::MP2_KeyUp).LostFocus(&Self::MP2_LostFocus);
    on(MLength).GotFocus(&Self::MLength_GotFocus).KeyUp(&Self::MLength_KeyUp)
      .LostFocus(&Self::MLength_LostFocus).MouseDown(&Self::MLength_MouseDown)
      .MouseUp(&Self::MLength_MouseUp).Arrows(MLengthP, MLengthM);
    on(MLengthP).MouseDown(&Self::MLengthP_MouseDown).MouseUp(&Self::MLengthP_MouseUp);
    on(MLengthM).MouseDown(&Self::MLengthM_MouseDown).MouseUp(&Self::MLengthM_MouseUp);
    // clang-format on
  }

  void Form_Load() {
    if (record_.MovieLength == 0) {
      record_.MovieLength = 1;
    }
    DivX.Select(record_.DivXOption);
    // The handler sets this, too, but an unknown option selects nothing, so that no handler runs.
    VideoFactor = VideoFactorOf(record_.DivXOption);
    Video.Select(ToInteger16(record_.HDVideoMode));
    Audio.Select(record_.HDAudioType);
    MP2.Fill(UsualAudioBitrates());
    WriteMinutes(MLength, record_.MovieLength);
    WriteNumber(*MP2.Field(), record_.HDAudioBitrate);
    WriteNumber(Video1, record_.HDVideoBitrate);
    WriteNumber(Video2, record_.VideoOnlySize);
    CalcAudioRate();
    MP2.setEnabled(Audio.Selected() == Compressed);
    CalcVideo();
    CalcAndShowTotal();
  }

  void Video_Click(int index) {
    CalcVideo();
    record_.HDVideoMode = index;
    ShowVideoInputs();
    CalcAndShowTotal();
  }

  void Video1_GotFocus() { SelectFirstTen(Video1); }
  void Video1_KeyUp() {
    record_.HDVideoBitrate = RepairAndRead(Video1);
    CalcVideoByBitrate();
    CalcAndShowTotal();
  }
  void Video1_LostFocus() {
    FillBlank(Video1, u"1"_s);
    Video1_KeyUp();
  }
  void Video1_MouseDown() {
    FillBlank(MLength, u"1"_s);
    Video1_KeyUp();
  }
  void Video1_MouseUp() { RepairText(Video1); }

  void Video1P_MouseDown() { HoldPlus(Video1, &HDCalc::Video1_KeyUp); }
  void Video1P_MouseUp() { spin_.Release(Video1); }
  void Video1M_MouseDown() { HoldMinus(Video1, 1, &HDCalc::Video1_KeyUp); }
  void Video1M_MouseUp() { spin_.Release(Video1); }

  void Video2_GotFocus() { SelectFirstTen(Video2); }
  void Video2_KeyUp() {
    record_.VideoOnlySize = RepairAndRead(Video2);
    if (Video.Selected() == BySize) {
      VideoMB = record_.VideoOnlySize;
    }
    CalcAndShowTotal();
  }
  void Video2_LostFocus() {
    FillBlank(Video2, u"1"_s);
    Video2_KeyUp();
  }
  void Video2_MouseDown() {
    FillBlank(MLength, u"1"_s);
    Video2_KeyUp();
  }
  void Video2_MouseUp() { RepairText(Video2); }

  void Video2P_MouseDown() { HoldPlus(Video2, &HDCalc::Video2_KeyUp); }
  void Video2P_MouseUp() { spin_.Release(Video2); }
  // Down to 0, deliberately unlike the bitrate: there may be no video yet (Steps).
  void Video2M_MouseDown() { HoldMinus(Video2, 0, &HDCalc::Video2_KeyUp); }
  void Video2M_MouseUp() { spin_.Release(Video2); }

  void DivX_Click(int index) {
    record_.DivXOption = static_cast<std::int16_t>(index);
    VideoFactor = VideoFactorOf(record_.DivXOption);
    if (!IsEmpty(MLength)) {
      CalcVideoByBitrate();
    }
    CalcAndShowTotal();
  }

  void Audio_Click(int index) {
    CalcAudioRate();
    record_.HDAudioType = static_cast<std::int16_t>(index);
    MP2.setEnabled(index == Compressed);
    CalcAndShowTotal();
  }

  void MP2_Click() { MP2_KeyUp(); }
  void MP2_KeyUp() {
    const double kiloBits = RepairAndRead(*MP2.Field());
    if (!IsEmpty(*MP2.Field())) {
      record_.HDAudioBitrate = kiloBits;
    }
    if (Audio.Selected() == Compressed) {
      CalcAudioRate();
    }
    CalcAndShowTotal();
  }
  // Deliberately counts the value that it filled in but does not store it: the record keeps the
  // bitrate that the user chose (HDCalcTest,
  // LeavingAnEmptyAudioBitrateShowsAndCountsOneWithoutStoringIt). Need not look at the option: the
  // list can only have the focus while its option is selected.
  void MP2_LostFocus() {
    FillBlank(*MP2.Field(), u"1"_s);
    AudioRate = CompressedKiloBytesPerSecond(NumberIn(*MP2.Field()));
    CalcAndShowTotal();
  }

  // Deliberately fills without storing or recomputing: the figures change only when the user enters
  // something (HDCalcTest, FocusingTheRunningTimeSelectsAndFillsButNeitherStoresNorRecomputes).
  void MLength_GotFocus() {
    SelectFirstTen(MLength);
    FillBlank(Video1, u"1"_s);
    FillBlank(Video2, u"1"_s);
  }
  void MLength_KeyUp() {
    const double minutes = RepairAndRead(MLength);
    CalcVideoByBitrate();
    CalcTotal();
    if (!IsEmpty(MLength)) {
      record_.MovieLength = minutes;
    }
    // Deliberately blank without a running time, but only here: in every other field a film by size
    // still has a total (HDCalcTest, ARunningTimeOfZeroShowsTheVideoEverywhereButInItsOwnField).
    ShowTotal(minutes > 0);
  }
  void MLength_LostFocus() {
    FillBlank(MLength, u"1"_s);
    MLength_KeyUp();
  }
  void MLength_MouseDown() {
    FillBlank(Video2, u"1"_s);
    FillBlank(Video1, u"1"_s);
    MLength_KeyUp();
  }
  void MLength_MouseUp() { RepairText(MLength); }

  void MLengthP_MouseDown() { HoldPlus(MLength, &HDCalc::MLength_KeyUp); }
  void MLengthP_MouseUp() { spin_.Release(MLength); }
  void MLengthM_MouseDown() { HoldMinus(MLength, 1, &HDCalc::MLength_KeyUp); }
  void MLengthM_MouseUp() { spin_.Release(MLength); }

  // Uncompressed stereo has options of its own.
  static AudioType TypeOf(const std::vector<FilmAudio>& tracks) {
    const auto& first = tracks.front();
    const bool isWav = tracks.size() == 1 && first.codec == "pcm_s16le" && first.channels == 2;
    return isWav && first.sampleRate == 44100   ? Wav44
           : isWav && first.sampleRate == 48000 ? Wav48
                                                : Compressed;
  }

  void ShowVideoInputs() {
    const bool byBitrate = Video.Selected() == ByBitrate;
    for (auto* control : std::initializer_list<QWidget*>{&Video1, &Video1P, &Video1M}) {
      control->setEnabled(byBitrate);
    }
    for (auto* control : std::initializer_list<QWidget*>{&Video2, &Video2P, &Video2M}) {
      control->setEnabled(!byBitrate);
    }
  }

  void CalcVideo() {
    VideoMB = Video.Selected() == BySize ? NumberIn(Video2) : 0;
    CalcVideoByBitrate();
  }

  void CalcVideoByBitrate() {
    if (Video.Selected() == ByBitrate) {
      VideoMB = VideoMegaBytes(NumberIn(Video1), NumberIn(MLength), VideoFactor);
    }
  }

  void CalcAudioRate() {
    const auto type = Audio.Selected();
    AudioRate = type == Wav44        ? Wav44KiloBytesPerSecond
                : type == Wav48      ? Wav48KiloBytesPerSecond
                : type == Compressed ? CompressedKiloBytesPerSecond(NumberIn(*MP2.Field()))
                                     : 0;
  }

  void ShowTotal(bool hasRunningTime) {
    const bool isShown = hasRunningTime && TotalMB > 0;
    Result.Write(isShown ? ToQString(Formatted(TotalMB, "#")) : QString());
  }

  void HoldPlus(TextField& field, void (HDCalc::*keyUp)()) {
    spin_.PressPlus(field, std::nullopt, [this, keyUp] { (this->*keyUp)(); });
  }

  void HoldMinus(TextField& field, double lowest, void (HDCalc::*keyUp)()) {
    spin_.PressMinus(field, lowest, [this, keyUp] { (this->*keyUp)(); });
  }

  void CalcAndShowTotal() {
    CalcTotal();
    ShowTotal(true);
  }

  void CalcTotal() { TotalMB = TotalMegaBytes(NumberIn(MLength), AudioRate, VideoMB); }
};

}  // namespace

std::unique_ptr<Form> MakeHDCalc(Services& services) { return std::make_unique<HDCalc>(services); }

}  // namespace brindle
