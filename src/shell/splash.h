// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "base/windows/services.h"

namespace brindle {

/// The start-up window. It waits until two seconds have passed, or a key or a click on its picture
/// or one of its labels dismisses it. It measures by the time of day and deliberately does not
/// correct for midnight: a splash shown across midnight stays until it is dismissed, as it always
/// has (SplashTest, AcrossMidnightItStaysUntilAKey).
class Splash : public QWidget {
  Q_OBJECT

 public:
  explicit Splash(Services& services);

  /// Shows the splash and begins to wait.
  void Run();

 Q_SIGNALS:
  /// The wait is over. Emitted once.
  void Finished();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void Wait();
  void Dismiss();

  Services& services_;
  float start_ = 0;
  QWidget* pressed_ = nullptr;
  bool finished_ = false;
};

}  // namespace brindle
