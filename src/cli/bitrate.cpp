// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cstdint>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <vector>

#include "base/numbers/numeric_text.h"
#include "base/settings/settings.h"
#include "cli/commands.h"
#include "cli/inputs.h"
#include "cli/reading.h"
#include "video/video_bitrate.h"

namespace brindle {
namespace {

class Bitrate : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {.name = "bitrate",
            .summary = "the video bitrate that fills the discs exactly",
            .description =
                "Works out the video bitrate at which video, audio, extra material and "
                "the overhead of the AVI container fill the discs exactly, how large "
                "each part is, and how good the picture will be.",
            .example = "brindle bitrate --length 1:42:30 --size 700MB --discs 2 --audio 192",
            .exampleOutput = {"1708 kbps (Excellent)",
                              "video 1252.2 MB, audio 140.8 MB, overhead 7.0 MB"}};
  }

  void AddOptions(Options& options) override {
    const auto builtIn = BuiltInSettings();
    film_.AddLength(options);
    options.Add({.names = "--size,--capacity",
                 .value = "SIZE",
                 .help = "Capacity of one disc, or size of the finished file",
                 .byDefault = MegaBytesText(builtIn.CDCapacity)},
                size_, ReadMegaBytes);
    options.Add({.names = "--discs,--cds",
                 .value = "COUNT",
                 .help = "Number of discs",
                 .byDefault = TextOf(builtIn.CDCount)},
                discs_, ReadCount);
    options.AddList({.names = "--audio",
                     .value = "KBPS",
                     .help = "Audio bitrate; once for each track, and all of them count",
                     .byDefault = TextOf(builtIn.AudioBitrate)},
                    audio_, ReadKiloBits);
    options.Add({.names = "--extra",
                 .value = "SIZE",
                 .help = "Room for extra material",
                 .byDefault = MegaBytesText(builtIn.ExtraMaterial)},
                extra_, ReadMegaBytes);
    divX_.Add(options);
    overhead_.AddFrames(options);
    overhead_.AddInterleaving(options);
    film_.AddRate(options);
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    const auto& record = given.record;
    const auto option = divX_.Option(record);
    const VideoBitrateInputs inputs{
        .discMegaBytes = size_.value_or(record.CDCapacity),
        .discs = static_cast<double>(discs_.value_or(record.CDCount)),
        .extraMegaBytes = extra_.value_or(record.ExtraMaterial),
        .minutes = film_.Minutes(record),
        .audioKiloBits = audio_.empty() ? record.AudioBitrate
                                        : std::accumulate(audio_.begin(), audio_.end(), 0.0),
        .overheadKiloBytesPerSecond =
            overhead_.Video(record, film_) + overhead_.Audio(record, film_),
        .divXFactor = DivXFactorOf(option)};
    const auto result = ComputeVideoBitrate(inputs);
    const auto shown = result.kiloBits > 0 ? Formatted(result.kiloBits, "#") : std::string();
    if (shown.empty()) {
      return report.RefuseAnswer(WhyNone(inputs, result));
    }

    Answer answer;
    const auto rating = QualityRating(result.kiloBits, option);
    const std::string quality(rating.value_or(""));
    answer.lines = {shown + " kbps" + (quality.empty() ? "" : " (" + quality + ")")};
    auto& json = answer.json;
    json.AddShown("bitrate_kbps", shown, result.kiloBits);
    quality.empty() ? json.AddNull("quality") : json.Add("quality", quality);
    std::string sizes;
    const auto add = [&](const std::string& name, double megaBytes) {
      const auto text = ShownMegaBytes(megaBytes);
      if (!text.empty()) {
        sizes.append(sizes.empty() ? "" : ", ").append(name).append(" ").append(text).append(" MB");
      }
      json.AddShown(name + "_mb", text, megaBytes);
    };
    add("video", result.videoMegaBytes);
    add("audio", result.audioMegaBytes);
    add("overhead", result.overheadMegaBytes);
    answer.lines.push_back(sizes);
    json.Add("inputs", InputsOf(inputs, option));
    return report.Give(answer);
  }

 private:
  static std::string WhyNone(const VideoBitrateInputs& inputs, const VideoBitrate& result) {
    if (inputs.minutes <= 0) {
      return "there is no bitrate without a running time; --length gives one";
    }
    if (inputs.discMegaBytes * inputs.discs <= 0) {
      return "there is no bitrate without room; --size and --discs give some";
    }
    const auto others =
        ShownMegaBytes(result.audioMegaBytes + result.overheadMegaBytes + inputs.extraMegaBytes);
    const auto room = ShownMegaBytes(inputs.discMegaBytes * inputs.discs);
    if (others.empty() || room.empty()) {
      return "there is no bitrate: the numbers are too large";
    }
    return "no room is left for the video: of " + room + " MB, everything else needs " + others +
           " MB; a larger --size, more --discs, less --audio or less --extra makes room";
  }

  static JsonObject InputsOf(const VideoBitrateInputs& inputs, std::int16_t option) {
    JsonObject json;
    json.Add("length_minutes", inputs.minutes);
    json.Add("size_mb", inputs.discMegaBytes);
    json.Add("discs", inputs.discs);
    json.Add("audio_kbps", inputs.audioKiloBits);
    json.Add("extra_mb", inputs.extraMegaBytes);
    json.Add("overhead_kb_per_second", inputs.overheadKiloBytesPerSecond);
    json.Add("divx", option == 0 ? "3" : "4/5");
    return json;
  }

  FilmInput film_;
  OverheadInput overhead_;
  DivXInput divX_;
  std::optional<double> size_;   // MB
  std::optional<double> extra_;  // MB
  std::optional<std::int16_t> discs_;
  std::vector<double> audio_;  // kbit/s
};

}  // namespace

std::unique_ptr<Command> MakeBitrate() { return std::make_unique<Bitrate>(); }

}  // namespace brindle
