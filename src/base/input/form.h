// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

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

  /// Whether the window, which is to be closed, or whose program is to end, has nothing against it.
  /// May ask the user.
  [[nodiscard]] virtual bool AgreesToClose() { return true; }
  /// The window is going to be closed, or its program to end: nobody was against it.
  virtual void WillClose() {}

  /// For the owner of a closed window: deletes it from the event loop, when none of its own
  /// functions is running any more.
  void DeleteWhenLeft();

  /// Stands in every function of a window of the list that lets events in: while a box is open,
  /// during a long pass. The window may be closed meanwhile, but is not deleted.
  class Occupied {
   public:
    explicit Occupied(Form& form) : form_(form) { ++form_.inside_; }
    Occupied(const Occupied&) = delete;
    Occupied& operator=(const Occupied&) = delete;
    Occupied(Occupied&&) = delete;
    Occupied& operator=(Occupied&&) = delete;
    ~Occupied();

   private:
    Form& form_;
  };

 Q_SIGNALS:
  /// The window has agreed to close and is about to hide; whoever owns it may delete it, but only
  /// from the event loop.
  void Closed();
  /// The user wants to read about this window.
  void HelpAsked();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  FocusTracker focus_{this};
  Escape escape_;
  bool closed_ = false;
  int inside_ = 0;
  bool toBeDeleted_ = false;
};

}  // namespace brindle
