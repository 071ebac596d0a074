// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/libav/avi_layout.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include <QString>

#include "media/libav/little_endian.h"

namespace brindle {
namespace {

constexpr std::int64_t HeaderLength = 8;       // of a chunk: its id and its size
constexpr std::int64_t ListHeaderLength = 12;  // the same, and what the list contains
constexpr std::int64_t MostOfHeaders = 64'000'000;
constexpr std::size_t MostTracks = 100;
constexpr std::uint32_t IsKeyInOldIndex = 0x10;
constexpr std::uint32_t IsNoKeyInNewIndex = 0x8000'0000U;

struct Chunk {
  std::uint32_t id = 0;
  std::int64_t position = 0;  // of its header
  std::int64_t size = 0;      // as it says, whatever the file has

  [[nodiscard]] std::int64_t Contents() const { return position + HeaderLength; }
  // Of the chunk after it.
  [[nodiscard]] std::int64_t Next() const { return Contents() + size + size % 2; }
};

// A file that is read from its beginning to its end, in large blocks.
class BlockReader {
 public:
  BlockReader(DiskFile& file, std::int64_t length) : file_(file), length_(length) {}

  [[nodiscard]] std::int64_t Length() const { return length_; }

  // As many of `count` bytes as there are. The next call may overwrite them.
  [[nodiscard]] std::span<const std::byte> Bytes(std::int64_t position, std::size_t count) {
    if (position < 0 || position >= length_) {
      return {};
    }
    const auto end = start_ + static_cast<std::int64_t>(block_.size());
    if (position < start_ || position + static_cast<std::int64_t>(count) > end) {
      Fill(position, std::max(count, BlockLength));
    }
    const auto from = static_cast<std::size_t>(position - start_);
    return std::span<const std::byte>(block_).subspan(from, std::min(count, block_.size() - from));
  }

  [[nodiscard]] std::optional<Chunk> ChunkAt(std::int64_t position) {
    const auto bytes = Bytes(position, HeaderLength);
    if (bytes.size() < HeaderLength) {
      return std::nullopt;
    }
    return Chunk{Word32(bytes, 0), position, Word32(bytes, 4)};
  }

  [[nodiscard]] const std::optional<FileError>& Error() const { return error_; }

 private:
  static constexpr std::size_t BlockLength = 16384;

  void Fill(std::int64_t position, std::size_t count) {
    block_.resize(count);
    start_ = position;
    const auto read = file_.Read(position, block_);
    if (!read) {
      error_ = read.error();
    }
    block_.resize(read.value_or(0));
  }

  DiskFile& file_;
  std::int64_t length_;
  std::vector<std::byte> block_;
  std::int64_t start_ = 0;
  std::optional<FileError> error_;
};

// A list of pieces: the file's only one, or one of several segments.
struct Movie {
  std::int64_t start = 0;  // of the letters "movi"
  std::int64_t end = 0;
};

// An index of segments, which says where the indexes of one track are.
struct SegmentIndexes {
  std::vector<std::int64_t> positions;
  bool isThere = false;
};

class LayoutReader {
 public:
  LayoutReader(DiskFile& file, std::int64_t length, const std::function<bool(qint64)>& goesOn)
      : in_(file, length), goesOn_(goesOn) {}

  // False if it was stopped.
  [[nodiscard]] bool Read() {
    ReadChunks();
    if (layout_.tracks.empty() || movies_.empty()) {
      return true;
    }
    layout_.hasIndex = FromNewIndex() || FromOldIndex();
    if (!layout_.hasIndex) {
      return FromChunks();
    }
    return true;
  }

  [[nodiscard]] AviLayout& Layout() { return layout_; }
  [[nodiscard]] const std::optional<FileError>& Error() const { return in_.Error(); }

 private:
  void ReadChunks() {
    for (std::int64_t at = 0; at < in_.Length();) {
      const auto chunk = in_.ChunkAt(at);
      if (!chunk) {
        return;
      }
      if (chunk->id == FourLetters("RIFF")) {
        at += ListHeaderLength;
        continue;
      }
      if (chunk->id == FourLetters("LIST")) {
        ReadList(*chunk);
      } else if (chunk->id == FourLetters("idx1") && oldIndex_.size == 0) {
        oldIndex_ = *chunk;
      }
      at = chunk->Next();
    }
  }

  void ReadList(const Chunk& list) {
    const auto kind = Word32(in_.Bytes(list.Contents(), 4), 0);
    if (kind == FourLetters("hdrl") && layout_.tracks.empty()) {
      ReadHeaders(list);
    } else if (kind == FourLetters("movi")) {
      // A recording that was never finished says 0.
      const bool isKnown = list.size > 4 && list.Contents() + list.size <= in_.Length();
      movies_.push_back({list.Contents(), isKnown ? list.Contents() + list.size : in_.Length()});
    }
  }

  // The chunks of a list one by one, those that end within it.
  void ForEachIn(const Chunk& list, const std::function<void(const Chunk&)>& take) {
    const auto end = std::min(list.Contents() + list.size, in_.Length());
    for (auto at = list.Contents() + 4; at + HeaderLength <= end;) {
      const auto chunk = in_.ChunkAt(at);
      if (!chunk || chunk->Contents() + chunk->size > end) {
        return;
      }
      take(*chunk);
      at = chunk->Next();
    }
  }

  [[nodiscard]] RawBytes Whole(const Chunk& chunk, bool withHeader = false) {
    const auto from = withHeader ? chunk.position : chunk.Contents();
    const auto count = chunk.size + (withHeader ? HeaderLength : 0);
    if (count > MostOfHeaders) {
      return {};
    }
    const auto bytes = in_.Bytes(from, static_cast<std::size_t>(count));
    return {bytes.begin(), bytes.end()};
  }

  void ReadHeaders(const Chunk& list) {
    ForEachIn(list, [this](const Chunk& chunk) {
      constexpr std::int64_t mainLength = 56;
      if (chunk.id == FourLetters("avih") && chunk.size >= mainLength) {
        layout_.mainHeader = Whole({chunk.id, chunk.position, mainLength});
      } else if (chunk.id == FourLetters("LIST") && layout_.tracks.size() < MostTracks &&
                 Word32(in_.Bytes(chunk.Contents(), 4), 0) == FourLetters("strl")) {
        ReadTrack(chunk);
      }
    });
  }

  void ReadTrack(const Chunk& list) {
    AviTrack track;
    SegmentIndexes indexes;
    ForEachIn(list, [&](const Chunk& chunk) {
      if (chunk.id == FourLetters("strh")) {
        track.header = Whole(chunk);
      } else if (chunk.id == FourLetters("strf")) {
        track.format = Whole(chunk);
      } else if (chunk.id == FourLetters("indx")) {
        ReadSegmentIndexes(Whole(chunk), indexes);
      } else if (chunk.id != FourLetters("JUNK")) {
        track.rest.push_back(Whole(chunk, true));
      }
    });
    Understand(track);
    layout_.tracks.push_back(std::move(track));
    newIndexes_.push_back(std::move(indexes));
  }

  static void Understand(AviTrack& track) {
    constexpr std::size_t leastHeader = 48;
    track.header.resize(std::max(track.header.size(), leastHeader));
    const auto kind = Word32(track.header, 0);
    const auto positive = [](std::uint64_t value) {
      return std::max<std::int64_t>(static_cast<std::int64_t>(value), 1);
    };
    track.scale = positive(Word32(track.header, 20));
    track.rate = positive(Word32(track.header, 24));
    track.start = Word32(track.header, 28);
    if (kind == FourLetters("vids")) {
      track.kind = AviTrack::Kind::Video;
    } else if (kind == FourLetters("auds")) {
      track.kind = AviTrack::Kind::Audio;
      track.sampleSize = Word32(track.header, 44);
      track.blockAlign = positive(LittleEndian(track.format, 12, 2));
    }
  }

  static void ReadSegmentIndexes(const RawBytes& bytes, SegmentIndexes& indexes) {
    constexpr std::size_t header = 24;
    constexpr std::size_t entry = 16;
    // Anything else than an index of indexes is not worth the trouble: the chunks tell the same.
    if (bytes.size() < header || LittleEndian(bytes, 3, 1) != 0) {
      return;
    }
    const auto count = std::min<std::size_t>(Word32(bytes, 4), (bytes.size() - header) / entry);
    for (std::size_t i = 0; i < count; ++i) {
      const auto position = LittleEndian(bytes, header + i * entry, 8);
      indexes.positions.push_back(
          static_cast<std::int64_t>(std::min<std::uint64_t>(position, INT64_MAX / 2)));
    }
    indexes.isThere = count > 0;
  }

  // The track of a piece by the digits of its id, if its letters are those of one.
  [[nodiscard]] std::optional<std::uint16_t> TrackOf(std::uint32_t id) const {
    const auto letter = [id](unsigned place) { return id >> (8 * place) & 0xFFU; };
    const auto digit = [&](unsigned place) -> std::optional<std::uint32_t> {
      const auto value = letter(place) - '0';
      return value <= 9 ? std::optional(value) : std::nullopt;
    };
    if (!digit(0) || !digit(1)) {
      return std::nullopt;
    }
    const auto track = *digit(0) * 10 + *digit(1);
    if (track >= layout_.tracks.size()) {
      return std::nullopt;
    }
    const auto letters = id >> 16U;
    const auto isOneOf = [letters](std::string_view one, std::string_view other) {
      return letters == FourLetters(one) || letters == FourLetters(other);
    };
    using namespace std::string_view_literals;
    const auto kind = layout_.tracks[track].kind;
    const bool isRight = kind == AviTrack::Kind::Video   ? isOneOf("dc\0\0"sv, "db\0\0"sv)
                         : kind == AviTrack::Kind::Audio ? isOneOf("wb\0\0"sv, "wb\0\0"sv)
                                                         : true;
    return isRight ? std::optional(static_cast<std::uint16_t>(track)) : std::nullopt;
  }

  [[nodiscard]] bool FromNewIndex() {
    bool isThere = false;
    for (std::size_t track = 0; track < layout_.tracks.size(); ++track) {
      if (newIndexes_[track].isThere) {
        isThere = true;
      } else if (layout_.tracks[track].kind != AviTrack::Kind::Other) {
        return false;
      }
    }
    if (!isThere) {
      return false;
    }
    for (std::size_t track = 0; track < layout_.tracks.size(); ++track) {
      for (const auto position : newIndexes_[track].positions) {
        if (!ReadIndexOfSegment(position, static_cast<std::uint16_t>(track))) {
          return Discard();
        }
      }
    }
    return AreSound();
  }

  [[nodiscard]] bool ReadIndexOfSegment(std::int64_t position, std::uint16_t track) {
    const auto chunk = in_.ChunkAt(position);
    constexpr std::size_t header = 24;
    constexpr std::size_t entry = 8;
    if (!chunk || chunk->size < static_cast<std::int64_t>(header) ||
        chunk->Contents() + chunk->size > in_.Length() || chunk->size > MostOfHeaders) {
      return false;
    }
    const auto bytes = Whole(*chunk);
    // Of whole chunks: two numbers for each, no fields.
    if (bytes.size() < header || Word32(bytes, 0) != 0x0100'0002U) {
      return false;
    }
    const auto id = Word32(bytes, 8);
    const auto base = LittleEndian(bytes, 12, 8);
    if (TrackOf(id) != track || base > static_cast<std::uint64_t>(in_.Length())) {
      return false;
    }
    const auto count = std::min<std::size_t>(Word32(bytes, 4), (bytes.size() - header) / entry);
    for (std::size_t i = 0; i < count; ++i) {
      const auto size = Word32(bytes, header + i * entry + 4);
      layout_.pieces.push_back(
          {static_cast<std::int64_t>(base) + Word32(bytes, header + i * entry) - HeaderLength,
           size & ~IsNoKeyInNewIndex, track, (size & IsNoKeyInNewIndex) == 0, id});
    }
    return true;
  }

  [[nodiscard]] bool FromOldIndex() {
    // It knows only the first of several segments.
    if (oldIndex_.size == 0 || movies_.size() != 1 || oldIndex_.size > in_.Length()) {
      return false;
    }
    constexpr std::size_t entry = 16;
    const auto count = static_cast<std::size_t>(
        std::min(oldIndex_.size, in_.Length() - oldIndex_.Contents()) / 16);
    std::optional<std::int64_t> base;
    layout_.pieces.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
      const auto bytes =
          in_.Bytes(oldIndex_.Contents() + static_cast<std::int64_t>(i * entry), entry);
      const auto id = Word32(bytes, 0);
      const auto flags = Word32(bytes, 4);
      const std::int64_t offset = Word32(bytes, 8);
      const auto size = Word32(bytes, 12);
      const auto track = TrackOf(id);
      if (!track) {
        continue;
      }
      if (!base) {
        base = BaseOf(id, offset);
        if (!base) {
          return Discard();
        }
      }
      layout_.pieces.push_back({*base + offset, size, *track, (flags & IsKeyInOldIndex) != 0, id});
    }
    return AreSound();
  }

  // What the positions of the old index count from: the list of pieces or, in some files, the
  // beginning of the file.
  [[nodiscard]] std::optional<std::int64_t> BaseOf(std::uint32_t id, std::int64_t offset) {
    for (const auto base : {movies_.front().start, std::int64_t{0}}) {
      const auto chunk = in_.ChunkAt(base + offset);
      if (chunk && chunk->id == id) {
        return base;
      }
    }
    return std::nullopt;
  }

  [[nodiscard]] bool Discard() {
    layout_.pieces.clear();
    return false;
  }

  // Whether the index tells the truth, as far as that can be seen without reading every piece.
  [[nodiscard]] bool AreSound() {
    auto& pieces = layout_.pieces;
    std::stable_sort(pieces.begin(), pieces.end(), [](const auto& one, const auto& other) {
      return one.position < other.position;
    });
    for (std::size_t i = 1; i < pieces.size(); ++i) {
      if (pieces[i - 1].position + HeaderLength + pieces[i - 1].size > pieces[i].position) {
        return Discard();
      }
    }
    if (pieces.empty() || pieces.front().position < ListHeaderLength) {
      return Discard();
    }
    const auto& last = pieces.back();
    if (last.position + HeaderLength + last.size > in_.Length() || HasMoreAfterwards() ||
        !AreAtTheirPlaces()) {
      return Discard();
    }
    return HasKeys() || Discard();
  }

  // Some programs write none at all.
  [[nodiscard]] bool HasKeys() const {
    bool hasFrames = false;
    for (const auto& piece : layout_.pieces) {
      if (layout_.tracks[piece.track].kind == AviTrack::Kind::Video) {
        hasFrames = true;
        if (piece.isKey) {
          return true;
        }
      }
    }
    return !hasFrames;
  }

  // Whether pieces follow that the index does not have.
  [[nodiscard]] bool HasMoreAfterwards() {
    const auto& last = layout_.pieces.back();
    const auto next = Chunk{last.id, last.position, last.size}.Next();
    if (next + HeaderLength > movies_.back().end) {
      return false;
    }
    const auto chunk = in_.ChunkAt(next);
    return chunk && TrackOf(chunk->id) && chunk->Contents() + chunk->size <= in_.Length();
  }

  // Looks at some hundred of the pieces.
  [[nodiscard]] bool AreAtTheirPlaces() {
    constexpr std::size_t looks = 200;
    const auto& pieces = layout_.pieces;
    for (std::size_t look = 0; look < looks; ++look) {
      const auto& piece = pieces[(pieces.size() - 1) * look / (looks - 1)];
      const auto chunk = in_.ChunkAt(piece.position);
      if (!chunk || chunk->id != piece.id || chunk->size != piece.size) {
        return false;
      }
    }
    return true;
  }

  // False if it was stopped.
  [[nodiscard]] bool FromChunks() {
    return std::all_of(movies_.begin(), movies_.end(),
                       [this](const Movie& movie) { return FromMovie(movie); });
  }

  [[nodiscard]] bool FromMovie(const Movie& movie) {
    constexpr std::size_t looks = 4096;
    for (auto at = movie.start + 4; at + HeaderLength <= movie.end;) {
      const auto chunk = in_.ChunkAt(at);
      if (!chunk || chunk->id == FourLetters("idx1") || chunk->id == FourLetters("RIFF")) {
        return true;
      }
      if (chunk->id == FourLetters("LIST")) {
        at += ListHeaderLength;
        continue;
      }
      if (chunk->Contents() + chunk->size > in_.Length()) {
        return true;
      }
      if (const auto track = TrackOf(chunk->id)) {
        layout_.pieces.push_back({at, static_cast<std::uint32_t>(chunk->size), *track,
                                  layout_.tracks[*track].kind == AviTrack::Kind::Audio, chunk->id});
        if (layout_.pieces.size() % looks == 0 && !goesOn_(at)) {
          return false;
        }
      }
      at = chunk->Next();
    }
    return true;
  }

  BlockReader in_;
  const std::function<bool(qint64)>& goesOn_;
  AviLayout layout_;
  std::vector<SegmentIndexes> newIndexes_;  // one for each track
  std::vector<Movie> movies_;
  Chunk oldIndex_;
};

}  // namespace

bool IsAvi(DiskFile& file) {
  std::array<std::byte, 12> start{};
  const auto read = file.Read(0, start);
  return read && *read == start.size() && Word32(start, 0) == FourLetters("RIFF") &&
         Word32(start, 8) == FourLetters("AVI ");
}

FileResult<std::optional<AviLayout>> ReadAviLayout(DiskFile& file, const QString& path,
                                                   const std::function<bool(qint64)>& goesOn) {
  const auto length = file.Length();
  if (!length) {
    return tl::unexpected(length.error());
  }
  LayoutReader reader(file, *length, goesOn);
  const bool isRead = reader.Read();
  if (reader.Error()) {
    return tl::unexpected(*reader.Error());
  }
  if (!isRead) {
    return std::nullopt;
  }
  if (reader.Layout().mainHeader.empty() || reader.Layout().tracks.empty()) {
    return tl::unexpected(ErrorOf(path, QStringLiteral("its header is damaged")));
  }
  if (reader.Layout().pieces.empty()) {
    return tl::unexpected(ErrorOf(path, QStringLiteral("it has no frames")));
  }
  return std::optional(std::move(reader.Layout()));
}

}  // namespace brindle
