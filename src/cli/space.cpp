// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "audiodisk/disk_space.h"
#include "base/numbers/numeric_text.h"
#include "base/settings/settings.h"
#include "cli/commands.h"
#include "cli/inputs.h"
#include "cli/reading.h"

namespace brindle {
namespace {

// KB per second of an audio track: uncompressed, or at a bitrate.
Reading<double> ReadTrack(std::string_view text) {
  if (text == "wav44") {
    return Wav44KiloBytesPerSecond;
  }
  if (text == "wav48") {
    return Wav48KiloBytesPerSecond;
  }
  return ReadKiloBits(text).map(CompressedKiloBytesPerSecond).map_error([&](const auto& error) {
    return error.find("comma") == std::string::npos
               ? Quoted(text) + " is neither wav44 nor wav48 nor a bitrate in kbps, such as 224"
               : error;
  });
}

class Space : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {.name = "space",
            .summary = "the disk space that video and audio files need",
            .description =
                "Works out how much room the video file and the audio files of a film "
                "need before they are joined. The video is given by its bitrate or by "
                "its size. For compressed audio a kilobit is counted as 1024 bits.",
            .example = "brindle space --length 102.5 --video-bitrate 1647 --audio wav48",
            .exampleOutput = {"2334 MB", "video 1207.5 MB, audio 1126.1 MB"}};
  }

  void AddOptions(Options& options) override {
    const auto builtIn = BuiltInSettings();
    film_.AddLength(options);
    options.Add({.names = "--video-bitrate",
                 .value = "KBPS",
                 .help = "Bitrate of the video",
                 .byDefault = TextOf(builtIn.HDVideoBitrate)},
                videoBitrate_, ReadKiloBits);
    options.Add({.names = "--video-size",
                 .value = "SIZE",
                 .help = "Size of the video, in place of its bitrate"},
                videoSize_, ReadMegaBytes);
    options.Exclude("--video-bitrate", "--video-size");
    divX_.Add(options);
    options.AddList({.names = "--audio",
                     .value = "TRACK",
                     .help = "An audio track: wav44 or wav48 (16-bit stereo), or its bitrate in "
                             "kbps; once for each",
                     .byDefault = "wav44",
                     .words = {"wav44", "wav48"}},
                    audio_, ReadTrack);
    film_.AddRate(options);
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    const auto& record = given.record;
    const double minutes = film_.Minutes(record);
    double audio = 0;
    for (const double track : audio_.empty() ? std::vector{StoredTrack(record)} : audio_) {
      audio += track;
    }
    const double video = Video(record, minutes);
    const double total = TotalMegaBytes(minutes, audio, video);
    const auto shown = total > 0 ? Formatted(total, "#") : std::string();
    if (minutes <= 0) {
      return report.RefuseAnswer("there is no answer without a running time; --length gives one");
    }
    if (shown.empty()) {
      return report.RefuseAnswer(
          "there is nothing to store; --video-bitrate, --video-size or "
          "--audio gives something");
    }

    Answer answer;
    answer.lines = {shown + " MB"};
    answer.json.AddShown("space_mb", shown, total);
    std::string parts;
    const auto add = [&](const std::string& name, double megaBytes) {
      const auto text = ShownMegaBytes(megaBytes);
      if (!text.empty()) {
        parts.append(parts.empty() ? "" : ", ").append(name).append(" ").append(text).append(" MB");
      }
      answer.json.AddShown(name + "_mb", text, megaBytes);
    };
    add("video", video);
    add("audio", TotalMegaBytes(minutes, audio, 0));
    answer.lines.push_back(parts);
    JsonObject json;
    json.Add("length_minutes", minutes);
    json.Add("audio_kb_per_second", audio);
    json.Add("divx", divX_.Option(record) == 0 ? "3" : "4/5");
    answer.json.Add("inputs", json);
    return report.Give(answer);
  }

 private:
  static double StoredTrack(const Settings& record) {
    enum AudioType { Wav44, Wav48, Compressed };
    return record.HDAudioType == Wav44        ? Wav44KiloBytesPerSecond
           : record.HDAudioType == Wav48      ? Wav48KiloBytesPerSecond
           : record.HDAudioType == Compressed ? CompressedKiloBytesPerSecond(record.HDAudioBitrate)
                                              : 0;
  }

  // MB.
  [[nodiscard]] double Video(const Settings& record, double minutes) const {
    const bool isStoredBySize = !videoBitrate_ && record.HDVideoMode == 1;
    if (videoSize_ || isStoredBySize) {
      return videoSize_.value_or(record.VideoOnlySize);
    }
    return VideoMegaBytes(videoBitrate_.value_or(record.HDVideoBitrate), minutes,
                          VideoFactorOf(divX_.Option(record)));
  }

  FilmInput film_;
  DivXInput divX_;
  std::optional<double> videoBitrate_;  // kbit/s
  std::optional<double> videoSize_;     // MB
  std::vector<double> audio_;           // KB/s
};

}  // namespace

std::unique_ptr<Command> MakeSpace() { return std::make_unique<Space>(); }

}  // namespace brindle
