// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/labels.h"

#include <utility>

#include <QEvent>
#include <QLabel>
#include <QString>
#include <QStringList>

namespace brindle {

PlainLabel::PlainLabel(const QString& text) : QLabel(text) { setTextFormat(Qt::PlainText); }

PlainLabel::PlainLabel(const QString& name, const QString& text, const QString& tooltip)
    : PlainLabel(text) {
  setObjectName(name);
  setToolTip(tooltip);
}

QLabel* MakeLabel(const QString& text) { return new PlainLabel(text); }

QLabel* MakeLabel(const QString& name, const QString& text, const QString& tooltip) {
  return new PlainLabel(name, text, tooltip);
}

DescriptionLabel::DescriptionLabel(const QString& text) : QLabel(text) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
}

QSize DescriptionLabel::sizeHint() const {
  constexpr int columns = 44;
  const int width = fontMetrics().averageCharWidth() * columns;
  return {width, heightForWidth(width)};
}

QSize DescriptionLabel::minimumSizeHint() const { return sizeHint(); }

ValueLabel::ValueLabel(const QString& name, const QString& tooltip, QStringList widest)
    : widest_(std::move(widest)) {
  setObjectName(name);
  setToolTip(tooltip);
  setTextFormat(Qt::PlainText);
  FixSize();
}

QSize ValueLabel::sizeHint() const {
  QSize size(0, fontMetrics().height());
  for (const auto& text : widest_) {
    size = size.expandedTo(fontMetrics().size(0, text));
  }
  return size.grownBy(contentsMargins());
}

void ValueLabel::Write(const QString& text) {
  if (text != this->text()) {
    setText(text);
    setAccessibleDescription(text);
  }
}

void ValueLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange ||
      event->type() == QEvent::ContentsRectChange) {
    FixSize();
  }
}

void ValueLabel::FixSize() { setFixedSize(ValueLabel::sizeHint()); }

}  // namespace brindle
