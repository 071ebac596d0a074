// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/results.h"

#include <memory>

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QFont>
#include <QLineEdit>
#include <QString>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>
#include <gtest/gtest.h>

#include "tests/support/user.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

template <class Result>
void ExpectLargeInEveryFont(Result& result) {
  const QFont before = QApplication::font();
  EXPECT_DOUBLE_EQ(result.font().pointSizeF(), before.pointSizeF() * ResultScale);
  QFont larger = before;
  larger.setPointSizeF(14);
  QApplication::setFont(larger);
  QEvent changed(QEvent::ApplicationFontChange);  // sent by itself only in a running program
  QApplication::sendEvent(&result, &changed);
  EXPECT_DOUBLE_EQ(result.font().pointSizeF(), 14 * ResultScale);
  QApplication::setFont(before);
}

TEST(ResultField, IsLargerThanTheTextAroundItAndFollowsTheFont) {
  ResultField field(u"R"_s, {}, 6);
  EXPECT_TRUE(field.isReadOnly());
  ExpectLargeInEveryFont(field);
}

TEST(ResultLabelFont, IsLargerThanTheTextAroundItAndFollowsTheFont) {
  ResultLabel label(u"R"_s, {}, 6);
  const auto size = label.size();
  ExpectLargeInEveryFont(label);
  EXPECT_GT(label.width(), size.width());
}

TEST(ResultLabelFont, IsAsHighAsAResultFieldToAPixel) {
  const ResultField field(u"F"_s, {}, 6);
  const ResultLabel label(u"L"_s, {}, 6);
  EXPECT_NEAR(label.height(), field.sizeHint().height(), 1);
}

class ResultLabelTest : public ::testing::Test {
 protected:
  ResultLabelTest() {
    auto* column = new QVBoxLayout(&window);
    column->addWidget(before);
    column->addWidget(label);
    label->Write(u"1371"_s);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 10000));
    before->setFocus();
    QApplication::clipboard()->setText(u"other"_s);
  }

  QWidget window;
  QLineEdit* before = new QLineEdit;
  ResultLabel* label = new ResultLabel(u"R"_s, {}, 6);
};

TEST_F(ResultLabelTest, TabSelectsAllAndCopyingGivesThePlainNumber) {
  Key(Qt::Key_Tab);
  ASSERT_TRUE(label->hasFocus());
  EXPECT_EQ(label->selectedText(), u"1371"_s);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), u"1371"_s);
}

TEST_F(ResultLabelTest, LeavingItSelectsNothing) {
  Key(Qt::Key_Tab);
  before->setFocus();
  EXPECT_EQ(label->selectedText(), QString());
}

TEST_F(ResultLabelTest, CannotBeTypedInto) {
  Key(Qt::Key_Tab);
  Type(u"5"_s);
  Key(Qt::Key_Delete);
  EXPECT_EQ(label->text(), u"1371"_s);
}

TEST_F(ResultLabelTest, CanBeSelectedWithTheMouse) {
  DoubleClick(label);
  EXPECT_EQ(label->selectedText(), u"1371"_s);
}

}  // namespace
}  // namespace brindle
