// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/option_group.h"

#include <memory>
#include <optional>
#include <vector>

#include <QHBoxLayout>
#include <QLineEdit>
#include <QString>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include "tests/support/user.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class OptionGroupTest : public ::testing::Test {
 protected:
  void SetUp() override {
    auto* row = new QHBoxLayout(&window);
    for (const int index : {1, 2, 4}) {
      row->addWidget(group.Add(index, QString::number(index), u"tip"_s));
    }
    QObject::connect(&group, &OptionGroup::Click, [this](int index) { clicks.push_back(index); });
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 10000));
  }
  QWidget window;
  OptionGroup group{u"Opt"_s};
  std::vector<int> clicks;
};

TEST_F(OptionGroupTest, NothingIsSelectedAtFirst) {
  for (const auto* button : group.Buttons()) {
    EXPECT_FALSE(button->isChecked());
  }
}

TEST_F(OptionGroupTest, TellsWhichIsSelected) {
  EXPECT_EQ(group.Selected(), std::nullopt);
  group.Select(4);
  EXPECT_EQ(group.Selected(), 4);
  Click(group.Buttons()[0]);
  EXPECT_EQ(group.Selected(), 1);
}

TEST_F(OptionGroupTest, TabStopsAtTheSelectedOneElseAtTheFirst) {
  EXPECT_EQ(group.TabStop(), group.Buttons()[0]);
  group.Select(4);
  EXPECT_EQ(group.TabStop(), group.Buttons()[2]);
}

TEST_F(OptionGroupTest, TabGoesToTheSelectedOneAndOutAgain) {
  auto* before = new QLineEdit;
  qobject_cast<QHBoxLayout*>(window.layout())->insertWidget(0, before);
  QWidget::setTabOrder(before, group.Buttons()[0]);
  group.Select(2);
  before->setFocus();
  Key(Qt::Key_Tab);
  EXPECT_TRUE(group.Buttons()[1]->hasFocus());
  Key(Qt::Key_Tab);
  EXPECT_TRUE(before->hasFocus());
  Key(Qt::Key_Backtab);
  EXPECT_TRUE(group.Buttons()[1]->hasFocus());
}

TEST_F(OptionGroupTest, EveryOptionCarriesItsIndex) {
  EXPECT_EQ(group.Buttons()[2]->objectName(), u"Opt(4)"_s);
  EXPECT_EQ(group.Buttons()[2]->Index(), 4);
  EXPECT_EQ(group.Buttons()[2]->property("Index").toInt(), 4);
}

TEST_F(OptionGroupTest, TheUserAndTheProgramSelectAlike) {
  Click(group.Buttons()[0]);
  group.Select(4);
  EXPECT_EQ(clicks, (std::vector{1, 4}));
}

TEST_F(OptionGroupTest, SelectingWhatIsSelectedIsNoClick) {
  group.Select(2);
  group.Select(2);
  Click(group.Buttons()[1]);
  EXPECT_EQ(clicks, (std::vector{2}));
}

TEST_F(OptionGroupTest, AnIndexWithoutAnOptionChangesNothing) {
  group.Select(2);
  group.Select(9);
  EXPECT_EQ(clicks, (std::vector{2}));
  EXPECT_TRUE(group.Buttons()[1]->isChecked());
}

TEST_F(OptionGroupTest, TwoArraysInOneWindowDoNotDisturbEachOther) {
  OptionGroup other(u"Other"_s);
  window.layout()->addWidget(other.Add(0, u"x"_s, {}));
  group.Select(1);
  other.Select(0);
  EXPECT_TRUE(group.Buttons()[0]->isChecked());
}

}  // namespace
}  // namespace brindle
