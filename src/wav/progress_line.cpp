// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/progress_line.h"

#include <QBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QString>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/numbers/rounding.h"
#include "wav/wav_text.h"

namespace brindle {

using namespace Qt::StringLiterals;

ProgressLine::ProgressLine()
    : Perc(u"Perc"_s, {}, {u"888%"_s}),
      ETA1(u"ETA1"_s, u"ETA:"_s, u"Remaining time to complete task (min:secs)"_s),
      ETA2(u"ETA2"_s, ETA1.toolTip(), {u"8888:88"_s}) {
  ProgBar.setObjectName(u"ProgBar"_s);
  ProgBar.setRange(0, 100);
  ProgBar.setTextVisible(false);
  NameByLabel(u"Progress"_s, {&ProgBar, &Perc});
  NameByLabel(ETA1.text(), {&ETA2});
  KeepRoom({&ProgBar, &Perc, &ETA1, &ETA2});
}

QBoxLayout* ProgressLine::Line(QLabel* status) {
  return Across({status, &ProgBar, &Perc, &ETA1, &ETA2}, Spacing);
}

void ProgressLine::ShowProgress() {
  ETA2.Write({});
  SetVisible(true);
}

void ProgressLine::HideProgress() {
  Perc.Write(u"0"_s);
  ProgBar.setValue(0);
  ETA2.Write({});
  SetVisible(false);
}

void ProgressLine::Update(const PassProgress& progress) {
  ProgBar.setValue(ToInteger32(progress.percent));
  Perc.Write(QString::number(progress.wholePercent) + u'%');
  ShowETA(progress.elapsed, progress.wholePercent);
}

void ProgressLine::ShowETA(double elapsed, int wholePercent) {
  if (const auto remaining = RemainingTime(elapsed, wholePercent)) {
    ETA2.Write(ToQString(*remaining));
  }
}

void ProgressLine::SetVisible(bool visible) {
  ETA1.setVisible(visible);
  ETA2.setVisible(visible);
  ProgBar.setVisible(visible);
  Perc.setVisible(visible);
}

}  // namespace brindle
