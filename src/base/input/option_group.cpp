// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/option_group.h"

#include <optional>

#include <QRadioButton>
#include <QString>

namespace brindle {

using namespace Qt::StringLiterals;

OptionButton::OptionButton(const QString& array, int index, const QString& caption,
                           const QString& tooltip)
    : QRadioButton(caption), index_(index) {
  setObjectName(u"%1(%2)"_s.arg(array).arg(index));
  setToolTip(tooltip);
}

OptionButton* OptionGroup::Add(int index, const QString& caption, const QString& tooltip) {
  auto* button = new OptionButton(objectName(), index, caption, tooltip);
  exclusive_.addButton(button, index);
  buttons_.push_back(button);
  connect(button, &QRadioButton::toggled, this, [this, index](bool selected) {
    if (selected) {
      StopTabAtSelected();
      Q_EMIT Click(index);
    }
  });
  return button;
}

void OptionGroup::Select(int index) {
  for (auto* button : buttons_) {
    if (button->Index() == index) {
      button->setChecked(true);
    }
  }
}

void OptionGroup::StopTabAtSelected() {
  for (auto* button : buttons_) {
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
  for (auto* button : buttons_) {
    if (button->isChecked()) {
      return button;
    }
  }
  return buttons_.front();
}

}  // namespace brindle
