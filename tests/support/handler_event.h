// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include <QWidget>

namespace brindle {

/// The events of a window's table of handlers.
enum class Event { Click, KeyPress, KeyUp, GotFocus, LostFocus, MouseDown, MouseUp };

/// What a test list calls the event: "KeyLetGo".
[[nodiscard]] std::string EventName(Event event);

/// Brings the window to where Cause() causes this event alone: the focus on the control, or on
/// `elsewhere` where it is to come from there, and the mouse button down where it is to be let go.
void Prepare(Event event, QWidget* control, QWidget* elsewhere);

/// Causes one event of a control, as a user does. That of a list picks its next entry.
void Cause(Event event, QWidget* control, QWidget* elsewhere);

}  // namespace brindle
