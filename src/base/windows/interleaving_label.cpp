// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/windows/interleaving_label.h"

#include <QString>

#include "base/input/labels.h"
#include "base/settings/settings.h"

namespace brindle {

using namespace Qt::StringLiterals;

InterleavingLabel::InterleavingLabel(const Settings& record)
    : ValueLabel(u"Interl"_s, u"Indicates whether Interleaving is being calculated (Advanced)"_s,
                 {u"OFF"_s}),
      record_(record) {}

void InterleavingLabel::Refresh() {
  const bool isOn = record_.VideoFrameOverhead + record_.AudioInterleaveOverhead > 0;
  Write(isOn ? u"ON"_s : u"OFF"_s);
}

}  // namespace brindle
