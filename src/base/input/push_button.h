// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>
#include <QString>

namespace brindle {

/// A push button that Enter presses like the space bar: the key presses it, and releasing the key
/// clicks it, so that a key held for long does not answer a question that the click asks. Its
/// accessible name is its caption.
class PushButton : public QPushButton {
  Q_OBJECT

 public:
  PushButton() = default;
  PushButton(const QString& name, const QString& caption, const QString& tooltip = {});

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
};

}  // namespace brindle
