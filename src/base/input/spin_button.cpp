// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/spin_button.h"

#include <utility>

#include <QEvent>
#include <QMouseEvent>
#include <QString>
#include <QToolButton>

namespace brindle {

using namespace Qt::StringLiterals;

SpinButton::SpinButton(const QString& name, SpinDirection direction, const QString& tooltip)
    : direction_(direction) {
  setObjectName(name);
  setToolTip(tooltip);
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
    isHeld_ = true;
    Q_EMIT MouseDown();
  }
}

void SpinButton::mouseReleaseEvent(QMouseEvent* event) {
  QToolButton::mouseReleaseEvent(event);
  if (event->button() == Qt::LeftButton) {
    LetGo();
  }
}

void SpinButton::changeEvent(QEvent* event) {
  QToolButton::changeEvent(event);
  if (event->type() == QEvent::EnabledChange && !isEnabled()) {
    LetGo();
  }
}

void SpinButton::LetGo() {
  if (std::exchange(isHeld_, false)) {
    Q_EMIT MouseUp();
  }
}

}  // namespace brindle
