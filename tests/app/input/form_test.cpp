// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/input/form.h"

#include <QString>
#include <QTest>
#include <gtest/gtest.h>

#include "tests/app/input/field_window.h"

namespace brindle {
namespace {

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
