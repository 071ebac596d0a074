// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/text_field.h"

#include <cmath>
#include <optional>
#include <utility>

#include <QApplication>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPalette>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionFrame>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

bool IsCommand(const QKeyEvent& event) {
  // Ctrl with a letter is a command; Ctrl and Alt together are how some keyboards make characters.
  return (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier;
}

bool MakesComma(const QKeyEvent& event) { return !IsCommand(event) && event.text() == u","_s; }

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
  return !IsCommand(event) && !event.text().isEmpty() && event.text().front().isPrint();
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

void SetTextKeepingSelection(QLineEdit* field, const QString& text) {
  if (text == field->text()) {
    return;
  }
  const bool allSelected = field->hasSelectedText() && field->selectedText() == field->text();
  field->setText(text);
  if (allSelected) {
    field->selectAll();
  }
}

TextField::TextField(const QString& name, const QString& tooltip) {
  setObjectName(name);
  setToolTip(tooltip);
  setMaxLength(LongestText);
  connect(this, &QLineEdit::textChanged, this, [this] {
    if (!isWriting_ && !std::exchange(isEditHeard_, false)) {
      HearOfChange();
    }
  });
  // In an edit this comes first, then the signal of the change.
  connect(this, &QLineEdit::textEdited, this, [this] {
    HearOfChange();
    isEditHeard_ = true;
    if (!inKey_) {
      Tell(&TextField::KeyUp);
    }
  });
}

void TextField::Write(const QString& text) { Set(text, std::nullopt); }

void TextField::Write(const QString& text, double number) {
  Set(text, text.isEmpty() || !std::isfinite(number) ? std::nullopt : std::optional(number));
}

void TextField::Set(const QString& text, std::optional<double> number) {
  // First, because whoever hears of the change may read the field and write it again.
  writtenFrom_ = number;
  const QScopedValueRollback writing(isWriting_, true);
  SetTextKeepingSelection(this, text);
}

void TextField::HearOfChange() {
  writtenFrom_.reset();
  ++changes_;
}

// If a handler ends with the text it began with, the cursor and the selection stay where they were,
// no matter what it wrote in between.
void TextField::Tell(void (TextField::*what)()) {
  const QString before = text();
  const int cursor = cursorPosition();
  const int start = selectionStart();
  const int length = selectionLength();
  Q_EMIT(this->*what)();
  if (text() != before ||
      (cursorPosition() == cursor && selectionStart() == start && selectionLength() == length)) {
    return;
  }
  if (start < 0) {
    setCursorPosition(cursor);
  } else if (cursor == start) {
    setSelection(start + length, -length);
  } else {
    setSelection(start, length);
  }
}

void TextField::PasteOver(const QString& text) {
  selectAll();
  insert(text);
}

bool TextField::IsBeingEdited() const {
  const auto* focused = window()->focusWidget();
  return focused != nullptr && (focused == this || focused == focusProxy());
}

void TextField::ShowAsResult(bool isResult) {
  setReadOnly(isResult);
  QPalette own;  // whatever is not set here follows the window
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

void TextField::inputMethodEvent(QInputMethodEvent* event) {
  if (event->commitString() == u","_s) {
    event->setCommitString(u"."_s, event->replacementStart(), event->replacementLength());
  }
  QLineEdit::inputMethodEvent(event);
}

void TextField::keyPressEvent(QKeyEvent* event) {
  if (!MakesComma(*event)) {
    TakeKey(event);
    return;
  }
  QKeyEvent period(QEvent::KeyPress, Qt::Key_Period, event->modifiers(), u"."_s,
                   event->isAutoRepeat());
  TakeKey(&period);
  event->setAccepted(period.isAccepted());
}

void TextField::TakeKey(QKeyEvent* event) {
  if (MakesCharacter(*event)) {
    Tell(&TextField::KeyPress);
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
    Tell(&TextField::KeyUp);
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
  Tell(&TextField::MouseDown);
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
  Tell(&TextField::MouseUp);
}

void TextField::mouseDoubleClickEvent(QMouseEvent* event) {
  QLineEdit::mouseDoubleClickEvent(event);
  Tell(&TextField::MouseDown);
}

}  // namespace brindle
