// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QGroupBox>
#include <QObject>
#include <QPushButton>

#include "app/input/elided_label.h"
#include "app/input/form.h"
#include "app/input/option_group.h"
#include "app/settings/settings.h"
#include "app/windows/services.h"

namespace brindle {

/// The frame of the normalizer in which the user chooses where the normalized samples go: into the
/// source itself, or into a target file. Keeps the choice in the settings record.
class OutputChoice : public QObject {
  Q_OBJECT

 public:
  OutputChoice(Form& window, Services& services);
  [[nodiscard]] QGroupBox* InFrame();

  void Form_Load();
  void SelectSource() { Output.Select(Source); }
  /// While a pass runs no target can be browsed for.
  void SetIdle(bool isIdle);

 private:
  enum Index { Source, File };

  void Output_Click(int index);
  void Target_Click();
  void ShowTarget();
  void EnableTarget();

  Form& window_;
  Services& services_;
  Settings& record_;
  bool isIdle_ = true;

  OptionGroup Output;
  QPushButton* Target;
  ElidedLabel* TargetFile;
};

}  // namespace brindle
