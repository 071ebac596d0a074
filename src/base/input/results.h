// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>
#include <QSize>
#include <QString>
#include <QStringList>

#include "base/input/labels.h"

namespace brindle {

/// How much larger than the window's text a result is.
inline constexpr double ResultScale = 1.6;

/// The read-only field of a calculator's main result: large, selectable, copyable.
class ResultField : public QLineEdit {
  Q_OBJECT

 public:
  ResultField(const QString& name, const QString& tooltip, int digits);
  /// Shows a result; a selection stays if the text does not change.
  void Write(const QString& text);
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;

 private:
  // The program's font made larger; again whenever that changes.
  void FollowFont();

  int digits_;
};

/// The label of a figure that people want to copy: mouse and keyboard can select and copy it.
class CopyableLabel : public ValueLabel {
  Q_OBJECT

 public:
  CopyableLabel(const QString& name, const QString& tooltip, QStringList widest);

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

/// The label of a calculator's main result, which looks like a ResultField.
class ResultLabel : public CopyableLabel {
  Q_OBJECT

 public:
  ResultLabel(const QString& name, const QString& tooltip, int digits);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void FollowFont();
};

}  // namespace brindle
