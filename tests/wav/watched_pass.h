// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <variant>

#include <QString>

#include "base/interface.h"
#include "base/time/clock.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/pass.h"
#include "wav/peak_scan.h"
#include "wav/wav_error.h"

namespace brindle {

/// Who watches a pass that a plain loop runs.
class PassObserver : public Interface {
 public:
  /// Told after every piece; with false as its answer the pass is aborted.
  [[nodiscard]] virtual bool Update(const PassProgress& progress) = 0;
};

/// The error of a pass that ended by one.
inline std::optional<WavError> ErrorOf(const PassState& end) {
  const auto* error = std::get_if<WavError>(&end);
  return error == nullptr ? std::nullopt : std::optional(*error);
}

/// What came of a scan.
struct ScanResult {
  std::int16_t lowest = 0;
  std::int16_t highest = 0;
  float throughput = 0;  ///< MB/s
  bool isAborted = false;
  std::optional<WavError> error;
};

/// A whole scan.
inline ScanResult ScanPeaks(const QString& source, const Clock& clock, PassObserver& observer,
                            Coverage coverage = Coverage::Usual) {
  PeakScan scan(source, clock, coverage);
  const auto end =
      RunToEnd(scan, [&](const PassProgress& progress) { return observer.Update(progress); });
  const auto found = scan.Found();
  return {.lowest = found.lowest,
          .highest = found.highest,
          .throughput = scan.Throughput(),
          .isAborted = std::holds_alternative<PassAborted>(end),
          .error = ErrorOf(end)};
}

/// Who is asked while the files of a pass are opened.
class TargetQuestions : public Interface {
 public:
  /// Whether the target, which is not empty, may be deleted.
  [[nodiscard]] virtual bool MayOverwrite() = 0;
  /// The target turned out to be the source: the pass works in place.
  virtual void WorksInPlace() = 0;
};

/// A pass that is opened and run in one go each.
class WatchedPass {
 public:
  enum class Opened { Yes, Refused, Failed };
  enum class Ended { Completed, Aborted, Failed };

  [[nodiscard]] Opened Open(const PassFiles& files, TargetQuestions& questions) {
    pass_.emplace(files);
    const auto opened = pass_->Open();
    if (pass_->IsInPlace() && !files.isInPlace) {
      questions.WorksInPlace();
    }
    if (!opened) {
      return FailedBy(opened.error());
    }
    if (*opened == Normalization::Opened::AsksToOverwrite) {
      if (!questions.MayOverwrite()) {
        return Opened::Refused;
      }
      if (const auto overwritten = pass_->Overwrite(); !overwritten) {
        return FailedBy(overwritten.error());
      }
    }
    return Opened::Yes;
  }

  [[nodiscard]] Ended Run(GainTable table, Buffering buffering, const Clock& clock,
                          PassObserver& observer) {
    pass_->Start(std::move(table), buffering, clock);
    const auto end =
        RunToEnd(*pass_, [&](const PassProgress& progress) { return observer.Update(progress); });
    error_ = ErrorOf(end);
    if (error_) {
      return Ended::Failed;
    }
    return std::holds_alternative<PassCompleted>(end) ? Ended::Completed : Ended::Aborted;
  }

  [[nodiscard]] const std::optional<WavError>& Error() const { return error_; }
  [[nodiscard]] double Throughput() const { return pass_ ? pass_->Throughput() : 0; }

 private:
  Opened FailedBy(const WavError& error) {
    error_ = error;
    return Opened::Failed;
  }

  std::optional<Normalization> pass_;
  std::optional<WavError> error_;
};

}  // namespace brindle
