// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/normalization.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <variant>

#include <QDeadlineTimer>
#include <QFile>
#include <QString>
#include <QThread>

#include "base/files/at_path.h"
#include "wav/gain.h"
#include "wav/pass_progress.h"
#include "wav/samples.h"
#include "wav/system_files.h"
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

// By the same text too, where a file system numbers its files anew at every look.
bool TargetIsSource(const PassFiles& files) {
  return files.target == files.source || LeadToSameFile(files.source, files.target);
}

}  // namespace

Normalization::Opened Normalization::Open(const PassFiles& files, TargetQuestions& questions) {
  if (!Succeeded(input_.OpenForReading(files.source))) {
    return Opened::Failed;
  }
  const auto located = LocateData(input_);
  if (const auto* error = std::get_if<WavError>(&located)) {
    error_ = *error;
    return Opened::Failed;
  }
  data_ = std::get<SampleData>(located);
  buffer_.resize(BlockWords);

  isInPlace_ = files.isInPlace;
  if (!isInPlace_ && TargetIsSource(files)) {
    isInPlace_ = true;
    questions.WorksInPlace();
  }
  if (isInPlace_) {
    return Succeeded(input_.OpenForChanging(files.source)) ? Opened::Yes : Opened::Failed;
  }
  if (!OpenTarget(files, questions)) {
    return error_ ? Opened::Failed : Opened::Refused;
  }
  return Copy(1, std::min(data_.start - 1, data_.fileLength)) ? Opened::Yes : Opened::Failed;
}

// A target that cannot be written shows here, before it is deleted and before a byte is written.
bool Normalization::OpenTarget(const PassFiles& files, TargetQuestions& questions) {
  const auto& target = files.target;
  if (!IsAbsolute(target)) {
    error_ = WavError{WavError::Failed::Writing, ErrorOf(target, u"not an absolute path"_s)};
    return false;
  }
  if (!Succeeded(output_.OpenOrCreate(target))) {
    return false;
  }
  const auto length = output_.Length(WavError::Failed::Writing);
  if (const auto* error = std::get_if<WavError>(&length)) {
    error_ = *error;
    return false;
  }
  if (std::get<qint64>(length) == 0) {
    return true;
  }
  output_.Close();
  if (!questions.MayOverwrite()) {
    return false;
  }
  // The question may have stood for long.
  if (TargetIsSource(files)) {
    error_ = WavError{WavError::Failed::Writing, ErrorOf(target, u"it became the source"_s)};
    return false;
  }
  QFile old(target);
  if (!old.remove()) {
    error_ = WavError{WavError::Failed::Writing, ErrorOf(target, old)};
    return false;
  }
  return Succeeded(output_.OpenOrCreate(target));
}

Normalization::Ended Normalization::Run(const GainTable& table, Buffering buffering,
                                        const Clock& clock, PassObserver& observer) {
  PassTimer timer(clock, observer, data_.fileLength);
  position_ = data_.start;
  if (!(buffering == Buffering::Multi ? MapMulti(table, timer) : MapSingle(table, timer))) {
    return error_ ? Ended::Failed : Ended::Aborted;
  }
  if (!isInPlace_ && !Copy(position_, data_.fileLength)) {
    return Ended::Failed;
  }
  // In place nothing after the last word is the pass's own.
  const auto length = isInPlace_ ? std::min(position_ - 1, data_.fileLength) : data_.fileLength;
  if (!SyncOutput(timer) || !Succeeded(Output().CheckStands(length))) {
    return Ended::Failed;
  }
  throughput_ = timer.Throughput(data_.fileLength);
  return Ended::Completed;
}

bool Normalization::MapMulti(const GainTable& table, PassTimer& timer) {
  const qint64 blockEnd = data_.BlockEnd(MultiSize);
  if (position_ <= blockEnd) {
    buffer_.resize(MultiBlocks * BlockWords);
  }
  for (; position_ <= blockEnd; position_ += MultiSize) {
    // All blocks are read before any is written. Each is mapped while the processor has it at hand.
    for (qint64 block = 0; block < MultiBlocks; ++block) {
      if (!ReadMapped(table, position_ + block * BlockSize, BlockOf(buffer_, block))) {
        return false;
      }
    }
    // One write of all of them takes the system nearly twice as long.
    for (qint64 block = 0; block < MultiBlocks; ++block) {
      const auto samples = BlockOf(buffer_, block);
      if (!Write(position_ + block * BlockSize, BytesOf(samples))) {
        return false;
      }
    }
    if (!timer.GoesOn(position_, UpdateInterval::Half)) {
      return false;
    }
  }
  for (; data_.fileLength - position_ > BlockSize; position_ += BlockSize) {
    if (!MapBlock(table, BlockWords)) {
      return false;
    }
  }
  return MapWordsWatched(table, timer);
}

bool Normalization::MapSingle(const GainTable& table, PassTimer& timer) {
  const qint64 blockEnd = data_.BlockEnd(BlockSize);
  for (; position_ <= blockEnd; position_ += BlockSize) {
    if (!MapBlock(table, BlockWords) || !timer.GoesOn(position_, UpdateInterval::Quarter)) {
      return false;
    }
  }
  // The words behind the blocks, a block of them at a time, unwatched.
  for (qint64 words = WordsUpTo(position_, data_.LastWord()); words > 0;) {
    const qint64 piece = std::min<qint64>(words, BlockWords);
    if (!MapBlock(table, static_cast<std::size_t>(piece))) {
      return false;
    }
    position_ += piece * WordSize;
    words -= piece;
  }
  return true;
}

bool Normalization::MapBlock(const GainTable& table, std::size_t words) {
  const auto samples = Samples(buffer_).first(words);
  return ReadMapped(table, position_, samples) && Write(position_, BytesOf(samples));
}

// Words are read at once, and written when the observer, whom any word can be told to, is told. No
// more than one block of them is left behind the blocks.
bool Normalization::MapWordsWatched(const GainTable& table, PassTimer& timer) {
  const qint64 first = position_;
  const auto words = static_cast<std::size_t>(WordsUpTo(first, data_.LastWord()));
  const qint64 end = first - 1 + static_cast<qint64>(words) * WordSize;
  const auto samples = Samples(buffer_).first(words);
  if (!Succeeded(input_.Read(first, BytesOf(samples)))) {
    return false;
  }
  std::size_t written = 0;
  const auto writeUpTo = [&](std::size_t word) {
    const auto mapped = samples.subspan(written, word - written);
    const qint64 at = first + static_cast<qint64>(written) * WordSize;
    written = word;
    return Write(at, BytesOf(mapped));
  };
  for (std::size_t word = 0; word < words; ++word) {
    samples[word] = table(samples[word]);
    if (timer.IsDue(UpdateInterval::Quarter)) {
      if (!writeUpTo(word + 1) || !timer.Update(position_)) {
        return false;
      }
      // The words were read before the observer was told: no read finds out that they are gone.
      if (!Succeeded(input_.CheckReaches(end, WavError::Failed::Reading))) {
        return false;
      }
    }
    position_ += WordSize;
  }
  return writeUpTo(words);
}

bool Normalization::ReadMapped(const GainTable& table, qint64 position, Samples samples) {
  if (!Succeeded(input_.Read(position, BytesOf(samples)))) {
    return false;
  }
  table.Map(samples);
  return true;
}

bool Normalization::Copy(qint64 position, qint64 end) {
  const auto buffer = BytesOf(buffer_);
  while (position <= end) {
    const auto size = std::min<qint64>(end - position + 1, static_cast<qint64>(buffer.size()));
    const auto piece = buffer.first(static_cast<std::size_t>(size));
    if (!Succeeded(input_.Read(position, piece)) || !Write(position, piece)) {
      return false;
    }
    position += size;
  }
  return true;
}

// Written past the end of a file that was cut short meanwhile, the bytes would leave a hole.
bool Normalization::Write(qint64 position, std::span<const std::byte> bytes) {
  if (bytes.empty()) {
    return true;
  }
  const qint64 end = position - 1 + static_cast<qint64>(bytes.size());
  return Succeeded(isInPlace_ ? input_.CheckReaches(end, WavError::Failed::Reading)
                              : output_.CheckReaches(position - 1, WavError::Failed::Writing)) &&
         Succeeded(Output().Write(position, bytes));
}

// All is written, so that no answer of the observer ends the pass any more. But the disk may take
// long, and the window must live meanwhile.
bool Normalization::SyncOutput(PassTimer& timer) {
  constexpr std::chrono::milliseconds betweenLooks(50);
  std::optional<WavError> error;
  bool isDone = false;
  const auto sync = [&] {
    error = Output().Sync();
    isDone = true;
  };
  const auto await = [](QThread* thread) {
    thread->wait();
    delete thread;
  };
  const std::unique_ptr<QThread, decltype(await)> thread(QThread::create(sync), await);
  thread->start();
  while (!thread->wait(QDeadlineTimer(betweenLooks))) {
    // The answer comes too late to change anything.
    [[maybe_unused]] const bool goesOn = timer.GoesOn(data_.fileLength, UpdateInterval::Half);
  }
  // The system may have no thread to give.
  if (!isDone) {
    sync();
  }
  return Succeeded(error);
}

bool Normalization::Succeeded(std::optional<WavError> error) {
  error_ = std::move(error);
  return !error_;
}

}  // namespace brindle
