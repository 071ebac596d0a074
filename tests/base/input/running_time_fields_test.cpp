// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/running_time_fields.h"

#include <array>
#include <limits>
#include <random>
#include <string>

#include <QString>
#include <gtest/gtest.h>

#include "base/input/number_fields.h"
#include "base/input/text_field.h"
#include "base/numbers/frame_rate.h"
#include "base/numbers/running_time.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class ThreeFields : public ::testing::Test {
 protected:
  [[nodiscard]] std::string Shown() const {
    return (hours.text() + u':' + minutes.text() + u':' + seconds.text()).toStdString();
  }

  TextField hours{u"H"_s, {}};
  TextField minutes{u"M"_s, {}};
  TextField seconds{u"S"_s, {}};
  RunningTimeFields time{hours, minutes, seconds};
};

TEST_F(ThreeFields, BeginWithoutARunningTime) { EXPECT_EQ(time.Minutes(), 0); }

TEST_F(ThreeFields, ShowARunningTimeInParts) {
  time.Write(125.5);
  EXPECT_EQ(Shown(), "2:5:30.00");
}

TEST_F(ThreeFields, StandForExactlyWhatTheyShow) {
  time.Write(150000 / 29.97 / 60);
  EXPECT_EQ(Shown(), "1:23:25.01");
  EXPECT_EQ(time.Minutes(), 150000 / 29.97 / 60);
}

TEST_F(ThreeFields, NeverShowSixtySeconds) {
  const double minutesOfFrames = 1.99999;
  time.Write(minutesOfFrames);
  EXPECT_EQ(Shown(), "0:2:00.00");
  EXPECT_EQ(time.Minutes(), minutesOfFrames);
}

TEST_F(ThreeFields, AfterOneIsChangedTheOthersStandForWhatTheyWereWrittenFrom) {
  const double exact = 150000 / 29.97 / 60;
  time.Write(exact);
  hours.setText(u"2"_s);
  EXPECT_DOUBLE_EQ(time.Minutes(), exact + 60);
  seconds.setText(u"25.0"_s);
  seconds.setText(u"25.01"_s);
  EXPECT_DOUBLE_EQ(time.Minutes(), 120 + 23 + 25.01 / 60);
}

TEST_F(ThreeFields, RewrittenByAStepStandForWhatTheyStoodFor) {
  const double exact = 150000 / 29.97 / 60;
  time.Write(exact);
  RewriteNumber(seconds);
  WriteNumber(hours, 1);
  EXPECT_EQ(time.Minutes(), exact);
}

TEST_F(ThreeFields, BesideSecondsBeingTypedOnlyTheOthersAreShown) {
  seconds.setText(u"59.999"_s);
  time.ShowBesideSeconds(1 + 59.999 / 60);
  EXPECT_EQ(Shown(), "0:1:59.999");
}

TEST_F(ThreeFields, ShowNothingOfWhatIsNotFinite) {
  time.Write(std::numeric_limits<double>::infinity());
  EXPECT_EQ(Shown(), "::");
  EXPECT_EQ(time.Minutes(), 0);
}

TEST_F(ThreeFields, EveryWholeSecondOfADayIsShownAndKept) {
  int failures = 0;
  for (int second = 0; second < 24 * 3600; ++second) {
    const int wholeHours = second / 3600;
    const int wholeMinutes = second / 60 % 60;
    const int wholeSeconds = second % 60;
    const RunningTime given{static_cast<double>(wholeHours), static_cast<double>(wholeMinutes),
                            static_cast<double>(wholeSeconds)};
    const double exact = InMinutes(given);
    time.Write(exact);
    const bool isShown = NumberIn(hours) == given.hours && NumberIn(minutes) == given.minutes &&
                         ShownNumberIn(seconds) == given.seconds;
    failures += isShown && time.Minutes() == exact ? 0 : 1;
  }
  EXPECT_EQ(failures, 0);
}

// What the converter does at a click in each of its fields, for all frames that somebody could ask
// it for in an evening.
TEST_F(ThreeFields, EveryFrameCountSurvivesItsOwnRunningTime) {
  int failures = 0;
  for (const int system : {0, 1, 2}) {
    const double rate = FramesPerSecond(system);
    for (int frames = 1; frames <= 200000; ++frames) {
      const double exact = MinutesOfFrames(frames, rate).value_or(0);
      time.Write(exact);
      failures += time.Minutes() == exact && WholeFrames(time.Minutes(), rate) == frames ? 0 : 1;
    }
  }
  EXPECT_EQ(failures, 0);
}

}  // namespace
}  // namespace brindle
