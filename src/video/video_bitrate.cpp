// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/video_bitrate.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace brindle {
namespace {

struct Band {
  double lowest = 0;  // kbit/s, inclusive
  std::string_view rating;
};

struct Scale {
  std::span<const Band> bands;
  double maximum = 0;  // kbit/s, inclusive in the last band
  std::string_view aboveMaximum;
};

// Version 3 deliberately has the one band "Average-Good" where the later versions have "Average"
// and "Good": ratings stay comparable with older ones (RatesQuality).
constexpr std::array Version3{
    Band{0, "Very Poor"},      Band{500, "Poor"},       Band{700, "Medium-Poor"},
    Band{900, "Average-Good"}, Band{1100, "Very Good"}, Band{1500, "Excellent"},
    Band{2500, "Maximum"},
};
constexpr std::array Version4And5{
    Band{0, "Very Poor"}, Band{400, "Poor"},       Band{600, "Medium-Poor"}, Band{750, "Average"},
    Band{950, "Good"},    Band{1100, "Very Good"}, Band{1500, "Excellent"},  Band{2500, "Maximum"},
};
constexpr std::array Scales{
    Scale{Version3, 6000, "Max. setting is 6000"},
    Scale{Version4And5, 10000, "Max. setting is 10000"},
};

}  // namespace

double DivXFactorOf(std::int16_t option) { return 1 + 0.024 * option; }

VideoBitrate ComputeVideoBitrate(const VideoBitrateInputs& inputs) {
  if (inputs.minutes <= 0) {
    return {};
  }
  const double seconds = inputs.minutes * 60;
  const double overhead = inputs.overheadKiloBytesPerSecond;
  const double totalKiloBytes = inputs.discMegaBytes * 1024 * inputs.discs;
  const double availableKiloBytes =
      totalKiloBytes - inputs.extraMegaBytes * 1024 - overhead * seconds;
  const double audio = inputs.audioKiloBits / 1.024;

  VideoBitrate result;
  result.kiloBits = (availableKiloBytes * 8 / seconds - audio) * inputs.divXFactor;
  result.videoMegaBytes = seconds * result.kiloBits / 8192 / inputs.divXFactor;
  result.audioMegaBytes = audio * seconds / 8192;
  result.overheadMegaBytes = overhead * seconds / 1024;
  return result;
}

std::optional<std::string_view> QualityRating(double kiloBits, std::int16_t option) {
  if (option < 0 || option >= static_cast<std::int16_t>(Scales.size())) {
    return std::nullopt;
  }
  if (!std::isfinite(kiloBits) || kiloBits <= 0) {
    return "";
  }
  const auto& scale = Scales[static_cast<std::size_t>(option)];
  if (kiloBits > scale.maximum) {
    return scale.aboveMaximum;
  }
  std::string_view rating;
  for (const auto& band : scale.bands) {
    if (kiloBits >= band.lowest) {
      rating = band.rating;
    }
  }
  return rating;
}

}  // namespace brindle
