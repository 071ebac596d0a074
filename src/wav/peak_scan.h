// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>

#include <QString>

#include "base/files/disk.h"
#include "base/time/clock.h"
#include "wav/level_range.h"
#include "wav/pass.h"
#include "wav/samples.h"
#include "wav/sound_picture.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {

/// Which words of the samples a scan looks at.
///
/// Usual: not all of them. That keeps the peaks on the screen the same as the program has always
/// shown (UnseenWords, AreThoseThatTheLoopsOfAScanDoNotRead); CutOffUnseen() finds what it costs.
/// The words after the blocks are read from the end of the last 64 KB block on. If the samples run
/// to the end of the file, that leaves out the last whole block except its last word; below 64 KB
/// of samples, the upper half of the length field counts as a word.
enum class Coverage { Usual, EveryWord };

/// What a scan reads: whole blocks from the beginning of the samples on, then single words.
struct ScanLoops {
  qint64 blockEnd = 0;   ///< the last position at which a block is read
  qint64 words = 0;      ///< the first position of a single word
  qint64 unblocked = 0;  ///< the first position after the blocks
};

/// Finds the lowest and highest sample level of a file, and draws a picture of its sound, in one
/// go. Progress is due at most every half second, after a block.
class PeakScan : public Pass {
 public:
  PeakScan(QString source, const Clock& clock, Coverage coverage = Coverage::Usual);

  [[nodiscard]] PassState Advance() override;
  [[nodiscard]] PassState Abort() override;

  /// The peaks of all samples read until the scan ended, whether completed or not.
  [[nodiscard]] Peaks Found() const { return picture_.Ends(); }

  /// The file as it was when the scan began; nothing if the system does not tell.
  [[nodiscard]] const std::optional<FileStamp>& Scanned() const { return stamp_; }

  /// The sound as far as it has been read, also while the scan goes on.
  [[nodiscard]] const SoundPicture& Picture() const { return picture_; }

  /// MB/s (1024 * 1024 bytes) of the ended scan; 0 if no time has passed. Deliberately counts the
  /// end's position *plus* the samples' start: figures stay comparable with those of older versions
  /// (ThroughputOfScan, AddsTheStartToTheEnd).
  [[nodiscard]] float Throughput() const { return throughput_; }

 private:
  [[nodiscard]] WavResult<void> Open();
  [[nodiscard]] WavResult<void> Look(qint64 position, std::size_t words);
  [[nodiscard]] WavResult<void> LookAtWords();
  [[nodiscard]] PassState EndedWith(const PassState& state);

  QString source_;
  const Clock& clock_;
  Coverage coverage_;
  WavFile file_;
  SampleData data_;
  ScanLoops loops_;
  SampleBuffer buffer_;
  SoundPicture picture_;
  std::optional<PassTimer> timer_;  // since the samples were found
  qint64 next_ = 0;                 // position of the next block
  qint64 reached_ = 0;              // position of the last read
  std::optional<FileStamp> stamp_;
  float throughput_ = 0;
};

/// Words that a gain cuts off.
struct CutOffWords {
  qint64 cutOff = 0;
  qint64 words = 0;   ///< of all samples of the file
  LevelRange levels;  ///< of the words that were looked at
};

/// How many of the words that the usual coverage leaves out would be cut off by a pass with this
/// gain: at most those of two blocks. None if the file cannot be read; the pass will report the
/// reason.
[[nodiscard]] CutOffWords CutOffUnseen(const QString& source, double gain);

}  // namespace brindle
