// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/drop_down_list.h"
#include "base/input/form.h"
#include "base/input/labels.h"
#include "base/input/option_group.h"
#include "base/input/results.h"
#include "base/input/slider.h"
#include "base/input/text_field.h"
#include "base/settings/settings.h"
#include "base/windows/services.h"

namespace brindle {

/// The resolution and aspect-ratio calculator: two sliders that keep the ratio of the film.
class AspectRa : public Form {
  Q_OBJECT

 public:
  explicit AspectRa(Services& services);

 private:
  enum Mode { Free, Standard, Custom };

  void MakeLayout();
  void WireEvents();

  void Form_Load();
  void AspectR_Click(int index);
  void AR1_Click();
  void AR2_Change();
  void MODUL_Click();
  void HRES_Change();
  void VRES_Change();

  void RecalcFromAspect();
  void UpdateStats();
  void SnapSlider(Slider* slider);
  void StoreResolution();
  [[nodiscard]] int Modulus() const;

  Settings& record_;
  float ratio_ = 0;  // of the film, width to height; 0 is none
  bool isLoading_ = true;

  OptionGroup AspectR;
  DropDownList* AR1;
  TextField* AR2;
  DropDownList* MODUL;
  Slider* HRES;
  CopyableLabel* HRESL;
  Slider* VRES;
  CopyableLabel* VRESL;
  ValueLabel* PixelCount;
  ValueLabel* Macroblocks;
  ValueLabel* AspectRatio;
  ValueLabel* AspectError;
};

}  // namespace brindle
