// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/libav/avi_writer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "media/libav/little_endian.h"
#include "media/libav/part_files.h"
#include "media/part_sizes.h"

namespace brindle {
namespace {

constexpr std::uint32_t HasIndex = 0x10;
constexpr std::uint32_t MustUseIndex = 0x20;
constexpr std::uint32_t IsInterleaved = 0x100;
constexpr std::uint32_t IsKey = 0x10;
constexpr std::uint32_t IsNoKey = 0x8000'0000U;
constexpr std::int64_t ListHeader = 12;

using Places = std::vector<PlaceInTrack>;

// A stretch of a film: from these places of its tracks to those.
struct Stretch {
  Places from;
  Places to;
};

void AppendChunk(RawBytes& bytes, std::uint32_t id, const RawBytes& contents) {
  Append32(bytes, id);
  Append32(bytes, contents.size());
  bytes.insert(bytes.end(), contents.begin(), contents.end());
  if (contents.size() % 2 != 0) {
    bytes.push_back({});
  }
}

void AppendList(RawBytes& bytes, std::uint32_t kind, const RawBytes& contents) {
  Append32(bytes, FourLetters("LIST"));
  Append32(bytes, contents.size() + 4);
  Append32(bytes, kind);
  bytes.insert(bytes.end(), contents.begin(), contents.end());
}

// "01wb" with the number of the track in the part.
std::uint32_t IdInPart(std::uint32_t id, std::size_t track) {
  return (id & 0xFFFF'0000U) | static_cast<std::uint32_t>('0' + track / 10) |
         static_cast<std::uint32_t>('0' + track % 10) << 8U;
}

// What a segment has of one track.
struct TrackInSegment {
  std::int64_t pieces = 0;  // those that are cut in two, too
  std::int64_t bytes = 0;   // with their headers
  std::int64_t units = 0;

  [[nodiscard]] std::int64_t IndexLength() const {
    return AviBytes::NewIndexHeader + pieces * AviBytes::NewIndexEntry;
  }
};

struct Segment {
  Stretch stretch;
  std::vector<TrackInSegment> tracks;
  std::int64_t position = 0;  // of its RIFF header in the part

  [[nodiscard]] std::int64_t PieceBytes() const {
    std::int64_t bytes = 0;
    for (const auto& track : tracks) {
      bytes += track.bytes;
    }
    return bytes;
  }
  [[nodiscard]] std::int64_t Pieces() const {
    std::int64_t pieces = 0;
    for (const auto& track : tracks) {
      pieces += track.pieces;
    }
    return pieces;
  }
  [[nodiscard]] std::int64_t IndexBytes() const {
    std::int64_t bytes = 0;
    for (const auto& track : tracks) {
      bytes += track.IndexLength();
    }
    return bytes;
  }
};

// One part of an AVI film.
class AviPart {
 public:
  AviPart(const AviLayout& layout, const AviTracks& tracks, const Film& film, std::size_t from,
          std::size_t to)
      : layout_(layout),
        tracks_(tracks),
        isFirst_(from == 0),
        isLarge_(PartBytes(film, from, to) > LargestPlainAvi) {
    for (auto start = from; start < to;) {
      const auto end = isLarge_ ? AviSegmentEnd(film, start, to) : to;
      segments_.push_back(SegmentOf({PlacesAt(start), PlacesAt(end)}));
      start = end;
    }
    PlaceSegments();
  }

  [[nodiscard]] const std::vector<Segment>& Segments() const { return segments_; }

  // What stands before the pieces of a segment.
  [[nodiscard]] RawBytes Head(std::size_t segment) const {
    const auto& own = segments_[segment];
    auto contents = own.PieceBytes() + (isLarge_ ? own.IndexBytes() : 0) + 4;
    RawBytes headers;
    if (segment == 0) {
      headers = Headers();
    }
    auto length = static_cast<std::int64_t>(headers.size()) + 4 + 8 + contents;
    if (segment == 0) {
      length += AviBytes::PacketHeader + own.Pieces() * AviBytes::OldIndexEntry;
    }
    RawBytes head;
    Append32(head, FourLetters("RIFF"));
    Append32(head, static_cast<std::uint64_t>(length));
    Append32(head, segment == 0 ? FourLetters("AVI ") : FourLetters("AVIX"));
    head.insert(head.end(), headers.begin(), headers.end());
    Append32(head, FourLetters("LIST"));
    Append32(head, static_cast<std::uint64_t>(contents));
    Append32(head, FourLetters("movi"));
    return head;
  }

  // Notes a piece that stands at `position` of the part.
  void Note(std::size_t segment, std::size_t track, std::uint32_t id, bool isKey,
            std::int64_t position, std::uint32_t size) {
    const auto start = MovieStart(segment);
    if (segment == 0) {
      Append32(oldIndex_, id);
      Append32(oldIndex_, isKey ? IsKey : 0);
      Append32(oldIndex_, static_cast<std::uint64_t>(position - start));
      Append32(oldIndex_, size);
    }
    if (isLarge_) {
      auto& index = newIndexes_[track];
      ids_[track] = id;
      Append32(index, static_cast<std::uint64_t>(position + AviBytes::PacketHeader - start));
      Append32(index, size | (isKey ? 0 : IsNoKey));
    }
  }

  // What stands after the pieces of a segment.
  [[nodiscard]] RawBytes Tail(std::size_t segment) {
    RawBytes tail;
    for (std::size_t i = 0; isLarge_ && i < newIndexes_.size(); ++i) {
      RawBytes index;
      Append32(index, 0x0100'0002U);  // two numbers for each piece; an index of pieces
      Append32(index, newIndexes_[i].size() / AviBytes::NewIndexEntry);
      Append32(index, ids_[i]);
      AppendNumber(index, static_cast<std::uint64_t>(MovieStart(segment)), 8);
      Append32(index, 0);
      index.insert(index.end(), newIndexes_[i].begin(), newIndexes_[i].end());
      AppendChunk(tail, IndexId(i), index);
      newIndexes_[i].clear();
    }
    if (segment == 0) {
      AppendChunk(tail, FourLetters("idx1"), oldIndex_);
      oldIndex_ = {};
    }
    return tail;
  }

 private:
  [[nodiscard]] Places PlacesAt(std::size_t key) const {
    if (key == 0) {
      return Places(tracks_.Chosen().size());
    }
    return key < tracks_.Cuts().size() ? tracks_.Cuts()[key] : tracks_.EndOfAll();
  }

  [[nodiscard]] Segment SegmentOf(const Stretch& stretch) const {
    Segment segment{.stretch = stretch, .tracks = {}};
    for (std::size_t i = 0; i < tracks_.Chosen().size(); ++i) {
      const auto from = stretch.from[i];
      const auto to = stretch.to[i];
      TrackInSegment track;
      const auto end = to.pieces + (to.bytes > 0 ? 1 : 0);
      for (auto place = from.pieces; place < end; ++place) {
        const auto size = layout_.pieces[tracks_.Pieces(i)[place]].size;
        const auto start = place == from.pieces ? from.bytes : 0;
        const auto length = (place == to.pieces ? to.bytes : size) - start;
        track.bytes += AviBytes::PacketHeader + length + length % 2;
        ++track.pieces;
      }
      track.units = tracks_.Units(i, from, to);
      segment.tracks.push_back(track);
    }
    return segment;
  }

  void PlaceSegments() {
    newIndexes_.resize(tracks_.Chosen().size());
    ids_.resize(tracks_.Chosen().size());
    std::int64_t position = 0;
    for (std::size_t i = 0; i < segments_.size(); ++i) {
      segments_[i].position = position;
      // The header of the first one says where the others are, in numbers of one length.
      const auto head = static_cast<std::int64_t>(Head(i).size());
      heads_.push_back(head);
      position += head + segments_[i].PieceBytes() + segments_[i].IndexBytes();
      if (i == 0) {
        position += AviBytes::PacketHeader + segments_[i].Pieces() * AviBytes::OldIndexEntry;
      }
    }
  }

  // Of the letters "movi".
  [[nodiscard]] std::int64_t MovieStart(std::size_t segment) const {
    return segments_[segment].position + heads_[segment] - 4;
  }

  // "ix01".
  static std::uint32_t IndexId(std::size_t track) {
    return FourLetters("ix00") + (static_cast<std::uint32_t>(track / 10) << 16U) +
           (static_cast<std::uint32_t>(track % 10) << 24U);
  }

  [[nodiscard]] RawBytes Headers() const {
    RawBytes headers;
    auto main = layout_.mainHeader;
    const auto flags = (Word32(main, 12) & ~MustUseIndex) | HasIndex | IsInterleaved;
    Put32(main, 12, flags);
    Put32(main, 16,
          tracks_.HasVideo() ? static_cast<std::uint64_t>(segments_.front().tracks[0].units) : 0);
    Put32(main, 20, 0);
    Put32(main, 24, tracks_.Chosen().size());
    AppendChunk(headers, FourLetters("avih"), main);
    std::int64_t frames = 0;
    for (std::size_t i = 0; i < tracks_.Chosen().size(); ++i) {
      AppendList(headers, FourLetters("strl"), TrackHeaders(i));
    }
    for (const auto& segment : segments_) {
      frames += segment.tracks.front().units;
    }
    if (isLarge_) {
      RawBytes whole;
      Append32(whole, static_cast<std::uint64_t>(frames));
      constexpr std::size_t length = 248;
      whole.resize(length);
      RawBytes chunk;
      AppendChunk(chunk, FourLetters("dmlh"), whole);
      AppendList(headers, FourLetters("odml"), chunk);
    }
    RawBytes list;
    AppendList(list, FourLetters("hdrl"), headers);
    return list;
  }

  [[nodiscard]] RawBytes TrackHeaders(std::size_t i) const {
    const auto& track = layout_.tracks[tracks_.Chosen()[i]];
    auto header = track.header;
    std::int64_t units = 0;
    std::uint32_t largest = 0;
    for (const auto& segment : segments_) {
      units += segment.tracks[i].units;
      for (auto place = segment.stretch.from[i].pieces; place < segment.stretch.to[i].pieces;
           ++place) {
        largest = std::max(largest, layout_.pieces[tracks_.Pieces(i)[place]].size);
      }
    }
    if (!isFirst_) {
      Put32(header, 28, 0);  // no wait before it begins
    }
    Put32(header, 32, static_cast<std::uint64_t>(units));
    Put32(header, 36, largest);
    RawBytes list;
    AppendChunk(list, FourLetters("strh"), header);
    AppendChunk(list, FourLetters("strf"), track.format);
    for (const auto& chunk : track.rest) {
      list.insert(list.end(), chunk.begin(), chunk.end());
      list.resize(list.size() + chunk.size() % 2);
    }
    if (isLarge_) {
      AppendChunk(list, FourLetters("indx"), IndexOfSegments(i));
    }
    return list;
  }

  [[nodiscard]] RawBytes IndexOfSegments(std::size_t i) const {
    const auto& track = layout_.tracks[tracks_.Chosen()[i]];
    RawBytes index;
    Append32(index, 4);  // four numbers for each segment; an index of indexes
    Append32(index, segments_.size());
    Append32(index,
             IdInPart(FourLetters(track.kind == AviTrack::Kind::Video ? "00dc" : "00wb"), i));
    AppendNumber(index, 0, 8);
    Append32(index, 0);
    for (std::size_t place = 0; place < segments_.size() && place < heads_.size(); ++place) {
      const auto& segment = segments_[place];
      auto position = segment.position + heads_[place] + segment.PieceBytes();
      for (std::size_t before = 0; before < i; ++before) {
        position += segment.tracks[before].IndexLength();
      }
      AppendNumber(index, static_cast<std::uint64_t>(position), 8);
      Append32(index, static_cast<std::uint64_t>(segment.tracks[i].IndexLength()));
      Append32(index, static_cast<std::uint64_t>(segment.tracks[i].units));
    }
    index.resize(static_cast<std::size_t>(AviBytes::IndexOfSegments - AviBytes::PacketHeader));
    return index;
  }

  const AviLayout& layout_;
  const AviTracks& tracks_;
  bool isFirst_;
  bool isLarge_;
  std::vector<Segment> segments_;
  std::vector<std::int64_t> heads_;  // their lengths
  RawBytes oldIndex_;
  std::vector<RawBytes> newIndexes_;  // one for each track
  std::vector<std::uint32_t> ids_;
};

// The bytes of the film, in blocks that are read ahead.
class SourceBytes {
 public:
  explicit SourceBytes(DiskFile& file) : file_(file) {}

  // Fewer if the film ends before.
  [[nodiscard]] FileResult<std::span<const std::byte>> Bytes(std::int64_t position,
                                                             std::size_t count) {
    const auto end = start_ + static_cast<std::int64_t>(length_);
    if (position < start_ || position + static_cast<std::int64_t>(count) > end) {
      constexpr std::size_t blockLength = 1'048'576;
      block_.resize(std::max({count, blockLength, block_.size()}));
      const auto read = file_.Read(position, block_);
      if (!read) {
        return tl::unexpected(read.error());
      }
      start_ = position;
      length_ = *read;
    }
    const auto from = static_cast<std::size_t>(position - start_);
    return std::span<const std::byte>(block_).subspan(from, std::min(count, length_ - from));
  }

 private:
  DiskFile& file_;
  std::vector<std::byte> block_;
  std::int64_t start_ = 0;
  std::size_t length_ = 0;
};

class AviPartsPass : public PartsPass {
 public:
  AviPartsPass(DiskFile& source, const AviLayout& layout, const AviTracks& tracks, const Film& film,
               std::vector<std::size_t> cuts, const QStringList& targets, bool isReplacing)
      : source_(source),
        layout_(layout),
        tracks_(tracks),
        film_(film),
        cuts_(std::move(cuts)),
        files_(targets, isReplacing),
        trackOf_(layout.tracks.size(), tracks.Chosen().size()),
        ordinals_(tracks.Chosen().size()) {
    cuts_.push_back(std::max<std::size_t>(film.keyFrames.size(), 1));
    for (std::size_t i = 0; i < tracks.Chosen().size(); ++i) {
      trackOf_[tracks.Chosen()[i]] = i;
    }
  }

  [[nodiscard]] PartsState Advance() override {
    if (!part_) {
      if (auto failure = BeginPart()) {
        return *failure;
      }
    }
    if (auto failure = CopyPieces()) {
      return *failure;
    }
    if (!file_->State()) {
      return PartsFailed{file_->State().error()};
    }
    if (place_ < end_) {
      return Progress();
    }
    file_->Write(part_->Tail(segment_));
    if (++segment_ < part_->Segments().size()) {
      BeginSegment();
      return Progress();
    }
    return EndPart();
  }

 private:
  using Failure = std::optional<PartsFailed>;

  [[nodiscard]] PartsState Progress() const {
    constexpr double whole = 100;
    return PartsGoOn{whole * static_cast<double>(copied_) /
                     static_cast<double>(std::max<std::int64_t>(film_.bytes, 1))};
  }

  [[nodiscard]] Failure BeginPart() {
    auto file = files_.Next();
    if (!file) {
      return PartsFailed{file.error()};
    }
    file_ = std::move(*file);
    part_.emplace(layout_, tracks_, film_, from_, cuts_[bytes_.size()]);
    segment_ = 0;
    BeginSegment();
    return {};
  }

  // The pieces of a segment stand in the order of the film.
  void BeginSegment() {
    file_->Write(part_->Head(segment_));
    const auto& stretch = part_->Segments()[segment_].stretch;
    place_ = layout_.pieces.size();
    end_ = 0;
    for (std::size_t i = 0; i < ordinals_.size(); ++i) {
      const auto& pieces = tracks_.Pieces(i);
      const auto end = stretch.to[i].pieces + (stretch.to[i].bytes > 0 ? 1 : 0);
      if (stretch.from[i].pieces < end) {
        place_ = std::min<std::size_t>(place_, pieces[stretch.from[i].pieces]);
        end_ = std::max<std::size_t>(end_, pieces[end - 1] + std::size_t{1});
      }
    }
    for (std::size_t i = 0; i < ordinals_.size(); ++i) {
      const auto& pieces = tracks_.Pieces(i);
      ordinals_[i] = static_cast<std::size_t>(
          std::lower_bound(pieces.begin(), pieces.end(), place_) - pieces.begin());
    }
  }

  [[nodiscard]] Failure CopyPieces() {
    constexpr std::int64_t atOnce = 8'000'000;
    const auto& stretch = part_->Segments()[segment_].stretch;
    for (const auto limit = copied_ + atOnce; place_ < end_ && copied_ < limit; ++place_) {
      const auto& piece = layout_.pieces[place_];
      const auto track = trackOf_[piece.track];
      if (track == ordinals_.size()) {
        continue;
      }
      const auto ordinal = ordinals_[track]++;
      const auto& from = stretch.from[track];
      const auto& to = stretch.to[track];
      if (ordinal < from.pieces || ordinal > to.pieces || (ordinal == to.pieces && to.bytes == 0)) {
        continue;
      }
      const auto start = ordinal == from.pieces ? from.bytes : 0;
      const auto end = ordinal == to.pieces ? to.bytes : piece.size;
      if (auto failure = CopyPiece(piece, track, start, end - start)) {
        return failure;
      }
    }
    return {};
  }

  [[nodiscard]] Failure CopyPiece(const AviPiece& piece, std::size_t track, std::uint32_t start,
                                  std::uint32_t size) {
    const auto contents = source_.Bytes(piece.position + AviBytes::PacketHeader + start, size);
    if (!contents) {
      return PartsFailed{contents.error(), false};
    }
    if (contents->size() != size) {
      return PartsFailed{ErrorOf(QString(), QStringLiteral("the film has become shorter")), false};
    }
    const auto id = IdInPart(piece.id, track);
    part_->Note(segment_, track, id, piece.isKey, file_->Position(), size);
    header_.clear();
    Append32(header_, id);
    Append32(header_, size);
    file_->Write(header_);
    file_->Write(*contents);
    if (size % 2 != 0) {
      file_->Write(std::span<const std::byte>(&padding_, 1));
    }
    copied_ += AviBytes::PacketHeader + size;
    return {};
  }

  [[nodiscard]] PartsState EndPart() {
    const auto length = file_->Length();
    if (const auto done = file_->Finish(); !done) {
      return PartsFailed{done.error()};
    }
    file_.reset();
    part_.reset();
    from_ = cuts_[bytes_.size()];
    bytes_.push_back(length);
    if (bytes_.size() < cuts_.size()) {
      return Progress();
    }
    if (const auto done = files_.Complete(); !done) {
      return PartsFailed{done.error()};
    }
    return PartsCompleted{bytes_};
  }

  SourceBytes source_;
  const AviLayout& layout_;
  const AviTracks& tracks_;
  const Film& film_;
  std::vector<std::size_t> cuts_;  // with the end
  PartFiles files_;
  std::unique_ptr<PartFile> file_;
  std::optional<AviPart> part_;
  std::vector<std::size_t> trackOf_;   // in the part; of a track in the film
  std::vector<std::size_t> ordinals_;  // of the next piece of each track
  std::size_t from_ = 0;               // the key frame at which the part begins
  std::size_t segment_ = 0;
  std::size_t place_ = 0;  // of the next piece
  std::size_t end_ = 0;
  std::int64_t copied_ = 0;
  std::vector<std::int64_t> bytes_;  // of the parts that are done
  RawBytes header_;
  std::byte padding_{};
};

}  // namespace

std::unique_ptr<PartsPass> WriteAviParts(DiskFile& source, const AviLayout& layout,
                                         const AviTracks& tracks, const Film& film,
                                         const std::vector<std::size_t>& cuts,
                                         const QStringList& targets, bool isReplacing) {
  return std::make_unique<AviPartsPass>(source, layout, tracks, film, cuts, targets, isReplacing);
}

}  // namespace brindle
