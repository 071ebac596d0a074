// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>

#include <QString>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// Where the program stands and where it may keep its settings.
struct ProgramFolders {
  QString program;  ///< the folder of the executable
  QString config;   ///< the user's configuration folder for this program
};

/// The main window as the program sees it: a button for every other window, and the keeper of the
/// settings file.
class MainProg : public Form {
  Q_OBJECT

 public:
  using Form::Form;

  /// Sets every stored field to its built-in value (except the two that keep theirs), ticks
  /// SaveOnExit and writes the file. `then` runs when that, and a message if it failed, is over.
  virtual void InitDat(const std::function<void()>& then) = 0;

  /// Closes the window, and the program with it, because the system wants it: no window is asked.
  virtual void CloseUnasked() = 0;
};

[[nodiscard]] std::unique_ptr<MainProg> MakeMainProg(Services& services, ProgramFolders folders);

}  // namespace brindle
