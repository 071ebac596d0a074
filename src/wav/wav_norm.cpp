// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_norm.h"

#include <optional>
#include <variant>

#include <QCoreApplication>
#include <QString>

#include "base/input/file_dialogs.h"
#include "base/input/layout.h"
#include "base/input/number_fields.h"
#include "base/input/wiring.h"
#include "wav/gain.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

const auto Scanning = u"Scanning..."_s;
const auto Normalizing = u"Normalizing..."_s;

bool IsRequired(std::optional<double> gain, double tolerance) {
  return gain && IsNormalizationRequired(100 * *gain, tolerance);
}

}  // namespace

WavNorm::WavNorm(Services& services)
    : Form(u"WavNorm"_s, u"WAV Normalizer (rev3)"_s),
      services_(services),
      record_(services.record),
      Mbuffer(MakeCheckBox(
          u"Mbuffer"_s, u"Multi-buffering (faster for source/target on the same HDD)"_s,
          u"Disable multi-buffering when source and target are on two separate hard disks."_s)),
      AutoNorm(MakeCheckBox(u"AutoNorm"_s, u"Auto Normalize After Scan"_s,
                            u"Begin normalization immediately after scanning (no prompt)"_s)),
      RemFolders(MakeCheckBox(u"RemFolders"_s, u"Remember Folders"_s,
                              u"Remember last folder/file loaded"_s)),
      tolerance_(record_),
      output_(record_),
      percent_(record_),
      btnOpen(
          MakeButton(u"btnOpen"_s, u"Open WAV"_s, u"Select a 16bit PCM WAV file to normalize"_s)),
      btnScan(MakeButton(u"btnScan"_s, u"Scan for Peaks"_s, u"Scan file for peaks"_s)),
      btnNorm(MakeButton(u"btnNorm"_s, u"Normalize"_s, u"Normalize selected file"_s)),
      Cancel(MakeButton(u"Cancel"_s, u"Abort"_s, u"Abort task"_s)),
      Status(new ValueLabel(u"Status"_s, {}, {Scanning, Normalizing})) {
  MakeLayout();
  WireEvents();
  Form_Load();
  Focus().Begin(Mbuffer);
}

void WavNorm::MakeLayout() {
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
        percent_.Caption(), percent_.Field(), MakeLabel(u"%"_s), Item::Stretch(), peaks_.Line(),
      }, Spacing),
      Across({btnOpen, btnScan, btnNorm, Item::Stretch(), Cancel}, Spacing),
      progress_.Line(Status),
    }));
  // clang-format on
}

void WavNorm::WireEvents() {
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

void WavNorm::Form_Load() {
  tolerance_.Form_Load();
  ResetLoad();
  peaks_.HidePeaks();
  progress_.HideProgress();
  AbortRequested = false;
  percent_.Form_Load();
  AutoNorm->setChecked(record_.WavAutoNormalize);
  Mbuffer->setChecked(record_.WavMultiBuffer);
  RemFolders->setChecked(record_.WavRememberFolders);
  output_.Form_Load();
}

void WavNorm::Mbuffer_Click() { record_.WavMultiBuffer = Mbuffer->isChecked(); }
void WavNorm::AutoNorm_Click() { record_.WavAutoNormalize = AutoNorm->isChecked(); }
void WavNorm::RemFolders_Click() { record_.WavRememberFolders = RemFolders->isChecked(); }

void WavNorm::Target_Click() {
  if (running_ != Running::Nothing) {
    return;
  }
  const Occupied inside(*this);
  const auto path = services_.dialogs.AskForTarget(
      this,
      {.name = u"DLG"_s,
       .title = u"Save As"_s,
       .filters = {u"PCM WAV file (*.wav)"_s},
       .start = record_.WavRememberFolders ? record_.WavTargetFile : QString()},
      u"wav"_s);
  if (!path.isEmpty() && !isClosing_) {
    output_.WriteTarget(path);
  }
}

void WavNorm::btnOpen_Click() {
  if (running_ != Running::Nothing) {
    return;
  }
  const Occupied inside(*this);
  const auto path = services_.dialogs.AskForExisting(
      this, {.name = u"DLG"_s,
             .title = u"Select Files"_s,
             .filters = {u"WAV files (*.wav)"_s, u"All Files (*.*) (*)"_s},
             .start = record_.WavRememberFolders ? record_.WavSourceFile : QString()});
  if (!path.isEmpty() && !isClosing_) {
    OpenFile(path);
  }
}

void WavNorm::OpenFile(const QString& path) {
  if (running_ != Running::Nothing) {
    return;
  }
  const Occupied inside(*this);
  const auto opened = ReadHeader(path);
  if (const auto* header = std::get_if<WavHeader>(&opened)) {
    fileInfo_.Write(path, *header);
    ShowFileInfo();
    peaks_.HidePeaks();
    record_.WavSourceFile = path;
    source_ = path;
    return;
  }
  const auto* refusal = std::get_if<WavRefusal>(&opened);
  Ask(refusal != nullptr ? MessageOf(*refusal) : MessageOf(std::get<WavError>(opened)));
  if (!isClosing_) {
    ResetLoad();
  }
}

void WavNorm::btnScan_Click() {
  if (running_ != Running::Nothing) {
    return;
  }
  const Occupied inside(*this);
  const bool goesOn = AutoNorm->isChecked();
  const auto scan = Scan(Coverage::Usual);
  if (isClosing_) {
    return;
  }
  peaks_.Write(scan.lowest, scan.highest);
  ShowNormalizeReady();
  ShowFileInfo();
  HideCancel();
  peaks_.ShowPeaks();
  Status->Write({});
  if (scan.error) {
    Ask(MessageOf(*scan.error));
  } else if (goesOn) {
    btnNorm_Click();  // deliberately after an aborted scan, too
  }
}

PeakScan WavNorm::Scan(Coverage coverage) {
  Cancel->show();
  Cancel->setFocus();
  HideFileInfo();
  progress_.ShowProgress();
  Status->Write(Scanning);
  SetRunning(Running::Scan);
  auto scan = ScanPeaks(source_, services_.clock, *this, coverage);
  if (!isClosing_) {
    SetRunning(Running::Nothing);
    progress_.HideProgress();
    AbortRequested &= !scan.isAborted;
    ScanThroughput = scan.throughput;
  }
  return scan;
}

void WavNorm::btnNorm_Click() {
  if (running_ != Running::Nothing) {
    return;
  }
  const Occupied inside(*this);
  const auto options = ChosenPass();
  if (!options) {
    return;
  }
  Status->Write(Normalizing);
  Cancel->show();
  Cancel->setFocus();
  HideNormalize();
  percent_.Field()->setEnabled(false);
  peaks_.HidePeaks();
  progress_.ShowProgress();
  SetRunning(Running::Normalization);
  const auto error = Normalize(*options);
  if (isClosing_) {
    return;
  }
  SetRunning(Running::Nothing);
  progress_.HideProgress();
  Mbuffer->setEnabled(true);
  HideCancel();
  percent_.Field()->setEnabled(true);
  Status->Write({});
  HideNormalize();
  if (error) {
    Ask(MessageOf(*error));
  }
}

// Nothing where there is nothing to do, or the window goes away.
std::optional<WavNorm::PassOptions> WavNorm::ChosenPass() {
  const auto lowest = peaks_.Lowest();
  const auto highest = peaks_.Highest();
  running_ = Running::Busy;
  QCoreApplication::processEvents();
  if (isClosing_) {
    return std::nullopt;
  }
  PassOptions options{.files = {source_, output_.TargetPath(), output_.IsInPlace()},
                      .isMultiBuffer = Mbuffer->isChecked()};
  const double tolerance = tolerance_.Percent();
  const double percent = percent_.TargetPercent();
  auto gain = GainFor(lowest, highest, percent);
  if (IsRequired(gain, tolerance) && WantsWholeFile(*gain)) {
    const auto scan = ScanWholeFile();
    if (!scan) {
      return std::nullopt;
    }
    gain = GainFor(scan->lowest, scan->highest, percent);
  }
  if (isClosing_) {
    return std::nullopt;
  }
  running_ = Running::Nothing;
  if (!IsRequired(gain, tolerance)) {
    Ask(u"Normalization is not required"_s);
    return std::nullopt;
  }
  options.gain = *gain;
  return options;
}

// What the scan deliberately leaves out may be louder than what it has seen.
bool WavNorm::WantsWholeFile(double gain) {
  const auto unseen = CutOffUnseen(source_, gain);
  return unseen.cutOff > 0 &&
         Ask(u"%1 of %2 samples would be cut off, at the end, which the scan leaves out.\r\n\r\n"
             "Normalize to the peaks of the whole file instead?"_s.arg(unseen.cutOff)
                 .arg(unseen.words),
             BoxButtons::YesNo) == BoxAnswer::Yes;
}

// Nothing where it was aborted or failed, or the window goes away.
std::optional<PeakScan> WavNorm::ScanWholeFile() {
  auto scan = Scan(Coverage::EveryWord);
  if (isClosing_) {
    return std::nullopt;
  }
  ShowFileInfo();
  HideCancel();
  Status->Write({});
  if (scan.error) {
    Ask(MessageOf(*scan.error));
  }
  return scan.error || scan.isAborted ? std::nullopt : std::optional(std::move(scan));
}

// The pass itself, and its statistics when it was completed.
std::optional<WavError> WavNorm::Normalize(const PassOptions& options) {
  const GainTable table(options.gain);
  double throughput = 0;
  {
    // The files are closed before the statistics are shown.
    Normalization pass;
    if (pass.Open(options.files, *this) != Normalization::Opened::Yes) {
      return pass.Error();
    }
    Mbuffer->setEnabled(false);
    const auto buffering = options.isMultiBuffer ? Buffering::Multi : Buffering::Single;
    if (pass.Run(table, buffering, services_.clock, *this) != Normalization::Ended::Completed) {
      return pass.Error();
    }
    throughput = pass.Throughput();
  }
  QCoreApplication::processEvents();
  if (!isClosing_) {
    running_ = Running::Busy;
    progress_.HideProgress();
    Ask(ToQString(StatisticsText({.scanThroughput = ScanThroughput,
                                  .normalizationThroughput = throughput,
                                  .amplification = 100 * options.gain,
                                  .isMultiBuffer = options.isMultiBuffer})));
  }
  return std::nullopt;
}

// Taken at the next update of a scan or pass that has one. Deliberately kept by a pass that has
// none any more: the next scan stops by it.
void WavNorm::Cancel_Click() {
  const Occupied inside(*this);
  if (Status->text() != Normalizing || ReallyAbort()) {
    AbortRequested = true;
  }
}

bool WavNorm::ReallyAbort() {
  return Ask(u"Aborting normalization is not recommended. Output file will be damaged.\r\n"
             "                      Really abort normalization?"_s,
             BoxButtons::YesNoDefaultNo) == BoxAnswer::Yes;
}

bool WavNorm::Update(const PassProgress& progress) {
  if (!isClosing_) {
    progress_.Update(progress);
  }
  QCoreApplication::processEvents();
  return !isClosing_ && !AbortRequested;
}

bool WavNorm::MayOverwrite() {
  const auto answer = Ask(u"The file already exists, overwrite it?"_s, BoxButtons::YesNoDefaultNo);
  return answer == BoxAnswer::Yes && !isClosing_;
}

bool WavNorm::AgreesToClose() {
  const Occupied inside(*this);
  return running_ != Running::Normalization || ReallyAbort();
}

// Nothing is the answer when the window or the program goes away.
std::optional<BoxAnswer> WavNorm::Ask(const QString& text, BoxButtons buttons) {
  const auto answer = services_.boxes.Ask(this, text, buttons);
  isClosing_ |= !answer.has_value();
  return answer;
}

void WavNorm::SetRunning(Running running) {
  running_ = running;
  const bool isIdle = running_ == Running::Nothing;
  btnOpen->setEnabled(isIdle);
  btnScan->setEnabled(isIdle);
  btnNorm->setEnabled(isIdle);
  output_.SetIdle(isIdle);
  drop_.SetAccepting(isIdle);
}

void WavNorm::HideCancel() {
  if (focusWidget() == Cancel) {
    btnScan->setFocus();
  }
  Cancel->hide();
}

void WavNorm::ResetLoad() {
  HideNormalize();
  HideFileInfo();
  HideCancel();
}

void WavNorm::ShowNormalizeReady() {
  btnNorm->show();
  fileInfo_.SetVisible(true);
}

void WavNorm::SetFileInfoVisible(bool visible) {
  btnScan->setVisible(visible);
  fileInfo_.SetVisible(visible);
}

}  // namespace brindle
