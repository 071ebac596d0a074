// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QDialog>
#include <QList>
#include <QPointer>

namespace brindle {

/// The dialogs that stop the whole program while they are open, so that its end can take them away.
class ModalDialogs {
 public:
  /// Opens the dialog, waits for its end and gives its result; nothing when the program ended or
  /// the dialog was destroyed, with its owner, meanwhile.
  std::optional<int> Run(QDialog* opened);

  /// Takes every open dialog away; none counts as answered.
  void Dismiss();

  /// The same, and none opens any more.
  void End();

 private:
  QList<QPointer<QDialog>> open_;
  bool ended_ = false;
};

}  // namespace brindle
