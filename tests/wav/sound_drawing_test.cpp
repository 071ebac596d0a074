// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/sound_drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include <QColor>
#include <QImage>
#include <QPalette>
#include <QSize>
#include <gtest/gtest.h>

#include "tests/wav/sound_support.h"
#include "wav/level_range.h"
#include "wav/sound_outlook.h"

namespace brindle {
namespace {

using Words = std::vector<std::optional<std::int16_t>>;

// A sound that swings from one end to the other within every column of pixels.
Words Band(std::int16_t level) {
  Words words(2048);
  for (std::size_t i = 0; i < words.size(); ++i) {
    words[i] = static_cast<std::int16_t>(i % 2 == 0 ? level : -level);
  }
  return words;
}

QPalette PaletteOf(bool isDark) {
  QPalette palette(isDark ? QColor(0x3a, 0x3a, 0x3a) : QColor(0xef, 0xef, 0xef));
  palette.setColor(QPalette::Base, isDark ? QColor(0x24, 0x24, 0x24) : QColor(Qt::white));
  palette.setColor(QPalette::Text, isDark ? QColor(0xee, 0xee, 0xee) : QColor(Qt::black));
  return palette;
}

// By the definition of the contrast of two colours in guidelines for readable pages.
double ContrastOf(const QColor& one, const QColor& other) {
  const auto luminance = [](const QColor& color) {
    const auto linear = [](double part) {
      return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
  };
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

class ColorsOfSound : public ::testing::TestWithParam<bool> {};

TEST_P(ColorsOfSound, StandOutFromEachOther) {
  const auto colors = SoundColors::Of(PaletteOf(GetParam()));
  EXPECT_GE(ContrastOf(colors.sound, colors.background), 3);
  EXPECT_GE(ContrastOf(colors.ghost, colors.background), 3);
  EXPECT_GE(ContrastOf(colors.cutOff, colors.background), 3);
  EXPECT_GE(ContrastOf(colors.line, colors.background), 3);
  EXPECT_GE(ContrastOf(colors.text, colors.background), 3);
  EXPECT_GE(ContrastOf(colors.sound, colors.ghost), 3);
}

INSTANTIATE_TEST_SUITE_P(Palettes, ColorsOfSound, ::testing::Bool(),
                         [](const auto& palette) { return palette.param ? "Dark" : "Light"; });

// A picture on a screen of this ratio, in the light or the dark.
class DrawnAt : public ::testing::TestWithParam<std::tuple<double, bool>> {
 protected:
  [[nodiscard]] static double Ratio() { return std::get<0>(GetParam()); }
  [[nodiscard]] static int LineWidth() { return static_cast<int>(Ratio()); }
  [[nodiscard]] static QSize Pixels() {
    return {static_cast<int>(301 * Ratio()), static_cast<int>(75 * Ratio())};
  }
  [[nodiscard]] static SoundColors Colors() {
    return SoundColors::Of(PaletteOf(std::get<1>(GetParam())));
  }
  [[nodiscard]] static SoundRows Rows() { return {Pixels().height(), LineWidth()}; }
  [[nodiscard]] static int Width() { return Pixels().width() - 2 * LineWidth(); }

  void Draw(const SoundOutlook& outlook) {
    image = DrawnSound(outlook, Pixels(), Ratio(), Colors());
    ASSERT_EQ(image.size(), Pixels());
  }

  // How many pixels of the column, counted within the border, have the colour.
  [[nodiscard]] int CountIn(int column, const QColor& color) const {
    int count = 0;
    for (int row = LineWidth(); row < image.height() - LineWidth(); ++row) {
      count += image.pixelColor(LineWidth() + column, row) == color ? 1 : 0;
    }
    return count;
  }
  [[nodiscard]] int Count(const QColor& color) const {
    int count = 0;
    for (int column = 0; column < Width(); ++column) {
      count += CountIn(column, color);
    }
    return count;
  }
  [[nodiscard]] QColor At(int column, int row) const {
    return image.pixelColor(LineWidth() + column, row);
  }

  QImage image;
};

TEST_P(DrawnAt, AnEmptyPictureIsAFrame) {
  Draw({.gain = 2});
  EXPECT_EQ(Count(Colors().empty), Width() * (Pixels().height() - 2 * LineWidth()));
  EXPECT_EQ(image.pixelColor(0, 0), Colors().border);
  EXPECT_EQ(image.pixelColor(Pixels().width() - 1, Pixels().height() - 1), Colors().border);
}

// The words of each column of pixels, in whole numbers: those of all columns of the picture that it
// meets, which here are words.
TEST_P(DrawnAt, EachColumnGoesFromItsLowestToItsHighestLevel) {
  std::mt19937 random(20261127);  // NOLINT(cert-msc51-cpp): the same sound every time
  std::uniform_int_distribution<int> anyLevel(-30000, 30000);
  for (const std::size_t count : {1U, 2U, 100U, 299U, 450U, 1000U, 2048U}) {
    Words words(count);
    for (auto& word : words) {
      word = static_cast<std::int16_t>(anyLevel(random));
    }
    Draw({.picture = PictureOf(words)});
    const auto width = static_cast<std::size_t>(Width());
    for (std::size_t column = 0; column < width; ++column) {
      double lowest = 1;
      double highest = -1;
      for (std::size_t word = 0; word < count; ++word) {
        if (word * width < (column + 1) * count && (word + 1) * width > column * count) {
          lowest = std::min(lowest, *words[word] / 32768.0);
          highest = std::max(highest, *words[word] / 32768.0);
        }
      }
      const int x = static_cast<int>(column);
      const int top = Rows().Of(highest);
      const int bottom = Rows().Of(lowest);
      ASSERT_EQ(CountIn(x, Colors().sound), bottom - top + 1) << count << " words, column " << x;
      ASSERT_EQ(At(x, top), Colors().sound);
      ASSERT_EQ(At(x, bottom), Colors().sound);
    }
  }
}

TEST_P(DrawnAt, WhatWasNotReadIsAGap) {
  Draw({.picture = PictureOf({1000, {}, 0, {}})});
  const int quarter = Width() / 4;
  EXPECT_GT(CountIn(quarter / 2, Colors().sound), 0);
  EXPECT_EQ(CountIn(quarter + quarter / 2, Colors().sound), 0);
  EXPECT_EQ(CountIn(2 * quarter + quarter / 2, Colors().sound), 1) << "silence is a line";
  EXPECT_EQ(CountIn(3 * quarter + quarter / 2, Colors().sound), 0);
}

TEST_P(DrawnAt, TheFullScaleIsALineAtEachEnd) {
  Draw({.picture = PictureOf({{}, {}})});
  EXPECT_EQ(Count(Colors().line), 2 * Width() * LineWidth());
  EXPECT_EQ(At(5, Rows().Of(1)), Colors().line);
  EXPECT_EQ(At(5, Rows().Of(-1)), Colors().line);
  EXPECT_EQ(Count(Colors().text), 0) << "nothing is aimed at";
}

TEST_P(DrawnAt, ALouderGhostStandsBehindTheSound) {
  Draw({.picture = PictureOf(Band(8000)), .targetPercent = 90, .gain = 2});
  const int column = Width() / 2;
  const int sound = Rows().Of(-8000 / 32768.0) - Rows().Of(8000 / 32768.0) + 1;
  const int both = Rows().Of(-16000 / 32768.0) - Rows().Of(16000 / 32768.0) + 1;
  EXPECT_EQ(CountIn(column, Colors().sound), sound);
  EXPECT_EQ(CountIn(column, Colors().ghost), both - sound);
  EXPECT_EQ(At(column, Rows().Of(-15000 / 32768.0)), Colors().ghost);
  EXPECT_EQ(At(column, Rows().Of(0)), Colors().sound);
  EXPECT_EQ(Count(Colors().cutOff), 0);
}

TEST_P(DrawnAt, AQuieterGhostStandsBeforeTheSound) {
  Draw({.picture = PictureOf(Band(20000)), .targetPercent = 90, .gain = 0.5});
  const int column = Width() / 2;
  const int ghost = Rows().Of(-10000 / 32768.0) - Rows().Of(10000 / 32768.0) + 1;
  const int both = Rows().Of(-20000 / 32768.0) - Rows().Of(20000 / 32768.0) + 1;
  EXPECT_EQ(CountIn(column, Colors().ghost), ghost);
  EXPECT_EQ(CountIn(column, Colors().sound), both - ghost);
  EXPECT_EQ(At(column, Rows().Of(19000 / 32768.0)), Colors().sound);
  EXPECT_EQ(At(column, Rows().Of(0)), Colors().ghost);
}

TEST_P(DrawnAt, UpsideDownTheGhostIsAtTheOtherSide) {
  Draw({.picture = PictureOf({16000}), .targetPercent = 100, .gain = -1});
  EXPECT_EQ(At(2, Rows().Of(16000 / 32768.0)), Colors().sound);
  EXPECT_EQ(At(2, Rows().Of(-16000 / 32768.0)), Colors().ghost);
}

TEST_P(DrawnAt, WhatWouldBeCutOffStandsOutBeyondTheFullScale) {
  Draw({.picture = PictureOf({20000, 10000, -20000}), .gain = 2});
  const int third = Width() / 3;
  const int above = CountIn(third / 2, Colors().cutOff);
  EXPECT_GT(above, 0);
  EXPECT_EQ(At(third / 2, Rows().Of(1.1)), Colors().cutOff);
  EXPECT_EQ(CountIn(third + third / 2, Colors().cutOff), 0);
  EXPECT_GT(CountIn(2 * third + third / 2, Colors().cutOff), 0);
  EXPECT_EQ(At(2 * third + third / 2, Rows().Of(-1.1)), Colors().cutOff);
}

TEST_P(DrawnAt, EvenOneLevelTooMuchCanBeSeen) {
  Draw({.picture = PictureOf({16384}), .gain = 2});  // 32768
  EXPECT_GE(CountIn(9, Colors().cutOff), 2 * LineWidth());
  Draw({.picture = PictureOf({-16385}), .gain = 2});  // -32770
  EXPECT_GE(CountIn(9, Colors().cutOff), 2 * LineWidth());
  Draw({.picture = PictureOf({-16384}), .gain = 2});  // the end itself
  EXPECT_EQ(Count(Colors().cutOff), 0);
}

TEST_P(DrawnAt, TheAimIsDashedOnEverything) {
  Draw({.picture = PictureOf({30000, -30000, {}}), .targetPercent = 50, .gain = 0.5});
  for (const double level : {0.5, -0.5}) {
    int dashes = 0;
    int gaps = 0;
    for (int column = 0; column < Width(); ++column) {
      dashes += At(column, Rows().Of(level)) == Colors().text ? 1 : 0;
      gaps += At(column, Rows().Of(level)) == Colors().background ? 1 : 0;
    }
    EXPECT_EQ(dashes + gaps, Width()) << level;
    EXPECT_NEAR(dashes, gaps, 5 * LineWidth());
  }
}

TEST_P(DrawnAt, AtTheFullScaleTheLineShowsBetweenTheDashes) {
  Draw({.picture = PictureOf({100, -100}), .targetPercent = 100, .gain = 300});
  int dashes = 0;
  int line = 0;
  for (int column = 0; column < Width(); ++column) {
    dashes += At(column, Rows().Of(1)) == Colors().text ? 1 : 0;
    line += At(column, Rows().Of(1)) == Colors().line ? 1 : 0;
  }
  EXPECT_EQ(dashes + line, Width());
  EXPECT_NEAR(dashes, line, 5 * LineWidth());
}

TEST_P(DrawnAt, ThePartDoneIsDrawnAsItHasBecome) {
  const Words words(4, std::int16_t{8000});
  Draw({.picture = PictureOf(words), .targetPercent = 90, .gain = 2, .done = 2});
  const int quarter = Width() / 4;
  const int row = Rows().Of(15000 / 32768.0);
  EXPECT_EQ(At(quarter / 2, Rows().Of(16000 / 32768.0)), Colors().sound);
  EXPECT_EQ(At(quarter / 2, Rows().Of(16000 / 32768.0) + 2), Colors().background);
  EXPECT_EQ(CountIn(quarter / 2, Colors().ghost), 0);
  EXPECT_EQ(At(3 * quarter + quarter / 2, Rows().Of(16000 / 32768.0)), Colors().ghost);
  EXPECT_NE(At(3 * quarter + quarter / 2, row), Colors().sound);
}

TEST_P(DrawnAt, NothingGoesBeyondItsRoom) {
  constexpr double endless = std::numeric_limits<double>::infinity();
  for (const double gain : {0.0, -0.0, 1e300, -1e300, endless, -endless}) {
    for (const double percent : {0.0, 100.0, -100.0, -1e308, -endless}) {
      Draw({.picture = PictureOf({-32768, 0, 32767, {}, 5}),
            .targetPercent = percent,
            .gain = gain});
      for (int x = 0; x < image.width(); ++x) {
        ASSERT_EQ(image.pixelColor(x, 0), Colors().border);
        ASSERT_EQ(image.pixelColor(x, image.height() - 1), Colors().border);
      }
      for (int y = 0; y < image.height(); ++y) {
        ASSERT_EQ(image.pixelColor(0, y), Colors().border);
        ASSERT_EQ(image.pixelColor(image.width() - 1, y), Colors().border);
      }
    }
  }
}

std::string NameOfDrawing(const ::testing::TestParamInfo<std::tuple<double, bool>>& info) {
  return std::to_string(static_cast<int>(100 * std::get<0>(info.param))) +
         (std::get<1>(info.param) ? "PercentDark" : "PercentLight");
}

INSTANTIATE_TEST_SUITE_P(Screens, DrawnAt,
                         ::testing::Combine(::testing::Values(1.0, 1.25, 1.5, 1.75, 2.0),
                                            ::testing::Bool()),
                         NameOfDrawing);

TEST(DrawingTest, HasAPictureOfAnySize) {
  const auto colors = SoundColors::Of(PaletteOf(false));
  const SoundOutlook outlook{.picture = PictureOf({-32768, 0, 32767, {}, 5}), .gain = 3};
  for (int width = 0; width < 12; ++width) {
    for (int height = 0; height < 12; ++height) {
      const QSize size(width, height);
      EXPECT_EQ(DrawnSound(outlook, size, 2, colors).isNull(), size.isEmpty());
    }
  }
}

}  // namespace
}  // namespace brindle
