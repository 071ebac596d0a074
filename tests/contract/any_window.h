// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <memory>
#include <string>

#include <QComboBox>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "shell/main_prog.h"
#include "shell/splash.h"
#include "shell/window_catalogue.h"
#include "tests/support/window_test.h"

namespace brindle {

/// Any window of the program, opened by its name on the built-in settings.
class AnyWindow : public WindowTest {
 protected:
  /// The windows of the catalogue by their names.
  static const std::map<std::string, WindowId>& Listed() {
    static const std::map<std::string, WindowId> listed = [] {
      std::map<std::string, WindowId> ids;
      for (const auto& entry : AllWindows()) {
        ids.emplace(entry.name.toString().toStdString(), entry.id);
      }
      return ids;
    }();
    return listed;
  }

  QWidget* OpenByName(const std::string& name) {
    if (name == "Splash") {
      splash_ = std::make_unique<Splash>(services);
      splash_->Run();
      return Shown(splash_.get());
    }
    if (name == "MainProg") {
      main_ =
          MakeMainProg(services, ProgramFolders{.program = folder.path(), .config = folder.path()});
      main_->show();
      main_->activateWindow();
      return Shown(main_.get());
    }
    record.SplitSegmentsMode = 1;  // the third segment shows
    return Open(Listed().at(name));
  }

  /// Shows every control that has a name and is hidden until it is needed.
  static void ShowAll(const QWidget* window) {
    for (auto* control : window->findChildren<QWidget*>()) {
      if (!control->isWindow() && control->isHidden() && !control->objectName().isEmpty() &&
          !control->objectName().startsWith(QStringLiteral("qt_"))) {
        control->show();
      }
    }
  }

  /// The control that a widget belongs to: a list is one control with its text part.
  static const QWidget* ControlOf(const QWidget* widget) {
    const auto* list = qobject_cast<const QComboBox*>(widget->parentWidget());
    return list != nullptr ? list : widget;
  }

 private:
  static QWidget* Shown(QWidget* window) {
    WaitForActive(window);
    return window;
  }

  std::unique_ptr<Splash> splash_;
  std::unique_ptr<MainProg> main_;
};

}  // namespace brindle
