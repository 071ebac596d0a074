// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/layout.h"

#include <algorithm>
#include <initializer_list>

#include <QAbstractButton>
#include <QBoxLayout>
#include <QCheckBox>
#include <QEvent>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QSpacerItem>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QWidget>

#include "base/input/editable_list.h"
#include "base/input/labels.h"
#include "base/input/spin_button.h"

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

// A value of fixed size begins where the fields of the frame begin. An option or box is only as
// wide as its caption, so that every part of it can be clicked.
Qt::Alignment AlignmentOf(const QWidget* control) {
  const bool isAtTheLeft = qobject_cast<const ValueLabel*>(control) != nullptr ||
                           qobject_cast<const QRadioButton*>(control) != nullptr ||
                           qobject_cast<const QCheckBox*>(control) != nullptr;
  return isAtTheLeft ? Qt::AlignLeft | Qt::AlignVCenter : Qt::Alignment();
}

bool IsLabel(const QWidget* control) { return qobject_cast<const QLabel*>(control) != nullptr; }

QLayout* ControlsOf(const Row& row) {
  auto* controls = new QHBoxLayout;
  controls->setSpacing(Spacing / 2);
  const bool isText = std::all_of(row.controls.begin(), row.controls.end(), IsLabel);
  for (auto* control : row.controls) {
    const bool isPlainLabel = control->metaObject() == &QLabel::staticMetaObject;
    const bool isButton = qobject_cast<QAbstractButton*>(control) != nullptr;
    controls->addWidget(control, isText || isPlainLabel || isButton ? 0 : 1, AlignmentOf(control));
    if (!isPlainLabel && control->accessibleName().isEmpty()) {
      NameByLabel(row.head.Text(), {control});
    }
    if (auto* list = qobject_cast<EditableList*>(control)) {
      list->Field()->setAccessibleName(row.head.Text());
    }
  }
  if (isText) {
    controls->addStretch(1);
  }
  return controls;
}

// Tells assistive tools which label names which control: drop-down lists have no other name for
// them.
void Label(QWidget* head, const Row& row) {
  auto* label = qobject_cast<QLabel*>(head);
  const auto first = std::find_if_not(row.controls.begin(), row.controls.end(), IsLabel);
  if (label != nullptr && first != row.controls.end()) {
    label->setBuddy(*first);
  }
}

QGridLayout* Grid(std::initializer_list<std::initializer_list<QWidget*>> rows, int spacing) {
  auto* grid = new QGridLayout;
  grid->setSpacing(spacing);
  int line = 0;
  for (const auto& row : rows) {
    int column = 0;
    for (auto* widget : row) {
      grid->addWidget(widget, line, column);
      ++column;
    }
    ++line;
  }
  return grid;
}

// As wide as the window's title bar, and no higher than nothing.
class CaptionRoom : public QSpacerItem {
 public:
  explicit CaptionRoom(const QWidget& window)
      : QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Fixed), window_(window) {}
  // The desktop does not say how wide its icon, buttons and margins are; they are squares of the
  // title's height, more or less, and five of them are room enough.
  [[nodiscard]] QSize sizeHint() const override {
    constexpr int squares = 5;
    const QFontMetrics title(QFontDatabase::systemFont(QFontDatabase::TitleFont));
    return {title.horizontalAdvance(window_.windowTitle()) + squares * title.lineSpacing(), 0};
  }
  [[nodiscard]] QSize minimumSize() const override { return sizeHint(); }

 private:
  const QWidget& window_;
};

QBoxLayout* Filled(QBoxLayout* box, std::initializer_list<Item> items, int spacing) {
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(spacing);
  for (const auto& item : items) {
    item.AddTo(box);
  }
  return box;
}

}  // namespace

RowHead::RowHead(const QString& text) : widget_(MakeLabel(text)), text_(text) {}

RowHead::RowHead(QLabel* label) : widget_(label), text_(label->text()) {}

RowHead::RowHead(QAbstractButton* button) : widget_(button), text_(button->text()) {}

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
  if (caption.isEmpty()) {
    // Next to a frame with a caption this one is higher than its lines need, so they are centred.
    grid->setRowStretch(line, 1);
    ++line;
  }
  for (const auto& row : rows) {
    auto* head = row.head.Widget();
    if (head != nullptr) {
      grid->addWidget(head, line, 0, 1, row.controls.isEmpty() ? 2 : 1, AlignmentOf(head));
    }
    if (!row.controls.isEmpty()) {
      auto* controls = ControlsOf(row);
      Label(head, row);
      grid->addLayout(controls, line, head != nullptr ? 1 : 0, 1, head != nullptr ? 1 : 2);
    }
    ++line;
  }
  grid->setRowStretch(line, 1);
  return frame;
}

QGroupBox* MakeFrame(const QString& caption, QLayout* contents) {
  auto* frame = new Frame(caption);
  contents->setContentsMargins(Margin, Margin, Margin, Margin);
  frame->setLayout(contents);
  return frame;
}

QGroupBox* MakeFrame(const QString& name, const QString& caption, std::initializer_list<Row> rows) {
  auto* frame = MakeFrame(caption, rows);
  frame->setObjectName(name);
  return frame;
}

void Item::AddTo(QBoxLayout* box) const {
  if (widget_ != nullptr) {
    box->addWidget(widget_, 0, AlignmentOf(widget_));
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
  return Grid(rows, FrameSpacing);
}

QLayout* Table(std::initializer_list<std::initializer_list<QWidget*>> rows) {
  auto* grid = Grid(rows, Spacing);
  for (int column = 1; column < grid->columnCount(); ++column) {
    grid->setColumnStretch(column, 1);
  }
  return grid;
}

void KeepRoom(std::initializer_list<QWidget*> widgets) {
  for (auto* widget : widgets) {
    auto policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
  }
}

void LayOut(QWidget* window, QLayout* tree) {
  tree->setContentsMargins(Margin, Margin, Margin, Margin);
  auto* whole = Down({tree}, 0);
  whole->addItem(new CaptionRoom(*window));
  whole->setSizeConstraint(QLayout::SetFixedSize);
  window->setLayout(whole);
}

void NameByLabel(const QString& label, std::initializer_list<QWidget*> controls) {
  for (auto* control : controls) {
    control->setAccessibleName(AccessibleName(label, control));
  }
}

void NameByTooltip(const QString& label, std::initializer_list<QWidget*> controls) {
  for (auto* control : controls) {
    control->setAccessibleName(label + u' ' + control->toolTip());
  }
}

}  // namespace brindle
