// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "base/files/at_path.h"
#include "base/input/modal_dialogs.h"

namespace brindle {

namespace {

QPointer<QFileDialog> MakeDialog(QWidget* owner, const FileQuestion& question) {
  auto* dialog = new QFileDialog(owner, question.title);
  dialog->setObjectName(question.name);
  dialog->setNameFilters(question.filters);
  dialog->setOption(QFileDialog::HideNameFilterDetails);
  if (IsAbsolute(question.start)) {
    const QFileInfo start(QDir::fromNativeSeparators(question.start));
    dialog->setDirectory(start.path());
    dialog->selectFile(start.fileName());
  }
  return dialog;
}

QString Chosen(ModalDialogs& dialogs, const QPointer<QFileDialog>& dialog) {
  QString path;
  if (dialogs.Run(dialog.data()) == QDialog::Accepted) {
    path = dialog->selectedFiles().value(0);
  }
  delete dialog;
  return QDir::toNativeSeparators(path);
}

}  // namespace

QString ScreenFileDialogs::AskForExisting(QWidget* owner, const FileQuestion& question) {
  const auto dialog = MakeDialog(owner, question);
  dialog->setFileMode(QFileDialog::ExistingFile);
  return Chosen(dialogs_, dialog);
}

QString ScreenFileDialogs::AskForTarget(QWidget* owner, const FileQuestion& question,
                                        const QString& suffix) {
  const auto dialog = MakeDialog(owner, question);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setOption(QFileDialog::DontConfirmOverwrite);
  dialog->setDefaultSuffix(suffix);
  return Chosen(dialogs_, dialog);
}

}  // namespace brindle
