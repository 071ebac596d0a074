// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QString>

namespace brindle {

/// A label that works like a link, for the mouse, Enter and the space bar: plain text, underlined,
/// in a colour that is readable on light and dark windows.
class LinkLabel : public QLabel {
  Q_OBJECT

 public:
  explicit LinkLabel(const QString& name);

 Q_SIGNALS:
  void Clicked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool pressed_ = false;
};

}  // namespace brindle
