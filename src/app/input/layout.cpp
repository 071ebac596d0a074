// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/input/layout.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QFont>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QWidget>

#include "app/input/editable_list.h"
#include "app/input/spin_button.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

QString AccessibleName(const QString& label, const QWidget* control) {
  const auto* spin = qobject_cast<const SpinButton*>(control);
  if (spin == nullptr) {
    return label;
  }
  return label + (spin->Direction() == SpinDirection::Plus ? u" plus"_s : u" minus"_s);
}

QBoxLayout* Filled(QBoxLayout* box, std::initializer_list<Item> items, int spacing) {
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(spacing);
  for (const auto& item : items) {
    item.AddTo(box);
  }
  return box;
}

}  // namespace

QLabel* MakeLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QPushButton* MakeButton(const QString& name, const QString& caption, const QString& tooltip) {
  auto* button = new QPushButton(caption);
  button->setObjectName(name);
  button->setAccessibleName(caption);
  button->setToolTip(tooltip);
  return button;
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
  return size;
}

void ValueLabel::Show(const QString& text) {
  if (text != this->text()) {
    setText(text);
    setAccessibleDescription(text);
  }
}

void ValueLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    FixSize();
  }
}

void ValueLabel::FixSize() { setFixedSize(ValueLabel::sizeHint()); }

ResultField::ResultField(const QString& name, const QString& tooltip, int digits)
    : digits_(digits) {
  setObjectName(name);
  setToolTip(tooltip);
  setReadOnly(true);
  setAlignment(Qt::AlignRight);
  FollowFont();
}

QSize ResultField::sizeHint() const {
  QStyleOptionFrame option;
  initStyleOption(&option);
  const QSize digits(fontMetrics().horizontalAdvance(QString(digits_ + 1, u'0')),
                     fontMetrics().height());
  return style()->sizeFromContents(QStyle::CT_LineEdit, &option, digits, this);
}

QSize ResultField::minimumSizeHint() const { return sizeHint(); }

bool ResultField::event(QEvent* event) {
  if (event->type() == QEvent::ApplicationFontChange) {
    FollowFont();
  }
  return QLineEdit::event(event);
}

void ResultField::FollowFont() {
  QFont large = QApplication::font();
  large.setPointSizeF(large.pointSizeF() * ResultScale);
  large.setBold(true);
  setFont(large);
}

void Frame::paintEvent(QPaintEvent* event) {
  const qreal ratio = devicePixelRatioF();
  const QSize pixels = (QSizeF(size()) * ratio).toSize();
  if (picture_.size() != pixels || picture_.devicePixelRatio() != ratio) {
    picture_ = QPixmap(pixels);
    picture_.setDevicePixelRatio(ratio);
    picture_.fill(Qt::transparent);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    QStylePainter(&picture_, this).drawComplexControl(QStyle::CC_GroupBox, option);
  }
  QPainter painter(this);
  painter.setClipRegion(event->region());
  painter.drawPixmap(0, 0, picture_);
}

void Frame::changeEvent(QEvent* event) {
  picture_ = {};
  QGroupBox::changeEvent(event);
}

QGroupBox* MakeFrame(const QString& caption, std::initializer_list<Row> rows) {
  auto* frame = new Frame(caption);
  auto* grid = new QGridLayout(frame);
  grid->setContentsMargins(Margin, Margin, Margin, Margin);
  grid->setHorizontalSpacing(Spacing);
  grid->setVerticalSpacing(Spacing);
  grid->setColumnStretch(1, 1);
  int line = 0;
  for (const auto& row : rows) {
    grid->addWidget(MakeLabel(row.label), line, 0);
    auto* controls = new QHBoxLayout;
    controls->setSpacing(Spacing / 2);
    for (auto* control : row.controls) {
      const bool isPlainLabel = control->metaObject() == &QLabel::staticMetaObject;
      const bool isSpin = qobject_cast<SpinButton*>(control) != nullptr;
      const bool isValue = qobject_cast<ValueLabel*>(control) != nullptr;
      // A value of fixed size begins where the fields of the frame begin.
      controls->addWidget(control, isPlainLabel || isSpin ? 0 : 1,
                          isValue ? Qt::AlignLeft | Qt::AlignVCenter : Qt::Alignment());
      if (!isPlainLabel && control->accessibleName().isEmpty()) {
        control->setAccessibleName(AccessibleName(row.label, control));
      }
      if (auto* list = qobject_cast<EditableList*>(control)) {
        list->Field()->setAccessibleName(row.label);
      }
    }
    grid->addLayout(controls, line, 1);
    ++line;
  }
  grid->setRowStretch(line, 1);
  return frame;
}

void Item::AddTo(QBoxLayout* box) const {
  if (widget_ != nullptr) {
    box->addWidget(widget_);
  } else if (layout_ != nullptr) {
    box->addLayout(layout_);
  } else {
    box->addStretch(1);
  }
}

QBoxLayout* Across(std::initializer_list<Item> items, int spacing) {
  return Filled(new QHBoxLayout, items, spacing);
}

QBoxLayout* Down(std::initializer_list<Item> items, int spacing) {
  return Filled(new QVBoxLayout, items, spacing);
}

QLayout* Tiles(std::initializer_list<std::initializer_list<QWidget*>> rows) {
  auto* grid = new QGridLayout;
  grid->setSpacing(FrameSpacing);
  int line = 0;
  for (const auto& row : rows) {
    int column = 0;
    for (auto* tile : row) {
      grid->addWidget(tile, line, column);
      ++column;
    }
    ++line;
  }
  return grid;
}

void LayOut(QWidget* window, QLayout* tree) {
  tree->setContentsMargins(Margin, Margin, Margin, Margin);
  tree->setSizeConstraint(QLayout::SetFixedSize);
  window->setLayout(tree);
}

void NameByTooltip(const QString& label, std::initializer_list<QWidget*> controls) {
  for (auto* control : controls) {
    control->setAccessibleName(label + u' ' + control->toolTip());
  }
}

}  // namespace brindle
