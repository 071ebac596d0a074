// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QHash>
#include <QObject>
#include <QWidget>

namespace brindle {

/// Tells a window which of its controls has the focus, in the sense of its handlers: a move from
/// one control of the window to another. Switching windows, opening a menu or a drop-down list, and
/// closing the window are not moves. The handler of the control that loses the focus runs first.
/// Before it, a number only begun in that field becomes 0, without telling any handler; some fields
/// keep it.
class FocusTracker : public QObject {
  Q_OBJECT

 public:
  explicit FocusTracker(QWidget* window);

  void OnGotFocus(QWidget* control, const std::function<void()>& handler);
  void OnLostFocus(QWidget* control, const std::function<void()>& handler);

  /// Gives the focus to the first control of a window that is not shown yet, and runs its handler.
  void Begin(QWidget* first);

  /// Moves the focus to a control as Tab does, even while the window is not the active one.
  void MoveTo(QWidget* control);

  /// From now on nothing counts as a move.
  void Stop();

 private:
  void FocusChanged(QWidget* now);

  QWidget* window_;
  QWidget* current_ = nullptr;
  bool stopped_ = false;
  QHash<QWidget*, std::function<void()>> gotFocus_;
  QHash<QWidget*, std::function<void()>> lostFocus_;
};

}  // namespace brindle
