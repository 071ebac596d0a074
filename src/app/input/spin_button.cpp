// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/input/spin_button.h"

#include <QMouseEvent>
#include <QToolButton>

namespace brindle {

using namespace Qt::StringLiterals;

SpinButton::SpinButton(const QString& name, SpinDirection direction) : direction_(direction) {
  setObjectName(name);
  setFocusPolicy(Qt::NoFocus);
  setText(direction == SpinDirection::Plus ? u"+"_s : u"\u2212"_s);
}

void SpinButton::ClickShortly() {
  Q_EMIT MouseDown();
  Q_EMIT MouseUp();
}

void SpinButton::mousePressEvent(QMouseEvent* event) {
  QToolButton::mousePressEvent(event);
  if (event->button() == Qt::LeftButton) {
    Q_EMIT MouseDown();
  }
}

void SpinButton::mouseReleaseEvent(QMouseEvent* event) {
  QToolButton::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton) {
    Q_EMIT MouseUp();
  }
}

}  // namespace brindle
