// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QGroupBox>
#include <QObject>
#include <QWidget>

#include "base/input/check_box.h"
#include "base/input/layout.h"
#include "base/settings/settings.h"
#include "wav/normalization.h"

namespace brindle {

/// The frame "Options" of the normalizer. Keeps what is chosen in the settings record.
class PassOptions : public QObject {
  Q_OBJECT

  Settings& record_;

  CheckBox Mbuffer;
  CheckBox AutoNorm;
  CheckBox RemFolders;

 public:
  explicit PassOptions(Settings& record);
  /// The frame, with a line for the tolerance at its end.
  [[nodiscard]] QGroupBox* InFrame(const Row& tolerance);
  [[nodiscard]] QWidget* First() { return &Mbuffer; }

  void Form_Load();

  [[nodiscard]] Buffering ChosenBuffering() const {
    return Mbuffer.isChecked() ? Buffering::Multi : Buffering::Single;
  }
  /// Whether a scan goes on to normalize.
  [[nodiscard]] bool NormalizesAfterScan() const { return AutoNorm.isChecked(); }

  /// While a pass runs its buffering cannot be changed.
  void SetBufferingEnabled(bool enabled) { Mbuffer.setEnabled(enabled); }

 private:
  void Mbuffer_Click() { record_.WavMultiBuffer = Mbuffer.isChecked(); }
  void AutoNorm_Click() { record_.WavAutoNormalize = AutoNorm.isChecked(); }
  void RemFolders_Click() { record_.WavRememberFolders = RemFolders.isChecked(); }
};

}  // namespace brindle
