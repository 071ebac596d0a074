// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/spin_hold.h"

#include <functional>
#include <optional>
#include <utility>

#include <QObject>

#include "base/input/form.h"
#include "base/input/number_fields.h"
#include "base/input/text_field.h"
#include "base/numbers/stepping.h"
#include "base/settings/settings.h"
#include "base/time/clock.h"

namespace brindle {

namespace {

constexpr int PlusHeld = 1;
constexpr int MinusHeld = 2;

}  // namespace

SpinHold::SpinHold(Form& form, Clock& clock, const Settings& record)
    : clock_(clock), record_(record) {
  connect(&form, &Form::Closed, this, &SpinHold::Stop);
}

void SpinHold::Press(SpinPress press) {
  SpinState_ = press.state;
  Step(press);
  press.recompute();
  held_.push_back({std::move(press), Phase::FirstDelay, clock_.Now()});
  GoOn();
}

void SpinHold::PressPlus(TextField& field, std::optional<double> highest,
                         std::function<void()> recompute) {
  Press({PlusHeld, &field, StepUp, highest, std::move(recompute)});
}

void SpinHold::PressMinus(TextField& field, std::optional<double> lowest,
                          std::function<void()> recompute) {
  Press({MinusHeld, &field, StepDown, lowest, std::move(recompute)});
}

void SpinHold::Release(TextField& field) {
  SpinState_ = 0;
  field.setFocus();
  GoOn();
}

void SpinHold::Stop() {
  SpinState_ = 0;
  held_.clear();
  ++wait_;
}

void SpinHold::GoOn() {
  while (!held_.empty()) {
    Held& held = held_.back();
    const bool isHeld = SpinState_ == held.press.state;
    if (held.phase == Phase::FirstDelay) {
      if (!isHeld) {
        held_.pop_back();
        continue;
      }
      const double rest = held.since + static_cast<double>(record_.SpinFirstDelay) - clock_.Now();
      if (rest > 0) {
        return WaitFor(rest);
      }
      held.phase = Phase::Repeating;
      held.since = clock_.Now();
    }
    const double rest = held.since + static_cast<double>(record_.SpinRepeatInterval) - clock_.Now();
    if (rest > 0) {
      return WaitFor(rest);
    }
    Step(held.press);
    if (SpinState_ == held.press.state) {
      // Through the event loop even without an interval, so that the release gets through.
      held.since = clock_.Now();
      return WaitFor(static_cast<double>(record_.SpinRepeatInterval));
    }
    const SpinPress ended = std::move(held.press);
    held_.pop_back();
    ended.recompute();
    ended.field->setFocus();
  }
}

void SpinHold::WaitFor(double seconds) {
  ++wait_;
  clock_.After(seconds, this, [this, wait = wait_] {
    if (wait == wait_) {
      GoOn();
    }
  });
}

void SpinHold::Step(const SpinPress& press) {
  WriteNumber(*press.field, press.step(ShownNumberIn(*press.field), press.limit));
}

}  // namespace brindle
