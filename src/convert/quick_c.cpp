// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "convert/quick_c.h"

#include <cstdint>
#include <limits>
#include <memory>

#include <QString>

#include "base/input/common_choices.h"
#include "base/input/form.h"
#include "base/input/form_filler.h"
#include "base/input/frame_count.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/option_group.h"
#include "base/input/running_time_fields.h"
#include "base/input/text_field.h"
#include "base/input/wiring.h"
#include "base/numbers/frame_rate.h"
#include "base/numbers/rounding.h"
#include "base/numbers/running_time.h"
#include "base/settings/settings.h"
#include "base/windows/film_form.h"
#include "base/windows/services.h"
#include "convert/size_units.h"
#include "media/film.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr double MostRunningMinutes = 10000;
constexpr double MostFrames = 3000000;

// Repairs hours or minutes at every key and mouse press.
void RewriteEntry(TextField& field, double limit) {
  RepairSign(field);
  RewriteWithin(field, limit);
}

// Repairs any other field: its text stays as typed unless something is wrong with it.
void RepairEntry(TextField& field, double limit) {
  RepairSign(field);
  RepairWithin(field, limit);
}

// Carries whole sixties of a value above 60 into the next field. Exactly 60 deliberately stays, as
// it always has (QuickNormalizing).
void Carry(TextField& from, TextField& to) {
  const double value = NumberIn(from);
  if (value > 60) {
    WriteNumber(to, NumberIn(to) + static_cast<double>(IntegerDivided(value, 60).value_or(0)));
    WriteNumber(from, static_cast<double>(Modulo(value, 60).value_or(0)));
  }
}

// Unlike elsewhere, 0 minutes are "0".
void WriteRunningMinutes(TextField& field, double minutes) {
  if (minutes == 0) {
    field.Write(u"0"_s);
  } else {
    WriteMinutes(field, minutes);
  }
}

class QuickC : public FilmForm {
  Settings& record_;
  double FrameRate = 0;  // frames per second

  TextField Time1{u"Time1"_s, u"Hours"_s};
  TextField Time2{u"Time2"_s, u"Minutes"_s};
  TextField Time3{u"Time3"_s, u"Seconds"_s};
  RunningTimeFields time_{Time1, Time2, Time3};
  TextField Min{u"Min"_s, u"Minutes"_s};
  TextField Frames{u"Frames"_s, u"Number of video frames"_s};
  FrameCount frames_{Frames};
  OptionGroup System{u"System"_s};
  TextField B{u"B"_s, u"Bytes"_s};
  TextField KB{u"KB"_s, u"Kilobytes"_s};
  TextField MB{u"MB"_s, u"Megabytes"_s};
  TextField GB{u"GB"_s, u"Gigabytes"_s};

 public:
  explicit QuickC(Services& services)
      : FilmForm(services, u"QuickC"_s, u"Velbrin's Brindle 2 : Quick Convert"_s),
        record_(services.record) {
    const auto timeLabel = u"Hr:Min:Sec"_s;
    NameByTooltip(timeLabel, {&Time1, &Time2, &Time3});
    for (auto* part : {&Time1, &Time2, &Time3}) {
      part->SetVisibleDigits(5);
    }
    for (auto* size : {&B, &KB, &MB, &GB}) {
      size->SetVisibleDigits(21);
    }
    Time1.setText(u"1"_s);
    Time2.setText(u"40"_s);
    Time3.setText(u"00.00"_s);
    Min.setText(u"100"_s);
    Frames.setText(u"150000"_s);

    // clang-format off
    LayOutAboveFilm(
      Down({
        MakeFrame(u"Time / Frames"_s, {
          {timeLabel, {&Time1, &Time2, &Time3}},
          {u"min"_s, {&Min}},
          {u"Frames"_s, {&Frames}},
          {{}, AddFrameRateSystems(System)},
        }),
        MakeFrame(u"Bytes / KB's / MB's / GB's"_s, {
          {u"B"_s, {&B}},
          {u"KB"_s, {&KB}},
          {u"MB"_s, {&MB}},
          {u"GB"_s, {&GB}},
        }),
      }));
    // clang-format on

    WireEvents();
    Form_Load();
    Focus().Begin(&Min);  // never the hours, minutes or seconds
  }

 protected:
  void FillFrom(const Film& film, FormFiller& filler) override {
    ChooseFrameRate(filler, System, film);
    FillTime(filler, film, Min, {&Time1, &Time2, &Time3});
    filler.Type(B, QString::number(film.bytes));
  }

 private:
  void WireEvents() {
    using Self = QuickC;
    const Wires on(this);
    // clang-format off
    on(Time1).KeyPress(&Self::Time1_KeyPress).KeyUp(&Self::Time1_KeyUp)
      .MouseDown(&Self::Time1_MouseDown).LostFocus(&Self::Time1_LostFocus);
    on(Time2).KeyPress(&Self::Time2_KeyPress).KeyUp(&Self::Time2_KeyUp)
      .MouseDown(&Self::Time2_MouseDown).LostFocus(&Self::Time2_LostFocus);
    on(Time3).KeyPress(&Self::Time3_KeyPress).KeyUp(&Self::Time3_KeyUp)
      .MouseDown(&Self::Time3_MouseDown).MouseUp(&Self::Time3_MouseUp)
      .LostFocus(&Self::Time3_LostFocus);
    on(Min).KeyPress(&Self::Min_KeyPress).KeyUp(&Self::Min_KeyUp).MouseDown(&Self::Min_MouseDown)
      .MouseUp(&Self::Min_MouseUp).LostFocus(&Self::Min_LostFocus);
    on(Frames).KeyPress(&Self::Frames_KeyPress).KeyUp(&Self::Frames_KeyUp)
      .MouseDown(&Self::Frames_MouseDown).MouseUp(&Self::Frames_MouseUp)
      .LostFocus(&Self::Frames_LostFocus);
    on(System).Click(&Self::System_Click);
    // clang-format on
    for (auto* field : {&Time1, &Time2, &Time3, &Min, &Frames, &B, &KB, &MB, &GB}) {
      on(field).GotFocus([field] { SelectWholeText(*field); });
    }
    for (const auto unit : SizeUnits) {
      const auto convert = [this, unit] { ConvertFrom(unit); };
      on(FieldOf(unit))
          .KeyPress(convert)
          .KeyUp(convert)
          .MouseDown([this, unit] { Unit_MouseDown(unit); })
          .MouseUp(convert)
          .LostFocus([this] { NormalizeFields(); });
    }
  }

  void Form_Load() {
    // The handler sets this, too, but an unknown system selects nothing, so that no handler runs.
    FrameRate = FramesPerSecond(record_.FrameRateSystem);
    WriteNumber(MB, record_.QuickSizeMB);
    WriteNumber(GB, record_.QuickSizeMB / 1024);
    WriteNumber(KB, NumberIn(MB) * 1024);
    WriteNumber(B, NumberIn(KB) * 1024);
    WriteRunningMinutes(Min, record_.MovieLength);
    if (!IsEmpty(Min)) {
      FramesFromMinutes();
      TimeFromFrames();
    }
    System.Select(record_.FrameRateSystem);
  }

  void Time1_KeyPress() { RewriteEntry(Time1, MostHours); }
  void Time1_KeyUp() {
    RewriteEntry(Time1, MostHours);
    TimeChanged();
  }
  void Time1_MouseDown() {
    NormalizeFields();
    RewriteEntry(Time1, MostHours);
    TimeChanged();
  }
  void Time1_LostFocus() { NormalizeFields(); }

  void Time2_KeyPress() { RewriteEntry(Time2, MostMinutes); }
  void Time2_KeyUp() {
    RewriteEntry(Time2, MostMinutes);
    TimeChanged();
  }
  void Time2_MouseDown() {
    NormalizeFields();
    RewriteEntry(Time2, MostMinutes);
    TimeChanged();
  }
  void Time2_LostFocus() { NormalizeFields(); }

  void Time3_KeyPress() { RepairEntry(Time3, MostSeconds); }
  void Time3_KeyUp() {
    RepairEntry(Time3, MostSeconds);
    TimeChanged();
  }
  // Deliberately recomputes nothing, unlike its neighbours: in the seconds only a key changes the
  // running time, as it always has (QuickTimes, AreRecomputedFromSecondsOnlyByAKey).
  void Time3_MouseDown() {
    NormalizeFields(&Time3);
    RepairEntry(Time3, MostSeconds);
  }
  void Time3_MouseUp() { RepairEntry(Time3, MostSeconds); }
  void Time3_LostFocus() {
    NormalizeFields();
    RewriteFormatted(Time3, "00.00");
  }

  void Min_KeyPress() { RepairEntry(Min, MostRunningMinutes); }
  void Min_KeyUp() {
    RepairEntry(Min, MostRunningMinutes);
    MinutesChanged();
  }
  void Min_MouseDown() {
    NormalizeFields();
    RepairEntry(Min, MostRunningMinutes);
    MinutesChanged();
  }
  void Min_MouseUp() { RepairEntry(Min, MostRunningMinutes); }
  void Min_LostFocus() {
    NormalizeFields();
    WriteRunningMinutes(Min, NumberIn(Min));
  }

  void Frames_KeyPress() { RepairEntry(Frames, MostFrames); }
  void Frames_KeyUp() {
    RepairEntry(Frames, MostFrames);
    FramesChanged();
  }
  void Frames_MouseDown() {
    NormalizeFields();
    RepairEntry(Frames, MostFrames);
    FramesChanged();
  }
  void Frames_MouseUp() { RepairEntry(Frames, MostFrames); }
  void Frames_LostFocus() { NormalizeFields(); }

  // The running time stays, and the frames follow it.
  void System_Click(int index) {
    FrameRate = FramesPerSecond(index);
    record_.FrameRateSystem = static_cast<std::int16_t>(index);
    FramesFromMinutes();
  }

  void Unit_MouseDown(SizeUnit unit) {
    NormalizeFields();
    ConvertFrom(unit);
  }

  void TimeChanged() {
    MinutesFromTime();
    FramesFromMinutes();
  }

  void MinutesChanged() {
    record_.MovieLength = NumberIn(Min);
    FramesFromMinutes();
    TimeFromMinutes();
  }

  void FramesChanged() {
    TimeFromFrames();
    // Without a frame rate the frames give no time.
    if (FrameRate > 0) {
      MinutesFromTime();
    }
  }

  // Blank without a frame rate.
  void TimeFromFrames() {
    const auto minutes = frames_.Minutes(FrameRate);
    record_.MovieLength = minutes.value_or(record_.MovieLength);
    time_.Write(minutes.value_or(std::numeric_limits<double>::infinity()));
  }

  void TimeFromMinutes() { time_.Write(NumberIn(Min)); }

  void FramesFromMinutes() { frames_.Write(record_.MovieLength, FrameRate); }

  void MinutesFromTime() {
    record_.MovieLength = time_.Minutes();
    WriteRunningMinutes(Min, record_.MovieLength);
  }

  // Seconds that the user has just clicked keep their trailing zeros, for typing to go on.
  void NormalizeFields(const TextField* pressed = nullptr) {
    for (auto* part : {&Time1, &Time2}) {
      // A number that the program wrote is whole already.
      if (!IsEmpty(*part) && !part->WrittenFrom()) {
        WriteTyped(*part, WholePart(LeadingNumberIn(*part)));
      }
    }
    if (!IsEmpty(Time3) && !Time3.text().endsWith(u'.')) {
      (pressed == &Time3 ? RewriteWhileTyping : RewriteNumber)(Time3);
    }
    if (IsEmpty(B) || IsEmpty(KB) || IsEmpty(MB) || IsEmpty(GB)) {
      for (auto* size : {&GB, &MB, &KB, &B}) {
        size->Write(u"0"_s);
      }
    }
    FillBlank(Time1, u"0"_s);
    FillBlank(Time2, u"0"_s);
    Carry(Time2, Time1);
    FillBlank(Time3, u"0"_s);
    Carry(Time3, Time2);
    Carry(Time2, Time1);
    FillBlank(Min, u"0"_s);
    FillBlank(Frames, u"0"_s);
  }

  TextField& FieldOf(SizeUnit unit) {
    switch (unit) {
      case SizeUnit::B:
        return B;
      case SizeUnit::KB:
        return KB;
      case SizeUnit::MB:
        return MB;
      case SizeUnit::GB:
        break;
    }
    return GB;
  }

  void TidyUnitFields(SizeUnit editing) {
    for (const auto unit : SizeUnits) {
      if (unit != editing) {
        auto& field = FieldOf(unit);
        field.Write(ToQString(TidiedSize(unit, field.text().toStdString())), NumberIn(field));
      }
    }
  }

  void ConvertFrom(SizeUnit unit) {
    auto& source = FieldOf(unit);
    RepairWithin(source, LargestSize(unit));
    const auto sizes = SizesFrom(unit, NumberIn(source));
    for (const auto other : SizeUnits) {
      if (other != unit) {
        WriteNumber(FieldOf(other), sizes.at(IndexOf(other)));
      }
    }
    // Deliberately before the tidying, which rounds sizes and blanks those of 0: the record keeps
    // all decimals (QuickSizes).
    record_.QuickSizeMB = NumberIn(MB);
    if (!IsEmpty(source)) {
      TidyUnitFields(unit);
    }
  }
};

}  // namespace

std::unique_ptr<Form> MakeQuickC(Services& services) { return std::make_unique<QuickC>(services); }

}  // namespace brindle
