// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_text.h"

#include <cstdint>
#include <optional>
#include <string>

#include "base/numbers/numeric_text.h"
#include "base/numbers/rounding.h"

namespace brindle {

namespace {

constexpr double SecondsPerHour = 3600;
constexpr double SecondsPerMinute = 60;
constexpr int ShownDecimals = 2;

// Takes the whole units from the rounded seconds and leaves the rest of the exact seconds.
double TakeOut(double& seconds, double unit) {
  const auto count = static_cast<double>(IntegerDivided(seconds, unit).value_or(0));
  seconds -= count * unit;
  return count;
}

}  // namespace

std::string FormatDuration(double& seconds) {
  const double hours = TakeOut(seconds, SecondsPerHour);
  const double minutes = TakeOut(seconds, SecondsPerMinute);
  return TextOf(hours) + ":" + Formatted(minutes, "00") + ":" + Formatted(seconds, "00.###");
}

std::optional<std::string> ChannelsText(int channels) {
  if (channels <= 0) {
    return std::nullopt;
  }
  return channels == 1 ? "Mono" : channels == 2 ? "Stereo" : std::to_string(channels) + "Ch";
}

std::optional<std::string> RemainingTime(double elapsed, int wholePercent) {
  if (wholePercent <= 0) {
    return std::nullopt;
  }
  double seconds = elapsed * (100 - wholePercent) / wholePercent;
  const double minutes = TakeOut(seconds, SecondsPerMinute);
  const auto padded = "00" + TextOf(RoundedTo(seconds, 0));
  return TextOf(minutes) + ":" + padded.substr(padded.size() - 2);
}

std::string UnseenText(std::int64_t cutOff, std::int64_t words) {
  return std::to_string(cutOff) + " of " + std::to_string(words) +
         " samples would be cut off, at the end, which the scan leaves out.\r\n"
         "\r\n"
         "Normalize to the peaks of the whole file instead?";
}

std::string AbortText() {
  return "Aborting normalization is not recommended. Output file will be damaged.\r\n"
         "                      Really abort normalization?";
}

std::string StatisticsText(const PassStatistics& statistics) {
  const auto rounded = [](double value) { return TextOf(RoundedTo(value, ShownDecimals)); };
  return "WAV file was successfully normalized. Stats:\r\n"
         "\r\n"
         "Applied amplification: " +
         rounded(statistics.amplification) + "%\r\n" +
         "Average scanning throughput: " + rounded(statistics.scanThroughput) + "MB/s\r\n" +
         "Average normalization throughput: " + rounded(statistics.normalizationThroughput) +
         "MB/s\r\n" +
         (statistics.isMultiBuffer ? "Buffer: 4096KB (multi buffer)"
                                   : "Buffer: 64KB (single buffer)");
}

}  // namespace brindle
