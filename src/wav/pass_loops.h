// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QtGlobal>

#include "base/files/disk.h"
#include "wav/buffering.h"
#include "wav/level_range.h"
#include "wav/record_facts.h"
#include "wav/samples.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {

/// Blocks that a pass with Buffering::Multi reads before it writes any of them.
inline constexpr qint64 MultiBlocks = 64;
inline constexpr qint64 MultiSize = MultiBlocks * BlockSize;  ///< bytes

/// The position where the loops of a pass end, which is after the last word that they map.
[[nodiscard]] qint64 EndOfLoops(const SampleData& data, Buffering buffering);

/// The levels that the samples of a source are known to have.
struct KnownLevels {
  LevelRange levels = AllLevels;
  std::optional<FileStamp> of = {};  ///< they hold for this state of the file; nothing: for any
};

/// What a record of a pass in place over a file has to say from the start on, except its path and
/// its time. `data` is where the samples of the file are.
[[nodiscard]] WavResult<PassFacts> FactsOfPass(WavFile& file, const SampleData& data, double gain,
                                               Buffering buffering, const KnownLevels& known);

/// Whether the loops map the pieces of the record and no other words, and a round of blocks leaves
/// no piece.
[[nodiscard]] bool AreLoopsWithin(const SampleData& data, const PassFacts& facts);

}  // namespace brindle
