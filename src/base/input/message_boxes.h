// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QString>
#include <QWidget>

#include "base/input/modal_dialogs.h"
#include "base/interface.h"

namespace brindle {

/// The buttons of a box; the first one is its default, but where something is lost by Yes.
enum class BoxButtons { Ok, YesNo, YesNoDefaultNo, CancelTryAgainContinue };
enum class BoxAnswer { Ok, Yes, No, Cancel, TryAgain, Continue };

/// Message boxes as the windows ask for them: plain text, the whole program stops while one is
/// open.
class MessageBoxes : public Interface {
 public:
  /// Returns when the user has answered, or with nothing when `owner` or the program goes away
  /// under the open box; then the caller must not touch its window any more.
  virtual std::optional<BoxAnswer> Ask(QWidget* owner, const QString& text, BoxButtons buttons) = 0;
};

/// The message boxes on the screen.
class ScreenMessageBoxes : public MessageBoxes {
 public:
  explicit ScreenMessageBoxes(ModalDialogs& dialogs) : dialogs_(dialogs) {}
  std::optional<BoxAnswer> Ask(QWidget* owner, const QString& text, BoxButtons buttons) override;

 private:
  ModalDialogs& dialogs_;
};

}  // namespace brindle
