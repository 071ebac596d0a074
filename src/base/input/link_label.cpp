// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/link_label.h"

#include <utility>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QColor>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPalette>
#include <QString>
#include <QStringList>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace brindle {

namespace {

/// What a screen reader gets: a link that can be followed, and its text, as the name or after it.
class AccessibleLink : public QAccessibleWidget {
 public:
  explicit AccessibleLink(LinkLabel* link) : QAccessibleWidget(link, QAccessible::Link) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    const bool hasName = !Link()->accessibleName().isEmpty();
    if (kind == (hasName ? QAccessible::Description : QAccessible::Name)) {
      return Link()->text();
    }
    return QAccessibleWidget::text(kind);
  }
  [[nodiscard]] QStringList actionNames() const override {
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& action) override {
    if (action == pressAction()) {
      Q_EMIT Link()->Clicked();
    } else {
      QAccessibleWidget::doAction(action);
    }
  }

 private:
  [[nodiscard]] LinkLabel* Link() const { return qobject_cast<LinkLabel*>(widget()); }
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
  auto* link = qobject_cast<LinkLabel*>(object);
  return link != nullptr ? new AccessibleLink(link) : nullptr;
}

// Not every dark palette has a link colour of its own.
QColor ReadableLinkColor(const QPalette& palette) {
  constexpr int middle = 128;  // of 255
  constexpr int light = 190;
  const QColor link = palette.color(QPalette::Link);
  if (palette.color(QPalette::Window).lightness() < middle && link.lightness() < light) {
    return QColor::fromHsl(link.hslHue(), link.hslSaturation(), light);
  }
  return link;
}

}  // namespace

LinkLabel::LinkLabel(const QString& name) {
  QAccessible::installFactory(&MakeAccessible);  // the first call counts
  setObjectName(name);
  setTextFormat(Qt::PlainText);
  QFont underlined = font();
  underlined.setUnderline(true);
  setFont(underlined);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::StrongFocus);
}

void LinkLabel::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton;
}

void LinkLabel::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && std::exchange(pressed_, false) &&
      rect().contains(event->position().toPoint())) {
    Q_EMIT Clicked();
  }
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
  const bool follows = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
                       event->key() == Qt::Key_Space;
  if (!follows) {
    QLabel::keyPressEvent(event);
  } else if (!event->isAutoRepeat()) {
    Q_EMIT Clicked();
  }
}

void LinkLabel::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  painter.setPen(ReadableLinkColor(palette()));
  painter.drawText(contentsRect(), static_cast<int>(alignment()), text());
  if (hasFocus()) {
    QStyleOptionFocusRect option;
    option.initFrom(this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
  }
}

}  // namespace brindle
