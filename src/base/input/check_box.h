// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCheckBox>
#include <QPaintEvent>
#include <QString>

#include "base/input/visible_edge.h"

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

 protected:
  void paintEvent(QPaintEvent* event) override {
    QCheckBox::paintEvent(event);
    DrawVisibleEdge(*this);
  }
};

}  // namespace brindle
