// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/support/window_test.h"

#include <QApplication>
#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>

#include "base/settings/settings.h"
#include "shell/window_catalogue.h"

namespace brindle {

WindowTest::WindowTest() : record(BuiltInSettings()) {
  record.SpinRepeatInterval = 0.05F;
  record.SpinFirstDelay = 0.5F;
  record.AppFolder = folder.path();
  AddAllWindows(windows, services, [this](const auto& then) {
    ++defaultsLoaded;
    then();
  });
}

QWidget* WindowTest::Open(WindowId id) {
  const auto before = QApplication::topLevelWidgets();
  windows.Open(id);
  for (auto* window : QApplication::topLevelWidgets()) {
    if (!before.contains(window) && window->isVisible()) {
      WaitForActive(window);
      return window;
    }
  }
  ADD_FAILURE() << "no new window";
  return nullptr;
}

void WindowTest::RunToRest() {
  do {
    QCoreApplication::processEvents();
  } while (clock.RunDue());
}

void WindowTest::WaitForActive(QWidget* window) {
  EXPECT_TRUE(QTest::qWaitForWindowActive(window, 10000)) << window->objectName().toStdString();
}

}  // namespace brindle
