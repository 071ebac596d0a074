// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brindle {

/// A duration as hours:minutes:seconds with up to three decimals. Whole hours and minutes are
/// deliberately taken from the *rounded* seconds, so that a rest below 0 can remain, as the window
/// has always shown it: 59.7 is "0:01:-00.3". Leaves in its argument the seconds shown after the
/// minutes.
[[nodiscard]] std::string FormatDuration(double& seconds);

/// "Mono" for 1 channel, "Stereo" for 2, "6Ch" for 6; none for 0 and below.
[[nodiscard]] std::optional<std::string> ChannelsText(int channels);

/// The remaining time of a pass as minutes:seconds ("3:07"), given the seconds that `wholePercent`
/// of it took; none if that is not above 0.
[[nodiscard]] std::optional<std::string> RemainingTime(double elapsed, int wholePercent);

/// The figures that a completed pass reports.
struct PassStatistics {
  double scanThroughput = 0;           ///< MB/s
  double normalizationThroughput = 0;  ///< MB/s
  double amplification = 0;            ///< percent
  bool isMultiBuffer = false;
};

/// The question before a pass that would cut off `cutOff` of the file's `words`, all of them among
/// those that the scan leaves out.
[[nodiscard]] std::string UnseenText(std::int64_t cutOff, std::int64_t words);

/// The question before a pass is aborted.
[[nodiscard]] std::string AbortText();

/// The closing message of a pass; CR LF separates its lines.
[[nodiscard]] std::string StatisticsText(const PassStatistics& statistics);

}  // namespace brindle
