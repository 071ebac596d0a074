// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "aspect/aspect_ra.h"

#include <cstdint>
#include <memory>

#include <QString>
#include <QStringView>

#include "aspect/resolution.h"
#include "base/input/drop_down_list.h"
#include "base/input/form.h"
#include "base/input/form_filler.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/option_group.h"
#include "base/input/results.h"
#include "base/input/slider.h"
#include "base/input/text_field.h"
#include "base/input/wiring.h"
#include "base/numbers/numeric_text.h"
#include "base/settings/settings.h"
#include "base/windows/film_form.h"
#include "base/windows/film_text.h"
#include "base/windows/services.h"
#include "media/film.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr std::int16_t FirstModulus = 16;
constexpr int LeastWidth = 320;
constexpr int MostWidth = 720;
constexpr int LeastHeight = 160;
constexpr int MostHeight = 576;
constexpr double RatioTooLarge = 100;
constexpr QStringView LargestRatio(u"99.999");

class AspectRa : public FilmForm {
  enum Mode { Free, Standard, Custom };

  Settings& record_;
  float ratio_ = 0;  // of the film, width to height; 0 is none
  bool isLoading_ = true;

  OptionGroup AspectR{u"AspectR"_s,
                      {{Free, u"Free"_s, u"No AR set. Unlocks the resolution sliders."_s},
                       {Standard, u"Standard:"_s, u"Choose a standard film AR."_s},
                       {Custom, u"Custom:"_s, u"Set a custom aspect ratio."_s}}};
  DropDownList AR1{u"AR1"_s, u"Choose a standard film AR."_s};
  TextField AR2{u"AR2"_s, u"Set a custom aspect ratio."_s};
  DropDownList MODUL{u"MODUL"_s, {}};
  // The odd wording of the sliders' tooltips is deliberate: screen readers use it to name the
  // sliders, and the contract test checks it.
  Slider HRES{u"HRES"_s, u"Slide to select the vertical horizontal resolution."_s, LeastWidth,
              MostWidth};
  CopyableLabel HRESL{u"HRESL"_s, {}, {u"888"_s}};
  Slider VRES{u"VRES"_s, u"Slide to select the vertical vertical resolution."_s, LeastHeight,
              MostHeight};
  CopyableLabel VRESL{u"VRESL"_s, {}, {u"888"_s}};
  ValueLabel PixelCount{
      u"Stats(0)"_s, u"Total number of pixels in output video frame."_s, {u"888888"_s}};
  ValueLabel Macroblocks{u"Stats(1)"_s,
                         u"Total number of macroblocks in output video frame. Applies to MPEG 4."_s,
                         {u"8888"_s}};
  ValueLabel AspectRatio{
      u"Stats(4)"_s, u"Aspect ratio of the displayed resolution."_s, {u"8.888"_s}};
  ValueLabel AspectError{u"Stats(5)"_s,
                         u"An AR error of up to about 2% is considered negligible."_s,
                         // The widest text: the error of a ratio such as 1e-30.
                         {u"-8.88888888888888E+88%"_s}};

 public:
  explicit AspectRa(Services& services)
      : FilmForm(services, u"AspectRa"_s,
                 u"Velbrin's Brindle 2 : Resolution / Aspect Ratio Calc"_s),
        record_(services.record) {
    AR1.addItems(
        {u"1:1"_s, u"4:3 (1.33:1)"_s, u"1.66:1"_s, u"16:9 (1.778:1)"_s, u"1.85:1"_s, u"2.35:1"_s});
    AR1.setCurrentIndex(-1);
    AR2.setText(u"1.778"_s);
    for (const int modulus : {2, 4, 8, 16, 32}) {
      MODUL.addItem(QString::number(modulus), modulus);
    }
    MODUL.setCurrentIndex(-1);
    NameByTooltip(u"Horizontal Resolution:"_s, {&HRES});
    NameByTooltip(u"Vertical Resolution:"_s, {&VRES});
    PixelCount.Write(u"414720"_s);
    AspectRatio.Write(u"1.778"_s);

    // clang-format off
    LayOutAboveFilm(
      Down({
        MakeFrame(u"Movie Aspect Ratio"_s, {
          {AspectR.At(Free), {}},
          {AspectR.At(Standard), {&AR1}},
          {AspectR.At(Custom), {&AR2}},
        }),
        MakeFrame(u"Output Video Settings"_s, {
          {u"Resolution Increment:"_s, {&MODUL}},
          {u"Horizontal Resolution:"_s, {&HRES, &HRESL}},
          {u"Vertical Resolution:"_s, {&VRES, &VRESL}},
          {u"Pixel Count:"_s, {&PixelCount}},
          {u"Macroblocks:"_s, {&Macroblocks}},
          {u"Aspect ratio:"_s, {&AspectRatio}},
          {u"Aspect error:"_s, {&AspectError}},
        }),
      }));
    // clang-format on

    WireEvents();
    Form_Load();
    Focus().Begin(AspectR.TabStop());
  }

 protected:
  // The shape comes last: it makes the height one that goes with the width.
  void FillFrom(const Film& film, FormFiller& filler) override {
    if (film.video) {
      filler.Choose(AspectR, Free);
      filler.Slide(HRES, film.video->width);
      filler.Slide(VRES, film.video->height);
      filler.Choose(AspectR, Custom);
      FillIf(filler, AR2, ShapeOf(film));
    }
  }

 private:
  void WireEvents() {
    using Self = AspectRa;
    const Wires on(this);
    on(AspectR).Click(&Self::AspectR_Click);
    on(AR1).Click(&Self::AR1_Click);
    on(AR2).Change(&Self::AR2_Change);
    on(MODUL).Click(&Self::MODUL_Click);
    on(HRES).Change(&Self::HRES_Change);
    on(VRES).Change(&Self::VRES_Change);
  }

  void Form_Load() {
    // Deliberately not the stored increment: every opening begins with 16, as users know it
    // (AspectRaTest, OpensWithAnIncrementOf16WhateverWasStored).
    record_.ResolutionIncrement = FirstModulus;
    HRES.SetStep(FirstModulus);
    VRES.SetStep(FirstModulus);
    HRES.Write(record_.ResHorizontal);
    VRES.Write(record_.ResVertical);
    HRESL.Write(QString::number(HRES.value()));
    VRESL.Write(QString::number(VRES.value()));
    MODUL.setCurrentIndex(MODUL.findData(FirstModulus));
    AR1.setCurrentIndex(record_.StandardAspect < AR1.count() ? record_.StandardAspect : -1);
    AR2.Write(ToQString(TextOfSingle(record_.CustomAspect)));
    RecalcFromAspect();
    UpdateStats();
    isLoading_ = false;
  }

  void AspectR_Click(int index) {
    record_.AspectMode = static_cast<std::int16_t>(index);
    RecalcFromAspect();
  }

  void AR1_Click() {
    record_.StandardAspect = static_cast<std::int16_t>(AR1.currentIndex());
    RecalcFromAspect();
    AR1.setFocus();
  }

  void AR2_Change() {
    if (!IsNumericIn(AR2)) {
      WriteNumber(AR2, LeadingNumberIn(AR2));
    }
    RepairSign(AR2);
    if (NumberIn(AR2) >= RatioTooLarge) {
      AR2.Write(LargestRatio.toString());
    }
    record_.CustomAspect = SingleOf(AR2.text().toStdString());
    RecalcFromAspect();
    AR2.setFocus();
  }

  void MODUL_Click() {
    record_.ResolutionIncrement = static_cast<std::int16_t>(MODUL.currentData().toInt());
    for (auto* slider : {&HRES, &VRES}) {
      slider->SetStep(Modulus());
      SnapSlider(*slider);
    }
    RecalcFromAspect();
  }

  void HRES_Change() {
    SnapSlider(HRES);
    // Deliberately only when the user moves the slider: otherwise the sliders would move each other
    // (AspectRaTest, ASliderMovedByTheProgramDoesNotMoveTheOther).
    if (ratio_ != 0 && !HRES.IsBeingWritten()) {
      VRES.Write(HeightFor(HRES.value(), ratio_, Modulus()));
    }
    HRESL.Write(QString::number(HRES.value()));
    StoreResolution();
    UpdateStats();
  }

  void VRES_Change() {
    SnapSlider(VRES);
    if (ratio_ != 0 && !VRES.IsBeingWritten()) {
      HRES.Write(WidthFor(VRES.value(), ratio_, Modulus()));
    }
    VRESL.Write(QString::number(VRES.value()));
    StoreResolution();
    UpdateStats();
  }

  // A value off the grid goes to the nearest multiple, but not out of the slider's range.
  void SnapSlider(Slider& slider) {
    if (slider.value() % Modulus() != 0) {
      slider.Write(Snapped(slider.value(), Modulus()));
    }
  }

  void StoreResolution() {
    if (!isLoading_) {
      record_.ResHorizontal = static_cast<std::int16_t>(HRES.value());
      record_.ResVertical = static_cast<std::int16_t>(VRES.value());
    }
  }

  int Modulus() const { return record_.ResolutionIncrement; }

  void UpdateStats() {
    const auto statistics = StatisticsOf(HRES.value(), VRES.value(), ratio_);
    PixelCount.Write(QString::number(statistics.pixels));
    Macroblocks.Write(QString::number(statistics.macroblocks));
    AspectRatio.Write(ToQString(TextOf(statistics.ratio)));
    AspectError.Write(statistics.errorPercent ? ToQString(TextOf(*statistics.errorPercent)) + u'%'
                                              : u"N/A"_s);
  }

  void RecalcFromAspect() {
    AspectR.Select(record_.AspectMode);
    AR1.setEnabled(record_.AspectMode == Standard);
    AR2.setEnabled(record_.AspectMode == Custom);
    ratio_ = record_.AspectMode == Standard ? StandardRatio(record_.StandardAspect)
             : record_.AspectMode == Custom ? SingleOf(AR2.text().toStdString())
                                            : 0;
    if (ratio_ != 0) {
      VRES.Write(HeightFor(HRES.value(), ratio_, Modulus()));
      VRESL.Write(QString::number(VRES.value()));
    }
    UpdateStats();
  }
};

}  // namespace

std::unique_ptr<Form> MakeAspectRa(Services& services) {
  return std::make_unique<AspectRa>(services);
}

}  // namespace brindle
