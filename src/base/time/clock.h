// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QObject>

#include "base/interface.h"

namespace brindle {

/// All time comes in here, so that a test can control it.
class Clock : public Interface {
 public:
  /// Seconds since an arbitrary moment; never goes back.
  [[nodiscard]] virtual double Now() const = 0;

  /// Seconds since local midnight; falls back to 0 when the day ends.
  [[nodiscard]] virtual float SecondsSinceMidnight() const = 0;

  /// Runs `action` once from the event loop when about `seconds` have passed, but never after
  /// `context` has been destroyed.
  virtual void After(double seconds, QObject* context, std::function<void()> action) = 0;
};

class SystemClock : public Clock {
 public:
  [[nodiscard]] double Now() const override;
  [[nodiscard]] float SecondsSinceMidnight() const override;
  void After(double seconds, QObject* context, std::function<void()> action) override;
};

}  // namespace brindle
