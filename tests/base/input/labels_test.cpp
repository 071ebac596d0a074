// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/labels.h"

#include <memory>

#include <QLabel>
#include <QString>
#include <gtest/gtest.h>

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

TEST(Label, CanCarryANameAndATooltip) {
  const std::unique_ptr<QLabel> label(MakeLabel(u"L"_s, u"<b>Text</b>"_s, u"Tip"_s));
  EXPECT_EQ(label->objectName(), u"L"_s);
  EXPECT_EQ(label->text(), u"<b>Text</b>"_s);
  EXPECT_EQ(label->toolTip(), u"Tip"_s);
  EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST(ValueLabel, KeepsRoomForItsWidestText) {
  ValueLabel label(u"V"_s, {}, {u"short"_s, u"a much longer text"_s});
  const auto empty = label.sizeHint();
  label.setText(u"a much longer text"_s);
  EXPECT_EQ(label.sizeHint(), empty);
  label.setText(u"short"_s);
  EXPECT_EQ(label.sizeHint(), empty);
}

TEST(ValueLabel, TellsAScreenReaderWhatItShows) {
  ValueLabel label(u"V"_s, {}, {u"888"_s});
  label.Write(u"7"_s);
  EXPECT_EQ(label.text(), u"7"_s);
  EXPECT_EQ(label.accessibleDescription(), u"7"_s);
}

}  // namespace
}  // namespace brindle
