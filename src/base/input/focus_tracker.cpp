// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/focus_tracker.h"

#include <functional>
#include <utility>

#include <QApplication>
#include <QComboBox>
#include <QObject>
#include <QSignalBlocker>
#include <QWidget>

#include "base/input/editable_list.h"
#include "base/input/text_field.h"
#include "base/numbers/numeric_text.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

// The control that a widget belongs to: an editable list and its text part are one control.
QWidget* ControlOf(QWidget* widget) {
  auto* list = qobject_cast<QComboBox*>(widget->parentWidget());
  return list != nullptr ? list : widget;
}

void Run(const QHash<QWidget*, std::function<void()>>& handlers, QWidget* control) {
  const auto handler = handlers.value(control);
  if (handler) {
    handler();
  }
}

// The field, or text part, of a control; null if it has none.
TextField* FieldOf(QWidget* control) {
  auto* list = qobject_cast<EditableList*>(control);
  return list != nullptr ? list->Field() : qobject_cast<TextField*>(control);
}

// A number that was only begun stood for 0 while it was being typed, and the user did not finish
// it.
void EndBegunNumber(TextField* field) {
  if (!field->KeepsBegunNumber() && IsJustBegun(field->text().toStdString())) {
    const QSignalBlocker quiet(field);
    field->Write(u"0"_s);
  }
}

}  // namespace

FocusTracker::FocusTracker(QWidget* window) : QObject(window), window_(window) {
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { FocusChanged(now); });
}

void FocusTracker::OnGotFocus(QWidget* control, const std::function<void()>& handler) {
  gotFocus_.insert(control, handler);
}

void FocusTracker::OnLostFocus(QWidget* control, const std::function<void()>& handler) {
  lostFocus_.insert(control, handler);
}

void FocusTracker::Begin(QWidget* first) {
  first->setFocus();
  // As if Tab had led there: the first key replaces the text of a list.
  if (auto* list = qobject_cast<EditableList*>(first)) {
    list->Field()->selectAll();
  }
  FocusChanged(first);
}

// In a window that is not active, the toolkit does not report the move.
void FocusTracker::MoveTo(QWidget* control) {
  control->setFocus(Qt::TabFocusReason);
  FocusChanged(control);
}

void FocusTracker::Stop() { stopped_ = true; }

void FocusTracker::FocusChanged(QWidget* now) {
  if (stopped_ || now == nullptr || now->window() != window_) {
    return;
  }
  auto* control = ControlOf(now);
  if (control == current_) {
    return;
  }
  auto* left = std::exchange(current_, control);
  if (auto* field = FieldOf(left)) {
    EndBegunNumber(field);
  }
  Run(lostFocus_, left);
  Run(gotFocus_, control);
}

}  // namespace brindle
