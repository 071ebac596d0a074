// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/frame_count.h"

#include <optional>

#include <QString>
#include <gtest/gtest.h>

#include "base/input/text_field.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class FrameCountTest : public ::testing::Test {
 protected:
  TextField field{u"F"_s, {}};
  FrameCount frames{field};
};

TEST_F(FrameCountTest, GivesTheRunningTimeOfTypedFrames) {
  field.setText(u"150000"_s);
  EXPECT_EQ(frames.Minutes(25), 100);
}

TEST_F(FrameCountTest, EmptiedHasNoRunningTime) {
  frames.Write(100, 25);
  field.setText({});
  EXPECT_EQ(frames.Minutes(25), 0);
}

TEST_F(FrameCountTest, WithoutAFrameRateHasNothingToGive) {
  field.setText(u"150000"_s);
  EXPECT_EQ(frames.Minutes(0), std::nullopt);
  frames.Write(7, 0);
  EXPECT_EQ(field.text(), u"0"_s);
  EXPECT_EQ(frames.Minutes(0), std::nullopt);
}

TEST_F(FrameCountTest, ShowsWholeFramesAndStandsForTheRunningTimeTheyWereCountedFrom) {
  frames.Write(100.001, 25);  // 150001.5 frames
  EXPECT_EQ(field.text(), u"150001"_s);
  EXPECT_EQ(frames.Minutes(25), 100.001);
}

TEST_F(FrameCountTest, TheSameFramesTypedStandForThemselves) {
  frames.Write(100.001, 25);
  field.setText(u"15000"_s);
  field.setText(u"150001"_s);
  EXPECT_EQ(frames.Minutes(25), 150001.0 / 25 / 60);
}

TEST_F(FrameCountTest, RewrittenByAStepTheyStandForWhatTheyStoodFor) {
  frames.Write(100.001, 25);
  field.Write(u"150001"_s, 150001);
  EXPECT_EQ(frames.Minutes(25), 100.001);
  field.Write(u"1"_s, 1);
  EXPECT_EQ(frames.Minutes(25), 1.0 / 25 / 60);
}

TEST_F(FrameCountTest, AtAnotherRateTheFramesCount) {
  frames.Write(100, 25);
  EXPECT_EQ(frames.Minutes(23.976), 150000 / 23.976 / 60);
}

TEST_F(FrameCountTest, OutOfRangeShowsNothingAndHasNothingToGive) {
  frames.Write(1e307, 25);
  EXPECT_EQ(field.text(), QString());
  EXPECT_EQ(frames.Minutes(25), std::nullopt);
}

}  // namespace
}  // namespace brindle
