// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QObject>

#include "base/time/clock.h"
#include "wav/pass.h"

namespace brindle {

/// Drives the passes of a window from the event loop, one at a time. After each piece the window
/// shows the progress and handles its events; only then does the driver check whether to abort. An
/// open box or dialog, which stops the whole program, stops the pass as well.
class PassDriver {
 public:
  using ShowProgress = std::function<void(const PassProgress&)>;
  using IsAborted = std::function<bool()>;

  PassDriver(Clock& clock, ShowProgress show, IsAborted isAborted);

  /// Does the first piece at once, and the others from the event loop. `ended` runs with the last
  /// state of the pass, which may have been destroyed by then; never after Stop().
  void Drive(Pass& pass, const std::function<void(const PassState&)>& ended);

  /// Runs `action` once the pending events have been handled; never after Stop().
  void AfterEvents(const std::function<void()>& action);

  /// Drops everything that it still had to do. The pass may then be destroyed.
  void Stop();

 private:
  void Take(Pass& pass, const PassState& state, const std::function<void(const PassState&)>& ended);
  static void PaintWhatChanged();
  void DoAfter(double seconds, const std::function<void()>& action);

  Clock& clock_;
  ShowProgress show_;
  IsAborted isAborted_;
  int stops_ = 0;  // actions from before the last one are dropped
  QObject lifetime_;
};

}  // namespace brindle
