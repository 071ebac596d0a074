// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <string>

#include <QCoreApplication>
#include <QEvent>
#include <QString>
#include <gtest/gtest.h>

#include "base/input/number_fields.h"
#include "base/numbers/running_time.h"
#include "tests/video/bitrate_window.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class RunningTimeFields : public BitrateWindow {
 protected:
  void SetUp() override { OpenCalculator(); }

  void OpenWith(double minutes) {
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    record.MovieLength = minutes;
    OpenCalculator();
  }

  void TypeTime(const QString& hours, const QString& minutes, const QString& seconds) {
    TabTo(Time1);
    TypeOver(hours);
    Key(Qt::Key_Tab);
    TypeOver(minutes);
    Key(Qt::Key_Tab);
    TypeOver(seconds);
    Key(Qt::Key_Tab);
  }
};

TEST_F(RunningTimeFields, HoursMinutesAndSecondsGiveMinutes) {
  TypeTime(u"1"_s, u"30"_s, u"0"_s);
  EXPECT_EQ(record.MovieLength, 90);
  EXPECT_EQ(Text("MLength"), "90");
  EXPECT_EQ(Duration(), "1:30:00.00");
}

TEST_F(RunningTimeFields, SecondsBecomeAFractionOfAMinute) {
  TypeTime(u"0"_s, u"1"_s, u"30"_s);
  EXPECT_EQ(record.MovieLength, 1.5);
  EXPECT_EQ(Text("MLength"), "1.5");
  EXPECT_EQ(Duration(), "0:1:30.00");
}

TEST_F(RunningTimeFields, AllZeroBecomesOneMinute) {
  TypeTime(u"0"_s, u"0"_s, u"0"_s);
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(Text("Time2"), "1");
  EXPECT_EQ(record.MovieLength, 1);
}

TEST_F(RunningTimeFields, WhatTheMinutesCannotShowIsKept) {
  TypeTime(u"1"_s, u"30"_s, u"20"_s);
  EXPECT_EQ(Text("MLength"), "90.333");
  EXPECT_EQ(record.MovieLength, 90 + 20.0 / 60);
  EXPECT_EQ(Text("Time3"), "20.00");
}

TEST_F(RunningTimeFields, EveryWholeSecondTypedStays) {
  for (int second = 1; second < 60; ++second) {
    TabTo(Time3);
    TypeOver(QString::number(second));
    TabTo(MLength);
    Click(MLength);
    Click(Time1);
    EXPECT_EQ(ShownNumberIn(*Time3), second);
    EXPECT_EQ(record.MovieLength, 100 + second / 60.0);
  }
}

// One in every 1801 of a day's seconds: typed, left, clicked around, closed and opened again.
TEST_F(RunningTimeFields, WholeSecondsOfADaySurviveEverythingButTyping) {
  for (int second = 61; second < 24 * 3600; second += 1801) {
    const int wholeHours = second / 3600;
    const int wholeMinutes = second / 60 % 60;
    const int wholeSeconds = second % 60;
    const RunningTime typed{static_cast<double>(wholeHours), static_cast<double>(wholeMinutes),
                            static_cast<double>(wholeSeconds)};
    TabTo(Time3);
    TypeOver(QString::number(wholeSeconds));
    TabTo(Time2);
    TypeOver(QString::number(wholeMinutes));
    TabTo(Time1);
    TypeOver(QString::number(wholeHours));
    const double exact = InMinutes(typed);
    ASSERT_EQ(record.MovieLength, exact);
    for (auto* field : {MLength, Time1, Time2, Time3, Extra}) {
      Click(field);
      ASSERT_EQ(record.MovieLength, exact) << field->objectName().toStdString();
    }
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    OpenCalculator();
    ASSERT_EQ(record.MovieLength, exact);
    ASSERT_EQ(NumberIn(*Time1), typed.hours);
    ASSERT_EQ(NumberIn(*Time2), typed.minutes);
    ASSERT_EQ(ShownNumberIn(*Time3), typed.seconds);
  }
}

TEST_F(RunningTimeFields, PlusStepsWhatTheMinutesShow) {
  TypeTime(u"1"_s, u"30"_s, u"20"_s);
  Click(Find(window, u"MLengthP"_s));
  EXPECT_EQ(Text("MLength"), "91.333");
  EXPECT_EQ(record.MovieLength, 91.333);
}

// 12947 frames of film: 539.998 s, shown as 9 minutes.
TEST_F(RunningTimeFields, AKeyInSecondsThatNobodyChangedChangesNothing) {
  const double exact = 12947 / 23.976 / 60;
  OpenWith(exact);
  ASSERT_EQ(Duration(), "0:9:00.00");
  TabTo(Time3);
  for (const auto key : {Qt::Key_Home, Qt::Key_End, Qt::Key_Left}) {
    Key(key);
    EXPECT_EQ(Duration(), "0:9:00.00");
    EXPECT_EQ(record.MovieLength, exact);
  }
  Key(Qt::Key_C, Qt::ControlModifier);
  TabTo(MLength);
  EXPECT_EQ(Duration(), "0:9:00.00");
  EXPECT_EQ(record.MovieLength, exact);
}

TEST_F(RunningTimeFields, AlmostSixtySecondsTypedStay) {
  OpenWith(1);
  TabTo(Time3);
  TypeOver(u"59.997"_s);
  const double exact = record.MovieLength;
  EXPECT_DOUBLE_EQ(exact, 1 + 59.997 / 60);
  TabTo(MLength);
  EXPECT_EQ(Duration(), "0:2:00.00");
  TabTo(Time3);
  Key(Qt::Key_Home);
  Key(Qt::Key_End);
  TabTo(MLength);
  EXPECT_EQ(Duration(), "0:2:00.00");
  EXPECT_EQ(record.MovieLength, exact);
}

TEST_F(RunningTimeFields, AFewHundredthsOfAMinuteCanBeTyped) {
  TabTo(MLength);
  Key(Qt::Key_Delete);
  Type(u"0"_s);
  Type(u".05"_s);
  EXPECT_EQ(Text("MLength"), ".05");
  EXPECT_EQ(record.MovieLength, 0.05);
  EXPECT_EQ(Duration(), "0:0:03.00");
}

TEST_F(RunningTimeFields, AZeroWithAPeriodIsOneMinuteOnceItIsLeft) {
  TabTo(MLength);
  Key(Qt::Key_Delete);
  KeyDown(Qt::Key_0, u"0"_s);  // the period comes before the 0 is released
  Type(u"."_s);
  KeyLetGo(Qt::Key_0);
  EXPECT_EQ(Text("MLength"), "0.");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
}

TEST_F(RunningTimeFields, LessThanTheMinutesCanShowIsOneMinute) {
  OpenWith(0.0004);
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
}

TEST_F(RunningTimeFields, AClickOnManyHoursKeepsThem) {
  OpenWith(600000);
  Click(Time1);
  Click(Time2);
  EXPECT_EQ(Duration(), "10000:0:00.00");
  EXPECT_EQ(record.MovieLength, 600000);
}

TEST_F(RunningTimeFields, TheMouseCanPlaceTheCursorInFewSeconds) {
  OpenWith(1 + 5.0 / 60);
  EXPECT_EQ(Text("Time3"), "05.00");
  Click(Time3);  // brings the focus
  Time3->setCursorPosition(0);
  Press(Time3);
  const int pressed = Time3->cursorPositionAt(Time3->rect().center());
  EXPECT_EQ(Time3->cursorPosition(), pressed);
  LetGo(Time3);
  EXPECT_EQ(Text("Time3"), "05.00");
  EXPECT_EQ(Time3->cursorPosition(), pressed);
}

TEST_F(RunningTimeFields, HalfAMinuteCanBeTyped) {
  TabTo(MLength);
  Key(Qt::Key_Delete);
  Type(u"0"_s);
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(MLength->selectedText(), u"1"_s);
  Type(u"."_s);
  EXPECT_EQ(Text("MLength"), ".");
  Type(u"5"_s);
  EXPECT_EQ(Text("MLength"), ".5");
  EXPECT_EQ(record.MovieLength, 0.5);
  EXPECT_EQ(Duration(), "0:0:30.00");
}

TEST_F(RunningTimeFields, ANumberJustBegunInTheMinutesStaysUntilItIsLeft) {
  TabTo(MLength);
  Key(Qt::Key_Delete);
  Type(u"."_s);
  EXPECT_EQ(Text("MLength"), ".");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
}

TEST_F(RunningTimeFields, TheMinutePutIntoEmptyMinutesIsReplacedByTheNextKey) {
  OpenWith(5);
  TabTo(Time2);
  Type(u"0"_s);
  EXPECT_EQ(Text("Time2"), "1");
  EXPECT_EQ(Time2->selectedText(), u"1"_s);
  Type(u"7"_s);
  EXPECT_EQ(Text("Time2"), "7");
  EXPECT_EQ(record.MovieLength, 7);
}

TEST_F(RunningTimeFields, ACommaTypedIntoTheSecondsIsAPeriod) {
  TabTo(Time3);
  Type(u"10,05"_s);
  EXPECT_EQ(Text("Time3"), "10.05");
  EXPECT_DOUBLE_EQ(record.MovieLength, 100 + 10.05 / 60);
}

TEST_F(RunningTimeFields, HoursAndMinutesTypedShowTheNewLength) {
  TabTo(Time1);
  Type(u"2"_s);
  EXPECT_EQ(Text("MLength"), "160");
  EXPECT_EQ(record.MovieLength, 160);
  TabTo(Time2);
  Type(u"5"_s);
  EXPECT_EQ(Text("MLength"), "125");
}

TEST_F(RunningTimeFields, MinutesAboveAnHourAreCarriedAtOnce) {
  TabTo(Time1);
  Type(u"0"_s);
  TabTo(Time2);
  Type(u"75"_s);
  EXPECT_EQ(Duration(), "1:15:00.00");
  EXPECT_EQ(Text("MLength"), "75");
}

TEST_F(RunningTimeFields, ATrailingPeriodInTheSecondsStaysUntilTheNextDigit) {
  TabTo(Time3);
  Type(u"12."_s);
  EXPECT_EQ(Text("Time3"), "12.");
  Type(u"5"_s);
  EXPECT_EQ(Text("Time3"), "12.5");
}

TEST_F(RunningTimeFields, ZerosAfterThePeriodCanBeTyped) {
  TabTo(Time3);
  Type(u"10.05"_s);
  EXPECT_EQ(Text("Time3"), "10.05");
}

TEST_F(RunningTimeFields, APeriodAloneCanBeginTheSeconds) {
  TabTo(Time3);
  Type(u"."_s);
  EXPECT_EQ(Text("Time3"), ".");
  Type(u"5"_s);
  EXPECT_EQ(Text("Time3"), "0.5");
}

TEST_F(RunningTimeFields, TooManyHoursLoseADigit) {
  TabTo(Time1);
  Paste(u"5000"_s);
  EXPECT_EQ(Text("Time1"), "500");
  Time1->selectAll();
  Paste(u"1234"_s);
  EXPECT_EQ(Text("Time1"), "123");
}

TEST_F(RunningTimeFields, TooManyMinutesLoseADigit) {
  TabTo(Time1);
  Type(u"0"_s);
  TabTo(Time2);
  Paste(u"250"_s);
  EXPECT_EQ(Text("Time2"), "25");
}

TEST_F(RunningTimeFields, TooManySecondsLoseADigit) {
  TabTo(Time3);
  Paste(u"123.5"_s);
  EXPECT_EQ(Text("Time3"), "12.35");
}

TEST_F(RunningTimeFields, HoursAtTheirLimitStay) {
  TabTo(Time1);
  Paste(u"999"_s);
  EXPECT_EQ(Text("Time1"), "999");
  Time1->selectAll();
  Paste(u"1000"_s);
  EXPECT_EQ(Text("Time1"), "100");
}

TEST_F(RunningTimeFields, SecondsAboveAMinuteAreCarriedAndTheRestStays) {
  OpenWith(0.5);
  TabTo(Time3);
  Type(u"75"_s);
  EXPECT_EQ(Text("Time3"), "15");
  EXPECT_EQ(Text("Time2"), "1");
  EXPECT_EQ(Text("MLength"), "1.25");
}

TEST_F(RunningTimeFields, SixtySecondsAreCarriedOnce) {
  OpenWith(10.5);
  TabTo(Time3);
  Paste(u"60"_s);
  EXPECT_EQ(Duration(), "0:11:0");
  for (int again = 0; again < 3; ++again) {
    KeyLetGo(Qt::Key_Left);
    Click(Time3);
  }
  TabTo(MLength);
  EXPECT_EQ(Duration(), "0:11:00.00");
  EXPECT_EQ(record.MovieLength, 11);
}

TEST_F(RunningTimeFields, SecondsAreCarriedWithTheirFraction) {
  OpenWith(10.5);
  TabTo(Time3);
  Paste(u"75.1"_s);
  EXPECT_EQ(Duration(), "0:11:15.1");
  EXPECT_DOUBLE_EQ(record.MovieLength, 11 + 15.1 / 60);
}

TEST_F(RunningTimeFields, FractionsOfAnHourAreDropped) {
  TabTo(Time1);
  Paste(u"2.75"_s);
  EXPECT_EQ(Text("Time1"), "2");
}

TEST_F(RunningTimeFields, NegativeHoursBecomePositive) {
  TabTo(Time1);
  Paste(u"-3"_s);
  EXPECT_EQ(Text("Time1"), "3");
}

TEST_F(RunningTimeFields, LettersAreRepairedAtTheNextKeyPress) {
  TabTo(Time2);
  Time2->setText(u"7x"_s);
  KeyDown(Qt::Key_Backspace);
  EXPECT_EQ(Text("Time2"), "");  // the 7 was repaired first, then taken by the key
  KeyLetGo(Qt::Key_Backspace);
  EXPECT_EQ(Text("Time2"), "");
}

TEST_F(RunningTimeFields, HoursShrinkAtTheKeyPressThatFollows) {
  TabTo(Time1);
  Time1->setText(u"1234"_s);
  KeyDown(Qt::Key_Return);
  EXPECT_EQ(Text("Time1"), "123.4");
  KeyLetGo(Qt::Key_Return);
  EXPECT_EQ(Text("Time1"), "123");
}

TEST_F(RunningTimeFields, MinutesShrinkAtTheKeyPressThatFollows) {
  TabTo(Time2);
  Time2->setText(u"100"_s);
  KeyDown(Qt::Key_Return);
  EXPECT_EQ(Text("Time2"), "10");
}

TEST_F(RunningTimeFields, SecondsWithinTheirLimitAreNotRewrittenByAKeyPress) {
  TabTo(Time3);
  Time3->setText(u"099.999"_s);
  KeyDown(Qt::Key_Return);
  EXPECT_EQ(Text("Time3"), "099.999");
  Time3->setText(u"100"_s);
  KeyDown(Qt::Key_Return);
  EXPECT_EQ(Text("Time3"), "10");
}

TEST_F(RunningTimeFields, LettingTheMouseGoRepairsTheSecondsOnly) {
  TabTo(Time3);
  Press(Time3);
  Time3->setText(u"45x"_s);
  ArmRecomputation();
  const auto before = Text("Stat(2)");
  LetGo(Time3);
  EXPECT_EQ(Text("Time3"), "45");
  EXPECT_EQ(Text("Stat(2)"), before);
}

TEST_F(RunningTimeFields, AnEmptiedFieldComputesNothingButFillsTheOthers) {
  for (auto* field : {Time1, Time2, Time3}) {
    Result->setFocus();
    field->setFocus();
    field->setText({});
    Extra->setText({});
    ArmRecomputation();
    const auto before = Text("Stat(2)");
    KeyLetGo(Qt::Key_Delete);
    EXPECT_EQ(Text("Stat(2)"), before) << field->objectName().toStdString();
    EXPECT_EQ(Text("Extra"), "0");
    EXPECT_EQ(field->text(), QString());
    Press(field);
    EXPECT_EQ(Text("Stat(2)"), before) << field->objectName().toStdString();
    LetGo(field);
  }
}

TEST_F(RunningTimeFields, LeavingEmptyHoursKeepsThemEmptyUntilTheNextComputation) {
  TabTo(Time1);
  Key(Qt::Key_Delete);
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Text("Time1"), "");
  Key(Qt::Key_Tab);
  TabTo(MLength);
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(Text("Time1"), "1");
}

TEST_F(RunningTimeFields, LeavingEmptySecondsShowsZeros) {
  TabTo(Time3);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Text("Time3"), "");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text("Time3"), "00.00");
}

TEST_F(RunningTimeFields, LeavingTheSecondsShowsTwoDecimals) {
  TabTo(Time3);
  Type(u"6"_s);
  EXPECT_EQ(Text("Time3"), "6");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text("Time3"), "06.00");
}

TEST_F(RunningTimeFields, EmptySecondsAreFilledByAComputationElsewhere) {
  TabTo(Time3);
  Time3->setText({});
  MLength->setFocus();
  Time3->setText({});
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(Text("Time3"), "00.00");
}

TEST_F(RunningTimeFields, LengthTypedElsewhereIsShownInAllThree) {
  TabTo(MLength);
  TypeOver(u"125.5"_s);
  EXPECT_EQ(Duration(), "2:5:30.00");
}

TEST_F(RunningTimeFields, ManyHoursFromTheLengthAreShownAsTheyAre) {
  TabTo(MLength);
  Paste(u"600000"_s);
  EXPECT_EQ(Duration(), "10000:0:00.00");
}

}  // namespace
}  // namespace brindle
