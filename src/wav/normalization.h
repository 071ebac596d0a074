// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <tl/expected.hpp>
#include <utility>

#include <QString>

#include "base/time/clock.h"
#include "wav/background_sync.h"
#include "wav/gain.h"
#include "wav/pass.h"
#include "wav/samples.h"
#include "wav/wav_error.h"
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

/// One normalization pass: Open(), Start(), then Advance() to its end. Nothing in a header is ever
/// rewritten, nothing but mapped words is written in place; a separate target becomes as long as
/// its source. Both files are closed with it.
///
/// Maps every word of the samples through the table of the gain, and what else the block loops
/// meet: they are bounded by the end of the file, so that chunks behind the samples are mapped with
/// them, deliberately, and not alike in the two ways of buffering. Progress is due at most every
/// half second (64 blocks) or quarter of a second (single blocks; words of the former), and not at
/// all during the rest. All that was mapped before it is shown is with the system.
///
/// Completed is a pass whose output is on the disk and stands at its path. While the disk takes it
/// in, progress is due every half second, at 100 %; an abort then comes too late. Nothing is
/// written past the end of a file that somebody else has cut short: that is an error.
class Normalization : public Pass {
 public:
  /// Ready: all is open, and what stands in front of the samples is copied. AsksToOverwrite: the
  /// target is not empty; nothing has been changed, and Overwrite() goes on.
  enum class Opened { Ready, AsksToOverwrite };

  explicit Normalization(PassFiles files) : files_(std::move(files)), buffer_(BlockWords) {}

  /// Opens the source and finds its samples; only then looks at the target.
  [[nodiscard]] WavResult<Opened> Open();

  /// Deletes the target that Open() found, and makes the new one.
  [[nodiscard]] WavResult<void> Overwrite();

  /// The source is overwritten, be it that the target turned out to be the source.
  [[nodiscard]] bool IsInPlace() const { return files_.isInPlace; }

  /// The pass over what was opened begins now.
  void Start(GainTable table, Buffering buffering, const Clock& clock);

  [[nodiscard]] PassState Advance() override;
  [[nodiscard]] PassState Abort() override;

  /// MB/s (1024 * 1024 bytes) of the completed pass over the whole file, the disk's part included;
  /// 0 where no time has passed.
  [[nodiscard]] double Throughput() const { return throughput_; }

 private:
  // The work in its order; a pass has those of one way of buffering.
  enum class Phase {
    ManyBlocks,    // Multi
    TailBlocks,    // Multi
    TailWords,     // Multi
    SingleBlocks,  // Single
    SingleWords,   // Single
    Rest,
    Sync,
    Done,
  };
  // The words after the blocks of a pass with many buffers, while they are being mapped.
  struct Tail {
    qint64 first = 0;  // position of the first one
    std::size_t words = 0;
    std::size_t mapped = 0;   // words
    std::size_t written = 0;  // words
  };
  // What a step of the work says: progress where that is due.
  using Step = WavResult<std::optional<PassProgress>>;

  [[nodiscard]] WavResult<Opened> OpenTarget();
  [[nodiscard]] WavResult<void> CopyHead();
  [[nodiscard]] WavResult<void> Copy(qint64 position, qint64 end);

  [[nodiscard]] Step Work();
  [[nodiscard]] Step MapManyBlocks();
  [[nodiscard]] Step MapTailBlock();
  [[nodiscard]] Step MapTailWords();
  [[nodiscard]] Step MapSingleBlock();
  [[nodiscard]] Step MapSingleWords();
  [[nodiscard]] Step CopyRest();
  [[nodiscard]] Step AwaitDisk();
  [[nodiscard]] Step GoOnTo(Phase phase);
  [[nodiscard]] Step GoOnBy(qint64 bytes, UpdateInterval interval);

  [[nodiscard]] WavResult<void> MapBlock(std::size_t words);
  [[nodiscard]] WavResult<void> ReadMapped(qint64 position, Samples samples);
  [[nodiscard]] WavResult<void> ReadTail();
  [[nodiscard]] WavResult<void> WriteTail();
  [[nodiscard]] WavResult<void> Write(qint64 position, std::span<const std::byte> bytes);
  [[nodiscard]] WavFile& Output() { return files_.isInPlace ? input_ : output_; }

  PassFiles files_;
  WavFile input_;
  WavFile output_;
  SampleData data_;
  SampleBuffer buffer_;
  std::optional<GainTable> table_;
  std::optional<PassTimer> timer_;
  Phase phase_ = Phase::Done;
  qint64 position_ = 0;  // where the loops are
  std::optional<Tail> tail_;
  std::optional<BackgroundSync> sync_;
  double throughput_ = 0;
};

}  // namespace brindle
