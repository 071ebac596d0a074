// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QString>

#include "app/input/file_drop.h"
#include "app/input/form.h"
#include "app/input/labels.h"
#include "app/input/slider.h"
#include "app/input/text_field.h"
#include "app/settings/settings.h"
#include "app/windows/services.h"
#include "wav/file_info.h"
#include "wav/normalization.h"
#include "wav/output_choice.h"
#include "wav/pass_progress.h"
#include "wav/peak_labels.h"
#include "wav/progress_line.h"
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
  void Toler_Change();
  void Target_Click();
  void PercNorm_Change();
  void btnOpen_Click();
  void btnScan_Click();
  void btnNorm_Click();
  void Cancel_Click();

  void OpenFile(const QString& path);
  [[nodiscard]] double TargetPercent();
  [[nodiscard]] std::optional<WavError> Normalize(const PassOptions& options);
  [[nodiscard]] bool ReallyAbort();
  std::optional<BoxAnswer> Ask(const QString& text, BoxButtons buttons = BoxButtons::Ok);
  void ShowStats(const PassStatistics& statistics);

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
  FileDrop drop_{this};
  bool isClosing_ = false;  // from then on no control is touched

  QCheckBox* Mbuffer;
  QCheckBox* AutoNorm;
  QCheckBox* RemFolders;
  Slider* Toler;
  ValueLabel* TolerTxt;
  QLabel* Label4;
  OutputChoice output_;
  FileInfo fileInfo_;
  QLabel* Label3;
  TextField* PercNorm;
  QPushButton* btnOpen;
  QPushButton* btnScan;
  QPushButton* btnNorm;
  QPushButton* Cancel;
  PeakLabels peaks_;
  ProgressLine progress_;
  ValueLabel* Status;
};

}  // namespace brindle
