// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/visible_edge.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include <QColor>
#include <QPainter>
#include <QPalette>
#include <QRadioButton>
#include <QRectF>
#include <QStyle>
#include <QStyleOptionButton>
#include <QWidget>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

// The formulas are those of the guidelines, "relative luminance" and "contrast ratio".
double Linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) +
         0.0722 * Linear(color.blueF());
}

// Half way from the window's colour to the text's: clear, and quieter than the text.
QColor Between(const QColor& one, const QColor& other) {
  return {(one.red() + other.red()) / 2, (one.green() + other.green()) / 2,
          (one.blue() + other.blue()) / 2};
}

}  // namespace

double Contrast(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

std::optional<QColor> EdgeColor(const QWidget& control) {
  constexpr int half = 128;  // of the lightness
  const auto window = control.palette().color(QPalette::Window);
  if (window.lightness() >= half || control.style()->name() != u"fusion"_s) {
    return std::nullopt;
  }
  return Between(window, control.palette().color(QPalette::WindowText));
}

void DrawVisibleEdge(QWidget& control) {
  const auto color = EdgeColor(control);
  if (!color) {
    return;
  }
  QStyleOptionButton option;
  option.initFrom(&control);
  const bool isRound = qobject_cast<QRadioButton*>(&control) != nullptr;
  const QRectF indicator = control.style()->subElementRect(
      isRound ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator, &option, &control);
  QPainter painter(&control);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(*color);
  // A line of one pixel lies in the middle of its pixels; the style leaves the last ones free.
  if (isRound) {
    painter.drawEllipse(indicator.adjusted(0.5, 0.5, -0.5, -0.5));
  } else {
    constexpr double corner = 2;
    painter.drawRoundedRect(indicator.adjusted(0.5, 0.5, -1.5, -1.5), corner, corner);
  }
}

}  // namespace brindle
