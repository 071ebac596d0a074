// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include <QString>

#include "base/files/disk.h"
#include "base/files/system_disk.h"
#include "base/time/clock.h"
#include "wav/disk_wait.h"
#include "wav/pass.h"
#include "wav/pass_record.h"
#include "wav/recorded_file.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"

namespace brindle {

/// Takes a pass in place back: makes the recording what it was, byte for byte, from the last mapped
/// piece to the first. Ended early, it leaves an interrupted pass, which can be gone on with or
/// taken back.
///
/// Touches nothing if a piece is not what the pass left, or what an earlier undo made of it, or if
/// the record is damaged. Unless the system says that the recording has not been changed since, all
/// pieces are checked before the first one is restored. Progress is due every half second, after a
/// piece or while the disk takes it in; it counts the pieces that are done.
class UndoPass : public Pass {
 public:
  /// `recording` is the path where the recording is now.
  UndoPass(QString recording, PassRecord record, const Clock& clock,
           const Disk& disk = TheSystemsDisk());

  [[nodiscard]] PassState Advance() override;
  [[nodiscard]] PassState Abort() override { return PassAborted{}; }

  /// The path of the record if the recording was changed by others, so that the record is of no
  /// use; empty otherwise.
  [[nodiscard]] QString ChangedRecord() const {
    return recorded_ ? recorded_->ChangedRecord() : QString();
  }

 private:
  // What is done next.
  enum class Turn {
    Open,
    Check,
    Recover,
    AwaitRecovered,
    Restore,
    AwaitRecord,
    WriteBack,
    AwaitPiece,
    Finish,
    AwaitEnd,
    Done,
  };
  // Progress, if it is due.
  using Step = WavResult<std::optional<PassProgress>>;

  [[nodiscard]] Step Work();
  [[nodiscard]] WavResult<void> Open();
  [[nodiscard]] Step CheckPiece();
  [[nodiscard]] Step RestorePiece();
  [[nodiscard]] Step AwaitPiece();
  [[nodiscard]] Step Await(const std::shared_ptr<DiskFile>& file, Turn then);
  [[nodiscard]] Step GoOnTo(Turn turn);
  [[nodiscard]] PassProgress Progress();

  QString path_;
  std::shared_ptr<WavFile> file_;
  std::optional<PassRecord> record_;  // until the recording is open
  std::optional<RecordedFile> recorded_;
  const Clock& clock_;
  std::optional<PassTimer> timer_;
  DiskWait wait_;
  Turn turn_ = Turn::Open;
  qint64 checked_ = 0;  // pieces from the first one on that nobody has changed
  qint64 left_ = 0;     // pieces that are to be restored
  qint64 mapped_ = 0;   // pieces that were at the beginning
  bool isUnchanged_ = false;
};

}  // namespace brindle
