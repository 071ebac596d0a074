// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/sound_outlook.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"
#include "tests/wav/level_range_support.h"
#include "tests/wav/sound_support.h"
#include "wav/level_range.h"
#include "wav/sound_picture.h"

namespace brindle {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(SoundOutlookTest, WithoutAPassIsThePictureAlone) {
  const SoundOutlook outlook{.picture = PictureOf({10, -20, 30, -40})};
  EXPECT_EQ(outlook.Now(0, 4), (LevelRange{-40, 30}));
  EXPECT_EQ(outlook.Now(1, 2), (LevelRange{-20, -20}));
  EXPECT_TRUE(outlook.Ahead(0, 4).IsEmpty());
  EXPECT_EQ(outlook.ReachAhead(0, 4).highest, 0);
  EXPECT_EQ(outlook.CutOffPercent(), 0);
}

TEST(SoundOutlookTest, WithAPassAheadHasBoth) {
  const SoundOutlook outlook{.picture = PictureOf({10, -20, 30000, -40}), .gain = 2};
  EXPECT_EQ(outlook.Now(0, 4), (LevelRange{-40, 30000}));
  EXPECT_EQ(outlook.Ahead(0, 2), (LevelRange{-40, 20}));
  EXPECT_EQ(outlook.Ahead(0, 4), (LevelRange{-80, 32767}));
  EXPECT_EQ(outlook.ReachAhead(0, 4).lowest, -80);
  EXPECT_EQ(outlook.ReachAhead(0, 4).highest, 60000);
}

TEST(SoundOutlookTest, OfAPassUnderWayHasItsPartDone) {
  const SoundOutlook outlook{.picture = PictureOf({10, -20, 30000, -40}), .gain = 2, .done = 2};
  EXPECT_EQ(outlook.Now(0, 2), (LevelRange{-40, 20}));
  EXPECT_EQ(outlook.Now(2, 4), (LevelRange{-40, 30000}));
  EXPECT_EQ(outlook.Now(0, 4), (LevelRange{-40, 30000}));
  EXPECT_TRUE(outlook.Ahead(0, 2).IsEmpty());
  EXPECT_EQ(outlook.Ahead(1, 4), (LevelRange{-80, 32767}));
  EXPECT_EQ(outlook.ReachAhead(0, 2).highest, 0);
}

TEST(SoundOutlookTest, UpsideDownGoesTheOtherWay) {
  const SoundOutlook outlook{.picture = PictureOf({10, -20}), .gain = -3};
  EXPECT_EQ(outlook.Ahead(0, 2), (LevelRange{-30, 60}));
  EXPECT_EQ(outlook.ReachAhead(0, 2).lowest, -30);
  EXPECT_EQ(outlook.ReachAhead(0, 2).highest, 60);
}

TEST(SoundOutlookTest, WithAGainWithoutEndKeepsSilence) {
  const SoundOutlook outlook{.picture = PictureOf({0, -1}), .gain = Infinity};
  EXPECT_EQ(outlook.ReachAhead(0, 1).lowest, 0);
  EXPECT_EQ(outlook.ReachAhead(0, 1).highest, 0);
  EXPECT_EQ(outlook.ReachAhead(0, 2).lowest, -Infinity);
  EXPECT_EQ(outlook.CutOffPercent(), 50);
}

struct CutOffCase {
  std::string name;
  std::vector<std::optional<std::int16_t>> levels;
  std::optional<double> gain;
  double percent = 0;
};

class CutOffPercent : public ::testing::TestWithParam<CutOffCase> {};

TEST_P(CutOffPercent, IsOfWhatWasRead) {
  const SoundOutlook outlook{.picture = PictureOf(GetParam().levels), .gain = GetParam().gain};
  EXPECT_EQ(outlook.CutOffPercent(), GetParam().percent);
}

INSTANTIATE_TEST_SUITE_P(Cases, CutOffPercent,
                         ::testing::Values(CutOffCase{"OfNothing", {}, 2, 0},
                                           CutOffCase{"OfNothingRead", {{}, {}}, 2, 0},
                                           CutOffCase{"WithoutAPass", {20000, 20000}, {}, 0},
                                           CutOffCase{"OfQuietSound", {16383, -16384}, 2, 0},
                                           CutOffCase{"JustAboveTheRange", {16384, -16384}, 2, 50},
                                           CutOffCase{"JustBelowTheRange", {16383, -16385}, 2, 50},
                                           CutOffCase{"OnBothSides", {16384, -16385}, 2, 100},
                                           CutOffCase{"UpsideDown", {16384, -16384}, -2, 50},
                                           CutOffCase{"OfAQuarter", {1, 2, 20000, 4}, 2, 25},
                                           CutOffCase{
                                               "OfHalfOfWhatWasRead", {1, {}, 20000, {}}, 2, 50},
                                           CutOffCase{"OfSilence", {0, 0}, 1000, 0}),
                         NameOf);

TEST(CutOffPercentTest, OfOneColumnIsThatOfTheWorkedExample) {
  std::vector<std::optional<std::int16_t>> levels(2048, 10);
  levels[7] = 20000;
  const SoundOutlook outlook{.picture = PictureOf(levels), .gain = 2};
  EXPECT_EQ(outlook.CutOffPercent(), 0.048828125);
}

struct TextCase {
  std::string name;
  std::vector<std::optional<std::int16_t>> levels;
  std::optional<double> gain;
  std::size_t done = 0;
  double target = 100;
  std::string text;
};

class TextOfSound : public ::testing::TestWithParam<TextCase> {};

TEST_P(TextOfSound, SaysWhatThePictureShows) {
  const SoundOutlook outlook{.picture = PictureOf(GetParam().levels),
                             .targetPercent = GetParam().target,
                             .gain = GetParam().gain,
                             .done = GetParam().done};
  EXPECT_EQ(TextOf(outlook), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TextOfSound,
    ::testing::Values(
        TextCase{"OfNothing", {}, {}, 0, 100, "Nothing has been scanned."},
        TextCase{"OfNothingRead", {{}, {}}, 2, 0, 100, "Nothing has been scanned."},
        TextCase{"OfSilence", {0, 0}, {}, 0, 100, "Silence."},
        TextCase{"OfSomeSilence", {0, {}}, {}, 0, 100, "Silence."},
        TextCase{"WithoutAPass",
                 {-20999, 20999},
                 {},
                 0,
                 100,
                 "Peaks at -64.1% and 64.1% of full scale."},
        TextCase{"OfTheWorkedExample",
                 {-16384, 8192},
                 2,
                 0,
                 100,
                 "Peaks at -50% and 25% of full scale. The target is 100%. Nothing would be cut "
                 "off."},
        TextCase{
            "OfTheEnds", {-32768, 32767}, {}, 0, 100, "Peaks at -100% and 100% of full scale."},
        TextCase{
            "OfASoundAboveZero", {100, 3277}, {}, 0, 100, "Peaks at 0% and 10% of full scale."},
        TextCase{
            "OfASoundBelowZero", {-1, -3277}, {}, 0, 100, "Peaks at -10% and 0% of full scale."},
        TextCase{"OfAFraction",
                 {-16384, 0},
                 1.25,
                 0,
                 62.5,
                 "Peaks at -50% and 0% of full scale. The target is 62.5%. Nothing would be cut "
                 "off."},
        TextCase{"OfWhatIsCutOff",
                 {20000, 1, 1},
                 2,
                 0,
                 100,
                 "Peaks at 0% and 61% of full scale. The target is 100%. Samples would be cut off "
                 "in 33.33% of the sound."},
        TextCase{"OfANegativeTarget",
                 {-16384, 1},
                 -1,
                 0,
                 -50,
                 "Peaks at -50% and 0% of full scale. The target is -50%. Nothing would be cut "
                 "off."},
        TextCase{"OfNoTarget",
                 {-16384, 1},
                 0,
                 0,
                 0,
                 "Peaks at -50% and 0% of full scale. The target is 0%. Nothing would be cut off."},
        TextCase{"OfAPassUnderWay",
                 {-8192, 4096},
                 2,
                 1,
                 50,
                 "Peaks at -50% and 12.5% of full scale. The target is 50%. Nothing would be cut "
                 "off."}),
    NameOf);

}  // namespace
}  // namespace brindle
