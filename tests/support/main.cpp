// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The main of every test program: an application without a screen, with folders of its own, in
// which no unexpected box stays open for long.

#include <chrono>
#include <clocale>
#include <cstring>
#include <iostream>

#include <QApplication>
#include <gtest/gtest.h>

#include "tests/support/modal_watchdog.h"
#include "tests/support/real_pointer.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  // Tests can drive the toolkit's dialogs, but not those of the system.
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  brindle::IgnoreRealPointer();
  // A run that is to test the decimal comma must really have it.
  if (qEnvironmentVariableIsSet("BRINDLE_EXPECT_COMMA") &&
      std::strcmp(std::localeconv()->decimal_point, ",") != 0) {
    std::cerr << "the locale of this run does not write a decimal comma\n";
    return 1;
  }
  const brindle::ModalWatchdog watchdog(std::chrono::seconds(20));
  return RUN_ALL_TESTS();
}
