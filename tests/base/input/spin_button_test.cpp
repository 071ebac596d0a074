// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/spin_button.h"

#include <gtest/gtest.h>

#include "tests/base/input/field_window.h"

namespace brindle {
namespace {

class SpinButtonTest : public ::testing::Test {
 protected:
  void SetUp() override {
    QObject::connect(window.S, &SpinButton::MouseDown, [this] { ++downs; });
    QObject::connect(window.S, &SpinButton::MouseUp, [this] { ++ups; });
    window.Start();
  }
  FieldWindow window;
  int downs = 0;
  int ups = 0;
};

TEST_F(SpinButtonTest, HeedsTheLeftButtonOnly) {
  Click(window.S);
  Click(window.S, Qt::RightButton);
  Click(window.S, Qt::MiddleButton);
  EXPECT_EQ(downs, 1);
  EXPECT_EQ(ups, 1);
}

TEST_F(SpinButtonTest, TheSecondPressOfADoubleClickCounts) {
  DoubleClick(window.S);
  EXPECT_EQ(downs, 2);
  EXPECT_EQ(ups, 2);
}

TEST_F(SpinButtonTest, HearsOfTheReleaseWhereverItIs) {
  Press(window.S);
  MoveTo(window.A, {3, 3});
  LetGo(window.A);
  EXPECT_EQ(ups, 1);
}

TEST_F(SpinButtonTest, DisabledWhileItIsHeldItCountsAsLetGoOnce) {
  Press(window.S);
  window.S->setEnabled(false);
  EXPECT_EQ(ups, 1);
  window.S->setEnabled(true);
  LetGo(window.S);
  EXPECT_EQ(ups, 1);
}

TEST_F(SpinButtonTest, DisabledWhileItRestsItTellsNothing) {
  window.S->setEnabled(false);
  window.S->setEnabled(true);
  EXPECT_EQ(ups, 0);
}

TEST_F(SpinButtonTest, StandsInNoTabOrder) {
  for (int i = 0; i < 6; ++i) {
    Key(Qt::Key_Tab);
    EXPECT_NE(window.focusWidget(), window.S);
  }
}

}  // namespace
}  // namespace brindle
