// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QString>

namespace brindle {

/// A label that is clicked like a link, with the mouse or with Enter or the space bar: plain text,
/// underlined, in a colour that can be read on light and dark windows.
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
