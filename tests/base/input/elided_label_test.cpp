// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/elided_label.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QString>
#include <QTest>
#include <QToolTip>
#include <QWidget>
#include <gtest/gtest.h>

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

QImage PictureOf(QWidget& widget) { return widget.grab().toImage(); }

TEST(ElidedLabel, KeepsItsTextWhole) {
  const auto text = QString(1000, u'm');
  ElidedLabel label(u"L"_s, u"first"_s, u"tip"_s);
  EXPECT_EQ(label.objectName(), u"L"_s);
  EXPECT_EQ(label.text(), u"first"_s);
  EXPECT_EQ(label.toolTip(), u"tip"_s);
  label.Write(text);
  label.resize(100, 30);
  EXPECT_EQ(label.text(), text);
  EXPECT_EQ(label.accessibleDescription(), text);
  label.Write({});
  EXPECT_EQ(label.text(), QString());
  EXPECT_EQ(label.accessibleDescription(), QString());
}

TEST(ElidedLabel, NeverMakesItsWindowWider) {
  QWidget window;
  QHBoxLayout line(&window);
  auto* label = new ElidedLabel(u"L"_s, u"short"_s);
  line.addWidget(label);
  const auto before = window.minimumSizeHint();
  label->Write(QString(1000, u'm'));
  EXPECT_EQ(window.minimumSizeHint(), before);
  EXPECT_GT(before.width(), 0);
  EXPECT_GE(label->minimumSizeHint().height(), label->fontMetrics().height());
}

TEST(ElidedLabel, ShowsTheEndsOfALongTextAndDotsBetween) {
  const auto head = u"/the/beginning/"_s;
  const auto tail = u"/the/end.wav"_s;
  ElidedLabel label(u"L"_s, head + QString(300, u'm') + tail);
  label.resize(300, 30);
  ElidedLabel elided(u"L"_s, label.fontMetrics().elidedText(label.text(), Qt::ElideMiddle, 300));
  elided.resize(300, 30);
  EXPECT_NE(elided.text(), label.text());
  EXPECT_TRUE(elided.text().startsWith(u"/the"_s));
  EXPECT_TRUE(elided.text().endsWith(u"end.wav"_s));
  EXPECT_EQ(PictureOf(label), PictureOf(elided));
  // Two long texts that differ only in the middle look the same; two that differ at the end do not.
  ElidedLabel other(u"L"_s, head + QString(400, u'm') + tail);
  other.resize(300, 30);
  EXPECT_EQ(PictureOf(label), PictureOf(other));
  other.Write(head + QString(300, u'm') + u"/the/end.mp3"_s);
  EXPECT_NE(PictureOf(label), PictureOf(other));
}

TEST(ElidedLabel, ReplacesTheEndIfAsked) {
  const auto head = u"holiday.avi: 1:42:30, 25 fps, 640 x 272"_s;
  ElidedLabel label(u"L"_s, head + QString(400, u'm') + u"a"_s);
  ElidedLabel other(u"L"_s, head + QString(400, u'm') + u"b"_s);
  for (auto* each : {&label, &other}) {
    each->resize(300, 30);
  }
  EXPECT_NE(PictureOf(label), PictureOf(other));
  for (auto* each : {&label, &other}) {
    each->ElideEnd();
  }
  EXPECT_EQ(PictureOf(label), PictureOf(other));
  other.Write(u"H"_s + head.mid(1) + QString(400, u'm'));
  EXPECT_NE(PictureOf(label), PictureOf(other));
}

TEST(ElidedLabel, ShowsAShortTextLikeAnyLabel) {
  ElidedLabel label(u"L"_s, u"short.wav"_s);
  QLabel plain(u"short.wav"_s);
  plain.setMargin(0);
  label.resize(200, 30);
  plain.resize(200, 30);
  EXPECT_EQ(PictureOf(label), PictureOf(plain));
}

TEST(ElidedLabel, ShowsMarkupAsItIs) {
  ElidedLabel bold(u"L"_s, u"<b>x</b>"_s);
  ElidedLabel letter(u"L"_s, u"x"_s);
  bold.resize(200, 30);
  letter.resize(200, 30);
  EXPECT_EQ(bold.textFormat(), Qt::PlainText);
  EXPECT_NE(PictureOf(bold), PictureOf(letter));
  ElidedLabel ampersand(u"L"_s, u"a&b"_s);
  ElidedLabel without(u"L"_s, u"ab"_s);
  ampersand.resize(200, 30);
  without.resize(200, 30);
  EXPECT_NE(PictureOf(ampersand), PictureOf(without));
}

TEST(ElidedLabel, LooksGreyWhileDisabled) {
  ElidedLabel label(u"L"_s, u"text"_s);
  label.resize(100, 30);
  const auto enabled = PictureOf(label);
  label.setEnabled(false);
  EXPECT_NE(PictureOf(label), enabled);
}

// The tooltip that pops up over the label.
QString ToolTipOver(QWidget& label) {
  QToolTip::hideText();
  QHelpEvent event(QEvent::ToolTip, label.rect().center(),
                   label.mapToGlobal(label.rect().center()));
  QApplication::sendEvent(&label, &event);
  return QToolTip::text();
}

TEST(ElidedLabel, HasToolTipsOfPlainText) {
  ElidedLabel label(u"L"_s, u"text"_s, u"/music/a&b.wav"_s);
  label.resize(200, 30);
  label.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&label, 10000));
  EXPECT_EQ(ToolTipOver(label), u"/music/a&b.wav"_s);
  label.setToolTip(u"/<b>music</b>/&amp;.wav"_s);
  const auto shown = ToolTipOver(label);
  EXPECT_TRUE(shown.contains(u"/&lt;b&gt;music&lt;/b&gt;/&amp;amp;.wav"_s)) << shown.toStdString();
  EXPECT_EQ(label.toolTip(), u"/<b>music</b>/&amp;.wav"_s);
  QToolTip::hideText();
}

}  // namespace
}  // namespace brindle
