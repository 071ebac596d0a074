// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/percent_choice.h"

#include <QString>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/text_field.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr double MostPercent = 100;

}  // namespace

PercentChoice::PercentChoice(Settings& record)
    : record_(record),
      Label3(u"Label3"_s, u"Normalize to:"_s),
      PercNorm(u"PercNorm"_s, u"Normalize to a percentage of the 16bit sample range"_s) {
  PercNorm.setText(u"100"_s);
  PercNorm.KeepBegunNumber();
  PercNorm.setAcceptDrops(false);  // a file dropped there is for the window
  NameByLabel(Label3.text(), {&PercNorm});
  connect(&PercNorm, &TextField::textChanged, this, &PercentChoice::PercNorm_Change);
  connect(&PercNorm, &TextField::textChanged, this, &PercentChoice::TellPercent);
}

void PercentChoice::Form_Load() {
  WriteNumber(PercNorm, record_.WavNormalizePercent);
  TellPercent();
}

double PercentChoice::TargetPercent() {
  if (HasNoNumber()) {
    WriteNumber(PercNorm, record_.WavNormalizePercent);
  }
  return NumberIn(PercNorm);
}

bool PercentChoice::HasNoNumber() const {
  return IsEmpty(PercNorm) || IsJustBegun(PercNorm.text().toStdString());
}

void PercentChoice::TellPercent() {
  Q_EMIT Changed(HasNoNumber() ? record_.WavNormalizePercent : NumberIn(PercNorm));
}

void PercentChoice::PercNorm_Change() {
  if (IsEmpty(PercNorm)) {
    return;
  }
  if (!IsNumericIn(PercNorm)) {
    WriteNumber(PercNorm, LeadingNumberIn(PercNorm));
  }
  if (IsJustBegun(PercNorm.text().toStdString())) {
    return;
  }
  if (NumberIn(PercNorm) > MostPercent) {
    WriteNumber(PercNorm, MostPercent);
  }
  record_.WavNormalizePercent = ToInteger16(NumberIn(PercNorm));
}

}  // namespace brindle
