// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <tl/expected.hpp>

#include <QString>

#include "base/files/disk.h"
#include "base/files/system_disk.h"
#include "base/time/clock.h"
#include "wav/buffering.h"
#include "wav/disk_wait.h"
#include "wav/gain.h"
#include "wav/level_range.h"
#include "wav/pass.h"
#include "wav/pass_loops.h"
#include "wav/pass_record.h"
#include "wav/piece_turns.h"
#include "wav/recorded_file.h"
#include "wav/samples.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {

/// What a pass works on.
struct PassFiles {
  QString source;
  QString target;          ///< ignored if the source is overwritten
  bool isInPlace = false;  ///< the source is overwritten
};

/// One normalization pass: Open(), Start(), then Advance() to its end. It never rewrites anything
/// in a header; in place it writes only mapped words; a separate target becomes as long as its
/// source. It closes both files when it is destroyed.
///
/// Maps every word of the samples through the table of the gain. It deliberately maps more: the
/// block loops are bounded by the end of the file, so they also map chunks after the samples, and
/// not the same ones in the two ways of buffering. That keeps the files that people get the same as
/// before (LiteralModel, TellsTheWaysOfBufferingApartWhereChunksFollow). Progress is due at most
/// every half second (64 blocks) or quarter of a second (single blocks, and the last words of
/// Multi), and never during the rest. Everything mapped has been passed to the system before
/// progress is shown.
///
/// In place, the pass can keep what it takes to take it back: KeepRecord(). Then it reads a piece
/// of the recording at once, and the record has the originals of the piece on the disk before a
/// word of it is written. Waiting for the disk, progress is due every half second.
///
/// The pass is completed once its output is on the disk and still at its path. While the disk takes
/// it in, progress is due every half second, at 100 %; an abort then comes too late. Nothing is
/// written past the end of a file that somebody else has cut short: that is an error.
class Normalization : public Pass {
 public:
  /// Ready: both files are open, and everything before the samples is copied. AsksToOverwrite: the
  /// target is not empty; nothing has been changed, and Overwrite() continues.
  enum class Opened { Ready, AsksToOverwrite };

  explicit Normalization(PassFiles files, const Disk& disk = TheSystemsDisk());

  /// Opens the source and finds its samples; only then opens the target. An error if the disk has
  /// no room for the target.
  [[nodiscard]] WavResult<Opened> Open();

  /// Deletes the target that Open() found, and creates the new one.
  [[nodiscard]] WavResult<void> Overwrite();

  /// Whether the source is overwritten, because the user chose that or because the target is the
  /// source.
  [[nodiscard]] bool IsInPlace() const { return files_.isInPlace; }

  /// What a record of the pass has to say from the start on; of files that were opened, in place.
  [[nodiscard]] WavResult<PassFacts> FactsFor(double gain, Buffering buffering,
                                              const KnownLevels& known) const;

  /// Has the pass, in place, keep its way back. The record goes on from its boundary. An error if
  /// it is of another recording.
  [[nodiscard]] WavResult<void> KeepRecord(PassRecord record);

  /// Whether the pass keeps a record.
  [[nodiscard]] bool IsRecorded() const { return turns_.has_value(); }
  /// The path of the record if the recording was changed by others, so that the record is of no
  /// use; empty otherwise.
  [[nodiscard]] QString ChangedRecord() const {
    return turns_ ? turns_->File().ChangedRecord() : changedRecord_;
  }

  /// Begins the pass over the files that were opened.
  void Start(GainTable table, Buffering buffering, const Clock& clock);

  [[nodiscard]] PassState Advance() override;
  [[nodiscard]] PassState Abort() override;

  /// MB/s (1024 * 1024 bytes) of the completed pass over the whole file, including the time of the
  /// disk; 0 if no time has passed.
  [[nodiscard]] double Throughput() const { return throughput_; }

 private:
  // The phases in their order; a pass goes through those of one way of buffering.
  enum class Phase {
    ManyBlocks,    // Multi
    TailBlocks,    // Multi
    TailWords,     // Multi
    SingleBlocks,  // Single
    SingleWords,   // Single
    Rest,
    Sync,
    SyncRecord,
    Done,
  };
  // The words after the blocks of a Multi pass, while they are being mapped.
  struct Tail {
    qint64 first = 0;  // position of the first one
    Samples samples = {};
    std::size_t mapped = 0;   // words
    std::size_t written = 0;  // words
  };
  // The outcome of a step: progress if it is due.
  using Step = WavResult<std::optional<PassProgress>>;

  [[nodiscard]] WavResult<Opened> OpenTarget();
  [[nodiscard]] WavResult<void> CopyHead();
  [[nodiscard]] WavResult<void> Copy(qint64 position, qint64 end);

  [[nodiscard]] Step Work();
  [[nodiscard]] Step MapManyBlocks();
  [[nodiscard]] Step MapReadBlocks();
  [[nodiscard]] Step MapTailBlock();
  [[nodiscard]] Step MapTailWords();
  [[nodiscard]] Step MapSingleBlock();
  [[nodiscard]] Step MapSingleWords();
  [[nodiscard]] Step CopyRest();
  [[nodiscard]] Step AwaitDisk();
  [[nodiscard]] Step AwaitRecord();
  [[nodiscard]] RecordedFile& File() { return turns_->File(); }
  [[nodiscard]] Step Await(const std::shared_ptr<DiskFile>& file,
                           const std::function<WavResult<void>()>& then);
  [[nodiscard]] Step GoOnTo(Phase phase);
  [[nodiscard]] Step GoOnBy(qint64 bytes, UpdateInterval interval);

  [[nodiscard]] WavResult<void> MapBlock(qint64 position, std::size_t words);
  [[nodiscard]] Samples RoomFor(qint64 position, std::size_t words);
  [[nodiscard]] WavResult<void> Fetch(qint64 position, Samples samples);
  [[nodiscard]] WavResult<void> ReadTail();
  [[nodiscard]] WavResult<void> WriteTail();
  [[nodiscard]] WavResult<void> Write(qint64 position, std::span<const std::byte> bytes);
  [[nodiscard]] const std::shared_ptr<WavFile>& Output() const {
    return files_.isInPlace ? input_ : output_;
  }

  PassFiles files_;
  const Disk& disk_;
  std::shared_ptr<WavFile> input_ = std::make_shared<WavFile>();
  std::shared_ptr<WavFile> output_ = std::make_shared<WavFile>();
  SampleData data_;
  SampleBuffer buffer_;
  std::optional<GainTable> table_;
  std::optional<PassTimer> timer_;
  Phase phase_ = Phase::Done;
  qint64 position_ = 0;  // of the next byte for the loops
  std::optional<Tail> tail_;
  DiskWait wait_;
  std::optional<PieceTurns> turns_;  // of a pass that keeps a record
  QString changedRecord_;            // that was not kept
  double throughput_ = 0;
};

}  // namespace brindle
