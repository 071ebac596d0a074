// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

namespace brindle {

// The actions of a person with a mouse and a keyboard. Events enter through the window, like those
// of the window system: they find their widget, move the focus and grab the mouse as real ones do.

/// Presses and releases in the middle of the widget.
void Click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
void DoubleClick(QWidget* widget);
void Press(QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
/// Releases over the widget; the button that was pressed is notified wherever that is.
void LetGo(QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
void MoveTo(QWidget* widget, QPoint position);
void Wheel(QWidget* widget, int steps);

/// A key down and up in the window that has the focus.
void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void KeyDown(Qt::Key key, const QString& text = {});
void KeyLetGo(Qt::Key key, const QString& text = {});

/// Types the characters, each a key down and up.
void Type(const QString& text);

/// Selects all by the keyboard and types over it.
void TypeOver(const QString& text);

/// Puts the text on the clipboard and pastes it with the keyboard.
void Paste(const QString& text);

/// Moves the focus to the widget by pressing Tab until it is there; fails the test after one round.
void TabTo(QWidget* widget);

}  // namespace brindle
