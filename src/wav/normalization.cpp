// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/normalization.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <utility>

#include <QFile>
#include <QString>

#include "base/files/at_path.h"
#include "base/files/disk.h"
#include "base/files/system_files.h"
#include "wav/buffering.h"
#include "wav/gain.h"
#include "wav/pass.h"
#include "wav/pass_loops.h"
#include "wav/pass_record.h"
#include "wav/piece_turns.h"
#include "wav/recorded_file.h"
#include "wav/samples.h"
#include "wav/target_room.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

// Compares the texts, too: some file systems give a file another number every time.
bool TargetIsSource(const PassFiles& files) {
  return files.target == files.source || LeadToSameFile(files.source, files.target);
}

tl::unexpected<WavError> CannotWriteTarget(const FileError& error) {
  return tl::unexpected(WavError{WavError::Failed::Writing, error});
}

Samples BlockOf(Samples buffer, qint64 block) {
  return buffer.subspan(static_cast<std::size_t>(block) * BlockWords, BlockWords);
}

}  // namespace

Normalization::Normalization(PassFiles files, const Disk& disk)
    : files_(std::move(files)),
      disk_(disk),
      input_(std::make_shared<WavFile>(disk)),
      output_(std::make_shared<WavFile>(disk)),
      buffer_(BlockWords) {}

WavResult<Normalization::Opened> Normalization::Open() {
  const auto data =
      input_->OpenForReading(files_.source).and_then([this] { return LocateData(*input_); });
  if (!data) {
    return tl::unexpected(data.error());
  }
  data_ = *data;
  files_.isInPlace = files_.isInPlace || TargetIsSource(files_);
  if (files_.isInPlace) {
    return input_->OpenForChanging(files_.source)
        .and_then([this] { return input_->Lock(true); })
        .map([] { return Opened::Ready; });
  }
  return OpenTarget();
}

// A target that cannot be written fails here, before it is deleted and before a byte is written.
WavResult<Normalization::Opened> Normalization::OpenTarget() {
  const auto& target = files_.target;
  if (!IsAbsolute(target)) {
    return CannotWriteTarget(ErrorOf(target, u"not an absolute path"_s));
  }
  const auto length =
      input_->Lock(false)
          .and_then([&] { return CheckRoomForTarget(disk_, target, data_.fileLength); })
          .and_then([&] { return output_->OpenOrCreate(target); })
          .and_then([this] { return output_->Lock(true); })
          .and_then([this] { return output_->Length(WavError::Failed::Writing); });
  if (!length) {
    return tl::unexpected(length.error());
  }
  if (*length == 0) {
    return CopyHead().map([] { return Opened::Ready; });
  }
  output_->Close();
  return Opened::AsksToOverwrite;
}

WavResult<void> Normalization::Overwrite() {
  const auto& target = files_.target;
  // The question may have been open for a long time.
  if (TargetIsSource(files_)) {
    return CannotWriteTarget(ErrorOf(target, u"it became the source"_s));
  }
  QFile old(target);
  if (!old.remove()) {
    return CannotWriteTarget(ErrorOf(target, old));
  }
  return output_->OpenOrCreate(target)
      .and_then([this] { return output_->Lock(true); })
      .and_then([this] { return CopyHead(); });
}

void Normalization::Start(GainTable table, Buffering buffering, const Clock& clock) {
  table_ = std::move(table);
  timer_.emplace(clock, data_.fileLength);
  phase_ = buffering == Buffering::Multi ? Phase::ManyBlocks : Phase::SingleBlocks;
  position_ = turns_ ? turns_->Begin() : data_.start;
}

WavResult<PassFacts> Normalization::FactsFor(double gain, Buffering buffering,
                                             const KnownLevels& known) const {
  return FactsOfPass(*input_, data_, gain, buffering, known).map([this](PassFacts facts) {
    facts.path = files_.source;
    return facts;
  });
}

WavResult<void> Normalization::KeepRecord(PassRecord record) {
  const auto path = record.Path();
  const bool isOfTheseLoops = AreLoopsWithin(data_, record.Facts());
  turns_.emplace(std::move(record), input_);
  auto kept = File().CheckHead().and_then([&]() -> WavResult<void> {
    if (!isOfTheseLoops) {
      return tl::unexpected(WavError{WavError::Failed::Reading,
                                     ErrorOf(path, u"the record of the pass is damaged"_s)});
    }
    return {};
  });
  if (!kept) {
    changedRecord_ = File().ChangedRecord();
    turns_.reset();
  }
  return kept;
}

PassState Normalization::Advance() {
  while (phase_ != Phase::Done) {
    const bool isLoopsTurn = !turns_ || turns_->IsLoopsTurn(position_);
    const auto step = isLoopsTurn ? Work() : turns_->Tend(position_, *timer_);
    if (!step) {
      return step.error();
    }
    if (*step) {
      return PassGoesOn{**step};
    }
  }
  return PassCompleted{};
}

PassState Normalization::Abort() {
  const bool isMapped = turns_ && turns_->IsAllMapped(position_);
  const bool isTooLate = isMapped || phase_ == Phase::Sync || phase_ == Phase::SyncRecord;
  return isTooLate ? Advance() : PassState(PassAborted{});
}

Normalization::Step Normalization::Work() {
  switch (phase_) {
    case Phase::ManyBlocks:
      return MapManyBlocks();
    case Phase::TailBlocks:
      return MapTailBlock();
    case Phase::TailWords:
      return MapTailWords();
    case Phase::SingleBlocks:
      return MapSingleBlock();
    case Phase::SingleWords:
      return MapSingleWords();
    case Phase::Rest:
      return CopyRest();
    case Phase::Sync:
      return AwaitDisk();
    case Phase::SyncRecord:
      return AwaitRecord();
    case Phase::Done:
      break;
  }
  return std::nullopt;
}

// Reads all blocks before it writes any. Maps each while it is in the processor's cache.
Normalization::Step Normalization::MapManyBlocks() {
  if (position_ > data_.BlockEnd(MultiSize)) {
    return GoOnTo(Phase::TailBlocks);
  }
  if (turns_) {
    return MapReadBlocks();
  }
  buffer_.resize(MultiBlocks * BlockWords);
  for (qint64 block = 0; block < MultiBlocks; ++block) {
    const auto position = position_ + block * BlockSize;
    const auto samples = BlockOf(buffer_, block);
    if (auto read = input_->Read(position, BytesOf(samples)); !read) {
      return tl::unexpected(read.error());
    }
    table_->Map(samples);
  }
  // A single write of all blocks takes the system nearly twice as long.
  for (qint64 block = 0; block < MultiBlocks; ++block) {
    const auto position = position_ + block * BlockSize;
    const auto samples = BlockOf(buffer_, block);
    if (auto written = Write(position, BytesOf(samples)); !written) {
      return tl::unexpected(written.error());
    }
  }
  return GoOnBy(MultiSize, UpdateInterval::Half);
}

// The blocks were all read with their piece.
Normalization::Step Normalization::MapReadBlocks() {
  for (qint64 block = 0; block < MultiBlocks; ++block) {
    if (auto mapped = MapBlock(position_ + block * BlockSize, BlockWords); !mapped) {
      return tl::unexpected(mapped.error());
    }
  }
  return GoOnBy(MultiSize, UpdateInterval::Half);
}

Normalization::Step Normalization::MapTailBlock() {
  if (data_.fileLength - position_ <= BlockSize) {
    return GoOnTo(Phase::TailWords);
  }
  return MapBlock(position_, BlockWords).map([this]() -> std::optional<PassProgress> {
    position_ += BlockSize;
    return std::nullopt;
  });
}

// Reads all words at once, and writes them whenever progress is shown, which may be due after any
// word.
Normalization::Step Normalization::MapTailWords() {
  if (auto read = ReadTail(); !read) {
    return tl::unexpected(read.error());
  }
  while (tail_->mapped < tail_->samples.size()) {
    auto& sample = tail_->samples[tail_->mapped];
    sample = (*table_)(sample);
    ++tail_->mapped;
    const auto step = GoOnBy(WordSize, UpdateInterval::Quarter);
    if (*step) {
      return WriteTail().map([&] { return *step; });
    }
  }
  return WriteTail().and_then([this] { return GoOnTo(Phase::Rest); });
}

Normalization::Step Normalization::MapSingleBlock() {
  if (position_ > data_.BlockEnd(BlockSize)) {
    return GoOnTo(Phase::SingleWords);
  }
  return MapBlock(position_, BlockWords).and_then([this] {
    return GoOnBy(BlockSize, UpdateInterval::Quarter);
  });
}

// Maps the words after the blocks, up to a block of them at a time, without showing progress.
Normalization::Step Normalization::MapSingleWords() {
  const auto words = std::min<qint64>(WordsUpTo(position_, data_.LastWord()), BlockWords);
  if (words == 0) {
    return GoOnTo(Phase::Rest);
  }
  return MapBlock(position_, static_cast<std::size_t>(words))
      .map([&]() -> std::optional<PassProgress> {
        position_ += words * WordSize;
        return std::nullopt;
      });
}

Normalization::Step Normalization::CopyRest() {
  const auto copied = files_.isInPlace ? WavResult<void>() : Copy(position_, data_.fileLength);
  return copied.and_then([this] { return GoOnTo(Phase::Sync); });
}

// Everything is written, so nothing can abort the pass any more.
Normalization::Step Normalization::AwaitDisk() {
  return Await(Output()->OnDisk(), [this] {
    // In place, the pass has written nothing after the last word.
    const auto length =
        files_.isInPlace ? std::min(position_ - 1, data_.fileLength) : data_.fileLength;
    return Output()->CheckStands(length).and_then([this] {
      phase_ = turns_ ? Phase::SyncRecord : Phase::Done;
      throughput_ = timer_->Throughput(data_.fileLength);
      return turns_ ? File().Mark(File().Grid().Count()) : WavResult<void>();
    });
  });
}

Normalization::Step Normalization::AwaitRecord() {
  return Await(File().RecordOnDisk(), [this] {
    File().GiveRoomBack();
    phase_ = Phase::Done;
    return WavResult<void>();
  });
}

// Goes on once the disk has the file.
Normalization::Step Normalization::Await(const std::shared_ptr<DiskFile>& file,
                                         const std::function<WavResult<void>()>& then) {
  return wait_.For(file, *timer_).and_then([&](bool isDone) -> Step {
    if (!isDone) {
      return timer_->ProgressAt(data_.fileLength);
    }
    return then().map([] { return std::optional<PassProgress>(); });
  });
}

Normalization::Step Normalization::GoOnTo(Phase phase) {
  phase_ = phase;
  return std::nullopt;
}

// Reports the progress at the beginning of the piece that was just done.
Normalization::Step Normalization::GoOnBy(qint64 bytes, UpdateInterval interval) {
  const qint64 begun = std::exchange(position_, position_ + bytes);
  return timer_->IsDue(interval) ? std::optional(timer_->ProgressAt(begun)) : std::nullopt;
}

WavResult<void> Normalization::MapBlock(qint64 position, std::size_t words) {
  const auto samples = RoomFor(position, words);
  return Fetch(position, samples).and_then([&] {
    table_->Map(samples);
    return Write(position, BytesOf(samples));
  });
}

// Where the words of a position are kept: in the open piece, or in the buffer.
Samples Normalization::RoomFor(qint64 position, std::size_t words) {
  const bool isRead = words > 0 && turns_;
  return isRead ? File().WordsAt(position, words) : Samples(buffer_).first(words);
}

// An open piece has its words already.
WavResult<void> Normalization::Fetch(qint64 position, Samples samples) {
  return turns_ ? WavResult<void>() : input_->Read(position, BytesOf(samples));
}

// At most one block of words is left after the blocks. They were all read before progress was
// shown, so no later read notices if they are gone by now.
WavResult<void> Normalization::ReadTail() {
  if (tail_) {
    const qint64 end = tail_->first - 1 + static_cast<qint64>(tail_->samples.size()) * WordSize;
    return input_->CheckReaches(end, WavError::Failed::Reading);
  }
  const auto words = static_cast<std::size_t>(WordsUpTo(position_, data_.LastWord()));
  tail_ = {.first = position_, .samples = RoomFor(position_, words)};
  return Fetch(position_, tail_->samples);
}

WavResult<void> Normalization::WriteTail() {
  const auto written = std::exchange(tail_->written, tail_->mapped);
  const auto mapped = tail_->samples.subspan(written, tail_->mapped - written);
  return Write(tail_->first + static_cast<qint64>(written) * WordSize, BytesOf(mapped));
}

WavResult<void> Normalization::CopyHead() {
  return Copy(1, std::min(data_.start - 1, data_.fileLength));
}

WavResult<void> Normalization::Copy(qint64 position, qint64 end) {
  const auto buffer = BytesOf(buffer_);
  while (position <= end) {
    const auto size = std::min<qint64>(end - position + 1, static_cast<qint64>(buffer.size()));
    const auto piece = buffer.first(static_cast<std::size_t>(size));
    auto copied = input_->Read(position, piece).and_then([&] { return Write(position, piece); });
    if (!copied) {
      return copied;
    }
    position += size;
  }
  return {};
}

// If somebody else has cut the file short in the meantime, writing past its end would leave a hole.
WavResult<void> Normalization::Write(qint64 position, std::span<const std::byte> bytes) {
  if (bytes.empty()) {
    return {};
  }
  const qint64 end = position - 1 + static_cast<qint64>(bytes.size());
  const auto reaches = files_.isInPlace
                           ? input_->CheckReaches(end, WavError::Failed::Reading)
                           : output_->CheckReaches(position - 1, WavError::Failed::Writing);
  return reaches.and_then([&] { return Output()->Write(position, bytes); });
}

}  // namespace brindle
