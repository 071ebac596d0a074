// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include <QObject>
#include <QString>

#include "base/input/file_dialogs.h"
#include "base/input/message_boxes.h"
#include "base/input/modal_dialogs.h"
#include "base/settings/settings.h"
#include "base/time/clock.h"
#include "base/windows/services.h"
#include "shell/main_prog.h"
#include "shell/owning_window_list.h"
#include "shell/splash.h"
#include "shell/system_desktop.h"
#include "shell/system_films.h"
#include "shell/system_registry.h"
#include "shell/window_places.h"

namespace brindle {

/// The program from the splash to its end. Everything in it ends with the event loop.
class Program : public QObject {
  Q_OBJECT

 public:
  Program(Product product, ProgramFolders folders);

  /// Shows the splash; the main window follows it, and the normalizer with `file` if there is one.
  void Start(const QString& file = {});

  /// The system asks the program to end. Counts as closing the main window, but no window is asked:
  /// saves if SaveOnExit is ticked, hides everything, ends the event loop. While the splash is
  /// shown there is nothing to save. Only the first call counts, except
  /// that a second one does not wait for the answer to a message of the first.
  void End();

  /// The same at the end of the desktop's session: says nothing either, not even that the settings
  /// cannot be saved.
  void EndWithSession();

 private:
  void ShowMainProg();
  void HideAllAndExit();
  void OpenFile();

  Product product_;
  ProgramFolders folders_;
  Settings record_;
  SystemClock clock_;
  ModalDialogs modal_;
  ScreenMessageBoxes boxes_{modal_};
  ScreenFileDialogs dialogs_{modal_};
  SystemDesktop desktop_{boxes_, clock_, folders_.program};
  SystemRegistry registry_;
  SystemFilmSource films_{clock_, folders_.program};
  SystemPartWriter parts_{clock_, folders_.program};
  OwningWindowList windows_{desktop_};
  Services services_{record_,  windows_,  clock_, boxes_, dialogs_,
                     desktop_, registry_, films_, parts_, product_};
  std::unique_ptr<Splash> splash_;
  std::unique_ptr<MainProg> mainProg_;
  std::optional<WindowPlaces> places_;  // once the folder of the settings is known
  QString file_;                        // to be opened once the main window is shown
  bool ended_ = false;
};

}  // namespace brindle
