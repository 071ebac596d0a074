// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/time/clock.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>
#include <utility>

#include <QObject>
#include <QTime>
#include <QTimer>

namespace brindle {

double SystemClock::Now() const {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double>(now).count();
}

float SystemClock::SecondsSinceMidnight() const {
  return static_cast<float>(QTime::currentTime().msecsSinceStartOfDay()) / 1000;
}

void SystemClock::After(double seconds, QObject* context, std::function<void()> action) {
  const auto milliseconds = static_cast<int>(std::ceil(std::max(seconds, 0.0) * 1000));
  QTimer::singleShot(milliseconds, Qt::PreciseTimer, context, std::move(action));
}

}  // namespace brindle
