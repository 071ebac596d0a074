// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <memory>
#include <optional>
#include <string>

#include "base/numbers/frame_rate.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/running_time.h"
#include "base/settings/settings.h"
#include "cli/commands.h"
#include "cli/inputs.h"
#include "cli/reading.h"

namespace brindle {
namespace {

class Time : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {.name = "time",
            .summary = "a running time in hours, minutes, and frames",
            .description =
                "Converts a running time: to hours, minutes and seconds, to minutes, "
                "and to frames.",
            .example = "brindle time 153750f --rate pal",
            .exampleOutput = {"1:42:30.00 = 102.5 minutes = 153750 frames"}};
  }

  void AddOptions(Options& options) override {
    options.Add({.names = "DURATION",
                 .value = {},
                 .help = "The running time",
                 .byDefault = TextOf(BuiltInSettings().MovieLength)},
                film_.length, ReadTime);
    film_.AddRate(options);
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    const double rate = film_.Rate(given.record);
    // Unlike elsewhere, 0 is a time as any other.
    const double minutes = film_.length ? film_.Minutes(given.record) : given.record.MovieLength;
    const double frames = film_.length ? film_.length->frames.value_or(WholeFrames(minutes, rate))
                                       : WholeFrames(minutes, rate);
    if (rate <= 0 || !std::isfinite(minutes) || !std::isfinite(frames)) {
      return report.RefuseAnswer(rate <= 0
                                     ? "there are no frames without a frame rate; --rate gives one"
                                     : "the time is too long to be counted");
    }
    const auto time = TakeApart(SecondsToHundredths(minutes));
    const auto shown = minutes == 0 ? "0" : MinutesText(minutes);

    Answer answer;
    answer.lines = {ClockText(minutes) + " = " + shown + " minutes = " + TextOf(frames) +
                    " frames"};
    auto& json = answer.json;
    json.Add("hours", time.hours);
    json.Add("minutes", time.minutes);
    json.AddShown("seconds", Formatted(time.seconds, "00.00"),
                  minutes * 60 - (time.hours * 60 + time.minutes) * 60);
    json.AddShown("length_minutes", shown, minutes);
    json.Add("frames", frames);
    JsonObject inputs;
    inputs.Add("rate_fps", rate);
    json.Add("inputs", inputs);
    return report.Give(answer);
  }

 private:
  FilmInput film_;
};

}  // namespace

std::unique_ptr<Command> MakeTime() { return std::make_unique<Time>(); }

}  // namespace brindle
