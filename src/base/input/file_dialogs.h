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

/// What a file dialog is opened with.
struct FileQuestion {
  QString name;  ///< the dialog's own name, which tools see
  QString title;
  QStringList filters;  ///< "PCM WAV file (*.wav)"; what stands in the last brackets is not shown
  QString start;        ///< the path that is chosen at first; empty for none
};

/// The desktop's dialogs in which a user chooses a file. The whole program stops while one is open.
/// Nobody waits for the choice: what is to follow is a function.
class FileDialogs : public Interface {
 public:
  using WhenChosen = std::function<void(const QString& path)>;

  /// Lets the user choose an existing file. `chosen` runs with its path, in the platform's own
  /// separators; never when the user cancels, the owner is closed or the program ends.
  virtual void AskForExisting(QWidget* owner, const FileQuestion& question,
                              const WhenChosen& chosen) = 0;

  /// The same for a file that need not exist. Whether one is to be overwritten is not asked. A name
  /// without an extension gets `suffix`.
  virtual void AskForTarget(QWidget* owner, const FileQuestion& question, const QString& suffix,
                            const WhenChosen& chosen) = 0;
};

/// The file dialogs on the screen: the desktop's, where it has them.
class ScreenFileDialogs : public FileDialogs {
 public:
  explicit ScreenFileDialogs(ModalDialogs& dialogs) : dialogs_(dialogs) {}
  void AskForExisting(QWidget* owner, const FileQuestion& question,
                      const WhenChosen& chosen) override;
  void AskForTarget(QWidget* owner, const FileQuestion& question, const QString& suffix,
                    const WhenChosen& chosen) override;

 private:
  void Open(QFileDialog* dialog, const WhenChosen& chosen);

  ModalDialogs& dialogs_;
};

}  // namespace brindle
