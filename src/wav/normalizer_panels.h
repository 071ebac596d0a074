// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QBoxLayout>

#include "base/settings/settings.h"
#include "wav/file_info.h"
#include "wav/output_choice.h"
#include "wav/pass_options.h"
#include "wav/peak_labels.h"
#include "wav/percent_choice.h"
#include "wav/sound_view.h"
#include "wav/task_panel.h"
#include "wav/tolerance_choice.h"

namespace brindle {

/// Everything that the normalizer's window shows, from top to bottom, and the groups of controls
/// that are shown and hidden together.
class NormalizerPanels {
 public:
  PassOptions options;
  ToleranceChoice tolerance;
  OutputChoice output;
  FileInfo fileInfo;
  SoundView sound;
  PercentChoice percent;
  PeakLabels peaks;
  TaskPanel tasks;

  explicit NormalizerPanels(Settings& record);
  [[nodiscard]] QBoxLayout* LaidOut();
  void Form_Load();

  /// Whether something can be started.
  void SetIdle(bool isIdle);

  void ResetLoad();
  void HideNormalize() { tasks.btnNorm.hide(); }
  void ShowFileInfo() { SetFileInfoVisible(true); }
  void HideFileInfo() { SetFileInfoVisible(false); }

 private:
  void SetFileInfoVisible(bool visible);
};

}  // namespace brindle
