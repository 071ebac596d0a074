// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QString>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

#include "tests/base/input/field_window.h"

namespace brindle {
namespace {

TEST(FormTest, CanBeMinimizedAndClosedButNotMaximized) {
  const Form form(QStringLiteral("F"), {});
  EXPECT_TRUE(form.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
  EXPECT_TRUE(form.windowFlags().testFlag(Qt::WindowCloseButtonHint));
  EXPECT_FALSE(form.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
}

using namespace Qt::StringLiterals;

TEST(Form, TellsOnceThatItIsClosed) {
  Form form(u"F"_s, u"Caption"_s);
  int closed = 0;
  QObject::connect(&form, &Form::Closed, [&] { ++closed; });
  form.show();
  form.close();
  form.close();
  EXPECT_EQ(closed, 1);
}

TEST(Form, CarriesItsNameAndCaption) {
  const Form form(u"F"_s, u"Caption"_s);
  EXPECT_EQ(form.objectName(), u"F"_s);
  EXPECT_EQ(form.windowTitle(), u"Caption"_s);
}

TEST(Form, EscapeClosesAfterTheFieldsOwnHandler) {
  FieldWindow window;
  window.Start();
  window.A->setFocus();
  window.events.clear();
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.events.front(), "A press ");
}

TEST(Form, F1AsksForHelpAfterTheFieldsOwnHandlerAndClosesNothing) {
  FieldWindow window;
  int asked = 0;
  QObject::connect(&window, &Form::HelpAsked, [&] { ++asked; });
  window.Start();
  window.A->setFocus();
  Key(Qt::Key_F1);
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(window.isVisible());
}

TEST(Form, HeldOrWithAModifierF1IsAskedForOnceOrNotAtAll) {
  Form form(u"F"_s, u"Caption"_s);
  int asked = 0;
  QObject::connect(&form, &Form::HelpAsked, [&] { ++asked; });
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, {}, true);
  QApplication::sendEvent(&form, &repeated);
  QKeyEvent modified(QEvent::KeyPress, Qt::Key_F1, Qt::ShiftModifier);
  QApplication::sendEvent(&form, &modified);
  EXPECT_EQ(asked, 0);
  QKeyEvent pressed(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
  QApplication::sendEvent(&form, &pressed);
  EXPECT_EQ(asked, 1);
}

TEST(Form, AHeldF1IsAskedForOnceHoweverLateItsRepetitionsCome) {
  FieldWindow window;
  int asked = 0;
  QObject::connect(&window, &Form::HelpAsked, [&] { ++asked; });
  window.Start();
  window.A->setFocus();
  const auto send = [&](QEvent::Type type, quint64 moment) {
    QKeyEvent event(type, Qt::Key_F1, Qt::NoModifier);
    event.setTimestamp(moment);
    QApplication::sendEvent(window.windowHandle(), &event);
  };
  send(QEvent::KeyPress, 1000);
  // A busy machine may hand over the repetitions seconds apart; their moments stay the same.
  for (const quint64 moment : {1660U, 1700U, 3900U}) {
    send(QEvent::KeyRelease, moment);
    send(QEvent::KeyPress, moment);
  }
  EXPECT_EQ(asked, 1);
  send(QEvent::KeyRelease, 3950);
  send(QEvent::KeyPress, 3951);
  EXPECT_EQ(asked, 2) << "pressed once more, however soon";
}

TEST(Form, EscapeCanBeIgnored) {
  Form form(u"F"_s, u"Caption"_s, Form::Escape::IsIgnored);
  form.show();
  form.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form, 10000));
  Key(Qt::Key_Escape);
  EXPECT_TRUE(form.isVisible());
}

}  // namespace
}  // namespace brindle
