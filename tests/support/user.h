// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

namespace brindle {

// What a person does with a mouse and a keyboard. Events enter through the window, as those of the
// window system do; they find their widget, move the focus and hold the mouse the way real ones do.

/// Presses and lets go in the middle of the widget.
void Click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
void DoubleClick(QWidget* widget);
void Press(QWidget* widget, Qt::MouseButton button = Qt::LeftButton);
/// Lets go over the widget; the button pressed before hears of it wherever that is.
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

/// Takes the focus to the widget by pressing Tab until it is there; fails the test after a round.
void TabTo(QWidget* widget);

}  // namespace brindle
