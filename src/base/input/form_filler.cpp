// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/form_filler.h"

#include <QString>
#include <QWidget>

namespace brindle {

void FormFiller::Type(TextField& field, const QString& text) { TypeInto(field, field, text); }

void FormFiller::Type(EditableList& list, const QString& text) {
  TypeInto(list, *list.Field(), text);
}

void FormFiller::TypeInto(QWidget& control, TextField& field, const QString& text) {
  if (control.isEnabled()) {
    form_.Focus().MoveTo(&control);
    field.PasteOver(text);
    fields_.push_back(&field);
  }
}

void FormFiller::Choose(OptionGroup& options, int index) {
  auto* option = options.At(index);
  if (option != nullptr && option->isEnabled()) {
    form_.Focus().MoveTo(option);
    option->click();
    options_.push_back(&options);
  }
}

void FormFiller::Tick(CheckBox& box) {
  if (box.isEnabled() && !box.isChecked()) {
    form_.Focus().MoveTo(&box);
    box.click();
  }
}

void FormFiller::Slide(Slider& slider, int value) {
  if (slider.isEnabled()) {
    form_.Focus().MoveTo(&slider);
    slider.setValue(value);
    sliders_.push_back(&slider);
  }
}

void FormFiller::Leave(QWidget& rest) {
  form_.Focus().MoveTo(&rest);
  if (before_ != nullptr && before_->isEnabled() && before_->isVisibleTo(&form_)) {
    form_.Focus().MoveTo(before_);
  }
}

}  // namespace brindle
