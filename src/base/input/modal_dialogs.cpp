// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/modal_dialogs.h"

#include <optional>
#include <utility>

#include <QDialog>
#include <QPointer>

namespace brindle {

std::optional<int> ModalDialogs::Run(QDialog* opened) {
  const QPointer dialog(opened);
  if (ended_) {
    return std::nullopt;
  }
  dialog->setWindowModality(Qt::ApplicationModal);
  open_.append(dialog);
  const int result = dialog->exec();
  const bool isDismissed = open_.removeAll(dialog) == 0;
  if (isDismissed || dialog == nullptr) {
    return std::nullopt;
  }
  return result;
}

void ModalDialogs::Dismiss() {
  for (const auto& dialog : std::exchange(open_, {})) {
    if (dialog != nullptr) {
      dialog->done(QDialog::Rejected);
    }
  }
}

void ModalDialogs::End() {
  ended_ = true;
  Dismiss();
}

}  // namespace brindle
