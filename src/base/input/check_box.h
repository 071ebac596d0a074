// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCheckBox>
#include <QString>

namespace brindle {

/// A check box with a caption, which is its accessible name.
class CheckBox : public QCheckBox {
 public:
  CheckBox(const QString& name, const QString& caption, const QString& tooltip = {})
      : QCheckBox(caption) {
    setObjectName(name);
    setAccessibleName(caption);
    setToolTip(tooltip);
  }
};

}  // namespace brindle
