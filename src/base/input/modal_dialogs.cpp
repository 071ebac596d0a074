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
  open_.removeAll(dialog);
  if (ended_ || dialog == nullptr) {
    return std::nullopt;
  }
  return result;
}

void ModalDialogs::End() {
  ended_ = true;
  for (const auto& dialog : std::as_const(open_)) {
    if (dialog != nullptr) {
      dialog->done(QDialog::Rejected);
    }
  }
}

}  // namespace brindle
