// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/focus_tracker.h"

#include <QAbstractItemView>
#include <QMenu>
#include <QString>
#include <QTest>
#include <gtest/gtest.h>

#include "tests/base/input/field_window.h"
#include "tests/support/user.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class FocusTrackerTest : public ::testing::Test {
 protected:
  void SetUp() override { window.Start(); }
  FieldWindow window;
};

TEST_F(FocusTrackerTest, TheLeftControlHearsFirst) {
  window.A->setFocus();
  EXPECT_EQ(window.events, (Events{"B lost", "A got"}));
}

TEST_F(FocusTrackerTest, ANumberOnlyBegunBecomesZeroBeforeTheHandlerRuns) {
  for (const auto& begun : {u"-"_s, u"."_s, u"+."_s}) {
    window.A->setFocus();
    TypeOver(begun);
    ASSERT_EQ(window.A->text(), begun);
    window.B->setFocus();
    EXPECT_EQ(window.A->text(), u"0"_s);
    window.L->setFocus();
    TypeOver(begun);
    window.B->setFocus();
    EXPECT_EQ(window.L->Field()->text(), u"0"_s);
  }
}

TEST_F(FocusTrackerTest, AnythingElseStaysAsItIsWhenItIsLeft) {
  for (const auto& text : {u""_s, u"12x"_s, u"-1"_s, u"e"_s}) {
    window.A->setFocus();
    window.A->setText(text);
    window.B->setFocus();
    EXPECT_EQ(window.A->text(), text);
  }
}

TEST_F(FocusTrackerTest, FocusingTheSameControlAgainIsNoMove) {
  window.B->setFocus();
  EXPECT_EQ(window.events, Events());
}

TEST_F(FocusTrackerTest, AnotherWindowAndBackIsNoMove) {
  {
    Form other(u"Other"_s, u"Other"_s);
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other, 10000));
  }
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 10000));
  EXPECT_EQ(window.events, Events());
}

TEST_F(FocusTrackerTest, AMenuIsNoMove) {
  QMenu menu(&window);
  menu.addAction(u"Paste"_s);
  menu.popup(window.mapToGlobal(QPoint(5, 5)));
  ASSERT_TRUE(QTest::qWaitFor([&] { return menu.isVisible(); }, 10000));
  menu.close();
  QCoreApplication::processEvents();
  EXPECT_EQ(window.events, Events());
}

TEST_F(FocusTrackerTest, AnOpenListIsNoMove) {
  window.L->Fill({u"1"_s, u"2"_s});
  window.L->setFocus();
  window.events.clear();
  window.L->showPopup();
  ASSERT_TRUE(QTest::qWaitFor([this] { return window.L->view()->isVisible(); }, 10000));
  window.L->hidePopup();
  QCoreApplication::processEvents();
  EXPECT_EQ(window.events, Events());
}

TEST_F(FocusTrackerTest, ClosingIsNoMove) {
  window.close();
  window.A->setFocus();
  EXPECT_EQ(window.events, Events());
}

TEST_F(FocusTrackerTest, ASpinButtonTakesNoFocus) {
  Click(window.S);
  EXPECT_EQ(window.events, Events());
}

TEST(FocusTracker, BeginRunsTheFirstHandlerBeforeTheWindowIsShown) {
  FieldWindow window;
  window.Focus().Begin(window.A);
  EXPECT_EQ(window.events, (Events{"A got"}));
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 10000));
  EXPECT_EQ(window.events, (Events{"A got"}));
  EXPECT_TRUE(window.A->hasFocus());
}

}  // namespace
}  // namespace brindle
