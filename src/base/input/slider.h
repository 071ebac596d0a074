// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPaintEvent>
#include <QSize>
#include <QSlider>
#include <QString>

namespace brindle {

/// A horizontal slider that knows whether the user or the program moves it.
class Slider : public QSlider {
  Q_OBJECT

 public:
  /// Its value is one of `least` to `most`.
  Slider(const QString& name, const QString& tooltip, int least, int most);

  /// Moves it for the program, at most to the end of its range; calls Change() as for the user.
  void Write(int value);

  /// Whether the program is moving it now.
  [[nodiscard]] bool IsBeingWritten() const { return isBeingWritten_; }

  /// The distance between its ticks, of an arrow key and of a page key.
  void SetSteps(int tick, int arrowKey, int pageKey);
  void SetStep(int step) { SetSteps(step, step, step); }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  /// The value changed.
  void Change();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  bool isBeingWritten_ = false;
};

}  // namespace brindle
