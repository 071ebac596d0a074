// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QSize>
#include <QString>
#include <QStringList>

namespace brindle {

/// A label that shows plain text, never markup.
class PlainLabel : public QLabel {
 public:
  explicit PlainLabel(const QString& text);
  PlainLabel(const QString& name, const QString& text, const QString& tooltip = {});
};

/// The same for a label that nothing but its layout refers to.
[[nodiscard]] QLabel* MakeLabel(const QString& text);
[[nodiscard]] QLabel* MakeLabel(const QString& name, const QString& text,
                                const QString& tooltip = {});

/// A sentence next to a button: plain text, wrapped to a column that grows with the font.
class DescriptionLabel : public QLabel {
  Q_OBJECT

 public:
  explicit DescriptionLabel(const QString& text);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
};

/// A label for a value. It keeps room for the widest of the texts that it may have to show, so that
/// nothing moves, and no layout is recomputed, when the value changes.
class ValueLabel : public QLabel {
  Q_OBJECT

 public:
  ValueLabel(const QString& name, const QString& tooltip, QStringList widest);
  /// Shows a text; a screen reader says it after the label's name.
  void Write(const QString& text);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  // With a fixed size the label does not invalidate its layout when its text changes.
  void FixSize();

  QStringList widest_;
};

}  // namespace brindle
