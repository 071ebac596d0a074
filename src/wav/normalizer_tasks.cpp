// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/normalizer_tasks.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <variant>

#include <QFileInfo>
#include <QString>
#include <QWidget>

#include "base/files/file_error.h"
#include "base/input/message_boxes.h"
#include "base/input/number_fields.h"
#include "base/settings/settings.h"
#include "base/settings/settings_file.h"
#include "base/windows/services.h"
#include "wav/gain.h"
#include "wav/level_range.h"
#include "wav/normalization.h"
#include "wav/normalizer_panels.h"
#include "wav/pass.h"
#include "wav/pass_plan.h"
#include "wav/peak_scan.h"
#include "wav/task_runner.h"
#include "wav/undo_pass.h"
#include "wav/wav_error.h"
#include "wav/wav_text.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView EmptyLine("\r\n\r\n");

}  // namespace

NormalizerTasks::NormalizerTasks(QWidget& window, Services& services, NormalizerPanels& panels,
                                 OpenFile open)
    : window_(window),
      services_(services),
      open_(std::move(open)),
      panels_(panels),
      wayBack_(UndoFolder(services.record.AppFolder)),
      runner_(window, services.boxes, services.clock,
              [this](const PassProgress& progress) { ShowProgress(progress); }) {
  connect(&runner_, &TaskRunner::IdleChanged, this,
          [this](bool isIdle) { panels_.SetIdle(isIdle); });
}

void NormalizerTasks::TakeFile(const QString& path) {
  source_ = path;
  panels_.sound.Clear();
  LookForWayBack();
  if (wayBack_.IsInterrupted()) {
    Offer(wayBack_.Question(), path);
  }
}

void NormalizerTasks::LookForInterrupted() {
  const auto messages = wayBack_.SetUnusableAside();
  const auto found = wayBack_.FindInterrupted();
  if (messages.isEmpty() && !found) {
    return;
  }
  const auto offer = [this, found] {
    if (found && source_.isEmpty()) {
      wayBack_.LookFor(found->facts.path);
      if (wayBack_.IsInterrupted()) {
        Offer(wayBack_.Question(), found->facts.path);
      }
    }
  };
  runner_.AfterEvents([this, messages, offer] {
    if (messages.isEmpty()) {
      offer();
    } else {
      Ask(messages.join(EmptyLine), BoxButtons::Ok, [offer](BoxAnswer) { offer(); });
    }
  });
}

// --- The scan ---

void NormalizerTasks::Scan() {
  if (!runner_.IsIdle()) {
    return;
  }
  const bool goesOn = panels_.options.NormalizesAfterScan();
  Scan(Coverage::Usual, [this, goesOn](Peaks found, const PassState& end) {
    ShowFound(found, end);
    if (goesOn && !std::holds_alternative<WavError>(end)) {
      Normalize();  // deliberately after an aborted scan, too
    }
  });
}

void NormalizerTasks::Scan(Coverage coverage,
                           const std::function<void(Peaks, const PassState&)>& then) {
  panels_.tasks.BeginScan();
  panels_.HideFileInfo();
  runner_.SetRunning(Running::Scan);
  scan_ = std::make_unique<PeakScan>(source_, services_.clock, coverage);
  runner_.Drive(*scan_, [this, coverage, then](const PassState& end) {
    const auto found = scan_->Found();
    panels_.sound.ShowScanned(scan_->Picture(), coverage == Coverage::Usual ? found : peaks_);
    ScanThroughput = scan_->Throughput();
    scanned_ = std::holds_alternative<PassCompleted>(end) ? scan_->Scanned() : std::nullopt;
    scan_.reset();
    runner_.SetRunning(Running::Nothing);
    panels_.tasks.HideProgress();
    if (std::holds_alternative<PassAborted>(end)) {
      runner_.ForgetAbort();
    }
    then(found, end);
  });
}

void NormalizerTasks::ShowFound(Peaks found, const PassState& end) {
  peaks_ = found;
  panels_.peaks.Write(found);
  panels_.tasks.btnNorm.show();
  panels_.ShowFileInfo();
  panels_.tasks.HideCancel();
  panels_.peaks.ShowPeaks();
  panels_.tasks.ClearStatus();
  if (const auto* error = std::get_if<WavError>(&end)) {
    Tell(MessageOf(*error));
  }
}

// --- The pass ---

// The peaks count as they are now, everything else as it is after the events that wait.
void NormalizerTasks::Normalize() {
  if (runner_.IsIdle()) {
    runner_.BeBusy();
    runner_.AfterEvents([this, peaks = peaks_] { ChoosePass(peaks); });
  }
}

void NormalizerTasks::ChoosePass(Peaks peaks) {
  plan_ = {.files = {source_, panels_.output.TargetPath(), panels_.output.IsInPlace()},
           .buffering = panels_.options.ChosenBuffering(),
           .tolerance = panels_.tolerance.Percent(),
           .percent = panels_.percent.TargetPercent()};
  plan_.AimFor(peaks);
  const auto unseen = plan_.IsRequired() ? CutOffUnseen(source_, *plan_.gain) : CutOffWords();
  if (scanned_) {
    plan_.levels = {.levels = {.lowest = peaks.lowest, .highest = peaks.highest}, .of = scanned_};
    plan_.levels.levels.Include(unseen.levels);
  }
  if (unseen.cutOff == 0) {
    OpenPass();
    return;
  }
  // What the scan deliberately leaves out is louder than what it has seen.
  Ask(ToQString(UnseenText(unseen.cutOff, unseen.words)), BoxButtons::YesNo,
      [this](BoxAnswer answer) { answer == BoxAnswer::Yes ? ScanWholeFile() : OpenPass(); });
}

void NormalizerTasks::ScanWholeFile() {
  Scan(Coverage::EveryWord, [this](Peaks found, const PassState& end) {
    panels_.ShowFileInfo();
    panels_.tasks.HideCancel();
    panels_.tasks.ClearStatus();
    if (const auto* error = std::get_if<WavError>(&end)) {
      Tell(MessageOf(*error));
    } else if (std::holds_alternative<PassCompleted>(end)) {
      plan_.AimFor(found);
      plan_.levels = {.levels = {.lowest = found.lowest, .highest = found.highest}, .of = scanned_};
      OpenPass();
    }
  });
}

void NormalizerTasks::OpenPass() {
  runner_.SetRunning(Running::Nothing);
  if (!plan_.IsRequired()) {
    Tell(u"Normalization is not required"_s);
    return;
  }
  panels_.tasks.BeginNormalization();
  panels_.HideNormalize();
  panels_.percent.Field()->setEnabled(false);
  panels_.peaks.HidePeaks();
  runner_.SetRunning(Running::Normalization);
  pass_ = std::make_unique<Normalization>(plan_.files);
  const auto opened = pass_->Open();
  if (pass_->IsInPlace() && !plan_.files.isInPlace) {
    panels_.output.SelectSource();
  }
  if (!opened) {
    EndPass(opened.error());
  } else if (*opened == Normalization::Opened::AsksToOverwrite) {
    Ask(u"The file already exists, overwrite it?"_s, BoxButtons::YesNoDefaultNo,
        [this](BoxAnswer answer) { answer == BoxAnswer::Yes ? OverwriteAndRun() : EndPass(); });
  } else if (pass_->IsInPlace()) {
    KeepRecordAndRun();
  } else {
    RunPass();
  }
}

void NormalizerTasks::OverwriteAndRun() {
  if (const auto overwritten = pass_->Overwrite(); !overwritten) {
    EndPass(overwritten.error());
  } else {
    RunPass();
  }
}

void NormalizerTasks::KeepRecordAndRun() {
  const auto kept = wayBack_.Keep(*pass_, *plan_.gain, plan_.buffering, plan_.levels);
  if (kept) {
    RunPass();
    return;
  }
  Ask(CannotWrite(kept.error()) + EmptyLine + u"Normalize without a way back?"_s,
      BoxButtons::YesNoDefaultNo,
      [this](BoxAnswer answer) { answer == BoxAnswer::Yes ? RunPass() : EndPass(); });
}

void NormalizerTasks::RunPass() {
  panels_.options.SetBufferingEnabled(false);
  pass_->Start(GainTable(*plan_.gain), plan_.buffering, services_.clock);
  panels_.sound.BeginPass(plan_.percent, *plan_.gain, pass_->IsInPlace());
  DrivePass([this] { TellStatistics(); });
}

void NormalizerTasks::DrivePass(const std::function<void()>& completed) {
  runner_.Drive(*pass_, [this, completed](const PassState& end) {
    panels_.sound.EndPass(end);
    if (std::holds_alternative<PassCompleted>(end)) {
      completed();
    } else if (const auto* error = std::get_if<WavError>(&end)) {
      EndPass(*error);
    } else {
      EndPass();
    }
  });
}

// The files are closed, and the events that wait handled, before.
void NormalizerTasks::TellStatistics() {
  const auto text = StatisticsText({.scanThroughput = ScanThroughput,
                                    .normalizationThroughput = pass_->Throughput(),
                                    .amplification = plan_.Amplification(),
                                    .isMultiBuffer = plan_.buffering == Buffering::Multi});
  const bool isRecorded = pass_->IsRecorded();
  pass_.reset();
  if (isRecorded) {
    wayBack_.Complete(plan_.files.source);
  }
  runner_.AfterEvents([this, text] {
    runner_.BeBusy();
    panels_.tasks.HideProgress();
    Ask(ToQString(text), BoxButtons::Ok, [this](BoxAnswer) { EndPass(); });
  });
}

void NormalizerTasks::EndPass(const std::optional<WavError>& error) {
  const bool isRecorded = pass_ && pass_->IsRecorded();
  const auto changedRecord = pass_ ? pass_->ChangedRecord() : QString();
  pass_.reset();
  wayBack_.SetAside(changedRecord);
  runner_.SetRunning(Running::Nothing);
  panels_.tasks.HideProgress();
  panels_.options.SetBufferingEnabled(true);
  panels_.tasks.HideCancel();
  panels_.percent.Field()->setEnabled(true);
  panels_.tasks.ClearStatus();
  panels_.HideNormalize();
  LookForWayBack();
  if (error && isRecorded && wayBack_.IsInterrupted()) {
    Offer(MessageOf(*error) + EmptyLine + u"A part of the recording is changed. "_s +
              wayBack_.Question(),
          source_);
  } else if (error) {
    Tell(MessageOf(*error));
  }
}

// --- The way back, and the rest of the way ---

void NormalizerTasks::Offer(const QString& text, const QString& path) {
  Ask(text, BoxButtons::FinishUndoLater, [this, path](BoxAnswer answer) {
    if (answer != BoxAnswer::Later && path != source_ && open_(path)) {
      source_ = path;
    }
    LookForWayBack();
    if (answer != BoxAnswer::Later && path == source_) {
      answer == BoxAnswer::Finish ? Finish() : Undo();
    }
  });
}

void NormalizerTasks::Finish() {
  if (!runner_.IsIdle() || !wayBack_.IsThere()) {
    return;
  }
  auto pass = wayBack_.Finish(services_.clock);
  if (!pass) {
    Tell(MessageOf(pass.error()));
    return;
  }
  runner_.ForgetAbort();
  panels_.tasks.BeginNormalization();
  panels_.HideNormalize();
  panels_.percent.Field()->setEnabled(false);
  panels_.options.SetBufferingEnabled(false);
  panels_.peaks.HidePeaks();
  panels_.sound.Clear();
  runner_.SetRunning(Running::Normalization);
  pass_ = std::move(*pass);
  DrivePass([this] {
    pass_.reset();
    wayBack_.Complete(source_);
    runner_.BeBusy();
    panels_.tasks.HideProgress();
    Ask(u"The normalization of %1 is complete."_s.arg(QFileInfo(source_).fileName()),
        BoxButtons::Ok, [this](BoxAnswer) { EndPass(); });
  });
}

void NormalizerTasks::Undo() {
  if (!runner_.IsIdle() || !wayBack_.IsThere()) {
    return;
  }
  auto undo = wayBack_.Undo(services_.clock);
  if (!undo) {
    Tell(CannotRead(undo.error()));
    return;
  }
  runner_.ForgetAbort();
  panels_.tasks.BeginUndo();
  panels_.HideNormalize();
  panels_.peaks.HidePeaks();
  runner_.SetRunning(Running::Undo);
  undo_ = std::move(*undo);
  runner_.Drive(*undo_, [this](const PassState& end) { EndUndo(end); });
}

void NormalizerTasks::EndUndo(const PassState& end) {
  const bool isUndone = std::holds_alternative<PassCompleted>(end);
  const auto changedRecord = undo_->ChangedRecord();
  undo_.reset();
  wayBack_.SetAside(changedRecord);
  if (isUndone) {
    wayBack_.Forget();
  }
  runner_.ForgetAbort();
  runner_.SetRunning(Running::Nothing);
  panels_.tasks.HideProgress();
  panels_.tasks.HideCancel();
  panels_.tasks.ClearStatus();
  panels_.sound.Clear();
  LookForWayBack();
  const auto* error = std::get_if<WavError>(&end);
  if (error != nullptr && wayBack_.IsInterrupted()) {
    Offer(MessageOf(*error) + EmptyLine + wayBack_.Question(), source_);
  } else if (error != nullptr) {
    Tell(MessageOf(*error));
  } else if (isUndone) {
    Scan(Coverage::Usual,
         [this](Peaks found, const PassState& scanned) { ShowFound(found, scanned); });
  }
}

void NormalizerTasks::LookForWayBack() {
  wayBack_.LookFor(source_);
  panels_.tasks.Undo.setVisible(wayBack_.IsThere());
}

void NormalizerTasks::Stop() {
  runner_.Stop();
  scan_.reset();
  pass_.reset();
  undo_.reset();
}

// --- What is shown ---

void NormalizerTasks::ShowProgress(const PassProgress& progress) {
  panels_.tasks.ShowProgress(progress);
  scan_ ? panels_.sound.ShowScan(scan_->Picture()) : panels_.sound.ShowPass(progress);
}

void NormalizerTasks::Ask(const QString& text, BoxButtons buttons,
                          const MessageBoxes::WhenAnswered& answered) {
  services_.boxes.Ask(&window_, text, buttons, answered);
}

}  // namespace brindle
