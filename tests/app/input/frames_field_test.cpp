// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/input/frames_field.h"

#include <QString>
#include <gtest/gtest.h>

#include "app/input/text_field.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class FramesField : public ::testing::Test {
 protected:
  TextField field{u"F"_s, {}};
  double minutes = 7;
};

TEST_F(FramesField, GivesItsRunningTime) {
  field.setText(u"150000"_s);
  StoreMinutesOfFrames(&field, 25, minutes);
  EXPECT_EQ(minutes, 100);
}

TEST_F(FramesField, LeftEmptyHasNoRunningTime) {
  StoreMinutesOfFrames(&field, 25, minutes);
  EXPECT_EQ(minutes, 0);
}

TEST_F(FramesField, WithoutAFrameRateLeavesTheRunningTime) {
  field.setText(u"150000"_s);
  StoreMinutesOfFrames(&field, 0, minutes);
  EXPECT_EQ(minutes, 7);
  WriteFramesOfMinutes(&field, 0, minutes);
  EXPECT_EQ(field.text(), u"0"_s);
  EXPECT_EQ(minutes, 7);
}

TEST_F(FramesField, ShowsWholeFramesAndRoundsTheRunningTimeDownToThem) {
  minutes = 100.001;  // 150001.5 frames
  WriteFramesOfMinutes(&field, 25, minutes);
  EXPECT_EQ(field.text(), u"150001"_s);
  EXPECT_EQ(minutes, 150001.0 / 25 / 60);
  WriteFramesOfMinutes(&field, 25, minutes);
  EXPECT_EQ(field.text(), u"150001"_s);
}

TEST_F(FramesField, OutOfRangeShowsNothingAndLeavesTheRunningTime) {
  minutes = 1e307;
  WriteFramesOfMinutes(&field, 25, minutes);
  EXPECT_EQ(field.text(), QString());
  EXPECT_EQ(minutes, 1e307);
}

}  // namespace
}  // namespace brindle
