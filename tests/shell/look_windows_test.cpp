// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <string>

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QTest>
#include <gtest/gtest.h>

#include "shell/look.h"

namespace brindle {
namespace {

std::string StyleName() { return QApplication::style()->name().toLower().toStdString(); }

// The style in force after events have been handled.
std::string StyleWith(const QPalette& palette) {
  QApplication::setPalette(palette);
  QTest::qWait(0);
  return StyleName();
}

TEST(LookTest, StyleFitsThePaletteAtTheStartAndAtEveryChange) {
  const QPalette before = QApplication::palette();
  FollowPalette();
  EXPECT_EQ(StyleName(), "windowsvista");
  EXPECT_EQ(StyleWith(QPalette(QColor(0x20, 0x20, 0x20))), "fusion");
  EXPECT_EQ(StyleWith(QPalette(QColor(0x30, 0x30, 0x30))), "fusion");
  EXPECT_EQ(StyleWith(QPalette(QColor(0xf0, 0xf0, 0xf0))), "windowsvista");
  EXPECT_EQ(StyleWith(before), "windowsvista");
}

}  // namespace
}  // namespace brindle
