// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/number_fields.h"

#include <limits>
#include <optional>
#include <string>

#include <QString>
#include <gtest/gtest.h>

#include "tests/base/input/field_window.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class NumberFieldsTest : public ::testing::Test {
 protected:
  void SetUp() override { window.Start(); }  // the focus is in B

  [[nodiscard]] std::string Repaired(const QString& text) const {
    window.A->setText(text);
    RepairText(*window.A);
    RepairSign(*window.A);
    return window.A->text().toStdString();
  }

  FieldWindow window;
};

TEST_F(NumberFieldsTest, RepairKeepsNumbersAndEmptyTexts) {
  EXPECT_EQ(Repaired(u"12.50"_s), "12.50");
  EXPECT_EQ(Repaired(u" 7 "_s), " 7 ");
  EXPECT_EQ(Repaired(u""_s), "");
}

TEST_F(NumberFieldsTest, RepairTakesTheAbsoluteLeadingNumber) {
  EXPECT_EQ(Repaired(u"-3.5kg"_s), "3.5");
  EXPECT_EQ(Repaired(u"abc"_s), "0");
  EXPECT_EQ(Repaired(u"1e999"_s), "0");
  EXPECT_EQ(Repaired(u" "_s), "0");
}

TEST_F(NumberFieldsTest, RepairDropsTheSign) { EXPECT_EQ(Repaired(u"-650"_s), "650"); }

TEST_F(NumberFieldsTest, ANumberJustBegunIsNumericOnlyInTheFieldBeingEdited) {
  for (const auto& text : {u"-"_s, u"+"_s, u"."_s, u"-."_s, u"+."_s}) {
    window.A->setText(text);
    window.B->setText(text);
    EXPECT_FALSE(IsNumericIn(*window.A));
    EXPECT_TRUE(IsNumericIn(*window.B));
    RepairText(*window.B);
    EXPECT_EQ(window.B->text(), text);
    EXPECT_EQ(NumberIn(*window.B), 0);
    RepairText(*window.A);
    EXPECT_EQ(window.A->text(), u"0"_s);
  }
}

TEST_F(NumberFieldsTest, ANumberRewrittenKeepsTheTypedTailOnlyWhileItIsEdited) {
  window.A->setText(u"10.0"_s);
  window.B->setText(u"10.0"_s);
  RewriteWhileTyping(*window.A);
  RewriteWhileTyping(*window.B);
  EXPECT_EQ(window.A->text(), u"10"_s);
  EXPECT_EQ(window.B->text(), u"10.0"_s);
  RewriteNumber(*window.B);
  EXPECT_EQ(window.B->text(), u"10"_s);
}

TEST_F(NumberFieldsTest, BlanksAreFilledOnlyWhereNothingStands) {
  window.A->setText(u"5"_s);
  FillBlank(*window.A, u"1"_s);
  FillBlank(*window.B, u"1"_s);
  EXPECT_EQ(window.A->text(), u"5"_s);
  EXPECT_EQ(window.B->text(), u"1"_s);
}

TEST_F(NumberFieldsTest, SelectsTenCharactersAndNoMore) {
  window.A->setText(u"123456789012"_s);
  SelectFirstTen(*window.A);
  EXPECT_EQ(window.A->selectedText(), u"1234567890"_s);
}

TEST_F(NumberFieldsTest, ADigitOfAnotherScriptIsNoNumber) {
  window.A->setText(u"\u0663"_s);
  EXPECT_EQ(NumberIn(*window.A), 0);
  EXPECT_EQ(LeadingNumberIn(*window.A), 0);
}

struct WithinCase {
  std::string name;
  QString text;
  double limit = 999;
  QString rewritten;
  QString repaired;
};

// In a field that nobody is editing.
class FieldTextWithin : public ::testing::TestWithParam<WithinCase> {
 protected:
  void SetUp() override { window.Start(); }  // the focus is in B

  FieldWindow window;
};

TEST_P(FieldTextWithin, ShrinksByTensToTheLimit) {
  const auto& [name, text, limit, rewritten, repaired] = GetParam();
  window.A->setText(text);
  RewriteWithin(*window.A, limit);
  EXPECT_EQ(window.A->text(), rewritten);
  window.A->setText(text);
  RepairWithin(*window.A, limit);
  EXPECT_EQ(window.A->text(), repaired);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FieldTextWithin,
    ::testing::Values(
        WithinCase{"Empty", u""_s, 999, u""_s, u""_s},
        WithinCase{"Below", u"12"_s, 999, u"12"_s, u"12"_s},
        WithinCase{"AtTheLimit", u"999"_s, 999, u"999"_s, u"999"_s},
        WithinCase{"Above", u"5000"_s, 999, u"500"_s, u"500"_s},
        WithinCase{"AboveMoreThanOnce", u"1234567"_s, 999, u"123.4567"_s, u"123.4567"_s},
        WithinCase{"JustAbove", u"99.9995"_s, 99.999, u"9.99995"_s, u"9.99995"_s},
        WithinCase{"AboveWithTrailingZeros", u"1000.0"_s, 999, u"100"_s, u"100"_s},
        WithinCase{"TrailingZeros", u"12.50"_s, 999, u"12.5"_s, u"12.50"_s},
        WithinCase{"TrailingPeriod", u"12."_s, 999, u"12"_s, u"12."_s},
        WithinCase{"LeadingZeros", u"007"_s, 999, u"7"_s, u"007"_s},
        WithinCase{"Blanks", u" 7 "_s, 999, u"7"_s, u" 7 "_s},
        WithinCase{"Exponent", u"1e2"_s, 999, u"100"_s, u"1e2"_s},
        WithinCase{"Negative", u"-1234"_s, 999, u"-1234"_s, u"-1234"_s},
        WithinCase{"Letters", u"abc"_s, 999, u"0"_s, u"0"_s},
        WithinCase{"LettersBehind", u"12xyz"_s, 999, u"12"_s, u"12"_s},
        WithinCase{"NegativeWithLettersAbove", u"-1234x"_s, 999, u"123.4"_s, u"123.4"_s},
        WithinCase{"JustBegun", u"-"_s, 999, u"0"_s, u"0"_s},
        WithinCase{"OutOfRange", u"1e999"_s, 999, u"0"_s, u"0"_s},
        WithinCase{"Huge", u"3e300"_s, 999, u"300"_s, u"300"_s}),
    NameOf);

TEST_F(NumberFieldsTest, RewritingWithinALimitKeepsTheTailThatIsBeingTyped) {
  for (const auto& text : {u"10."_s, u"10.0"_s, u"10.50"_s, u"0.00"_s}) {
    window.B->setText(text);
    RewriteWithin(*window.B, 999);
    EXPECT_EQ(window.B->text(), text);
  }
  window.B->setText(u"1000.0"_s);
  RewriteWithin(*window.B, 999);
  EXPECT_EQ(window.B->text(), u"100"_s);
  window.B->setText(u"-"_s);
  RewriteWithin(*window.B, 999);
  EXPECT_EQ(window.B->text(), u"0"_s);
}

TEST_F(NumberFieldsTest, RepairingWithinALimitKeepsWhatIsBeingTyped) {
  for (const auto& text : {u"-"_s, u"."_s, u"+."_s, u"10."_s, u"10.0"_s, u" 7 "_s, u"-5"_s}) {
    window.B->setText(text);
    RepairWithin(*window.B, 999);
    EXPECT_EQ(window.B->text(), text);
  }
}

TEST_F(NumberFieldsTest, StayingWithinALimitLeavesTheCursor) {
  window.B->setText(u"123.5"_s);
  window.B->setCursorPosition(2);
  RewriteWithin(*window.B, 999);
  EXPECT_EQ(window.B->cursorPosition(), 2);
  RepairWithin(*window.B, 999);
  EXPECT_EQ(window.B->cursorPosition(), 2);
  RepairWithin(*window.B, 99);
  EXPECT_EQ(window.B->text(), u"12.35"_s);
  EXPECT_EQ(window.B->cursorPosition(), 5);
}

struct RepairedCase {
  std::string name;
  QString text;
  QString repaired;
  double number = 0;
};

class FieldTextRepaired : public ::testing::TestWithParam<RepairedCase> {
 protected:
  void SetUp() override { window.Start(); }  // the focus is in B

  FieldWindow window;
};

TEST_P(FieldTextRepaired, GivesTheNumberOfTheRepairedText) {
  const auto& [name, text, repaired, number] = GetParam();
  window.A->setText(text);
  EXPECT_EQ(RepairAndRead(*window.A), number);
  EXPECT_EQ(window.A->text(), repaired);
}

INSTANTIATE_TEST_SUITE_P(Cases, FieldTextRepaired,
                         ::testing::Values(RepairedCase{"Empty", u""_s, u""_s, 0},
                                           RepairedCase{"Number", u"12.50"_s, u"12.50"_s, 12.5},
                                           RepairedCase{"Blanks", u" 7 "_s, u" 7 "_s, 7},
                                           RepairedCase{"Negative", u"-20"_s, u"20"_s, 20},
                                           RepairedCase{"NegativeZero", u"-0"_s, u"-0"_s, 0},
                                           RepairedCase{"NegativeWithLetters", u"-3.5kg"_s,
                                                        u"3.5"_s, 3.5},
                                           RepairedCase{"Letters", u"abc"_s, u"0"_s, 0},
                                           RepairedCase{"DecimalComma", u"1,5"_s, u"1"_s, 1},
                                           RepairedCase{"OutOfRange", u"1e999"_s, u"0"_s, 0},
                                           RepairedCase{"JustBegun", u"-."_s, u"0"_s, 0}),
                         NameOf);

TEST_F(NumberFieldsTest, TheRepairedNumberOfANumberJustBegunIsZeroAndKeepsItsText) {
  for (const auto& text : {u"-"_s, u"+"_s, u"."_s, u"-."_s, u"+."_s}) {
    window.B->setText(text);
    EXPECT_EQ(RepairAndRead(*window.B), 0);
    EXPECT_EQ(window.B->text(), text);
  }
}

TEST_F(NumberFieldsTest, SelectsTheWholeTextHoweverLong) {
  window.A->setText(u"123456789012"_s);
  SelectWholeText(*window.A);
  EXPECT_EQ(window.A->selectedText(), u"123456789012"_s);
  window.A->setText({});
  SelectWholeText(*window.A);
  EXPECT_FALSE(window.A->hasSelectedText());
}

TEST_F(NumberFieldsTest, WhatIsWrittenStandsForItsNumberUntilSomebodyChangesIt) {
  window.B->Write(u"0.333"_s, 1.0 / 3);
  EXPECT_EQ(NumberIn(*window.B), 1.0 / 3);
  EXPECT_EQ(LeadingNumberIn(*window.B), 1.0 / 3);
  EXPECT_EQ(ShownNumberIn(*window.B), 0.333);
  Key(Qt::Key_End);
  Key(Qt::Key_Backspace);
  Type(u"3"_s);
  EXPECT_EQ(window.B->text(), u"0.333"_s);
  EXPECT_EQ(NumberIn(*window.B), 0.333);
  EXPECT_EQ(LeadingNumberIn(*window.B), 0.333);
}

TEST_F(NumberFieldsTest, AnotherTextOfTheProgramStandsForItself) {
  window.A->Write(u"0.333"_s, 1.0 / 3);
  window.A->Write(u"0.333"_s);
  EXPECT_EQ(NumberIn(*window.A), 0.333);
  window.A->Write(u"0.333"_s, 1.0 / 3);
  window.A->setText(u"0.334"_s);
  EXPECT_EQ(NumberIn(*window.A), 0.334);
}

TEST_F(NumberFieldsTest, TheSameTextOfAnotherNumberStandsForThatOne) {
  Type(u"1.112"_s);
  window.B->Write(u"1.112"_s, 1.11222);
  EXPECT_EQ(NumberIn(*window.B), 1.11222);
  window.B->Write(u"1.112"_s, 1.11189);
  EXPECT_EQ(NumberIn(*window.B), 1.11189);
}

TEST_F(NumberFieldsTest, WhatStandsNowhereStandsForNothing) {
  window.A->Write(u""_s, 0.3);
  EXPECT_EQ(window.A->WrittenFrom(), std::nullopt);
  EXPECT_EQ(NumberIn(*window.A), 0);
  WriteNumber(*window.A, std::numeric_limits<double>::infinity());
  EXPECT_EQ(window.A->text(), QString());
  EXPECT_EQ(NumberIn(*window.A), 0);
}

TEST_F(NumberFieldsTest, ARewrittenNumberGoesOnStandingForWhatItWasWrittenFrom) {
  window.A->Write(u"25.01"_s, 25.0083);
  RewriteNumber(*window.A);
  EXPECT_EQ(window.A->text(), u"25.01"_s);
  EXPECT_EQ(NumberIn(*window.A), 25.0083);
  window.A->Write(u"05.00"_s, 5.004);
  RewriteNumber(*window.A);
  EXPECT_EQ(window.A->text(), u"5"_s);
  EXPECT_EQ(NumberIn(*window.A), 5.004);
  RewriteFormatted(*window.A, "00.00");
  EXPECT_EQ(window.A->text(), u"05.00"_s);
  EXPECT_EQ(NumberIn(*window.A), 5.004);
}

TEST_F(NumberFieldsTest, ANumberFormattedAsItIsLeftStandsForWhatWasTyped) {
  window.A->setText(u"20.005"_s);
  RewriteFormatted(*window.A, "00.00");
  EXPECT_EQ(window.A->text(), u"20.01"_s);
  EXPECT_EQ(NumberIn(*window.A), 20.005);
}

TEST_F(NumberFieldsTest, WhatTheProgramWroteHasNoLimit) {
  WriteNumber(*window.A, 10000);
  RepairWithin(*window.A, 999);
  EXPECT_EQ(window.A->text(), u"10000"_s);
  RewriteWithin(*window.A, 999);
  EXPECT_EQ(window.A->text(), u"10000"_s);
  WriteTyped(*window.A, 10000);
  RepairWithin(*window.A, 999);
  EXPECT_EQ(window.A->text(), u"100"_s);
}

TEST_F(NumberFieldsTest, TheSignOfWhatTheProgramWroteIsRepairedExactly) {
  window.A->Write(u"-0.333"_s, -1.0 / 3);
  RepairSign(*window.A);
  EXPECT_EQ(window.A->text(), u"0.333333333333333"_s);
  EXPECT_EQ(NumberIn(*window.A), 1.0 / 3);
}

TEST_F(NumberFieldsTest, MinutesThatShowNoneAreNone) {
  WriteMinutes(*window.A, 1.0 / 3);
  EXPECT_EQ(window.A->text(), u"0.333"_s);
  EXPECT_EQ(NumberIn(*window.A), 1.0 / 3);
  WriteMinutes(*window.A, 0.0004);
  EXPECT_EQ(window.A->text(), u"0"_s);
  EXPECT_EQ(NumberIn(*window.A), 0);
}

TEST_F(NumberFieldsTest, WhatIsPutIntoTheFieldBeingEditedStandsSelected) {
  FillBlank(*window.A, u"1"_s);
  EXPECT_FALSE(window.A->hasSelectedText());
  FillBlank(*window.B, u"1"_s);
  EXPECT_EQ(window.B->selectedText(), u"1"_s);
  Type(u"600"_s);
  EXPECT_EQ(window.B->text(), u"600"_s);
}

}  // namespace
}  // namespace brindle
