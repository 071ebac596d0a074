// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/option_group.h"

#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

#include <QPaintEvent>
#include <QRadioButton>
#include <QString>

#include "base/input/visible_edge.h"

namespace brindle {

using namespace Qt::StringLiterals;

OptionButton::OptionButton(const QString& array, int index, const QString& caption,
                           const QString& tooltip)
    : QRadioButton(caption), index_(index) {
  setObjectName(u"%1(%2)"_s.arg(array).arg(index));
  setToolTip(tooltip);
}

void OptionButton::paintEvent(QPaintEvent* event) {
  QRadioButton::paintEvent(event);
  DrawVisibleEdge(*this);
}

OptionGroup::OptionGroup(const QString& name, std::initializer_list<Option> options) {
  setObjectName(name);
  for (const auto& option : options) {
    Add(option.index, option.caption, option.tooltip);
  }
}

OptionButton* OptionGroup::Add(int index, const QString& caption, const QString& tooltip) {
  buttons_.push_back(std::make_unique<OptionButton>(objectName(), index, caption, tooltip));
  auto* button = buttons_.back().get();
  exclusive_.addButton(button, index);
  connect(button, &QRadioButton::toggled, this, [this, index](bool selected) {
    if (selected) {
      StopTabAtSelected();
      Q_EMIT Click(index);
    }
  });
  return button;
}

OptionButton* OptionGroup::At(int index) const {
  for (const auto& button : buttons_) {
    if (button->Index() == index) {
      return button.get();
    }
  }
  return nullptr;
}

void OptionGroup::Select(int index) {
  for (auto& button : buttons_) {
    if (button->Index() == index) {
      button->setChecked(true);
    }
  }
}

void OptionGroup::StopTabAtSelected() {
  for (const auto& button : buttons_) {
    button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

std::optional<int> OptionGroup::Selected() const {
  if (exclusive_.checkedButton() == nullptr) {
    return std::nullopt;
  }
  return exclusive_.checkedId();
}

OptionButton* OptionGroup::TabStop() const {
  for (const auto& button : buttons_) {
    if (button->isChecked()) {
      return button.get();
    }
  }
  return buttons_.front().get();
}

std::vector<OptionButton*> OptionGroup::Buttons() const {
  std::vector<OptionButton*> all;
  all.reserve(buttons_.size());
  for (const auto& button : buttons_) {
    all.push_back(button.get());
  }
  return all;
}

}  // namespace brindle
