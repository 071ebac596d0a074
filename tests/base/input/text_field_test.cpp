// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/text_field.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QString>
#include <gtest/gtest.h>

#include "tests/base/input/field_window.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class TextFieldTest : public ::testing::Test {
 protected:
  void SetUp() override { window.Start(); }
  FieldWindow window;
};

TEST_F(TextFieldTest, AsAResultItIsFilledLikeTheWindowAndCannotBeTypedInto) {
  const auto middle = [this] {
    return window.A->grab().toImage().pixelColor(window.A->width() / 2, window.A->height() / 2);
  };
  window.A->setText({});
  window.A->clearFocus();
  const QColor toTypeIn = middle();
  window.A->ShowAsResult(true);
  EXPECT_TRUE(window.A->isReadOnly());
  EXPECT_NE(middle(), toTypeIn);
  EXPECT_EQ(middle(), window.palette().color(QPalette::Window));
  window.A->ShowAsResult(false);
  EXPECT_FALSE(window.A->isReadOnly());
  EXPECT_EQ(middle(), toTypeIn);
}

TEST_F(TextFieldTest, KeyPressComesBeforeTheFieldTakesTheKeyAndKeyUpAfter) {
  window.A->setFocus();
  window.events.clear();
  Type(u"12"_s);
  EXPECT_EQ(window.events, (Events{"A press ", "A up 1", "A press 1", "A up 12"}));
}

TEST_F(TextFieldTest, BackspaceEnterAndEscapeCountAsKeyPresses) {
  window.A->setFocus();
  window.events.clear();
  KeyDown(Qt::Key_Backspace);
  KeyDown(Qt::Key_Return);
  KeyDown(Qt::Key_Enter);
  KeyDown(Qt::Key_Escape);
  EXPECT_EQ(window.events, Events(4, "A press "));
  EXPECT_FALSE(window.isVisible());
}

TEST_F(TextFieldTest, KeysWithoutACharacterAreNoKeyPress) {
  window.A->setFocus();
  window.events.clear();
  for (const auto key : {Qt::Key_Left, Qt::Key_Delete, Qt::Key_Home, Qt::Key_F2, Qt::Key_Shift,
                         Qt::Key_Control, Qt::Key_Up}) {
    KeyDown(key);
  }
  EXPECT_EQ(window.events, Events());
}

TEST_F(TextFieldTest, ModifiersAndTabAloneAreNoKeyUp) {
  window.A->setFocus();
  window.events.clear();
  for (const auto key : {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt,
                         Qt::Key_AltGr, Qt::Key_Meta}) {
    KeyLetGo(key);
  }
  EXPECT_EQ(window.events, Events());
  KeyLetGo(Qt::Key_Left);
  KeyLetGo(Qt::Key_Return);
  EXPECT_EQ(window.events, (Events{"A up ", "A up "}));
}

TEST_F(TextFieldTest, AutoRepeatIsNoKeyUp) {
  window.A->setFocus();
  window.events.clear();
  QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_5, Qt::NoModifier, u"5"_s, true);
  QApplication::sendEvent(window.A, &repeated);
  EXPECT_EQ(window.events, Events());
}

TEST_F(TextFieldTest, ChangesWithoutAKeyCountAsOneKeyLetGo) {
  window.A->setFocus();
  window.events.clear();
  QApplication::clipboard()->setText(u"7"_s);
  window.A->paste();
  EXPECT_EQ(window.events, (Events{"A up 7"}));
  window.A->undo();
  EXPECT_EQ(window.events, (Events{"A up 7", "A up "}));
  QInputMethodEvent composed;
  composed.setCommitString(u"8"_s);
  QApplication::sendEvent(window.A, &composed);
  EXPECT_EQ(window.events, (Events{"A up 7", "A up ", "A up 8"}));
}

TEST_F(TextFieldTest, APasteByKeyCountsOnce) {
  window.A->setFocus();
  window.events.clear();
  Paste(u"42"_s);
  EXPECT_EQ(window.events, (Events{"A up 42"}));
}

TEST_F(TextFieldTest, AChangeByTheProgramCountsAsNone) {
  window.events.clear();
  window.A->Write(u"5"_s);
  window.A->setText(u"6"_s);
  EXPECT_EQ(window.events, Events());
}

TEST_F(TextFieldTest, AnyMouseButtonCounts) {
  window.A->setFocus();
  window.events.clear();
  Click(window.A);
  Click(window.A, Qt::MiddleButton);
  EXPECT_EQ(window.events, (Events{"A mouse down", "A mouse up", "A mouse down", "A mouse up"}));
}

TEST_F(TextFieldTest, TheSecondPressOfADoubleClickIsAPress) {
  window.A->setFocus();
  window.events.clear();
  DoubleClick(window.A);
  EXPECT_EQ(window.events, (Events{"A mouse down", "A mouse up", "A mouse down", "A mouse up"}));
}

TEST_F(TextFieldTest, FocusComesBeforeTheMousePressThatBringsIt) {
  Click(window.A);
  EXPECT_EQ(window.events, (Events{"B lost", "A got", "A mouse down", "A mouse up"}));
}

TEST_F(TextFieldTest, TheClickThatBringsTheFocusKeepsTheSelection) {
  window.selectOnFocus = true;
  window.A->setText(u"12345"_s);
  Click(window.A);
  EXPECT_EQ(window.A->selectedText(), u"12345"_s);
  Click(window.A);
  EXPECT_FALSE(window.A->hasSelectedText());
}

TEST_F(TextFieldTest, DraggingFromTheClickThatBringsTheFocusSelectsAnew) {
  window.selectOnFocus = true;
  const QString longerThanTheField(200, u'1');
  window.A->setText(longerThanTheField);
  const int y = window.A->height() / 2;
  Press(window.A);
  MoveTo(window.A, {window.A->width() / 2 + 2, y});
  EXPECT_EQ(window.A->selectedText(), longerThanTheField);
  QMouseEvent drag(QEvent::MouseMove, QPointF(2, y), window.A->mapToGlobal(QPointF(2, y)),
                   Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window.A, &drag);
  EXPECT_NE(window.A->selectedText(), longerThanTheField);
}

TEST_F(TextFieldTest, WritingTheSameTextKeepsTheSelection) {
  window.A->setText(u"12345"_s);
  window.A->setSelection(1, 2);
  window.A->Write(u"12345"_s);
  EXPECT_EQ(window.A->selectedText(), u"23"_s);
}

TEST_F(TextFieldTest, WritingOverAFullSelectionSelectsAllAgain) {
  window.A->setText(u"12345"_s);
  window.A->selectAll();
  window.A->Write(u"678"_s);
  EXPECT_EQ(window.A->selectedText(), u"678"_s);
}

TEST_F(TextFieldTest, WritingOtherwisePutsTheCursorAtTheEnd) {
  window.A->setText(u"12345"_s);
  window.A->setSelection(0, 3);
  window.A->Write(u"678"_s);
  EXPECT_FALSE(window.A->hasSelectedText());
  EXPECT_EQ(window.A->cursorPosition(), 3);
}

TEST_F(TextFieldTest, HoldsAtMost400Characters) {
  window.A->setFocus();
  Paste(QString(100000, u'1'));
  EXPECT_EQ(window.A->text(), QString(400, u'1'));
}

TEST_F(TextFieldTest, IsBeingEditedWhileItsWindowIsNotActiveToo) {
  EXPECT_TRUE(window.B->IsBeingEdited());
  EXPECT_FALSE(window.A->IsBeingEdited());
  Form other(u"Other"_s, u"Other"_s);
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other, 10000));
  EXPECT_TRUE(window.B->IsBeingEdited());
  window.L->setFocus();
  EXPECT_TRUE(window.L->Field()->IsBeingEdited());
}

TEST_F(TextFieldTest, AsksForRoomByDigits) {
  window.A->SetVisibleDigits(4);
  const int four = window.A->sizeHint().width();
  window.A->SetVisibleDigits(8);
  const int digit = window.A->fontMetrics().horizontalAdvance(u'0');
  EXPECT_EQ(window.A->sizeHint().width() - four, 4 * digit);
}

TEST_F(TextFieldTest, ACommaTypedEntersAPeriod) {
  Type(u"90,5"_s);
  EXPECT_EQ(window.B->text(), u"90.5"_s);
  window.A->setFocus();
  window.events.clear();
  Type(u","_s);
  EXPECT_EQ(window.events, (Events{"A press ", "A up ."}));
}

TEST_F(TextFieldTest, TheCommaOfANumberPadEntersAPeriod) {
  KeyDown(Qt::Key_Comma, u","_s);
  EXPECT_EQ(window.B->text(), u"."_s);
}

TEST_F(TextFieldTest, ACommaFromAnInputMethodEntersAPeriod) {
  QInputMethodEvent comma;
  comma.setCommitString(u","_s);
  QApplication::sendEvent(window.B, &comma);
  EXPECT_EQ(window.B->text(), u"."_s);
}

TEST_F(TextFieldTest, ACommaPastedStays) {
  Paste(u"1,5"_s);
  EXPECT_EQ(window.B->text(), u"1,5"_s);
}

TEST_F(TextFieldTest, ACommaTypedIntoAListEntersAPeriod) {
  window.L->setFocus();
  Type(u"4,7"_s);
  EXPECT_EQ(window.L->Field()->text(), u"4.7"_s);
}

// A handler that writes another text and then the one that it found.
class TextFieldRewritten : public TextFieldTest {
 protected:
  void RewriteAt(void (TextField::*event)()) {
    QObject::connect(window.B, event, &window, [this] {
      const auto before = window.B->text();
      window.B->Write(u"5"_s);
      window.B->Write(before);
    });
  }
};

TEST_F(TextFieldRewritten, KeepsTheCursorWhereTheTextIsTheSameAtTheEnd) {
  RewriteAt(&TextField::KeyUp);
  window.B->setText(u"05.00"_s);
  window.B->setCursorPosition(2);
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(window.B->text(), u"05.00"_s);
  EXPECT_EQ(window.B->cursorPosition(), 2);
}

TEST_F(TextFieldRewritten, KeepsTheSelectionAndItsDirection) {
  RewriteAt(&TextField::KeyUp);
  window.B->setText(u"05.00"_s);
  window.B->setSelection(1, 3);
  KeyLetGo(Qt::Key_Right);
  EXPECT_EQ(window.B->selectedText(), u"5.0"_s);
  EXPECT_EQ(window.B->cursorPosition(), 4);
  window.B->setSelection(4, -3);
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(window.B->selectedText(), u"5.0"_s);
  EXPECT_EQ(window.B->cursorPosition(), 1);
}

TEST_F(TextFieldRewritten, ThePressPutsTheCursorWhereTheMouseIs) {
  RewriteAt(&TextField::MouseDown);
  window.B->setText(u"05.00"_s);
  window.B->setCursorPosition(0);
  Press(window.B);
  const int middle = window.B->cursorPositionAt(window.B->rect().center());
  EXPECT_EQ(window.B->cursorPosition(), middle);
  EXPECT_GT(middle, 0);
}

TEST_F(TextFieldRewritten, LeavesTheCursorAtTheEndOfAnotherText) {
  QObject::connect(window.B, &TextField::KeyUp, &window, [this] { window.B->Write(u"12.5"_s); });
  window.B->setText(u"123.5"_s);
  window.B->setCursorPosition(1);
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(window.B->cursorPosition(), 4);
}

}  // namespace
}  // namespace brindle
