// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include <QDir>
#include <QFileInfo>
#include <QString>

#include "base/files/file_error.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "base/settings/settings.h"
#include "base/time/clock.h"
#include "cli/commands.h"
#include "cli/reading.h"
#include "cli/recordings.h"
#include "wav/buffering.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/pass.h"
#include "wav/pass_plan.h"
#include "wav/peak_scan.h"
#include "wav/way_back.h"

namespace brindle {
namespace {

using Planned = tl::expected<PassPlan, Refusal>;

Reading<Buffering> ReadBuffering(std::string_view text) {
  if (text != "multi" && text != "single") {
    return tl::unexpected(Quoted(text) + " is neither multi nor single");
  }
  return text == "multi" ? Buffering::Multi : Buffering::Single;
}

// How a gain or a throughput is written.
std::string Rounded(double value) {
  constexpr int decimals = 2;
  return TextOf(RoundedTo(value, decimals));
}

tl::unexpected<Refusal> Failed(std::string message, ExitCode code = ExitCode::Failed) {
  return tl::unexpected(Refusal{code, std::move(message)});
}

class Normalize : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {.name = "normalize",
            .summary = "make WAV files as loud as they can be",
            .description =
                "Amplifies PCM WAV files of 16 bits so that the higher peak reaches a percentage "
                "of the range. Writes the result to --output, or with --in-place over the "
                "recording itself, which \"brindle undo\" can take back. A recording that is "
                "within the tolerance is left as it is.",
            .example = "brindle normalize concert.wav --to 98% --output loud.wav"};
  }

  void AddOptions(Options& options) override {
    const auto builtIn = BuiltInSettings();
    options.AddFiles(
        {.names = "FILE", .value = {}, .help = "A WAV file, or several", .takesFile = true},
        files_);
    options.Add({.names = "-o,--output",
                 .value = "PATH",
                 .help = "Where the result goes; for several files, a folder",
                 .takesFile = true},
                output_, ReadPath);
    options.AddFlag({.names = "--in-place", .value = {}, .help = "Write over the recording itself"},
                    inPlace_);
    options.AddFlag({.names = "--finish",
                     .value = {},
                     .help = "Go on with a pass in place that was interrupted"},
                    finish_);
    options.Add({.names = "--to",
                 .value = "PERCENT",
                 .help = "Percentage of the 16-bit range that the higher peak is to reach",
                 .byDefault = TextOf(builtIn.WavNormalizePercent) + "%"},
                percent_, ReadShare);
    options.Add({.names = "--tolerance",
                 .value = "PERCENT",
                 .help = "An amplification that differs from 100% by less is not worth a pass",
                 .byDefault = TextOfSingle(builtIn.WavTolerance) + "%"},
                tolerance_, ReadPercent);
    options.Add({.names = "--buffering",
                 .value = "KIND",
                 .help = "How many buffers a pass uses: multi or single",
                 .byDefault = "multi",
                 .words = {"multi", "single"}},
                buffering_, ReadBuffering);
    options.AddFlag(
        {.names = "--force", .value = {}, .help = "Replace an output file that is there"}, force_);
    options.AddFlag({.names = "--cut-off",
                     .value = {},
                     .help = "Cut off what the scan leaves out and is louder, instead of scanning "
                             "every sample"},
                    cutOff_);
    options.AddFlag({.names = "--without-undo",
                     .value = {},
                     .help = "Normalize in place even if no way back can be kept"},
                    withoutUndo_);
    for (const auto* other : {"--output", "--in-place", "--to", "--tolerance", "--buffering",
                              "--force", "--cut-off", "--without-undo"}) {
      options.Exclude("--finish", other);
    }
    options.Exclude("--output", "--in-place");
    options.Exclude("--output", "--without-undo");
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    if (!output_ && !inPlace_ && !finish_) {
      return report.RefuseUsage(
          "--output says where the result goes; --in-place writes over the recording itself");
    }
    const bool isFolder = output_ && QFileInfo(QString::fromStdString(*output_)).isDir();
    if (output_ && !isFolder && files_.size() > 1) {
      return report.RefuseUsage("--output is no folder, but there are several files");
    }
    clock_ = &given.clock;
    record_ = &given.record;
    report_ = &report;
    wayBack_ = std::make_unique<WayBack>(given.undoFolder());
    return ForEach(files_, report, [&](const Recording& recording) {
      return HeaderOf(recording).and_then([&](const WavHeader& header) {
        WarnOfWidth(recording, header, report);
        return finish_ ? Finished(recording) : Normalized(recording);
      });
    });
  }

 private:
  [[nodiscard]] Outcome Normalized(const Recording& recording) {
    wayBack_->LookFor(recording.path);
    if (wayBack_->IsInterrupted()) {
      return Failed("a normalization of " + recording.name +
                        " was interrupted; \"brindle normalize --finish\" goes on with it, "
                        "\"brindle undo\" takes it back",
                    ExitCode::NoAnswer);
    }
    auto plan = PlanFor(recording);
    if (!plan) {
      return tl::unexpected(plan.error());
    }
    if (!plan->IsRequired()) {
      return NotRequired(recording, *plan);
    }
    auto pass = std::make_unique<Normalization>(plan->files);
    auto done = Opened(recording, *plan, *pass).and_then([&](const Answer&) {
      return RunPass(recording, *plan, *pass);
    });
    const bool isRecorded = pass->IsRecorded();
    const auto changedRecord = pass->ChangedRecord();
    // Closes the files, and with them the record, before the records are looked through.
    pass.reset();
    wayBack_->SetAside(changedRecord);
    if (done && isRecorded) {
      wayBack_->Complete(recording.path);
    }
    return done;
  }

  // Where the result of a recording goes, as the user would write it.
  [[nodiscard]] std::string OutputFor(const Recording& recording) const {
    const auto given = QString::fromStdString(*output_);
    return QFileInfo(given).isDir()
               ? QDir(given).filePath(QFileInfo(recording.path).fileName()).toStdString()
               : *output_;
  }

  [[nodiscard]] PassFiles FilesFor(const Recording& recording) const {
    PassFiles files{.source = recording.path, .target = {}, .isInPlace = inPlace_};
    if (output_) {
      files.target = QFileInfo(QString::fromStdString(OutputFor(recording))).absoluteFilePath();
    }
    return files;
  }

  [[nodiscard]] Planned PlanFor(const Recording& recording) {
    PassPlan plan{.files = FilesFor(recording),
                  .buffering = buffering_.value_or(record_->WavMultiBuffer ? Buffering::Multi
                                                                           : Buffering::Single),
                  .tolerance = tolerance_.value_or(static_cast<double>(record_->WavTolerance)),
                  .percent = percent_.value_or(static_cast<double>(record_->WavNormalizePercent))};
    const auto scanned = Scan(recording, Coverage::Usual, plan);
    if (!scanned || !plan.IsRequired()) {
      return scanned ? Planned(plan) : tl::unexpected(scanned.error());
    }
    const auto unseen = CutOffUnseen(recording.path, *plan.gain);
    plan.levels.levels.Include(unseen.levels);
    if (unseen.cutOff == 0 || cutOff_) {
      return plan;
    }
    // What the scan leaves out is louder than what it has seen.
    return Scan(recording, Coverage::EveryWord, plan).map([&](const Answer&) { return plan; });
  }

  // Scans the recording for what the plan needs to know.
  [[nodiscard]] Outcome Scan(const Recording& recording, Coverage coverage, PassPlan& plan) {
    PeakScan scan(recording.path, *clock_, coverage);
    const auto end = RunShown(scan, recording.name, report_->Terminal());
    if (const auto* error = std::get_if<WavError>(&end)) {
      return Failed(MessageFor(recording, *error));
    }
    if (std::holds_alternative<PassAborted>(end)) {
      return Failed("interrupted while scanning " + recording.name + ", which is as it was",
                    ExitCode::Interrupted);
    }
    const auto found = scan.Found();
    scanThroughput_ = scan.Throughput();
    plan.AimFor(found);
    plan.levels = {.levels = {.lowest = found.lowest, .highest = found.highest},
                   .of = scan.Scanned()};
    return Answer();
  }

  [[nodiscard]] Outcome NotRequired(const Recording& recording, const PassPlan& plan) const {
    const std::string why = plan.gain ? "an amplification of " + Rounded(plan.Amplification()) +
                                            "% is within the tolerance of " +
                                            Rounded(plan.tolerance) + "%"
                                      : "it is silent";
    if (output_) {
      return Failed(recording.name + " needs no normalization: " + why +
                        (plan.gain ? "; --tolerance 0 makes a copy all the same" : ""),
                    ExitCode::NoAnswer);
    }
    Answer answer;
    answer.lines = {recording.name + ": normalization is not required", "  " + why};
    answer.json.Add("normalized", false);
    return answer;
  }

  // Opens the files of the pass, and keeps its way back.
  [[nodiscard]] Outcome Opened(const Recording& recording, const PassPlan& plan,
                               Normalization& pass) const {
    const auto opened = pass.Open();
    if (!opened) {
      return Failed(MessageFor(recording, opened.error()));
    }
    if (pass.IsInPlace() && !inPlace_) {
      return Failed("cannot write " + OutputFor(recording) +
                    ": it is the recording itself; --in-place writes over it");
    }
    if (*opened == Normalization::Opened::AsksToOverwrite) {
      if (!force_) {
        return Failed("cannot write " + OutputFor(recording) + ": it exists; --force replaces it");
      }
      if (const auto overwritten = pass.Overwrite(); !overwritten) {
        return Failed(MessageFor(recording, overwritten.error()));
      }
    }
    if (pass.IsInPlace()) {
      const auto kept = wayBack_->Keep(pass, *plan.gain, plan.buffering, plan.levels);
      if (!kept && !withoutUndo_) {
        return Failed("cannot write " + kept.error().path.toStdString() + ": " +
                      kept.error().reason.toStdString() + "; " + recording.name +
                      " is as it was, and --without-undo normalizes it without a way back");
      }
    }
    return Answer();
  }

  [[nodiscard]] Outcome RunPass(const Recording& recording, const PassPlan& plan,
                                Normalization& pass) {
    pass.Start(GainTable(*plan.gain), plan.buffering, *clock_);
    const auto end = RunShown(pass, recording.name, report_->Terminal());
    if (!std::holds_alternative<PassCompleted>(end)) {
      return Ended(recording, pass, end);
    }
    Answer answer;
    const auto gain = Rounded(plan.Amplification());
    answer.lines = {recording.name + ": amplified to " + gain + "%" +
                        (inPlace_ ? "" : " in " + OutputFor(recording)),
                    "  scanned at " + Rounded(scanThroughput_) + "MB/s, normalized at " +
                        Rounded(pass.Throughput()) + "MB/s"};
    auto& json = answer.json;
    json.Add("normalized", true);
    json.Add("output", inPlace_ ? recording.name : OutputFor(recording));
    json.AddShown("amplification_percent", gain, plan.Amplification());
    json.Add("scan_mb_per_second", static_cast<double>(scanThroughput_));
    json.Add("normalization_mb_per_second", pass.Throughput());
    json.Add("can_be_undone", pass.IsRecorded());
    return answer;
  }

  // Of a pass that was not completed.
  [[nodiscard]] Outcome Ended(const Recording& recording, Normalization& pass,
                              const PassState& end) const {
    const auto* error = std::get_if<WavError>(&end);
    const std::string back =
        pass.IsRecorded()
            ? R"(; "brindle undo" takes it back, "brindle normalize --finish" goes on)"
            : "";
    if (error != nullptr) {
      return Failed(
          MessageFor(recording, *error) +
          (pass.IsInPlace() ? "; a part of " + recording.name + " is changed" + back : ""));
    }
    return Failed(pass.IsInPlace()
                      ? "interrupted: " + recording.name + " is only partly normalized" + back
                      : "interrupted: " + OutputFor(recording) + " is not complete",
                  ExitCode::Interrupted);
  }

  [[nodiscard]] Outcome Finished(const Recording& recording) {
    wayBack_->LookFor(recording.path);
    if (!wayBack_->IsInterrupted()) {
      return Failed("there is nothing to finish for " + recording.name +
                        ": no interrupted normalization of it is on record",
                    ExitCode::NoAnswer);
    }
    auto pass = wayBack_->Finish(*clock_);
    if (!pass) {
      return Failed(MessageFor(recording, pass.error()));
    }
    const auto end = RunShown(**pass, recording.name, report_->Terminal());
    const bool isCompleted = std::holds_alternative<PassCompleted>(end);
    auto refusal = isCompleted ? Outcome() : Ended(recording, **pass, end);
    const auto changedRecord = (*pass)->ChangedRecord();
    pass->reset();
    wayBack_->SetAside(changedRecord);
    if (!isCompleted) {
      return refusal;
    }
    wayBack_->Complete(recording.path);
    Answer answer;
    answer.lines = {recording.name + ": its normalization is complete"};
    answer.json.Add("normalized", true);
    return answer;
  }

  std::vector<std::string> files_;
  std::optional<std::string> output_;
  std::optional<double> percent_;
  std::optional<double> tolerance_;
  std::optional<Buffering> buffering_;
  bool inPlace_ = false;
  bool finish_ = false;
  bool force_ = false;
  bool cutOff_ = false;
  bool withoutUndo_ = false;
  const Clock* clock_ = nullptr;
  const Settings* record_ = nullptr;
  Reporter* report_ = nullptr;
  std::unique_ptr<WayBack> wayBack_;
  float scanThroughput_ = 0;
};

}  // namespace

std::unique_ptr<Command> MakeNormalize() { return std::make_unique<Normalize>(); }

}  // namespace brindle
