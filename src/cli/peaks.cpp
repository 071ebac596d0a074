// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "base/numbers/numeric_text.h"
#include "base/time/clock.h"
#include "cli/commands.h"
#include "cli/recordings.h"
#include "wav/pass.h"
#include "wav/peak_scan.h"
#include "wav/sound_outlook.h"
#include "wav/wav_text.h"

namespace brindle {
namespace {

class PeaksOfFiles : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {.name = "peaks",
            .summary = "the peaks of WAV files",
            .description =
                "Scans PCM WAV files of 16 bits for their lowest and highest sample "
                "level, each of which is at most 32768 from 0. A few samples at the end "
                "are left out, as in the window; --every-sample takes them in.",
            .example = "brindle peaks *.wav --json"};
  }

  void AddOptions(Options& options) override {
    options.AddFiles(
        {.names = "FILE", .value = {}, .help = "A WAV file, or several", .takesFile = true},
        files_);
    options.AddFlag({.names = "--every-sample", .value = {}, .help = "Scan every sample"},
                    everySample_);
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    return ForEach(files_, report, [&](const Recording& recording) {
      return HeaderOf(recording).and_then([&](const WavHeader& header) {
        WarnOfWidth(recording, header, report);
        return Scanned(recording, header, given.clock, report);
      });
    });
  }

 private:
  [[nodiscard]] Outcome Scanned(const Recording& recording, const WavHeader& header,
                                const Clock& clock, Reporter& report) const {
    PeakScan scan(recording.path, clock, everySample_ ? Coverage::EveryWord : Coverage::Usual);
    const auto end = RunShown(scan, recording.name, report.Terminal());
    if (const auto* error = std::get_if<WavError>(&end)) {
      return tl::unexpected(Refusal{ExitCode::Failed, MessageFor(recording, *error)});
    }
    if (std::holds_alternative<PassAborted>(end)) {
      return tl::unexpected(
          Refusal{ExitCode::Interrupted, "interrupted while scanning " + recording.name});
    }
    return AnswerOf(recording, header, scan);
  }

  static Answer AnswerOf(const Recording& recording, const WavHeader& header,
                         const PeakScan& scan) {
    const auto found = scan.Found();
    Answer answer;
    answer.lines = {recording.name + ": " + std::to_string(found.lowest) + " to " +
                    std::to_string(found.highest)};
    auto& json = answer.json;
    json.Add("lowest_level", static_cast<double>(found.lowest));
    json.Add("highest_level", static_cast<double>(found.highest));
    std::string facts = "  " + TextOf(SoundOutlook{.picture = scan.Picture()});
    const auto add = [&](const std::string& text) { facts += " " + text; };
    if (header.sampleRate) {
      add(std::to_string(*header.sampleRate) + "Hz");
      json.Add("sample_rate_hz", static_cast<double>(*header.sampleRate));
    } else {
      json.AddNull("sample_rate_hz");
    }
    add(std::to_string(header.bitsPerSample) + "bit");
    json.Add("sample_bits", static_cast<double>(header.bitsPerSample));
    if (const auto channels = ChannelsText(header.channels)) {
      add(*channels);
    }
    json.Add("channels", static_cast<double>(header.channels));
    if (auto seconds = header.Duration()) {
      json.Add("duration_seconds", *seconds);
      add(FormatDuration(*seconds));
    } else {
      json.AddNull("duration_seconds");
    }
    answer.lines.push_back(facts);
    return answer;
  }

  std::vector<std::string> files_;
  bool everySample_ = false;
};

}  // namespace

std::unique_ptr<Command> MakePeaks() { return std::make_unique<PeaksOfFiles>(); }

}  // namespace brindle
