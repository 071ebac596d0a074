// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/tolerance_choice.h"

#include <QString>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/slider.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr int MostTolerance = 30;  // percent

QString ToleranceText(float percent) { return ToQString(TextOfSingle(percent)) + u'%'; }

}  // namespace

ToleranceChoice::ToleranceChoice(Settings& record)
    : record_(record),
      Toler(u"Toler"_s, u"Tolerance for determining whether the WAV is already normalized."_s, 0,
            MostTolerance),
      TolerTxt(u"TolerTxt"_s, Toler.toolTip(), {u"88.8%"_s, ToleranceText(record.WavTolerance)}),
      Label4(u"Label4"_s, u"Normalization tolerance:"_s, Toler.toolTip()) {
  Toler.SetSteps(3, 1, 5);
  NameByLabel(Label4.text(), {&Toler, &TolerTxt});
  connect(&Toler, &Slider::Change, this, &ToleranceChoice::Toler_Change);
}

void ToleranceChoice::Form_Load() {
  Toler.Write(ToInteger32(record_.WavTolerance));
  Write(record_.WavTolerance);
}

void ToleranceChoice::Toler_Change() {
  if (!Toler.IsBeingWritten()) {
    record_.WavTolerance = static_cast<float>(Toler.value());
    Write(record_.WavTolerance);
  }
}

void ToleranceChoice::Write(float percent) {
  percent_ = percent;
  TolerTxt.Write(ToleranceText(percent));
}

}  // namespace brindle
