// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/editable_list.h"

#include <QAbstractItemView>
#include <QString>
#include <QTest>
#include <gtest/gtest.h>

#include "tests/base/input/field_window.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class EditableListTest : public ::testing::Test {
 protected:
  void SetUp() override {
    window.L->Fill({u"10"_s, u"20"_s, u"30"_s});
    window.Start();
  }
  FieldWindow window;
};

TEST_F(EditableListTest, FillingChangesNeitherTextNorSelection) {
  EXPECT_EQ(window.L->Field()->text(), QString());
  EXPECT_EQ(window.L->currentIndex(), -1);
  window.L->Field()->setText(u"abc"_s);
  window.L->Fill({u"1"_s});
  EXPECT_EQ(window.L->Field()->text(), u"abc"_s);
  EXPECT_EQ(window.L->currentIndex(), -1);
  EXPECT_EQ(window.events, Events());
}

TEST_F(EditableListTest, KeysAndFocusAreThoseOfOneControl) {
  window.L->setFocus();
  Type(u"5"_s);
  window.A->setFocus();
  EXPECT_EQ(window.events, (Events{"B lost", "L got", "L press ", "L up 5", "L lost", "A got"}));
}

TEST_F(EditableListTest, ClickingTheTextPartIsTheFocusOfTheList) {
  Click(window.L->Field());
  EXPECT_EQ(window.events, (Events{"B lost", "L got", "L mouse down"}));
}

TEST_F(EditableListTest, TabSelectsAll) {
  window.L->Field()->setText(u"123"_s);
  window.A->setFocus();
  TabTo(window.L);
  EXPECT_EQ(window.L->Field()->selectedText(), u"123"_s);
}

TEST_F(EditableListTest, TypingAnEntryIsNotPickingIt) {
  window.L->setFocus();
  Type(u"20"_s);
  Key(Qt::Key_Return);
  window.A->setFocus();
  EXPECT_EQ(window.events, (Events{"B lost", "L got", "L press ", "L up 2", "L press 2", "L up 20",
                                   "L press 20", "L up 20", "L lost", "A got"}));
}

TEST_F(EditableListTest, CompletesAndAddsNothing) {
  window.L->setFocus();
  Type(u"2"_s);
  EXPECT_EQ(window.L->Field()->text(), u"2"_s);
  Type(u"5"_s);
  Key(Qt::Key_Return);
  EXPECT_EQ(window.L->count(), 3);
}

TEST_F(EditableListTest, PickingByKeyboardStartsFromTheText) {
  window.L->Field()->setText(u"20"_s);
  window.L->setFocus();
  window.events.clear();
  KeyDown(Qt::Key_Down);
  EXPECT_EQ(window.events, (Events{"L click 30"}));
}

TEST_F(EditableListTest, PickingTheSameEntryAfterTypingPicksItAgain) {
  window.L->setFocus();
  KeyDown(Qt::Key_Down);
  EXPECT_EQ(window.L->Field()->text(), u"10"_s);
  window.L->Field()->setText(u"99"_s);
  window.events.clear();
  window.L->showPopup();
  ASSERT_TRUE(QTest::qWaitFor([this] { return window.L->view()->isVisible(); }, 10000));
  QTest::keyClick(window.L->view(), Qt::Key_Home);
  QTest::keyClick(window.L->view(), Qt::Key_Return);
  EXPECT_EQ(window.events, (Events{"L click 10"}));
}

TEST_F(EditableListTest, AnOpenListTakesEscapeFirst) {
  window.L->setFocus();
  window.L->showPopup();
  ASSERT_TRUE(QTest::qWaitFor([this] { return window.L->view()->isVisible(); }, 10000));
  QTest::keyClick(window.L->view(), Qt::Key_Escape);
  EXPECT_FALSE(window.L->view()->isVisible());
  EXPECT_TRUE(window.isVisible());
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(EditableListTest, IgnoresTheWheelWithoutTheFocus) {
  window.L->Field()->setText(u"10"_s);
  Wheel(window.L, -1);
  EXPECT_EQ(window.L->Field()->text(), u"10"_s);
  window.L->setFocus();
  Wheel(window.L, -1);
  EXPECT_EQ(window.L->Field()->text(), u"20"_s);
}

}  // namespace
}  // namespace brindle
