// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/peak_labels.h"

#include <cstdint>

#include <QLabel>
#include <QString>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

std::int16_t LevelIn(const QLabel* label) {
  return ToInteger16(NumberOf(label->text().toStdString()));
}

}  // namespace

PeakLabels::PeakLabels()
    : Label1(MakeLabel(u"Label1"_s, u"Peaks:"_s, u"Detected peaks"_s)),
      MinV(new ValueLabel(u"MinV"_s, u"Minimum level (peak)"_s, {u"-88888"_s})),
      MaxV(new ValueLabel(u"MaxV"_s, u"Maximum level (peak)"_s, {u"88888"_s})) {
  NameByTooltip(Label1->text(), {MinV, MaxV});
  KeepRoom({Label1, MinV, MaxV});
}

QBoxLayout* PeakLabels::Line() { return Across({Label1, MinV, MaxV}, Spacing); }

void PeakLabels::Write(std::int16_t lowest, std::int16_t highest) {
  MinV->Write(QString::number(lowest));
  MaxV->Write(QString::number(highest));
}

std::int16_t PeakLabels::Lowest() const { return LevelIn(MinV); }
std::int16_t PeakLabels::Highest() const { return LevelIn(MaxV); }

void PeakLabels::SetVisible(bool visible) {
  Label1->setVisible(visible);
  MinV->setVisible(visible);
  MaxV->setVisible(visible);
}

}  // namespace brindle
