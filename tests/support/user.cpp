// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/support/user.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>
#include <QtTest/qtestspontaneevent.h>
#include <gtest/gtest.h>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

QWindow* WindowOf(const QWidget* widget) { return widget->window()->windowHandle(); }

QPoint InWindow(const QWidget* widget, QPoint position) {
  return widget->mapTo(widget->window(), position);
}

QPoint Middle(const QWidget* widget) { return InWindow(widget, widget->rect().center()); }

QWindow* FocusWindow() {
  auto* window = QGuiApplication::focusWindow();
  if (window == nullptr) {
    ADD_FAILURE() << "no window has the focus";
  }
  return window;
}

}  // namespace

void Press(QWidget* widget, Qt::MouseButton button) {
  QTest::mousePress(WindowOf(widget), button, {}, Middle(widget));
}

void LetGo(QWidget* widget, Qt::MouseButton button) {
  QTest::mouseRelease(WindowOf(widget), button, {}, Middle(widget));
}

void Click(QWidget* widget, Qt::MouseButton button) {
  Press(widget, button);
  LetGo(widget, button);
}

void DoubleClick(QWidget* widget) {
  QTest::mouseDClick(WindowOf(widget), Qt::LeftButton, {}, Middle(widget));
}

void MoveTo(QWidget* widget, QPoint position) {
  QTest::mouseMove(WindowOf(widget), InWindow(widget, position));
}

void Wheel(QWidget* widget, int steps) {
  const auto middle = widget->rect().center();
  QWheelEvent event(middle, widget->mapToGlobal(middle), {}, {0, steps * 120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  // Marked as coming from the window system: only such a wheel event may move the focus.
  QSpontaneKeyEvent::setSpontaneous(&event);
  QApplication::instance()->notify(widget, &event);
}

void Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  if (auto* window = FocusWindow()) {
    QTest::keyClick(window, key, modifiers);
  }
}

void KeyDown(Qt::Key key, const QString& text) {
  if (auto* window = FocusWindow()) {
    QTest::sendKeyEvent(QTest::Press, window, key, text, Qt::NoModifier);
  }
}

void KeyLetGo(Qt::Key key, const QString& text) {
  if (auto* window = FocusWindow()) {
    QTest::sendKeyEvent(QTest::Release, window, key, text, Qt::NoModifier);
  }
}

void Type(const QString& text) {
  for (const QChar c : text) {
    if (auto* window = FocusWindow()) {
      QTest::keyClick(window, c.toLatin1());
    }
  }
}

void TypeOver(const QString& text) {
  Key(Qt::Key_A, Qt::ControlModifier);
  Type(text);
}

void Paste(const QString& text) {
  QApplication::clipboard()->setText(text);
  Key(Qt::Key_V, Qt::ControlModifier);
}

void TabTo(QWidget* widget) {
  for (int presses = 0; presses < 50; ++presses) {
    if (widget->window()->focusWidget() == widget) {
      return;
    }
    Key(Qt::Key_Tab);
  }
  ADD_FAILURE() << "Tab does not reach " << widget->objectName().toStdString();
}

}  // namespace brindle
