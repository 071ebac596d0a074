// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/support/modal_watchdog.h"

#include <chrono>
#include <string>

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

namespace brindle {

namespace {

constexpr int LooksInTheLimit = 20;

int expecting = 0;  // the number of living ModalsMayStand

std::string RunningTest() {
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  return test != nullptr ? std::string(test->test_suite_name()) + "." + test->name() : "no test";
}

std::string Description(const QWidget* modal) {
  const auto* box = qobject_cast<const QMessageBox*>(modal);
  const auto text = box != nullptr ? box->text() : modal->windowTitle();
  return std::string(modal->metaObject()->className()) + " '" + modal->objectName().toStdString() +
         "', \"" + text.toStdString() + '"';
}

// A message box without a Cancel button refuses to be closed, but can be rejected.
void Close(const QPointer<QWidget>& modal) {
  if (auto* dialog = qobject_cast<QDialog*>(modal)) {
    dialog->reject();
  } else {
    modal->close();
  }
  if (modal != nullptr) {
    modal->hide();
  }
}

}  // namespace

ModalWatchdog::ModalWatchdog(std::chrono::milliseconds limit) : limit_(limit) {
  connect(&timer_, &QTimer::timeout, this, &ModalWatchdog::Look);
  timer_.start(limit / LooksInTheLimit);
}

void ModalWatchdog::Look() {
  const QPointer<QWidget> modal = QApplication::activeModalWidget();
  if (IsOverdue(modal)) {
    ADD_FAILURE() << "in " << RunningTest() << " a modal widget stood for " << since_.elapsed()
                  << " ms: " << Description(modal);
    standing_ = nullptr;
    Close(modal);
  }
}

bool ModalWatchdog::IsOverdue(QWidget* modal) {
  if (modal == nullptr || expecting > 0) {
    standing_ = nullptr;
    return false;
  }
  if (modal != standing_) {
    standing_ = modal;
    since_.start();
  }
  return since_.elapsed() >= limit_.count();
}

ModalsMayStand::ModalsMayStand() { ++expecting; }

ModalsMayStand::~ModalsMayStand() { --expecting; }

}  // namespace brindle
