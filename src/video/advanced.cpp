// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/advanced.h"

#include <cstdint>

#include <QCheckBox>
#include <QPushButton>
#include <QString>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/wiring.h"
#include "base/numbers/frame_rate.h"
#include "base/numbers/rounding.h"
#include "base/windows/overhead_opener.h"
#include "base/windows/window_list.h"
#include "video/overhead.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

const auto SameSetting = u"Choose the same setting you are using when creating your AVIs"_s;

// The options that count frames, from 2 on, stand for the frame-rate systems from 0 on.
constexpr int ByTime = 1;
constexpr int FirstByFrames = 2;

}  // namespace

Advanced::Advanced(Services& services)
    : Form(u"Advanced"_s, u"Advanced"_s),
      services_(services),
      record_(services.record),
      AOver(MakeCheckBox(u"AOver"_s, u"Calc. A/V interleaving overhead"_s,
                         u"Enable this if you are encoding to AVI format with audio"_s)),
      VOver(MakeCheckBox(u"VOver"_s, u"Calc. video frame overhead"_s,
                         u"Enable this if you are encoding to AVI format"_s)),
      InterlOpt(u"InterlOpt"_s),
      Itime(new TextField(u"Itime"_s, SameSetting)),
      Iframe1(new TextField(u"Iframe1"_s, SameSetting)),
      Iframe2(new TextField(u"Iframe2"_s, SameSetting)),
      Iframe3(new TextField(u"Iframe3"_s, SameSetting)),
      Command1(MakeButton(u"Command1"_s, u"OK"_s)) {
  MakeLayout();
  WireEvents();
  Form_Load();
  Focus().Begin(VOver);
}

void Advanced::MakeLayout() {
  auto* time = InterlOpt.Add(1, u"Time (ms)"_s, SameSetting);
  auto* pal = InterlOpt.Add(2, u"PAL 25 fps"_s, SameSetting);
  auto* film = InterlOpt.Add(3, u"NTSC 23.976 fps"_s, SameSetting);
  auto* ntsc = InterlOpt.Add(4, u"NTSC 29.97 fps"_s, SameSetting);
  Itime->setText(u"400"_s);
  for (auto* frames : {Iframe1, Iframe2, Iframe3}) {
    frames->setText(u"1"_s);
  }

  // The options deliberately stand in another order than their indices.
  // clang-format off
  LayOut(this,
    Down({
      MakeFrame(u"Frame2"_s, u"AVI Interleaving Settings"_s, {
        {VOver, {}},
        {AOver, {}},
        {MakeLabel(u"Label10"_s, u"Interleave audio every:"_s),
                {MakeLabel(u"Label1"_s, u"(frames)"_s)}},
        {ntsc, {Iframe3}},
        {time, {Itime}},
        {pal, {Iframe1}},
        {film, {Iframe2}},
      }),
      Across({Item::Stretch(), Command1}),
    }));
  // clang-format on
}

void Advanced::WireEvents() {
  using Self = Advanced;
  const Wires on(this);
  on(VOver).Click(&Self::VOver_Click);
  on(AOver).Click(&Self::AOver_Click);
  on(&InterlOpt).Click(&Self::InterlOpt_Click);
  on(Iframe3).GotFocus(&Self::Iframe3_GotFocus);
  on(Itime).GotFocus(&Self::Itime_GotFocus);
  on(Iframe1).GotFocus(&Self::Iframe1_GotFocus);
  on(Iframe2).GotFocus(&Self::Iframe2_GotFocus);
  on(Command1).Click(&Self::Command1_Click);
}

void Advanced::Form_Load() {
  if (record_.InterleaveOption >= FirstByFrames) {
    record_.InterleaveOption =
        ToInteger16(static_cast<double>(record_.FrameRateSystem) + FirstByFrames);
  }
  // The handlers of boxes and options run here as at a user's click, so that opening the window
  // deliberately stores the overhead of the texts that its fields hold at creation.
  VOver->setChecked(record_.VideoOverheadOn == 1);
  AOver->setChecked(record_.AudioOverheadOn == 1);
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

void Advanced::AOver_Click() {
  if (AOver->isChecked()) {
    record_.AudioOverheadOn = 1;
    EnableInterleaveInputs();
  } else {
    record_.AudioOverheadOn = 0;
    DisableInterleaveInputs();
  }
  CalcOverheads(Interleaving::WhenTicked);
}

void Advanced::VOver_Click() {
  record_.VideoOverheadOn = VOver->isChecked() ? 1 : 0;
  CalcOverheads(Interleaving::WhenTicked);
}

void Advanced::InterlOpt_Click(int index) {
  EnableOnly(index);
  // Deliberately counts interleaving whether or not its box is ticked.
  CalcOverheads(Interleaving::Always);
}

void Advanced::Itime_GotFocus() { SelectFirstTen(Itime); }
void Advanced::Iframe1_GotFocus() { SelectFirstTen(Iframe1); }
void Advanced::Iframe2_GotFocus() { SelectFirstTen(Iframe2); }
void Advanced::Iframe3_GotFocus() { SelectFirstTen(Iframe3); }

void Advanced::Command1_Click() {
  WriteNumber(Itime, AcceptedInterleaveTime(LeadingNumberIn(Itime)));
  for (auto* frames : {Iframe1, Iframe2, Iframe3}) {
    WriteNumber(frames, AcceptedInterleaveFrames(LeadingNumberIn(frames)));
  }
  record_.InterleaveTime = NumberIn(Itime);
  record_.InterleaveFrames1 = NumberIn(Iframe1);
  record_.InterleaveFrames2 = NumberIn(Iframe2);
  record_.InterleaveFrames3 = NumberIn(Iframe3);
  CalcOverheads(Interleaving::WhenTicked);
  RefreshOpener();
  close();
}

void Advanced::CalcOverheads(Interleaving counted) {
  record_.VideoFrameOverhead = 0;
  record_.AudioInterleaveOverhead = 0;
  if (VOver->isChecked()) {
    // Deliberately at the frame rate from before the option below changes it.
    record_.VideoFrameOverhead = VideoFrameOverheadOf(FramesPerSecond(record_.FrameRateSystem));
  }
  const auto option = InterlOpt.Selected();
  if (option && (AOver->isChecked() || counted == Interleaving::Always)) {
    record_.InterleaveOption = static_cast<std::int16_t>(*option);
    if (*option >= FirstByFrames) {
      record_.FrameRateSystem = static_cast<std::int16_t>(*option - FirstByFrames);
    }
    IntervalOf(*option)->setEnabled(true);
    record_.AudioInterleaveOverhead = InterleaveOverheadOf(*option);
  }
}

double Advanced::InterleaveOverheadOf(int option) const {
  const double interval = NumberIn(IntervalOf(option));
  return option == ByTime
             ? InterleaveOverheadByTime(interval)
             : InterleaveOverheadByFrames(interval, FramesPerSecond(option - FirstByFrames));
}

void Advanced::RefreshOpener() {
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

void Advanced::DisableInterleaveInputs() {
  for (auto* option : InterlOpt.Buttons()) {
    option->setEnabled(false);
  }
  EnableOnly(0);
}

void Advanced::EnableInterleaveInputs() {
  for (auto* option : InterlOpt.Buttons()) {
    option->setEnabled(true);
  }
  if (auto* interval = IntervalOf(record_.InterleaveOption)) {
    interval->setEnabled(true);
  }
}

void Advanced::EnableOnly(int option) {
  for (const int index : {1, 2, 3, 4}) {
    IntervalOf(index)->setEnabled(index == option);
  }
}

TextField* Advanced::IntervalOf(int option) const {
  switch (option) {
    case 1:
      return Itime;
    case 2:
      return Iframe1;
    case 3:
      return Iframe2;
    case 4:
      return Iframe3;
    default:
      return nullptr;
  }
}

}  // namespace brindle
