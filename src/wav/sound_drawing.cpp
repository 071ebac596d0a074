// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/sound_drawing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QRect>
#include <QSize>

#include "wav/level_range.h"
#include "wav/sound_outlook.h"

namespace brindle {

namespace {

constexpr double Levels = 32768;  // from 0 to the full scale
// Half the height, in parts of the full scale.
constexpr double Room = 1.2;

QColor Between(const QColor& one, const QColor& other) {
  return {(one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
          (one.blue() + other.blue()) / 2};
}

// Draws into the pixels of one image.
class Drawing {
 public:
  Drawing(QImage& image, double ratio, const SoundColors& colors)
      : size_(image.size()),
        lineWidth_(std::max(1, static_cast<int>(ratio))),
        rows_(size_.height(), lineWidth_),
        colors_(colors),
        painter_(&image) {}

  void Background(const QColor& color) {
    painter_.fillRect(QRect({}, size_), colors_.border);
    painter_.fillRect(Inside(), color);
  }

  void Sound(const SoundOutlook& outlook) {
    const auto columns = outlook.picture.Columns().size();
    const auto width = static_cast<std::size_t>(std::max(Inside().width(), 0));
    for (std::size_t x = 0; x < width; ++x) {
      const auto first = x * columns / width;
      const auto end = ((x + 1) * columns + width - 1) / width;
      Column(lineWidth_ + static_cast<int>(x), outlook, first, end);
    }
  }

  void FullScale() {
    for (const int end : {1, -1}) {
      Line(rows_.Of(end), colors_.line, lineWidth_, size_.width() - lineWidth_);
    }
  }

  // The gaps have a colour of their own: so the dashes show on whatever is below them.
  void Aim(double level) {
    const int dash = 4 * lineWidth_;
    for (const double end : {level, -level}) {
      const int row = rows_.Of(end);
      const bool isFullScale = row == rows_.Of(1) || row == rows_.Of(-1);
      Line(row, isFullScale ? colors_.line : colors_.background, lineWidth_,
           size_.width() - lineWidth_);
      for (int x = lineWidth_; x < size_.width() - lineWidth_; x += 2 * dash) {
        Line(row, colors_.text, x, std::min(x + dash, size_.width() - lineWidth_));
      }
    }
  }

 private:
  [[nodiscard]] QRect Inside() const {
    return QRect({}, size_).adjusted(lineWidth_, lineWidth_, -lineWidth_, -lineWidth_);
  }

  void Line(int row, const QColor& color, int from, int end) {
    painter_.fillRect(from, row - lineWidth_ / 2, end - from, lineWidth_, color);
  }

  void Range(int x, const LevelRange& range, const QColor& color) {
    if (!range.IsEmpty()) {
      const int top = rows_.Of(range.highest / Levels);
      painter_.fillRect(x, top, 1, rows_.Of(range.lowest / Levels) - top + 1, color);
    }
  }

  void Column(int x, const SoundOutlook& outlook, std::size_t first, std::size_t end) {
    const auto now = outlook.Now(first, end);
    const auto ahead = outlook.Ahead(first, end);
    const bool isLouder = outlook.gain && std::abs(*outlook.gain) >= 1;
    if (isLouder) {
      Range(x, ahead, colors_.ghost);
    }
    Range(x, now, colors_.sound);
    if (!isLouder) {
      Range(x, ahead, colors_.ghost);
    }
    Beyond(x, outlook.ReachAhead(first, end));
  }

  // However little it is, it can be seen.
  void Beyond(int x, const Reach& reach) {
    const int least = 3 * lineWidth_;
    if (reach.highest >= Levels - 0.5) {
      const int bottom = rows_.Of(1);
      const int top = std::min(rows_.Of(reach.highest / Levels), bottom - least);
      painter_.fillRect(x, top, 1, bottom - top, colors_.cutOff);
    }
    if (reach.lowest < -Levels - 0.5) {
      const int top = rows_.Of(-1) + 1;
      const int bottom = std::max(rows_.Of(reach.lowest / Levels), top + least - 1);
      painter_.fillRect(x, top, 1, bottom - top + 1, colors_.cutOff);
    }
  }

  QSize size_;
  int lineWidth_;
  SoundRows rows_;
  const SoundColors& colors_;
  QPainter painter_;
};

}  // namespace

SoundColors SoundColors::Of(const QPalette& palette) {
  constexpr int middle = 128;  // of 255
  const auto background = palette.color(QPalette::Active, QPalette::Base);
  const auto text = palette.color(QPalette::Active, QPalette::Text);
  const auto line = Between(background, text);
  const bool isDark = background.lightness() < middle;
  return {.empty = palette.color(QPalette::Active, QPalette::Window),
          .border = Between(background, line),
          .background = background,
          .text = text,
          .line = line,
          .sound = isDark ? QColor(0xc4, 0xde, 0xff) : QColor(0x0f, 0x3a, 0x7d),
          .ghost = isDark ? QColor(0x4d, 0x78, 0xb4) : QColor(0x6f, 0x92, 0xc9),
          .cutOff = isDark ? QColor(0xff, 0x6a, 0x5c) : QColor(0xc8, 0x10, 0x2e)};
}

SoundRows::SoundRows(int height, int lineWidth)
    : middle(height / 2), fullScale(static_cast<int>((middle - lineWidth) / Room)) {}

int SoundRows::Of(double level) const {
  return middle - static_cast<int>(std::lround(std::clamp(level, -Room, Room) * fullScale));
}

QImage DrawnSound(const SoundOutlook& outlook, QSize pixels, double ratio,
                  const SoundColors& colors) {
  QImage image(pixels, QImage::Format_RGB32);
  if (image.isNull()) {
    return image;
  }
  Drawing drawing(image, ratio, colors);
  const bool isEmpty = outlook.picture.Columns().empty();
  drawing.Background(isEmpty ? colors.empty : colors.background);
  if (!isEmpty) {
    drawing.Sound(outlook);
    drawing.FullScale();
    if (outlook.gain) {
      drawing.Aim(outlook.targetPercent / 100);
    }
  }
  return image;
}

}  // namespace brindle
