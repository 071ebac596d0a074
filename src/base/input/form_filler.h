// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <QPointer>
#include <QString>
#include <QWidget>

#include "base/input/check_box.h"
#include "base/input/editable_list.h"
#include "base/input/form.h"
#include "base/input/option_group.h"
#include "base/input/slider.h"
#include "base/input/text_field.h"

namespace brindle {

/// Fills controls of a window exactly as a person would: the focus moves to each of them, and every
/// handler runs. What a person could not use, because it is disabled, is left out. In the end the
/// focus is back where it was.
class FormFiller {
 public:
  explicit FormFiller(Form& form) : form_(form), before_(form.focusWidget()) {}

  /// Replaces the text of a field or list, as a paste over all of it does.
  void Type(TextField& field, const QString& text);
  void Type(EditableList& list, const QString& text);
  /// Selects an option; an index that no option has changes nothing.
  void Choose(OptionGroup& options, int index);
  void Tick(CheckBox& box);
  /// Moves a slider to a value; beyond its range it stops at its end.
  void Slide(Slider& slider, int value);

  /// Leaves the last control by way of `rest`, whose handlers do nothing, and goes back to where
  /// the focus was.
  void Leave(QWidget& rest);

  /// What was filled.
  [[nodiscard]] const std::vector<TextField*>& Fields() const { return fields_; }
  [[nodiscard]] const std::vector<OptionGroup*>& Options() const { return options_; }
  [[nodiscard]] const std::vector<Slider*>& Sliders() const { return sliders_; }

 private:
  void TypeInto(QWidget& control, TextField& field, const QString& text);

  Form& form_;
  QPointer<QWidget> before_;
  std::vector<TextField*> fields_;
  std::vector<OptionGroup*> options_;
  std::vector<Slider*> sliders_;
};

}  // namespace brindle
