// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QCheckBox>
#include <QPushButton>
#include <QString>

#include "base/input/file_drop.h"
#include "base/input/form.h"
#include "base/input/labels.h"
#include "base/settings/settings.h"
#include "base/windows/services.h"
#include "wav/file_info.h"
#include "wav/normalization.h"
#include "wav/output_choice.h"
#include "wav/pass_progress.h"
#include "wav/peak_labels.h"
#include "wav/peak_scan.h"
#include "wav/percent_choice.h"
#include "wav/progress_line.h"
#include "wav/tolerance_choice.h"
#include "wav/wav_file.h"
#include "wav/wav_text.h"

namespace brindle {

/// The WAV normalizer: opens a PCM WAV file, scans it for its peaks, and amplifies it so that they
/// reach a percentage of the 16-bit range. Scan and pass run inside their button's click and let
/// events in at every update.
class WavNorm : public Form, private PassObserver, private TargetQuestions {
  Q_OBJECT

 public:
  explicit WavNorm(Services& services);

  /// Asks before a normalization is aborted; a scan ends without a question.
  [[nodiscard]] bool AgreesToClose() override;
  void WillClose() override { isClosing_ = true; }

 private:
  // Busy: nothing can be started, nothing is to be aborted.
  enum class Running { Nothing, Busy, Scan, Normalization };
  // What a pass goes by from its start to its end, whatever is clicked meanwhile.
  struct PassOptions {
    PassFiles files;
    bool isMultiBuffer = false;
    double gain = 1;
  };

  void MakeLayout();
  void WireEvents();

  void Form_Load();
  void Mbuffer_Click();
  void AutoNorm_Click();
  void RemFolders_Click();
  void Target_Click();
  void btnOpen_Click();
  void btnScan_Click();
  void btnNorm_Click();
  void Cancel_Click();

  void OpenFile(const QString& path);
  [[nodiscard]] PeakScan Scan(Coverage coverage);
  [[nodiscard]] std::optional<PassOptions> ChosenPass();
  [[nodiscard]] bool WantsWholeFile(double gain);
  [[nodiscard]] std::optional<PeakScan> ScanWholeFile();
  [[nodiscard]] std::optional<WavError> Normalize(const PassOptions& options);
  [[nodiscard]] bool ReallyAbort();
  std::optional<BoxAnswer> Ask(const QString& text, BoxButtons buttons = BoxButtons::Ok);

  [[nodiscard]] bool Update(const PassProgress& progress) override;
  [[nodiscard]] bool MayOverwrite() override;
  void WorksInPlace() override { output_.SelectSource(); }

  void SetRunning(Running running);
  void ResetLoad();
  void ShowNormalizeReady();
  void HideNormalize() { btnNorm->hide(); }
  void ShowFileInfo() { SetFileInfoVisible(true); }
  void HideFileInfo() { SetFileInfoVisible(false); }
  void SetFileInfoVisible(bool visible);
  void HideCancel();

  Services& services_;
  Settings& record_;
  bool AbortRequested = false;
  float ScanThroughput = 0;  // MB/s
  Running running_ = Running::Nothing;
  QString source_;  // the file that is open
  FileDrop drop_{this};
  bool isClosing_ = false;  // from then on no control is touched

  QCheckBox* Mbuffer;
  QCheckBox* AutoNorm;
  QCheckBox* RemFolders;
  ToleranceChoice tolerance_;
  OutputChoice output_;
  FileInfo fileInfo_;
  PercentChoice percent_;
  QPushButton* btnOpen;
  QPushButton* btnScan;
  QPushButton* btnNorm;
  QPushButton* Cancel;
  PeakLabels peaks_;
  ProgressLine progress_;
  ValueLabel* Status;
};

}  // namespace brindle
