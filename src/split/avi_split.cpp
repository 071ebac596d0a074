// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "split/avi_split.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include <QString>

#include "base/input/common_choices.h"
#include "base/input/form.h"
#include "base/input/form_filler.h"
#include "base/input/frame_count.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/option_group.h"
#include "base/input/text_field.h"
#include "base/input/wiring.h"
#include "base/numbers/frame_rate.h"
#include "base/numbers/rounding.h"
#include "base/settings/settings.h"
#include "base/windows/film_form.h"
#include "base/windows/film_text.h"
#include "base/windows/services.h"
#include "media/film.h"
#include "split/duration_labels.h"
#include "split/film_split.h"
#include "split/parts_panel.h"
#include "split/range_table.h"
#include "split/split_fields.h"
#include "split/split_plan.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class AVISplit : public FilmForm {
  enum Segments { Two, Three };

  Settings& record_;
  double FrameRate = 0;  // frames per second

  TextField AVIsize{u"AVIsize"_s, u"The size of the big AVI file that needs to be split"_s};
  TextField Frames{u"Frames"_s, u"Total number of frames"_s};
  FrameCount frames_{Frames};
  OptionGroup Segs{u"Segs"_s,
                   {{Two, u"2"_s, u"Cut the AVI to two segments"_s},
                    {Three, u"3"_s, u"Cut the AVI to three segments"_s}}};
  TextField Size1{u"Size1"_s, u"Size of the first segment in Megabytes"_s};
  TextField Size2{u"Size2"_s, u"Size of the second segment in Megabytes"_s};
  TextField Size3{u"Size3"_s, u"Size of the third segment in Megabytes"_s};
  PlainLabel SegNo3Lab{u"SegNo3Lab"_s, u"3"_s};
  OptionGroup System{u"System"_s};
  TextField KeyFs{u"KeyFs"_s, u"DivX 3 codec setting"_s};
  SplitFields fields_{AVIsize, Frames, Size1, Size2, KeyFs};
  ValueLabel KeyFr{u"KeyFr"_s, {}, {u"88888888"_s}};
  DurationLabels duration_;
  RangeTable ranges_;
  PartsPanel parts_;

 public:
  explicit AVISplit(Services& services)
      : FilmForm(services, u"AVISplit"_s, u"Velbrin's Brindle 2 : AVI Splitting Calc"_s),
        record_(services.record),
        parts_(*this, services) {
    const auto segmentsLabel = u"No. of Segments:"_s;
    const auto sizeLabel = u"Size (MB):"_s;
    const auto systemLabel = u"System:"_s;
    const auto systems = AddFrameRateSystems(System);
    NameByTooltip(segmentsLabel, {Segs.At(Two), Segs.At(Three)});
    NameByTooltip(systemLabel, {systems[0], systems[1], systems[2]});
    NameByTooltip(sizeLabel, {&Size1, &Size2, &Size3});
    Size3.ShowAsResult(true);
    Size1.setText(u"650"_s);
    Size2.setText(u"650"_s);
    KeyFr.Write(u"600"_s);
    KeepRoom({&SegNo3Lab, &Size3});

    // clang-format off
    LayOutAboveFilm(
      Down({
        Across({
          MakeFrame(u"General Settings"_s, {
            {u"AVI Size (MB):"_s, {&AVIsize}},
            {u"Total Frames:"_s, {&Frames}},
            {segmentsLabel, {Segs.At(Two), Segs.At(Three)}},
            {u"Segment No:"_s, {MakeLabel(sizeLabel)}},
            {u"1"_s, {&Size1}},
            {u"2"_s, {&Size2}},
            {&SegNo3Lab, {&Size3}},
          }),
          Down({
            MakeFrame(u"DVD/Codec Settings"_s, {
              {systemLabel, {systems[0]}},
              {u""_s, {systems[1]}},
              {u""_s, {systems[2]}},
              {u"Keyframe every:"_s, {&KeyFs, MakeLabel(u"sec"_s)}},
            }),
            MakeFrame({}, {
              {u"Keyframes:"_s, {&KeyFr, MakeLabel(u"For DivX 3 without scene detection"_s)}},
              {u"Duration:"_s, duration_.Line()},
            }),
          }),
        }),
        MakeFrame(u"Select and DELETE indicated frame ranges:"_s, ranges_.Layout()),
        parts_.Line(),
      }));
    // clang-format on

    WireEvents();
    Form_Load();
    Focus().Begin(&AVIsize);
  }

  void WillClose() override {
    FilmForm::WillClose();
    parts_.Stop();
  }

 protected:
  // The size of the file comes before the frames, which show at once where to cut it.
  void FillFrom(const Film& film, FormFiller& filler) override {
    ChooseFrameRate(filler, System, film);
    filler.Type(AVIsize, MegaBytesText(film.bytes));
    if (film.video) {
      filler.Type(Frames, QString::number(film.video->frames));
    }
    FillIf(filler, KeyFs, KeyFrameDistanceOf(film));
  }
  void FilmTaken(const Film& /*film*/) override { Recalculate(); }
  void FilmLeft() override { parts_.Clear(); }
  void AskToClose(const std::function<void()>& agreed) override { parts_.AskToClose(agreed); }

 private:
  void WireEvents() {
    using Self = AVISplit;
    const Wires on(this);
    // clang-format off
    on(AVIsize).GotFocus(&Self::AVIsize_GotFocus).KeyUp(&Self::AVIsize_KeyUp)
      .MouseDown(&Self::AVIsize_MouseDown);
    on(Frames).GotFocus(&Self::Frames_GotFocus).KeyPress(&Self::Frames_KeyPress)
      .KeyUp(&Self::Frames_KeyUp).MouseDown(&Self::Frames_MouseDown).MouseUp(&Self::Frames_MouseUp);
    on(Segs).Click(&Self::Segs_Click);
    on(Size1).GotFocus(&Self::Size1_GotFocus).KeyUp(&Self::Size1_KeyUp)
      .MouseDown(&Self::Size1_MouseDown);
    on(Size2).GotFocus(&Self::Size2_GotFocus).KeyUp(&Self::Size2_KeyUp)
      .MouseDown(&Self::Size2_MouseDown);
    on(Size3).GotFocus(&Self::Size3_GotFocus);
    on(System).Click(&Self::System_Click);
    connect(&parts_, &PartsPanel::WritingChanged, this,
            [this](bool isWriting) { SetTaking(!isWriting); });
    on(KeyFs).GotFocus(&Self::KeyFs_GotFocus).KeyPress(&Self::KeyFs_KeyPress)
      .KeyUp(&Self::KeyFs_KeyUp).MouseDown(&Self::KeyFs_MouseDown);
    // clang-format on
  }

  void Form_Load() {
    if (record_.MovieLength == 0) {
      record_.MovieLength = 1;
    }
    // The handler sets this, too, but an unknown system selects nothing, so that no handler runs.
    FrameRate = FramesPerSecond(record_.FrameRateSystem);
    System.Select(record_.FrameRateSystem);
    WriteNumber(AVIsize, record_.SplitAVISize);
    WriteNumber(Size1, record_.SplitSize1);
    WriteNumber(Size2, record_.SplitSize2);
    frames_.Write(record_.MovieLength, FrameRate);
    WriteNumber(KeyFs, record_.KeyframeInterval);
    const bool isThree = record_.SplitSegmentsMode != 0;
    Segs.Select(isThree ? Three : Two);
    if (isThree) {
      WriteNumber(Size3, Remainder(record_.SplitAVISize, record_.SplitSize1, record_.SplitSize2));
    } else {
      WriteNumber(Size2, Remainder(record_.SplitAVISize, record_.SplitSize1));
    }
    ShowThirdSegment(isThree);
    // Deliberately for two segments, too: the visible figures are the same (SplitOpens), and the
    // window has always loaded this way.
    SplitInThree();
    for (auto* size : {&Size2, &Size3}) {
      if (NumberIn(*size) < 0) {
        size->Write({});
      }
    }
  }

  void AVIsize_GotFocus() { SelectWholeText(AVIsize); }
  void AVIsize_KeyUp() { EditSize(AVIsize, record_.SplitAVISize); }
  void AVIsize_MouseDown() { EditSize(AVIsize, record_.SplitAVISize); }

  void Frames_GotFocus() { SelectWholeText(Frames); }
  void Frames_KeyPress() { LimitFrames(); }
  void Frames_KeyUp() { EditFrames(); }
  void Frames_MouseDown() { EditFrames(); }
  void Frames_MouseUp() { LimitFrames(); }

  void Segs_Click(int index) {
    FillBlankFields();
    record_.SplitSegmentsMode = index;
    ShowThirdSegment(index == Three);
    Recalculate();
  }

  void Size1_GotFocus() { SelectWholeText(Size1); }
  void Size1_KeyUp() { EditSize(Size1, record_.SplitSize1); }
  void Size1_MouseDown() { EditSize(Size1, record_.SplitSize1); }

  void Size2_GotFocus() { SelectWholeText(Size2); }
  void Size2_KeyUp() { EditSize2(); }
  void Size2_MouseDown() { EditSize2(); }

  void Size3_GotFocus() { SelectWholeText(Size3); }

  void System_Click(int index) {
    FrameRate = FramesPerSecond(index);
    record_.FrameRateSystem = static_cast<std::int16_t>(index);
    Recalculate();
  }

  void KeyFs_GotFocus() { SelectWholeText(KeyFs); }
  // Deliberately stores without recomputing, like LimitFrames(): which event recomputes stays as it
  // has always been (LimitsWithoutRecomputing, AndStores).
  void KeyFs_KeyPress() {
    if (!IsEmpty(KeyFs)) {
      LimitInterval(KeyFs);
      record_.KeyframeInterval = ToInteger16(NumberIn(KeyFs));
    }
  }
  void KeyFs_KeyUp() { EditKeyFs(); }
  void KeyFs_MouseDown() { EditKeyFs(); }

  void EditSize(TextField& field, double& stored) {
    FillBlankFields(&field);
    const double megaBytes = RepairAndRead(field);
    if (IsEmpty(field)) {
      return;
    }
    // The user who clicks a size that the program cut to fit has not chosen that size.
    const bool isCutToFit = field.WrittenFrom() && megaBytes < stored;
    if (!isCutToFit) {
      stored = megaBytes;
    }
    if (megaBytes > 0) {
      Recalculate();
    }
  }

  // With two segments nobody typed the second size: it is the computed rest.
  void EditSize2() {
    double computed = 0;
    const bool isTyped = Segs.Selected() != Two;
    EditSize(Size2, isTyped ? record_.SplitSize2 : computed);
  }

  void EditFrames() {
    FillBlankFields(&Frames);
    RepairText(Frames);
    if (IsEmpty(Frames)) {
      return;
    }
    TakeWholeFrames(Frames);
    RepairSign(Frames);
    if (NumberIn(Frames) > 0) {
      StoreRunningTime();
      Recalculate();
    }
  }

  void LimitFrames() {
    if (!IsEmpty(Frames)) {
      TakeWholeFrames(Frames);
      StoreRunningTime();
    }
  }

  void EditKeyFs() {
    FillBlankFields(&KeyFs);
    RepairText(KeyFs);
    RepairSign(KeyFs);
    if (IsEmpty(KeyFs)) {
      return;
    }
    LimitInterval(KeyFs);
    WriteNumber(KeyFs, WholePart(NumberIn(KeyFs)));
    record_.KeyframeInterval = ToInteger16(NumberIn(KeyFs));
    if (NumberIn(KeyFs) > 0) {
      Recalculate();
    }
  }

  // With two segments the second size is the rest; with three the user types it.
  void ShowThirdSegment(bool isShown) {
    SegNo3Lab.setVisible(isShown);
    Size3.setVisible(isShown);
    ranges_.ShowThirdSegment(isShown);
    Size2.ShowAsResult(!isShown);
  }

  void FillBlankFields(const TextField* editing = nullptr) {
    FillBlanks(fields_, {record_.SplitSize1, record_.SplitSize2}, Segs.Selected() == Three,
               editing);
  }

  // Without a frame rate the running time stays as it is.
  void StoreRunningTime() {
    record_.MovieLength = frames_.Minutes(FrameRate).value_or(record_.MovieLength);
  }

  void UpdateFrames() {
    frames_.Write(record_.MovieLength, FrameRate);
    duration_.Write(frames_.Minutes(FrameRate));
    if (NumberIn(KeyFs) == 0) {
      // Deliberately not stored: an emptied or zero interval counts as 1 second, but the record
      // keeps what the user entered (SplitTyping, AnIntervalOfZeroStandsUntilItIsUsed).
      KeyFs.Write(u"1"_s);
    }
    const auto keyFrames = KeyFrames(CountedFrames(), IntervalInFrames());
    KeyFr.Write(keyFrames ? QString::number(*keyFrames) : QString());
  }

  // Not finite if there were too many to show.
  double CountedFrames() const {
    return IsEmpty(Frames) ? std::numeric_limits<double>::infinity() : NumberIn(Frames);
  }

  double IntervalInFrames() const { return KeyFrameInterval(NumberIn(KeyFs), FrameRate); }

  SplitInputs InputsOf(double firstMegaBytes, double secondMegaBytes) const {
    return {.frames = CountedFrames(),
            .megaBytes = NumberIn(AVIsize),
            .firstMegaBytes = firstMegaBytes,
            .secondMegaBytes = secondMegaBytes,
            .keyFrameInterval = IntervalInFrames()};
  }

  void SplitInTwo() {
    UpdateFrames();
    const auto inputs = InputsOf(NumberIn(Size1), 0);
    WriteOrClear(Size2, Remainder(inputs.megaBytes, inputs.firstMegaBytes));
    ranges_.ShowTwo(PlanByKeyFrames({inputs.firstMegaBytes}).value_or(PlanOfTwo(inputs)));
  }

  // Deliberately takes the leading numbers of its parts, while two segments take whole texts only:
  // ranges stay those of older versions for texts such as "600abc" (LeadingNumberOfThree;
  // SplitOfUnrepairedText).
  void SplitInThree() {
    UpdateFrames();
    const auto inputs = InputsOf(LeadingNumberIn(Size1), LeadingNumberIn(Size2));
    WriteOrClear(Size3, Remainder(inputs.megaBytes, inputs.firstMegaBytes, inputs.secondMegaBytes));
    ranges_.ShowThree(PlanByKeyFrames({inputs.firstMegaBytes, inputs.secondMegaBytes})
                          .value_or(PlanOfThree(inputs)));
  }

  // The plan of the film, on its real key frames; nothing without a film, or if it tells none. The
  // last part has no size: it takes the rest.
  std::optional<SplitPlan> PlanByKeyFrames(const std::vector<double>& megaBytes) {
    const auto* film = CurrentFilm();
    if (film == nullptr || !film->video || film->keyFrames.empty()) {
      return std::nullopt;
    }
    const auto split = SplitOfFilm(*film, megaBytes);
    parts_.Show(FilmPath(), *film, split);
    return PlanOfFilm(*film, split, megaBytes.size() + 1);
  }

  void Recalculate() {
    if (Segs.Selected() == Two) {
      SplitInTwo();
    } else {
      SplitInThree();
    }
  }
};

}  // namespace

std::unique_ptr<Form> MakeAVISplit(Services& services) {
  return std::make_unique<AVISplit>(services);
}

}  // namespace brindle
