// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_norm.h"

#include <functional>
#include <memory>
#include <optional>
#include <variant>

#include <QString>
#include <QStringList>

#include "base/input/file_dialogs.h"
#include "base/input/file_drop.h"
#include "base/input/labels.h"
#include "base/input/layout.h"
#include "base/input/message_boxes.h"
#include "base/input/number_fields.h"
#include "base/input/wiring.h"
#include "base/settings/settings.h"
#include "wav/file_info.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/output_choice.h"
#include "wav/pass.h"
#include "wav/pass_driver.h"
#include "wav/pass_options.h"
#include "wav/pass_plan.h"
#include "wav/peak_labels.h"
#include "wav/peak_scan.h"
#include "wav/percent_choice.h"
#include "wav/sound_view.h"
#include "wav/task_panel.h"
#include "wav/tolerance_choice.h"
#include "wav/wav_error.h"
#include "wav/wav_header.h"
#include "wav/wav_text.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

class WavNorm : public Form {
  // Busy: nothing can be started, nothing is to be aborted.
  enum class Running { Nothing, Busy, Scan, Normalization };

  Services& services_;
  Settings& record_;
  bool AbortRequested = false;
  float ScanThroughput = 0;  // MB/s
  Running running_ = Running::Nothing;
  QString source_;  // the file that is open
  Peaks peaks_;     // of the last scan, whichever file is open by now
  PassPlan plan_;   // of the pass that runs, or is asked about
  std::unique_ptr<PeakScan> scan_;
  std::unique_ptr<Normalization> pass_;
  PassDriver driver_{services_.clock,
                     [this](const PassProgress& progress) { ShowProgress(progress); },
                     [this] { return AbortRequested; }};
  FileDrop drop_{this};

  PassOptions options_{record_};
  ToleranceChoice tolerance_{record_};
  OutputChoice output_{record_};
  FileInfo fileInfo_;
  SoundView sound_;
  PercentChoice percent_{record_};
  PeakLabels peakLabels_;
  TaskPanel tasks_;

 public:
  explicit WavNorm(Services& services)
      : Form(u"WavNorm"_s, u"WAV Normalizer (rev3)"_s),
        services_(services),
        record_(services.record) {
    // clang-format off
    LayOut(this,
      Down({
        options_.InFrame({tolerance_.Caption(), {tolerance_.Range(), tolerance_.Value()}}),
        output_.InFrame(),
        fileInfo_.InFrame(&sound_),
        Across({
          percent_.Caption(), percent_.Field(), MakeLabel(u"%"_s), Item::Stretch(),
          peakLabels_.Line(),
        }, Spacing),
        tasks_.Buttons(),
        tasks_.Progress(),
      }));
    // clang-format on

    WireEvents();
    Form_Load();
    Focus().Begin(options_.First());
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
  void WireEvents() {
    const Wires on(this);
    on(tasks_.btnOpen).Click(&WavNorm::btnOpen_Click);
    on(tasks_.btnScan).Click(&WavNorm::btnScan_Click);
    on(tasks_.btnNorm).Click(&WavNorm::btnNorm_Click);
    on(tasks_.Cancel).Click(&WavNorm::Cancel_Click);
    connect(&output_, &OutputChoice::Browse, this, &WavNorm::Target_Click);
    connect(&percent_, &PercentChoice::Changed, &sound_, &SoundView::AimAt);
    connect(&drop_, &FileDrop::Dropped, this, &WavNorm::OpenFile);
  }

  void Form_Load() {
    tolerance_.Form_Load();
    ResetLoad();
    peakLabels_.HidePeaks();
    tasks_.HideProgress();
    AbortRequested = false;
    percent_.Form_Load();
    options_.Form_Load();
    output_.Form_Load();
  }

  // --- The files ---

  [[nodiscard]] FileQuestion Question(const QString& title, const QStringList& filters,
                                      const QString& path) const {
    return {.name = u"DLG"_s,
            .title = title,
            .filters = filters,
            .start = record_.WavRememberFolders ? path : QString()};
  }

  void Target_Click() {
    if (running_ == Running::Nothing) {
      services_.dialogs.AskForTarget(
          this, Question(u"Save As"_s, {u"PCM WAV file (*.wav)"_s}, record_.WavTargetFile),
          u"wav"_s, [this](const QString& path) { output_.WriteTarget(path); });
    }
  }

  void btnOpen_Click() {
    const QStringList filters{u"WAV files (*.wav)"_s, u"All Files (*.*) (*)"_s};
    if (running_ == Running::Nothing) {
      services_.dialogs.AskForExisting(this,
                                       Question(u"Select Files"_s, filters, record_.WavSourceFile),
                                       [this](const QString& path) { OpenFile(path); });
    }
  }

  void OpenFile(const QString& path) {
    if (running_ != Running::Nothing) {
      return;
    }
    const auto header = ReadHeader(path);
    if (!header) {
      Ask(MessageOf(header.error()), BoxButtons::Ok, [this](BoxAnswer) { ResetLoad(); });
      return;
    }
    fileInfo_.Write(path, *header);
    ShowFileInfo();
    sound_.Clear();
    peakLabels_.HidePeaks();
    record_.WavSourceFile = path;
    source_ = path;
  }

  // --- The scan ---

  void btnScan_Click() {
    if (running_ != Running::Nothing) {
      return;
    }
    const bool goesOn = options_.NormalizesAfterScan();
    Scan(Coverage::Usual, [this, goesOn](Peaks found, const PassState& end) {
      peaks_ = found;
      peakLabels_.Write(found);
      tasks_.btnNorm.show();
      ShowFileInfo();
      tasks_.HideCancel();
      peakLabels_.ShowPeaks();
      tasks_.ClearStatus();
      if (const auto* error = std::get_if<WavError>(&end)) {
        Tell(MessageOf(*error));
      } else if (goesOn) {
        btnNorm_Click();  // deliberately after an aborted scan, too
      }
    });
  }

  void Scan(Coverage coverage, const std::function<void(Peaks, const PassState&)>& then) {
    tasks_.BeginScan();
    HideFileInfo();
    SetRunning(Running::Scan);
    scan_ = std::make_unique<PeakScan>(source_, services_.clock, coverage);
    driver_.Drive(*scan_, [this, coverage, then](const PassState& end) {
      const auto found = scan_->Found();
      sound_.ShowScanned(scan_->Picture(), coverage == Coverage::Usual ? found : peaks_);
      ScanThroughput = scan_->Throughput();
      scan_.reset();
      SetRunning(Running::Nothing);
      tasks_.HideProgress();
      AbortRequested &= !std::holds_alternative<PassAborted>(end);
      then(found, end);
    });
  }

  // --- The pass ---

  // The peaks count as they are now, everything else as it is after the events that wait.
  void btnNorm_Click() {
    if (running_ == Running::Nothing) {
      running_ = Running::Busy;
      driver_.AfterEvents([this, peaks = peaks_] { ChoosePass(peaks); });
    }
  }

  void ChoosePass(Peaks peaks) {
    plan_ = {.files = {source_, output_.TargetPath(), output_.IsInPlace()},
             .buffering = options_.ChosenBuffering(),
             .tolerance = tolerance_.Percent(),
             .percent = percent_.TargetPercent()};
    plan_.AimFor(peaks);
    const auto unseen = plan_.IsRequired() ? CutOffUnseen(source_, *plan_.gain) : CutOffWords();
    if (unseen.cutOff == 0) {
      OpenPass();
      return;
    }
    // What the scan deliberately leaves out is louder than what it has seen.
    Ask(ToQString(UnseenText(unseen.cutOff, unseen.words)), BoxButtons::YesNo,
        [this](BoxAnswer answer) { answer == BoxAnswer::Yes ? ScanWholeFile() : OpenPass(); });
  }

  void ScanWholeFile() {
    Scan(Coverage::EveryWord, [this](Peaks found, const PassState& end) {
      ShowFileInfo();
      tasks_.HideCancel();
      tasks_.ClearStatus();
      if (const auto* error = std::get_if<WavError>(&end)) {
        Tell(MessageOf(*error));
      } else if (std::holds_alternative<PassCompleted>(end)) {
        plan_.AimFor(found);
        OpenPass();
      }
    });
  }

  void OpenPass() {
    running_ = Running::Nothing;
    if (!plan_.IsRequired()) {
      Tell(u"Normalization is not required"_s);
      return;
    }
    tasks_.BeginNormalization();
    HideNormalize();
    percent_.Field()->setEnabled(false);
    peakLabels_.HidePeaks();
    SetRunning(Running::Normalization);
    pass_ = std::make_unique<Normalization>(plan_.files);
    const auto opened = pass_->Open();
    if (pass_->IsInPlace() && !plan_.files.isInPlace) {
      output_.SelectSource();
    }
    if (!opened) {
      EndPass(opened.error());
    } else if (*opened == Normalization::Opened::Ready) {
      RunPass();
    } else {
      Ask(u"The file already exists, overwrite it?"_s, BoxButtons::YesNoDefaultNo,
          [this](BoxAnswer answer) { answer == BoxAnswer::Yes ? OverwriteAndRun() : EndPass(); });
    }
  }

  void OverwriteAndRun() {
    if (const auto overwritten = pass_->Overwrite(); !overwritten) {
      EndPass(overwritten.error());
    } else {
      RunPass();
    }
  }

  void RunPass() {
    options_.SetBufferingEnabled(false);
    pass_->Start(GainTable(*plan_.gain), plan_.buffering, services_.clock);
    sound_.BeginPass(plan_.percent, *plan_.gain, pass_->IsInPlace());
    driver_.Drive(*pass_, [this](const PassState& end) {
      sound_.EndPass(end);
      if (std::holds_alternative<PassCompleted>(end)) {
        TellStatistics();
      } else if (const auto* error = std::get_if<WavError>(&end)) {
        EndPass(*error);
      } else {
        EndPass();
      }
    });
  }

  // The files are closed, and the events that wait handled, before.
  void TellStatistics() {
    const auto text = StatisticsText({.scanThroughput = ScanThroughput,
                                      .normalizationThroughput = pass_->Throughput(),
                                      .amplification = plan_.Amplification(),
                                      .isMultiBuffer = plan_.buffering == Buffering::Multi});
    pass_.reset();
    driver_.AfterEvents([this, text] {
      running_ = Running::Busy;
      tasks_.HideProgress();
      Ask(ToQString(text), BoxButtons::Ok, [this](BoxAnswer) { EndPass(); });
    });
  }

  void EndPass(const std::optional<WavError>& error = {}) {
    pass_.reset();
    SetRunning(Running::Nothing);
    tasks_.HideProgress();
    options_.SetBufferingEnabled(true);
    tasks_.HideCancel();
    percent_.Field()->setEnabled(true);
    tasks_.ClearStatus();
    HideNormalize();
    if (error) {
      Tell(MessageOf(*error));
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
    Ask(ToQString(AbortText()), BoxButtons::YesNoDefaultNo, [agreed](BoxAnswer answer) {
      if (answer == BoxAnswer::Yes) {
        agreed();
      }
    });
  }

  // --- What is shown ---

  void ShowProgress(const PassProgress& progress) {
    tasks_.ShowProgress(progress);
    scan_ ? sound_.ShowScan(scan_->Picture()) : sound_.ShowPass(progress);
  }

  void Ask(const QString& text, BoxButtons buttons, const MessageBoxes::WhenAnswered& answered) {
    services_.boxes.Ask(this, text, buttons, answered);
  }
  void Tell(const QString& text) { services_.boxes.Tell(this, text); }

  void SetRunning(Running running) {
    running_ = running;
    const bool isIdle = running_ == Running::Nothing;
    tasks_.SetIdle(isIdle);
    output_.SetIdle(isIdle);
    drop_.SetAccepting(isIdle);
  }

  void ResetLoad() {
    HideNormalize();
    HideFileInfo();
    tasks_.HideCancel();
  }

  void HideNormalize() { tasks_.btnNorm.hide(); }
  void ShowFileInfo() { SetFileInfoVisible(true); }
  void HideFileInfo() { SetFileInfoVisible(false); }
  void SetFileInfoVisible(bool visible) {
    tasks_.btnScan.setVisible(visible);
    fileInfo_.SetVisible(visible);
  }
};

}  // namespace

std::unique_ptr<Form> MakeWavNorm(Services& services) {
  return std::make_unique<WavNorm>(services);
}

}  // namespace brindle
