// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/video_bitrate.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

VideoBitrateInputs BuiltIn() {
  return {.discMegaBytes = 700,
          .discs = 1,
          .extraMegaBytes = 0,
          .minutes = 100,
          .audioKiloBits = 128,
          .overheadKiloBytesPerSecond = 1.171875,
          .divXFactor = 1.024};
}

struct BitrateCase {
  std::string name;
  VideoBitrateInputs inputs;
  VideoBitrate expected;
};

class ComputesVideoBitrate : public ::testing::TestWithParam<BitrateCase> {};

TEST_P(ComputesVideoBitrate, AsExpected) {
  const auto& [name, inputs, expected] = GetParam();
  const auto result = ComputeVideoBitrate(inputs);
  constexpr double tolerance = 1e-9;
  EXPECT_NEAR(result.kiloBits, expected.kiloBits, std::abs(expected.kiloBits) * tolerance);
  EXPECT_NEAR(result.videoMegaBytes, expected.videoMegaBytes,
              std::abs(expected.videoMegaBytes) * tolerance);
  EXPECT_NEAR(result.audioMegaBytes, expected.audioMegaBytes,
              std::abs(expected.audioMegaBytes) * tolerance);
  EXPECT_NEAR(result.overheadMegaBytes, expected.overheadMegaBytes,
              std::abs(expected.overheadMegaBytes) * tolerance);
}

BitrateCase With(std::string name, void (*change)(VideoBitrateInputs&), VideoBitrate expected) {
  auto inputs = BuiltIn();
  change(inputs);
  return {std::move(name), inputs, expected};
}

// The sizes by hand: 709768.75 KB are available of 716800; audio takes 125 x 6000 / 8192 MB.
constexpr VideoBitrate BuiltInResult{(709768.75 * 8 / 6000 - 125) * 1.024, 601.580810546875,
                                     91.552734375, 6.866455078125};

INSTANTIATE_TEST_SUITE_P(
    Cases, ComputesVideoBitrate,
    ::testing::Values(With(
                          "BuiltInValues", [](auto&) {}, BuiltInResult),
                      With("CodecVersion3CountsIn1024Bits", [](auto& i) { i.divXFactor = 1; },
                           {821.3583333333333, 601.580810546875, 91.552734375, 6.866455078125}),
                      With("TwoDiscs", [](auto& i) { i.discs = 2; },
                           {(1426568.75 * 8 / 6000 - 125) * 1.024, 1301.580810546875, 91.552734375,
                            6.866455078125}),
                      With("ExtraMaterialIsTakenAway", [](auto& i) { i.extraMegaBytes = 100; },
                           {(607368.75 * 8 / 6000 - 125) * 1.024, 501.580810546875, 91.552734375,
                            6.866455078125}),
                      With("NoAudio", [](auto& i) { i.audioKiloBits = 0; },
                           {709768.75 * 8 / 6000 * 1.024, 693.1335449218750, 0, 6.866455078125}),
                      With("NoOverhead", [](auto& i) { i.overheadKiloBytesPerSecond = 0; },
                           {(716800.0 * 8 / 6000 - 125) * 1.024, 608.447265625, 91.552734375, 0}),
                      With("NoRunningTime", [](auto& i) { i.minutes = 0; }, {}),
                      With("NegativeRunningTime", [](auto& i) { i.minutes = -100; }, {}),
                      With("DiscsTooSmallForTheAudio", [](auto& i) { i.discMegaBytes = 50; },
                           {((50 * 1024 - 7031.25) * 8 / 6000 - 125) * 1.024, -48.4191894531250,
                            91.552734375, 6.866455078125}),
                      With("NoDiscs", [](auto& i) { i.discs = 0; },
                           {(-7031.25 * 8 / 6000 - 125) * 1.024, -98.419189453125, 91.552734375,
                            6.866455078125})),
    NameOf);

TEST(VideoBitrate, IsNotFiniteWhereTheDiscsAreOutOfRange) {
  auto inputs = BuiltIn();
  inputs.discMegaBytes = std::numeric_limits<double>::max();
  EXPECT_FALSE(std::isfinite(ComputeVideoBitrate(inputs).kiloBits));
}

TEST(VideoBitrate, SizesAddUpToTheMedia) {
  std::mt19937 random(20260101);  // NOLINT(cert-msc51-cpp): the same figures in every run
  std::uniform_real_distribution<double> megaBytes(1, 5000);
  std::uniform_real_distribution<double> minutes(0.1, 600);
  std::uniform_real_distribution<double> kiloBits(0, 700);
  std::uniform_real_distribution<double> overhead(0, 5);
  std::uniform_int_distribution<int> discs(1, 9);
  std::uniform_int_distribution<int> option(0, 1);
  for (int i = 0; i < 20000; ++i) {
    const VideoBitrateInputs inputs{
        .discMegaBytes = megaBytes(random),
        .discs = static_cast<double>(discs(random)),
        .extraMegaBytes = megaBytes(random),
        .minutes = minutes(random),
        .audioKiloBits = kiloBits(random),
        .overheadKiloBytesPerSecond = overhead(random),
        .divXFactor = DivXFactorOf(static_cast<std::int16_t>(option(random)))};
    const auto result = ComputeVideoBitrate(inputs);
    const double sum = result.videoMegaBytes + result.audioMegaBytes + result.overheadMegaBytes +
                       inputs.extraMegaBytes;
    ASSERT_NEAR(sum, inputs.discMegaBytes * inputs.discs, 1e-6);
  }
}

TEST(DivXFactor, FollowsItsFormulaForEveryOption) {
  EXPECT_DOUBLE_EQ(DivXFactorOf(0), 1);
  EXPECT_DOUBLE_EQ(DivXFactorOf(1), 1.024);
  EXPECT_DOUBLE_EQ(DivXFactorOf(9), 1.216);
  EXPECT_DOUBLE_EQ(DivXFactorOf(-1), 0.976);
}

struct RatingCase {
  std::string name;
  double bitrate = 0;
  std::int16_t option = 0;
  std::string_view rating;
};

class RatesQuality : public ::testing::TestWithParam<RatingCase> {};

TEST_P(RatesQuality, AsExpected) {
  const auto& [name, bitrate, option, rating] = GetParam();
  EXPECT_EQ(QualityRating(bitrate, option), rating);
}

INSTANTIATE_TEST_SUITE_P(
    CodecVersion3, RatesQuality,
    ::testing::Values(
        RatingCase{"Negative", -1, 0, ""}, RatingCase{"Zero", 0, 0, ""},
        RatingCase{"JustAboveZero", 0.001, 0, "Very Poor"},
        RatingCase{"JustBelow500", 499.999, 0, "Very Poor"}, RatingCase{"At500", 500, 0, "Poor"},
        RatingCase{"JustAbove500", 500.001, 0, "Poor"},
        RatingCase{"JustBelow700", 699.999, 0, "Poor"}, RatingCase{"At700", 700, 0, "Medium-Poor"},
        RatingCase{"JustAbove700", 700.001, 0, "Medium-Poor"},
        RatingCase{"JustBelow900", 899.999, 0, "Medium-Poor"},
        RatingCase{"At900", 900, 0, "Average-Good"},
        RatingCase{"JustAbove900", 900.001, 0, "Average-Good"},
        RatingCase{"JustBelow1100", 1099.999, 0, "Average-Good"},
        RatingCase{"At1100", 1100, 0, "Very Good"},
        RatingCase{"JustAbove1100", 1100.001, 0, "Very Good"},
        RatingCase{"JustBelow1500", 1499.999, 0, "Very Good"},
        RatingCase{"At1500", 1500, 0, "Excellent"},
        RatingCase{"JustAbove1500", 1500.001, 0, "Excellent"},
        RatingCase{"JustBelow2500", 2499.999, 0, "Excellent"},
        RatingCase{"At2500", 2500, 0, "Maximum"},
        RatingCase{"JustAbove2500", 2500.001, 0, "Maximum"},
        RatingCase{"JustBelow6000", 5999.999, 0, "Maximum"},
        RatingCase{"At6000", 6000, 0, "Maximum"},
        RatingCase{"JustAbove6000", 6000.5, 0, "Max. setting is 6000"},
        RatingCase{"Largest", std::numeric_limits<double>::max(), 0, "Max. setting is 6000"},
        RatingCase{"NotFinite", Infinity, 0, ""}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    CodecVersions4And5, RatesQuality,
    ::testing::Values(
        RatingCase{"Negative", -1, 1, ""}, RatingCase{"Zero", 0, 1, ""},
        RatingCase{"JustAboveZero", 0.001, 1, "Very Poor"},
        RatingCase{"JustBelow400", 399.9, 1, "Very Poor"}, RatingCase{"At400", 400, 1, "Poor"},
        RatingCase{"JustAbove400", 400.001, 1, "Poor"},
        RatingCase{"JustBelow600", 599.999, 1, "Poor"}, RatingCase{"At600", 600, 1, "Medium-Poor"},
        RatingCase{"JustAbove600", 600.001, 1, "Medium-Poor"},
        RatingCase{"JustBelow750", 749.999, 1, "Medium-Poor"},
        RatingCase{"At750", 750, 1, "Average"}, RatingCase{"JustAbove750", 750.001, 1, "Average"},
        RatingCase{"JustBelow950", 949.999, 1, "Average"}, RatingCase{"At950", 950, 1, "Good"},
        RatingCase{"JustAbove950", 950.001, 1, "Good"},
        RatingCase{"JustBelow1100", 1099.999, 1, "Good"},
        RatingCase{"At1100", 1100, 1, "Very Good"},
        RatingCase{"JustAbove1100", 1100.001, 1, "Very Good"},
        RatingCase{"JustBelow1500", 1499.999, 1, "Very Good"},
        RatingCase{"At1500", 1500, 1, "Excellent"},
        RatingCase{"JustAbove1500", 1500.001, 1, "Excellent"},
        RatingCase{"JustBelow2500", 2499.999, 1, "Excellent"},
        RatingCase{"At2500", 2500, 1, "Maximum"},
        RatingCase{"JustAbove2500", 2500.001, 1, "Maximum"},
        RatingCase{"At6000", 6000, 1, "Maximum"},
        RatingCase{"JustBelow10000", 9999.999, 1, "Maximum"},
        RatingCase{"At10000", 10000, 1, "Maximum"},
        RatingCase{"JustAbove10000", 10000.001, 1, "Max. setting is 10000"},
        RatingCase{"NotANumber", std::nan(""), 1, ""}),
    NameOf);

TEST(Quality, OtherOptionsHaveNoScale) {
  for (const auto option : std::array<std::int16_t, 5>{-32768, -1, 2, 9, 32767}) {
    EXPECT_EQ(QualityRating(841, option), std::nullopt) << option;
    EXPECT_EQ(QualityRating(0, option), std::nullopt) << option;
  }
}

}  // namespace
}  // namespace brindle
