// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/advanced.h"

#include <cmath>
#include <cstdint>
#include <memory>

#include <QString>

#include "base/input/check_box.h"
#include "base/input/form.h"
#include "base/input/form_filler.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/option_group.h"
#include "base/input/push_button.h"
#include "base/input/text_field.h"
#include "base/input/wiring.h"
#include "base/numbers/frame_rate.h"
#include "base/numbers/rounding.h"
#include "base/settings/settings.h"
#include "base/windows/film_form.h"
#include "base/windows/film_text.h"
#include "base/windows/overhead_opener.h"
#include "base/windows/services.h"
#include "base/windows/window_list.h"
#include "media/film.h"
#include "video/overhead.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

QString SameSetting() { return u"Choose the same setting you are using when creating your AVIs"_s; }

class Advanced : public FilmForm {
  enum class Interleaving { WhenTicked, Always };
  enum Interval { ByTime = 1, ByPal, ByFilm, ByNtsc };
  // From this option on they count frames and stand for the frame-rate systems, beginning with 0.
  static constexpr int FirstByFrames = ByPal;

  Services& services_;
  Settings& record_;

  CheckBox AOver{u"AOver"_s, u"Calc. A/V interleaving overhead"_s,
                 u"Enable this if you are encoding to AVI format with audio"_s};
  CheckBox VOver{u"VOver"_s, u"Calc. video frame overhead"_s,
                 u"Enable this if you are encoding to AVI format"_s};
  OptionGroup InterlOpt{u"InterlOpt"_s,
                        {{ByTime, u"Time (ms)"_s, SameSetting()},
                         {ByPal, u"PAL 25 fps"_s, SameSetting()},
                         {ByFilm, u"NTSC 23.976 fps"_s, SameSetting()},
                         {ByNtsc, u"NTSC 29.97 fps"_s, SameSetting()}}};
  TextField Itime{u"Itime"_s, SameSetting()};
  TextField Iframe1{u"Iframe1"_s, SameSetting()};
  TextField Iframe2{u"Iframe2"_s, SameSetting()};
  TextField Iframe3{u"Iframe3"_s, SameSetting()};
  PushButton Command1{u"Command1"_s, u"OK"_s};

 public:
  explicit Advanced(Services& services)
      : FilmForm(services, u"Advanced"_s, u"Advanced"_s),
        services_(services),
        record_(services.record) {
    Itime.setText(u"400"_s);
    for (auto* frames : {&Iframe1, &Iframe2, &Iframe3}) {
      frames->setText(u"1"_s);
    }

    // The order of the options is deliberately not that of their indices: settings files hold the
    // indices, and users know the order on the screen (AdvancedTest,
    // ArrowKeysChooseTheOptionBelow).
    // clang-format off
    LayOutAboveFilm(
      Down({
        MakeFrame(u"Frame2"_s, u"AVI Interleaving Settings"_s, {
          {&VOver, {}},
          {&AOver, {}},
          {MakeLabel(u"Label10"_s, u"Interleave audio every:"_s),
                  {MakeLabel(u"Label1"_s, u"(frames)"_s)}},
          {InterlOpt.At(ByNtsc), {&Iframe3}},
          {InterlOpt.At(ByTime), {&Itime}},
          {InterlOpt.At(ByPal), {&Iframe1}},
          {InterlOpt.At(ByFilm), {&Iframe2}},
        }),
        Across({Item::Stretch(), &Command1}),
      }));
    // clang-format on

    WireEvents();
    Form_Load();
    Focus().Begin(&VOver);
  }

 protected:
  void FillFrom(const Film& film, FormFiller& filler) override {
    if (film.framesBetweenAudio) {
      filler.Tick(AOver);
    }
    ChooseFrameRate(filler, InterlOpt, film, FirstByFrames);
    const auto option = InterlOpt.Selected();
    if (film.framesBetweenAudio && option >= FirstByFrames) {
      const double frames = AcceptedInterleaveFrames(std::round(*film.framesBetweenAudio));
      filler.Type(*IntervalOf(*option), QString::number(frames));
    }
  }

 private:
  void WireEvents() {
    using Self = Advanced;
    const Wires on(this);
    on(VOver).Click(&Self::VOver_Click);
    on(AOver).Click(&Self::AOver_Click);
    on(InterlOpt).Click(&Self::InterlOpt_Click);
    on(Iframe3).GotFocus(&Self::Iframe3_GotFocus);
    on(Itime).GotFocus(&Self::Itime_GotFocus);
    on(Iframe1).GotFocus(&Self::Iframe1_GotFocus);
    on(Iframe2).GotFocus(&Self::Iframe2_GotFocus);
    on(Command1).Click(&Self::Command1_Click);
  }

  void Form_Load() {
    if (record_.InterleaveOption >= FirstByFrames) {
      record_.InterleaveOption =
          ToInteger16(static_cast<double>(record_.FrameRateSystem) + FirstByFrames);
    }
    // The handlers of boxes and options run here as they do when the user clicks. So opening the
    // window deliberately stores the overhead of the texts that its fields hold at creation, not of
    // the stored intervals: the figures of the other windows have always followed that
    // (AdvancedLoads).
    VOver.setChecked(record_.VideoOverheadOn == 1);
    AOver.setChecked(record_.AudioOverheadOn == 1);
    InterlOpt.Select(record_.InterleaveOption);
    WriteNumber(Itime, record_.InterleaveTime);
    WriteNumber(Iframe1, record_.InterleaveFrames1);
    WriteNumber(Iframe2, record_.InterleaveFrames2);
    WriteNumber(Iframe3, record_.InterleaveFrames3);
    if (record_.AudioOverheadOn == 1) {
      EnableOnly(record_.InterleaveOption);
      EnableInterleaveInputs();
    } else {
      DisableInterleaveInputs();
    }
  }

  void AOver_Click() {
    if (AOver.isChecked()) {
      record_.AudioOverheadOn = 1;
      EnableInterleaveInputs();
    } else {
      record_.AudioOverheadOn = 0;
      DisableInterleaveInputs();
    }
    CalcOverheads(Interleaving::WhenTicked);
  }

  void VOver_Click() {
    record_.VideoOverheadOn = VOver.isChecked() ? 1 : 0;
    CalcOverheads(Interleaving::WhenTicked);
  }

  void InterlOpt_Click(int index) {
    EnableOnly(index);
    // Deliberately counts interleaving even if its box is not ticked: opening the window counts it,
    // and the first click on a box corrects that (AdvancedTest,
    // AnUntickedInterleavingBoxCountsOnlyUntilABoxIsClicked).
    CalcOverheads(Interleaving::Always);
  }

  void Itime_GotFocus() { SelectFirstTen(Itime); }
  void Iframe1_GotFocus() { SelectFirstTen(Iframe1); }
  void Iframe2_GotFocus() { SelectFirstTen(Iframe2); }
  void Iframe3_GotFocus() { SelectFirstTen(Iframe3); }

  void Command1_Click() {
    WriteNumber(Itime, AcceptedInterleaveTime(LeadingNumberIn(Itime)));
    for (auto* frames : {&Iframe1, &Iframe2, &Iframe3}) {
      WriteNumber(*frames, AcceptedInterleaveFrames(LeadingNumberIn(*frames)));
    }
    record_.InterleaveTime = NumberIn(Itime);
    record_.InterleaveFrames1 = NumberIn(Iframe1);
    record_.InterleaveFrames2 = NumberIn(Iframe2);
    record_.InterleaveFrames3 = NumberIn(Iframe3);
    CalcOverheads(Interleaving::WhenTicked);
    RefreshOpener();
    close();
  }

  void DisableInterleaveInputs() {
    for (auto* option : InterlOpt.Buttons()) {
      option->setEnabled(false);
    }
    EnableOnly(0);
  }

  void EnableInterleaveInputs() {
    for (auto* option : InterlOpt.Buttons()) {
      option->setEnabled(true);
    }
    if (auto* interval = IntervalOf(record_.InterleaveOption)) {
      interval->setEnabled(true);
    }
  }

  // Enables the interval of this option and no other.
  void EnableOnly(int option) {
    for (const int index : {ByTime, ByPal, ByFilm, ByNtsc}) {
      IntervalOf(index)->setEnabled(index == option);
    }
  }

  TextField* IntervalOf(int option) {
    switch (option) {
      case ByTime:
        return &Itime;
      case ByPal:
        return &Iframe1;
      case ByFilm:
        return &Iframe2;
      case ByNtsc:
        return &Iframe3;
      default:
        return nullptr;
    }
  }

  void RefreshOpener() {
    const auto refresh = [this](WindowId id) {
      auto& opener = dynamic_cast<OverheadOpener&>(services_.windows.Load(id));
      opener.Recompute();
      opener.ShowInterleaving();
    };
    if (record_.AdvancedCaller == OpenedByVideo) {
      refresh(WindowId::BitrateCalc);
    } else if (record_.AdvancedCaller == OpenedByAudio) {
      refresh(WindowId::AudioCalc);
    }
  }

  double InterleaveOverheadOf(int option) {
    const double interval = NumberIn(*IntervalOf(option));
    return option == ByTime
               ? InterleaveOverheadByTime(interval)
               : InterleaveOverheadByFrames(interval, FramesPerSecond(option - FirstByFrames));
  }

  void CalcOverheads(Interleaving counted) {
    record_.VideoFrameOverhead = 0;
    record_.AudioInterleaveOverhead = 0;
    if (VOver.isChecked()) {
      // Deliberately at the old frame rate, before the option below changes it: the figures stay
      // those that users compare (AdvancedTest,
      // TheFramesAreCountedAtTheRateFromBeforeTheOptionChangesItBack).
      record_.VideoFrameOverhead = VideoFrameOverheadOf(FramesPerSecond(record_.FrameRateSystem));
    }
    const auto option = InterlOpt.Selected();
    if (option && (AOver.isChecked() || counted == Interleaving::Always)) {
      record_.InterleaveOption = static_cast<std::int16_t>(*option);
      if (*option >= FirstByFrames) {
        record_.FrameRateSystem = static_cast<std::int16_t>(*option - FirstByFrames);
      }
      IntervalOf(*option)->setEnabled(true);
      record_.AudioInterleaveOverhead = InterleaveOverheadOf(*option);
    }
  }
};

}  // namespace

std::unique_ptr<Form> MakeAdvanced(Services& services) {
  return std::make_unique<Advanced>(services);
}

}  // namespace brindle
