// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/slider.h"

#include <utility>

#include <QSize>
#include <QSlider>
#include <QString>
#include <QWheelEvent>

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

void Slider::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QSlider::wheelEvent(event);
  } else {
    event->ignore();
  }
}

}  // namespace brindle
