// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QEvent>
#include <QRadioButton>
#include <QString>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/option_group.h"
#include "base/input/text_field.h"
#include "base/numbers/numeric_text.h"
#include "base/settings/settings.h"
#include "tests/audiodisk/hd_window.h"
#include "tests/support/handler_table.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

const Names Fields{"MLength", "MP2", "Video1", "Video2"};

class HdHandlers : public HandlerTable<HdWindow> {
 protected:
  // Opens the window with the control enabled and, for an option, not yet selected.
  void OpenEnabled() {
    const auto& control = GetParam().control;
    SetFilm();
    record.HDVideoMode = control == "Video(0)" || control.starts_with("Video2") ? 1 : 0;
    record.DivXOption = control == "DivX(1)" ? 0 : 1;
    record.HDAudioType = control == "Audio(2)" ? 0 : 2;
    OpenForRow(u"Result"_s);
  }
};

TEST_P(HdHandlers, DoWhatTheirTableSaysWithFigures) {
  OpenEnabled();
  Happen();
  EXPECT_EQ(Recomputed(), GetParam().recomputes);
  ExpectStores();
}

TEST_P(HdHandlers, DoWhatTheirTableSaysWithEmptyFields) {
  OpenEnabled();
  EmptyFields(Fields);
  Happen();
  EXPECT_EQ(Recomputed(), GetParam().recomputes);
  ExpectStoresOfEmpty();
  ExpectFills(Fields);
}

const Effects Bitrate{"HDVideoBitrate"};
const Effects Size{"VideoOnlySize"};
const Effects Length{"MovieLength"};
const Effects AudioRate{"HDAudioBitrate"};
const Effects LengthOfOne{"MLength=1"};
const Effects VideosOfOne{"Video1=1", "Video2=1"};

INSTANTIATE_TEST_SUITE_P(
    Fields, HdHandlers,
    Rows({{.control = "Video1", .event = Event::KeyPress},
          {.control = "Video1", .event = Event::KeyUp, .recomputes = true, .stores = Bitrate},
          {.control = "Video1", .event = Event::GotFocus},
          {.control = "Video1",
           .event = Event::LostFocus,
           .recomputes = true,
           .stores = Bitrate,
           .fills = {"Video1=1"}},
          {.control = "Video1",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = Bitrate,
           .fills = LengthOfOne},
          {.control = "Video1", .event = Event::MouseUp},
          {.control = "Video2", .event = Event::KeyPress},
          {.control = "Video2", .event = Event::KeyUp, .recomputes = true, .stores = Size},
          {.control = "Video2", .event = Event::GotFocus},
          {.control = "Video2",
           .event = Event::LostFocus,
           .recomputes = true,
           .stores = Size,
           .fills = {"Video2=1"}},
          {.control = "Video2",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = Size,
           .fills = LengthOfOne},
          {.control = "Video2", .event = Event::MouseUp},
          {.control = "MLength", .event = Event::KeyPress},
          {.control = "MLength",
           .event = Event::KeyUp,
           .recomputes = true,
           .stores = Length,
           .storesOfEmpty = Nothing},
          {.control = "MLength", .event = Event::GotFocus, .fills = VideosOfOne},
          {.control = "MLength",
           .event = Event::LostFocus,
           .recomputes = true,
           .stores = Length,
           .fills = LengthOfOne},
          {.control = "MLength",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = Length,
           .storesOfEmpty = Nothing,
           .fills = VideosOfOne},
          {.control = "MLength", .event = Event::MouseUp}}),
    RowName);

INSTANTIATE_TEST_SUITE_P(
    Lists, HdHandlers,
    Rows({{.control = "MP2",
           .event = Event::Click,
           .recomputes = true,
           .stores = AudioRate,
           .fills = {"MP2=0"}},
          {.control = "MP2", .event = Event::KeyPress},
          {.control = "MP2",
           .event = Event::KeyUp,
           .recomputes = true,
           .stores = AudioRate,
           .storesOfEmpty = Nothing},
          {.control = "MP2", .event = Event::GotFocus},
          {.control = "MP2", .event = Event::LostFocus, .recomputes = true, .fills = {"MP2=1"}},
          {.control = "MP2", .event = Event::MouseDown},
          {.control = "MP2", .event = Event::MouseUp}}),
    RowName);

// When the button is released its field gets the focus: the running time's own handler then fills
// the two others.
INSTANTIATE_TEST_SUITE_P(
    SpinButtons, HdHandlers,
    Rows({{.control = "Video1P",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = Bitrate,
           .fills = {"Video1=1"}},
          {.control = "Video1P", .event = Event::MouseUp},
          {.control = "Video1M",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = Bitrate,
           .fills = {"Video1=1"}},
          {.control = "Video1M", .event = Event::MouseUp},
          {.control = "Video2P",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = Size,
           .fills = {"Video2=1"}},
          {.control = "Video2P", .event = Event::MouseUp},
          {.control = "Video2M",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = Size,
           .fills = {"Video2=0"}},
          {.control = "Video2M", .event = Event::MouseUp},
          {.control = "MLengthP",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = Length,
           .fills = LengthOfOne},
          {.control = "MLengthP", .event = Event::MouseUp, .fills = VideosOfOne},
          {.control = "MLengthM",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = Length,
           .fills = LengthOfOne},
          {.control = "MLengthM", .event = Event::MouseUp, .fills = VideosOfOne}}),
    RowName);

INSTANTIATE_TEST_SUITE_P(ClicksOnOptions, HdHandlers,
                         Rows({{.control = "Video(0)",
                                .event = Event::Click,
                                .recomputes = true,
                                .stores = {"HDVideoMode=0"}},
                               {.control = "Video(1)",
                                .event = Event::Click,
                                .recomputes = true,
                                .stores = {"HDVideoMode=1"}},
                               {.control = "DivX(0)",
                                .event = Event::Click,
                                .recomputes = true,
                                .stores = {"DivXOption=0"}},
                               {.control = "DivX(1)",
                                .event = Event::Click,
                                .recomputes = true,
                                .stores = {"DivXOption=1"}},
                               {.control = "Audio(0)",
                                .event = Event::Click,
                                .recomputes = true,
                                .stores = {"HDAudioType=0"}},
                               {.control = "Audio(1)",
                                .event = Event::Click,
                                .recomputes = true,
                                .stores = {"HDAudioType=1"}},
                               {.control = "Audio(2)",
                                .event = Event::Click,
                                .recomputes = true,
                                .stores = {"HDAudioType=2"}}}),
                         RowName);

// Releasing the mouse is the click.
INSTANTIATE_TEST_SUITE_P(Options, HdHandlers,
                         Rows(WithoutHandler({"Video(0)", "Video(1)", "DivX(0)", "DivX(1)",
                                              "Audio(0)", "Audio(1)", "Audio(2)"},
                                             {Event::KeyPress, Event::KeyUp, Event::GotFocus,
                                              Event::LostFocus, Event::MouseDown})),
                         RowName);

// Controls without any handler.
INSTANTIATE_TEST_SUITE_P(Outputs, HdHandlers,
                         Rows({{.control = "Result", .event = Event::MouseDown},
                               {.control = "Result", .event = Event::MouseUp},
                               {.control = "Result", .event = Event::KeyPress},
                               {.control = "Result", .event = Event::KeyUp},
                               {.control = "Label1", .event = Event::MouseDown},
                               {.control = "Label2", .event = Event::MouseDown},
                               {.control = "Label13", .event = Event::MouseDown}}),
                         RowName);

class HDCalcTest : public HdWindow {};

TEST_F(HDCalcTest, OpensWithTheBuiltInFigures) {
  OpenCalculator();
  EXPECT_EQ(window->windowTitle(), u"Velbrin's Brindle 2 : HD Space Calc"_s);
  EXPECT_TRUE(IsChecked(u"DivX(1)"_s));
  EXPECT_TRUE(IsChecked(u"Video(0)"_s));
  EXPECT_TRUE(IsChecked(u"Audio(0)"_s));
  EXPECT_EQ(Text("MLength"), "100");
  EXPECT_EQ(Text("Video1"), "910");
  EXPECT_EQ(Text("Video2"), "550");
  EXPECT_EQ(Text("MP2"), "224");
  EXPECT_EQ(Text("Result"), "1660");  // 650.8827 and 1009.3689
}

TEST_F(HDCalcTest, OpensWithTheFocusOnTheSelectedVideoOption) {
  OpenFilmBySize();
  EXPECT_EQ(QApplication::focusWidget(), Find(window, u"Video(1)"_s));
}

TEST_F(HDCalcTest, NumbersOpenAsPlainTexts) {
  record.HDVideoBitrate = 909.5;
  record.VideoOnlySize = 0;
  record.HDAudioBitrate = 1e21;
  OpenCalculator();
  EXPECT_EQ(Text("Video1"), "909.5");
  EXPECT_EQ(Text("Video2"), "0");
  EXPECT_EQ(Text("MP2"), "1E+21");
}

TEST_F(HDCalcTest, ListHoldsTheUsualBitratesInTheirOrder) {
  OpenCalculator();
  EXPECT_EQ(EntriesOf(MP2), "0 32 64 96 112 128 160 192 224 256 320 384 448 512 576 640");
}

TEST_F(HDCalcTest, AFilmByBitrateAndItsAudioByVersion4) {
  OpenFilmByBitrate();
  EXPECT_EQ(Text("Result"), "879");
}

TEST_F(HDCalcTest, AFilmByBitrateAndItsAudioByVersion3) {
  SetFilm();
  record.DivXOption = 0;
  OpenCalculator();
  EXPECT_EQ(Text("Result"), "896");
}

TEST_F(HDCalcTest, WaveAudioAlone) {
  SetFilm();
  record.HDVideoMode = 1;
  record.VideoOnlySize = 0;
  record.HDAudioType = 0;
  OpenCalculator();
  EXPECT_EQ(Text("Result"), "1009");
  Choose(u"Audio(1)"_s);
  EXPECT_EQ(Text("Result"), "1099");  // 1098.6328
}

TEST_F(HDCalcTest, TheSameFiguresTypedGiveTheSameResult) {
  OpenCalculator();
  Choose(u"Audio(2)"_s);
  TabTo(MLength);
  TypeOver(u"100"_s);
  TabTo(Video1);
  TypeOver(u"1000"_s);
  EXPECT_EQ(Text("Result"), "879");
  Choose(u"DivX(0)"_s);
  EXPECT_EQ(Text("Result"), "896");
  EXPECT_EQ(record.DivXOption, 0);
  Choose(u"DivX(1)"_s);
  EXPECT_EQ(Text("Result"), "879");
  EXPECT_EQ(record.DivXOption, 1);
}

TEST_F(HDCalcTest, EveryKeyInTheVideoBitrateShowsANewResult) {
  OpenFilmByBitrate();
  TabTo(Video1);
  Type(u"9"_s);
  EXPECT_EQ(record.HDVideoBitrate, 9);
  EXPECT_EQ(Text("Result"), "170");  // 6.4373 and 164.0625
  Type(u"0"_s);
  EXPECT_EQ(record.HDVideoBitrate, 90);
  EXPECT_EQ(Text("Result"), "228");  // 64.3730
}

TEST_F(HDCalcTest, EveryKeyInTheRunningTimeCountsForVideoAndAudio) {
  OpenFilmByBitrate();
  TabTo(MLength);
  Type(u"5"_s);
  EXPECT_EQ(record.MovieLength, 5);
  EXPECT_EQ(Text("Result"), "44");  // 35.7628 and 8.2031
  Type(u"0"_s);
  EXPECT_EQ(Text("Result"), "440");  // 357.6279 and 82.0313
}

TEST_F(HDCalcTest, ARunningTimeOfZeroOpensAsOneMinute) {
  SetFilm();
  record.MovieLength = 0;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
  EXPECT_EQ(Text("Result"), "9");  // 7.1526 and 1.6406
}

TEST_F(HDCalcTest, AFractionOfAMinuteOpensWithUpToThreeDecimalsAndIsNotStored) {
  SetFilm();
  record.MovieLength = 90.33333;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "90.333");
  EXPECT_EQ(record.MovieLength, 90.33333);
}

TEST_F(HDCalcTest, AFractionOfAMinuteOpensWithoutTrailingZeros) {
  record.MovieLength = 90.5;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "90.5");
}

TEST_F(HDCalcTest, LessThanAMinuteOpensWithAZeroBeforeThePeriod) {
  record.MovieLength = 0.25;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "0.25");
}

TEST_F(HDCalcTest, OpeningCountsTheRunningTimeThatIsShown) {
  SetFilm();
  record.MovieLength = 0.0004;
  record.HDVideoBitrate = 1e9;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "0");
  EXPECT_EQ(Text("Result"), "");
}

TEST_F(HDCalcTest, BitrateModeDisablesTheSize) {
  OpenFilmByBitrate();
  for (const auto& name : {u"Video1"_s, u"Video1P"_s, u"Video1M"_s}) {
    EXPECT_TRUE(IsEnabled(name)) << name.toStdString();
  }
  for (const auto& name : {u"Video2"_s, u"Video2P"_s, u"Video2M"_s}) {
    EXPECT_FALSE(IsEnabled(name)) << name.toStdString();
  }
}

TEST_F(HDCalcTest, SizeModeDisablesTheBitrate) {
  OpenFilmBySize();
  for (const auto& name : {u"Video1"_s, u"Video1P"_s, u"Video1M"_s}) {
    EXPECT_FALSE(IsEnabled(name)) << name.toStdString();
  }
  for (const auto& name : {u"Video2"_s, u"Video2P"_s, u"Video2M"_s}) {
    EXPECT_TRUE(IsEnabled(name)) << name.toStdString();
  }
}

TEST_F(HDCalcTest, SwitchingTheModeSwitchesInputsAndResult) {
  OpenFilmByBitrate();
  Choose(u"Video(1)"_s);
  EXPECT_EQ(record.HDVideoMode, 1);
  EXPECT_FALSE(IsEnabled(u"Video1"_s));
  EXPECT_FALSE(IsEnabled(u"Video1P"_s));
  EXPECT_FALSE(IsEnabled(u"Video1M"_s));
  EXPECT_TRUE(IsEnabled(u"Video2"_s));
  EXPECT_TRUE(IsEnabled(u"Video2P"_s));
  EXPECT_TRUE(IsEnabled(u"Video2M"_s));
  EXPECT_EQ(Text("Result"), "864");
  Choose(u"Video(0)"_s);
  EXPECT_EQ(record.HDVideoMode, 0);
  EXPECT_TRUE(IsEnabled(u"Video1"_s));
  EXPECT_TRUE(IsEnabled(u"Video1P"_s));
  EXPECT_TRUE(IsEnabled(u"Video1M"_s));
  EXPECT_FALSE(IsEnabled(u"Video2"_s));
  EXPECT_FALSE(IsEnabled(u"Video2P"_s));
  EXPECT_FALSE(IsEnabled(u"Video2M"_s));
  EXPECT_EQ(Text("Result"), "879");
}

TEST_F(HDCalcTest, ArrowKeysSwitchTheMode) {
  OpenFilmByBitrate();
  Key(Qt::Key_Down);
  EXPECT_EQ(record.HDVideoMode, 1);
  EXPECT_EQ(Text("Result"), "864");
}

TEST_F(HDCalcTest, DisabledSpinButtonsDoNotStep) {
  OpenFilmByBitrate();
  Forget();
  ArmRecomputation();
  Click(Spin(u"Video2P"_s));
  Click(Spin(u"Video2M"_s));
  EXPECT_EQ(Text("Video2"), "700");
  EXPECT_EQ(Stored(), Names());
}

TEST_F(HDCalcTest, TheListIsEnabledForOtherAudioOnly) {
  OpenCalculator();
  EXPECT_FALSE(IsEnabled(u"MP2"_s));
  Choose(u"Audio(2)"_s);
  EXPECT_TRUE(IsEnabled(u"MP2"_s));
  EXPECT_EQ(record.HDAudioType, 2);
  Choose(u"Audio(1)"_s);
  EXPECT_FALSE(IsEnabled(u"MP2"_s));
  EXPECT_EQ(record.HDAudioType, 1);
  Choose(u"Audio(2)"_s);
  Choose(u"Audio(0)"_s);
  EXPECT_FALSE(IsEnabled(u"MP2"_s));
  EXPECT_EQ(record.HDAudioType, 0);
}

TEST_F(HDCalcTest, TheListOpensEnabledForOtherAudio) {
  OpenFilmByBitrate();
  EXPECT_TRUE(IsEnabled(u"MP2"_s));
}

TEST_F(HDCalcTest, TheListOpensDisabledForWaveAudioOf48) {
  record.HDAudioType = 1;
  OpenCalculator();
  EXPECT_FALSE(IsEnabled(u"MP2"_s));
}

TEST_F(HDCalcTest, AudioOptionsChangeTheResult) {
  OpenFilmBySize();
  Choose(u"Audio(0)"_s);
  EXPECT_EQ(Text("Result"), "1709");  // 1009.3689
  Choose(u"Audio(1)"_s);
  EXPECT_EQ(Text("Result"), "1799");  // 1098.6328
  Choose(u"Audio(2)"_s);
  EXPECT_EQ(Text("Result"), "864");
}

TEST_F(HDCalcTest, LeavingAnEmptyAudioBitrateShowsAndCountsOneWithoutStoringIt) {
  OpenFilmByBitrate();
  TabTo(MP2);
  Empty();
  EXPECT_EQ(Text("MP2"), "");
  EXPECT_EQ(record.HDAudioBitrate, 224);
  EXPECT_EQ(Text("Result"), "715");
  TabTo(MLength);
  EXPECT_EQ(Text("MP2"), "1");
  EXPECT_EQ(record.HDAudioBitrate, 224);
  EXPECT_EQ(Text("Result"), "716");  // 0.7324 more
}

TEST_F(HDCalcTest, LeavingTheAudioBitrateForAWaveOptionEndsWithTheWave) {
  OpenFilmBySize();
  TabTo(MP2);
  Empty();
  Choose(u"Audio(0)"_s);
  EXPECT_EQ(Text("MP2"), "1");
  EXPECT_EQ(Text("Result"), "1709");
}

TEST_F(HDCalcTest, LeavingCountsTheAudioBitrateThatStandsInTheList) {
  OpenFilmBySize();
  TabTo(MP2);
  MP2->Field()->setText(u"448"_s);
  TabTo(MLength);
  EXPECT_EQ(record.HDAudioBitrate, 224);
  EXPECT_EQ(Text("Result"), "1028");  // 328.125
}

TEST_F(HDCalcTest, KeysInTheAudioBitrateLeaveTheSizeOfTheVideo) {
  OpenFilmByBitrate();
  TabTo(MP2);
  Video1->setText(u"5000"_s);
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(Text("Result"), "879");
}

TEST_F(HDCalcTest, TypingAnAudioBitrateStoresAndCountsIt) {
  OpenFilmBySize();
  TabTo(MP2);
  TypeOver(u"448"_s);
  EXPECT_EQ(record.HDAudioBitrate, 448);
  EXPECT_EQ(Text("Result"), "1028");
}

TEST_F(HDCalcTest, AnEmptiedRunningTimeIsNotStoredAndShowsNothing) {
  OpenFilmBySize();
  TabTo(MLength);
  Empty();
  EXPECT_EQ(Text("MLength"), "");
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(Text("Result"), "");
  TabTo(Result);
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
  EXPECT_EQ(Text("Result"), "702");  // 1.6406 more
}

TEST_F(HDCalcTest, AnEmptiedBitrateStoresZeroUntilItIsLeft) {
  OpenFilmByBitrate();
  TabTo(Video1);
  Empty();
  EXPECT_EQ(Text("Video1"), "");
  EXPECT_EQ(record.HDVideoBitrate, 0);
  EXPECT_EQ(Text("Result"), "164");
  TabTo(Result);
  EXPECT_EQ(Text("Video1"), "1");
  EXPECT_EQ(record.HDVideoBitrate, 1);
  EXPECT_EQ(Text("Result"), "165");  // 0.7153 more
}

TEST_F(HDCalcTest, AnEmptiedSizeStoresZeroUntilItIsLeft) {
  OpenFilmBySize();
  TabTo(Video2);
  Empty();
  EXPECT_EQ(Text("Video2"), "");
  EXPECT_EQ(record.VideoOnlySize, 0);
  EXPECT_EQ(Text("Result"), "164");
  TabTo(Result);
  EXPECT_EQ(Text("Video2"), "1");
  EXPECT_EQ(record.VideoOnlySize, 1);
  EXPECT_EQ(Text("Result"), "165");
}

TEST_F(HDCalcTest, ARunningTimeOfZeroShowsTheVideoEverywhereButInItsOwnField) {
  OpenFilmBySize();
  TabTo(MLength);
  TypeOver(u"0"_s);
  EXPECT_EQ(record.MovieLength, 0);
  EXPECT_EQ(Text("Result"), "");
  TabTo(Result);
  EXPECT_EQ(Text("MLength"), "0");
  EXPECT_EQ(Text("Result"), "");
  Choose(u"Audio(1)"_s);
  EXPECT_EQ(Text("Result"), "700");
  Click(MLength);
  EXPECT_EQ(Text("Result"), "");
  Choose(u"DivX(0)"_s);
  EXPECT_EQ(Text("Result"), "700");
  TabTo(Video2);
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(Text("Result"), "700");
}

TEST_F(HDCalcTest, ATotalBelowHalfAMegaByteHasNoDigit) {
  OpenFilmBySize();
  TabTo(MLength);
  TypeOver(u"0"_s);
  TabTo(Video2);
  TypeOver(u"0.4"_s);
  EXPECT_EQ(Text("Result"), "");
  TypeOver(u"0.5"_s);
  EXPECT_EQ(Text("Result"), "1");
  TypeOver(u"0"_s);
  EXPECT_EQ(Text("Result"), "");
}

TEST_F(HDCalcTest, ANegativeTotalShowsNothing) {
  SetFilm();
  record.HDVideoBitrate = -5000;
  OpenCalculator();
  EXPECT_EQ(Text("Video1"), "-5000");
  EXPECT_EQ(Text("Result"), "");
}

TEST_F(HDCalcTest, FocusingTheRunningTimeSelectsAndFillsButNeitherStoresNorRecomputes) {
  OpenFilmByBitrate();
  Result->setFocus();
  MLength->setText(u"123456789012"_s);
  Video1->setText({});
  Video2->setText({});
  Forget();
  ArmRecomputation();
  MLength->setFocus();
  EXPECT_EQ(MLength->selectedText(), u"1234567890"_s);
  EXPECT_EQ(Text("Video1"), "1");
  EXPECT_EQ(Text("Video2"), "1");
  EXPECT_EQ(Stored(), Names());
  EXPECT_FALSE(Recomputed());
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(Stored(), Length);
}

TEST_F(HDCalcTest, FieldsSelectTheirFirstTenCharactersOnly) {
  OpenFilmByBitrate();
  const auto selected = [this](TextField* field) {
    Result->setFocus();
    field->setText(u"123456789012"_s);
    field->setFocus();
    return field->selectedText().toStdString();
  };
  EXPECT_EQ(selected(Video1), "1234567890");
  Choose(u"Video(1)"_s);
  EXPECT_EQ(selected(Video2), "1234567890");
}

TEST_F(HDCalcTest, TheClickThatBringsTheFocusKeepsTheSelection) {
  OpenFilmByBitrate();
  Click(MLength);
  EXPECT_EQ(MLength->selectedText(), u"100"_s);
  Click(Video1);
  EXPECT_EQ(Video1->selectedText(), u"1000"_s);
}

TEST_F(HDCalcTest, CodecVersionLeavesTheSizeOfTheVideoWithoutARunningTime) {
  OpenFilmByBitrate();
  MLength->setText({});
  Choose(u"DivX(0)"_s);
  EXPECT_EQ(record.DivXOption, 0);
  EXPECT_EQ(Text("Result"), "715");  // the video as it was, and no audio
}

TEST_F(HDCalcTest, SizeModeIgnoresTheCodecVersion) {
  OpenFilmBySize();
  Choose(u"DivX(0)"_s);
  EXPECT_EQ(record.DivXOption, 0);
  EXPECT_EQ(Text("Result"), "864");
}

TEST_F(HDCalcTest, SizeModeIgnoresTheBitrate) {
  OpenFilmBySize();
  Video1->setText(u"5000"_s);
  TabTo(MLength);
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(Text("Result"), "864");
}

TEST_F(HDCalcTest, BitrateModeIgnoresTheSize) {
  OpenFilmByBitrate();
  Video2->setText(u"5000"_s);
  TabTo(MLength);
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(Text("Result"), "879");
}

TEST_F(HDCalcTest, TheVersionChosenInSizeModeCountsForTheBitrateAfterwards) {
  OpenFilmBySize();
  Choose(u"DivX(0)"_s);
  Choose(u"Video(0)"_s);
  EXPECT_EQ(Text("Result"), "896");
}

TEST_F(HDCalcTest, AStrangeCodecOptionSelectsNothingAndCountsByTheFormula) {
  SetFilm();
  record.DivXOption = 9;
  OpenCalculator();
  EXPECT_FALSE(IsChecked(u"DivX(0)"_s));
  EXPECT_FALSE(IsChecked(u"DivX(1)"_s));
  EXPECT_EQ(record.DivXOption, 9);
  EXPECT_EQ(Text("Result"), "742");  // 577.9266 and 164.0625
  Choose(u"DivX(1)"_s);
  EXPECT_EQ(Text("Result"), "879");
}

class StrangeVideoMode : public HdWindow, public ::testing::WithParamInterface<double> {};

TEST_P(StrangeVideoMode, SelectsNothingAndHasNoSize) {
  SetFilm();
  record.HDVideoMode = GetParam();
  OpenCalculator();
  EXPECT_FALSE(IsChecked(u"Video(0)"_s));
  EXPECT_FALSE(IsChecked(u"Video(1)"_s));
  EXPECT_EQ(record.HDVideoMode, GetParam());
  EXPECT_EQ(Text("Result"), "164");
  Choose(u"DivX(0)"_s);
  EXPECT_EQ(Text("Result"), "164");
  TabTo(MLength);
  TypeOver(u"50"_s);
  EXPECT_EQ(Text("Result"), "82");
  TypeOver(u"100"_s);
  Choose(u"Video(1)"_s);
  EXPECT_EQ(record.HDVideoMode, 1);
  EXPECT_EQ(Text("Result"), "864");
}

INSTANTIATE_TEST_SUITE_P(Values, StrangeVideoMode, ::testing::Values(7, -1, 2, 1.6, 1e300, -1e300),
                         [](const auto& instance) {
                           return "Row" + std::to_string(instance.index);
                         });

TEST_F(HDCalcTest, AVideoModeIsRoundedToItsOption) {
  SetFilm();
  record.HDVideoMode = 0.4;
  OpenCalculator();
  EXPECT_TRUE(IsChecked(u"Video(0)"_s));
  EXPECT_EQ(record.HDVideoMode, 0);
}

TEST_F(HDCalcTest, AStrangeAudioTypeSelectsNothingAndHasNoRate) {
  SetFilm();
  record.HDAudioType = 5;
  OpenCalculator();
  for (const auto& name : {u"Audio(0)"_s, u"Audio(1)"_s, u"Audio(2)"_s}) {
    EXPECT_FALSE(IsChecked(name)) << name.toStdString();
  }
  EXPECT_FALSE(IsEnabled(u"MP2"_s));
  EXPECT_EQ(record.HDAudioType, 5);
  EXPECT_EQ(Text("Result"), "715");
  Choose(u"Audio(2)"_s);
  EXPECT_TRUE(IsEnabled(u"MP2"_s));
  EXPECT_EQ(Text("Result"), "879");
}

TEST_F(HDCalcTest, StrangeOptionsTogetherShowNothing) {
  SetFilm();
  record.DivXOption = -32768;
  record.HDVideoMode = 7;
  record.HDAudioType = -1;
  OpenCalculator();
  EXPECT_EQ(Text("Result"), "");
  Choose(u"Audio(2)"_s);
  Choose(u"Video(0)"_s);
  Choose(u"DivX(1)"_s);
  EXPECT_EQ(Text("Result"), "879");
}

// The fields of the window, and the value of the record that each sets.
struct StoreCase {
  const char* name;
  double Settings::*stored;
};

const std::vector<StoreCase> Stores{{"Video1", &Settings::HDVideoBitrate},
                                    {"Video2", &Settings::VideoOnlySize},
                                    {"MLength", &Settings::MovieLength},
                                    {"MP2", &Settings::HDAudioBitrate}};

class HdField : public HdWindow {
 protected:
  // Opens the window with the field enabled and focused.
  void OpenIn(const std::string& name) {
    SetFilm();
    record.HDVideoMode = name == "Video2" ? 1 : 0;
    OpenCalculator();
    field = Field(QString::fromStdString(name));
    TabTo(Find(window, QString::fromStdString(name)));
  }

  TextField* field = nullptr;
};

struct RepairCase {
  const char* name;
  QString pasted;
  const char* shown;
  double stored;
};

class Repairs : public HdField,
                public ::testing::WithParamInterface<std::tuple<StoreCase, RepairCase>> {};

TEST_P(Repairs, WhatIsTyped) {
  const auto& [store, repair] = GetParam();
  OpenIn(store.name);
  Key(Qt::Key_A, Qt::ControlModifier);
  Paste(repair.pasted);
  EXPECT_EQ(Text(store.name), repair.shown);
  EXPECT_EQ(record.*store.stored, repair.stored);
}

const auto RepairName = [](const auto& instance) {
  const auto& [store, repair] = instance.param;
  return std::string(store.name) + repair.name;
};

INSTANTIATE_TEST_SUITE_P(
    Texts, Repairs,
    ::testing::Combine(::testing::ValuesIn(Stores),
                       ::testing::Values(RepairCase{"Negative", u"-650"_s, "650", 650},
                                         RepairCase{"NegativeFraction", u"-.5"_s, "0.5", 0.5},
                                         RepairCase{"Letters", u"abc"_s, "0", 0},
                                         RepairCase{"LettersBehind", u"12xyz"_s, "12", 12},
                                         RepairCase{"NegativeBefore", u"-12.5 MB"_s, "12.5", 12.5},
                                         RepairCase{"Exponent", u"1e3x"_s, "1000", 1000},
                                         RepairCase{"Comma", u"1,5"_s, "1", 1},
                                         RepairCase{"OutOfRange", u"1e999"_s, "0", 0},
                                         RepairCase{"Blanks", u"   "_s, "0", 0},
                                         RepairCase{"Numeric", u" 7. "_s, " 7. ", 7},
                                         RepairCase{"JustBegun", u"-"_s, "-", 0},
                                         RepairCase{"Period", u"."_s, ".", 0})),
    RepairName);

class EveryField : public HdField, public ::testing::WithParamInterface<StoreCase> {};

TEST_P(EveryField, ANumberJustBegunCountsAsZeroWhileItIsTyped) {
  const auto& [name, stored] = GetParam();
  OpenIn(name);
  TypeOver(u"-"_s);
  EXPECT_EQ(Text(name), "-");
  EXPECT_EQ(record.*stored, 0);
  Type(u"8"_s);
  EXPECT_EQ(Text(name), "8");
  EXPECT_EQ(record.*stored, 8);
}

TEST_P(EveryField, ANumberJustBegunIsZeroWhenItIsLeft) {
  const auto& [name, stored] = GetParam();
  OpenIn(name);
  TypeOver(u"."_s);
  Result->setFocus();
  EXPECT_EQ(Text(name), "0");
  EXPECT_EQ(record.*stored, 0);
}

TEST_P(EveryField, RubbishEndsRepaired) {
  const auto& [name, stored] = GetParam();
  const std::vector<QString> rubbish{
      QString(100000, u'9'),
      QString(100000, u'x'),
      QString(u"12\u0000"
              "34"_s),
      QString(QChar(u'\0')),
      u"\U0001F600\U0001F4BF"_s,
      u"\u0663\u0664\u0665"_s,
      u"&H10"_s,
      u"-1e308"_s,
      u"1e308"_s,
      u"line\r\nbreak"_s,
      u"nan"_s,
      u"inf"_s,
  };
  OpenIn(name);
  for (const auto& text : rubbish) {
    field->setFocus();
    field->selectAll();
    Paste(text);
    EXPECT_LE(field->text().size(), 400);
    Result->setFocus();
    EXPECT_TRUE(IsNumeric(Text(name))) << Text(name);
    EXPECT_EQ(record.*stored, NumberOf(Text(name)));
    EXPECT_EQ(Text("Result").find_first_not_of("0123456789"), std::string::npos);
  }
}

INSTANTIATE_TEST_SUITE_P(Fields, EveryField, ::testing::ValuesIn(Stores), NameOf);

class LettingGo : public HdField, public ::testing::WithParamInterface<StoreCase> {
 protected:
  std::string TextAfter(const QString& text) {
    Press(field);
    field->setText(text);
    Forget();
    ArmRecomputation();
    LetGo(field);
    EXPECT_EQ(Stored(), Names());
    EXPECT_FALSE(Recomputed());
    return field->text().toStdString();
  }
};

TEST_P(LettingGo, RepairsTheTextButNotTheSignAndStoresNothing) {
  OpenIn(GetParam().name);
  EXPECT_EQ(TextAfter(u"12xyz"_s), "12");
  EXPECT_EQ(TextAfter(u"-12.5x"_s), "12.5");
  EXPECT_EQ(TextAfter(u"abc"_s), "0");
  EXPECT_EQ(TextAfter(u"-5"_s), "-5");
  EXPECT_EQ(TextAfter({}), "");
}

INSTANTIATE_TEST_SUITE_P(Fields, LettingGo, ::testing::ValuesIn(Stores.begin(), Stores.begin() + 3),
                         NameOf);

class LettingGoOverTheList : public LettingGo {};

TEST_P(LettingGoOverTheList, ChangesNothing) {
  OpenIn(GetParam().name);
  EXPECT_EQ(TextAfter(u"12xyz"_s), "12xyz");
}

INSTANTIATE_TEST_SUITE_P(List, LettingGoOverTheList, ::testing::Values(Stores.back()), NameOf);

// The effect of a spin button on the number in its field.
struct StepCase {
  const char* name;
  const char* button;
  const char* text;
  const char* expected;
};

class Steps : public HdField, public ::testing::WithParamInterface<StepCase> {};

TEST_P(Steps, ByOneAndStores) {
  const auto& step = GetParam();
  const std::string button = step.button;
  const auto name = button.substr(0, button.size() - 1);
  OpenIn(name);
  field->setText(QString::fromLatin1(step.text));
  Forget();
  ArmRecomputation();
  Press(Spin(QString::fromStdString(button)));
  EXPECT_EQ(Text(name.c_str()), step.expected);
  EXPECT_TRUE(Recomputed());
  const auto store =
      std::find_if(Stores.begin(), Stores.end(), [&](const auto& row) { return row.name == name; });
  EXPECT_EQ(record.*store->stored, NumberOf(step.expected));
  LetGo(Spin(QString::fromStdString(button)));
  EXPECT_EQ(Text(name.c_str()), step.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, Steps,
    ::testing::Values(StepCase{"BitrateUp", "Video1P", "1000", "1001"},
                      StepCase{"BitrateUpWithoutBound", "Video1P", "99999", "100000"},
                      StepCase{"BitrateUpFromAFraction", "Video1P", "0.5", "1.5"},
                      StepCase{"BitrateUpFromNoNumber", "Video1P", "12xyz", "1"},
                      StepCase{"BitrateDown", "Video1M", "1000", "999"},
                      StepCase{"BitrateDownToOne", "Video1M", "2", "1"},
                      StepCase{"BitrateNotBelowOne", "Video1M", "1", "1"},
                      StepCase{"BitrateOfZeroIsPulledUp", "Video1M", "0", "1"},
                      StepCase{"BitrateJustAboveOneStays", "Video1M", "1.5", "1.5"},
                      StepCase{"SizeUp", "Video2P", "700", "701"},
                      StepCase{"SizeUpWithoutBound", "Video2P", "99999", "100000"},
                      StepCase{"SizeDown", "Video2M", "700", "699"},
                      StepCase{"SizeDownToZero", "Video2M", "1", "0"},
                      StepCase{"SizeNotBelowZero", "Video2M", "0", "0"},
                      StepCase{"SizeBelowZeroIsPulledUp", "Video2M", "-5", "0"},
                      StepCase{"SizeJustAboveZeroStays", "Video2M", "0.5", "0.5"},
                      StepCase{"LengthUp", "MLengthP", "100", "101"},
                      StepCase{"LengthUpWithoutBound", "MLengthP", "99999", "100000"},
                      StepCase{"LengthDown", "MLengthM", "100", "99"},
                      StepCase{"LengthDownToOne", "MLengthM", "2", "1"},
                      StepCase{"LengthNotBelowOne", "MLengthM", "1", "1"},
                      StepCase{"LengthJustAboveOneStays", "MLengthM", "1.5", "1.5"},
                      StepCase{"LengthDownFromNothing", "MLengthM", "", "1"}),
    NameOf);

TEST_F(HDCalcTest, AShortClickStepsOnceRecomputesOnceAndTakesTheFocus) {
  OpenFilmByBitrate();
  Press(Spin(u"Video1P"_s));
  EXPECT_EQ(Text("Video1"), "1001");
  EXPECT_EQ(record.HDVideoBitrate, 1001);
  EXPECT_EQ(Text("Result"), "880");  // 0.7153 more
  EXPECT_EQ(QApplication::focusWidget(), Find(window, u"Video(0)"_s));
  Forget();
  ArmRecomputation();
  clock.Advance(0.49);
  LetGo(Spin(u"Video1P"_s));
  EXPECT_EQ(QApplication::focusWidget(), Video1);
  clock.Advance(5);
  EXPECT_EQ(Text("Video1"), "1001");
  EXPECT_FALSE(Recomputed());
  EXPECT_EQ(Stored(), Names());
}

TEST_F(HDCalcTest, HoldingPlusRepeatsWithoutRecomputingAndStepsOnceMoreAtTheEnd) {
  OpenFilmByBitrate();
  Press(Spin(u"Video1P"_s));
  EXPECT_EQ(Text("Video1"), "1001");
  Forget();
  ArmRecomputation();
  clock.Advance(0.54);
  EXPECT_EQ(Text("Video1"), "1001");
  clock.Advance(0.46);
  EXPECT_EQ(Text("Video1"), "1010");
  EXPECT_EQ(Stored(), Names());
  EXPECT_FALSE(Recomputed());
  LetGo(Spin(u"Video1P"_s));
  EXPECT_EQ(Text("Video1"), "1010");
  EXPECT_FALSE(Recomputed());
  clock.Advance(5);
  EXPECT_EQ(Text("Video1"), "1011");
  EXPECT_EQ(record.HDVideoBitrate, 1011);
  EXPECT_EQ(Stored(), Bitrate);
  EXPECT_EQ(Text("Result"), "887");  // 723.1236 and 164.0625
  EXPECT_EQ(QApplication::focusWidget(), Video1);
}

TEST_F(HDCalcTest, HoldingTheRunningTimeCountsVideoAndAudioAtTheEnd) {
  OpenFilmByBitrate();
  Press(Spin(u"MLengthP"_s));
  clock.Advance(1);
  LetGo(Spin(u"MLengthP"_s));
  EXPECT_EQ(Text("Result"), "888");  // as at the press: 722.4083 and 165.7031
  clock.Advance(1);
  EXPECT_EQ(Text("MLength"), "111");
  EXPECT_EQ(record.MovieLength, 111);
  EXPECT_EQ(Text("Result"), "976");  // 793.9339 and 182.1094
}

TEST_F(HDCalcTest, HoldingMinusStopsAtTheBound) {
  SetFilm();
  record.HDVideoMode = 1;
  record.VideoOnlySize = 3;
  record.MovieLength = 3;
  OpenCalculator();
  Press(Spin(u"Video2M"_s));
  clock.Advance(2);
  EXPECT_EQ(Text("Video2"), "0");
  LetGo(Spin(u"Video2M"_s));
  clock.Advance(1);
  EXPECT_EQ(Text("Video2"), "0");
  EXPECT_EQ(record.VideoOnlySize, 0);
  Press(Spin(u"MLengthM"_s));
  clock.Advance(2);
  LetGo(Spin(u"MLengthM"_s));
  clock.Advance(1);
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
}

TEST_F(HDCalcTest, OtherMouseButtonsDoNotStep) {
  OpenFilmByBitrate();
  Click(Spin(u"MLengthP"_s), Qt::RightButton);
  EXPECT_EQ(Text("MLength"), "100");
}

TEST_F(HDCalcTest, ArrowKeysStepLikeAShortClick) {
  OpenFilmByBitrate();
  TabTo(MLength);
  Key(Qt::Key_Up);
  EXPECT_EQ(Text("MLength"), "101");
  EXPECT_EQ(record.MovieLength, 101);
  EXPECT_EQ(Text("Result"), "888");
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  EXPECT_EQ(Text("MLength"), "99");
  clock.Advance(5);
  EXPECT_EQ(Text("MLength"), "99");
  TabTo(Video1);
  Key(Qt::Key_Up);
  EXPECT_EQ(record.HDVideoBitrate, 1001);
  Key(Qt::Key_Down);
  EXPECT_EQ(record.HDVideoBitrate, 1000);
  Choose(u"Video(1)"_s);
  TabTo(Video2);
  Key(Qt::Key_Up);
  EXPECT_EQ(record.VideoOnlySize, 701);
  Key(Qt::Key_Down);
  EXPECT_EQ(record.VideoOnlySize, 700);
}

TEST_F(HDCalcTest, SteppingTheBitrateLeavesAnEmptyRunningTimeUntilTheFocusGoes) {
  OpenFilmByBitrate();
  TabTo(MLength);
  Empty();
  Press(Spin(u"Video1P"_s));
  EXPECT_EQ(Text("MLength"), "");
  EXPECT_EQ(Text("Result"), "");
  LetGo(Spin(u"Video1P"_s));
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
  EXPECT_EQ(Text("Result"), "9");  // 7.1597 and 1.6406
}

TEST_F(HDCalcTest, AButtonThatIsDisabledWhileItIsHeldEndsWhenItIsLetGo) {
  OpenFilmByBitrate();
  Press(Spin(u"Video1P"_s));
  clock.Advance(0.6);
  Key(Qt::Key_Down);
  ASSERT_FALSE(IsEnabled(u"Video1P"_s));
  LetGo(Spin(u"Video1P"_s));
  clock.Advance(1);
  const auto after = Text("Video1");
  clock.Advance(5);
  EXPECT_EQ(Text("Video1"), after);
}

TEST_F(HDCalcTest, ClosingWhileAButtonIsHeldEndsTheSteps) {
  OpenFilmByBitrate();
  Press(Spin(u"MLengthP"_s));
  clock.Advance(0.6);
  window->close();
  clock.Advance(5);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  clock.Advance(5);
  EXPECT_EQ(record.MovieLength, 101);
}

TEST_F(HDCalcTest, PickingFromTheListStoresAndCountsIt) {
  OpenFilmBySize();
  MP2->showPopup();
  ASSERT_TRUE(QTest::qWaitFor([this] { return MP2->view()->isVisible(); }, 10000));
  EXPECT_EQ(MP2->currentText(), u"224"_s);
  QTest::keyClick(MP2->view(), Qt::Key_Down);
  QTest::keyClick(MP2->view(), Qt::Key_Return);
  EXPECT_EQ(Text("MP2"), "256");
  EXPECT_EQ(record.HDAudioBitrate, 256);
  EXPECT_EQ(Text("Result"), "888");  // 187.5
}

TEST_F(HDCalcTest, WheelTurnsTheListOnlyWhileItHasTheFocus) {
  OpenFilmBySize();
  Wheel(MP2, -1);
  EXPECT_EQ(Text("MP2"), "224");
  TabTo(MP2);
  Wheel(MP2, -1);
  EXPECT_EQ(Text("MP2"), "256");
  EXPECT_EQ(record.HDAudioBitrate, 256);
}

TEST_F(HDCalcTest, TheCodecOptionIsSharedWithTheBitrateWindow) {
  OpenFilmByBitrate();
  Choose(u"DivX(0)"_s);
  auto* other = Open(WindowId::BitrateCalc);
  EXPECT_TRUE(Find<QRadioButton>(other, u"DivX(0)"_s)->isChecked());
  Click(Find<QRadioButton>(other, u"DivX(1)"_s));
  other->close();
  window->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  OpenCalculator();
  EXPECT_TRUE(IsChecked(u"DivX(1)"_s));
}

TEST_F(HDCalcTest, RunningTimeAndVideoSizeAreSharedWithTheAudioWindow) {
  OpenFilmBySize();
  TabTo(MLength);
  TypeOver(u"95"_s);
  TabTo(Video2);
  TypeOver(u"650"_s);
  const auto* other = Open(WindowId::AudioCalc);
  EXPECT_EQ(Find<TextField>(other, u"MLength"_s)->text(), u"95"_s);
  EXPECT_EQ(Find<TextField>(other, u"Source"_s)->text(), u"650"_s);
}

TEST_F(HDCalcTest, EscapeClosesAndReopeningShowsTheLastValues) {
  OpenCalculator();
  Choose(u"DivX(0)"_s);
  TabTo(Video1);
  TypeOver(u"1234.5"_s);
  Choose(u"Audio(2)"_s);
  TabTo(MP2);
  TypeOver(u"320"_s);
  TabTo(MLength);
  TypeOver(u"125.5"_s);
  Choose(u"Video(1)"_s);
  TabTo(Video2);
  TypeOver(u"812"_s);
  const auto result = Text("Result");
  EXPECT_EQ(result, "1106");  // 294.1406
  Key(Qt::Key_Escape);
  EXPECT_TRUE(window == nullptr || !window->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  OpenCalculator();
  EXPECT_TRUE(IsChecked(u"DivX(0)"_s));
  EXPECT_TRUE(IsChecked(u"Video(1)"_s));
  EXPECT_TRUE(IsChecked(u"Audio(2)"_s));
  EXPECT_EQ(Text("Video1"), "1234.5");
  EXPECT_EQ(Text("Video2"), "812");
  EXPECT_EQ(Text("MP2"), "320");
  EXPECT_EQ(Text("MLength"), "125.5");
  EXPECT_EQ(Text("Result"), result);
}

TEST_F(HDCalcTest, ClosingRunsNoLostFocus) {
  OpenFilmByBitrate();
  TabTo(MLength);
  MLength->setText({});
  record.MovieLength = 77;
  window->close();
  QCoreApplication::processEvents();
  EXPECT_EQ(record.MovieLength, 77);
}

TEST_F(HDCalcTest, SwitchingWindowsIsNoMoveOfTheFocus) {
  OpenFilmByBitrate();
  TabTo(MLength);
  Video1->setText({});
  MLength->setText({});
  auto* other = Open(WindowId::DefaultW);
  EXPECT_EQ(Text("MLength"), "");
  other->close();
  window->activateWindow();
  WaitForActive(window);
  EXPECT_EQ(Text("Video1"), "");
  EXPECT_EQ(Text("MLength"), "");
}

TEST_F(HDCalcTest, TabbingToTheResultSelectsItAndItIsCopiedAsAPlainNumber) {
  OpenFilmByBitrate();
  QApplication::clipboard()->setText(u"other"_s);
  TabTo(Result);
  EXPECT_EQ(Result->selectedText(), u"879"_s);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), u"879"_s);
}

TEST_F(HDCalcTest, AnEmptyResultCopiesNothing) {
  OpenFilmBySize();
  TabTo(MLength);
  TypeOver(u"0"_s);
  QApplication::clipboard()->setText(u"other"_s);
  TabTo(Result);
  ASSERT_EQ(Text("Result"), "");
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), u"other"_s);
}

TEST_F(HDCalcTest, TheResultCannotBeChanged) {
  OpenFilmByBitrate();
  TabTo(Result);
  Type(u"9"_s);
  Key(Qt::Key_Delete);
  Paste(u"12"_s);
  EXPECT_EQ(Text("Result"), "879");
}

class OutOfRange : public HdField, public ::testing::WithParamInterface<StoreCase> {};

TEST_P(OutOfRange, ShowsNothing) {
  OpenIn(GetParam().name);
  Paste(u"1e308"_s);
  EXPECT_EQ(record.*GetParam().stored, 1e308);
  EXPECT_EQ(Text("Result"), "");
}

INSTANTIATE_TEST_SUITE_P(Fields, OutOfRange, ::testing::Values(Stores[0], Stores[2], Stores[3]),
                         NameOf);

TEST_F(HDCalcTest, AHugeResultIsShownInPlainDigits) {
  OpenFilmBySize();
  TabTo(Video2);
  Paste(u"1e300"_s);
  EXPECT_EQ(Text("Result"), "1" + std::string(300, '0'));
}

TEST_F(HDCalcTest, OppositeInfinitiesShowNothing) {
  SetFilm();
  record.DivXOption = std::numeric_limits<std::int16_t>::max();  // a factor below 0
  record.HDVideoBitrate = 1e308;
  record.MovieLength = 1e308;
  OpenCalculator();
  EXPECT_EQ(Text("Result"), "");
  Choose(u"DivX(0)"_s);
  EXPECT_EQ(Text("Result"), "");
}

}  // namespace
}  // namespace brindle
