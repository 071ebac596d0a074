// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <optional>

#include <QString>
#include <QWidget>

#include "base/input/focus_tracker.h"

namespace brindle {

/// A window of the program. It knows which of its controls has the focus, closes on Escape (after
/// the field's own handler; an open list takes the key first), asks for its help on F1, and
/// announces once that it has been closed.
class Form : public QWidget {
  Q_OBJECT

 public:
  enum class Escape { Closes, IsIgnored };

  /// `name` is the window's own name, which tools see; `caption` its title.
  Form(const QString& name, const QString& caption, Escape escape = Escape::Closes);

  [[nodiscard]] FocusTracker& Focus() { return focus_; }

  /// Whether the window may be closed, or its program may end. If it has to ask the user first, the
  /// answer is no until `whenAgreed` runs.
  [[nodiscard]] bool MayClose(const std::function<void()>& whenAgreed);
  /// The window is about to be closed, or its program to end: it stops what it is doing.
  virtual void WillClose() {}

 Q_SIGNALS:
  /// The window has agreed to close and is about to hide; its owner may delete it, but only from
  /// the event loop.
  void Closed();
  /// The user wants to read about this window.
  void HelpAsked();

 protected:
  /// Overridden by a window that may object to being closed: runs `agreed` if the user agrees, now
  /// or later.
  virtual void AskToClose(const std::function<void()>& agreed) { agreed(); }

  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  FocusTracker focus_{this};
  Escape escape_;
  bool hasAgreed_ = false;            // after a question; the next try to close it succeeds
  std::optional<quint64> letGoOfF1_;  // at this time of the system's own clock
  bool closed_ = false;
};

}  // namespace brindle
