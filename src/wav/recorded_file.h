// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QString>

#include "base/files/disk.h"
#include "wav/gain.h"
#include "wav/pass_record.h"
#include "wav/piece_grid.h"
#include "wav/samples.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"

namespace brindle {

/// The hash of the first bytes of a file.
[[nodiscard]] WavResult<quint64> HashOfHead(WavFile& file, qint64 length);

/// A recording that is changed in place, piece by piece, beside the record from which each change
/// can be taken back. What it does to the two files reaches the disk when they are synchronised,
/// which is up to the caller, in this order:
///
///     OpenPiece(), sync the record; map the words of the piece and write them; ClosePiece(), sync
///     the recording; the next piece. In the end Mark() the record, and sync it.
///     RestorePiece(), sync the record; WriteBack(), sync the recording; the piece before.
///
/// Errors of the recording and of its record are both errors of writing. If the recording is not
/// what the pass left, the reason is "the file was changed since it was normalized".
class RecordedFile {
 public:
  /// `file` is open for changing.
  RecordedFile(PassRecord record, std::shared_ptr<WavFile> file);

  [[nodiscard]] const PassRecord& Record() const { return record_; }
  [[nodiscard]] const std::shared_ptr<DiskFile>& RecordOnDisk() const { return record_.OnDisk(); }
  [[nodiscard]] const PieceGrid& Grid() const { return record_.Facts().grid; }

  /// Whether it is the recording of the record, as far as length and header tell.
  [[nodiscard]] WavResult<void> CheckHead();

  /// Puts the originals back in the piece that was being written when the pass or the undo ended,
  /// if there is one, and takes what the first sync needs.
  [[nodiscard]] WavResult<void> Recover();

  /// Reads the piece and has the record keep its originals.
  [[nodiscard]] WavResult<void> OpenPiece(qint64 piece);
  /// The words of the open piece from a position on.
  [[nodiscard]] Samples WordsAt(qint64 position, std::size_t words);
  [[nodiscard]] bool IsInOpenPiece(qint64 position) const;
  /// Notes what it takes to restore the piece.
  [[nodiscard]] WavResult<void> ClosePiece();

  /// An error if a piece before the boundary is not what the pass left, or if one that was taken
  /// back is not the original. False, and it is not even read, if nothing is known of the piece.
  [[nodiscard]] WavResult<bool> CheckPiece(qint64 piece);
  /// An error if the record has lost what it takes to restore a piece before the boundary.
  [[nodiscard]] WavResult<void> CheckBits(qint64 piece) const;
  /// Works out the originals of a mapped piece and has the record keep them.
  [[nodiscard]] WavResult<void> RestorePiece(qint64 piece);
  /// Writes them.
  [[nodiscard]] WavResult<void> WriteBack(qint64 piece);

  /// Everything before this piece is mapped, everything from it on original, and all of it on the
  /// disk.
  [[nodiscard]] WavResult<void> Mark(qint64 boundary);
  /// The path of the record if an error was that the recording is not what the pass left, so that
  /// the record is of no use; empty otherwise.
  [[nodiscard]] QString ChangedRecord() const { return foundChanged_ ? record_.Path() : QString(); }

  /// Gives back the room that only a running pass needs; what cannot be given back stays.
  void GiveRoomBack();

 private:
  // A piece that was read into the buffer.
  struct Loaded {
    Samples words;
    LevelRange range;
    quint64 hash = 0;
  };
  [[nodiscard]] WavResult<Loaded> Read(qint64 piece);
  [[nodiscard]] WavResult<PieceFacts> ReadRestored(qint64 piece);
  [[nodiscard]] WavResult<void> Write(qint64 piece, Samples words);
  [[nodiscard]] WavResult<bool> CheckMapped(qint64 piece);
  [[nodiscard]] WavResult<bool> CheckUnmapped(qint64 piece);
  [[nodiscard]] WavResult<void> CheckOriginal(qint64 piece, quint64 hash);
  [[nodiscard]] WavResult<void> NoteAgain(qint64 piece);
  [[nodiscard]] WavResult<void> KeepBits(qint64 piece, Samples originals);
  [[nodiscard]] WavResult<PieceFacts> FactsOf(qint64 piece) const;
  [[nodiscard]] WavResult<void> CheckBetween(Samples originals, qint64 piece);
  [[nodiscard]] tl::unexpected<WavError> Changed();
  [[nodiscard]] tl::unexpected<WavError> Damaged() const;

  PassRecord record_;
  std::shared_ptr<WavFile> file_;
  GainTable table_;
  PieceBuffer buffer_;
  std::optional<qint64> piece_;  // that is open
  PieceFacts facts_;             // of it
  bool foundChanged_ = false;
};

}  // namespace brindle
