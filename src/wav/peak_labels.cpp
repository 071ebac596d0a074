// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/peak_labels.h"

#include <QLabel>
#include <QString>

#include "base/input/labels.h"
#include "base/input/layout.h"

namespace brindle {

using namespace Qt::StringLiterals;

PeakLabels::PeakLabels()
    : Label1(u"Label1"_s, u"Peaks:"_s, u"Detected peaks"_s),
      MinV(u"MinV"_s, u"Minimum level (peak)"_s, {u"-88888"_s}),
      MaxV(u"MaxV"_s, u"Maximum level (peak)"_s, {u"88888"_s}) {
  NameByTooltip(Label1.text(), {&MinV, &MaxV});
  KeepRoom({&Label1, &MinV, &MaxV});
}

QBoxLayout* PeakLabels::Line() { return Across({&Label1, &MinV, &MaxV}, Spacing); }

void PeakLabels::Write(Peaks peaks) {
  MinV.Write(QString::number(peaks.lowest));
  MaxV.Write(QString::number(peaks.highest));
}

void PeakLabels::SetVisible(bool visible) {
  Label1.setVisible(visible);
  MinV.setVisible(visible);
  MaxV.setVisible(visible);
}

}  // namespace brindle
