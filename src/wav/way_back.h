// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include <QString>
#include <QStringList>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "base/files/system_disk.h"
#include "base/time/clock.h"
#include "wav/buffering.h"
#include "wav/normalization.h"
#include "wav/pass_records.h"
#include "wav/undo_pass.h"
#include "wav/wav_error.h"

namespace brindle {

/// What can be taken back or gone on with: the last pass in place over the recording that is open.
class WayBack {
 public:
  explicit WayBack(QString folder, const Disk& disk = TheSystemsDisk());

  /// Looks for the record of a recording, which is then the one that is open.
  void LookFor(const QString& recording);
  /// Looks for the newest interrupted pass over a recording that is still there. It is not open.
  [[nodiscard]] std::optional<FoundRecord> FindInterrupted() const {
    return records_.FindInterrupted();
  }
  /// Messages about records that are damaged or of another version, once for each, and about those
  /// that cannot be read.
  [[nodiscard]] QStringList SetUnusableAside() const;

  /// Whether the pass over the open recording can be taken back.
  [[nodiscard]] bool IsThere() const { return found_.has_value(); }
  /// Whether it ended before it was complete.
  [[nodiscard]] bool IsInterrupted() const { return found_ && !found_->isComplete; }
  /// The question about an interrupted pass.
  [[nodiscard]] QString Question() const;

  /// Has a pass in place that was opened keep a record. One that maps nothing needs none.
  [[nodiscard]] FileResult<void> Keep(Normalization& pass, double gain, Buffering buffering,
                                      const KnownLevels& levels) const;
  /// The pass that makes the recording what it was; Forget() when it is completed.
  [[nodiscard]] FileResult<std::unique_ptr<UndoPass>> Undo(const Clock& clock) const;
  /// The rest of an interrupted pass, started.
  [[nodiscard]] WavResult<std::unique_ptr<Normalization>> Finish(const Clock& clock) const;

  /// Removes the record, which has been taken back.
  void Forget();
  /// The recording was changed since: its record is kept by another name, and not found any more.
  /// Does nothing for an empty path.
  void SetAside(const QString& record) const;
  /// The pass over this recording is complete: removes the records that it replaces.
  void Complete(const QString& recording);

 private:
  const Disk& disk_;
  PassRecords records_;
  QString recording_;
  std::optional<FoundRecord> found_;
};

}  // namespace brindle
