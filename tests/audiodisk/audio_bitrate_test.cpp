// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "audiodisk/audio_bitrate.h"

#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

constexpr double Largest = std::numeric_limits<double>::max();

struct BitrateCase {
  std::string name;
  AudioBitrateInputs inputs;
  double expected = 0;  // kbit/s
};

class ComputesAudioBitrate : public ::testing::TestWithParam<BitrateCase> {};

TEST_P(ComputesAudioBitrate, AsExpected) {
  const auto& [name, inputs, expected] = GetParam();
  EXPECT_NEAR(ComputeAudioBitrate(inputs), expected, std::abs(expected) * 1e-12);
}

// Target, video file, interleave overhead, running time.
INSTANTIATE_TEST_SUITE_P(
    Cases, ComputesAudioBitrate,
    ::testing::Values(
        BitrateCase{"NoInterleaving", {650, 550, 0, 100}, 102400 * 8.192 / 6000},
        BitrateCase{
            "Interleaving", {650, 550, 0.05859375, 100}, (102400 - 351.5625) * 8.192 / 6000},
        BitrateCase{"OneMinute", {650, 550, 0, 1}, 102400 * 8.192 / 60},
        BitrateCase{"HalfAMinute", {650, 550, 0, 0.5}, 102400 * 8.192 / 30},
        BitrateCase{"TargetAsLargeAsTheVideo", {550, 550, 0, 100}, 0},
        BitrateCase{"TargetSmallerThanTheVideo", {500, 550, 0, 100}, -51200 * 8.192 / 6000},
        BitrateCase{"OnlyTheOverheadIsTooMuch", {550, 550, 1, 100}, -8.192},
        BitrateCase{"NoVideo", {100, 0, 0, 100}, 102400 * 8.192 / 6000},
        BitrateCase{"NoRunningTime", {650, 550, 0, 0}, 0},
        BitrateCase{"NoRunningTimeAndNoSpace", {550, 550, 0, 0}, 0},
        BitrateCase{"TargetOutOfRange", {Largest, 550, 0, 100}, 0},
        BitrateCase{"BothOutOfRange", {Largest, Largest, 0, 100}, 0},
        BitrateCase{"RunningTimeTooShort", {650, 550, 0, 5e-324}, 0},
        BitrateCase{"RunningTimeOutOfRange", {650, 550, 1, Largest}, 0}),
    NameOf);

TEST(AudioBitrate, OfTheWorkedExampleIsRoundedForReading) {
  EXPECT_NEAR(ComputeAudioBitrate({650, 550, 0, 100}), 139.81, 0.005);
  EXPECT_NEAR(ComputeAudioBitrate({650, 550, 0.05859375, 100}), 139.33, 0.005);
}

struct SuggestionCase {
  std::string name;
  double bitrate = 0;
  std::string_view suggestion;
};

class Suggests : public ::testing::TestWithParam<SuggestionCase> {};

TEST_P(Suggests, AsExpected) {
  const auto& [name, bitrate, suggestion] = GetParam();
  EXPECT_EQ(SuggestedBitrate(bitrate), suggestion);
}

INSTANTIATE_TEST_SUITE_P(
    Bands, Suggests,
    ::testing::Values(SuggestionCase{"Negative", -1, ""}, SuggestionCase{"Zero", 0, ""},
                      SuggestionCase{"JustAboveZero", 1e-9, "Inadequate Space"},
                      SuggestionCase{"JustBelow32", 31.999, "Inadequate Space"},
                      SuggestionCase{"At32", 32, "32kbps (Pathetic)"},
                      SuggestionCase{"JustAbove32", 32.001, "32kbps (Pathetic)"},
                      SuggestionCase{"JustBelow40", 39.999, "32kbps (Pathetic)"},
                      SuggestionCase{"At40", 40, "40kbps (Pathetic)"},
                      SuggestionCase{"JustAbove40", 40.001, "40kbps (Pathetic)"},
                      SuggestionCase{"JustBelow48", 47.999, "40kbps (Pathetic)"},
                      SuggestionCase{"At48", 48, "48kbps (Pathetic)"},
                      SuggestionCase{"JustAbove48", 48.001, "48kbps (Pathetic)"},
                      SuggestionCase{"JustBelow56", 55.999, "48kbps (Pathetic)"},
                      SuggestionCase{"At56", 56, "56kbps (Very Poor)"},
                      SuggestionCase{"JustAbove56", 56.001, "56kbps (Very Poor)"},
                      SuggestionCase{"JustBelow64", 63.999, "56kbps (Very Poor)"},
                      SuggestionCase{"At64", 64, "64kbps (Very Poor)"},
                      SuggestionCase{"JustAbove64", 64.001, "64kbps (Very Poor)"},
                      SuggestionCase{"At80WhichIsNoStep", 80, "64kbps (Very Poor)"},
                      SuggestionCase{"JustBelow96", 95.999, "64kbps (Very Poor)"},
                      SuggestionCase{"At96", 96, "96kbps (Poor)"},
                      SuggestionCase{"JustAbove96", 96.001, "96kbps (Poor)"},
                      SuggestionCase{"JustBelow112", 111.999, "96kbps (Poor)"},
                      SuggestionCase{"At112", 112, "112kbps (Medium)"},
                      SuggestionCase{"JustAbove112", 112.001, "112kbps (Medium)"},
                      SuggestionCase{"JustBelow128", 127.999, "112kbps (Medium)"},
                      SuggestionCase{"At128", 128, "128kbps (Good)"},
                      SuggestionCase{"JustAbove128", 128.001, "128kbps (Good)"},
                      SuggestionCase{"JustBelow160", 159.999, "128kbps (Good)"},
                      SuggestionCase{"At160", 160, "160kbps (Very Good)"},
                      SuggestionCase{"JustAbove160", 160.001, "160kbps (Very Good)"},
                      SuggestionCase{"JustBelow192", 191.999, "160kbps (Very Good)"},
                      SuggestionCase{"At192", 192, "192kbps (Excellent)"},
                      SuggestionCase{"JustAbove192", 192.001, "192kbps (Excellent)"},
                      SuggestionCase{"JustBelow224", 223.999, "192kbps (Excellent)"},
                      SuggestionCase{"At224", 224, "224kbps (Excellent)"},
                      SuggestionCase{"JustAbove224", 224.001, "224kbps (Excellent)"},
                      SuggestionCase{"JustBelow256", 255.999, "224kbps (Excellent)"},
                      SuggestionCase{"At256", 256, "256kbps (Excellent)"},
                      SuggestionCase{"JustAbove256", 256.001, "256kbps (Excellent)"},
                      SuggestionCase{"JustBelow320", 319.999, "256kbps (Excellent)"}),
    NameOf);

// Exactly the largest standard bitrate deliberately suggests nothing, as it always has.
INSTANTIATE_TEST_SUITE_P(Largest, Suggests,
                         ::testing::Values(SuggestionCase{"At320", 320, ""},
                                           SuggestionCase{"JustAbove320", 320.01,
                                                          "320kbps (Maximum)"},
                                           SuggestionCase{"FarAbove320", 1e9, "320kbps (Maximum)"}),
                         NameOf);

}  // namespace
}  // namespace brindle
