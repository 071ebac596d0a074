// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "split/duration_labels.h"

#include <optional>

#include <QList>
#include <QString>
#include <QWidget>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/running_time.h"

namespace brindle {

using namespace Qt::StringLiterals;

DurationLabels::DurationLabels()
    : Time1(u"Time1"_s, {}, {u"8888"_s}),
      Time2(u"Time2"_s, {}, {u"88"_s}),
      Time3(u"Time3"_s, {}, {u"88.88"_s}) {
  NameByLabel(u"Duration: hours"_s, {&Time1});
  NameByLabel(u"Duration: minutes"_s, {&Time2});
  NameByLabel(u"Duration: seconds"_s, {&Time3});
  Time3.Write(u"00.00"_s);
}

QList<QWidget*> DurationLabels::Line() {
  return {&Time1, MakeLabel(u":"_s), &Time2, MakeLabel(u":"_s), &Time3};
}

void DurationLabels::Write(std::optional<double> minutes) {
  const auto time = TakeApart(SecondsToHundredths(minutes.value_or(0)));
  Time1.Write(minutes ? ToQString(TextOf(time.hours)) : QString());
  Time2.Write(minutes ? ToQString(TextOf(time.minutes)) : QString());
  Time3.Write(minutes ? ToQString(Formatted(time.seconds, "00.00")) : QString());
}

}  // namespace brindle
