// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/common_choices.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include "base/input/layout.h"
#include "base/input/option_group.h"

namespace brindle {

using namespace Qt::StringLiterals;

QStringList UsualAudioBitrates() {
  return {u"0"_s,   u"32"_s,  u"64"_s,  u"96"_s,  u"112"_s, u"128"_s, u"160"_s, u"192"_s,
          u"224"_s, u"256"_s, u"320"_s, u"384"_s, u"448"_s, u"512"_s, u"576"_s, u"640"_s};
}

QList<QWidget*> AddDivXVersions(OptionGroup& group, const QString& label) {
  auto* version3 =
      group.Add(0, u"3"_s, u"DivX 3.xx codec (results are accurate for low-motion codec)"_s);
  auto* version4 =
      group.Add(1, u"4/5"_s, u"DivX 4.xx / 5.xx codec (results are accurate for 2-pass mode)"_s);
  NameByTooltip(label, {version3, version4});
  return {version3, version4};
}

QList<QWidget*> AddFrameRateSystems(OptionGroup& group) {
  return {group.Add(0, u"PAL"_s, u"European PAL - 25 fps"_s),
          group.Add(1, u"NTSC 23.976"_s, u"American NTSC DVD 23.976 fps"_s),
          group.Add(2, u"NTSC 29.97"_s, u"American NTSC TV-DVD 29.97 fps"_s)};
}

}  // namespace brindle
