// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/peak_scan.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include <QString>

#include "wav/gain.h"
#include "wav/pass.h"
#include "wav/samples.h"
#include "wav/sound_picture.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {

namespace {

ScanLoops LoopsOver(const SampleData& data, Coverage coverage) {
  const bool isUsual = coverage == Coverage::Usual;
  ScanLoops loops;
  loops.blockEnd = isUsual ? data.BlockEnd(BlockSize) : data.start + data.length - BlockSize;
  const qint64 blocks =
      loops.blockEnd < data.start ? 0 : (loops.blockEnd - data.start) / BlockSize + 1;
  loops.unblocked = data.start + blocks * BlockSize;
  // Deliberately not where the blocks ended: Coverage::Usual says which words that leaves out, and
  // why.
  loops.words = isUsual ? loops.blockEnd + BlockSize : loops.unblocked;
  return loops;
}

// The last of the words that are in neither the blocks nor the single words. The single words may
// be off by one byte, if an odd number of bytes follows the samples; then none of them is a sample.
qint64 LastUnseen(const SampleData& data, const ScanLoops& loops) {
  const bool isAskew = (loops.words - loops.unblocked) % WordSize != 0;
  return isAskew ? data.LastWord() : std::min(data.LastWord(), loops.words - WordSize);
}

}  // namespace

PeakScan::PeakScan(QString source, const Clock& clock, Coverage coverage)
    : source_(std::move(source)), clock_(clock), coverage_(coverage), buffer_(BlockWords) {}

PassState PeakScan::Advance() {
  if (!timer_) {
    if (const auto opened = Open(); !opened) {
      return opened.error();
    }
  }
  while (next_ <= loops_.blockEnd) {
    if (const auto looked = Look(next_, BlockWords); !looked) {
      return EndedWith(looked.error());
    }
    next_ += BlockSize;
    if (timer_->IsDue(UpdateInterval::Half)) {
      return PassGoesOn{timer_->ProgressAt(reached_)};
    }
  }
  if (const auto looked = LookAtWords(); !looked) {
    return EndedWith(looked.error());
  }
  return EndedWith(PassCompleted{});
}

PassState PeakScan::Abort() { return EndedWith(PassAborted{}); }

WavResult<void> PeakScan::Open() {
  return file_.OpenForReading(source_)
      .and_then([this] { return file_.Lock(false); })
      .and_then([this] { return LocateData(file_); })
      .map([this](const SampleData& data) {
        if (const auto stamp = file_.OnDisk()->Stamp()) {
          stamp_ = *stamp;
        }
        data_ = data;
        loops_ = LoopsOver(data, coverage_);
        next_ = data.start;
        picture_ = SoundPicture(data);
        timer_.emplace(clock_, data.fileLength);
      });
}

WavResult<void> PeakScan::Look(qint64 position, std::size_t words) {
  reached_ = position;
  const auto samples = Samples(buffer_).first(words);
  return file_.Read(position, BytesOf(samples)).map([&] { picture_.Add(position, samples); });
}

WavResult<void> PeakScan::LookAtWords() {
  qint64 position = loops_.words;
  for (qint64 words = WordsUpTo(position, data_.LastWord()); words > 0;) {
    const auto piece = std::min<qint64>(words, BlockWords);
    if (auto looked = Look(position, static_cast<std::size_t>(piece)); !looked) {
      return looked;
    }
    position += piece * WordSize;
    words -= piece;
  }
  reached_ = position;
  return {};
}

PassState PeakScan::EndedWith(const PassState& state) {
  throughput_ = static_cast<float>(timer_->Throughput(reached_ + data_.start + WordSize));
  return state;
}

CutOffWords CutOffUnseen(const QString& source, double gain) {
  WavFile file;
  const auto data = file.OpenForReading(source).and_then([&] { return LocateData(file); });
  if (!data) {
    return {};
  }
  const auto loops = LoopsOver(*data, Coverage::Usual);
  const auto unseen = WordsUpTo(loops.unblocked, LastUnseen(*data, loops));
  SampleBuffer samples(static_cast<std::size_t>(unseen));
  if (!file.Read(loops.unblocked, BytesOf(samples))) {
    return {};
  }
  return {.cutOff = std::count_if(samples.begin(), samples.end(),
                                  [gain](std::int16_t level) { return IsCutOff(level, gain); }),
          .words = WordsUpTo(data->start, data->LastWord()),
          .levels = RangeOf(samples)};
}

}  // namespace brindle
