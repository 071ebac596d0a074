// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/part_sizes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "media/film.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

constexpr std::int64_t Fixed = 1000;
constexpr std::int64_t PacketsOfAGroup = 10;
constexpr std::int64_t BytesOfAPacket = 24;

// Key frames every `groupBytes` of video, in a container with 1000 bytes of its own.
Film FilmOf(std::size_t groups, std::int64_t groupBytes, const char* container = "avi") {
  Film film;
  film.audio.resize(1);
  film.parts.container = container;
  film.parts.fixedBytes = Fixed;
  for (std::size_t i = 0; i <= groups; ++i) {
    const auto count = static_cast<std::int64_t>(i);
    const FilmKeyFrame key{.frame = count * 9,
                           .videoBytes = count * groupBytes,
                           .audioBytes = count * 100,
                           .containerBytes = count * PacketsOfAGroup * BytesOfAPacket,
                           .packets = count * PacketsOfAGroup};
    if (i < groups) {
      film.keyFrames.push_back(key);
    } else {
      film.parts.end = key;
    }
  }
  film.video = FilmVideo{.frames = film.parts.end.frame, .bytes = film.parts.end.videoBytes};
  return film;
}

// Of a group of 10,000 bytes of video.
constexpr std::int64_t Group = 10'000 + 100 + PacketsOfAGroup * BytesOfAPacket;

struct CutCase {
  const char* name;
  std::vector<std::int64_t> sizes;
  std::optional<std::vector<std::size_t>> cuts;
};

class CutsOfTenGroups : public testing::TestWithParam<CutCase> {};

TEST_P(CutsOfTenGroups, AreTheLastThatFit) {
  EXPECT_EQ(CutsFor(FilmOf(10, 10'000), GetParam().sizes), GetParam().cuts);
}

using Cuts = std::vector<std::size_t>;
INSTANTIATE_TEST_SUITE_P(
    Each, CutsOfTenGroups,
    testing::Values(
        CutCase{"NoSizes", {}, Cuts{}}, CutCase{"JustBelowThree", {Fixed + 3 * Group - 1}, Cuts{2}},
        CutCase{"ExactlyThree", {Fixed + 3 * Group}, Cuts{3}},
        CutCase{"JustAboveThree", {Fixed + 3 * Group + 1}, Cuts{3}},
        CutCase{"TwoSizes", {Fixed + 3 * Group, Fixed + 4 * Group}, Cuts{3, 7}},
        CutCase{"SizesForMorePartsThanThereAre",
                {Fixed + 6 * Group, Fixed + 4 * Group, Fixed + Group},
                Cuts{6}},
        CutCase{"EndsExactlyWithTheSecond", {Fixed + 9 * Group, Fixed + Group}, Cuts{9}},
        CutCase{"AllInOne", {Fixed + 10 * Group}, Cuts{}},
        CutCase{"OneByteTooFewForAll", {Fixed + 10 * Group - 1}, Cuts{9}},
        CutCase{"JustOneGroup", {Fixed + Group}, Cuts{1}},
        CutCase{"LessThanAGroup", {Fixed + Group - 1}, std::nullopt},
        CutCase{"Nothing", {0}, std::nullopt}, CutCase{"BelowNothing", {-1}, std::nullopt},
        CutCase{"SecondTooSmall", {Fixed + Group, Fixed}, std::nullopt}),
    NameOf);

TEST(Cuts, AreNotKnownWithoutKeyFrames) { EXPECT_FALSE(CutsFor(Film(), {1'000'000})); }

TEST(PartSizes, BeginAtTheBeginningThoughTheFirstKeyFrameIsLater) {
  auto film = FilmOf(3, 10'000);
  film.keyFrames.erase(film.keyFrames.begin());
  EXPECT_EQ(PartBytes(film, 0, 1), Fixed + 2 * Group);
  EXPECT_EQ(PartBytes(film, 1, 2), Fixed + Group);
  EXPECT_EQ(PartBytes(film, 0, 2), Fixed + 3 * Group);
}

TEST(PartSizes, HaveTheRestOfAPieceOfAudioThatIsCutInTwo) {
  auto film = FilmOf(3, 10'000);
  film.keyFrames[1].extraBytes = BytesOfAPacket;
  EXPECT_EQ(PartBytes(film, 0, 1), Fixed + Group);
  EXPECT_EQ(PartBytes(film, 1, 3), Fixed + 2 * Group + BytesOfAPacket);
  EXPECT_EQ(PartBytes(film, 0, 3), Fixed + 3 * Group);
}

constexpr std::int64_t LargeGroup = 100'000'000;

// Bytes of some large groups with `ofAPacket` more for each packet.
std::int64_t LargeGroups(std::int64_t groups, std::int64_t ofAPacket) {
  return groups * (LargeGroup + 100 + PacketsOfAGroup * ofAPacket);
}

TEST(PartSizes, OfLargeAviFilesHaveSegments) {
  const auto film = FilmOf(45, LargeGroup);
  EXPECT_EQ(PartBytes(film, 0, 18), Fixed + LargeGroups(18, 24));
  // Two tracks: an index in each segment, and one of all segments.
  constexpr std::int64_t header = Fixed + 2 * AviBytes::IndexOfSegments + AviBytes::WholeLength;
  constexpr std::int64_t indexes = 2 * AviBytes::NewIndexHeader;
  constexpr std::int64_t further = AviBytes::SegmentHeader;
  EXPECT_EQ(AviSegmentEnd(film, 0, 45), 9U);
  EXPECT_EQ(PartBytes(film, 0, 20), header + LargeGroups(9, 32) + indexes + LargeGroups(9, 16) +
                                        indexes + further + LargeGroups(2, 16) + indexes + further);
  EXPECT_EQ(PartBytes(film, 20, 40), PartBytes(film, 0, 20));
}

TEST(PartSizes, OfOtherContainersHaveNone) {
  EXPECT_EQ(PartBytes(FilmOf(45, LargeGroup, "matroska"), 0, 45), Fixed + LargeGroups(45, 24));
}

TEST(PartSizes, HaveSegmentsOfOneGroupAtLeast) {
  const auto film = FilmOf(3, 1'500'000'000);
  EXPECT_EQ(AviSegmentEnd(film, 0, 3), 1U);
  EXPECT_EQ(AviSegmentEnd(film, 2, 3), 3U);
}

}  // namespace
}  // namespace brindle
