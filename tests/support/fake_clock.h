// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <vector>

#include <QObject>
#include <QPointer>

#include "base/time/clock.h"

namespace brindle {

/// A clock that stands still until a test moves it, unless it is set to move by itself.
class FakeClock : public Clock {
 public:
  [[nodiscard]] double Now() const override { return now_ += secondsPerLook_; }
  [[nodiscard]] float SecondsSinceMidnight() const override;
  void After(double seconds, QObject* context, std::function<void()> action) override;

  /// Moves time forward, and runs each action that becomes due on the way at its own moment.
  void Advance(double seconds);

  /// Time passes while the program is busy: nothing runs.
  void Elapse(double seconds) { now_ += seconds; }

  /// One turn of an event loop: runs the actions that are due now, but none that become due through
  /// them. Returns whether there were any.
  bool RunDue();

  /// From now on time passes at every look at the clock: for loops that wait for it.
  void AdvanceAtEveryLook(double seconds) { secondsPerLook_ = seconds; }

  /// Sets the time of day, in seconds; from there it moves with Advance() and wraps at midnight.
  void SetSecondsSinceMidnight(double seconds) { midnightOffset_ = seconds - now_; }

  /// How many actions are waiting.
  [[nodiscard]] std::size_t Waiting() const { return waiting_.size(); }

 private:
  struct Waiter {
    double due = 0;
    QPointer<QObject> context;
    std::function<void()> action;
  };

  mutable double now_ = 1000;
  double secondsPerLook_ = 0;
  double midnightOffset_ = 0;
  std::vector<Waiter> waiting_;
};

}  // namespace brindle
