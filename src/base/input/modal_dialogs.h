// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QDialog>
#include <QList>
#include <QPointer>

namespace brindle {

/// The dialogs of the program, each of which stops the whole program while it is open. None of them
/// is waited for: what is to follow is a function that runs when the user has answered.
class ModalDialogs {
 public:
  /// Opens the dialog, which deletes itself when it is over. `answered` runs with its result; never
  /// when its owner is closed or deleted under it, and never when the program ends.
  void Open(QDialog* dialog, const std::function<void(int result)>& answered);

  /// Runs `action` as soon as none is open: now, or after the last answer.
  void WhenNoneIsOpen(const std::function<void()>& action);

  /// Takes away what is open; none of it counts as answered, and nothing waits for it any more.
  void Dismiss();

  /// The program ends: Dismiss(), and no dialog opens any more.
  void End();

 private:
  void TakeAway(QDialog* dialog);

  QList<QPointer<QDialog>> open_;
  std::function<void()> afterAll_;
  bool ended_ = false;
};

}  // namespace brindle
