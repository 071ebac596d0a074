// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "base/numbers/numeric_text.h"
#include "base/settings/settings.h"
#include "cli/commands.h"
#include "cli/inputs.h"
#include "cli/reading.h"
#include "convert/size_units.h"

namespace brindle {
namespace {

class Size : public Command {
 public:
  [[nodiscard]] CommandText Text() const override {
    return {.name = "size",
            .summary = "a size in bytes, KB, MB and GB",
            .description = "Converts a size to bytes, KB, MB and GB.",
            .example = "brindle size 4.7GB",
            .exampleOutput = {"5046586572.8 B = 4928307.2 KB = 4812.8 MB = 4.7 GB"}};
  }

  void AddOptions(Options& options) override {
    options.Add({.names = "SIZE",
                 .value = {},
                 .help = "The size",
                 .byDefault = MegaBytesText(BuiltInSettings().QuickSizeMB)},
                size_, ReadSize);
  }

  [[nodiscard]] ExitCode Run(const Surroundings& given, Reporter& report) override {
    const auto written = size_.value_or(WrittenSize{given.record.QuickSizeMB, SizeUnit::MB});
    const auto sizes = SizesFrom(written.unit, written.number);
    static constexpr std::array names{"B", "KB", "MB", "GB"};
    static constexpr std::array keys{"size_b", "size_kb", "size_mb", "size_gb"};
    Answer answer;
    std::string line;
    for (const auto unit : SizeUnits) {
      const auto i = IndexOf(unit);
      const auto text = TextOf(sizes.at(i));
      // What was written stays as it is; a size of 0 is blank in the window, but not here.
      auto shown = unit == written.unit ? text : TidiedSize(unit, text);
      shown = shown.empty() ? "0" : shown;
      line.append(line.empty() ? "" : " = ").append(shown).append(" ").append(names.at(i));
      answer.json.AddShown(keys.at(i), shown, sizes.at(i));
    }
    answer.lines = {line};
    return report.Give(answer);
  }

 private:
  std::optional<WrittenSize> size_;
};

}  // namespace

std::unique_ptr<Command> MakeSize() { return std::make_unique<Size>(); }

}  // namespace brindle
