// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/spin_hold.h"

#include <optional>

#include <gtest/gtest.h>

#include "base/numbers/stepping.h"
#include "base/settings/settings.h"
#include "tests/base/input/field_window.h"
#include "tests/support/fake_clock.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr double Tiny = 1e-4;

class SpinHoldTest : public ::testing::Test {
 protected:
  void SetUp() override {
    record.SpinFirstDelay = 0.5F;
    record.SpinRepeatInterval = 0.05F;
    window.A->setText(u"100"_s);
    window.Start();
  }

  void PressPlus(int state = 1, std::optional<double> limit = {}) {
    spin.Press({state, window.A, StepUp, limit, [this] { ++recomputations; }});
  }
  void PressMinus(int state = 2, std::optional<double> limit = {}) {
    spin.Press({state, window.A, StepDown, limit, [this] { ++recomputations; }});
  }
  [[nodiscard]] std::string Text() const { return window.A->text().toStdString(); }

  FakeClock clock;
  Settings record;
  FieldWindow window;
  SpinHold spin{window, clock, record};
  int recomputations = 0;
};

TEST_F(SpinHoldTest, StepsAndRecomputesOnceAtThePress) {
  PressPlus();
  EXPECT_EQ(Text(), "101");
  EXPECT_EQ(recomputations, 1);
  EXPECT_EQ(spin.SpinState(), 1);
}

TEST_F(SpinHoldTest, AllPlusButtonsShareOneCodeAndAllMinusButtonsAnother) {
  spin.PressPlus(*window.A, 101, [this] { ++recomputations; });
  EXPECT_EQ(spin.SpinState(), 1);
  EXPECT_EQ(Text(), "101");
  spin.Release(*window.A);
  spin.PressPlus(*window.A, 101, [this] { ++recomputations; });
  EXPECT_EQ(Text(), "101");
  spin.Release(*window.A);
  spin.PressMinus(*window.A, 100, [this] { ++recomputations; });
  EXPECT_EQ(spin.SpinState(), 2);
  EXPECT_EQ(Text(), "100");
  spin.Release(*window.A);
  spin.PressMinus(*window.A, std::nullopt, [this] { ++recomputations; });
  EXPECT_EQ(Text(), "99");
  EXPECT_EQ(recomputations, 4);
}

TEST_F(SpinHoldTest, AReleaseBeforeTheFirstDelayEndsItThere) {
  PressPlus();
  clock.Advance(0.5 - Tiny);
  spin.Release(*window.A);
  EXPECT_EQ(spin.SpinState(), 0);
  clock.Advance(10);
  EXPECT_EQ(Text(), "101");
  EXPECT_EQ(recomputations, 1);
}

TEST_F(SpinHoldTest, TheReleaseGivesTheFieldTheFocus) {
  PressPlus();
  EXPECT_FALSE(window.A->hasFocus());
  spin.Release(*window.A);
  EXPECT_TRUE(window.A->hasFocus());
}

TEST_F(SpinHoldTest, TheFirstRepeatComesAnIntervalAfterTheFirstDelay) {
  PressPlus();
  clock.Advance(0.55 - Tiny);
  EXPECT_EQ(Text(), "101");
  clock.Advance(2 * Tiny);
  EXPECT_EQ(Text(), "102");
}

TEST_F(SpinHoldTest, AReleaseRightAfterTheFirstDelayIsFollowedByOneStep) {
  PressPlus();
  clock.Advance(0.5 + Tiny);
  spin.Release(*window.A);
  EXPECT_EQ(Text(), "101");
  clock.Advance(0.05);
  EXPECT_EQ(Text(), "102");
  EXPECT_EQ(recomputations, 2);
  clock.Advance(10);
  EXPECT_EQ(Text(), "102");
  EXPECT_EQ(recomputations, 2);
}

TEST_F(SpinHoldTest, AReleaseDuringARepeatWaitIsFollowedByOneStepAtItsEnd) {
  PressPlus();
  clock.Advance(0.675);  // steps at 0.55, 0.60, 0.65
  EXPECT_EQ(Text(), "104");
  spin.Release(*window.A);
  clock.Advance(0.02);
  EXPECT_EQ(Text(), "104");
  clock.Advance(0.01);
  EXPECT_EQ(Text(), "105");
  EXPECT_EQ(recomputations, 2);
}

TEST_F(SpinHoldTest, RepeatsRecomputeNothing) {
  PressPlus();
  clock.Advance(1 + Tiny);
  EXPECT_EQ(Text(), "111");
  EXPECT_EQ(recomputations, 1);
}

TEST_F(SpinHoldTest, TheEndOfARepeatGivesTheFieldTheFocusAgain) {
  PressPlus();
  clock.Advance(0.6);
  spin.Release(*window.A);
  window.B->setFocus();
  clock.Advance(0.1);
  EXPECT_TRUE(window.A->hasFocus());
}

TEST_F(SpinHoldTest, TheFieldIsReadAnewAtEveryStep) {
  PressPlus();
  window.A->setText(u"500"_s);
  clock.Advance(0.55 + Tiny);
  EXPECT_EQ(Text(), "501");
}

TEST_F(SpinHoldTest, ATextThatIsNoNumberCountsAsZero) {
  window.A->setText(u"12xyz"_s);
  PressPlus();
  EXPECT_EQ(Text(), "1");
}

TEST_F(SpinHoldTest, TheBoundHolds) {
  window.A->setText(u"3"_s);
  PressMinus(2, 1);
  clock.Advance(2);
  EXPECT_EQ(Text(), "1");
}

TEST_F(SpinHoldTest, APressDuringTheLastWaitSuspendsIt) {
  PressPlus();
  clock.Advance(0.6 + Tiny);  // 103
  spin.Release(*window.A);
  PressMinus();
  EXPECT_EQ(Text(), "102");
  clock.Advance(0.3);
  EXPECT_EQ(Text(), "102");
  spin.Release(*window.A);
  EXPECT_EQ(Text(), "103");  // the extra step of the first press
  EXPECT_EQ(recomputations, 3);
  clock.Advance(10);
  EXPECT_EQ(Text(), "103");
}

TEST_F(SpinHoldTest, TwoShortClicksAreTwoSteps) {
  PressPlus();
  spin.Release(*window.A);
  PressPlus();
  spin.Release(*window.A);
  clock.Advance(10);
  EXPECT_EQ(Text(), "102");
  EXPECT_EQ(recomputations, 2);
}

TEST_F(SpinHoldTest, TheDelaysAreThoseOfTheRecord) {
  record.SpinFirstDelay = 2;
  record.SpinRepeatInterval = 1;
  PressPlus();
  clock.Advance(3 - Tiny);
  EXPECT_EQ(Text(), "101");
  clock.Advance(2 * Tiny);
  EXPECT_EQ(Text(), "102");
}

TEST_F(SpinHoldTest, ClosingTheWindowEndsTheSteps) {
  PressPlus();
  clock.Advance(0.6);
  const auto before = Text();
  window.close();
  EXPECT_EQ(spin.SpinState(), 0);
  clock.Advance(10);
  EXPECT_EQ(Text(), before);
  EXPECT_EQ(recomputations, 1);
}

TEST_F(SpinHoldTest, BetweenTheStepsNothingRuns) {
  PressPlus();
  clock.Advance(0.1);
  EXPECT_EQ(clock.Waiting(), 1U);
  spin.Release(*window.A);
  clock.Advance(1);
  EXPECT_EQ(clock.Waiting(), 0U);
}

TEST(SpinHoldOnTheRealClock, StepsAboutTwentyTimesASecondAfterHalfASecond) {
  SystemClock clock;
  Settings record;
  record.SpinFirstDelay = 0.5F;
  record.SpinRepeatInterval = 0.05F;
  FieldWindow window;
  SpinHold spin(window, clock, record);
  window.A->setText(u"100"_s);
  window.Start();
  const double start = clock.Now();
  spin.Press({1, window.A, StepUp, {}, [] {}});
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.A->text().toInt() >= 106; }, 30000));
  const double passed = clock.Now() - start;
  spin.Release(*window.A);
  // 101 at once, then a step at 0.55, 0.60 ...: never earlier, no matter how slow the machine is.
  EXPECT_GE(passed, 0.75 - 0.002);
}

}  // namespace
}  // namespace brindle
