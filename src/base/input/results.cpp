// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/results.h"

#include <utility>

#include <QApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QFont>
#include <QLineEdit>
#include <QString>
#include <QStringList>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QWidget>

#include "base/input/text_field.h"

namespace brindle {

namespace {

// The program's font made larger.
QFont LargeFont() {
  QFont large = QApplication::font();
  large.setPointSizeF(large.pointSizeF() * ResultScale);
  large.setBold(true);
  return large;
}

// Spare room of one digit beside the digits.
QString Widest(int digits) { return {digits + 1, u'0'}; }

// A field of the style, in which a label paints itself.
QStyleOptionFrame FieldPanel(const QWidget* widget) {
  QStyleOptionFrame option;
  option.initFrom(widget);
  option.lineWidth = widget->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, widget);
  option.midLineWidth = 0;
  option.state |= QStyle::State_Sunken | QStyle::State_ReadOnly;
  return option;
}

}  // namespace

ResultField::ResultField(const QString& name, const QString& tooltip, int digits)
    : digits_(digits) {
  setObjectName(name);
  setToolTip(tooltip);
  setReadOnly(true);
  setAlignment(Qt::AlignRight);
  FollowFont();
}

void ResultField::Write(const QString& text) { SetTextKeepingSelection(this, text); }

QSize ResultField::sizeHint() const {
  QStyleOptionFrame option;
  initStyleOption(&option);
  const QSize digits(fontMetrics().horizontalAdvance(Widest(digits_)), fontMetrics().height());
  return style()->sizeFromContents(QStyle::CT_LineEdit, &option, digits, this);
}

QSize ResultField::minimumSizeHint() const { return sizeHint(); }

bool ResultField::event(QEvent* event) {
  if (event->type() == QEvent::ApplicationFontChange) {
    FollowFont();
  }
  return QLineEdit::event(event);
}

void ResultField::FollowFont() { setFont(LargeFont()); }

CopyableLabel::CopyableLabel(const QString& name, const QString& tooltip, QStringList widest)
    : ValueLabel(name, tooltip, std::move(widest)) {
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setFocusPolicy(Qt::StrongFocus);
}

void CopyableLabel::focusInEvent(QFocusEvent* event) {
  ValueLabel::focusInEvent(event);
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
    setSelection(0, static_cast<int>(text().size()));
  }
}

void CopyableLabel::focusOutEvent(QFocusEvent* event) {
  ValueLabel::focusOutEvent(event);
  if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) {
    setSelection(0, 0);
  }
}

ResultLabel::ResultLabel(const QString& name, const QString& tooltip, int digits)
    : CopyableLabel(name, tooltip, {Widest(digits)}) {
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  FollowFont();
}

bool ResultLabel::event(QEvent* event) {
  if (event->type() == QEvent::ApplicationFontChange) {
    FollowFont();
  }
  return CopyableLabel::event(event);
}

void ResultLabel::paintEvent(QPaintEvent* event) {
  QStyleOptionFrame option = FieldPanel(this);
  QStylePainter(this).drawPrimitive(QStyle::PE_PanelLineEdit, option);
  CopyableLabel::paintEvent(event);
}

void ResultLabel::FollowFont() {
  setFont(LargeFont());
  // The border of a field around the digits.
  const QSize inner(100, 100);
  const QStyleOptionFrame option = FieldPanel(this);
  const QSize border = style()->sizeFromContents(QStyle::CT_LineEdit, &option, inner, this) - inner;
  constexpr int textMargin = 3;
  const int across = border.width() / 2 + textMargin;
  const int down = border.height() / 2;
  setContentsMargins(across, down, across, down);
}

}  // namespace brindle
