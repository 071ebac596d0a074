// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QLineEdit>
#include <QPoint>
#include <QString>

namespace brindle {

/// Sets the text of a field. If that is already its text, nothing changes, not even the selection.
/// A different text is selected as a whole if the old one was; otherwise the cursor goes to its
/// end.
void SetTextKeepingSelection(QLineEdit* field, const QString& text);

/// A field for one number, alone or as the text part of an EditableList. It reports keys and mouse
/// buttons to its window as the windows' handlers count them, and repairs nothing by itself. Typing
/// a comma enters a period: many number pads have no other key for it.
///
/// Text that the program wrote from a number stands for exactly that number, no matter how few
/// digits show, until somebody changes the text: 20 seconds, shown as 0.333 minutes, stay 20
/// seconds.
class TextField : public QLineEdit {
  Q_OBJECT

 public:
  /// The length of the longest text that a field holds; a longer paste is cut.
  static constexpr int LongestText = 400;

  explicit TextField(const QString& name, const QString& tooltip);

  /// Sets the text, as SetTextKeepingSelection() does; it stands for what it reads as.
  void Write(const QString& text);
  /// The same, but the text stands for `number`, which it was written from. An empty text, and a
  /// number that is not finite, stand for nothing.
  void Write(const QString& text, double number);

  /// The number that the text was written from; nothing if the text stands for what it reads as.
  [[nodiscard]] std::optional<double> WrittenFrom() const { return writtenFrom_; }
  /// How often anybody but Write() has changed the text.
  [[nodiscard]] int Changes() const { return changes_; }

  /// Replaces the text as a person's paste over all of it does: it counts as one key let go.
  void PasteOver(const QString& text);

  /// Whether this field gets its window's keys, no matter whether the window is the active one.
  [[nodiscard]] bool IsBeingEdited() const;

  /// A number only begun ("-") stays when the focus leaves the field; in other fields it becomes 0
  /// then.
  void KeepBegunNumber() { keepsBegunNumber_ = true; }
  [[nodiscard]] bool KeepsBegunNumber() const { return keepsBegunNumber_; }

  /// Whether the field only shows something: read-only, with the background of the window around
  /// it.
  void ShowAsResult(bool isResult);

  /// How many digits the field should have room for.
  void SetVisibleDigits(int digits);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// A key that makes a character, Backspace, Enter or Escape went down; the field has not handled
  /// it yet.
  void KeyPress();
  /// A key was released (none of Tab, Shift, Ctrl, Alt, Meta; no auto-repeat), or the user changed
  /// the text without a key: by a menu, a drop or an input method.
  void KeyUp();
  void MouseDown();
  void MouseUp();
  /// The up (1) or down (-1) arrow key went down.
  void ArrowKey(int direction);

 protected:
  void inputMethodEvent(QInputMethodEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void Set(const QString& text, std::optional<double> number);
  void HearOfChange();
  void TakeKey(QKeyEvent* event);
  void Tell(void (TextField::*what)());

  std::optional<double> writtenFrom_;
  int changes_ = 0;
  bool isWriting_ = false;
  bool isEditHeard_ = false;
  int visibleDigits_ = 7;
  bool keepsBegunNumber_ = false;
  bool inKey_ = false;
  bool pressBringsFocus_ = false;
  bool pressKeepsSelection_ = false;
  QPoint pressPosition_;
};

}  // namespace brindle
