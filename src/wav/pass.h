// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <variant>

#include <QtGlobal>

#include "base/interface.h"
#include "base/time/clock.h"
#include "wav/wav_error.h"

namespace brindle {

/// How far a pass over a file has come.
struct PassProgress {
  int wholePercent = 0;  ///< of the file's length, ties to even
  float percent = 0;     ///< of the file's length
  double elapsed = 0;    ///< seconds since the pass began
};

/// The state of a pass after a piece of its work.
struct PassGoesOn {
  PassProgress progress;
};
struct PassCompleted {};
struct PassAborted {};
using PassState = std::variant<PassGoesOn, PassCompleted, PassAborted, WavError>;

/// A long task on a file, done piece by piece on the caller's thread: from an event loop, or by
/// RunToEnd(). Destroying it between two pieces aborts it.
class Pass : public Interface {
 public:
  /// Works until progress is due to be shown, or to the end of the pass. Must not be called again
  /// once it has returned another state than PassGoesOn.
  [[nodiscard]] virtual PassState Advance() = 0;

  /// Called instead of the next Advance(): ends the pass, and nothing more is written. A pass that
  /// has nothing left to write continues all the same.
  [[nodiscard]] virtual PassState Abort() = 0;
};

/// Runs a pass to its end. Asks `goesOn` after each piece; false aborts.
[[nodiscard]] PassState RunToEnd(Pass& pass,
                                 const std::function<bool(const PassProgress&)>& goesOn);

/// Seconds between two updates of a pass.
enum class UpdateInterval { Half, Quarter };

/// The clock of one pass: when its progress is due to be shown, and how long it took.
class PassTimer {
 public:
  /// Starts the clock of a pass over a file of `fileLength` bytes.
  PassTimer(const Clock& clock, qint64 fileLength);

  /// Whether more than the interval has passed since progress was last shown.
  [[nodiscard]] bool IsDue(UpdateInterval interval) const;

  /// The progress of a pass that has reached `position`. The caller shows it now.
  [[nodiscard]] PassProgress ProgressAt(qint64 position);

  /// Mebibytes a second for `bytes` since the pass began; 0 if no time has passed.
  [[nodiscard]] double Throughput(qint64 bytes) const;

 private:
  const Clock& clock_;
  double fileLength_;  // bytes
  double start_;       // seconds of the clock
  double lastUpdate_;  // seconds of the clock
};

}  // namespace brindle
