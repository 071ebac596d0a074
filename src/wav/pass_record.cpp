// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/pass_record.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include <QByteArray>
#include <QString>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "wav/piece_grid.h"
#include "wav/record_facts.h"
#include "wav/record_hash.h"
#include "wav/sealed_numbers.h"

namespace brindle {

using namespace Qt::StringLiterals;

// The layout, all numbers lowest byte first, everything except single facts at multiples of Unit:
// - the mark; then length and hash of the facts of the pass; these facts
// - two heads, each of a place for originals; each head stands there twice, so that a damaged byte
//   does not pass for a head that has not reached the disk
// - the facts of each piece
// - the bits that tell what the table of the gain loses
// - two places for the originals of one piece
namespace {

constexpr qint64 Unit = DiskFile::DirectUnit;

// The last character is the version. Written after everything else of a new record is on the disk:
// a record whose mark has parts that are missing was never begun.
constexpr std::size_t MarkLength = 16;
constexpr char Version = '1';
QByteArray Mark() { return QByteArrayLiteral("Brindle undo\r\n\x1A") + Version; }

constexpr qint64 LongestFacts = 1'048'576;  // bytes; a path is never that long
constexpr qint64 PreambleLength = static_cast<qint64>(MarkLength) + 2 * sizeof(quint64);
constexpr qint64 SlotHeadLength = 6 * sizeof(quint64);
constexpr qint64 CopyOfHead = Unit / 2;  // bytes after the head

constexpr qint64 UpToUnit(qint64 bytes) { return (bytes + Unit - 1) / Unit * Unit; }

// As many bytes as there are.
FileResult<QByteArray> ReadFrom(DiskFile& file, qint64 offset, qint64 length) {
  QByteArray bytes(length, '\0');
  return file
      .Read(offset,
            std::as_writable_bytes(std::span(bytes.data(), static_cast<std::size_t>(bytes.size()))))
      .map([&](std::size_t there) { return bytes.first(static_cast<qsizetype>(there)); });
}

FileResult<void> WriteTo(DiskFile& file, qint64 offset, const QByteArray& bytes) {
  return file.Write(offset, AsBytes(bytes));
}

// What of the mark is there is right, but not all of it is.
bool IsMarkUnfinished(const QByteArray& mark) {
  const auto whole = Mark();
  return std::equal(mark.begin(), mark.end(), whole.begin(),
                    [](char there, char right) { return there == right || there == '\0'; });
}

RecordFault FaultOfMark(const QByteArray& mark) {
  if (IsMarkUnfinished(mark)) {
    return RecordFault::NotBegun;
  }
  const bool isOurs =
      mark.size() == Mark().size() && mark.first(mark.size() - 1) == Mark().first(mark.size() - 1);
  return isOurs && mark.back() > Version ? RecordFault::Newer : RecordFault::Damaged;
}

}  // namespace

PassRecord::PassRecord(QString path, std::shared_ptr<DiskFile> file, PassFacts facts)
    : path_(std::move(path)),
      file_(std::move(file)),
      facts_(std::move(facts)),
      headerLength_(UpToUnit(PreambleLength + BytesOf(facts_).size())) {}

// A sync that still runs keeps the file, but not its lock.
PassRecord::~PassRecord() {
  if (file_) {
    file_->Unlock();
  }
}

FileResult<PassRecord> PassRecord::Create(const Disk& disk, const QString& path, PassFacts facts) {
  if (!IsPossible(facts)) {
    return tl::unexpected(ErrorOf(path, u"a pass like this cannot be recorded"_s));
  }
  auto opened = disk.Open(path, OpenFor::CreatingOnly);
  if (!opened) {
    return tl::unexpected(opened.error());
  }
  PassRecord record(path, std::move(*opened), std::move(facts));
  auto& file = *record.file_;
  const auto bytes = BytesOf(record.facts_);
  auto created = file.Lock(true)
                     .and_then([&] { return record.TakeRoom(); })
                     .and_then([&] {
                       const auto preamble = NumberWriter().Of(static_cast<quint64>(bytes.size()),
                                                               HashOf(AsBytes(bytes)));
                       return WriteTo(file, MarkLength, preamble + bytes);
                     })
                     .and_then([&] { return file.Sync(); })
                     // Another Brindle may have found it before it was locked.
                     .and_then([&] { return file.CheckAtItsPath(); })
                     .and_then([&] { return WriteTo(file, 0, brindle::Mark()); })
                     .and_then([&] { return file.Sync(); });
  if (!created) {
    record.file_.reset();
    static_cast<void>(disk.Remove(path));  // the error that counts is the first one
    return tl::unexpected(created.error());
  }
  return record;
}

FileResult<tl::expected<PassRecord, RecordFault>> PassRecord::Open(const Disk& disk,
                                                                   const QString& path,
                                                                   RecordUse use) {
  const bool isWorking = use == RecordUse::Working;
  using Opened = tl::expected<PassRecord, RecordFault>;
  const auto refused = [](RecordFault fault) -> FileResult<Opened> {
    return Opened(tl::unexpected(fault));
  };
  auto opened = disk.Open(path, isWorking ? OpenFor::Changing : OpenFor::Reading);
  if (!opened) {
    return tl::unexpected(opened.error());
  }
  const std::shared_ptr<DiskFile> file = std::move(*opened);
  if (!file->Lock(isWorking)) {
    return refused(RecordFault::InUse);
  }
  const auto preamble = ReadFrom(*file, 0, PreambleLength);
  if (!preamble) {
    return tl::unexpected(preamble.error());
  }
  const auto mark = preamble->first(std::min<qsizetype>(preamble->size(), MarkLength));
  if (mark != brindle::Mark()) {
    return refused(FaultOfMark(mark));
  }
  quint64 length = 0;
  quint64 hash = 0;
  if (!NumberReader(preamble->mid(MarkLength)).To(length, hash) ||
      length > static_cast<quint64>(LongestFacts)) {
    return refused(RecordFault::Damaged);
  }
  const auto bytes = ReadFrom(*file, PreambleLength, static_cast<qint64>(length));
  if (!bytes) {
    return tl::unexpected(bytes.error());
  }
  auto facts = hash == HashOf(AsBytes(*bytes)) ? PassFactsOf(*bytes) : std::nullopt;
  if (!facts) {
    return refused(RecordFault::Damaged);
  }
  PassRecord record(path, file, std::move(*facts));
  return record.FindBoundary().map([&](const Found& found) -> Opened {
    if (!found) {
      return tl::unexpected(found.error());
    }
    return std::move(record);
  });
}

qint64 PassRecord::HeadOffset(quint64 slot) const {
  return headerLength_ + static_cast<qint64>(slot % 2) * Unit;
}
qint64 PassRecord::FactsOffset(qint64 piece) const {
  return headerLength_ + 2 * Unit + piece * PieceFactsLength;
}
qint64 PassRecord::BitsOffset() const { return UpToUnit(FactsOffset(facts_.grid.Count())); }
qint64 PassRecord::OriginalsOffset(quint64 slot) const {
  return BitsOffset() + UpToUnit(facts_.bitsRoom) +
         static_cast<qint64>(slot % 2) * facts_.grid.size;
}
qint64 PassRecord::WholeLength() const { return OriginalsOffset(1) + facts_.grid.size; }

FileResult<std::optional<PieceFacts>> PassRecord::FactsOf(qint64 piece) const {
  return ReadFrom(*file_, FactsOffset(piece), PieceFactsLength)
      .map([this](const QByteArray& bytes) {
        const auto facts = PieceFactsOf(bytes);
        const bool isPossible = facts && facts->bitsEnd >= 0 && facts->bitsEnd <= facts_.bitsRoom;
        return isPossible ? facts : std::nullopt;
      });
}

FileResult<qint64> PassRecord::BitsBegin(qint64 piece) const {
  if (piece == 0) {
    return 0;
  }
  return FactsOf(piece - 1).and_then(
      [this](const std::optional<PieceFacts>& before) -> FileResult<qint64> {
        return before ? FileResult<qint64>(before->bitsEnd) : Damaged();
      });
}

FileResult<std::optional<quint64>> PassRecord::OriginalHashOf(qint64 piece) const {
  if (unfinished_ && unfinished_->bytes > 0 && unfinished_->piece == piece) {
    return unfinished_->hash;
  }
  return FactsOf(piece).map([](const std::optional<PieceFacts>& facts) {
    return facts ? std::optional(facts->originalHash) : std::nullopt;
  });
}

FileResult<void> PassRecord::Protect(qint64 piece, PieceBuffer& originals, quint64 hash) {
  const Slot slot{.number = slot_.number + 1,
                  .piece = piece,
                  .bytes = facts_.grid.BytesOf(piece),
                  .hash = hash};
  return file_->WriteDirect(OriginalsOffset(slot.number), originals.WholePages(slot.bytes))
      .and_then([&] { return WriteHead(slot); });
}

FileResult<void> PassRecord::Mark(qint64 boundary, quint64 changed) {
  return WriteHead({.number = slot_.number + 1, .piece = boundary, .changed = changed});
}

FileResult<void> PassRecord::ReadInFlight(PieceBuffer& originals) const {
  return file_
      ->Read(OriginalsOffset(slot_.number),
             std::as_writable_bytes(originals.Words(facts_.grid.BytesOf(slot_.piece))))
      .map([](std::size_t) {});
}

FileResult<void> PassRecord::Note(qint64 piece, const PieceFacts& facts) {
  return WriteTo(*file_, FactsOffset(piece), BytesOf(facts));
}

FileResult<void> PassRecord::WriteBits(qint64 at, std::span<const std::byte> bits) {
  return file_->Write(BitsOffset() + at, bits);
}

FileResult<std::vector<std::byte>> PassRecord::ReadBits(qint64 from, qint64 to) const {
  std::vector<std::byte> bits(static_cast<std::size_t>(to - from));
  return file_->Read(BitsOffset() + from, bits).map([&](std::size_t) { return std::move(bits); });
}

FileResult<void> PassRecord::GiveRoomBack() {
  return BitsBegin(facts_.grid.Count()).and_then([this](qint64 bits) {
    return file_->SetLength(BitsOffset() + bits);
  });
}

FileResult<void> PassRecord::TakeRoom() { return file_->SetLength(WholeLength()); }

FileResult<std::optional<PassRecord::Slot>> PassRecord::ReadHead(quint64 slot) const {
  const auto offset = HeadOffset(slot);
  return ReadHeadAt(slot, offset).and_then([&](const std::optional<Slot>& head) {
    return head ? FileResult<std::optional<Slot>>(head) : ReadHeadAt(slot, offset + CopyOfHead);
  });
}

FileResult<std::optional<PassRecord::Slot>> PassRecord::ReadHeadAt(quint64 slot,
                                                                   qint64 offset) const {
  return ReadFrom(*file_, offset, SlotHeadLength)
      .map([&](const QByteArray& sealed) -> std::optional<Slot> {
        const auto bytes = Unsealed(sealed);
        Slot head;
        if (!bytes || !NumberReader(*bytes).To(head.number, head.piece, head.bytes, head.hash,
                                               head.changed)) {
          return std::nullopt;
        }
        const auto& grid = facts_.grid;
        const bool isPossible =
            head.number % 2 == slot && head.piece >= 0 && head.piece <= grid.Count() &&
            (head.bytes == 0 ||
             (head.piece < grid.Count() && head.bytes == grid.BytesOf(head.piece)));
        return isPossible ? std::optional(head) : std::nullopt;
      });
}

FileResult<bool> PassRecord::AreOriginalsWhole(const Slot& slot) const {
  if (slot.bytes == 0) {
    return true;
  }
  PieceBuffer originals(slot.bytes);
  const auto words = originals.Words(slot.bytes);
  return file_->Read(OriginalsOffset(slot.number), std::as_writable_bytes(words))
      .map([&](std::size_t) { return HashOfPiece(words) == slot.hash; });
}

FileResult<bool> PassRecord::AreBitsWhole(qint64 piece) const {
  const auto before = piece > 0 ? FactsOf(piece - 1) : std::optional(PieceFacts());
  const auto facts = FactsOf(piece);
  if (!before || !facts) {
    return tl::unexpected(before ? facts.error() : before.error());
  }
  // No more bits than the file has.
  const auto length = file_->Length();
  if (!length) {
    return tl::unexpected(length.error());
  }
  if (!*before || !*facts || (*facts)->bitsEnd < (*before)->bitsEnd ||
      (*facts)->bitsEnd > *length - BitsOffset()) {
    return false;
  }
  return ReadBits((*before)->bitsEnd, (*facts)->bitsEnd)
      .map([&](const std::vector<std::byte>& bits) { return HashOf(bits) == (*facts)->bitsHash; });
}

// Whether all that was written together with the head has reached the disk: the originals, and
// what was noted of the piece before.
FileResult<bool> PassRecord::IsWhole(const Slot& slot) const {
  return AreOriginalsWhole(slot).and_then([&](bool isWhole) {
    return isWhole && slot.piece > 0 ? AreBitsWhole(slot.piece - 1) : FileResult<bool>(isWhole);
  });
}

// Those of the pieces before the boundary were on the disk before it was.
FileResult<bool> PassRecord::AreFactsWhole() const {
  qint64 bitsBegin = 0;
  for (qint64 piece = 0; piece < Boundary(); ++piece) {
    const auto facts = FactsOf(piece);
    if (!facts) {
      return tl::unexpected(facts.error());
    }
    if (!*facts || (*facts)->bitsEnd < bitsBegin) {
      return false;
    }
    bitsBegin = (*facts)->bitsEnd;
  }
  return true;
}

FileResult<void> PassRecord::WriteHead(const Slot& slot) {
  const auto head =
      Sealed(NumberWriter().Of(slot.number, slot.piece, slot.bytes, slot.hash, slot.changed));
  const auto offset = HeadOffset(slot.number);
  return WriteTo(*file_, offset, head)
      .and_then([&] { return WriteTo(*file_, offset + CopyOfHead, head); })
      .map([&] {
        slot_ = slot;
        unfinished_.reset();
      });
}

FileResult<PassRecord::Found> PassRecord::FindBoundary() {
  const auto fault = [](RecordFault which) { return Found(tl::unexpected(which)); };
  const auto length = file_->Length();
  const auto first = ReadHead(0);
  const auto second = ReadHead(1);
  const auto noted = FactsOf(0);
  if (!length || !first || !second || !noted) {
    return tl::unexpected(!length   ? length.error()
                          : !first  ? first.error()
                          : !second ? second.error()
                                    : noted.error());
  }
  // A record that is begun has its room.
  if (*length < BitsOffset()) {
    return fault(RecordFault::Damaged);
  }
  auto newer = *first;
  auto older = *second;
  if (!newer || (older && older->number > newer->number)) {
    std::swap(newer, older);
  }
  for (const auto& slot : {newer, older}) {
    const auto isWhole = slot ? IsWhole(*slot) : FileResult<bool>(false);
    if (!isWhole) {
      return tl::unexpected(isWhole.error());
    }
    if (*isWhole) {
      slot_ = *slot;
      if (slot_.number != newer->number) {
        unfinished_ = newer;
      }
      return AreFactsWhole().map(
          [&](bool areWhole) { return areWhole ? Found() : fault(RecordFault::Damaged); });
    }
  }
  // If the first originals never were on the disk as a whole, nothing was written over them. They
  // had their room, though.
  const bool isFirst = *length >= WholeLength() && (newer ? newer->number == 1 : !*noted);
  return fault(isFirst ? RecordFault::NotBegun : RecordFault::Damaged);
}

tl::unexpected<FileError> PassRecord::Damaged() const {
  return tl::unexpected(ErrorOf(path_, u"the record of the pass is damaged"_s));
}

}  // namespace brindle
