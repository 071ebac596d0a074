// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <unistd.h>
#include <utility>

#include <QEvent>
#include <QMetaObject>
#include <QObject>

namespace brindle {

/// Runs an action once, when the first paint of a window is over and has been sent to the display,
/// before anything else is painted.
class AtFirstPaint : public QObject {
 public:
  AtFirstPaint(QObject* window, std::function<void()> action) : action_(std::move(action)) {
    window->installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      watched->removeEventFilter(this);
      QMetaObject::invokeMethod(watched, action_, Qt::QueuedConnection);
    }
    return false;
  }

 private:
  std::function<void()> action_;
};

/// The start is over; what the program would do at its end is not part of it.
inline void EndNow() { _exit(0); }

}  // namespace brindle
