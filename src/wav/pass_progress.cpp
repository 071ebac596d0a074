// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/pass_progress.h"

#include <QtGlobal>

#include "base/numbers/rounding.h"
#include "base/time/clock.h"

namespace brindle {

namespace {

constexpr double BytesPerMebibyte = 1024.0 * 1024.0;

double Seconds(UpdateInterval interval) { return interval == UpdateInterval::Half ? 0.5 : 0.25; }

}  // namespace

PassTimer::PassTimer(const Clock& clock, PassObserver& observer, qint64 fileLength)
    : clock_(clock),
      observer_(observer),
      fileLength_(static_cast<double>(fileLength)),
      start_(clock.Now()),
      lastUpdate_(start_) {}

bool PassTimer::IsDue(UpdateInterval interval) const {
  return clock_.Now() > lastUpdate_ + Seconds(interval);
}

bool PassTimer::Update(qint64 position) {
  lastUpdate_ = clock_.Now();
  const double percent = static_cast<double>(position) * 100 / fileLength_;
  return observer_.Update({.wholePercent = ToInteger32(percent),
                           .percent = static_cast<float>(percent),
                           .elapsed = lastUpdate_ - start_});
}

double PassTimer::Throughput(qint64 bytes) const {
  const double elapsed = clock_.Now() - start_;
  return elapsed > 0 ? static_cast<double>(bytes) / elapsed / BytesPerMebibyte : 0;
}

}  // namespace brindle
