// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/input/layout.h"

#include <QApplication>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QString>
#include <gtest/gtest.h>

#include "app/input/spin_button.h"
#include "app/input/text_field.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

TEST(Layout, ARowNamesItsControls) {
  auto* field = new TextField(u"F"_s, {});
  auto* plus = new SpinButton(u"P"_s, SpinDirection::Plus);
  auto* minus = new SpinButton(u"M"_s, SpinDirection::Minus);
  auto* named = new TextField(u"N"_s, {});
  named->setAccessibleName(u"its own"_s);
  QWidget window;
  LayOut(&window, Down({MakeFrame(u"Frame"_s, {{u"Label :"_s, {field, plus, minus, named}}})}));
  EXPECT_EQ(field->accessibleName(), u"Label :"_s);
  EXPECT_EQ(plus->accessibleName(), u"Label : plus"_s);
  EXPECT_EQ(minus->accessibleName(), u"Label : minus"_s);
  EXPECT_EQ(named->accessibleName(), u"its own"_s);
}

TEST(Layout, LabelsShowPlainText) {
  QWidget window;
  LayOut(&window, Down({MakeFrame({}, {{u"<i>x</i>"_s, {MakeLabel(u"<b>y</b>"_s)}}})}));
  for (const auto* label : window.findChildren<QLabel*>()) {
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
  }
}

TEST(ValueLabel, KeepsRoomForItsWidestText) {
  ValueLabel label(u"V"_s, {}, {u"short"_s, u"a much longer text"_s});
  const auto empty = label.sizeHint();
  label.setText(u"a much longer text"_s);
  EXPECT_EQ(label.sizeHint(), empty);
  label.setText(u"short"_s);
  EXPECT_EQ(label.sizeHint(), empty);
}

TEST(ResultField, IsLargerThanTheTextAroundItAndFollowsTheFont) {
  const QFont before = QApplication::font();
  ResultField field(u"R"_s, {}, 6);
  EXPECT_TRUE(field.isReadOnly());
  EXPECT_DOUBLE_EQ(field.font().pointSizeF(), before.pointSizeF() * ResultScale);
  QFont larger = before;
  larger.setPointSizeF(14);
  QApplication::setFont(larger);
  QEvent changed(QEvent::ApplicationFontChange);  // sent by itself only in a running program
  QApplication::sendEvent(&field, &changed);
  EXPECT_DOUBLE_EQ(field.font().pointSizeF(), 14 * ResultScale);
  QApplication::setFont(before);
}

}  // namespace
}  // namespace brindle
