// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brindle {

/// A duration as hours:minutes:seconds with up to three decimals. Whole hours and minutes are taken
/// out of the *rounded* seconds, deliberately, so that a rest below 0 can remain: 59.7 is
/// "0:01:-00.3". Leaves the seconds that are beside the minutes in its argument.
[[nodiscard]] std::string FormatDuration(double& seconds);

/// "Mono" for 1 channel, "Stereo" for 2, "6Ch" for 6; nothing for 0 and below.
[[nodiscard]] std::optional<std::string> ChannelsText(int channels);

/// The rest of a pass as minutes:seconds ("3:07") from the seconds that `wholePercent` of it took;
/// nothing where that is not above 0.
[[nodiscard]] std::optional<std::string> RemainingTime(double elapsed, int wholePercent);

/// What a completed pass tells.
struct PassStatistics {
  double scanThroughput = 0;           ///< MB/s
  double normalizationThroughput = 0;  ///< MB/s
  double amplification = 0;            ///< percent
  bool isMultiBuffer = false;
};

/// The question before a pass that would cut off `cutOff` of the file's `words` which the scan
/// leaves out.
[[nodiscard]] std::string UnseenText(std::int64_t cutOff, std::int64_t words);

/// The question before a pass is aborted.
[[nodiscard]] std::string AbortText();

/// The closing message of a pass; its lines are parted by CR LF.
[[nodiscard]] std::string StatisticsText(const PassStatistics& statistics);

}  // namespace brindle
