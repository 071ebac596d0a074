// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QGroupBox>
#include <QObject>
#include <QString>

#include "base/input/elided_label.h"
#include "base/input/option_group.h"
#include "base/input/push_button.h"
#include "base/settings/settings.h"

namespace brindle {

/// The frame of the normalizer in which the user chooses where the normalized samples go: into the
/// source itself, or into a target file. Keeps the choice in the settings record.
class OutputChoice : public QObject {
  Q_OBJECT

 public:
  explicit OutputChoice(Settings& record);
  [[nodiscard]] QGroupBox* InFrame();

  void Form_Load();
  void SelectSource() { Output.Select(Source); }
  void WriteTarget(const QString& path);

  // The choice as it is shown, even if the settings record has changed since.
  [[nodiscard]] bool IsInPlace() const { return Output.Selected() == Source; }
  [[nodiscard]] QString TargetPath() const { return target_; }

  /// While a pass runs the user cannot browse for a target.
  void SetIdle(bool isIdle);

 Q_SIGNALS:
  /// The user wants to choose the target file.
  void Browse();

 private:
  enum Index { Source, File };

  void Output_Click(int index);
  void ShowTarget(const QString& path);
  void EnableTarget();

  Settings& record_;
  bool isIdle_ = true;
  QString target_;

  OptionGroup Output;
  PushButton Target;
  ElidedLabel TargetFile;
};

}  // namespace brindle
