// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QList>
#include <QWidget>

#include "base/input/labels.h"

namespace brindle {

/// A running time in three labels: hours, minutes, and seconds with two decimals.
class DurationLabels {
 public:
  DurationLabels();

  /// The labels with colons between them, as one line of a layout.
  [[nodiscard]] QList<QWidget*> Line();

  /// Shows a running time of `minutes`, rounded to hundredths of a second; blank if there is none.
  void Write(std::optional<double> minutes);

 private:
  ValueLabel Time1;
  ValueLabel Time2;
  ValueLabel Time3;
};

}  // namespace brindle
