// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <concepts>
#include <functional>
#include <type_traits>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>

#include "base/input/editable_list.h"
#include "base/input/focus_tracker.h"
#include "base/input/link_label.h"
#include "base/input/option_group.h"
#include "base/input/slider.h"
#include "base/input/spin_button.h"
#include "base/input/text_field.h"

namespace brindle {

/// One line of a window's table of handlers: says which function runs at which event of one
/// control. It is a member function of the window, or another function where several controls share
/// one. An event without a handler changes nothing.
template <class Window, class Control>
class Wire {
 public:
  using Handler = void (Window::*)();

  Wire(Window* window, Control* control) : window_(window), control_(control) {}

  template <class Slot>
  Wire& GotFocus(Slot handler) {
    window_->Focus().OnGotFocus(control_, Bound(handler));
    return *this;
  }
  template <class Slot>
  Wire& LostFocus(Slot handler) {
    window_->Focus().OnLostFocus(control_, Bound(handler));
    return *this;
  }
  template <class Slot>
  Wire& KeyPress(Slot handler) {
    return Connected(Field(), &TextField::KeyPress, handler);
  }
  template <class Slot>
  Wire& KeyUp(Slot handler) {
    return Connected(Field(), &TextField::KeyUp, handler);
  }
  template <class Slot>
  Wire& MouseDown(Slot handler) {
    if constexpr (std::same_as<Control, SpinButton>) {
      return Connected(control_, &SpinButton::MouseDown, handler);
    } else {
      return Connected(Field(), &TextField::MouseDown, handler);
    }
  }
  template <class Slot>
  Wire& MouseUp(Slot handler) {
    if constexpr (std::same_as<Control, SpinButton>) {
      return Connected(control_, &SpinButton::MouseUp, handler);
    } else {
      return Connected(Field(), &TextField::MouseUp, handler);
    }
  }
  /// The text or value changed, typed or set by the program.
  Wire& Change(Handler handler) {
    if constexpr (std::derived_from<Control, Slider>) {
      return Connected(control_, &Slider::Change, handler);
    } else {
      return Connected(Field(), &TextField::textChanged, handler);
    }
  }
  /// A button or link is clicked, a check box changes its state, the user picks an entry of a list.
  Wire& Click(Handler handler) {
    if constexpr (std::derived_from<Control, QComboBox>) {
      return Connected(control_, &QComboBox::activated, handler);
    } else if constexpr (std::derived_from<Control, QCheckBox>) {
      return Connected(control_, &QCheckBox::toggled, handler);
    } else if constexpr (std::derived_from<Control, LinkLabel>) {
      return Connected(control_, &LinkLabel::Clicked, handler);
    } else {
      return Connected(control_, &QAbstractButton::clicked, handler);
    }
  }
  /// An option of an array becomes selected, by the user or by the program.
  Wire& Click(void (Window::*handler)(int index)) {
    return Connected(control_, &OptionGroup::Click, handler);
  }
  /// The arrow keys in the field act like one short click on plus or minus.
  Wire& Arrows(SpinButton& plus, SpinButton& minus) {
    QObject::connect(control_, &TextField::ArrowKey, window_, [&plus, &minus](int direction) {
      (direction > 0 ? plus : minus).ClickShortly();
    });
    return *this;
  }

 private:
  template <class Slot>
  std::function<void()> Bound(Slot handler) {
    if constexpr (std::is_member_function_pointer_v<Slot>) {
      return [window = window_, handler] { (window->*handler)(); };
    } else {
      return handler;
    }
  }

  template <class Sender, class Signal, class Slot>
  Wire& Connected(Sender* sender, Signal signal, Slot slot) {
    QObject::connect(sender, signal, window_, slot);
    return *this;
  }

  TextField* Field() const {
    if constexpr (std::derived_from<Control, EditableList>) {
      return control_->Field();
    } else {
      return control_;
    }
  }

  Window* window_;
  Control* control_;
};

/// Begins the lines of a window's table: `const Wires on(this); on(MLength).KeyUp(...)...`.
template <class Window>
class Wires {
 public:
  explicit Wires(Window* window) : window_(window) {}

  template <class Control>
  Wire<Window, Control> operator()(Control& control) const {
    return {window_, &control};
  }
  template <class Control>
  Wire<Window, Control> operator()(Control* control) const {
    return {window_, control};
  }

 private:
  Window* window_;
};

}  // namespace brindle
