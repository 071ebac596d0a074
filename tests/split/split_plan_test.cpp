// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "split/split_plan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "base/numbers/numeric_text.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Largest = std::numeric_limits<double>::max();

struct IntervalCase {
  std::string name;
  double seconds = 0;
  double framesPerSecond = 0;
  double frames = 0;
};

class ComputesKeyFrameInterval : public ::testing::TestWithParam<IntervalCase> {};

TEST_P(ComputesKeyFrameInterval, InWholeFrames) {
  const auto& [name, seconds, framesPerSecond, frames] = GetParam();
  EXPECT_EQ(KeyFrameInterval(seconds, framesPerSecond), frames);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ComputesKeyFrameInterval,
    ::testing::Values(IntervalCase{"TenSecondsPal", 10, 25, 250},
                      IntervalCase{"TenSecondsFilmAt24", 10, 23.976, 240},
                      IntervalCase{"TenSecondsNtscAt30NotAt299", 10, 29.97, 300},
                      IntervalCase{"RateJustBelowAHalf", 10, 24.499, 240},
                      IntervalCase{"RateAtAHalfIsRoundedUp", 10, 24.5, 250},
                      IntervalCase{"OneSecond", 1, 29.97, 30},
                      IntervalCase{"HalfASecondIsCutDown", 0.5, 25, 12},
                      IntervalCase{"LessThanAFrame", 0.03, 25, 0},
                      IntervalCase{"JustAFrame", 0.04, 25, 1},
                      IntervalCase{"NoiseOfTheProductDoesNotCostAFrame", 0.29, 100, 29},
                      IntervalCase{"NoSeconds", 0, 25, 0}, IntervalCase{"NoRate", 10, 0, 0},
                      IntervalCase{"RateThatRoundsToNothing", 10, 0.4, 0},
                      IntervalCase{"NegativeSecondsGoDown", -0.5, 25, -13}),
    NameOf);

struct KeyFramesCase {
  std::string name;
  double frames = 0;
  double interval = 0;
  std::optional<std::int64_t> count;
};

class CountsKeyFrames : public ::testing::TestWithParam<KeyFramesCase> {};

TEST_P(CountsKeyFrames, AsWholeIntervals) {
  const auto& [name, frames, interval, count] = GetParam();
  EXPECT_EQ(KeyFrames(frames, interval), count);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CountsKeyFrames,
    ::testing::Values(KeyFramesCase{"HundredMinutesPal", 150000, 250, 600},
                      KeyFramesCase{"HundredMinutesNtsc", 179820, 300, 599},
                      KeyFramesCase{"JustBelowAnInterval", 249, 250, 0},
                      KeyFramesCase{"AnInterval", 250, 250, 1},
                      KeyFramesCase{"JustAboveAnInterval", 251, 250, 1},
                      KeyFramesCase{"NoFrames", 0, 250, 0},
                      KeyFramesCase{"NotFinite", Infinity, 250, std::nullopt},
                      KeyFramesCase{"NoInterval", 150000, 0, std::nullopt},
                      KeyFramesCase{"NothingByNothing", 0, 0, std::nullopt},
                      KeyFramesCase{"IntervalThatRoundsToNothing", 150000, 0.5, std::nullopt},
                      KeyFramesCase{"IntervalJustAboveAHalf", 150000, 0.51, 150000},
                      KeyFramesCase{"IntervalTieToEvenBelow", 10, 2.5, 5},
                      KeyFramesCase{"IntervalTieToEvenAbove", 10, 3.5, 2},
                      KeyFramesCase{"NegativeFramesTowardZero", -251, 250, -1},
                      KeyFramesCase{"FramesStopAtTheLargestInteger", 3e9, 1, 2147483647},
                      KeyFramesCase{"LargestFrames", Largest, 250, 8589934},
                      KeyFramesCase{"LargestInterval", 150000, Largest, 0}),
    NameOf);

struct RemainderCase {
  std::string name;
  double file = 0;
  double first = 0;
  double second = 0;
  double rest = 0;
};

class FindsRemainder : public ::testing::TestWithParam<RemainderCase> {};

TEST_P(FindsRemainder, WithoutNoise) {
  const auto& [name, file, first, second, rest] = GetParam();
  EXPECT_EQ(Remainder(file, first, second), rest);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FindsRemainder,
    ::testing::Values(RemainderCase{"HalfOfTheFile", 1300, 650, 0, 650},
                      RemainderCase{"TwoPartsThatFillTheFile", 100.3, 33.1, 67.2, 0},
                      RemainderCase{"OnePartOfDecimals", 100.3, 33.1, 0, 67.2},
                      RemainderCase{"TenthsOfThreeTenths", 0.3, 0.1, 0.2, 0},
                      RemainderCase{"ATenthOfThreeTenths", 0.3, 0.1, 0, 0.2},
                      RemainderCase{"PartsThatExceedTheFile", 1300, 700, 700, -100},
                      RemainderCase{"ABitTooMuch", 100.3, 33.1, 67.3, -0.1},
                      RemainderCase{"TheNinthDecimalCounts", 1.000000001, 1, 0, 1e-9},
                      RemainderCase{"TheTenthDecimalIsNoise", 1.0000000004, 1, 0, 0},
                      RemainderCase{"NoFile", 0, 0, 0, 0}, RemainderCase{"NoParts", 700, 0, 0, 700},
                      RemainderCase{"NegativeFile", -5, 3, 0, -8},
                      RemainderCase{"NegativePart", 1300, -100, 0, 1400}),
    NameOf);

TEST(SplitRemainder, OfTypedDecimalsIsWhatAPersonWouldWrite) {
  // Counted in whole hundredths, the exact rest is known.
  std::mt19937 random(20260102);  // NOLINT(cert-msc51-cpp): the same figures in every run
  std::uniform_int_distribution<int> hundredths(0, 500000);
  for (int i = 0; i < 20000; ++i) {
    const int first = hundredths(random);
    const int second = hundredths(random);
    const int file = hundredths(random);
    ASSERT_EQ(TextOf(Remainder(file / 100.0, first / 100.0, second / 100.0)),
              TextOf((file - first - second) / 100.0))
        << file << " " << first << " " << second;
  }
}

// "75000-150000 0-74999", with an empty place for a missing number.
std::string Shown(const SplitPlan& plan, std::size_t ranges) {
  const auto frame = [](const FrameNumber& number) { return number ? TextOf(*number) : ""; };
  std::string text;
  for (std::size_t i = 0; i < ranges; ++i) {
    text += i == 0 ? "" : " ";
    text += frame(plan.at(i).start) + "-" + frame(plan.at(i).end);
  }
  return text;
}

struct PlanCase {
  std::string name;
  SplitInputs inputs;
  std::string ranges;
};

class CutsInTwo : public ::testing::TestWithParam<PlanCase> {};

TEST_P(CutsInTwo, AtKeyFrames) {
  const auto plan = PlanOfTwo(GetParam().inputs);
  EXPECT_EQ(Shown(plan, 2), GetParam().ranges);
  EXPECT_EQ(Shown({plan[2], plan[3]}, 2), "- -");
}

constexpr const char* NothingOfTwo = "- -";
constexpr const char* NothingOfThree = "- - - -";

INSTANTIATE_TEST_SUITE_P(
    Possible, CutsInTwo,
    ::testing::Values(
        PlanCase{"TheMiddle", {150000, 1300, 650, 0, 250}, "75000-150000 0-74999"},
        PlanCase{"TheMiddleAtThirtyFrames", {150000, 1300, 650, 0, 300}, "75000-150000 0-74999"},
        PlanCase{"BehindAKeyFrame", {150000, 1300, 652, 0, 250}, "75000-150000 0-74999"},
        PlanCase{"JustBeforeAKeyFrame", {150000, 1300, 649.99, 0, 250}, "74750-150000 0-74749"},
        PlanCase{"NoiseOfTheProductDoesNotCostAFrame", {100, 1, 0.29, 0, 1}, "29-100 0-28"},
        PlanCase{"FirstPartBelowAnInterval", {150000, 1300, 2, 0, 250}, "0-150000 0-"},
        PlanCase{"FirstPartOfOneInterval", {150000, 1300, 2.17, 0, 250}, "250-150000 0-249"},
        PlanCase{"EmptyFirstPart", {150000, 1300, 0, 0, 250}, "0-150000 0-"},
        PlanCase{"EmptySecondPart", {150000, 1300, 1300, 0, 250}, "150000-150000 0-149999"},
        PlanCase{
            "EndOfTheFileIsTheCountItself", {149999, 1300, 1300, 0, 250}, "149750-149999 0-149749"},
        PlanCase{"FirstPartAboveTheFileByNoise",
                 {150000, 100.3, 33.1 + 67.2, 0, 250},
                 "150000-150000 0-149999"},
        PlanCase{"SecondSizeDoesNotCount", {150000, 1300, 650, 5000, 250}, "75000-150000 0-74999"},
        PlanCase{"IntervalLongerThanTheFile", {150000, 1300, 1300, 0, 150001}, "0-150000 0-"},
        PlanCase{"NoFrames", {0, 1300, 650, 0, 250}, "0-0 0-"},
        PlanCase{"NegativeFramesAreBlankedOneByOne", {-150000, 1300, 650, 0, 250}, "- 0-"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Impossible, CutsInTwo,
    ::testing::Values(
        PlanCase{"FirstPartAboveTheFile", {150000, 1300, 1300.01, 0, 250}, NothingOfTwo},
        PlanCase{"NoFile", {150000, 0, 0, 0, 250}, NothingOfTwo},
        PlanCase{"NoFileButAPart", {150000, 0, 650, 0, 250}, NothingOfTwo},
        PlanCase{"NegativeFile", {150000, -1300, 650, 0, 250}, NothingOfTwo},
        PlanCase{"NegativeFileAndPart", {150000, -1300, -1400, 0, 250}, NothingOfTwo},
        PlanCase{"NegativePart", {150000, 1300, -1, 0, 250}, NothingOfTwo},
        PlanCase{"NoInterval", {150000, 1300, 650, 0, 0}, NothingOfTwo},
        PlanCase{"NothingAtAll", {}, NothingOfTwo},
        PlanCase{"ShareOutOfRange", {150000, 1300, Largest, 0, 250}, NothingOfTwo},
        PlanCase{"FramesOutOfRange", {Largest, 1300, 650, 0, 250}, NothingOfTwo},
        PlanCase{"FramesNotFinite", {Infinity, 1300, 650, 0, 250}, NothingOfTwo},
        PlanCase{"FramesNotANumber", {NotANumber, 1300, 650, 0, 250}, NothingOfTwo},
        PlanCase{"FileNotANumber", {150000, NotANumber, 650, 0, 250}, NothingOfTwo},
        PlanCase{"PartNotANumber", {150000, 1300, NotANumber, 0, 250}, NothingOfTwo},
        PlanCase{"IntervalNotANumber", {150000, 1300, 650, 0, NotANumber}, NothingOfTwo}),
    NameOf);

class CutsInThree : public ::testing::TestWithParam<PlanCase> {};

TEST_P(CutsInThree, AtKeyFrames) {
  EXPECT_EQ(Shown(PlanOfThree(GetParam().inputs), 4), GetParam().ranges);
}

INSTANTIATE_TEST_SUITE_P(
    Possible, CutsInThree,
    ::testing::Values(
        PlanCase{"EachLengthIsMovedDownByItself",
                 {150000, 1300, 400, 500, 250},
                 "46000-150000 0-45999 103500-150000 0-103499"},
        PlanCase{"TwoPartsFillTheFile",
                 {150000, 1300, 650, 650, 250},
                 "75000-150000 0-74999 150000-150000 0-149999"},
        PlanCase{"DecimalsThatFillTheFile",
                 {150000, 100.3, 33.1, 67.2, 250},
                 "49500-150000 0-49499 149750-150000 0-149749"},
        PlanCase{"EmptyFirstPart", {150000, 1300, 0, 650, 250}, "0-150000 0- 75000-150000 0-74999"},
        PlanCase{"EmptySecondPart",
                 {150000, 1300, 650, 0, 250},
                 "75000-150000 0-74999 75000-150000 0-74999"},
        PlanCase{"EmptyFirstAndSecondPart", {150000, 1300, 0, 0, 250}, "0-150000 0- 0-150000 0-"},
        PlanCase{"WholeFileFirst",
                 {150000, 1300, 1300, 0, 250},
                 "150000-150000 0-149999 150000-150000 0-149999"},
        PlanCase{"BothBelowAnIntervalButNotTogether",
                 {1000, 1000, 150, 150, 250},
                 "0-1000 0- 0-1000 0-"},
        PlanCase{"NoFrames", {0, 1300, 400, 500, 250}, "0-0 0- 0-0 0-"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Impossible, CutsInThree,
    ::testing::Values(
        PlanCase{"TogetherAboveTheFile", {150000, 1300, 700, 600.01, 250}, NothingOfThree},
        PlanCase{"ATenthAboveTheFile", {150000, 100.3, 33.1, 67.3, 250}, NothingOfThree},
        PlanCase{"FirstAboveTheFile", {150000, 1300, 1301, 0, 250}, NothingOfThree},
        PlanCase{"SecondAboveTheFile", {150000, 1300, 0, 1301, 250}, NothingOfThree},
        PlanCase{
            "FirstAboveTheFileMadeGoodBySecond", {150000, 1300, 1400, -200, 250}, NothingOfThree},
        PlanCase{
            "SecondAboveTheFileMadeGoodByFirst", {150000, 1300, -200, 1400, 250}, NothingOfThree},
        PlanCase{"NegativeFirst", {150000, 1300, -1, 500, 250}, NothingOfThree},
        PlanCase{"NegativeSecond", {150000, 1300, 400, -1, 250}, NothingOfThree},
        PlanCase{"NoFile", {150000, 0, 0, 0, 250}, NothingOfThree},
        PlanCase{"NegativeFile", {150000, -1300, -700, -700, 250}, NothingOfThree},
        PlanCase{"NoInterval", {150000, 1300, 400, 500, 0}, NothingOfThree},
        PlanCase{"FirstOutOfRange", {150000, 1300, Largest, 0, 250}, NothingOfThree},
        PlanCase{"SecondOutOfRange", {150000, 1300, 0, Largest, 250}, NothingOfThree},
        PlanCase{"FramesNotANumber", {NotANumber, 1300, 400, 500, 250}, NothingOfThree},
        PlanCase{"FirstNotANumber", {150000, 1300, NotANumber, 500, 250}, NothingOfThree},
        PlanCase{"SecondNotANumber", {150000, 1300, 400, NotANumber, 250}, NothingOfThree}),
    NameOf);

// From the first frame to the one after the last.
using Stretch = std::pair<double, double>;
using Stretches = std::vector<Stretch>;

// What remains of a file when the ranges are deleted. A range without an end is none.
Stretches Kept(const std::vector<FrameRange>& deleted, double frames) {
  Stretches gone;
  for (const auto& range : deleted) {
    if (range.start && range.end) {
      gone.emplace_back(*range.start, std::min(*range.end + 1, frames));
    }
  }
  std::sort(gone.begin(), gone.end());
  Stretches kept;
  double position = 0;
  for (const auto& [from, to] : gone) {
    if (from > position) {
      kept.emplace_back(position, from);
    }
    position = std::max(position, to);
  }
  if (position < frames) {
    kept.emplace_back(position, frames);
  }
  return kept;
}

// Empty if the stretches, in the order of the parts, are the whole file, with each frame once.
std::string WrongWith(const std::vector<Stretches>& parts, double frames) {
  double position = 0;
  for (const auto& part : parts) {
    for (const auto& [from, to] : part) {
      if (from != position) {
        return "expected " + TextOf(position) + ", kept from " + TextOf(from);
      }
      position = to;
    }
  }
  return position == frames ? "" : "kept only up to " + TextOf(position);
}

// Possible inputs: sizes with hundredths that do not exceed the file, all kinds of lengths.
class AnyFile {
 public:
  SplitInputs Next() {
    constexpr std::array rates{25, 24, 30};
    const bool isShort = Pick(0, 1) == 0;
    const int file = Pick(1, isShort ? 100 : 900000);
    const int first = Pick(0, file);
    const int second = Pick(0, file - first);
    return {.frames = static_cast<double>(Pick(0, isShort ? 3000 : 99999999)),
            .megaBytes = file / 100.0,
            .firstMegaBytes = first / 100.0,
            .secondMegaBytes = second / 100.0,
            .keyFrameInterval =
                static_cast<double>(Pick(1, 100) * rates.at(static_cast<std::size_t>(Pick(0, 2))))};
  }

 private:
  int Pick(int lowest, int highest) {
    return std::uniform_int_distribution<int>(lowest, highest)(random_);
  }

  std::mt19937 random_{20260103};  // NOLINT(cert-msc51-cpp): the same figures in every run
};

std::string Figures(const SplitInputs& inputs) {
  return TextOf(inputs.frames) + " frames, " + TextOf(inputs.megaBytes) + " MB, " +
         TextOf(inputs.firstMegaBytes) + " MB, " + TextOf(inputs.secondMegaBytes) + " MB, every " +
         TextOf(inputs.keyFrameInterval);
}

// A part has its share of the bytes, minus at most one interval.
void ExpectShare(double length, double megaBytes, const SplitInputs& inputs) {
  EXPECT_EQ(std::fmod(length, inputs.keyFrameInterval), 0);
  const double share = inputs.frames * megaBytes / inputs.megaBytes;
  EXPECT_LE(length, share + 1e-6);
  EXPECT_GT(length + inputs.keyFrameInterval, share - 1e-6);
}

TEST(PartsOfTwo, KeepEveryFrameOnceAndBeginAtKeyFrames) {
  AnyFile files;
  for (int i = 0; i < 20000; ++i) {
    const auto inputs = files.Next();
    SCOPED_TRACE(Figures(inputs));
    const auto plan = PlanOfTwo(inputs);
    ASSERT_TRUE(plan[0].start && plan[0].end && plan[1].start);
    EXPECT_EQ(plan[0].end, inputs.frames);
    EXPECT_EQ(plan[1].start, 0);
    EXPECT_EQ(plan[1].end.has_value(), *plan[0].start > 0);
    ExpectShare(*plan[0].start, inputs.firstMegaBytes, inputs);
    EXPECT_EQ(
        WrongWith({Kept({plan[0]}, inputs.frames), Kept({plan[1]}, inputs.frames)}, inputs.frames),
        "");
    ASSERT_FALSE(::testing::Test::HasFailure());
  }
}

TEST(PartsOfThree, KeepEveryFrameOnceAndBeginAtKeyFrames) {
  AnyFile files;
  for (int i = 0; i < 20000; ++i) {
    const auto inputs = files.Next();
    SCOPED_TRACE(Figures(inputs));
    const auto plan = PlanOfThree(inputs);
    ASSERT_TRUE(plan[0].start && plan[0].end && plan[1].start);
    ASSERT_TRUE(plan[2].start && plan[2].end && plan[3].start);
    EXPECT_EQ(plan[0].end, inputs.frames);
    EXPECT_EQ(plan[2].end, inputs.frames);
    EXPECT_EQ(plan[1].start, 0);
    EXPECT_EQ(plan[3].start, 0);
    ExpectShare(*plan[0].start, inputs.firstMegaBytes, inputs);
    ExpectShare(*plan[2].start - *plan[0].start, inputs.secondMegaBytes, inputs);
    EXPECT_EQ(WrongWith({Kept({plan[0]}, inputs.frames), Kept({plan[1], plan[2]}, inputs.frames),
                         Kept({plan[3]}, inputs.frames)},
                        inputs.frames),
              "");
    ASSERT_FALSE(::testing::Test::HasFailure());
  }
}

TEST(PartsOfThree, BeginWhereThoseOfTwoDo) {
  AnyFile files;
  for (int i = 0; i < 20000; ++i) {
    auto inputs = files.Next();
    inputs.secondMegaBytes = Remainder(inputs.megaBytes, inputs.firstMegaBytes);
    ASSERT_EQ(Shown(PlanOfThree(inputs), 2), Shown(PlanOfTwo(inputs), 2)) << Figures(inputs);
  }
}

}  // namespace
}  // namespace brindle
