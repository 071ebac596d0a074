// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/pass.h"

#include <functional>
#include <variant>

#include <QtGlobal>

#include "base/numbers/rounding.h"
#include "base/time/clock.h"

namespace brindle {

namespace {

constexpr double BytesPerMebibyte = 1024.0 * 1024.0;

double Seconds(UpdateInterval interval) { return interval == UpdateInterval::Half ? 0.5 : 0.25; }

}  // namespace

PassState RunToEnd(Pass& pass, const std::function<bool(const PassProgress&)>& goesOn) {
  auto state = pass.Advance();
  while (const auto* going = std::get_if<PassGoesOn>(&state)) {
    state = goesOn(going->progress) ? pass.Advance() : pass.Abort();
  }
  return state;
}

PassTimer::PassTimer(const Clock& clock, qint64 fileLength)
    : clock_(clock),
      fileLength_(static_cast<double>(fileLength)),
      start_(clock.Now()),
      lastUpdate_(start_) {}

bool PassTimer::IsDue(UpdateInterval interval) const {
  return clock_.Now() > lastUpdate_ + Seconds(interval);
}

PassProgress PassTimer::ProgressAt(qint64 position) {
  lastUpdate_ = clock_.Now();
  const double percent = static_cast<double>(position) * 100 / fileLength_;
  return {.wholePercent = ToInteger32(percent),
          .percent = static_cast<float>(percent),
          .elapsed = lastUpdate_ - start_};
}

double PassTimer::Throughput(qint64 bytes) const {
  const double elapsed = clock_.Now() - start_;
  return elapsed > 0 ? static_cast<double>(bytes) / elapsed / BytesPerMebibyte : 0;
}

}  // namespace brindle
