// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <optional>
#include <vector>

#include <QObject>

#include "base/input/form.h"
#include "base/input/text_field.h"
#include "base/settings/settings.h"
#include "base/time/clock.h"

namespace brindle {

/// What pressing one spin button means. The bound is read before the press and applies to all of
/// it.
struct SpinPress {
  int state = 0;  ///< the button's own code, not 0
  TextField* field = nullptr;
  double (*step)(double value, std::optional<double> limit) = nullptr;
  std::optional<double> limit;
  std::function<void()> recompute;
};

/// Holding a spin button, for all spin buttons of one window: one step and one recomputation at the
/// press; after the first delay a step every repeat interval, without recomputing; the release is
/// noticed only after a step, so one more step follows it, then one recomputation, and the field
/// gets the focus. A release before the first delay is over ends the hold at once. The extra step
/// is deliberate: these buttons have always made it, and SpinHoldTest checks it
/// (AReleaseRightAfterTheFirstDelayIsFollowedByOneStep).
///
/// A press while an older one still waits for its extra step suspends the older one, which
/// continues when the newer one has ended.
class SpinHold : public QObject {
  Q_OBJECT

 public:
  /// `record` gives SpinFirstDelay and SpinRepeatInterval, in seconds.
  /// Ends with `form`.
  SpinHold(Form& form, Clock& clock, const Settings& record);

  void Press(SpinPress press);

  /// Press() for windows in which all plus buttons share one code and all minus buttons another.
  void PressPlus(TextField& field, std::optional<double> highest, std::function<void()> recompute);
  void PressMinus(TextField& field, std::optional<double> lowest, std::function<void()> recompute);

  /// The button was released: the state becomes 0 and `field` gets the focus.
  void Release(TextField& field);

  /// Ends everything at once, without a step, for a window that closes.
  void Stop();

  /// The code of the button that is held, 0 for none.
  [[nodiscard]] int SpinState() const { return SpinState_; }

 private:
  enum class Phase { FirstDelay, Repeating };
  struct Held {
    SpinPress press;
    Phase phase = Phase::FirstDelay;
    double since = 0;
  };

  void GoOn();
  void WaitFor(double seconds);
  static void Step(const SpinPress& press);

  Clock& clock_;
  const Settings& record_;
  int SpinState_ = 0;
  std::vector<Held> held_;  // the last one runs, the others are suspended
  unsigned wait_ = 0;       // tells the current wait from those given up
};

}  // namespace brindle
