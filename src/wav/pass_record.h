// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <tl/expected.hpp>
#include <vector>

#include <QString>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "wav/piece_grid.h"
#include "wav/record_facts.h"

namespace brindle {

/// Why a file is not used as a record.
enum class RecordFault {
  NotBegun,  ///< the pass changed nothing of its recording: the record is of no use
  Damaged,   ///< or no record at all
  Newer,     ///< of a later version of this program
  InUse,     ///< by another program
};

/// What a record is opened for.
enum class RecordUse {
  Looking,  ///< several programs can look at one at the same time
  Working,  ///< keeps all others away from it
};

/// The record of a pass that changes a recording in place, from which the pass can be taken back or
/// gone on with. A file of its own; see docs/architecture.md for its layout.
///
/// The pieces of the recording before Boundary() are as the pass leaves them, the later ones as
/// they were. The originals of the piece at the boundary are kept while it is written, in either
/// direction: after a crash it may be anything between old and new. Two places hold such originals
/// in turn, so that one of them is whole at any time.
class PassRecord {
 public:
  /// The bytes of a piece by default; bench/README.md has the measurements.
  static constexpr qint64 PieceSize = LargestPiece;

  /// Creates the record in a folder, with all the room that it will take, and makes sure that it is
  /// on the disk.
  [[nodiscard]] static FileResult<PassRecord> Create(const Disk& disk, const QString& path,
                                                     PassFacts facts);
  /// Opens the record at the path, locks it, and finds the boundary.
  [[nodiscard]] static FileResult<tl::expected<PassRecord, RecordFault>> Open(const Disk& disk,
                                                                              const QString& path,
                                                                              RecordUse use);

  PassRecord(const PassRecord&) = delete;
  PassRecord& operator=(const PassRecord&) = delete;
  PassRecord(PassRecord&&) = default;
  PassRecord& operator=(PassRecord&&) = delete;
  ~PassRecord();

  [[nodiscard]] const QString& Path() const { return path_; }
  [[nodiscard]] const PassFacts& Facts() const { return facts_; }
  [[nodiscard]] qint64 Boundary() const { return slot_.piece; }
  /// Whether the piece at the boundary may be half written.
  [[nodiscard]] bool IsInFlight() const { return slot_.bytes > 0; }
  /// Whether the pass has mapped everything.
  [[nodiscard]] bool IsComplete() const { return Boundary() == facts_.grid.Count(); }
  /// Whether everything is as it was before the pass.
  [[nodiscard]] bool IsUndone() const { return Boundary() == 0 && !IsInFlight(); }
  /// When the recording had been changed last, at the boundary; 0 if that is not known.
  [[nodiscard]] quint64 Changed() const { return slot_.changed; }
  /// Of a piece before the boundary, or of one that has been taken back; nothing for others, or if
  /// the record is damaged there.
  [[nodiscard]] FileResult<std::optional<PieceFacts>> FactsOf(qint64 piece) const;
  /// Where the bits of a piece begin, in bytes of all bits.
  [[nodiscard]] FileResult<qint64> BitsBegin(qint64 piece) const;
  /// Whether the bits of a piece before the boundary are those that were written.
  [[nodiscard]] FileResult<bool> AreBitsWhole(qint64 piece) const;
  /// The hash of a piece from the boundary on, as it was before the pass, if that is known.
  [[nodiscard]] FileResult<std::optional<quint64>> OriginalHashOf(qint64 piece) const;

  /// Makes the piece the boundary and keeps its originals, which are at the start of the buffer.
  /// Takes effect with the next Sync().
  [[nodiscard]] FileResult<void> Protect(qint64 piece, PieceBuffer& originals, quint64 hash);
  /// Makes this the boundary, between two pieces. Takes effect with the next Sync().
  [[nodiscard]] FileResult<void> Mark(qint64 boundary, quint64 changed);
  /// The originals of the piece at the boundary.
  [[nodiscard]] FileResult<void> ReadInFlight(PieceBuffer& originals) const;

  /// Notes a mapped piece. Takes effect with the next Sync().
  [[nodiscard]] FileResult<void> Note(qint64 piece, const PieceFacts& facts);
  [[nodiscard]] FileResult<void> WriteBits(qint64 at, std::span<const std::byte> bits);
  [[nodiscard]] FileResult<std::vector<std::byte>> ReadBits(qint64 from, qint64 to) const;

  /// Gives back the room that only a running pass needs.
  [[nodiscard]] FileResult<void> GiveRoomBack();
  /// Takes it again, before pieces are protected.
  [[nodiscard]] FileResult<void> TakeRoom();

  /// For Sync(), on any thread.
  [[nodiscard]] const std::shared_ptr<DiskFile>& OnDisk() const { return file_; }

 private:
  // The head of a place for originals.
  struct Slot {
    quint64 number = 0;  // counts up; the highest one counts
    qint64 piece = 0;
    qint64 bytes = 0;  // of originals; 0 for a boundary between two pieces
    quint64 hash = 0;  // of the originals
    quint64 changed = 0;
  };

  PassRecord(QString path, std::shared_ptr<DiskFile> file, PassFacts facts);

  // Offsets in the file.
  [[nodiscard]] qint64 HeadOffset(quint64 slot) const;
  [[nodiscard]] qint64 FactsOffset(qint64 piece) const;
  [[nodiscard]] qint64 BitsOffset() const;
  [[nodiscard]] qint64 OriginalsOffset(quint64 slot) const;
  [[nodiscard]] qint64 WholeLength() const;

  using Found = tl::expected<void, RecordFault>;

  [[nodiscard]] FileResult<std::optional<Slot>> ReadHead(quint64 slot) const;
  [[nodiscard]] FileResult<std::optional<Slot>> ReadHeadAt(quint64 slot, qint64 offset) const;
  [[nodiscard]] FileResult<bool> AreOriginalsWhole(const Slot& slot) const;
  [[nodiscard]] FileResult<bool> IsWhole(const Slot& slot) const;
  [[nodiscard]] FileResult<bool> AreFactsWhole() const;
  [[nodiscard]] FileResult<void> WriteHead(const Slot& slot);
  [[nodiscard]] FileResult<Found> FindBoundary();
  [[nodiscard]] tl::unexpected<FileError> Damaged() const;

  QString path_;
  std::shared_ptr<DiskFile> file_;
  PassFacts facts_;
  qint64 headerLength_ = 0;
  Slot slot_;
  std::optional<Slot> unfinished_;  // the one after it, of which not everything reached the disk
};

}  // namespace brindle
