// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/bitrate_calc.h"

#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <QAbstractItemView>
#include <QApplication>
#include <QPushButton>
#include <QString>
#include <QTest>
#include <gtest/gtest.h>

#include "base/numbers/numeric_text.h"
#include "tests/support/handler_table.h"
#include "tests/video/bitrate_window.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

const Names All{"Audio", "Capacity", "CDs", "Extra", "MLength"};

Names AllBut(const std::string& name) {
  auto names = All;
  names.erase(name);
  return names;
}

class BitrateHandlers : public HandlerTable<BitrateWindow> {};

TEST_P(BitrateHandlers, DoWhatTheirTableSays) {
  OpenForRow(u"Result"_s);
  EmptyFields(All);
  Happen();
  EXPECT_EQ(Recomputed(), GetParam().recomputes);
  ExpectFills(All);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, BitrateHandlers,
    Rows({{.control = "Audio", .event = Event::Click, .recomputes = true, .fills = {"Audio"}},
          {.control = "Audio", .event = Event::KeyPress},
          {.control = "Audio", .event = Event::KeyUp, .recomputes = true},
          {.control = "Audio", .event = Event::GotFocus, .fills = AllBut("Audio")},
          {.control = "Audio", .event = Event::LostFocus, .recomputes = true},
          {.control = "Audio", .event = Event::MouseDown},
          {.control = "Audio", .event = Event::MouseUp},
          {.control = "CDs", .event = Event::Click, .recomputes = true, .fills = {"CDs"}},
          {.control = "CDs", .event = Event::KeyPress},
          {.control = "CDs", .event = Event::KeyUp, .recomputes = true},
          {.control = "CDs", .event = Event::GotFocus, .fills = AllBut("CDs")},
          {.control = "CDs", .event = Event::LostFocus, .recomputes = true, .fills = All},
          {.control = "CDs", .event = Event::MouseDown},
          {.control = "CDs", .event = Event::MouseUp},
          {.control = "Capacity", .event = Event::Click, .recomputes = true, .fills = {"Capacity"}},
          {.control = "Capacity", .event = Event::KeyPress},
          {.control = "Capacity", .event = Event::KeyUp, .recomputes = true},
          {.control = "Capacity", .event = Event::GotFocus, .fills = AllBut("Capacity")},
          {.control = "Capacity", .event = Event::LostFocus, .recomputes = true, .fills = All},
          {.control = "Capacity", .event = Event::MouseDown},
          {.control = "Capacity", .event = Event::MouseUp}}),
    RowName);

INSTANTIATE_TEST_SUITE_P(
    Fields, BitrateHandlers,
    Rows({{.control = "MLength", .event = Event::KeyPress},
          {.control = "MLength",
           .event = Event::KeyUp,
           .recomputes = true,
           .fills = AllBut("MLength")},
          {.control = "MLength", .event = Event::GotFocus},
          {.control = "MLength", .event = Event::LostFocus, .recomputes = true, .fills = All},
          {.control = "MLength",
           .event = Event::MouseDown,
           .recomputes = true,
           .fills = AllBut("MLength")},
          {.control = "MLength", .event = Event::MouseUp},
          {.control = "Extra", .event = Event::KeyPress},
          {.control = "Extra", .event = Event::KeyUp, .recomputes = true},
          {.control = "Extra", .event = Event::GotFocus, .fills = AllBut("Extra")},
          {.control = "Extra", .event = Event::LostFocus},
          {.control = "Extra", .event = Event::MouseDown},
          {.control = "Extra", .event = Event::MouseUp, .recomputes = true}}),
    RowName);

// The three fields hold the running time, so that MLength is filled from them.
INSTANTIATE_TEST_SUITE_P(
    TimeFields, BitrateHandlers,
    Rows({{.control = "Time1", .event = Event::KeyPress},
          {.control = "Time1", .event = Event::KeyUp, .recomputes = true, .fills = All},
          {.control = "Time1", .event = Event::GotFocus},
          {.control = "Time1", .event = Event::LostFocus, .recomputes = true, .fills = {"MLength"}},
          {.control = "Time1", .event = Event::MouseDown, .recomputes = true, .fills = All},
          {.control = "Time1", .event = Event::MouseUp},
          {.control = "Time2", .event = Event::KeyPress},
          {.control = "Time2", .event = Event::KeyUp, .recomputes = true, .fills = All},
          {.control = "Time2", .event = Event::GotFocus},
          {.control = "Time2", .event = Event::LostFocus, .recomputes = true, .fills = {"MLength"}},
          {.control = "Time2", .event = Event::MouseDown, .recomputes = true, .fills = All},
          {.control = "Time2", .event = Event::MouseUp},
          {.control = "Time3", .event = Event::KeyPress},
          {.control = "Time3", .event = Event::KeyUp, .recomputes = true, .fills = All},
          {.control = "Time3", .event = Event::GotFocus},
          {.control = "Time3", .event = Event::LostFocus, .recomputes = true, .fills = {"MLength"}},
          {.control = "Time3", .event = Event::MouseDown, .recomputes = true, .fills = All},
          {.control = "Time3", .event = Event::MouseUp}}),
    RowName);

// Controls without any handler.
INSTANTIATE_TEST_SUITE_P(Outputs, BitrateHandlers,
                         Rows({{.control = "Qual", .event = Event::MouseDown},
                               {.control = "Stat(0)", .event = Event::MouseDown},
                               {.control = "Interl", .event = Event::MouseDown}}),
                         RowName);

class BitrateCalcTest : public BitrateWindow {};

TEST_F(BitrateCalcTest, OpensWithTheBuiltInFigures) {
  OpenCalculator();
  EXPECT_EQ(window->windowTitle(), u"Velbrin's Brindle 2 : Video Bitrate Calc"_s);
  EXPECT_EQ(Text("MLength"), "100");
  EXPECT_EQ(Duration(), "1:40:00.00");
  EXPECT_EQ(Text("Audio"), "128");
  EXPECT_EQ(Text("CDs"), "1");
  EXPECT_EQ(Text("Capacity"), "700");
  EXPECT_EQ(Text("Extra"), "0");
  EXPECT_TRUE(DivX4->isChecked());
  EXPECT_EQ(Text("Interl"), "ON");
  EXPECT_EQ(Text("Result"), "841");
  EXPECT_EQ(Text("Stat(0)"), "601.6MB");
  EXPECT_EQ(Text("Stat(1)"), "91.6MB");
  EXPECT_EQ(Text("Stat(2)"), "6.9MB");
  EXPECT_EQ(Text("Qual"), "Average");
}

TEST_F(BitrateCalcTest, DestroyedWhileItIsShownItRunsNoHandler) {
  for (const auto* name : {"Audio", "MLength", "Time1", "Time3", "Capacity", "DivX(1)", "Result"}) {
    auto shown = MakeBitrateCalc(services);
    shown->show();
    WaitForActive(shown.get());
    Find(shown.get(), QString::fromLatin1(name))->setFocus();
    record.MovieLength = 7.25;
    record.CDCount = 3;
    shown.reset();
    EXPECT_EQ(record.MovieLength, 7.25) << name;
    EXPECT_EQ(record.CDCount, 3) << name;
  }
}

TEST_F(BitrateCalcTest, FocusIsInTheFirstField) {
  OpenCalculator();
  EXPECT_EQ(QApplication::focusWidget(), Audio);
}

TEST_F(BitrateCalcTest, WhatIsTypedFirstReplacesTheFirstField) {
  OpenCalculator();
  Type(u"192"_s);
  EXPECT_EQ(Text("Audio"), "192");
}

TEST_F(BitrateCalcTest, ListsHoldTheUsualValuesInTheirOrder) {
  OpenCalculator();
  EXPECT_EQ(EntriesOf(Audio), "0 32 64 96 112 128 160 192 224 256 320 384 448 512 576 640");
  EXPECT_EQ(EntriesOf(CDs), "1 2 3 4");
  EXPECT_EQ(EntriesOf(Capacity), "648 650 654 700 800 880");
}

TEST_F(BitrateCalcTest, RunningTimeOfZeroOpensAsOneMinute) {
  record.MovieLength = 0;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
}

TEST_F(BitrateCalcTest, FractionalRunningTimeOpensWithUpToThreeDecimals) {
  record.MovieLength = 90.5;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "90.5");
}

TEST_F(BitrateCalcTest, OpeningKeepsARunningTimeThatIsShownShorter) {
  record.MovieLength = 90.33333;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "90.333");
  EXPECT_EQ(record.MovieLength, 90.33333);
}

TEST_F(BitrateCalcTest, RunningTimeOf125AndAHalfShowsItsParts) {
  record.MovieLength = 125.5;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "125.5");
  EXPECT_EQ(Duration(), "2:5:30.00");
}

TEST_F(BitrateCalcTest, EveryKeyInTheRunningTimeShowsNewResults) {
  OpenCalculator();
  TabTo(MLength);
  Type(u"9"_s);
  EXPECT_EQ(Text("MLength"), "9");
  EXPECT_EQ(record.MovieLength, 9);
  EXPECT_EQ(Text("Result"), "10737");
  EXPECT_EQ(Text("Qual"), "Max. setting is 10000");
  Type(u"0"_s);
  EXPECT_EQ(Text("MLength"), "90");
  EXPECT_EQ(record.MovieLength, 90);
  EXPECT_EQ(Text("Result"), "950");
  EXPECT_EQ(Duration(), "1:30:00.00");
}

TEST_F(BitrateCalcTest, MediaTooSmallLeaveBitrateSizeAndQualityEmpty) {
  OpenCalculator();
  TabTo(Capacity);
  TypeOver(u"50"_s);
  EXPECT_EQ(Text("Result"), "");
  EXPECT_EQ(Text("Stat(0)"), "");
  EXPECT_EQ(Text("Stat(1)"), "91.6MB");
  EXPECT_EQ(Text("Qual"), "");
}

TEST_F(BitrateCalcTest, SizeBelowOneHasNoLeadingZero) {
  record.AudioBitrate = 0.7;
  OpenCalculator();
  EXPECT_EQ(Text("Stat(1)"), ".5MB");
}

TEST_F(BitrateCalcTest, FiguresOutOfRangeShowNothing) {
  OpenCalculator();
  TabTo(Capacity);
  Paste(u"1e308"_s);
  EXPECT_EQ(Text("Result"), "");
  EXPECT_EQ(Text("Stat(0)"), "");
  EXPECT_EQ(Text("Qual"), "");
}

TEST_F(BitrateCalcTest, DiscsAreRoundedToEvenWhenStored) {
  OpenCalculator();
  TabTo(CDs);
  TypeOver(u"2.5"_s);
  EXPECT_EQ(record.CDCount, 2);
  TypeOver(u"3.5"_s);
  EXPECT_EQ(record.CDCount, 4);
  EXPECT_EQ(Text("CDs"), "3.5");
  TypeOver(u"40000"_s);
  EXPECT_EQ(record.CDCount, 32767);
}

TEST_F(BitrateCalcTest, NegativeCapacityBecomesPositive) {
  OpenCalculator();
  TabTo(Capacity);
  Paste(u"-650"_s);
  EXPECT_EQ(Text("Capacity"), "650");
  EXPECT_EQ(record.CDCapacity, 650);
}

TEST_F(BitrateCalcTest, LettersBecomeZero) {
  OpenCalculator();
  TabTo(Capacity);
  Paste(u"abc"_s);
  EXPECT_EQ(Text("Capacity"), "0");
  EXPECT_EQ(record.CDCapacity, 0);
}

TEST_F(BitrateCalcTest, TrailingLettersAreDropped) {
  OpenCalculator();
  TabTo(Extra);
  Paste(u"-12.5 MB"_s);
  EXPECT_EQ(Text("Extra"), "12.5");
  EXPECT_EQ(record.ExtraMaterial, 12.5);
}

TEST_F(BitrateCalcTest, ANumberJustBegunStaysWhileItIsTyped) {
  OpenCalculator();
  TabTo(Extra);
  TypeOver(u"."_s);
  EXPECT_EQ(Text("Extra"), ".");
  EXPECT_EQ(record.ExtraMaterial, 0);
  Type(u"5"_s);
  EXPECT_EQ(Text("Extra"), ".5");
  EXPECT_EQ(record.ExtraMaterial, 0.5);
}

TEST_F(BitrateCalcTest, ANumberJustBegunIsRepairedByTheNextFieldsHandler) {
  OpenCalculator();
  TabTo(Audio);
  TypeOver(u"-"_s);
  EXPECT_EQ(Text("Audio"), "-");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text("Audio"), "0");
}

TEST_F(BitrateCalcTest, AnEmptiedFieldStoresZeroAndStaysEmpty) {
  OpenCalculator();
  TabTo(Audio);
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Text("Audio"), "");
  EXPECT_EQ(record.AudioBitrate, 0);
}

TEST_F(BitrateCalcTest, AnEmptiedRunningTimeLeavesTheStoredOneAndItsResults) {
  OpenCalculator();
  TabTo(MLength);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Text("MLength"), "");
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(Text("Result"), "841");
  EXPECT_EQ(Duration(), "1:40:00.00");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
}

TEST_F(BitrateCalcTest, ARunningTimeOfZeroBecomesOneAtOnce) {
  OpenCalculator();
  TabTo(MLength);
  Type(u"0"_s);
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
}

TEST_F(BitrateCalcTest, TheTimeFieldsOfANegativeRunningTimeAreTakenBeforeItsSignIsRepaired) {
  OpenCalculator();
  TabTo(MLength);
  Paste(u"-5"_s);
  EXPECT_EQ(Text("MLength"), "5");
  EXPECT_EQ(record.MovieLength, 5);
  EXPECT_EQ(Duration(), "-1:55:00.00");
}

TEST_F(BitrateCalcTest, FocusingDiscsFillsAnEmptyCapacity) {
  OpenCalculator();
  TabTo(Capacity);
  Key(Qt::Key_Delete);
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_Delete);
  ASSERT_EQ(Text("Capacity"), "");
  Click(CDs->Field());
  EXPECT_EQ(Text("Capacity"), "1");
}

TEST_F(BitrateCalcTest, FocusingAudioFillsAnEmptyExtraButNotItself) {
  OpenCalculator();
  Field(u"Audio"_s)->setText({});
  TabTo(Extra);
  Key(Qt::Key_Delete);
  ASSERT_EQ(Text("Extra"), "");
  Click(Audio->Field());
  EXPECT_EQ(Text("Extra"), "0");
}

TEST_F(BitrateCalcTest, FieldsSelectTheirFirstTenCharactersOnly) {
  OpenCalculator();
  for (auto* field : {MLength, Extra, Time1, Time2, Time3}) {
    Result->setFocus();
    field->setText(u"123456789012"_s);
    field->setFocus();
    EXPECT_EQ(field->selectedText(), u"1234567890"_s) << field->objectName().toStdString();
  }
}

TEST_F(BitrateCalcTest, ListsSelectNothingByThemselves) {
  OpenCalculator();
  for (auto* list : {Audio, CDs, Capacity}) {
    Result->setFocus();
    list->setFocus();
    EXPECT_FALSE(list->Field()->hasSelectedText()) << list->objectName().toStdString();
  }
}

TEST_F(BitrateCalcTest, CodecVersionChangesTheFactorAndTheScale) {
  OpenCalculator();
  Click(DivX3);
  EXPECT_EQ(record.DivXOption, 0);
  EXPECT_EQ(Text("Result"), "821");
  EXPECT_EQ(Text("Qual"), "Medium-Poor");
  EXPECT_EQ(Text("Stat(0)"), "601.6MB");
  Click(DivX4);
  EXPECT_EQ(record.DivXOption, 1);
  EXPECT_EQ(Text("Result"), "841");
  EXPECT_EQ(Text("Qual"), "Average");
}

TEST_F(BitrateCalcTest, AStrangeCodecOptionSelectsNothingAndLeavesTheRating) {
  record.DivXOption = 9;
  OpenCalculator();
  EXPECT_FALSE(DivX3->isChecked());
  EXPECT_FALSE(DivX4->isChecked());
  EXPECT_EQ(record.DivXOption, 9);
  EXPECT_EQ(Text("Result"), "999");  // by the factor 1.216
  EXPECT_EQ(Text("Qual"), "Medium");
}

TEST_F(BitrateCalcTest, InterleavingIsOffWithoutOverhead) {
  record.VideoFrameOverhead = 0;
  record.AudioInterleaveOverhead = 0;
  OpenCalculator();
  EXPECT_EQ(Text("Interl"), "OFF");
  EXPECT_EQ(Text("Stat(2)"), "");
}

TEST_F(BitrateCalcTest, InterleavingIsOnlyLookedAtWhenTheWindowLoads) {
  OpenCalculator();
  record.VideoFrameOverhead = 0;
  record.AudioInterleaveOverhead = 0;
  TabTo(MLength);
  Type(u"5"_s);
  EXPECT_EQ(Text("Stat(2)"), "");
  EXPECT_EQ(Text("Interl"), "ON");
}

TEST_F(BitrateCalcTest, TheAdvancedButtonOpensAWindowAndStoresWhoDid) {
  windows.Add(WindowId::Advanced,
              [] { return std::make_unique<Form>(u"Advanced"_s, u"Advanced"_s); });
  OpenCalculator();
  const auto before = QApplication::topLevelWidgets().size();
  Click(Find<QPushButton>(window, u"Advance"_s));
  EXPECT_EQ(record.AdvancedCaller, 1);
  EXPECT_GT(QApplication::topLevelWidgets().size(), before);
}

TEST_F(BitrateCalcTest, PickingFromAListRecomputes) {
  OpenCalculator();
  Audio->showPopup();
  ASSERT_TRUE(QTest::qWaitFor([this] { return Audio->view()->isVisible(); }, 10000));
  EXPECT_EQ(Audio->currentText(), u"128"_s);
  QTest::keyClick(Audio->view(), Qt::Key_Down);
  QTest::keyClick(Audio->view(), Qt::Key_Return);
  EXPECT_EQ(Text("Audio"), "160");
  EXPECT_EQ(record.AudioBitrate, 160);
}

TEST_F(BitrateCalcTest, OpeningAListMovesNoFocus) {
  OpenCalculator();
  TabTo(CDs);
  Field(u"Extra"_s)->setText({});
  CDs->showPopup();
  ASSERT_TRUE(QTest::qWaitFor([this] { return CDs->view()->isVisible(); }, 10000));
  EXPECT_EQ(Text("Extra"), "");
  QTest::keyClick(CDs->view(), Qt::Key_Escape);
  EXPECT_EQ(Text("Extra"), "");
  EXPECT_TRUE(window->isVisible());
}

TEST_F(BitrateCalcTest, WheelTurnsOnlyTheListThatHasTheFocus) {
  OpenCalculator();
  TabTo(CDs);
  Wheel(Capacity, -1);
  EXPECT_EQ(Text("Capacity"), "700");
  Wheel(CDs, -1);
  EXPECT_EQ(Text("CDs"), "2");
  EXPECT_EQ(record.CDCount, 2);
}

TEST_F(BitrateCalcTest, AShortClickOnPlusStepsOnceAndTakesTheFocus) {
  OpenCalculator();
  Click(MLengthP);
  EXPECT_EQ(Text("MLength"), "101");
  EXPECT_EQ(record.MovieLength, 101);
  EXPECT_EQ(QApplication::focusWidget(), MLength);
  clock.Advance(5);
  EXPECT_EQ(Text("MLength"), "101");
}

TEST_F(BitrateCalcTest, PressingPlusMovesNoFocusYet) {
  OpenCalculator();
  Press(MLengthP);
  EXPECT_EQ(QApplication::focusWidget(), Audio);
  LetGo(MLengthP);
}

TEST_F(BitrateCalcTest, OtherMouseButtonsDoNotStep) {
  OpenCalculator();
  Click(MLengthP, Qt::RightButton);
  EXPECT_EQ(Text("MLength"), "100");
}

TEST_F(BitrateCalcTest, HoldingPlusRepeatsWithoutRecomputing) {
  OpenCalculator();
  Press(MLengthP);
  EXPECT_EQ(Text("MLength"), "101");
  EXPECT_EQ(record.MovieLength, 101);
  clock.Advance(0.54);
  EXPECT_EQ(Text("MLength"), "101");
  clock.Advance(0.46);
  EXPECT_EQ(Text("MLength"), "110");
  EXPECT_EQ(record.MovieLength, 101);
  LetGo(MLengthP);
  clock.Advance(5);
  EXPECT_EQ(Text("MLength"), "111");
  EXPECT_EQ(record.MovieLength, 111);
}

TEST_F(BitrateCalcTest, HoldingMinusStopsAtOne) {
  record.MovieLength = 3;
  OpenCalculator();
  Press(MLengthM);
  clock.Advance(2);
  EXPECT_EQ(Text("MLength"), "1");
  LetGo(MLengthM);
  clock.Advance(1);
  EXPECT_EQ(Text("MLength"), "1");
}

TEST_F(BitrateCalcTest, MinusLeavesAFractionJustAboveOne) {
  record.MovieLength = 1.5;
  OpenCalculator();
  Click(MLengthM);
  EXPECT_EQ(Text("MLength"), "1.5");
}

TEST_F(BitrateCalcTest, HoldingPlusOnExtraStopsAtTheCapacityOfOneDisc) {
  record.CDCapacity = 3.5;  // rounds to 4
  OpenCalculator();
  Press(ExtraP);
  clock.Advance(3);
  LetGo(ExtraP);
  clock.Advance(1);
  EXPECT_EQ(Text("Extra"), "4");
}

TEST_F(BitrateCalcTest, TheCapacityIsReadOnceForAWholePress) {
  record.CDCapacity = 3;
  OpenCalculator();
  Press(ExtraP);
  Field(u"Capacity"_s)->setText(u"50"_s);
  clock.Advance(3);
  EXPECT_EQ(Text("Extra"), "3");
  LetGo(ExtraP);
}

TEST_F(BitrateCalcTest, AnExtraBeyondTheCapacityIsPulledDown) {
  record.ExtraMaterial = 900;
  OpenCalculator();
  Click(ExtraP);
  EXPECT_EQ(Text("Extra"), "700");
}

TEST_F(BitrateCalcTest, MinusOnExtraStopsAtZero) {
  record.ExtraMaterial = 1;
  OpenCalculator();
  Click(ExtraM);
  EXPECT_EQ(Text("Extra"), "0");
  Click(ExtraM);
  EXPECT_EQ(Text("Extra"), "0");
  EXPECT_EQ(QApplication::focusWidget(), Extra);
}

TEST_F(BitrateCalcTest, ATextThatIsNoNumberStepsFromZero) {
  OpenCalculator();
  Extra->setText(u"12xyz"_s);
  Click(ExtraP);
  EXPECT_EQ(Text("Extra"), "1");
  MLength->setText({});
  Click(MLengthP);
  EXPECT_EQ(Text("MLength"), "1");
}

TEST_F(BitrateCalcTest, ArrowKeysStepLikeAShortClick) {
  OpenCalculator();
  TabTo(MLength);
  Key(Qt::Key_Up);
  EXPECT_EQ(Text("MLength"), "101");
  EXPECT_EQ(record.MovieLength, 101);
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  EXPECT_EQ(Text("MLength"), "99");
  clock.Advance(5);
  EXPECT_EQ(Text("MLength"), "99");
  TabTo(Extra);
  Key(Qt::Key_Up);
  EXPECT_EQ(Text("Extra"), "1");
  Key(Qt::Key_Down);
  EXPECT_EQ(Text("Extra"), "0");
}

TEST_F(BitrateCalcTest, EscapeClosesAndReopeningShowsWhatWasTyped) {
  OpenCalculator();
  TabTo(MLength);
  TypeOver(u"125.5"_s);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(window == nullptr || !window->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "125.5");
  EXPECT_EQ(Duration(), "2:5:30.00");
}

TEST_F(BitrateCalcTest, ClosingRunsNoLostFocus) {
  OpenCalculator();
  TabTo(MLength);
  MLength->setText({});
  ArmRecomputation();
  record.MovieLength = 77;
  window->close();
  QCoreApplication::processEvents();
  EXPECT_EQ(record.MovieLength, 77);
}

TEST_F(BitrateCalcTest, ClosingWhileAButtonIsHeldEndsTheSteps) {
  OpenCalculator();
  Press(MLengthP);
  clock.Advance(0.6);
  window->close();
  clock.Advance(5);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  clock.Advance(5);
  EXPECT_EQ(record.MovieLength, 101);
}

TEST_F(BitrateCalcTest, SwitchingWindowsIsNoMoveOfTheFocus) {
  OpenCalculator();
  TabTo(CDs);
  Field(u"Extra"_s)->setText({});
  auto* other = Open(WindowId::DefaultW);
  EXPECT_EQ(Text("Extra"), "");
  other->close();
  window->activateWindow();
  WaitForActive(window);
  EXPECT_EQ(Text("Extra"), "");
  EXPECT_EQ(QApplication::focusWidget(), CDs);
}

TEST_F(BitrateCalcTest, TheResultCanBeSelectedAndCopiedButNotChanged) {
  OpenCalculator();
  TabTo(Result);
  Type(u"9"_s);
  EXPECT_EQ(Text("Result"), "841");
  Key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Result->selectedText(), u"841"_s);
}

class RubbishInBitrateCalc : public BitrateWindow,
                             public ::testing::WithParamInterface<const char*> {};

TEST_P(RubbishInBitrateCalc, EndsInARepairedField) {
  const std::vector<QString> rubbish{
      QString(100000, u'9'),
      QString(100000, u'x'),
      QString(u"12\u0000"
              "34"_s),
      QString(QChar(u'\0')),
      u"\U0001F600\U0001F4BF"_s,
      u"\u0663\u0664\u0665"_s,
      u"\u05D0\u05D1 12"_s,
      u"&H10"_s,
      u"1,5"_s,
      u"1e999"_s,
      u"-1e308"_s,
      u"line\r\nbreak"_s,
      u"nan"_s,
      u"   "_s,
  };
  OpenCalculator();
  auto* field = Field(QString::fromLatin1(GetParam()));
  for (const auto& text : rubbish) {
    field->setFocus();
    field->selectAll();
    Paste(text);
    EXPECT_LE(field->text().size(), 400);
    Result->setFocus();
    field->setFocus();
    KeyLetGo(Qt::Key_Left);
    EXPECT_TRUE(field->text().isEmpty() || IsNumeric(field->text().toStdString()))
        << field->text().toStdString();
    EXPECT_EQ(Text("Result").find_first_not_of("0123456789"), std::string::npos);
  }
}

INSTANTIATE_TEST_SUITE_P(EveryField, RubbishInBitrateCalc,
                         ::testing::Values("Audio", "CDs", "Capacity", "MLength", "Extra", "Time1",
                                           "Time2", "Time3"),
                         [](const auto& instance) { return std::string(instance.param); });

TEST_F(BitrateCalcTest, ExtraMaterialGoesUpToADiscOfToday) {
  record.CDCapacity = 47000;
  record.ExtraMaterial = 40000;
  OpenCalculator();
  Click(ExtraP);
  EXPECT_EQ(Text("Extra"), "40001");
  TabTo(Extra);
  TypeOver(u"60000"_s);
  Click(ExtraP);
  EXPECT_EQ(Text("Extra"), "47000");
}

TEST_F(BitrateCalcTest, AResultThatStaysTheSameStaysSelected) {
  OpenCalculator();
  TabTo(Result);
  EXPECT_EQ(Result->selectedText(), u"841"_s);
  Press(ExtraM);  // there is nothing to take away
  EXPECT_EQ(Result->selectedText(), u"841"_s);
  LetGo(ExtraM);
}

TEST_F(BitrateCalcTest, AResultSelectedWholeStaysSoWhenItChanges) {
  OpenCalculator();
  TabTo(Result);
  Press(ExtraP);
  EXPECT_EQ(Result->selectedText(), u"840"_s);
  LetGo(ExtraP);
}

TEST_F(BitrateCalcTest, ACommaTypedIsAPeriod) {
  OpenCalculator();
  TabTo(MLength);
  TypeOver(u"90,5"_s);
  EXPECT_EQ(Text("MLength"), "90.5");
  EXPECT_EQ(record.MovieLength, 90.5);
  TabTo(Capacity);
  TypeOver(u"4,7"_s);
  EXPECT_EQ(Text("Capacity"), "4.7");
  EXPECT_EQ(record.CDCapacity, 4.7);
}

}  // namespace
}  // namespace brindle
