// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/drop_down_list.h"

#include <QComboBox>
#include <QString>
#include <QWheelEvent>

namespace brindle {

DropDownList::DropDownList(const QString& name, const QString& tooltip) {
  setObjectName(name);
  setToolTip(tooltip);
  // Not the toolkit's usual policy, with which turning the wheel moves the focus here.
  setFocusPolicy(Qt::StrongFocus);
}

void DropDownList::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace brindle
