// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/numbers/frame_rate.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"
#include "base/settings/settings.h"
#include "cli/commands.h"
#include "cli/inputs.h"
#include "cli/reading.h"
#include "split/split_plan.h"

namespace brindle {
namespace {

struct Segment {
  double megaBytes = 0;
  std::vector<FrameRange> deleted;
};

class Split : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {.name = "split",
            .summary = "where to cut an AVI into two or three parts",
            .description =
                "Works out which frames to delete from a large AVI so that each segment "
                "has its size and begins on a key frame. The last segment gets the "
                "rest. A range that runs to the end of the file ends with the number of "
                "its frames.",
            .example = "brindle split --size 1300MB --length 150000f --segment 650MB",
            .exampleOutput = {"cut at frame 75000", "segment 1, 650 MB: delete 75000 to 150000",
                              "segment 2, 650 MB: delete 0 to 74999",
                              "600 key frames, one every 250 frames; duration 1:40:00.00"}};
  }

  void AddOptions(Options& options) override {
    const auto builtIn = BuiltInSettings();
    options.Add({.names = "--size",
                 .value = "SIZE",
                 .help = "Size of the AVI",
                 .byDefault = MegaBytesText(builtIn.SplitAVISize)},
                size_, ReadMegaBytes);
    film_.AddLength(options);
    options.AddList({.names = "--segment",
                     .value = "SIZE",
                     .help = "Size of the first segment; a second time, of the second of three",
                     .byDefault = MegaBytesText(builtIn.SplitSize1)},
                    segments_, ReadMegaBytes);
    film_.AddRate(options);
    options.Add({.names = "--key-frame-every",
                 .value = "SECONDS",
                 .help = "Seconds from one key frame to the next",
                 .byDefault = TextOf(builtIn.KeyframeInterval)},
                interval_, ReadNumber);
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    if (segments_.size() > 2) {
      return report.RefuseUsage("--segment is given more than twice; the last one gets the rest");
    }
    const auto& record = given.record;
    const bool isThree = segments_.empty() ? record.SplitSegmentsMode != 0 : segments_.size() == 2;
    const double rate = film_.Rate(record);
    const double minutes = film_.Minutes(record);
    const double seconds =
        WholePart(interval_.value_or(static_cast<double>(record.KeyframeInterval)));
    const SplitInputs inputs{
        .frames = WholeFrames(minutes, rate),
        .megaBytes = size_.value_or(record.SplitAVISize),
        .firstMegaBytes = segments_.empty() ? record.SplitSize1 : segments_.front(),
        .secondMegaBytes = !isThree            ? 0
                           : segments_.empty() ? record.SplitSize2
                                               : segments_.back(),
        // An interval of 0 counts as a second.
        .keyFrameInterval = KeyFrameInterval(seconds == 0 ? 1 : seconds, rate)};
    if (inputs.frames > std::numeric_limits<std::int32_t>::max()) {
      return report.RefuseAnswer("the film has too many frames; a smaller --length can be cut");
    }
    const auto plan = isThree ? PlanOfThree(inputs) : PlanOfTwo(inputs);
    if (!plan[0].start) {
      return report.RefuseAnswer(WhyNone(inputs));
    }
    return report.Give(AnswerOf(inputs, plan, isThree, minutes));
  }

 private:
  static std::string WhyNone(const SplitInputs& inputs) {
    if (!(inputs.frames >= 0) || !std::isfinite(inputs.frames)) {
      return "there are no frames to cut; --length and --rate give them";
    }
    if (inputs.megaBytes <= 0) {
      return "there is nothing to cut; --size gives the size of the file";
    }
    if (Remainder(inputs.megaBytes, inputs.firstMegaBytes, inputs.secondMegaBytes) < 0) {
      return "the segments need " + TextOf(inputs.firstMegaBytes + inputs.secondMegaBytes) +
             " MB, but the file has only " + TextOf(inputs.megaBytes) +
             " MB; a larger --size or a smaller --segment fits";
    }
    return "there is no key frame to cut at; --rate and --key-frame-every give the interval";
  }

  static std::vector<Segment> SegmentsOf(const SplitInputs& inputs, const SplitPlan& plan,
                                         bool isThree) {
    const double rest = Remainder(inputs.megaBytes, inputs.firstMegaBytes, inputs.secondMegaBytes);
    if (isThree) {
      return {{inputs.firstMegaBytes, {plan[0]}},
              {inputs.secondMegaBytes, {plan[1], plan[2]}},
              {rest, {plan[3]}}};
    }
    return {{inputs.firstMegaBytes, {plan[0]}}, {rest, {plan[1]}}};
  }

  static Answer AnswerOf(const SplitInputs& inputs, const SplitPlan& plan, bool isThree,
                         double minutes) {
    Answer answer;
    answer.lines.push_back("cut at frame " + TextOf(plan[0].start.value_or(0)) +
                           (isThree ? " and " + TextOf(plan[2].start.value_or(0)) : ""));
    const auto segments = SegmentsOf(inputs, plan, isThree);
    std::vector<JsonObject> list;
    for (std::size_t i = 0; i < segments.size(); ++i) {
      const auto& segment = segments[i];
      std::string ranges;
      std::vector<JsonObject> deleted;
      for (const auto& range : segment.deleted) {
        if (range.start && range.end) {
          ranges.append(ranges.empty() ? "" : " and ")
              .append(TextOf(*range.start) + " to " + TextOf(*range.end));
          JsonObject json;
          json.Add("start_frame", *range.start);
          json.Add("end_frame", *range.end);
          deleted.push_back(json);
        }
      }
      answer.lines.push_back("segment " + std::to_string(i + 1) + ", " + TextOf(segment.megaBytes) +
                             " MB: delete " + (ranges.empty() ? "nothing" : ranges));
      JsonObject json;
      json.Add("size_mb", segment.megaBytes);
      json.Add("delete", deleted);
      list.push_back(json);
    }
    const auto keyFrames = KeyFrames(inputs.frames, inputs.keyFrameInterval);
    answer.lines.push_back((keyFrames ? std::to_string(*keyFrames) + " key frames, one every "
                                      : "a key frame every ") +
                           TextOf(inputs.keyFrameInterval) + " frames; duration " +
                           ClockText(minutes));
    auto& json = answer.json;
    json.Add("segments", list);
    json.Add("key_frames", static_cast<double>(keyFrames.value_or(0)));
    JsonObject given;
    given.Add("size_mb", inputs.megaBytes);
    given.Add("length_minutes", minutes);
    given.Add("frames", inputs.frames);
    given.Add("key_frame_interval_frames", inputs.keyFrameInterval);
    json.Add("inputs", given);
    return answer;
  }

  FilmInput film_;
  std::optional<double> size_;      // MB
  std::vector<double> segments_;    // MB
  std::optional<double> interval_;  // seconds
};

}  // namespace

std::unique_ptr<Command> MakeSplit() { return std::make_unique<Split>(); }

}  // namespace brindle
