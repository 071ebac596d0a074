// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/normalizer_panels.h"

#include <QBoxLayout>

#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/settings/settings.h"

namespace brindle {

using namespace Qt::StringLiterals;

NormalizerPanels::NormalizerPanels(Settings& record)
    : options(record), tolerance(record), output(record), percent(record) {
  QObject::connect(&percent, &PercentChoice::Changed, &sound, &SoundView::AimAt);
}

QBoxLayout* NormalizerPanels::LaidOut() {
  // clang-format off
  return Down({
    options.InFrame({tolerance.Caption(), {tolerance.Range(), tolerance.Value()}}),
    output.InFrame(),
    fileInfo.InFrame(&sound),
    Across({
      percent.Caption(), percent.Field(), MakeLabel(u"%"_s), Item::Stretch(),
      peaks.Line(),
    }, Spacing),
    tasks.Buttons(),
    tasks.Progress(),
  });
  // clang-format on
}

void NormalizerPanels::Form_Load() {
  tolerance.Form_Load();
  ResetLoad();
  peaks.HidePeaks();
  tasks.HideProgress();
  percent.Form_Load();
  options.Form_Load();
  output.Form_Load();
}

void NormalizerPanels::SetIdle(bool isIdle) {
  tasks.SetIdle(isIdle);
  output.SetIdle(isIdle);
}

void NormalizerPanels::ResetLoad() {
  HideNormalize();
  tasks.Undo.hide();
  HideFileInfo();
  tasks.HideCancel();
}

void NormalizerPanels::SetFileInfoVisible(bool visible) {
  tasks.btnScan.setVisible(visible);
  fileInfo.SetVisible(visible);
}

}  // namespace brindle
