// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QDialog>
#include <QList>
#include <QPointer>

namespace brindle {

/// The dialogs of the program. The whole program stops while one is open. The call that opens one
/// returns at once: what follows is a function that runs once the user has answered.
class ModalDialogs {
 public:
  /// Opens the dialog, which deletes itself when it is finished. `answered` runs with its result,
  /// but never if the owner of the dialog is closed or deleted first, and never if the program
  /// ends.
  void Open(QDialog* dialog, const std::function<void(int result)>& answered);

  /// Runs `action` as soon as no dialog is open: now, or after the last answer.
  void WhenNoneIsOpen(const std::function<void()>& action);

  /// Closes every open dialog without an answer, and forgets the action that waits for that.
  void Dismiss();

  /// The program ends: Dismiss(), and no dialog opens any more.
  void End();

 private:
  void RunAfterAll();
  void TakeAway(QDialog* dialog);

  QList<QPointer<QDialog>> open_;
  std::function<void()> afterAll_;
  bool ended_ = false;
};

}  // namespace brindle
