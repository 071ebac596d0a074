// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <QFileInfo>
#include <QString>

#include "base/time/clock.h"
#include "cli/commands.h"
#include "cli/recordings.h"
#include "wav/pass.h"
#include "wav/undo_pass.h"
#include "wav/way_back.h"

namespace brindle {
namespace {

class Undo : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {.name = "undo",
            .summary = "take back a normalization in place",
            .description =
                "Makes recordings that were normalized in place what they were, byte "
                "for byte, also after a pass that was interrupted. A recording that was "
                "changed since is not touched.",
            .example = "brindle undo concert.wav"};
  }

  void AddOptions(Options& options) override {
    options.AddFiles(
        {.names = "FILE", .value = {}, .help = "A WAV file, or several", .takesFile = true},
        files_);
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    WayBack wayBack(given.undoFolder());
    for (const auto& message : wayBack.SetUnusableAside()) {
      report.Tell(
          QString(message).replace(QStringLiteral("\r\n"), QStringLiteral(" ")).toStdString());
    }
    return ForEach(files_, report, [&](const Recording& recording) {
      return HeaderOf(recording).and_then(
          [&](const WavHeader&) { return Undone(recording, wayBack, given.clock, report); });
    });
  }

 private:
  [[nodiscard]] static Outcome Undone(const Recording& recording, WayBack& wayBack,
                                      const Clock& clock, Reporter& report) {
    wayBack.LookFor(recording.path);
    if (!wayBack.IsThere()) {
      return tl::unexpected(
          Refusal{ExitCode::NoAnswer, "there is nothing to undo for " + recording.name +
                                          ": no normalization of it in place is on record"});
    }
    auto undo = wayBack.Undo(clock);
    if (!undo) {
      return tl::unexpected(Refusal{
          ExitCode::Failed,
          MessageFor(recording, WavError{WavError::Failed::Reading, std::move(undo.error())})});
    }
    const auto end = RunShown(**undo, recording.name, report.Terminal());
    const auto changedRecord = (*undo)->ChangedRecord();
    undo->reset();
    wayBack.SetAside(changedRecord);
    if (const auto* error = std::get_if<WavError>(&end)) {
      return tl::unexpected(Refusal{ExitCode::Failed, MessageFor(recording, *error)});
    }
    if (std::holds_alternative<PassAborted>(end)) {
      return tl::unexpected(Refusal{
          ExitCode::Interrupted,
          "interrupted: " + recording.name + " is only partly undone; \"brindle undo\" goes on"});
    }
    wayBack.Forget();
    Answer answer;
    answer.lines = {recording.name + ": undone"};
    answer.json.Add("undone", true);
    return answer;
  }

  std::vector<std::string> files_;
};

}  // namespace

std::unique_ptr<Command> MakeUndo() { return std::make_unique<Undo>(); }

}  // namespace brindle
