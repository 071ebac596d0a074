// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "audiodisk/audio_bitrate.h"

#include <array>
#include <cmath>
#include <string_view>

namespace brindle {
namespace {

struct Step {
  double lowest = 0;  // kbit/s, inclusive
  std::string_view suggestion;
};

constexpr std::array Steps{
    Step{0, "Inadequate Space"},      Step{32, "32kbps (Pathetic)"},
    Step{40, "40kbps (Pathetic)"},    Step{48, "48kbps (Pathetic)"},
    Step{56, "56kbps (Very Poor)"},   Step{64, "64kbps (Very Poor)"},
    Step{96, "96kbps (Poor)"},        Step{112, "112kbps (Medium)"},
    Step{128, "128kbps (Good)"},      Step{160, "160kbps (Very Good)"},
    Step{192, "192kbps (Excellent)"}, Step{224, "224kbps (Excellent)"},
    Step{256, "256kbps (Excellent)"},
};
constexpr double Largest = 320;  // kbit/s; suggested only above it

}  // namespace

double ComputeAudioBitrate(const AudioBitrateInputs& inputs) {
  const double seconds = inputs.minutes * 60;
  const double kiloBytes = inputs.targetMegaBytes * 1024 - inputs.videoMegaBytes * 1024 -
                           inputs.interleaveKiloBytesPerSecond * inputs.minutes * 60;
  // 1024 bytes of 8 bits, in kbit of 1000.
  const double kiloBits = kiloBytes * 8.192 / seconds;
  return seconds != 0 && std::isfinite(kiloBits) ? kiloBits : 0;
}

std::string_view SuggestedBitrate(double kiloBits) {
  if (kiloBits <= 0 || kiloBits == Largest) {
    return "";
  }
  if (kiloBits > Largest) {
    return "320kbps (Maximum)";
  }
  std::string_view suggestion;
  for (const auto& step : Steps) {
    if (kiloBits >= step.lowest) {
      suggestion = step.suggestion;
    }
  }
  return suggestion;
}

}  // namespace brindle
