// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QObject>
#include <QString>
#include <QWidget>

#include "base/files/disk.h"
#include "base/input/message_boxes.h"
#include "base/windows/services.h"
#include "wav/level_range.h"
#include "wav/normalization.h"
#include "wav/normalizer_panels.h"
#include "wav/pass.h"
#include "wav/pass_plan.h"
#include "wav/peak_scan.h"
#include "wav/task_runner.h"
#include "wav/undo_pass.h"
#include "wav/wav_error.h"
#include "wav/way_back.h"

namespace brindle {

/// What the normalizer does with the file that is open, one task at a time: scan it, normalize it,
/// take that back or go on with it. Asks and reports over the window, and shows what runs on its
/// panels.
class NormalizerTasks : public QObject {
  Q_OBJECT

 public:
  /// Opens a file in the window, and tells whether it could.
  using OpenFile = std::function<bool(const QString& path)>;

  NormalizerTasks(QWidget& window, Services& services, NormalizerPanels& panels, OpenFile open);

  [[nodiscard]] TaskRunner& Runner() { return runner_; }

  /// Another file is open. Offers to finish or undo a pass over it that was interrupted.
  void TakeFile(const QString& path);
  /// Looks for a pass over any file that was interrupted and, once the window is shown, offers to
  /// finish or undo it.
  void LookForInterrupted();

  // The clicks.
  void Scan();
  void Normalize();
  void Undo();

  /// Drops everything.
  void Stop();

 private:
  using Running = TaskRunner::Running;

  void Scan(Coverage coverage, const std::function<void(Peaks, const PassState&)>& then);
  void ShowFound(Peaks found, const PassState& end);

  void ChoosePass(Peaks peaks);
  void ScanWholeFile();
  void OpenPass();
  void OverwriteAndRun();
  void KeepRecordAndRun();
  void RunPass();
  void DrivePass(const std::function<void()>& completed);
  void TellStatistics();
  void EndPass(const std::optional<WavError>& error = {});

  void Offer(const QString& text, const QString& path);
  void Finish();
  void EndUndo(const PassState& end);
  void LookForWayBack();

  void ShowProgress(const PassProgress& progress);
  void Ask(const QString& text, BoxButtons buttons, const MessageBoxes::WhenAnswered& answered);
  void Tell(const QString& text) { services_.boxes.Tell(&window_, text); }

  QWidget& window_;
  Services& services_;
  OpenFile open_;
  NormalizerPanels& panels_;
  float ScanThroughput = 0;           // MB/s
  QString source_;                    // the file that is open
  Peaks peaks_;                       // of the last scan, whichever file is open by now
  std::optional<FileStamp> scanned_;  // the file that this scan has read to its end, if it has
  PassPlan plan_;                     // of the pass that runs, or is asked about
  WayBack wayBack_;
  std::unique_ptr<PeakScan> scan_;
  std::unique_ptr<Normalization> pass_;
  std::unique_ptr<UndoPass> undo_;
  TaskRunner runner_;
};

}  // namespace brindle
