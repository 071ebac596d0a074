// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/peak_scan.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include <QString>

#include "wav/gain.h"
#include "wav/pass_progress.h"
#include "wav/samples.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {

namespace {

// One store a sample; lowest and highest are looked up once, at the end. Flags of a whole byte: a
// single bit would have to be read first.
class SeenLevel {
 public:
  void Add(Samples samples) {
    auto* zero = flags_.data() + LevelZero;
    for (const auto level : samples) {
      zero[level] = 1;
    }
  }
  [[nodiscard]] std::int16_t Lowest() const {
    const auto first = std::find(flags_.begin(), flags_.begin() + LevelZero, 1);
    return Level(first);
  }
  [[nodiscard]] std::int16_t Highest() const {
    const auto last = std::find(flags_.rbegin(), flags_.rend() - LevelZero - 1, 1);
    return Level(last.base() - 1);
  }

 private:
  [[nodiscard]] std::int16_t Level(std::vector<std::uint8_t>::const_iterator at) const {
    return static_cast<std::int16_t>(at - flags_.begin() - static_cast<std::ptrdiff_t>(LevelZero));
  }

  std::vector<std::uint8_t> flags_ = std::vector<std::uint8_t>(LevelCount);
};

// What a scan of some samples reads: whole blocks from their start on, then single words.
struct ScanLoops {
  qint64 blockEnd = 0;   // the last position at which a block is read
  qint64 words = 0;      // the first position of a single word
  qint64 unblocked = 0;  // the first position after the blocks
};

ScanLoops LoopsOver(const SampleData& data, Coverage coverage) {
  const bool isUsual = coverage == Coverage::Usual;
  ScanLoops loops;
  loops.blockEnd = isUsual ? data.BlockEnd(BlockSize) : data.start + data.length - BlockSize;
  const qint64 blocks =
      loops.blockEnd < data.start ? 0 : (loops.blockEnd - data.start) / BlockSize + 1;
  loops.unblocked = data.start + blocks * BlockSize;
  // Deliberately not where the blocks ended.
  loops.words = isUsual ? loops.blockEnd + BlockSize : loops.unblocked;
  return loops;
}

// The last of the words between the blocks and the single words. Single words may stand askew,
// where what follows the samples is an odd number of bytes; then they are none of the samples.
qint64 LastUnseen(const SampleData& data, const ScanLoops& loops) {
  const bool isAskew = (loops.words - loops.unblocked) % WordSize != 0;
  return isAskew ? data.LastWord() : std::min(data.LastWord(), loops.words - WordSize);
}

}  // namespace

PeakScan ScanPeaks(const QString& source, const Clock& clock, PassObserver& observer,
                   Coverage coverage) {
  PeakScan scan;
  WavFile file;
  scan.error = file.OpenForReading(source);
  if (scan.error) {
    return scan;
  }
  const auto located = LocateData(file);
  if (const auto* error = std::get_if<WavError>(&located)) {
    scan.error = *error;
    return scan;
  }
  const auto& data = std::get<SampleData>(located);
  const auto loops = LoopsOver(data, coverage);

  SeenLevel seenLevel;
  SampleBuffer buffer(BlockWords);
  const auto look = [&](qint64 position, std::size_t words) {
    const auto samples = Samples(buffer).first(words);
    scan.error = file.Read(position, BytesOf(samples));
    if (!scan.error) {
      seenLevel.Add(samples);
    }
    return !scan.error;
  };

  PassTimer timer(clock, observer, data.fileLength);
  qint64 position = data.start;
  while (position <= loops.blockEnd && look(position, BlockWords)) {
    scan.isAborted = !timer.GoesOn(position, UpdateInterval::Half);
    if (scan.isAborted) {
      break;
    }
    position += BlockSize;
  }
  if (!scan.isAborted && !scan.error) {
    position = loops.words;
    for (qint64 words = WordsUpTo(position, data.LastWord()); words > 0;) {
      const auto piece = std::min<qint64>(words, BlockWords);
      if (!look(position, static_cast<std::size_t>(piece))) {
        break;
      }
      position += piece * WordSize;
      words -= piece;
    }
  }
  scan.throughput = static_cast<float>(timer.Throughput(position + data.start + WordSize));
  scan.lowest = seenLevel.Lowest();
  scan.highest = seenLevel.Highest();
  return scan;
}

CutOffWords CutOffUnseen(const QString& source, double gain) {
  WavFile file;
  if (file.OpenForReading(source)) {
    return {};
  }
  const auto located = LocateData(file);
  if (!std::holds_alternative<SampleData>(located)) {
    return {};
  }
  const auto& data = std::get<SampleData>(located);
  const auto loops = LoopsOver(data, Coverage::Usual);
  const auto unseen = WordsUpTo(loops.unblocked, LastUnseen(data, loops));
  SampleBuffer samples(static_cast<std::size_t>(unseen));
  if (file.Read(loops.unblocked, BytesOf(samples))) {
    return {};
  }
  return {.cutOff = std::count_if(samples.begin(), samples.end(),
                                  [gain](std::int16_t level) { return IsCutOff(level, gain); }),
          .words = WordsUpTo(data.start, data.LastWord())};
}

}  // namespace brindle
