// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/push_button.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QString>

namespace brindle {

namespace {

bool IsEnter(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

QKeyEvent AsSpace(const QKeyEvent& event) {
  return {event.type(), Qt::Key_Space, event.modifiers(), QStringLiteral(" "),
          event.isAutoRepeat()};
}

}  // namespace

PushButton::PushButton(const QString& name, const QString& caption, const QString& tooltip)
    : QPushButton(caption) {
  setObjectName(name);
  setAccessibleName(caption);
  setToolTip(tooltip);
}

void PushButton::keyPressEvent(QKeyEvent* event) {
  if (IsEnter(*event)) {
    QKeyEvent space = AsSpace(*event);
    QPushButton::keyPressEvent(&space);
  } else {
    QPushButton::keyPressEvent(event);
  }
}

void PushButton::keyReleaseEvent(QKeyEvent* event) {
  if (IsEnter(*event)) {
    QKeyEvent space = AsSpace(*event);
    QPushButton::keyReleaseEvent(&space);
  } else {
    QPushButton::keyReleaseEvent(event);
  }
}

}  // namespace brindle
