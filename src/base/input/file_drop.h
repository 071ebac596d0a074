// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QEvent>
#include <QObject>
#include <QString>
#include <QWidget>

namespace brindle {

/// Lets a file be dropped on a window.
class FileDrop : public QObject {
  Q_OBJECT

 public:
  explicit FileDrop(QWidget* window);

  /// While it does not accept, and under an open box or dialog, a dragged file is turned away.
  void SetAccepting(bool accepting) { isAccepting_ = accepting; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  /// A file was dropped; of several, the first one. Told from the event loop, when the drop is
  /// over: what the window does about it may not hold up the program that the file comes from.
  void Dropped(const QString& path);

 private:
  [[nodiscard]] bool CanAccept() const;

  bool isAccepting_ = true;
};

}  // namespace brindle
