// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <memory>
#include <optional>
#include <string>

#include "audiodisk/audio_bitrate.h"
#include "base/numbers/numeric_text.h"
#include "base/settings/settings.h"
#include "cli/commands.h"
#include "cli/inputs.h"
#include "cli/reading.h"

namespace brindle {
namespace {

class Audio : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {.name = "audio",
            .summary = "the audio bitrate that still fits with a finished video",
            .description =
                "Works out the audio bitrate at which a finished video-only file and "
                "its audio fill the target size, and names the standard MP3 bitrate "
                "that is not above it.",
            .example = "brindle audio --length 1:42:30 --video 1240MB --target 1400MB",
            .exampleOutput = {"213 kbps", "suggested 192kbps (Excellent)"}};
  }

  void AddOptions(Options& options) override {
    const auto builtIn = BuiltInSettings();
    film_.AddLength(options);
    options.Add({.names = "--video",
                 .value = "SIZE",
                 .help = "Size of the video-only file",
                 .byDefault = MegaBytesText(builtIn.VideoOnlySize)},
                video_, ReadMegaBytes);
    options.Add({.names = "--target",
                 .value = "SIZE",
                 .help = "Size that the finished file may have",
                 .byDefault = MegaBytesText(builtIn.TargetAVISize)},
                target_, ReadMegaBytes);
    overhead_.AddInterleaving(options);
    film_.AddRate(options);
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    const auto& record = given.record;
    const AudioBitrateInputs inputs{.targetMegaBytes = target_.value_or(record.TargetAVISize),
                                    .videoMegaBytes = video_.value_or(record.VideoOnlySize),
                                    .interleaveKiloBytesPerSecond = overhead_.Audio(record, film_),
                                    .minutes = film_.Minutes(record)};
    const double bitrate = ComputeAudioBitrate(inputs);
    const auto shown = bitrate > 0 ? Formatted(bitrate, "#") : std::string();
    if (shown.empty()) {
      return report.RefuseAnswer(WhyNone(inputs));
    }

    const std::string suggestion(SuggestedBitrate(bitrate));
    Answer answer;
    answer.lines = {shown + " kbps"};
    answer.json.AddShown("bitrate_kbps", shown, bitrate);
    if (suggestion.empty()) {
      answer.json.AddNull("suggestion");
    } else {
      answer.lines.push_back("suggested " + suggestion);
      answer.json.Add("suggestion", suggestion);
    }
    JsonObject json;
    json.Add("length_minutes", inputs.minutes);
    json.Add("video_mb", inputs.videoMegaBytes);
    json.Add("target_mb", inputs.targetMegaBytes);
    json.Add("interleave_overhead_kb_per_second", inputs.interleaveKiloBytesPerSecond);
    answer.json.Add("inputs", json);
    return report.Give(answer);
  }

 private:
  static std::string WhyNone(const AudioBitrateInputs& inputs) {
    if (inputs.minutes <= 0) {
      return "there is no bitrate without a running time; --length gives one";
    }
    return "no room is left for the audio: of " + TextOf(inputs.targetMegaBytes) +
           " MB, the video needs " + TextOf(inputs.videoMegaBytes) +
           " MB, and the interleaving its part; a larger --target or a smaller --video makes room";
  }

  FilmInput film_;
  OverheadInput overhead_;
  std::optional<double> video_;   // MB
  std::optional<double> target_;  // MB
};

}  // namespace

std::unique_ptr<Command> MakeAudio() { return std::make_unique<Audio>(); }

}  // namespace brindle
