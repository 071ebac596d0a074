// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

namespace brindle {

/// A push button that Enter presses like the space bar: down with the key, clicked when it is let
/// go, so that a key held for long answers no question that the click asks.
class PushButton : public QPushButton {
  Q_OBJECT

 public:
  using QPushButton::QPushButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
};

}  // namespace brindle
