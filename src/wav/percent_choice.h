// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QObject>

#include "base/input/labels.h"
#include "base/input/text_field.h"
#include "base/settings/settings.h"

namespace brindle {

/// The field of the normalizer for the level that the peaks are to reach. Keeps the choice in the
/// settings record, as a whole number.
class PercentChoice : public QObject {
  Q_OBJECT

 public:
  explicit PercentChoice(Settings& record);

  [[nodiscard]] QLabel* Caption() { return &Label3; }
  [[nodiscard]] TextField* Field() { return &PercNorm; }

  void Form_Load();

  /// The percentage for a pass. A field that is empty or holds a number just begun counts as the
  /// stored percentage and shows it again.
  [[nodiscard]] double TargetPercent();

 Q_SIGNALS:
  /// The percentage that a pass would have by what the field holds now.
  void Changed(double percent);

 private:
  [[nodiscard]] bool HasNoNumber() const;
  void TellPercent();
  void PercNorm_Change();

  Settings& record_;

  PlainLabel Label3;
  TextField PercNorm;
};

}  // namespace brindle
