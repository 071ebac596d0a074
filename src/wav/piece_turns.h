// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include "base/files/disk.h"
#include "wav/disk_wait.h"
#include "wav/pass.h"
#include "wav/pass_record.h"
#include "wav/recorded_file.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"

namespace brindle {

/// What a pass in place does for its record in turn with its loops: before they map a word, its
/// piece is in the record, and the pieces before are on the disk. A pass that goes on finds first
/// what it has mapped as it left it, and what was taken back as it was.
class PieceTurns {
 public:
  /// `file` is open for changing.
  PieceTurns(PassRecord record, std::shared_ptr<WavFile> file);

  [[nodiscard]] RecordedFile& File() { return file_; }
  [[nodiscard]] const RecordedFile& File() const { return file_; }

  /// The position where the loops begin.
  [[nodiscard]] qint64 Begin() const;

  /// Whether the loops, which have reached `position`, may go on. Else Tend() is to be called.
  [[nodiscard]] bool IsLoopsTurn(qint64 position) const;
  /// Whether the loops have mapped everything, though the disk may not have it yet.
  [[nodiscard]] bool IsAllMapped(qint64 position) const;

  /// Does the next thing; progress if it is due.
  [[nodiscard]] WavResult<std::optional<PassProgress>> Tend(qint64 position, PassTimer& timer);

 private:
  // In this order, from OpenPiece on over and over.
  enum class Turn {
    CheckPieces,
    Recover,
    AwaitRecovered,
    OpenPiece,
    AwaitRecord,
    MapPiece,  // the turn of the loops
    AwaitPiece,
  };
  using Step = WavResult<std::optional<PassProgress>>;

  [[nodiscard]] Step CheckPiece(PassTimer& timer);
  [[nodiscard]] Step Await(const std::shared_ptr<DiskFile>& file, Turn then, qint64 position,
                           PassTimer& timer);
  [[nodiscard]] Step GoOnTo(Turn turn);

  std::shared_ptr<WavFile> recording_;
  RecordedFile file_;
  DiskWait wait_;
  Turn turn_ = Turn::CheckPieces;
  qint64 checked_ = 0;  // pieces from the first one on
};

}  // namespace brindle
