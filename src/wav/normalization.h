// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include <QString>

#include "base/interface.h"
#include "base/time/clock.h"
#include "wav/gain.h"
#include "wav/pass_progress.h"
#include "wav/samples.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {

/// How a pass reads and writes: 64 blocks of 64 KB in turn, or one.
enum class Buffering { Multi, Single };

/// What a pass works on.
struct PassFiles {
  QString source;
  QString target;          ///< not looked at where the source is overwritten
  bool isInPlace = false;  ///< the source is overwritten
};

/// Who is asked while the files of a pass are opened.
class TargetQuestions : public Interface {
 public:
  /// Whether the target, which is not empty, may be deleted.
  [[nodiscard]] virtual bool MayOverwrite() = 0;
  /// The target turned out to be the source: the pass works in place.
  virtual void WorksInPlace() = 0;
};

/// One normalization pass: Open(), then Run(). Nothing in a header is ever rewritten, nothing but
/// mapped words is written in place; a separate target becomes as long as its source. Both files
/// are closed with it.
class Normalization {
 public:
  enum class Opened { Yes, Refused, Failed };
  enum class Ended { Completed, Aborted, Failed };

  /// Opens the source and finds its samples; only then looks at the target: asks before a file that
  /// is not empty is deleted, makes the new one, and copies what stands in front of the samples.
  [[nodiscard]] Opened Open(const PassFiles& files, TargetQuestions& questions);

  /// Maps every word of the samples through the table, and what else the block loops meet: they
  /// are bounded by the end of the file, so that chunks behind the samples are mapped with them,
  /// deliberately, and not alike in the two ways of buffering. The observer is told at most every
  /// half second (64 blocks) or quarter of a second (single blocks; words of the former), and not
  /// at all during the rest. When it ends the pass nothing more is written; all that was mapped
  /// before it was asked is with the system.
  ///
  /// Completed is a pass whose output is on the disk and stands at its path. While the disk takes
  /// it in, the observer is told every half second, at 100 %; its answer comes too late to change
  /// anything. Nothing is written past the end of a file that somebody
  /// else has cut short: that is an error.
  [[nodiscard]] Ended Run(const GainTable& table, Buffering buffering, const Clock& clock,
                          PassObserver& observer);

  /// Why it failed.
  [[nodiscard]] const std::optional<WavError>& Error() const { return error_; }

  /// MB/s (1024 * 1024 bytes) of the completed pass over the whole file, the disk's part included;
  /// 0 where no time has passed.
  [[nodiscard]] double Throughput() const { return throughput_; }

 private:
  [[nodiscard]] bool OpenTarget(const PassFiles& files, TargetQuestions& questions);
  [[nodiscard]] bool Copy(qint64 position, qint64 end);
  [[nodiscard]] bool MapMulti(const GainTable& table, PassTimer& timer);
  [[nodiscard]] bool MapSingle(const GainTable& table, PassTimer& timer);
  [[nodiscard]] bool MapBlock(const GainTable& table, std::size_t words);
  [[nodiscard]] bool MapWordsWatched(const GainTable& table, PassTimer& timer);
  [[nodiscard]] bool ReadMapped(const GainTable& table, qint64 position, Samples samples);
  [[nodiscard]] bool Write(qint64 position, std::span<const std::byte> bytes);
  [[nodiscard]] bool SyncOutput(PassTimer& timer);
  [[nodiscard]] bool Succeeded(std::optional<WavError> error);
  [[nodiscard]] WavFile& Output() { return isInPlace_ ? input_ : output_; }

  WavFile input_;
  WavFile output_;
  bool isInPlace_ = false;
  SampleData data_;
  SampleBuffer buffer_;
  qint64 position_ = 0;  // where the loops are
  std::optional<WavError> error_;
  double throughput_ = 0;
};

}  // namespace brindle
