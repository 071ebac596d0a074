// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/pass_options.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QString>

#include "base/input/layout.h"
#include "base/settings/settings.h"

namespace brindle {

using namespace Qt::StringLiterals;

PassOptions::PassOptions(Settings& record)
    : record_(record),
      Mbuffer(u"Mbuffer"_s, u"Multi-buffering (faster for source/target on the same HDD)"_s,
              u"Disable multi-buffering when source and target are on two separate hard disks."_s),
      AutoNorm(u"AutoNorm"_s, u"Auto Normalize After Scan"_s,
               u"Begin normalization immediately after scanning (no prompt)"_s),
      RemFolders(u"RemFolders"_s, u"Remember Folders"_s, u"Remember last folder/file loaded"_s) {
  connect(&Mbuffer, &QCheckBox::toggled, this, &PassOptions::Mbuffer_Click);
  connect(&AutoNorm, &QCheckBox::toggled, this, &PassOptions::AutoNorm_Click);
  connect(&RemFolders, &QCheckBox::toggled, this, &PassOptions::RemFolders_Click);
}

QGroupBox* PassOptions::InFrame(const Row& tolerance) {
  // clang-format off
  return MakeFrame(u"Options"_s, {
    {&Mbuffer, {}},
    {&AutoNorm, {}},
    {&RemFolders, {}},
    tolerance,
  });
  // clang-format on
}

void PassOptions::Form_Load() {
  AutoNorm.setChecked(record_.WavAutoNormalize);
  Mbuffer.setChecked(record_.WavMultiBuffer);
  RemFolders.setChecked(record_.WavRememberFolders);
}

}  // namespace brindle
