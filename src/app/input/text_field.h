// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>
#include <QPoint>
#include <QString>

namespace brindle {

/// A field for one number, alone or as the text part of an EditableList. It tells its window of
/// keys and mouse buttons the way the windows' handlers count them, and repairs nothing by itself.
class TextField : public QLineEdit {
  Q_OBJECT

 public:
  /// The longest text that a field holds; a longer paste is cut.
  static constexpr int LongestText = 400;

  explicit TextField(const QString& name, const QString& tooltip);

  /// Sets the text. The text that already stands there changes nothing, the selection included.
  /// Another text leaves all selected where all was selected, else the cursor at its end.
  void Write(const QString& text);

  /// The field in which its window's keys arrive, whether or not the window is the active one.
  [[nodiscard]] bool IsBeingEdited() const;

  /// A number only begun ("-") stays when the field is left; elsewhere it becomes 0 then.
  void KeepBegunNumber() { keepsBegunNumber_ = true; }
  [[nodiscard]] bool KeepsBegunNumber() const { return keepsBegunNumber_; }

  /// Whether the field only shows something: read-only, and filled like the window around it.
  void ShowAsResult(bool isResult);

  /// How many digits the field should have room for.
  void SetVisibleDigits(int digits);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// A key that makes a character, Backspace, Enter or Escape went down; the field has not taken
  /// it.
  void KeyPress();
  /// A key was let go (none of Tab, Shift, Ctrl, Alt, Meta; no auto-repeat), or the user changed
  /// the text without a key: by a menu, a drop, an input method.
  void KeyUp();
  void MouseDown();
  void MouseUp();
  /// The up (1) or down (-1) arrow key went down.
  void ArrowKey(int direction);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  int visibleDigits_ = 7;
  bool keepsBegunNumber_ = false;
  bool inKey_ = false;
  bool pressBringsFocus_ = false;
  bool pressKeepsSelection_ = false;
  QPoint pressPosition_;
};

}  // namespace brindle
