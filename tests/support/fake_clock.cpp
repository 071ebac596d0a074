// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/support/fake_clock.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <utility>

#include <QObject>

namespace brindle {

float FakeClock::SecondsSinceMidnight() const {
  constexpr double day = 86400;
  return static_cast<float>(std::fmod(now_ + midnightOffset_, day));
}

void FakeClock::After(double seconds, QObject* context, std::function<void()> action) {
  waiting_.push_back({now_ + std::max(seconds, 0.0), context, std::move(action)});
}

void FakeClock::Advance(double seconds) {
  const double end = now_ + seconds;
  for (;;) {
    const auto next =
        std::min_element(waiting_.begin(), waiting_.end(),
                         [](const Waiter& a, const Waiter& b) { return a.due < b.due; });
    if (next == waiting_.end() || next->due > end) {
      break;
    }
    const Waiter waiter = std::move(*next);
    waiting_.erase(next);
    now_ = std::max(now_, waiter.due);
    if (waiter.context != nullptr) {
      waiter.action();
    }
  }
  now_ = end;
}

bool FakeClock::RunDue() {
  const auto isDue = [this](const Waiter& waiter) { return waiter.due <= now_; };
  const auto firstLater = std::stable_partition(waiting_.begin(), waiting_.end(), isDue);
  const std::vector<Waiter> due(std::make_move_iterator(waiting_.begin()),
                                std::make_move_iterator(firstLater));
  waiting_.erase(waiting_.begin(), firstLater);
  for (const auto& waiter : due) {
    if (waiter.context != nullptr) {
      waiter.action();
    }
  }
  return !due.empty();
}

}  // namespace brindle
