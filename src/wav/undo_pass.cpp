// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/undo_pass.h"

#include <memory>
#include <optional>
#include <utility>

#include <QString>

#include "base/files/disk.h"
#include "base/time/clock.h"
#include "wav/pass.h"
#include "wav/pass_record.h"
#include "wav/recorded_file.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"

namespace brindle {

UndoPass::UndoPass(QString recording, PassRecord record, const Clock& clock, const Disk& disk)
    : path_(std::move(recording)),
      file_(std::make_shared<WavFile>(disk)),
      record_(std::move(record)),
      clock_(clock) {}

PassState UndoPass::Advance() {
  while (turn_ != Turn::Done) {
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

UndoPass::Step UndoPass::Work() {
  switch (turn_) {
    case Turn::Open:
      return Open().and_then([this] { return GoOnTo(Turn::Check); });
    case Turn::Check:
      return CheckPiece();
    case Turn::Recover:
      return recorded_->Recover().and_then([this] { return GoOnTo(Turn::AwaitRecovered); });
    case Turn::AwaitRecovered:
      return Await(file_->OnDisk(), Turn::Restore);
    case Turn::Restore:
      return RestorePiece();
    case Turn::AwaitRecord:
      return Await(recorded_->RecordOnDisk(), Turn::WriteBack);
    case Turn::WriteBack:
      return recorded_->WriteBack(left_).and_then([this] { return GoOnTo(Turn::AwaitPiece); });
    case Turn::AwaitPiece:
      return AwaitPiece();
    case Turn::Finish:
      return recorded_->Mark(0).and_then([this] { return GoOnTo(Turn::AwaitEnd); });
    case Turn::AwaitEnd:
      return Await(recorded_->RecordOnDisk(), Turn::Done);
    case Turn::Done:
      break;
  }
  return std::nullopt;
}

WavResult<void> UndoPass::Open() {
  return file_->OpenForChanging(path_)
      .and_then([this] { return file_->Lock(true); })
      .and_then([this] {
        return file_->OnDisk()->Stamp().map_error(FailedAt(WavError::Failed::Reading));
      })
      .and_then([this](const FileStamp& stamp) {
        isUnchanged_ = record_->Changed() != 0 && record_->Changed() == stamp.changed;
        mapped_ = left_ = record_->Boundary();
        timer_.emplace(clock_, record_->Facts().fileLength);
        recorded_.emplace(*std::exchange(record_, std::nullopt), file_);
        return recorded_->CheckHead();
      });
}

UndoPass::Step UndoPass::CheckPiece() {
  if (checked_ == recorded_->Grid().Count()) {
    return GoOnTo(Turn::Recover);
  }
  const auto bits = checked_ < mapped_ ? recorded_->CheckBits(checked_) : WavResult<void>();
  return bits
      .and_then([this] {
        return isUnchanged_ ? WavResult<bool>(false) : recorded_->CheckPiece(checked_);
      })
      .map([this](bool isRead) -> std::optional<PassProgress> {
        ++checked_;
        return isRead && timer_->IsDue(UpdateInterval::Half) ? std::optional(Progress())
                                                             : std::nullopt;
      });
}

UndoPass::Step UndoPass::RestorePiece() {
  if (left_ == 0) {
    return GoOnTo(Turn::Finish);
  }
  return recorded_->RestorePiece(left_ - 1).and_then([this] {
    --left_;
    return GoOnTo(Turn::AwaitRecord);
  });
}

UndoPass::Step UndoPass::AwaitPiece() {
  return Await(file_->OnDisk(), Turn::Restore).map([this](std::optional<PassProgress> waiting) {
    const bool isDue = turn_ == Turn::Restore && timer_->IsDue(UpdateInterval::Half);
    return isDue ? Progress() : waiting;
  });
}

UndoPass::Step UndoPass::Await(const std::shared_ptr<DiskFile>& file, Turn then) {
  return wait_.For(file, *timer_).and_then([&](bool isDone) -> Step {
    return isDone ? GoOnTo(then) : Progress();
  });
}

UndoPass::Step UndoPass::GoOnTo(Turn turn) {
  turn_ = turn;
  return std::nullopt;
}

PassProgress UndoPass::Progress() {
  const auto whole = mapped_ + (isUnchanged_ ? 0 : recorded_->Grid().Count());
  const auto done = (mapped_ - left_) + (isUnchanged_ ? 0 : checked_);
  const auto length = recorded_->Record().Facts().fileLength;
  // What the division leaves out is less than a byte for each piece.
  return timer_->ProgressAt(whole == 0 ? length : length / whole * done);
}

}  // namespace brindle
