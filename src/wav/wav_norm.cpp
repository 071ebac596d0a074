// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_norm.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <variant>

#include <QCheckBox>
#include <QPushButton>
#include <QString>

#include "base/input/file_drop.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/wiring.h"
#include "base/settings/settings.h"
#include "wav/file_info.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/output_choice.h"
#include "wav/pass.h"
#include "wav/pass_driver.h"
#include "wav/peak_labels.h"
#include "wav/peak_scan.h"
#include "wav/percent_choice.h"
#include "wav/progress_line.h"
#include "wav/tolerance_choice.h"
#include "wav/wav_error.h"
#include "wav/wav_header.h"
#include "wav/wav_text.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

// What a pass goes by from its start to its end, whatever is clicked meanwhile.
struct PassPlan {
  PassFiles files;
  bool isMultiBuffer = false;
  double tolerance = 0;        // percent
  double percent = 0;          // that the peaks are to reach
  std::optional<double> gain;  // nothing for a silent file

  [[nodiscard]] bool IsRequired() const {
    return gain && IsNormalizationRequired(100 * *gain, tolerance);
  }
  void AimFor(Peaks peaks) { gain = GainFor(peaks.lowest, peaks.highest, percent); }
};

class WavNorm : public Form {
 public:
  explicit WavNorm(Services& services)
      : Form(u"WavNorm"_s, u"WAV Normalizer (rev3)"_s),
        services_(services),
        record_(services.record) {
    MakeLayout();
    WireEvents();
    Form_Load();
    Focus().Begin(Mbuffer);
  }

  void WillClose() override {
    driver_.Stop();
    scan_.reset();
    pass_.reset();
  }

 protected:
  void AskToClose(const std::function<void()>& agreed) override {
    if (running_ == Running::Normalization) {
      AskWhetherToAbort(agreed);
    } else {
      agreed();
    }
  }

 private:
  // Busy: nothing can be started, nothing is to be aborted.
  enum class Running { Nothing, Busy, Scan, Normalization };

  Services& services_;
  Settings& record_;
  bool AbortRequested = false;
  float ScanThroughput = 0;  // MB/s
  Running running_ = Running::Nothing;
  QString source_;  // the file that is open
  Peaks peaks_;     // of the last scan, whichever file is open by now
  std::unique_ptr<PeakScan> scan_;
  std::unique_ptr<Normalization> pass_;
  PassDriver driver_{services_.clock,
                     [this](const PassProgress& progress) { progress_.Update(progress); },
                     [this] { return AbortRequested; }};
  FileDrop drop_{this};

  QCheckBox* Mbuffer = MakeCheckBox(
      u"Mbuffer"_s, u"Multi-buffering (faster for source/target on the same HDD)"_s,
      u"Disable multi-buffering when source and target are on two separate hard disks."_s);
  QCheckBox* AutoNorm =
      MakeCheckBox(u"AutoNorm"_s, u"Auto Normalize After Scan"_s,
                   u"Begin normalization immediately after scanning (no prompt)"_s);
  QCheckBox* RemFolders =
      MakeCheckBox(u"RemFolders"_s, u"Remember Folders"_s, u"Remember last folder/file loaded"_s);
  ToleranceChoice tolerance_{record_};
  OutputChoice output_{record_};
  FileInfo fileInfo_;
  PercentChoice percent_{record_};
  QPushButton* btnOpen =
      MakeButton(u"btnOpen"_s, u"Open WAV"_s, u"Select a 16bit PCM WAV file to normalize"_s);
  QPushButton* btnScan = MakeButton(u"btnScan"_s, u"Scan for Peaks"_s, u"Scan file for peaks"_s);
  QPushButton* btnNorm = MakeButton(u"btnNorm"_s, u"Normalize"_s, u"Normalize selected file"_s);
  QPushButton* Cancel = MakeButton(u"Cancel"_s, u"Abort"_s, u"Abort task"_s);
  PeakLabels peakLabels_;
  ProgressLine progress_;
  ValueLabel* Status = new ValueLabel(u"Status"_s, {}, {Scanning(), Normalizing()});

  static QString Scanning() { return u"Scanning..."_s; }
  static QString Normalizing() { return u"Normalizing..."_s; }

  void MakeLayout() {
    NameByLabel(u"Status"_s, {Status});
    KeepRoom({btnScan, btnNorm, Cancel});

    // clang-format off
    LayOut(this,
      Down({
        MakeFrame(u"Options"_s, {
          {Mbuffer, {}},
          {AutoNorm, {}},
          {RemFolders, {}},
          {tolerance_.Caption(), {tolerance_.Range(), tolerance_.Value()}},
        }),
        output_.InFrame(),
        fileInfo_.InFrame(),
        Across({
          percent_.Caption(), percent_.Field(), MakeLabel(u"%"_s), Item::Stretch(),
          peakLabels_.Line(),
        }, Spacing),
        Across({btnOpen, btnScan, btnNorm, Item::Stretch(), Cancel}, Spacing),
        progress_.Line(Status),
      }));
    // clang-format on
  }

  void WireEvents() {
    using Self = WavNorm;
    const Wires on(this);
    on(Mbuffer).Click(&Self::Mbuffer_Click);
    on(AutoNorm).Click(&Self::AutoNorm_Click);
    on(RemFolders).Click(&Self::RemFolders_Click);
    on(btnOpen).Click(&Self::btnOpen_Click);
    on(btnScan).Click(&Self::btnScan_Click);
    on(btnNorm).Click(&Self::btnNorm_Click);
    on(Cancel).Click(&Self::Cancel_Click);
    connect(&output_, &OutputChoice::Browse, this, &Self::Target_Click);
    connect(&drop_, &FileDrop::Dropped, this, &Self::OpenFile);
  }

  void Form_Load() {
    tolerance_.Form_Load();
    ResetLoad();
    peakLabels_.HidePeaks();
    progress_.HideProgress();
    AbortRequested = false;
    percent_.Form_Load();
    AutoNorm->setChecked(record_.WavAutoNormalize);
    Mbuffer->setChecked(record_.WavMultiBuffer);
    RemFolders->setChecked(record_.WavRememberFolders);
    output_.Form_Load();
  }

  void Mbuffer_Click() { record_.WavMultiBuffer = Mbuffer->isChecked(); }
  void AutoNorm_Click() { record_.WavAutoNormalize = AutoNorm->isChecked(); }
  void RemFolders_Click() { record_.WavRememberFolders = RemFolders->isChecked(); }

  void Target_Click() {
    if (running_ == Running::Nothing) {
      services_.dialogs.AskForTarget(
          this,
          {.name = u"DLG"_s,
           .title = u"Save As"_s,
           .filters = {u"PCM WAV file (*.wav)"_s},
           .start = record_.WavRememberFolders ? record_.WavTargetFile : QString()},
          u"wav"_s, [this](const QString& path) { output_.WriteTarget(path); });
    }
  }

  void btnOpen_Click() {
    if (running_ == Running::Nothing) {
      services_.dialogs.AskForExisting(
          this,
          {.name = u"DLG"_s,
           .title = u"Select Files"_s,
           .filters = {u"WAV files (*.wav)"_s, u"All Files (*.*) (*)"_s},
           .start = record_.WavRememberFolders ? record_.WavSourceFile : QString()},
          [this](const QString& path) { OpenFile(path); });
    }
  }

  void OpenFile(const QString& path) {
    if (running_ != Running::Nothing) {
      return;
    }
    const auto header = ReadHeader(path);
    if (!header) {
      services_.boxes.Ask(this, MessageOf(header.error()), BoxButtons::Ok,
                          [this](BoxAnswer) { ResetLoad(); });
      return;
    }
    fileInfo_.Write(path, *header);
    ShowFileInfo();
    peakLabels_.HidePeaks();
    record_.WavSourceFile = path;
    source_ = path;
  }

  void btnScan_Click() {
    if (running_ != Running::Nothing) {
      return;
    }
    Scan(Coverage::Usual,
         [this, goesOn = AutoNorm->isChecked()](Peaks found, const PassState& end) {
           peaks_ = found;
           peakLabels_.Write(found);
           ShowNormalizeReady();
           ShowFileInfo();
           HideCancel();
           peakLabels_.ShowPeaks();
           Status->Write({});
           if (const auto* error = std::get_if<WavError>(&end)) {
             services_.boxes.Tell(this, MessageOf(*error));
           } else if (goesOn) {
             btnNorm_Click();  // deliberately after an aborted scan, too
           }
         });
  }

  void Scan(Coverage coverage, const std::function<void(Peaks, const PassState&)>& then) {
    Cancel->show();
    Cancel->setFocus();
    HideFileInfo();
    progress_.ShowProgress();
    Status->Write(Scanning());
    SetRunning(Running::Scan);
    scan_ = std::make_unique<PeakScan>(source_, services_.clock, coverage);
    driver_.Drive(*scan_, [this, then](const PassState& end) {
      const auto found = scan_->Found();
      ScanThroughput = scan_->Throughput();
      scan_.reset();
      SetRunning(Running::Nothing);
      progress_.HideProgress();
      AbortRequested &= !std::holds_alternative<PassAborted>(end);
      then(found, end);
    });
  }

  // The peaks count as they are now, everything else as it is after the events that wait.
  void btnNorm_Click() {
    if (running_ == Running::Nothing) {
      running_ = Running::Busy;
      driver_.AfterEvents([this, peaks = peaks_] { ChoosePass(peaks); });
    }
  }

  void ChoosePass(Peaks peaks) {
    PassPlan plan{.files = {source_, output_.TargetPath(), output_.IsInPlace()},
                  .isMultiBuffer = Mbuffer->isChecked(),
                  .tolerance = tolerance_.Percent(),
                  .percent = percent_.TargetPercent(),
                  .gain = {}};
    plan.AimFor(peaks);
    const auto unseen = plan.IsRequired() ? CutOffUnseen(source_, *plan.gain) : CutOffWords();
    if (unseen.cutOff == 0) {
      OpenPass(plan);
    } else {
      AskAboutUnseen(plan, unseen);
    }
  }

  // What the scan deliberately leaves out may be louder than what it has seen.
  void AskAboutUnseen(const PassPlan& plan, const CutOffWords& unseen) {
    services_.boxes.Ask(this, ToQString(UnseenText(unseen.cutOff, unseen.words)), BoxButtons::YesNo,
                        [this, plan](BoxAnswer answer) {
                          if (answer == BoxAnswer::Yes) {
                            ScanWholeFile(plan);
                          } else {
                            OpenPass(plan);
                          }
                        });
  }

  void ScanWholeFile(const PassPlan& plan) {
    Scan(Coverage::EveryWord, [this, plan](Peaks found, const PassState& end) {
      ShowFileInfo();
      HideCancel();
      Status->Write({});
      if (const auto* error = std::get_if<WavError>(&end)) {
        services_.boxes.Tell(this, MessageOf(*error));
      } else if (std::holds_alternative<PassCompleted>(end)) {
        auto wholePlan = plan;
        wholePlan.AimFor(found);
        OpenPass(wholePlan);
      }
    });
  }

  void OpenPass(const PassPlan& plan) {
    running_ = Running::Nothing;
    if (!plan.IsRequired()) {
      services_.boxes.Tell(this, u"Normalization is not required"_s);
      return;
    }
    Status->Write(Normalizing());
    Cancel->show();
    Cancel->setFocus();
    HideNormalize();
    percent_.Field()->setEnabled(false);
    peakLabels_.HidePeaks();
    progress_.ShowProgress();
    SetRunning(Running::Normalization);
    pass_ = std::make_unique<Normalization>(plan.files);
    const auto opened = pass_->Open();
    if (pass_->IsInPlace() && !plan.files.isInPlace) {
      output_.SelectSource();
    }
    if (!opened) {
      EndPass(opened.error());
    } else if (*opened == Normalization::Opened::Ready) {
      RunPass(plan);
    } else {
      AskToOverwrite(plan);
    }
  }

  void AskToOverwrite(const PassPlan& plan) {
    services_.boxes.Ask(this, u"The file already exists, overwrite it?"_s,
                        BoxButtons::YesNoDefaultNo, [this, plan](BoxAnswer answer) {
                          if (answer != BoxAnswer::Yes) {
                            EndPass();
                          } else if (const auto overwritten = pass_->Overwrite(); !overwritten) {
                            EndPass(overwritten.error());
                          } else {
                            RunPass(plan);
                          }
                        });
  }

  void RunPass(const PassPlan& plan) {
    Mbuffer->setEnabled(false);
    pass_->Start(GainTable(*plan.gain), plan.isMultiBuffer ? Buffering::Multi : Buffering::Single,
                 services_.clock);
    driver_.Drive(*pass_, [this, plan](const PassState& end) {
      if (std::holds_alternative<PassCompleted>(end)) {
        TellStatistics(plan);
      } else if (const auto* error = std::get_if<WavError>(&end)) {
        EndPass(*error);
      } else {
        EndPass();
      }
    });
  }

  // The files are closed, and the events that wait handled, before.
  void TellStatistics(const PassPlan& plan) {
    const auto text = StatisticsText({.scanThroughput = ScanThroughput,
                                      .normalizationThroughput = pass_->Throughput(),
                                      .amplification = 100 * *plan.gain,
                                      .isMultiBuffer = plan.isMultiBuffer});
    pass_.reset();
    driver_.AfterEvents([this, text] {
      running_ = Running::Busy;
      progress_.HideProgress();
      services_.boxes.Ask(this, ToQString(text), BoxButtons::Ok, [this](BoxAnswer) { EndPass(); });
    });
  }

  void EndPass(const std::optional<WavError>& error = {}) {
    pass_.reset();
    SetRunning(Running::Nothing);
    progress_.HideProgress();
    Mbuffer->setEnabled(true);
    HideCancel();
    percent_.Field()->setEnabled(true);
    Status->Write({});
    HideNormalize();
    if (error) {
      services_.boxes.Tell(this, MessageOf(*error));
    }
  }

  // Taken at the next update of a scan or pass that has one. Deliberately kept by a pass that has
  // none any more: the next scan stops by it.
  void Cancel_Click() {
    if (running_ == Running::Normalization) {
      AskWhetherToAbort([this] { AbortRequested = true; });
    } else {
      AbortRequested = true;
    }
  }

  void AskWhetherToAbort(const std::function<void()>& agreed) {
    services_.boxes.Ask(
        this,
        u"Aborting normalization is not recommended. Output file will be damaged.\r\n"
        "                      Really abort normalization?"_s,
        BoxButtons::YesNoDefaultNo, [agreed](BoxAnswer answer) {
          if (answer == BoxAnswer::Yes) {
            agreed();
          }
        });
  }

  void SetRunning(Running running) {
    running_ = running;
    const bool isIdle = running_ == Running::Nothing;
    btnOpen->setEnabled(isIdle);
    btnScan->setEnabled(isIdle);
    btnNorm->setEnabled(isIdle);
    output_.SetIdle(isIdle);
    drop_.SetAccepting(isIdle);
  }

  void HideCancel() {
    if (focusWidget() == Cancel) {
      btnScan->setFocus();
    }
    Cancel->hide();
  }

  void ResetLoad() {
    HideNormalize();
    HideFileInfo();
    HideCancel();
  }

  void ShowNormalizeReady() {
    btnNorm->show();
    fileInfo_.SetVisible(true);
  }

  void HideNormalize() { btnNorm->hide(); }
  void ShowFileInfo() { SetFileInfoVisible(true); }
  void HideFileInfo() { SetFileInfoVisible(false); }
  void SetFileInfoVisible(bool visible) {
    btnScan->setVisible(visible);
    fileInfo_.SetVisible(visible);
  }
};

}  // namespace

std::unique_ptr<Form> MakeWavNorm(Services& services) {
  return std::make_unique<WavNorm>(services);
}

}  // namespace brindle
