// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/drop_down_list.h"

#include <vector>

#include <QAbstractItemView>
#include <QLineEdit>
#include <QString>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWidget>
#include <gtest/gtest.h>

#include "tests/support/user.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// Counts the wheel events that its controls pass on to it.
class WheelWindow : public QWidget {
 public:
  int wheels = 0;

 protected:
  void wheelEvent(QWheelEvent* /*event*/) override { ++wheels; }
};

class DropDownListTest : public ::testing::Test {
 protected:
  void SetUp() override {
    auto* column = new QVBoxLayout(&window);
    column->addWidget(field);
    column->addWidget(list);
    QObject::connect(list, &QComboBox::activated, list, [this](int index) {
      EXPECT_EQ(list->currentIndex(), index);
      picks.push_back(index);
    });
    list->addItems({u"first"_s, u"second"_s, u"third"_s});
    list->setCurrentIndex(-1);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 10000));
    field->setFocus();
  }

  void DropDown() {
    list->setFocus();
    Key(Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([this] { return list->view()->isVisible(); }, 10000));
  }

  using Picks = std::vector<int>;

  WheelWindow window;
  QLineEdit* field = new QLineEdit;
  DropDownList* list = new DropDownList(u"L"_s, u"tip"_s);
  Picks picks;
};

TEST_F(DropDownListTest, IsAListToChooseFrom) {
  EXPECT_EQ(list->objectName(), u"L"_s);
  EXPECT_EQ(list->toolTip(), u"tip"_s);
  EXPECT_FALSE(list->isEditable());
}

TEST_F(DropDownListTest, WhatTheProgramSelectsIsNoPick) {
  list->setCurrentIndex(1);
  list->setCurrentIndex(-1);
  list->setCurrentText(u"third"_s);
  list->addItem(u"fourth"_s);
  list->removeItem(2);
  list->clear();
  EXPECT_EQ(picks, Picks());
}

TEST_F(DropDownListTest, KeysPickFromTheClosedList) {
  list->setFocus();
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  Key(Qt::Key_Up);
  Key(Qt::Key_End);
  Key(Qt::Key_Home);
  Type(u"s"_s);
  EXPECT_EQ(picks, (Picks{0, 1, 0, 2, 0, 1}));
}

TEST_F(DropDownListTest, KeysAtTheEndsPickNothing) {
  list->setCurrentIndex(2);
  list->setFocus();
  Key(Qt::Key_Down);
  Key(Qt::Key_End);
  list->setCurrentIndex(0);
  Key(Qt::Key_Up);
  Key(Qt::Key_Home);
  EXPECT_EQ(picks, Picks());
}

TEST_F(DropDownListTest, ReturnPicksFromTheOpenList) {
  list->setCurrentIndex(0);
  DropDown();
  QTest::keyClick(list->view(), Qt::Key_Down);
  EXPECT_EQ(picks, Picks());
  EXPECT_EQ(list->currentIndex(), 0);
  QTest::keyClick(list->view(), Qt::Key_Return);
  EXPECT_EQ(picks, (Picks{1}));
  EXPECT_FALSE(list->view()->isVisible());
}

TEST_F(DropDownListTest, AClickPicksFromTheOpenList) {
  list->setCurrentIndex(0);
  DropDown();
  auto* view = list->view();
  const auto third = view->visualRect(view->model()->index(2, 0)).center();
  QTest::mouseMove(view->viewport(), third);
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, third);
  EXPECT_EQ(picks, (Picks{2}));
}

TEST_F(DropDownListTest, EscapeInTheOpenListPicksNothing) {
  list->setCurrentIndex(0);
  DropDown();
  QTest::keyClick(list->view(), Qt::Key_Down);
  QTest::keyClick(list->view(), Qt::Key_Escape);
  EXPECT_FALSE(list->view()->isVisible());
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(list->currentIndex(), 0);
  EXPECT_EQ(picks, Picks());
}

TEST_F(DropDownListTest, TheWheelIsLeftToTheWindowWithoutTheFocus) {
  list->setCurrentIndex(1);
  Wheel(list, 1);
  Wheel(list, -1);
  Wheel(list, -1);
  EXPECT_EQ(list->currentIndex(), 1);
  EXPECT_EQ(picks, Picks());
  EXPECT_EQ(window.wheels, 3);
  EXPECT_TRUE(field->hasFocus());
}

TEST_F(DropDownListTest, TheWheelPicksWithTheFocus) {
  list->setCurrentIndex(1);
  list->setFocus();
  Wheel(list, -1);
  Wheel(list, -1);  // there is no further one
  Wheel(list, 1);
  EXPECT_EQ(picks, (Picks{2, 1}));
}

TEST_F(DropDownListTest, TabBringsTheFocusAndPicksNothing) {
  TabTo(list);
  EXPECT_TRUE(list->hasFocus());
  EXPECT_EQ(list->currentIndex(), -1);
  EXPECT_EQ(picks, Picks());
}

}  // namespace
}  // namespace brindle
