// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "cli/commands.h"
#include "cli/film_files.h"
#include "cli/inputs.h"
#include "media/film.h"
#include "media/film_json.h"

namespace brindle {
namespace {

constexpr double SecondsOfAMinute = 60;

std::string Rounded(double value, int decimals) { return TextOf(RoundedTo(value, decimals)); }

std::string Whole(std::int64_t number) { return std::to_string(number); }

std::string Plural(std::size_t count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

// "1:42:30, 25 fps, 640 x 272, 2 audio tracks".
std::string Summary(const Film& film) {
  std::string text = ClockText(film.seconds / SecondsOfAMinute);
  if (film.video) {
    text += ", " + Rounded(film.video->frameRate.Value(), 3) + " fps, " + Whole(film.video->width) +
            " x " + Whole(film.video->height);
  }
  return text + ", " + (film.audio.empty() ? "no audio" : Plural(film.audio.size(), "audio track"));
}

std::string ContainerLine(const Film& film) {
  auto text = "container: " + film.container + ", " + MegaBytesOf(static_cast<double>(film.bytes)) +
              ", of it " + MegaBytesOf(static_cast<double>(film.containerBytes)) +
              " neither video nor audio";
  if (film.framesBetweenAudio) {
    text += ", audio every " + Rounded(*film.framesBetweenAudio, 2) + " frames";
  }
  return text;
}

std::string VideoLine(const Film& film) {
  const auto& video = *film.video;
  constexpr double bits = 8;
  constexpr double kilo = 1000;
  const double kiloBits =
      film.seconds > 0 ? static_cast<double>(video.bytes) * bits / kilo / film.seconds : 0;
  return "video: " + video.codec + ", " + Whole(video.width) + " x " + Whole(video.height) +
         " shown at " + Rounded(video.Shape(), 3) + " to 1, " + Whole(video.frames) +
         " frames at " + Rounded(video.frameRate.Value(), 3) + " fps, " + Rounded(kiloBits, 1) +
         " kbps, " + MegaBytesOf(static_cast<double>(video.bytes));
}

std::string AudioLine(const FilmAudio& audio, std::size_t number) {
  return "audio " + std::to_string(number) + ": " + audio.codec + ", " +
         Rounded(audio.kilobitsPerSecond, 1) + " kbps, " +
         Plural(static_cast<std::size_t>(audio.channels), "channel") + ", " +
         Whole(audio.sampleRate) + " Hz, " + MegaBytesOf(static_cast<double>(audio.bytes));
}

std::vector<std::string> LinesOf(const Film& film, const std::string& name, bool withKeyFrames) {
  std::vector<std::string> lines{name + ": " + Summary(film), ContainerLine(film)};
  if (film.video) {
    lines.push_back(VideoLine(film));
  }
  for (std::size_t i = 0; i < film.audio.size(); ++i) {
    lines.push_back(AudioLine(film.audio[i], i + 1));
  }
  if (!film.keyFrames.empty()) {
    lines.push_back(Plural(film.keyFrames.size(), "key frame") + ", one every " +
                    Rounded(static_cast<double>(film.video->frames) /
                                static_cast<double>(film.keyFrames.size()),
                            1) +
                    " frames");
  }
  for (std::size_t i = 0; withKeyFrames && i < film.keyFrames.size(); ++i) {
    lines.push_back("frame " + Whole(film.keyFrames[i].frame) + " at byte " +
                    Whole(film.keyFrames[i].position));
  }
  return lines;
}

class Info : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {.name = "info",
            .summary = "what there is to know about a film",
            .description =
                "Reads a film and tells its running time, frame rate and size in pixels, the "
                "bitrates and bytes of its video and audio, and its key frames. AVI and MP4 files "
                "have all of that in their index; others, and files without an index, are read "
                "through. Here, kbps are 1000 bits per second.",
            .example = "brindle info holiday.avi --json --key-frames"};
  }

  void AddOptions(Options& options) override {
    film_.AddTo(options);
    options.AddFlag(
        {.names = "--key-frames", .value = {}, .help = "Tell each key frame and where it is"},
        withKeyFrames_);
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    if (!film_.IsGiven()) {
      return report.RefuseUsage("FILE is missing");
    }
    const auto read = film_.Read(given, report);
    if (!read) {
      return Refuse(read.error(), report);
    }
    auto film = (*read)->Facts();
    if (!report.IsJson()) {
      report.GivePart(LinesOf(film, film_.Name(), withKeyFrames_));
      return ExitCode::Answered;
    }
    if (!withKeyFrames_) {
      film.keyFrames.clear();
    }
    report.Terminal().WriteAnswer(JsonOf(film, film_.Name()) + "\n");
    return ExitCode::Answered;
  }

 private:
  [[nodiscard]] ExitCode Refuse(const Refusal& refusal, Reporter& report) const {
    report.Tell(refusal.message);
    if (report.IsJson()) {
      Answer answer;
      answer.json.Add("file", film_.Name());
      answer.json.Add("error", refusal.message);
      static_cast<void>(report.Give(answer));
    }
    return refusal.code;
  }

  FilmArgument film_;
  bool withKeyFrames_ = false;
};

}  // namespace

std::unique_ptr<Command> MakeInfo() { return std::make_unique<Info>(); }

}  // namespace brindle
