// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/push_button.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>
#include <gtest/gtest.h>

#include "tests/support/user.h"

namespace brindle {
namespace {

class PushButtonTest : public ::testing::Test {
 protected:
  PushButtonTest() {
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(button);
    layout->addWidget(other);
    QObject::connect(button, &QPushButton::clicked, button, [this] { ++clicks; });
    window.show();
    window.activateWindow();
    button->setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 10000));
  }

  void Send(QEvent::Type type, Qt::Key key, bool isRepeated) const {
    QKeyEvent event(type, key, Qt::NoModifier, {}, isRepeated);
    QApplication::sendEvent(button, &event);
  }

  QWidget window;
  PushButton* button = new PushButton;
  PushButton* other = new PushButton;
  int clicks = 0;
};

TEST_F(PushButtonTest, EnterReturnAndTheSpaceBarPressIt) {
  Key(Qt::Key_Return);
  EXPECT_EQ(clicks, 1);
  Key(Qt::Key_Enter);
  EXPECT_EQ(clicks, 2);
  Key(Qt::Key_Space);
  EXPECT_EQ(clicks, 3);
}

TEST_F(PushButtonTest, IsDownAsLongAsTheKeyAndClickedWhenItIsLetGo) {
  KeyDown(Qt::Key_Return);
  EXPECT_TRUE(button->isDown());
  EXPECT_EQ(clicks, 0);
  KeyLetGo(Qt::Key_Return);
  EXPECT_FALSE(button->isDown());
  EXPECT_EQ(clicks, 1);
}

TEST_F(PushButtonTest, AHeldKeyClicksOnce) {
  Send(QEvent::KeyPress, Qt::Key_Return, false);
  for (int i = 0; i < 3; ++i) {
    Send(QEvent::KeyRelease, Qt::Key_Return, true);
    Send(QEvent::KeyPress, Qt::Key_Return, true);
  }
  EXPECT_EQ(clicks, 0);
  Send(QEvent::KeyRelease, Qt::Key_Return, false);
  EXPECT_EQ(clicks, 1);
}

TEST_F(PushButtonTest, AKeyThatWentDownElsewhereDoesNotClick) {
  Send(QEvent::KeyRelease, Qt::Key_Return, false);
  EXPECT_EQ(clicks, 0);
}

TEST_F(PushButtonTest, OtherKeysDoNotPressIt) {
  Key(Qt::Key_A);
  Key(Qt::Key_Escape);
  EXPECT_EQ(clicks, 0);
}

}  // namespace
}  // namespace brindle
