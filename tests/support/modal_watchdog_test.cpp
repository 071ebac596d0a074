// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/support/modal_watchdog.h"

#include <chrono>
#include <functional>
#include <utility>

#include <QDialog>
#include <QEventLoop>
#include <QMessageBox>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QTimerEvent>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace brindle {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

// Does something after so many turns of the event loop that a watchdog with no patience at all has
// checked many times.
class AfterManyTurns : public QObject {
 public:
  explicit AfterManyTurns(std::function<void()> action) : action_(std::move(action)) {
    startTimer(0);
  }

 protected:
  void timerEvent(QTimerEvent* event) override {
    constexpr int many = 50;
    if (++turns_ == many) {
      killTimer(event->timerId());
      action_();
    }
  }

 private:
  std::function<void()> action_;
  int turns_ = 0;
};

TEST(ModalWatchdog, FailsTheRunningTestByItsName) {
  const ModalWatchdog watchdog(0ms);
  QMessageBox box(QMessageBox::Question, {}, u"Nobody asked."_s);
  EXPECT_NONFATAL_FAILURE(box.exec(), "in ModalWatchdog.FailsTheRunningTestByItsName");
}

TEST(ModalWatchdog, NamesTheWidgetAndItsText) {
  const ModalWatchdog watchdog(0ms);
  QMessageBox box(QMessageBox::Question, {}, u"Nobody asked."_s);
  box.setObjectName(u"Unexpected"_s);
  EXPECT_NONFATAL_FAILURE(box.exec(), "QMessageBox 'Unexpected', \"Nobody asked.\"");
}

TEST(ModalWatchdog, ClosesABoxThatRefusesToBeClosed) {
  const ModalWatchdog watchdog(0ms);
  QMessageBox box(QMessageBox::Question, {}, u"Yes or no?"_s, QMessageBox::Yes | QMessageBox::No);
  EXPECT_NONFATAL_FAILURE(box.exec(), "Yes or no?");
  EXPECT_FALSE(box.isVisible());
}

TEST(ModalWatchdog, ClosesAModalWidgetThatIsNoDialog) {
  const ModalWatchdog watchdog(0ms);
  QWidget widget;
  widget.setWindowTitle(u"Modal"_s);
  widget.setWindowModality(Qt::ApplicationModal);
  widget.show();
  QEventLoop loop;
  AfterManyTurns later([&] { loop.quit(); });
  EXPECT_NONFATAL_FAILURE(loop.exec(), "\"Modal\"");
  EXPECT_FALSE(widget.isVisible());
}

TEST(ModalWatchdog, LooksFromANestedLoopAndLeavesTheOuterOneRunning) {
  const ModalWatchdog watchdog(0ms);
  QEventLoop outer;
  bool wentOn = false;
  QTimer::singleShot(0, &outer, [&] {
    QEventLoop inner;
    QTimer::singleShot(0, &inner, [&] {
      QMessageBox box(QMessageBox::Question, {}, u"Deep down"_s);
      box.exec();
      inner.quit();
    });
    inner.exec();
    wentOn = true;
    outer.quit();
  });
  EXPECT_NONFATAL_FAILURE(outer.exec(), "Deep down");
  EXPECT_TRUE(wentOn);
}

TEST(ModalWatchdog, ClosesABoxThatComesBack) {
  const ModalWatchdog watchdog(0ms);
  for (int i = 0; i < 3; ++i) {
    QMessageBox box(QMessageBox::Question, {}, u"Again"_s);
    EXPECT_NONFATAL_FAILURE(box.exec(), "Again");
  }
}

TEST(ModalWatchdog, HasPatienceUpToItsLimit) {
  const ModalWatchdog watchdog(1h);
  QDialog dialog;
  AfterManyTurns later([&] { dialog.accept(); });
  EXPECT_EQ(dialog.exec(), QDialog::Accepted);
}

TEST(ModalWatchdog, LetsExpectedBoxesStand) {
  const ModalWatchdog watchdog(0ms);
  const ModalsMayStand expected;
  QDialog dialog;
  AfterManyTurns later([&] { dialog.accept(); });
  EXPECT_EQ(dialog.exec(), QDialog::Accepted);
}

TEST(ModalWatchdog, WatchesAgainAfterAnExpectedBox) {
  const ModalWatchdog watchdog(0ms);
  { const ModalsMayStand expected; }
  QDialog dialog;
  dialog.setWindowTitle(u"After it"_s);
  EXPECT_NONFATAL_FAILURE(dialog.exec(), "After it");
}

TEST(ModalWatchdog, LeavesWindowsThatAreNotModal) {
  const ModalWatchdog watchdog(0ms);
  QWidget window;
  window.show();
  QEventLoop loop;
  AfterManyTurns later([&] { loop.quit(); });
  loop.exec();
  EXPECT_TRUE(window.isVisible());
}

}  // namespace
}  // namespace brindle
