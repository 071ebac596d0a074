// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/modal_dialogs.h"

#include <functional>
#include <utility>

#include <QDialog>
#include <QObject>
#include <QPointer>

#include "base/input/form.h"

namespace brindle {

void ModalDialogs::Open(QDialog* dialog, const std::function<void(int result)>& answered) {
  if (ended_) {
    delete dialog;
    return;
  }
  open_.append(dialog);
  QObject::connect(dialog, &QDialog::finished, dialog, [this, dialog, answered](int result) {
    open_.removeAll(dialog);
    dialog->deleteLater();
    answered(result);
    RunAfterAll();
  });
  if (auto* owner = qobject_cast<Form*>(dialog->parentWidget())) {
    QObject::connect(owner, &Form::Closed, dialog, [this, dialog] {
      TakeAway(dialog);
      RunAfterAll();
    });
  }
  dialog->setWindowModality(Qt::ApplicationModal);
  dialog->show();
}

void ModalDialogs::WhenNoneIsOpen(const std::function<void()>& action) {
  afterAll_ = action;
  RunAfterAll();
}

void ModalDialogs::RunAfterAll() {
  open_.removeAll(nullptr);  // deleted with its owner
  if (open_.isEmpty() && afterAll_) {
    std::exchange(afterAll_, nullptr)();
  }
}

void ModalDialogs::Dismiss() {
  afterAll_ = nullptr;
  for (const auto& dialog : std::exchange(open_, {})) {
    if (dialog != nullptr) {
      TakeAway(dialog);
    }
  }
}

void ModalDialogs::End() {
  ended_ = true;
  Dismiss();
}

void ModalDialogs::TakeAway(QDialog* dialog) {
  open_.removeAll(dialog);
  dialog->disconnect();
  dialog->hide();
  dialog->deleteLater();
}

}  // namespace brindle
