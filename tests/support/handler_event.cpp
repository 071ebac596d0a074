// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/support/handler_event.h"

#include <string>

#include <QAbstractButton>
#include <QWidget>

#include "tests/support/user.h"

namespace brindle {

std::string EventName(Event event) {
  switch (event) {
    case Event::Click:
      return "Picked";
    case Event::KeyPress:
      return "KeyPressed";
    case Event::KeyUp:
      return "KeyLetGo";
    case Event::GotFocus:
      return "GotFocus";
    case Event::LostFocus:
      return "LostFocus";
    case Event::MouseDown:
      return "MousePressed";
    case Event::MouseUp:
      return "MouseLetGo";
  }
  return {};
}

void Prepare(Event event, QWidget* control, QWidget* elsewhere) {
  (event == Event::GotFocus ? elsewhere : control)->setFocus();
  if (event == Event::MouseUp) {
    Press(control);
  }
}

void Cause(Event event, QWidget* control, QWidget* elsewhere) {
  switch (event) {
    case Event::Click:
      if (qobject_cast<QAbstractButton*>(control) != nullptr) {
        Click(control);
      } else {
        KeyDown(Qt::Key_Down);  // picks the next entry
      }
      break;
    case Event::KeyPress:
      KeyDown(Qt::Key_Backspace);
      break;
    case Event::KeyUp:
      KeyLetGo(Qt::Key_Backspace);
      break;
    case Event::GotFocus:
      control->setFocus();
      break;
    case Event::LostFocus:
      elsewhere->setFocus();
      break;
    case Event::MouseDown:
      Press(control);
      break;
    case Event::MouseUp:
      LetGo(control);
      break;
  }
}

}  // namespace brindle
