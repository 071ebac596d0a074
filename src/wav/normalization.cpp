// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/normalization.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

#include <QFile>
#include <QString>

#include "base/files/at_path.h"
#include "base/files/system_files.h"
#include "wav/gain.h"
#include "wav/pass.h"
#include "wav/samples.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MultiBlocks = 64;
constexpr qint64 MultiSize = MultiBlocks * BlockSize;  // bytes

Samples BlockOf(Samples buffer, qint64 block) {
  return buffer.subspan(static_cast<std::size_t>(block) * BlockWords, BlockWords);
}

// Compares the texts, too: some file systems give a file another number every time.
bool TargetIsSource(const PassFiles& files) {
  return files.target == files.source || LeadToSameFile(files.source, files.target);
}

tl::unexpected<WavError> CannotWriteTarget(const FileError& error) {
  return tl::unexpected(WavError{WavError::Failed::Writing, error});
}

}  // namespace

WavResult<Normalization::Opened> Normalization::Open() {
  const auto data =
      input_->OpenForReading(files_.source).and_then([this] { return LocateData(*input_); });
  if (!data) {
    return tl::unexpected(data.error());
  }
  data_ = *data;
  files_.isInPlace = files_.isInPlace || TargetIsSource(files_);
  if (files_.isInPlace) {
    return input_->OpenForChanging(files_.source).map([] { return Opened::Ready; });
  }
  return OpenTarget();
}

// A target that cannot be written fails here, before it is deleted and before a byte is written.
WavResult<Normalization::Opened> Normalization::OpenTarget() {
  const auto& target = files_.target;
  if (!IsAbsolute(target)) {
    return CannotWriteTarget(ErrorOf(target, u"not an absolute path"_s));
  }
  const auto length = output_->OpenOrCreate(target).and_then(
      [this] { return output_->Length(WavError::Failed::Writing); });
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
  return output_->OpenOrCreate(target).and_then([this] { return CopyHead(); });
}

void Normalization::Start(GainTable table, Buffering buffering, const Clock& clock) {
  table_ = std::move(table);
  timer_.emplace(clock, data_.fileLength);
  phase_ = buffering == Buffering::Multi ? Phase::ManyBlocks : Phase::SingleBlocks;
  position_ = data_.start;
}

PassState Normalization::Advance() {
  while (phase_ != Phase::Done) {
    const auto step = Work();
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
  return phase_ == Phase::Sync ? Advance() : PassState(PassAborted{});
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
  buffer_.resize(MultiBlocks * BlockWords);
  for (qint64 block = 0; block < MultiBlocks; ++block) {
    if (auto read = ReadMapped(position_ + block * BlockSize, BlockOf(buffer_, block)); !read) {
      return tl::unexpected(read.error());
    }
  }
  // A single write of all blocks takes the system nearly twice as long.
  for (qint64 block = 0; block < MultiBlocks; ++block) {
    const auto samples = BlockOf(buffer_, block);
    if (auto written = Write(position_ + block * BlockSize, BytesOf(samples)); !written) {
      return tl::unexpected(written.error());
    }
  }
  return GoOnBy(MultiSize, UpdateInterval::Half);
}

Normalization::Step Normalization::MapTailBlock() {
  if (data_.fileLength - position_ <= BlockSize) {
    return GoOnTo(Phase::TailWords);
  }
  return MapBlock(BlockWords).map([this]() -> std::optional<PassProgress> {
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
  while (tail_->mapped < tail_->words) {
    auto& sample = buffer_[tail_->mapped];
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
  return MapBlock(BlockWords).and_then([this] {
    return GoOnBy(BlockSize, UpdateInterval::Quarter);
  });
}

// Maps the words after the blocks, up to a block of them at a time, without showing progress.
Normalization::Step Normalization::MapSingleWords() {
  const auto words = std::min<qint64>(WordsUpTo(position_, data_.LastWord()), BlockWords);
  if (words == 0) {
    return GoOnTo(Phase::Rest);
  }
  return MapBlock(static_cast<std::size_t>(words)).map([&]() -> std::optional<PassProgress> {
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
  constexpr std::chrono::milliseconds betweenLooks(50);
  if (!sync_) {
    sync_.emplace(Output()->OnDisk());
  }
  auto synced = sync_->Await(betweenLooks);
  for (; !synced; synced = sync_->Await(betweenLooks)) {
    if (timer_->IsDue(UpdateInterval::Half)) {
      return timer_->ProgressAt(data_.fileLength);
    }
  }
  // In place, the pass has written nothing after the last word.
  const auto length =
      files_.isInPlace ? std::min(position_ - 1, data_.fileLength) : data_.fileLength;
  return synced->map_error(FailedAt(WavError::Failed::Writing))
      .and_then([&] { return Output()->CheckStands(length); })
      .and_then([this] {
        throughput_ = timer_->Throughput(data_.fileLength);
        return GoOnTo(Phase::Done);
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

WavResult<void> Normalization::MapBlock(std::size_t words) {
  const auto samples = Samples(buffer_).first(words);
  return ReadMapped(position_, samples).and_then([&] {
    return Write(position_, BytesOf(samples));
  });
}

WavResult<void> Normalization::ReadMapped(qint64 position, Samples samples) {
  return input_->Read(position, BytesOf(samples)).map([&] { table_->Map(samples); });
}

// At most one block of words is left after the blocks. They were all read before progress was
// shown, so no later read notices if they are gone by now.
WavResult<void> Normalization::ReadTail() {
  if (tail_) {
    const qint64 end = tail_->first - 1 + static_cast<qint64>(tail_->words) * WordSize;
    return input_->CheckReaches(end, WavError::Failed::Reading);
  }
  const auto words = static_cast<std::size_t>(WordsUpTo(position_, data_.LastWord()));
  tail_ = {.first = position_, .words = words};
  return input_->Read(position_, BytesOf(Samples(buffer_).first(words)));
}

WavResult<void> Normalization::WriteTail() {
  const auto written = std::exchange(tail_->written, tail_->mapped);
  const auto mapped = Samples(buffer_).subspan(written, tail_->mapped - written);
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
