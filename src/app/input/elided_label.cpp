// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/input/elided_label.h"

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
  Show(text);
}

void ElidedLabel::Show(const QString& text) {
  setText(text);
  setAccessibleDescription(text);
}

QSize ElidedLabel::minimumSizeHint() const {
  constexpr int leastColumns = 8;
  return {fontMetrics().averageCharWidth() * leastColumns, fontMetrics().height()};
}

// A tooltip that looks like markup, as a file name may, is shown as it is.
bool ElidedLabel::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && Qt::mightBeRichText(toolTip())) {
    const auto shown = u"<p style='white-space:pre'>"_s + toolTip().toHtmlEscaped() + u"</p>"_s;
    QToolTip::showText(dynamic_cast<QHelpEvent&>(*event).globalPos(), shown, this);
    return true;
  }
  return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const auto shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(),
                        isEnabled(), shown, foregroundRole());
}

}  // namespace brindle
