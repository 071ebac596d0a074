// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/input/text_field.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPalette>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionFrame>

namespace brindle {
namespace {

bool MakesCharacter(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
      return true;
    default:
      break;
  }
  // Ctrl with a letter is a command; Ctrl and Alt together are how some keyboards make characters.
  const bool isCommand =
      (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier;
  return !isCommand && !event.text().isEmpty() && event.text().front().isPrint();
}

bool IsModifier(int key) {
  switch (key) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
      return true;
    default:
      return false;
  }
}

}  // namespace

TextField::TextField(const QString& name, const QString& tooltip) {
  setObjectName(name);
  setToolTip(tooltip);
  setMaxLength(LongestText);
  connect(this, &QLineEdit::textEdited, this, [this] {
    if (!inKey_) {
      Q_EMIT KeyUp();
    }
  });
}

void TextField::Write(const QString& text) {
  if (text == this->text()) {
    return;
  }
  const bool allSelected = hasSelectedText() && selectedText() == this->text();
  setText(text);
  if (allSelected) {
    selectAll();
  }
}

bool TextField::IsBeingEdited() const {
  const auto* focused = window()->focusWidget();
  return focused != nullptr && (focused == this || focused == focusProxy());
}

void TextField::ShowAsResult(bool isResult) {
  setReadOnly(isResult);
  QPalette own;  // everything that is not set here follows the window
  if (isResult) {
    own.setBrush(QPalette::Base, Qt::transparent);
  }
  setPalette(own);
}

void TextField::SetVisibleDigits(int digits) {
  visibleDigits_ = digits;
  updateGeometry();
}

QSize TextField::sizeHint() const {
  QStyleOptionFrame option;
  initStyleOption(&option);
  const auto margins = textMargins();
  // Two pixels on either side are the toolkit's own inner margin of a line edit.
  constexpr int innerMargins = 4;
  const int width = fontMetrics().horizontalAdvance(u'0') * visibleDigits_ + margins.left() +
                    margins.right() + innerMargins;
  const int height = QLineEdit::sizeHint().height();
  const auto styled = style()->sizeFromContents(QStyle::CT_LineEdit, &option,
                                                QSize(width, fontMetrics().height()), this);
  return {styled.width(), height};
}

QSize TextField::minimumSizeHint() const { return sizeHint(); }

void TextField::keyPressEvent(QKeyEvent* event) {
  if (MakesCharacter(*event)) {
    Q_EMIT KeyPress();
  }
  const bool isUp = event->key() == Qt::Key_Up;
  if ((isUp || event->key() == Qt::Key_Down) &&
      (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
    Q_EMIT ArrowKey(isUp ? 1 : -1);
    event->accept();
    return;
  }
  const QScopedValueRollback inKey(inKey_, true);
  QLineEdit::keyPressEvent(event);
}

void TextField::keyReleaseEvent(QKeyEvent* event) {
  QLineEdit::keyReleaseEvent(event);
  if (!event->isAutoRepeat() && !IsModifier(event->key())) {
    Q_EMIT KeyUp();
  }
}

void TextField::focusInEvent(QFocusEvent* event) {
  pressBringsFocus_ = event->reason() == Qt::MouseFocusReason;
  QLineEdit::focusInEvent(event);
}

void TextField::mousePressEvent(QMouseEvent* event) {
  pressKeepsSelection_ =
      pressBringsFocus_ && event->button() == Qt::LeftButton && hasSelectedText();
  pressBringsFocus_ = false;
  if (pressKeepsSelection_) {
    pressPosition_ = event->position().toPoint();
    event->accept();
  } else {
    QLineEdit::mousePressEvent(event);
  }
  Q_EMIT MouseDown();
}

void TextField::mouseMoveEvent(QMouseEvent* event) {
  if (pressKeepsSelection_) {
    const auto moved = event->position().toPoint() - pressPosition_;
    if (moved.manhattanLength() < QApplication::startDragDistance()) {
      return;
    }
    pressKeepsSelection_ = false;
    setCursorPosition(cursorPositionAt(pressPosition_));
  }
  QLineEdit::mouseMoveEvent(event);
}

void TextField::mouseReleaseEvent(QMouseEvent* event) {
  if (pressKeepsSelection_) {
    pressKeepsSelection_ = false;
    event->accept();
  } else {
    QLineEdit::mouseReleaseEvent(event);
  }
  Q_EMIT MouseUp();
}

void TextField::mouseDoubleClickEvent(QMouseEvent* event) {
  QLineEdit::mouseDoubleClickEvent(event);
  Q_EMIT MouseDown();
}

}  // namespace brindle
