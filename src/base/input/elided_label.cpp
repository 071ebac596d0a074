// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/elided_label.h"

#include <QEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QSize>
#include <QString>
#include <QStyle>
#include <QToolTip>

namespace brindle {

using namespace Qt::StringLiterals;

ElidedLabel::ElidedLabel(const QString& name, const QString& text, const QString& tooltip) {
  setObjectName(name);
  setTextFormat(Qt::PlainText);
  setToolTip(tooltip);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  Write(text);
}

void ElidedLabel::ElideEnd() {
  elide_ = Qt::ElideRight;
  update();
}

void ElidedLabel::Write(const QString& text) {
  if (text != this->text()) {
    setText(text);
    setAccessibleDescription(text);
  }
}

QSize ElidedLabel::minimumSizeHint() const {
  constexpr int leastColumns = 8;
  return {fontMetrics().averageCharWidth() * leastColumns, fontMetrics().height()};
}

// The toolkit's own hint depends on whether there is a text.
QSize ElidedLabel::sizeHint() const { return {QLabel::sizeHint().width(), fontMetrics().height()}; }

// A label without a tooltip of its own shows in one the text that it has no room for. Text that
// looks like markup, as a file name may, is shown literally.
bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto tip = toolTip().isEmpty() && Shown() != text() ? text() : toolTip();
    if (!tip.isEmpty()) {
      const auto plain = Qt::mightBeRichText(tip)
                             ? u"<p style='white-space:pre'>"_s + tip.toHtmlEscaped() + u"</p>"_s
                             : tip;
      QToolTip::showText(dynamic_cast<QHelpEvent&>(*event).globalPos(), plain, this);
      return true;
    }
  }
  return QLabel::event(event);
}

QString ElidedLabel::Shown() const {
  return fontMetrics().elidedText(text(), elide_, contentsRect().width());
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                        isEnabled(), Shown(), foregroundRole());
}

}  // namespace brindle
