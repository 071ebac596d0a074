// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/settings/settings.h"
#include "base/windows/services.h"
#include "shell/owning_window_list.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_films.h"
#include "tests/support/fakes.h"
#include "tests/support/user.h"

namespace brindle {

/// A test that opens real windows on a record of its own (the built-in settings), with a clock that
/// it moves itself. It fails if an unexpected message box opens.
class WindowTest : public ::testing::Test {
 protected:
  WindowTest();

  /// Opens the window and waits until it gets the keys.
  QWidget* Open(WindowId id);

  /// Handles events until none are pending: a pass of the normalizer has ended then.
  void RunToRest();

  /// Waits until the window is shown and active.
  static void WaitForActive(QWidget* window);

  /// The control of this name in the window; fails the test if there is none.
  template <class Control = QWidget>
  static Control* Find(const QWidget* window, const QString& name) {
    auto* control = window->findChild<Control*>(name);
    if (control == nullptr) {
      ADD_FAILURE() << "no control " << name.toStdString();
    }
    return control;
  }

  QTemporaryDir folder;
  Settings record;
  FakeClock clock;
  FakeBoxes boxes;
  FakeDialogs dialogs;
  FakeDesktop desktop;
  Product product{.website = QStringLiteral("https://example.org/brindle"),
                  .updatePage = QStringLiteral("https://example.org/brindle/update"),
                  .mail = QStringLiteral("velbrin@example.org"),
                  .author = QStringLiteral("Velbrin 2026")};
  FakeRegistry registry;
  FakeFilmSource films;
  FakePartWriter parts;
  OwningWindowList windows{desktop};
  Services services{record,  windows,  clock, boxes, dialogs,
                    desktop, registry, films, parts, product};
  int defaultsLoaded = 0;  ///< how often the defaults window asked for the defaults
};

}  // namespace brindle
