// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include <QLatin1StringView>
#include <QString>
#include <QStringList>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "base/files/system_disk.h"
#include "wav/pass_record.h"

namespace brindle {

/// A record in the folder of records.
struct FoundRecord {
  QString path;
  PassFacts facts;
  qint64 boundary = 0;      ///< pieces that are mapped
  qint64 length = 0;        ///< bytes of the record
  bool isComplete = false;  ///< else the pass was interrupted

  /// How much of the recording the pass had mapped, in whole percent of its length, rounded down.
  [[nodiscard]] int Percent() const;
};

/// What a look at the records found that is none of them.
struct RecordProblems {
  QStringList setAside;               ///< the paths that they have now
  std::vector<FileError> unreadable;  ///< which stay as they are
};

/// The folder of the records of passes. Each of its functions looks at the folder anew, since other
/// programs of this kind may use it.
class PassRecords {
 public:
  /// How much is kept of passes that are complete: the newest one, and more up to these numbers.
  static constexpr std::size_t MostRecords = 50;
  static constexpr qint64 MostBytes = 1'073'741'824;

  explicit PassRecords(QString folder, const Disk& disk = TheSystemsDisk());

  [[nodiscard]] const QString& Folder() const { return folder_; }

  /// The records of passes that can be taken back or gone on with, the newest first. Leaves out
  /// those in use. Removes those that are of no use any more. With `problems`, what is damaged,
  /// foreign or of a newer version is set aside by another name.
  [[nodiscard]] std::vector<FoundRecord> Find(RecordProblems* problems = nullptr) const;

  /// The newest record of a recording, by its path, or by its number on its volume if it was
  /// renamed.
  [[nodiscard]] std::optional<FoundRecord> FindFor(const QString& recording) const;

  /// The newest record of an interrupted pass over a recording that is still there, and was not
  /// changed by a later pass.
  [[nodiscard]] std::optional<FoundRecord> FindInterrupted() const;

  /// A record for a pass that is about to begin, on the disk with all the room it needs. The time
  /// and a name for it are chosen here.
  [[nodiscard]] FileResult<PassRecord> Create(PassFacts facts) const;

  /// Opens a record to go on with it. The error is "another program is using the file" if another
  /// one does.
  [[nodiscard]] FileResult<PassRecord> Open(const FoundRecord& found) const;

  /// Removes a record; one that cannot be removed stays.
  void Remove(const QString& path) const;

  /// Keeps a record that is of no use by another name.
  void SetAside(const QString& path) const;

  /// Removes the older records of complete passes over this recording, and the oldest ones of
  /// complete passes above what is kept, after those that were set aside. Called when a pass is
  /// complete.
  void RemoveOlderThan(const PassFacts& newest) const;

 private:
  // What a file in the folder is good for.
  enum class Use { Record, InUse, None, Unusable };

  [[nodiscard]] std::optional<FoundRecord> NewestOf(const QString& recording,
                                                    const std::vector<FoundRecord>& all) const;
  [[nodiscard]] FileResult<Use> LookAt(const QString& path, std::vector<FoundRecord>& found) const;
  [[nodiscard]] static Use UseOf(RecordFault fault);
  [[nodiscard]] QStringList FilesNamed(QLatin1StringView ending) const;
  [[nodiscard]] bool IsOf(const PassFacts& facts, const QString& recording) const;

  QString folder_;
  const Disk& disk_;
};

}  // namespace brindle
