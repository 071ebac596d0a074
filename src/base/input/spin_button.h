// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QToolButton>

namespace brindle {

enum class SpinDirection { Plus, Minus };

/// One of the two small buttons beside a field. It takes no focus and no place in the tab order,
/// and reacts only to the left mouse button; the second press of a double click is a press like any
/// other. Disabling a button while it is held counts as releasing it, because the release itself
/// would not arrive.
class SpinButton : public QToolButton {
  Q_OBJECT

 public:
  SpinButton(const QString& name, SpinDirection direction, const QString& tooltip = {});

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
