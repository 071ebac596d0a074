// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QString>
#include <QWidget>

#include "base/input/modal_dialogs.h"
#include "base/interface.h"

namespace brindle {

/// The buttons of a box; the first one is the default, except where a key pressed by
/// mistake would lose or change something: then it is the last one.
enum class BoxButtons { Ok, YesNo, YesNoDefaultNo, CancelTryAgainContinue, FinishUndoLater };
enum class BoxAnswer { Ok, Yes, No, Cancel, TryAgain, Continue, Finish, Undo, Later };

/// Message boxes as the windows ask for them: plain text, and the whole program stops while one is
/// open. The call returns at once; what follows the answer is a function.
class MessageBoxes : public Interface {
 public:
  using WhenAnswered = std::function<void(BoxAnswer)>;

  /// Opens a box over `owner`, which may be null. `answered` runs once the user has answered, but
  /// never if the owner is closed or the program ends while the box is open.
  virtual void Ask(QWidget* owner, const QString& text, BoxButtons buttons,
                   const WhenAnswered& answered) = 0;

  /// A box with an OK button and nothing to do afterwards.
  void Tell(QWidget* owner, const QString& text) {
    Ask(owner, text, BoxButtons::Ok, [](BoxAnswer) {});
  }
};

/// The message boxes on the screen.
class ScreenMessageBoxes : public MessageBoxes {
 public:
  explicit ScreenMessageBoxes(ModalDialogs& dialogs) : dialogs_(dialogs) {}
  void Ask(QWidget* owner, const QString& text, BoxButtons buttons,
           const WhenAnswered& answered) override;

 private:
  ModalDialogs& dialogs_;
};

}  // namespace brindle
