// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QSize>
#include <QString>

namespace brindle {

/// A label for a text of any length, a path for example. It takes the room that its line leaves it
/// and replaces the middle of a longer text with dots; text() stays whole.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(const QString& name, const QString& text, const QString& tooltip = {});

  /// Has the end of a long text replaced, instead of its middle.
  void ElideEnd();

  /// Shows a text; a screen reader says it after the label's name.
  void Write(const QString& text);

  [[nodiscard]] QSize minimumSizeHint() const override;
  /// As high without a text as with one.
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QString Shown() const;

  Qt::TextElideMode elide_ = Qt::ElideMiddle;
};

}  // namespace brindle
