// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/piece_turns.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "base/files/disk.h"
#include "wav/pass.h"
#include "wav/pass_record.h"
#include "wav/recorded_file.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"

namespace brindle {

PieceTurns::PieceTurns(PassRecord record, std::shared_ptr<WavFile> file)
    : recording_(std::move(file)), file_(std::move(record), recording_) {}

qint64 PieceTurns::Begin() const { return file_.Grid().PositionOf(file_.Record().Boundary()); }

bool PieceTurns::IsLoopsTurn(qint64 position) const {
  return turn_ == Turn::MapPiece ? file_.IsInOpenPiece(position)
                                 : turn_ == Turn::OpenPiece && position == file_.Grid().end;
}

bool PieceTurns::IsAllMapped(qint64 position) const {
  return turn_ == Turn::AwaitPiece && position == file_.Grid().end;
}

PieceTurns::Step PieceTurns::Tend(qint64 position, PassTimer& timer) {
  switch (turn_) {
    case Turn::CheckPieces:
      return CheckPiece(timer);
    case Turn::Recover:
      return file_.Recover().and_then([this] { return GoOnTo(Turn::AwaitRecovered); });
    case Turn::AwaitRecovered:
    case Turn::AwaitPiece:
      return Await(recording_->OnDisk(), Turn::OpenPiece, position, timer);
    case Turn::OpenPiece:
      return file_.OpenPiece(file_.Grid().PieceAt(position)).and_then([this] {
        return GoOnTo(Turn::AwaitRecord);
      });
    case Turn::AwaitRecord:
      return Await(file_.RecordOnDisk(), Turn::MapPiece, position, timer);
    case Turn::MapPiece:
      break;
  }
  return file_.ClosePiece().and_then([this] { return GoOnTo(Turn::AwaitPiece); });
}

PieceTurns::Step PieceTurns::CheckPiece(PassTimer& timer) {
  if (checked_ == file_.Grid().Count()) {
    return GoOnTo(Turn::Recover);
  }
  return file_.CheckPiece(checked_).map([&](bool isRead) -> std::optional<PassProgress> {
    const auto reached = std::min(file_.Grid().PositionOf(checked_++), Begin());
    const bool isDue = isRead && timer.IsDue(UpdateInterval::Half);
    return isDue ? std::optional(timer.ProgressAt(reached)) : std::nullopt;
  });
}

// The progress meanwhile is that of the position where the loops wait.
PieceTurns::Step PieceTurns::Await(const std::shared_ptr<DiskFile>& file, Turn then,
                                   qint64 position, PassTimer& timer) {
  return wait_.For(file, timer).and_then([&](bool isDone) -> Step {
    return isDone ? GoOnTo(then) : timer.ProgressAt(position);
  });
}

PieceTurns::Step PieceTurns::GoOnTo(Turn turn) {
  turn_ = turn;
  return std::nullopt;
}

}  // namespace brindle
