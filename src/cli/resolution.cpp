// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "aspect/resolution.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/numbers/numeric_text.h"
#include "base/settings/settings.h"
#include "cli/commands.h"
#include "cli/reading.h"

namespace brindle {
namespace {

constexpr std::int16_t BuiltInIncrement = 16;
constexpr int LargestResolution = 32767;  // pixels

Reading<std::int16_t> ReadIncrement(std::string_view text) {
  constexpr std::int16_t largest = 256;
  return ReadCount(text).and_then([&](std::int16_t increment) -> Reading<std::int16_t> {
    if (increment > largest) {
      return tl::unexpected(Quoted(text) + " is more than 256");
    }
    return increment;
  });
}

class Resolution : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {
        .name = "resolution",
        .summary = "a resolution that keeps the film's shape",
        .description =
            "Works out the height that keeps the ratio of the film at a width, or "
            "the width at a height, as a multiple of the increment, with the number "
            "of pixels and macroblocks and the error of the ratio. With the ratio "
            "free, takes both as they are given.",
        .example = "brindle resolution --ratio 2.35:1 --width 640",
        .exampleOutput = {"640x272", "174080 pixels, 680 macroblocks, ratio 2.353, error 0.13%"}};
  }

  void AddOptions(Options& options) override {
    const auto builtIn = BuiltInSettings();
    options.Add({.names = "--ratio",
                 .value = "RATIO",
                 .help = "Ratio of the film: 1:1, 4:3, 1.66:1, 16:9, 1.85:1, 2.35:1, any other, or "
                         "free",
                 .byDefault = "16:9",
                 .words = {"free", "1:1", "4:3", "1.66:1", "16:9", "1.85:1", "2.35:1"}},
                ratio_, ReadRatio);
    options.Add({.names = "--width",
                 .value = "PIXELS",
                 .help = "Horizontal resolution",
                 .byDefault = TextOf(builtIn.ResHorizontal)},
                width_, ReadCount);
    options.Add({.names = "--height", .value = "PIXELS", .help = "Vertical resolution"}, height_,
                ReadCount);
    options.Add({.names = "--increment",
                 .value = "PIXELS",
                 .help = "What width and height are multiples of",
                 .byDefault = TextOf(BuiltInIncrement),
                 .words = {"2", "4", "8", "16", "32"}},
                increment_, ReadIncrement);
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    const auto& record = given.record;
    const float ratio = ratio_.value_or(StoredRatio(record));
    const int modulus = increment_.value_or(BuiltInIncrement);
    const bool isFree = ratio == 0;
    if (!isFree && width_ && height_) {
      return report.RefuseUsage(
          "--width and --height together leave nothing to work out; give one "
          "of them, or --ratio free");
    }
    int width = Snapped(width_.value_or(record.ResHorizontal), modulus);
    int height = Snapped(height_.value_or(record.ResVertical), modulus);
    if (!isFree) {
      height_ ? width = WidthFor(height, ratio, modulus)
              : height = HeightFor(width, ratio, modulus);
    }
    if (width <= 0 || height <= 0) {
      return report.RefuseAnswer("no multiple of " + std::to_string(modulus) +
                                 " is near enough; a larger --width or --height, or a smaller "
                                 "--increment, gives one");
    }
    if (width > LargestResolution || height > LargestResolution) {
      return report.RefuseAnswer(
          "the picture is larger than 32767 pixels; a smaller --width or "
          "--height fits");
    }
    const auto statistics = StatisticsOf(width, height, ratio);
    const auto error =
        statistics.errorPercent ? TextOf(*statistics.errorPercent) + "%" : std::string("N/A");

    Answer answer;
    answer.lines = {std::to_string(width) + "x" + std::to_string(height),
                    std::to_string(statistics.pixels) + " pixels, " +
                        std::to_string(statistics.macroblocks) + " macroblocks, ratio " +
                        TextOf(statistics.ratio) + ", error " + error};
    auto& json = answer.json;
    json.Add("width_pixels", static_cast<double>(width));
    json.Add("height_pixels", static_cast<double>(height));
    json.Add("pixels", static_cast<double>(statistics.pixels));
    json.Add("macroblocks", static_cast<double>(statistics.macroblocks));
    json.AddShown("ratio", TextOf(statistics.ratio), static_cast<double>(width) / height);
    if (statistics.errorPercent) {
      json.Add("error_percent", *statistics.errorPercent);
    } else {
      json.AddNull("error_percent");
    }
    JsonObject inputs;
    isFree ? inputs.AddNull("ratio") : inputs.Add("ratio", NumberOf(TextOfSingle(ratio)));
    inputs.Add("increment_pixels", static_cast<double>(modulus));
    json.Add("inputs", inputs);
    return report.Give(answer);
  }

 private:
  static float StoredRatio(const Settings& record) {
    enum Mode { Free, Standard, Custom };
    return record.AspectMode == Standard ? StandardRatio(record.StandardAspect)
           : record.AspectMode == Custom ? record.CustomAspect
                                         : 0;
  }

  std::optional<float> ratio_;
  std::optional<std::int16_t> width_;
  std::optional<std::int16_t> height_;
  std::optional<std::int16_t> increment_;
};

}  // namespace

std::unique_ptr<Command> MakeResolution() { return std::make_unique<Resolution>(); }

}  // namespace brindle
