// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

#include "base/input/modal_dialogs.h"
#include "base/interface.h"

namespace brindle {

/// What a file dialog is opened with.
struct FileQuestion {
  QString name;  ///< the dialog's own name, which tools see
  QString title;
  QStringList filters;  ///< "PCM WAV file (*.wav)"; what stands in the last brackets is not shown
  QString start;        ///< the path that is chosen at first; empty for none
};

/// The desktop's dialogs in which a user chooses a file. The whole program stops while one is open.
class FileDialogs : public Interface {
 public:
  /// The path of an existing file, in the platform's own separators. Empty when the user cancelled,
  /// and when the program ended: nothing is to be done then. The owner may have been closed
  /// meanwhile, which it knows itself.
  virtual QString AskForExisting(QWidget* owner, const FileQuestion& question) = 0;

  /// The same for a file that need not exist. Whether one is to be overwritten is not asked. A name
  /// without an extension gets `suffix`.
  virtual QString AskForTarget(QWidget* owner, const FileQuestion& question,
                               const QString& suffix) = 0;
};

/// The file dialogs on the screen: the desktop's, where it has them.
class ScreenFileDialogs : public FileDialogs {
 public:
  explicit ScreenFileDialogs(ModalDialogs& dialogs) : dialogs_(dialogs) {}
  QString AskForExisting(QWidget* owner, const FileQuestion& question) override;
  QString AskForTarget(QWidget* owner, const FileQuestion& question,
                       const QString& suffix) override;

 private:
  ModalDialogs& dialogs_;
};

}  // namespace brindle
