// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/pass_loops.h"

#include <algorithm>

#include <QtGlobal>

#include "base/files/disk.h"
#include "wav/buffering.h"
#include "wav/gain.h"
#include "wav/inverse_table.h"
#include "wav/level_range.h"
#include "wav/pass_record.h"
#include "wav/piece_grid.h"
#include "wav/record_facts.h"
#include "wav/record_hash.h"
#include "wav/recorded_file.h"
#include "wav/samples.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {

namespace {

// The bytes that a record needs at most for what the table of the gain loses, if all samples lie in
// `levels`. Of words after the samples, which the loops map too, nobody knows the levels, and they
// change what the other words of their piece take.
qint64 RoomForBits(const SampleData& data, const PieceGrid& grid, const GainTable& table,
                   LevelRange levels) {
  const auto bytes = [](qint64 words, int bits) {
    constexpr qint64 bitsPerByte = 8;
    return (words * bits + bitsPerByte - 1) / bitsPerByte;
  };
  const auto endOfSamples = std::max(grid.start, data.LastWord() + WordSize);
  const auto known =
      endOfSamples >= grid.end ? grid.end : grid.PositionOf(grid.PieceAt(endOfSamples));
  return bytes((known - grid.start) / WordSize, MostBitsLost(table, levels)) +
         bytes((grid.end - known) / WordSize, MostBitsLost(table, AllLevels)) + grid.Count();
}

}  // namespace

qint64 EndOfLoops(const SampleData& data, Buffering buffering) {
  const auto after = [&](qint64 position, qint64 last, qint64 size) {
    return last < position ? position : position + ((last - position) / size + 1) * size;
  };
  qint64 position = data.start;
  if (buffering == Buffering::Multi) {
    position = after(position, data.BlockEnd(MultiSize), MultiSize);
    position = after(position, data.fileLength - BlockSize - 1, BlockSize);
  } else {
    position = after(position, data.BlockEnd(BlockSize), BlockSize);
  }
  return after(position, data.LastWord(), WordSize);
}

WavResult<PassFacts> FactsOfPass(WavFile& file, const SampleData& data, double gain,
                                 Buffering buffering, const KnownLevels& known) {
  PassFacts facts;
  facts.fileLength = data.fileLength;
  facts.grid = {
      .start = data.start, .end = EndOfLoops(data, buffering), .size = PassRecord::PieceSize};
  facts.gain = gain;
  facts.buffering = buffering;
  facts.headLength = HeadLength(data.start, data.fileLength);
  return file.OnDisk()
      ->Stamp()
      .map_error(FailedAt(WavError::Failed::Reading))
      .and_then([&](const FileStamp& stamp) {
        facts.stamp = stamp;
        const bool isKnown = !known.of || *known.of == stamp;
        facts.bitsRoom =
            RoomForBits(data, facts.grid, GainTable(gain), isKnown ? known.levels : AllLevels);
        return HashOfHead(file, facts.headLength);
      })
      .map([&](quint64 hash) {
        facts.headHash = hash;
        return facts;
      });
}

bool AreLoopsWithin(const SampleData& data, const PassFacts& facts) {
  const auto& grid = facts.grid;
  const bool hasRounds =
      facts.buffering == Buffering::Multi && data.start <= data.BlockEnd(MultiSize);
  return grid.start == data.start && grid.end == EndOfLoops(data, facts.buffering) &&
         (!hasRounds || grid.size % MultiSize == 0);
}

}  // namespace brindle
