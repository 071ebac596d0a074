// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QString>
#include <QWidget>

#include "base/files/at_path.h"
#include "base/input/modal_dialogs.h"

namespace brindle {

namespace {

QFileDialog* MakeDialog(QWidget* owner, const FileQuestion& question) {
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

}  // namespace

void ScreenFileDialogs::AskForExisting(QWidget* owner, const FileQuestion& question,
                                       const WhenChosen& chosen) {
  auto* dialog = MakeDialog(owner, question);
  dialog->setFileMode(QFileDialog::ExistingFile);
  Open(dialog, chosen);
}

void ScreenFileDialogs::AskForTarget(QWidget* owner, const FileQuestion& question,
                                     const QString& suffix, const WhenChosen& chosen) {
  auto* dialog = MakeDialog(owner, question);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setOption(QFileDialog::DontConfirmOverwrite);
  dialog->setDefaultSuffix(suffix);
  Open(dialog, chosen);
}

void ScreenFileDialogs::AskForFolder(QWidget* owner, const FileQuestion& question,
                                     const WhenChosen& chosen) {
  auto* dialog = MakeDialog(owner, question);
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  Open(dialog, chosen);
}

void ScreenFileDialogs::Open(QFileDialog* dialog, const WhenChosen& chosen) {
  dialogs_.Open(dialog, [dialog, chosen](int result) {
    const auto path = dialog->selectedFiles().value(0);
    if (result == QDialog::Accepted && !path.isEmpty()) {
      chosen(QDir::toNativeSeparators(path));
    }
  });
}

}  // namespace brindle
