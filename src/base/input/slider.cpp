// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/slider.h"

#include <utility>

#include <QPaintEvent>
#include <QPainter>
#include <QSize>
#include <QSlider>
#include <QString>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include "base/input/visible_edge.h"

namespace brindle {

Slider::Slider(const QString& name, const QString& tooltip, int least, int most)
    : QSlider(Qt::Horizontal) {
  setObjectName(name);
  setToolTip(tooltip);
  setRange(least, most);
  setFocusPolicy(Qt::StrongFocus);
  setTickPosition(QSlider::TicksBelow);
  connect(this, &QSlider::valueChanged, this, &Slider::Change);
}

void Slider::Write(int value) {
  const bool before = std::exchange(isBeingWritten_, true);
  setValue(value);
  isBeingWritten_ = before;
}

void Slider::SetSteps(int tick, int arrowKey, int pageKey) {
  setTickInterval(tick);
  setSingleStep(arrowKey);
  setPageStep(pageKey);
}

// Wide enough to aim at each step.
QSize Slider::sizeHint() const {
  constexpr int columns = 50;
  return {fontMetrics().averageCharWidth() * columns, QSlider::sizeHint().height()};
}

QSize Slider::minimumSizeHint() const { return sizeHint(); }

// The ticks once more, where the style's own cannot be seen.
void Slider::paintEvent(QPaintEvent* event) {
  QSlider::paintEvent(event);
  const auto color = EdgeColor(*this);
  if (!color || tickInterval() <= 0) {
    return;
  }
  QStyleOptionSlider option;
  initStyleOption(&option);
  const auto* look = style();
  const int handle = look->pixelMetric(QStyle::PM_SliderLength, &option, this);
  const int room = look->pixelMetric(QStyle::PM_SliderSpaceAvailable, &option, this);
  constexpr int length = 4;  // device-independent pixels
  QPainter painter(this);
  painter.setPen(*color);
  for (int value = minimum(); value <= maximum(); value += tickInterval()) {
    const int x = QStyle::sliderPositionFromValue(minimum(), maximum(), value, room) + handle / 2;
    painter.drawLine(x, height() - 1 - length, x, height() - 1);
  }
}

void Slider::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QSlider::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace brindle
