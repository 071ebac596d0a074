// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include "base/interface.h"
#include "base/time/clock.h"

namespace brindle {

/// How far a pass over a file has come.
struct PassProgress {
  int wholePercent = 0;  ///< of the file's length, ties to even
  float percent = 0;     ///< of the file's length
  double elapsed = 0;    ///< seconds since the pass began
};

/// Who watches a pass. A pass runs on the caller's thread and calls back on it.
class PassObserver : public Interface {
 public:
  /// Told now and then while the pass runs; with false as its answer the pass ends here.
  [[nodiscard]] virtual bool Update(const PassProgress& progress) = 0;
};

/// Seconds between two updates of a pass.
enum class UpdateInterval { Half, Quarter };

/// The clock of one pass: when its observer is to be told, and how long it took.
class PassTimer {
 public:
  /// The pass over a file of `fileLength` bytes begins now.
  PassTimer(const Clock& clock, PassObserver& observer, qint64 fileLength);

  /// Whether more than the interval has passed since the last update.
  [[nodiscard]] bool IsDue(UpdateInterval interval) const;

  /// Tells the observer that the pass is at `position`; false where the pass is to end.
  [[nodiscard]] bool Update(qint64 position);

  /// IsDue() and Update() in one: false where the pass is to end.
  [[nodiscard]] bool GoesOn(qint64 position, UpdateInterval interval) {
    return !IsDue(interval) || Update(position);
  }

  /// Mebibytes a second for `bytes` since the pass began; 0 where no time has passed.
  [[nodiscard]] double Throughput(qint64 bytes) const;

 private:
  const Clock& clock_;
  PassObserver& observer_;
  double fileLength_;  // bytes
  double start_;       // seconds of the clock
  double lastUpdate_;  // seconds of the clock
};

}  // namespace brindle
