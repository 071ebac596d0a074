// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include "base/input/form.h"
#include "base/interface.h"

namespace brindle {

/// Every window that another window can open. `shell/window_catalogue` tells the rest about each;
/// it counts them from 0, so none is given a number of its own.
enum class WindowId {
  BitrateCalc,
  AudioCalc,
  HDCalc,
  AVISplit,
  AspectRa,
  QuickC,
  WavNorm,
  Advanced,
  AboutWin,
  WebUpdate,
  DefaultW,
};

/// The list of windows as a window sees it.
class WindowList : public Interface {
 public:
  /// The one window of this kind. If it is not shown, creates it without showing it; its next show
  /// creates it afresh, as after closing it.
  virtual Form& Load(WindowId id) = 0;

  /// Shows the one window of this kind, without making the others wait: creates it if it is not
  /// shown, otherwise brings it to the front. Lets through what its creation throws; no window is
  /// left then.
  virtual void Open(WindowId id) = 0;

  /// Asks every window whether it may be closed. When none has anything against it, all are told
  /// that they will be, and `agreed` runs, now or when the user has answered.
  virtual void AskAllToClose(const std::function<void()>& agreed) = 0;
  /// Tells all windows that they will be closed, without asking any of them.
  virtual void CloseAllUnasked() = 0;
};

}  // namespace brindle
