// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/input/field_text.h"

#include <string>

#include <QString>
#include <gtest/gtest.h>

#include "tests/app/input/field_window.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class FieldTextTest : public ::testing::Test {
 protected:
  void SetUp() override { window.Start(); }  // the focus is in B

  [[nodiscard]] std::string Repaired(const QString& text) const {
    window.A->setText(text);
    RepairText(window.A);
    RepairSign(window.A);
    return window.A->text().toStdString();
  }

  FieldWindow window;
};

TEST_F(FieldTextTest, RepairKeepsNumbersAndEmptyTexts) {
  EXPECT_EQ(Repaired(u"12.50"_s), "12.50");
  EXPECT_EQ(Repaired(u" 7 "_s), " 7 ");
  EXPECT_EQ(Repaired(u""_s), "");
}

TEST_F(FieldTextTest, RepairTakesTheAbsoluteLeadingNumber) {
  EXPECT_EQ(Repaired(u"-3.5kg"_s), "3.5");
  EXPECT_EQ(Repaired(u"abc"_s), "0");
  EXPECT_EQ(Repaired(u"1e999"_s), "0");
  EXPECT_EQ(Repaired(u" "_s), "0");
}

TEST_F(FieldTextTest, RepairDropsTheSign) { EXPECT_EQ(Repaired(u"-650"_s), "650"); }

TEST_F(FieldTextTest, ANumberJustBegunIsNumericOnlyInTheFieldBeingEdited) {
  for (const auto& text : {u"-"_s, u"+"_s, u"."_s, u"-."_s, u"+."_s}) {
    window.A->setText(text);
    window.B->setText(text);
    EXPECT_FALSE(IsNumericIn(window.A));
    EXPECT_TRUE(IsNumericIn(window.B));
    RepairText(window.B);
    EXPECT_EQ(window.B->text(), text);
    EXPECT_EQ(NumberIn(window.B), 0);
    RepairText(window.A);
    EXPECT_EQ(window.A->text(), u"0"_s);
  }
}

TEST_F(FieldTextTest, OwnNumberKeepsTheTypedTailOnlyWhileItIsEdited) {
  window.A->setText(u"10.0"_s);
  window.B->setText(u"10.0"_s);
  WriteOwnNumber(window.A, 10);
  WriteOwnNumber(window.B, 10);
  EXPECT_EQ(window.A->text(), u"10"_s);
  EXPECT_EQ(window.B->text(), u"10.0"_s);
}

TEST_F(FieldTextTest, BlanksAreFilledOnlyWhereNothingStands) {
  window.A->setText(u"5"_s);
  FillBlank(window.A, u"1"_s);
  FillBlank(window.B, u"1"_s);
  EXPECT_EQ(window.A->text(), u"5"_s);
  EXPECT_EQ(window.B->text(), u"1"_s);
}

TEST_F(FieldTextTest, SelectsTenCharactersAndNoMore) {
  window.A->setText(u"123456789012"_s);
  SelectFirstTen(window.A);
  EXPECT_EQ(window.A->selectedText(), u"1234567890"_s);
}

TEST_F(FieldTextTest, ADigitOfAnotherScriptIsNoNumber) {
  window.A->setText(u"\u0663"_s);
  EXPECT_EQ(NumberIn(window.A), 0);
  EXPECT_EQ(LeadingNumberIn(window.A), 0);
}

}  // namespace
}  // namespace brindle
