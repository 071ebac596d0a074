// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/part_sizes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace brindle {
namespace {

// A segment ends before it is longer than this, its indexes left aside.
constexpr std::int64_t LargestSegment = 1'000'000'000;

// What lies before a key frame, for a part that begins or ends there.
FilmKeyFrame Before(const Film& film, std::size_t index) {
  if (index == 0) {
    return {};
  }
  return index < film.keyFrames.size() ? film.keyFrames[index] : film.parts.end;
}

struct Contents {
  std::int64_t bytes = 0;    // with what the container adds to the packets
  std::int64_t packets = 0;  // those that are cut in two, too
};

Contents Between(const Film& film, std::size_t from, std::size_t to) {
  const auto start = Before(film, from);
  const auto end = Before(film, to);
  constexpr auto packet = AviBytes::PacketHeader + AviBytes::OldIndexEntry;
  return {end.videoBytes - start.videoBytes + end.audioBytes - start.audioBytes +
              end.containerBytes - start.containerBytes + start.extraBytes,
          end.packets - start.packets + start.extraBytes / packet};
}

// The last index above `from` and at most `to` of which `fits` is true. Nothing if there is none.
template <class Fits>
std::optional<std::size_t> LastThatFits(std::size_t from, std::size_t to, const Fits& fits) {
  auto least = from;
  auto most = to;
  while (least < most) {
    const auto middle = most - (most - least) / 2;
    if (fits(middle)) {
      least = middle;
    } else {
      most = middle - 1;
    }
  }
  return least > from ? std::optional(least) : std::nullopt;
}

std::int64_t LargeAviBytes(const Film& film, std::size_t from, std::size_t to) {
  const auto tracks = 1 + static_cast<std::int64_t>(film.audio.size());
  auto bytes = film.parts.fixedBytes + tracks * AviBytes::IndexOfSegments + AviBytes::WholeLength;
  for (auto start = from; start < to;) {
    const auto end = AviSegmentEnd(film, start, to);
    const auto contents = Between(film, start, end);
    bytes += contents.bytes + contents.packets * AviBytes::NewIndexEntry +
             tracks * AviBytes::NewIndexHeader;
    if (start > from) {
      bytes += AviBytes::SegmentHeader - contents.packets * AviBytes::OldIndexEntry;
    }
    start = end;
  }
  return bytes;
}

}  // namespace

std::size_t AviSegmentEnd(const Film& film, std::size_t from, std::size_t to) {
  return LastThatFits(from, to,
                      [&](std::size_t end) {
                        const auto contents = Between(film, from, end);
                        return contents.bytes - contents.packets * AviBytes::OldIndexEntry <=
                               LargestSegment;
                      })
      .value_or(from + 1);
}

std::int64_t PartBytes(const Film& film, std::size_t from, std::size_t to) {
  const auto bytes = film.parts.fixedBytes + Between(film, from, to).bytes;
  if (film.parts.container != "avi" || bytes <= LargestPlainAvi) {
    return bytes;
  }
  return LargeAviBytes(film, from, to);
}

std::optional<std::vector<std::size_t>> CutsFor(const Film& film,
                                                const std::vector<std::int64_t>& sizes) {
  const auto end = film.keyFrames.size();
  if (end == 0) {
    return std::nullopt;
  }
  std::vector<std::size_t> cuts;
  std::size_t from = 0;
  for (const auto size : sizes) {
    const auto cut =
        LastThatFits(from, end, [&](std::size_t to) { return PartBytes(film, from, to) <= size; });
    if (!cut) {
      return std::nullopt;
    }
    if (*cut == end) {
      break;
    }
    cuts.push_back(*cut);
    from = *cut;
  }
  return cuts;
}

}  // namespace brindle
