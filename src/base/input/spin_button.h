// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QToolButton>

namespace brindle {

enum class SpinDirection { Plus, Minus };

/// One of the two small buttons beside a field. It takes no focus and no place in the tab order,
/// and heeds the left mouse button only; the second press of a double click is a press like any
/// other. A button that is disabled while it is held counts as let go: the release would not come.
class SpinButton : public QToolButton {
  Q_OBJECT

 public:
  SpinButton(const QString& name, SpinDirection direction);

  [[nodiscard]] SpinDirection Direction() const { return direction_; }

  /// What one short click does, for the arrow keys in the field.
  void ClickShortly();

 Q_SIGNALS:
  void MouseDown();
  void MouseUp();

 protected:
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void LetGo();

  SpinDirection direction_;
  bool isHeld_ = false;
};

}  // namespace brindle
