// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/layout.h"

#include <memory>

#include <QApplication>
#include <QCheckBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <QString>
#include <gtest/gtest.h>

#include "base/input/check_box.h"
#include "base/input/editable_list.h"
#include "base/input/labels.h"
#include "base/input/option_group.h"
#include "base/input/push_button.h"
#include "base/input/slider.h"
#include "base/input/spin_button.h"
#include "base/input/text_field.h"

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

TEST(Layout, AWindowHasRoomForItsCaption) {
  QWidget window;
  auto* label = MakeLabel(u"short"_s);
  LayOut(&window, Down({label}));
  const int narrow = window.sizeHint().width();
  QWidget titled;
  titled.setWindowTitle(u"A caption that is much longer than what is in the window"_s);
  auto* contents = MakeLabel(u"short"_s);
  LayOut(&titled, Down({contents}));
  EXPECT_GT(titled.sizeHint().width(),
            titled.fontMetrics().horizontalAdvance(titled.windowTitle()));
  EXPECT_LT(narrow, titled.sizeHint().width());
  EXPECT_EQ(window.sizeHint().height(), titled.sizeHint().height());
}

TEST(Layout, LabelsShowPlainText) {
  QWidget window;
  LayOut(&window, Down({MakeFrame({}, {{u"<i>x</i>"_s, {MakeLabel(u"<b>y</b>"_s)}}})}));
  for (const auto* label : window.findChildren<QLabel*>()) {
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
  }
}

TEST(Layout, AnOptionThatBeginsALineNamesItsControls) {
  QWidget window;
  OptionGroup options(u"O"_s);
  auto* field = new TextField(u"F"_s, {});
  auto* plus = new SpinButton(u"P"_s, SpinDirection::Plus);
  auto* list = new EditableList(u"L"_s, {});
  auto* first = options.Add(0, u"First"_s, {});
  auto* second = options.Add(1, u"Second"_s, {});
  LayOut(&window, Down({MakeFrame({}, {{first, {field, plus}}, {second, {list}}})}));
  EXPECT_EQ(field->accessibleName(), u"First"_s);
  EXPECT_EQ(plus->accessibleName(), u"First plus"_s);
  EXPECT_EQ(list->accessibleName(), u"Second"_s);
  EXPECT_EQ(list->Field()->accessibleName(), u"Second"_s);
}

TEST(Layout, ALineOfOnlyOneKindTakesTheWholeWidth) {
  auto* box = new CheckBox(u"B"_s, u"A caption much longer than any label of this frame"_s);
  auto* field = new TextField(u"F"_s, {});
  auto* wide = new TextField(u"W"_s, {});
  QWidget window;
  LayOut(&window,
         Down({MakeFrame(u"N"_s, u"Frame"_s, {{box, {}}, {u"Label :"_s, {field}}, {{}, {wide}}})}));
  window.show();
  const auto* frame = window.findChild<QGroupBox*>(u"N"_s);
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->title(), u"Frame"_s);
  EXPECT_EQ(wide->x(), box->x());
  EXPECT_LT(field->x(), box->geometry().right());
  EXPECT_EQ(wide->geometry().right(), field->geometry().right());
}

TEST(Layout, WhatKeepsItsRoomMovesNothingWhenItHides) {
  auto* above = new TextField(u"A"_s, {});
  auto* hidden = new TextField(u"H"_s, {});
  auto* below = new TextField(u"B"_s, {});
  KeepRoom({hidden});
  QWidget window;
  LayOut(&window, Down({MakeFrame(u"Frame"_s, Table({{above}, {hidden}, {below}}))}));
  window.show();
  const auto place = below->geometry();
  const auto size = window.size();
  hidden->hide();
  QCoreApplication::processEvents();
  EXPECT_EQ(below->geometry(), place);
  EXPECT_EQ(window.size(), size);
}

TEST(Layout, TheColumnsOfATableBehindTheFirstAreEquallyWide) {
  auto* narrow = MakeLabel(u"1"_s);
  auto* wide = MakeLabel(u"a much longer text"_s);
  auto* third = MakeLabel(u"2"_s);
  QWidget window;
  LayOut(&window, Down({MakeFrame(u"A caption that makes the window far wider than its table"_s,
                                  Table({{narrow, wide, third}}))}));
  window.show();
  EXPECT_NEAR(wide->width(), third->width(), 1);
  EXPECT_LT(narrow->width(), third->width());
}

TEST(Layout, ALineOfTextsStandsTogether) {
  auto* first = new ValueLabel(u"V"_s, {}, {u"888"_s});
  auto* second = new ValueLabel(u"W"_s, {}, {u"888"_s});
  auto* colon = MakeLabel(u":"_s);
  QWidget window;
  LayOut(&window, Down({MakeFrame(u"F"_s, {{u"Duration:"_s, {first, colon, second}},
                                           {u"Wide:"_s, {new Slider(u"S"_s, {}, 0, 9)}}})}));
  window.show();
  EXPECT_LE(colon->x() - first->geometry().right(), Spacing);
  EXPECT_LE(second->x() - colon->geometry().right(), Spacing);
}

TEST(Layout, AControlIsNamedByALabelElsewhere) {
  TextField field(u"F"_s, {});
  SpinButton minus(u"M"_s, SpinDirection::Minus);
  NameByLabel(u"Length"_s, {&field, &minus});
  EXPECT_EQ(field.accessibleName(), u"Length"_s);
  EXPECT_EQ(minus.accessibleName(), u"Length minus"_s);
}

TEST(Layout, ButtonsAndBoxesAreNamedByTheirCaption) {
  const PushButton button(u"B"_s, u"Do it"_s, u"Does it"_s);
  EXPECT_EQ(button.objectName(), u"B"_s);
  EXPECT_EQ(button.text(), u"Do it"_s);
  EXPECT_EQ(button.accessibleName(), u"Do it"_s);
  EXPECT_EQ(button.toolTip(), u"Does it"_s);
  const CheckBox box(u"C"_s, u"Allow it"_s, u"Allows it"_s);
  EXPECT_EQ(box.objectName(), u"C"_s);
  EXPECT_EQ(box.text(), u"Allow it"_s);
  EXPECT_EQ(box.accessibleName(), u"Allow it"_s);
  EXPECT_EQ(box.toolTip(), u"Allows it"_s);
  EXPECT_FALSE(box.isChecked());
}

// What a frame shows that has never been painted before.
QImage NewPicture() {
  const std::unique_ptr<QGroupBox> frame(MakeFrame(u"Caption"_s, Table({})));
  frame->resize(200, 100);
  return frame->grab().toImage();
}

QPalette RedOnBlue() {
  QPalette colours(Qt::blue);
  colours.setColor(QPalette::WindowText, Qt::red);
  return colours;
}

TEST(Layout, AFrameIsPaintedAnewInTheColoursOfTheProgram) {
  const std::unique_ptr<QGroupBox> frame(MakeFrame(u"Caption"_s, Table({})));
  frame->resize(200, 100);
  const auto before = frame->grab().toImage();
  EXPECT_EQ(before, NewPicture());
  const auto usual = QApplication::palette();

  QApplication::setPalette(RedOnBlue());
  QCoreApplication::processEvents();
  const auto after = frame->grab().toImage();
  const auto afresh = NewPicture();
  QApplication::setPalette(usual);
  QCoreApplication::processEvents();

  EXPECT_NE(after, before);
  EXPECT_EQ(after, afresh);
  EXPECT_EQ(frame->grab().toImage(), before);
}

TEST(Layout, AFrameIsPaintedAnewInColoursOfItsOwn) {
  const std::unique_ptr<QGroupBox> frame(MakeFrame(u"Caption"_s, Table({})));
  const std::unique_ptr<QGroupBox> unpainted(MakeFrame(u"Caption"_s, Table({})));
  frame->resize(200, 100);
  unpainted->resize(200, 100);
  const auto before = frame->grab().toImage();
  frame->setPalette(RedOnBlue());
  unpainted->setPalette(RedOnBlue());
  const auto after = frame->grab().toImage();
  EXPECT_NE(after, before);
  EXPECT_EQ(after, unpainted->grab().toImage());
}

}  // namespace
}  // namespace brindle
