// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/visible_edge.h"

#include <algorithm>
#include <memory>
#include <string>

#include <QApplication>
#include <QColor>
#include <QImage>
#include <QPalette>
#include <QString>
#include <QStyle>
#include <QStyleFactory>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/check_box.h"
#include "base/input/option_group.h"
#include "base/input/slider.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr double Needed = 3;

const QColor DarkWindow(0x3a, 0x3a, 0x3a);

QPalette DarkPalette() {
  QPalette palette(DarkWindow);
  palette.setColor(QPalette::Base, QColor(0x24, 0x24, 0x24));
  palette.setColor(QPalette::WindowText, QColor(0xee, 0xee, 0xee));
  return palette;
}

struct Look {
  std::unique_ptr<QStyle> style{QStyleFactory::create(u"fusion"_s)};

  void GiveTo(QWidget& control, const QPalette& palette) const {
    control.setStyle(style.get());
    control.setPalette(palette);
    control.setAutoFillBackground(true);
    control.resize(control.sizeHint());
  }
};

// The best contrast to the window that a pixel of the picture's part has.
double BestContrast(const QImage& picture, const QRect& part) {
  double best = 1;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) {
      best = std::max(best, Contrast(picture.pixelColor(x, y), DarkWindow));
    }
  }
  return best;
}

TEST(VisibleEdge, ContrastIsThatOfTheGuidelines) {
  EXPECT_DOUBLE_EQ(Contrast(Qt::white, Qt::black), 21);
  EXPECT_DOUBLE_EQ(Contrast(Qt::black, Qt::white), 21);
  EXPECT_DOUBLE_EQ(Contrast(Qt::red, Qt::red), 1);
  EXPECT_NEAR(Contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
}

TEST(VisibleEdge, BoxesAndOptionsThatAreNotChosenAreSeenInTheDark) {
  const Look look;
  CheckBox box(u"B"_s, {});
  OptionGroup options(u"O"_s, {{0, {}, {}}});
  for (auto* control : {static_cast<QWidget*>(&box), static_cast<QWidget*>(options.At(0))}) {
    look.GiveTo(*control, DarkPalette());
    const auto picture = control->grab().toImage();
    EXPECT_GE(BestContrast(picture, picture.rect()), Needed) << control->objectName().toStdString();
    control->setStyle(nullptr);
  }
}

TEST(VisibleEdge, TicksAreSeenInTheDark) {
  const Look look;
  Slider slider(u"S"_s, {}, 0, 100);
  slider.SetStep(10);
  look.GiveTo(slider, DarkPalette());
  const auto picture = slider.grab().toImage();
  const int below = picture.height() - 3;
  EXPECT_GE(BestContrast(picture, {0, below, picture.width(), 1}), Needed);
  slider.setStyle(nullptr);
}

TEST(VisibleEdge, ASliderWithoutTicksIsDrawn) {
  const Look look;
  Slider slider(u"S"_s, {}, 0, 100);
  look.GiveTo(slider, DarkPalette());
  EXPECT_FALSE(slider.grab().isNull());
  slider.setStyle(nullptr);
}

TEST(VisibleEdge, ALightPaletteAndADesktopsOwnStyleDrawTheirOwn) {
  const Look look;
  const std::unique_ptr<QStyle> own(QStyleFactory::create(u"windows"_s));
  CheckBox box(u"B"_s, {});
  look.GiveTo(box, QPalette(QColor(0xef, 0xef, 0xef)));
  EXPECT_FALSE(EdgeColor(box));
  box.setPalette(DarkPalette());
  EXPECT_TRUE(EdgeColor(box));
  box.setStyle(own.get());
  EXPECT_FALSE(EdgeColor(box));
  box.setStyle(nullptr);
}

}  // namespace
}  // namespace brindle
