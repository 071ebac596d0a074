// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QEvent>
#include <QObject>
#include <QString>
#include <QWidget>

namespace brindle {

/// Lets the user drop a file on a window.
class FileDrop : public QObject {
  Q_OBJECT

 public:
  explicit FileDrop(QWidget* window);

  /// Takes over the files that are dropped on the fields of the window, which would paste their
  /// paths. Text is dropped into a field as before.
  void CoverFields();

  /// While it does not accept, or while a box or dialog is open, dragged files are rejected.
  void SetAccepting(bool accepting) { isAccepting_ = accepting; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  /// A file was dropped; of several, the first one. Emitted from the event loop after the drop is
  /// over, so that the window's reaction does not block the program that the file comes from.
  void Dropped(const QString& path);

 private:
  [[nodiscard]] bool CanAccept() const;

  QWidget* window_;
  bool isAccepting_ = true;
};

}  // namespace brindle
