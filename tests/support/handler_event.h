// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include <QWidget>

namespace brindle {

/// The events of a window's table of handlers.
enum class Event { Click, KeyPress, KeyUp, GotFocus, LostFocus, MouseDown, MouseUp };

/// The name of the event in a test list: "KeyLetGo".
[[nodiscard]] std::string EventName(Event event);

/// Prepares the window so that Cause() causes this event alone: moves the focus to the control, or
/// to `elsewhere` if it is to come from there, and presses the mouse button if it is to be
/// released.
void Prepare(Event event, QWidget* control, QWidget* elsewhere);

/// Causes one event of a control, as a user does. A click on a list picks its next entry.
void Cause(Event event, QWidget* control, QWidget* elsewhere);

}  // namespace brindle
