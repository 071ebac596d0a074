// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/recorded_file.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include <QString>

#include "base/files/file_error.h"
#include "wav/gain.h"
#include "wav/inverse_table.h"
#include "wav/level_range.h"
#include "wav/pass_record.h"
#include "wav/record_hash.h"
#include "wav/samples.h"
#include "wav/wav_error.h"
#include "wav/wav_file.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr auto Writing = WavError::Failed::Writing;

// Whether each byte is that of one or the other: a disk may have taken any part of a write.
bool IsBetween(std::span<const std::byte> bytes, std::span<const std::byte> one,
               std::span<const std::byte> other) {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] != one[i] && bytes[i] != other[i]) {
      return false;
    }
  }
  return true;
}

}  // namespace

WavResult<quint64> HashOfHead(WavFile& file, qint64 length) {
  std::vector<std::byte> head(static_cast<std::size_t>(length));
  return file.Read(1, head).map([&] { return HashOf(head); });
}

RecordedFile::RecordedFile(PassRecord record, std::shared_ptr<WavFile> file)
    : record_(std::move(record)),
      file_(std::move(file)),
      table_(record_.Facts().gain),
      buffer_(Grid().size) {}

WavResult<void> RecordedFile::CheckHead() {
  const auto& facts = record_.Facts();
  const auto length = file_->Length(Writing);
  if (!length) {
    return tl::unexpected(length.error());
  }
  if (*length != facts.fileLength) {
    return Changed();
  }
  return HashOfHead(*file_, facts.headLength).and_then([&](quint64 hash) -> WavResult<void> {
    return hash == facts.headHash ? WavResult<void>() : Changed();
  });
}

WavResult<void> RecordedFile::Recover() {
  if (const auto room = record_.TakeRoom(); !room) {
    return tl::unexpected(WavError{Writing, room.error()});
  }
  const auto piece = record_.Boundary();
  if (auto noted = NoteAgain(piece - 1); !noted) {
    return noted;
  }
  if (!record_.IsInFlight()) {
    return {};
  }
  if (const auto read = record_.ReadInFlight(buffer_); !read) {
    return tl::unexpected(WavError{Writing, read.error()});
  }
  const auto originals = buffer_.Words(Grid().BytesOf(piece));
  return CheckBetween(originals, piece).and_then([&] { return Write(piece, originals); });
}

// A sync that failed may have left what was noted last in the system's memory only.
WavResult<void> RecordedFile::NoteAgain(qint64 piece) {
  if (piece < 0) {
    return {};
  }
  return FactsOf(piece).and_then([&](const PieceFacts& facts) {
    return record_.Note(piece, facts).map_error(FailedAt(Writing));
  });
}

WavResult<void> RecordedFile::OpenPiece(qint64 piece) {
  facts_ = {};
  return Read(piece).and_then([&](const Loaded& originals) {
    facts_.originalHash = originals.hash;
    facts_.range = originals.range;
    return CheckOriginal(piece, facts_.originalHash)
        .and_then([&] { return KeepBits(piece, originals.words); })
        .and_then([&] {
          return record_.Protect(piece, buffer_, facts_.originalHash)
              .map([&] { piece_ = piece; })
              .map_error(FailedAt(Writing));
        });
  });
}

Samples RecordedFile::WordsAt(qint64 position, std::size_t words) {
  const auto first = static_cast<std::size_t>((position - Grid().PositionOf(*piece_)) / WordSize);
  return buffer_.Words(Grid().BytesOf(*piece_)).subspan(first, words);
}

bool RecordedFile::IsInOpenPiece(qint64 position) const {
  return piece_ && position < Grid().PositionOf(*piece_ + 1);
}

WavResult<void> RecordedFile::ClosePiece() {
  return record_.Note(*std::exchange(piece_, std::nullopt), facts_).map_error(FailedAt(Writing));
}

WavResult<bool> RecordedFile::CheckPiece(qint64 piece) {
  const auto boundary = record_.Boundary();
  if (piece == boundary && record_.IsInFlight()) {
    return false;  // Recover() looks at it
  }
  return piece < boundary ? CheckMapped(piece) : CheckUnmapped(piece);
}

WavResult<bool> RecordedFile::CheckMapped(qint64 piece) {
  return ReadRestored(piece).map([](const PieceFacts&) { return true; });
}

WavResult<bool> RecordedFile::CheckUnmapped(qint64 piece) {
  const auto known = record_.OriginalHashOf(piece);
  if (!known) {
    return tl::unexpected(WavError{Writing, known.error()});
  }
  if (!*known) {
    return false;
  }
  return Read(piece).and_then([&](const Loaded& there) -> WavResult<bool> {
    return there.hash == **known ? WavResult<bool>(true) : Changed();
  });
}

// A piece that has been mapped before, and taken back, or one that was to be mapped next.
WavResult<void> RecordedFile::CheckOriginal(qint64 piece, quint64 hash) {
  return record_.OriginalHashOf(piece)
      .map_error(FailedAt(Writing))
      .and_then([&](std::optional<quint64> known) -> WavResult<void> {
        return !known || *known == hash ? WavResult<void>() : Changed();
      });
}

WavResult<void> RecordedFile::CheckBits(qint64 piece) const {
  return record_.AreBitsWhole(piece).map_error(FailedAt(Writing)).and_then([this](bool areWhole) {
    return areWhole ? WavResult<void>() : Damaged();
  });
}

WavResult<void> RecordedFile::RestorePiece(qint64 piece) {
  return ReadRestored(piece).and_then([&](const PieceFacts& facts) {
    return record_.Protect(piece, buffer_, facts.originalHash).map_error(FailedAt(Writing));
  });
}

// Fills the buffer with the originals of a mapped piece.
WavResult<PieceFacts> RecordedFile::ReadRestored(qint64 piece) {
  auto facts = FactsOf(piece);
  if (!facts) {
    return facts;
  }
  const auto bits = record_.BitsBegin(piece).and_then([&](qint64 begin) {
    // Never more than the words themselves.
    const auto most = begin + Grid().BytesOf(piece) + 1;
    return record_.ReadBits(begin, std::min(facts->bitsEnd, most));
  });
  if (!bits) {
    return tl::unexpected(WavError{Writing, bits.error()});
  }
  if (HashOf(*bits) != facts->bitsHash) {
    return Damaged();
  }
  const InverseTable inverse(table_, facts->range);
  std::vector<quint64> hashes;
  qint64 at = 0;
  auto position = Grid().PositionOf(piece);
  for (auto rest = buffer_.Words(Grid().BytesOf(piece)); !rest.empty();) {
    const auto block = rest.first(std::min(rest.size(), BlockWords));
    if (const auto read = file_->Read(position, BytesOf(block)); !read) {
      return tl::unexpected(read.error());
    }
    if (!inverse.Restore(block, *bits, at)) {
      return Changed();
    }
    hashes.push_back(HashOf(BytesOf(block)));
    position += static_cast<qint64>(block.size_bytes());
    rest = rest.subspan(block.size());
  }
  return HashOfBlocks(hashes) == facts->originalHash ? facts : Changed();
}

WavResult<void> RecordedFile::WriteBack(qint64 piece) {
  return Write(piece, buffer_.Words(Grid().BytesOf(piece)));
}

WavResult<void> RecordedFile::Mark(qint64 boundary) {
  return file_->OnDisk()
      ->Stamp()
      .and_then([&](const FileStamp& stamp) { return record_.Mark(boundary, stamp.changed); })
      .map_error(FailedAt(Writing));
}

void RecordedFile::GiveRoomBack() { static_cast<void>(record_.GiveRoomBack()); }

WavResult<RecordedFile::Loaded> RecordedFile::Read(qint64 piece) {
  Loaded loaded{.words = buffer_.Words(Grid().BytesOf(piece))};
  std::vector<quint64> hashes;
  auto position = Grid().PositionOf(piece);
  for (auto rest = loaded.words; !rest.empty();) {
    const auto block = rest.first(std::min(rest.size(), BlockWords));
    if (const auto read = file_->Read(position, BytesOf(block)); !read) {
      return tl::unexpected(read.error());
    }
    hashes.push_back(HashOf(BytesOf(block)));
    loaded.range.Include(RangeOf(block));
    position += static_cast<qint64>(block.size_bytes());
    rest = rest.subspan(block.size());
  }
  loaded.hash = HashOfBlocks(hashes);
  return loaded;
}

WavResult<void> RecordedFile::Write(qint64 piece, Samples words) {
  const auto position = Grid().PositionOf(piece);
  const auto end = Grid().PositionOf(piece + 1) - 1;
  return file_->CheckReaches(end, WavError::Failed::Reading).and_then([&] {
    return file_->Write(position, BytesOf(words));
  });
}

WavResult<void> RecordedFile::KeepBits(qint64 piece, Samples originals) {
  const auto begin = record_.BitsBegin(piece);
  if (!begin) {
    return tl::unexpected(WavError{Writing, begin.error()});
  }
  std::vector<std::byte> bits;
  if (MostBitsLost(table_, facts_.range) > 0) {
    int used = 0;
    InverseTable(table_, facts_.range).Keep(originals, table_, bits, used);
  }
  facts_.bitsHash = HashOf(bits);
  facts_.bitsEnd = *begin + static_cast<qint64>(bits.size());
  if (facts_.bitsEnd > record_.Facts().bitsRoom) {
    return tl::unexpected(
        file_->ErrorBecause(Writing, u"the file was changed since it was scanned"_s));
  }
  return bits.empty() ? WavResult<void>()
                      : record_.WriteBits(*begin, bits).map_error(FailedAt(Writing));
}

WavResult<PieceFacts> RecordedFile::FactsOf(qint64 piece) const {
  return record_.FactsOf(piece)
      .map_error(FailedAt(Writing))
      .and_then([this](const std::optional<PieceFacts>& facts) {
        return facts ? WavResult<PieceFacts>(*facts) : Damaged();
      });
}

WavResult<void> RecordedFile::CheckBetween(Samples originals, qint64 piece) {
  const auto start = Grid().PositionOf(piece);
  SampleBuffer now(BlockWords);
  SampleBuffer mapped(BlockWords);
  for (std::size_t first = 0; first < originals.size(); first += BlockWords) {
    const auto count = std::min(BlockWords, originals.size() - first);
    const auto block = originals.subspan(first, count);
    const auto there = Samples(now).first(count);
    const auto left = Samples(mapped).first(count);
    const auto position = start + static_cast<qint64>(first) * WordSize;
    if (auto read = file_->Read(position, BytesOf(there)); !read) {
      return read;
    }
    std::copy(block.begin(), block.end(), left.begin());
    table_.Map(left);
    if (!IsBetween(BytesOf(there), BytesOf(block), BytesOf(left))) {
      return Changed();
    }
  }
  return {};
}

tl::unexpected<WavError> RecordedFile::Changed() {
  foundChanged_ = true;
  return tl::unexpected(
      file_->ErrorBecause(Writing, u"the file was changed since it was normalized"_s));
}

tl::unexpected<WavError> RecordedFile::Damaged() const {
  return tl::unexpected(WavError{WavError::Failed::Reading,
                                 ErrorOf(record_.Path(), u"the record of the pass is damaged"_s)});
}

}  // namespace brindle
