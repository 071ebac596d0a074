// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "audiodisk/disk_space.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

struct FactorCase {
  const char* name;
  std::int16_t option;
  double expected;
};

class FactorOfCodec : public ::testing::TestWithParam<FactorCase> {};

TEST_P(FactorOfCodec, FollowsItsFormula) {
  EXPECT_EQ(VideoFactorOf(GetParam().option), GetParam().expected);
}

// Every factor is a sum of few powers of two, so no digit is lost.
INSTANTIATE_TEST_SUITE_P(Options, FactorOfCodec,
                         ::testing::Values(FactorCase{"Version3", 0, 1},
                                           FactorCase{"Versions4And5", 1, 0.9765625},
                                           FactorCase{"TwoIsNoVersion", 2, 0.953125},
                                           FactorCase{"NineIsNoVersion", 9, 0.7890625},
                                           FactorCase{"BelowZero", -1, 1.0234375},
                                           FactorCase{"Highest", 32767, -766.9765625},
                                           FactorCase{"Lowest", -32768, 769}),
                         NameOf);

TEST(CodecFactor, OfVersions4And5Is1000Of1024Bits) { EXPECT_EQ(VideoFactorOf(1), 1000.0 / 1024); }

TEST(WaveRate, Is4BytesASampleInUnitsOf1024) {
  EXPECT_EQ(Wav44KiloBytesPerSecond, 172.265625);
  EXPECT_EQ(Wav48KiloBytesPerSecond, 187.5);
}

struct RateCase {
  const char* name;
  double kiloBits;
  double expected;
};

class RateOfCompressedAudio : public ::testing::TestWithParam<RateCase> {};

TEST_P(RateOfCompressedAudio, IsAnEighth) {
  EXPECT_EQ(CompressedKiloBytesPerSecond(GetParam().kiloBits), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Rates, RateOfCompressedAudio,
                         ::testing::Values(RateCase{"Usual", 224, 28}, RateCase{"None", 0, 0},
                                           RateCase{"One", 1, 0.125}, RateCase{"Highest", 640, 80},
                                           RateCase{"Fraction", 127.5, 15.9375},
                                           RateCase{"BelowZero", -64, -8},
                                           RateCase{"Huge", 1e308, 1.25e307}),
                         NameOf);

struct VideoCase {
  const char* name;
  double kiloBits;
  double minutes;
  double factor;
  double expected;
};

class SizeOfVideo : public ::testing::TestWithParam<VideoCase> {};

TEST_P(SizeOfVideo, FollowsItsFormula) {
  const auto& row = GetParam();
  EXPECT_EQ(VideoMegaBytes(row.kiloBits, row.minutes, row.factor), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Films, SizeOfVideo,
    ::testing::Values(VideoCase{"Of100MinutesByVersion4", 1000, 100, 0.9765625, 715.2557373046875},
                      VideoCase{"Of100MinutesByVersion3", 1000, 100, 1, 732.421875},
                      VideoCase{"OfOneMinuteAtOneKiloBit", 1, 1, 1, 0.00732421875},
                      VideoCase{"OfAFractionOfAMinute", 1024, 0.5, 1, 3.75},
                      VideoCase{"ByNoVersion", 1000, 100, 0.7890625, 577.9266357421875},
                      VideoCase{"WithoutBitrate", 0, 100, 0.9765625, 0},
                      VideoCase{"WithoutTime", 1000, 0, 0.9765625, 0},
                      VideoCase{"OfANegativeBitrate", -1000, 100, 1, -732.421875},
                      VideoCase{"OfANegativeTime", 1000, -100, 1, -732.421875},
                      VideoCase{"OfANegativeFactor", 1000, 100, -1, -732.421875},
                      VideoCase{"OutOfRange", 1e308, 100, 1, Infinity}),
    NameOf);

struct TotalCase {
  const char* name;
  double minutes;
  double audio;
  double video;
  double expected;
};

class SizeOfAll : public ::testing::TestWithParam<TotalCase> {};

TEST_P(SizeOfAll, IsAudioAndVideo) {
  const auto& row = GetParam();
  EXPECT_EQ(TotalMegaBytes(row.minutes, row.audio, row.video), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Films, SizeOfAll,
    ::testing::Values(TotalCase{"WaveAt44", 100, 172.265625, 0, 1009.368896484375},
                      TotalCase{"WaveAt48", 100, 187.5, 0, 1098.6328125},
                      TotalCase{"CompressedAudio", 100, 28, 0, 164.0625},
                      TotalCase{"CompressedAudioAndVideo", 100, 28, 732.421875, 896.484375},
                      TotalCase{"VideoWithoutAudio", 100, 0, 700, 700},
                      TotalCase{"NoTimeLeavesTheVideo", 0, 28, 700, 700},
                      TotalCase{"Nothing", 0, 0, 0, 0},
                      TotalCase{"NegativeTimeTakesAway", -100, 28, 700, 535.9375},
                      TotalCase{"NegativeAudioTakesAway", 100, -28, 700, 535.9375},
                      TotalCase{"NegativeVideo", 100, 28, -700, -535.9375},
                      TotalCase{"OutOfRange", 1e308, 28, 700, Infinity}),
    NameOf);

TEST(SumOfSizes, OfOppositeInfinitiesIsNoNumber) {
  EXPECT_TRUE(std::isnan(TotalMegaBytes(1e308, 28, -Infinity)));
}

struct WorkedCase {
  const char* name;
  std::int16_t codec;
  double video;
  double total;
};

// 1000 kbit/s and 224 kbit/s for 100 minutes.
class WorkedFilm : public ::testing::TestWithParam<WorkedCase> {};

TEST_P(WorkedFilm, GoesThroughAllSteps) {
  const auto& row = GetParam();
  const double video = VideoMegaBytes(1000, 100, VideoFactorOf(row.codec));
  EXPECT_EQ(video, row.video);
  EXPECT_EQ(TotalMegaBytes(100, CompressedKiloBytesPerSecond(224), video), row.total);
}

INSTANTIATE_TEST_SUITE_P(Codecs, WorkedFilm,
                         ::testing::Values(WorkedCase{"Version3", 0, 732.421875, 896.484375},
                                           WorkedCase{"Versions4And5", 1, 715.2557373046875,
                                                      879.3182373046875}),
                         NameOf);

}  // namespace
}  // namespace brindle
