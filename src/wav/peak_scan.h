// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>

#include <QString>

#include "base/time/clock.h"
#include "wav/pass_progress.h"
#include "wav/wav_file.h"

namespace brindle {

/// What a scan found.
struct PeakScan {
  std::int16_t lowest = 0;        ///< the lowest level seen, never above 0
  std::int16_t highest = 0;       ///< the highest level seen, never below 0
  float throughput = 0;           ///< MB/s (1024 * 1024 bytes); 0 where no time has passed
  bool isAborted = false;         ///< the observer ended it; the levels are those seen until then
  std::optional<WavError> error;  ///< ended it as well
};

/// Which words of the samples a scan looks at.
///
/// Usual: not every one. That is kept so that the peaks shown stay those the program has always
/// shown; CutOffUnseen() finds what it costs. The words after the blocks are read from the last 64
/// KB block's end on, so that the last whole block is left out but for its last word where the
/// samples run to the end of the file; below 64 KB of samples the upper half of the length field
/// counts as a word.
enum class Coverage { Usual, EveryWord };

/// Finds the lowest and highest sample level of a file. The observer is told at most every half
/// second, after a block. The throughput is that of the end's position *plus* the samples' start,
/// deliberately: figures of older versions stay comparable.
[[nodiscard]] PeakScan ScanPeaks(const QString& source, const Clock& clock, PassObserver& observer,
                                 Coverage coverage = Coverage::Usual);

/// Words that a gain cuts off.
struct CutOffWords {
  qint64 cutOff = 0;
  qint64 words = 0;  ///< of all samples of the file
};

/// How many of the words that the usual coverage leaves out a pass of this gain would cut off: at
/// most those of two blocks. None where the file cannot be read; the pass will tell why.
[[nodiscard]] CutOffWords CutOffUnseen(const QString& source, double gain);

}  // namespace brindle
