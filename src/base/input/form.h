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
/// the field's own handler; an open list takes it first), asks for its help on F1, and tells once
/// when it has been closed.
class Form : public QWidget {
  Q_OBJECT

 public:
  enum class Escape { Closes, IsIgnored };

  /// `name` is the window's own name, which tools see; `caption` its title.
  Form(const QString& name, const QString& caption, Escape escape = Escape::Closes);

  [[nodiscard]] FocusTracker& Focus() { return focus_; }

  /// Whether the window may be closed, or its program end. Where the user has to be asked first,
  /// it may not, until `whenAgreed` runs.
  [[nodiscard]] bool MayClose(const std::function<void()>& whenAgreed);
  /// The window is going to be closed, or its program to end: it stops what it is doing.
  virtual void WillClose() {}

 Q_SIGNALS:
  /// The window has agreed to close and is about to hide; whoever owns it may delete it, but only
  /// from the event loop.
  void Closed();
  /// The user wants to read about this window.
  void HelpAsked();

 protected:
  /// For a window that may have something against being closed: runs `agreed` if the user agrees,
  /// now or later.
  virtual void AskToClose(const std::function<void()>& agreed) { agreed(); }

  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  FocusTracker focus_{this};
  Escape escape_;
  bool hasAgreed_ = false;  // after a question; the next try to close it succeeds
  std::optional<quint64> letGoOfF1_;  // when, by the system's own clock
  bool closed_ = false;
};

}  // namespace brindle
