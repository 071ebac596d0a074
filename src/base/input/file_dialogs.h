// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QString>
#include <QStringList>
#include <QWidget>

#include "base/input/modal_dialogs.h"
#include "base/interface.h"

class QFileDialog;

namespace brindle {

/// What a file dialog shows when it opens.
struct FileQuestion {
  QString name;  ///< the dialog's own name, visible to tools
  QString title;
  QStringList filters;  ///< "PCM WAV file (*.wav)"; the part in the last brackets is not shown
  QString start;        ///< the path that is selected at first; empty for none
};

/// The desktop's dialogs in which a user chooses a file. The whole program stops while one is open.
/// The call returns at once; what follows the choice is a function.
class FileDialogs : public Interface {
 public:
  using WhenChosen = std::function<void(const QString& path)>;

  /// Lets the user choose an existing file. `chosen` runs with its path, with the platform's own
  /// separators, but never if the user cancels, the owner is closed or the program ends.
  virtual void AskForExisting(QWidget* owner, const FileQuestion& question,
                              const WhenChosen& chosen) = 0;

  /// The same for a file that need not exist. Does not ask whether to overwrite an existing one. A
  /// name without an extension gets `suffix`.
  virtual void AskForTarget(QWidget* owner, const FileQuestion& question, const QString& suffix,
                            const WhenChosen& chosen) = 0;

  /// The same for an existing folder.
  virtual void AskForFolder(QWidget* owner, const FileQuestion& question,
                            const WhenChosen& chosen) = 0;
};

/// The file dialogs on the screen: the desktop's own, if it has them.
class ScreenFileDialogs : public FileDialogs {
 public:
  explicit ScreenFileDialogs(ModalDialogs& dialogs) : dialogs_(dialogs) {}
  void AskForExisting(QWidget* owner, const FileQuestion& question,
                      const WhenChosen& chosen) override;
  void AskForTarget(QWidget* owner, const FileQuestion& question, const QString& suffix,
                    const WhenChosen& chosen) override;
  void AskForFolder(QWidget* owner, const FileQuestion& question,
                    const WhenChosen& chosen) override;

 private:
  void Open(QFileDialog* dialog, const WhenChosen& chosen);

  ModalDialogs& dialogs_;
};

}  // namespace brindle
