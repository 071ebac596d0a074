// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <limits>
#include <ostream>
#include <set>
#include <string>

#include <QApplication>
#include <QString>
#include <gtest/gtest.h>

#include "tests/audiodisk/audio_window.h"
#include "tests/support/handler_table.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

const Names Fields{"MLength", "Source", "Target"};
const Names Sizes{"Source", "Target"};
const Names All{"MovieLength", "VideoOnlySize", "TargetAVISize"};

class AudioHandlers : public HandlerTable<AudioWindow> {};

TEST_P(AudioHandlers, DoWhatTheirTableSaysToEmptyFields) {
  OpenForRow(u"Result"_s);
  EmptyFields(Fields);
  Happen();
  EXPECT_EQ(Recomputed(), GetParam().recomputes);
  ExpectStores();
  ExpectFills(Fields);
}

INSTANTIATE_TEST_SUITE_P(Fields, AudioHandlers,
                         Rows({{.control = "MLength", .event = Event::KeyPress},
                               {.control = "MLength",
                                .event = Event::KeyUp,
                                .recomputes = true,
                                .stores = All,
                                .fills = Sizes},
                               {.control = "MLength", .event = Event::GotFocus},
                               {.control = "MLength",
                                .event = Event::LostFocus,
                                .stores = {"MovieLength"},
                                .fills = {"MLength"}},
                               {.control = "MLength",
                                .event = Event::MouseDown,
                                .recomputes = true,
                                .stores = All,
                                .fills = Sizes},
                               {.control = "MLength", .event = Event::MouseUp},
                               {.control = "Source", .event = Event::KeyPress},
                               {.control = "Source",
                                .event = Event::KeyUp,
                                .recomputes = true,
                                .stores = All,
                                .fills = Sizes},
                               {.control = "Source", .event = Event::GotFocus},
                               {.control = "Source", .event = Event::LostFocus},
                               {.control = "Source",
                                .event = Event::MouseDown,
                                .recomputes = true,
                                .stores = All,
                                .fills = Sizes},
                               {.control = "Source", .event = Event::MouseUp},
                               {.control = "Target", .event = Event::KeyPress},
                               {.control = "Target",
                                .event = Event::KeyUp,
                                .recomputes = true,
                                .stores = All,
                                .fills = Sizes},
                               {.control = "Target", .event = Event::GotFocus},
                               {.control = "Target", .event = Event::LostFocus},
                               {.control = "Target",
                                .event = Event::MouseDown,
                                .recomputes = true,
                                .stores = All,
                                .fills = Sizes},
                               {.control = "Target", .event = Event::MouseUp}}),
                         RowName);

INSTANTIATE_TEST_SUITE_P(Outputs, AudioHandlers,
                         Rows({{.control = "Qual", .event = Event::MouseDown},
                               {.control = "Interl", .event = Event::MouseDown},
                               {.control = "Label8", .event = Event::MouseDown},
                               {.control = "Result", .event = Event::MouseDown}}),
                         RowName);

class AudioLettingGo : public AudioHandlers {};

TEST_P(AudioLettingGo, RepairsItsOwnTextOnly) {
  OpenForRow(u"Result"_s);
  SetFields(Fields, u"-12x"_s);
  Happen();
  EXPECT_FALSE(Recomputed());
  ExpectStores();
  for (const auto& name : Fields) {
    EXPECT_EQ(Text(name.c_str()), name == GetParam().control ? "12" : "-12x");
  }
}

INSTANTIATE_TEST_SUITE_P(
    Each, AudioLettingGo,
    Rows({{.control = "MLength", .event = Event::MouseUp, .stores = {"MovieLength"}},
          {.control = "Source", .event = Event::MouseUp},
          {.control = "Target", .event = Event::MouseUp}}),
    RowName);

class AudioFigures : public AudioWindow {};

TEST_F(AudioFigures, OpensWithTheBuiltInFigures) {
  OpenCalculator();
  EXPECT_EQ(window->windowTitle(), u"Velbrin's Brindle 2 : Audio Bitrate Calc"_s);
  EXPECT_EQ(Text("MLength"), "100");
  EXPECT_EQ(Text("Source"), "550");
  EXPECT_EQ(Text("Target"), "700");
  EXPECT_EQ(Text("Interl"), "ON");
  EXPECT_EQ(Text("Result"), "205");  // 150 MB less 3515.625 KB
  EXPECT_EQ(Text("Qual"), "192kbps (Excellent)");
  EXPECT_EQ(QApplication::focusWidget(), MLength);
  EXPECT_EQ(MLength->selectedText(), u"100"_s);
}

TEST_F(AudioFigures, OfAFilmWithoutOverhead) {
  OpenWith(100, 550, 650);
  EXPECT_EQ(Text("Result"), "140");
  EXPECT_EQ(Text("Qual"), "128kbps (Good)");
  EXPECT_EQ(Text("Interl"), "OFF");
}

TEST_F(AudioFigures, OfAFilmWithInterleavingAtEvery400Milliseconds) {
  record.VideoOnlySize = 550;
  record.TargetAVISize = 650;
  record.AudioInterleaveOverhead = 0.05859375;
  OpenCalculator();
  EXPECT_EQ(Text("Result"), "139");
  EXPECT_EQ(Text("Interl"), "ON");
}

TEST_F(AudioFigures, DoNotCountTheVideoFrames) {
  record.AudioInterleaveOverhead = 0;
  record.VideoFrameOverhead = 50;
  record.VideoOnlySize = 550;
  record.TargetAVISize = 650;
  OpenCalculator();
  EXPECT_EQ(Text("Result"), "140");
  EXPECT_EQ(Text("Interl"), "ON");
}

TEST_F(AudioFigures, AreEmptyWhereTheVideoFillsTheTarget) {
  OpenWith(100, 650, 650);
  EXPECT_EQ(Text("Result"), "");
  EXPECT_EQ(Text("Qual"), "");
}

TEST_F(AudioFigures, AreEmptyWhereTheVideoIsLargerThanTheTarget) {
  OpenWith(100, 651, 650);
  EXPECT_EQ(Text("Result"), "");
  EXPECT_EQ(Text("Qual"), "");
}

TEST_F(AudioFigures, LessThanHalfAKilobitRoundsToNothingButIsRated) {
  OpenWith(100, 550, 552);
  EXPECT_EQ(Text("Result"), "3");
  TabTo(MLength);
  TypeOver(u"1000"_s);
  EXPECT_EQ(Text("Result"), "");
  EXPECT_EQ(Text("Qual"), "Inadequate Space");
}

TEST_F(AudioFigures, ExactlyTheLargestBitrateSuggestsNothing) {
  // 300 MB in 131.072 minutes are 320 kbit/s to the last bit.
  OpenWith(131.072, 0, 300);
  EXPECT_EQ(Text("Result"), "320");
  EXPECT_EQ(Text("Qual"), "");
  TabTo(Target);
  TypeOver(u"300.01"_s);
  EXPECT_EQ(Text("Result"), "320");
  EXPECT_EQ(Text("Qual"), "320kbps (Maximum)");
}

TEST_F(AudioFigures, OutOfRangeAreEmpty) {
  OpenWith(100, 550, 650);
  TabTo(Target);
  Key(Qt::Key_A, Qt::ControlModifier);
  Paste(u"1e308"_s);
  EXPECT_EQ(Text("Result"), "");
  EXPECT_EQ(Text("Qual"), "");
  EXPECT_EQ(record.TargetAVISize, 1e308);
}

class AudioLoading : public AudioWindow {};

TEST_F(AudioLoading, ARunningTimeOfZeroBecomesOneMinute) {
  record.MovieLength = 0;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
}

TEST_F(AudioLoading, AFractionIsShownWithUpToThreeDecimalsAndKept) {
  record.MovieLength = 90.33333;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "90.333");
  EXPECT_EQ(record.MovieLength, 90.33333);
}

TEST_F(AudioLoading, NegativeFiguresOfTheRecordLoseTheirSign) {
  OpenWith(-100, -550, -650);
  EXPECT_EQ(Text("MLength"), "100");
  EXPECT_EQ(Text("Source"), "550");
  EXPECT_EQ(Text("Target"), "650");
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(record.VideoOnlySize, 550);
  EXPECT_EQ(record.TargetAVISize, 650);
}

TEST_F(AudioLoading, ShowsTheFiguresLastUsed) {
  OpenCalculator();
  TabTo(MLength);
  TypeOver(u"87.5"_s);
  TabTo(Source);
  TypeOver(u"612.4"_s);
  TabTo(Target);
  TypeOver(u"699"_s);
  window->close();
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "87.5");
  EXPECT_EQ(Text("Source"), "612.4");
  EXPECT_EQ(Text("Target"), "699");
}

class AudioTyping : public AudioWindow {
 protected:
  void SetUp() override { OpenWith(100, 550, 650); }
};

TEST_F(AudioTyping, EveryKeyInTheRunningTimeStoresAndRecomputes) {
  TabTo(MLength);
  TypeOver(u"5"_s);
  EXPECT_EQ(record.MovieLength, 5);
  EXPECT_EQ(Text("Result"), "2796");
  Type(u"0"_s);
  EXPECT_EQ(record.MovieLength, 50);
  EXPECT_EQ(Text("Result"), "280");
  EXPECT_EQ(Text("Qual"), "256kbps (Excellent)");
}

TEST_F(AudioTyping, AMinusSignBeforeARunningTimeFallsAway) {
  TabTo(MLength);
  TypeOver(u"-90"_s);
  EXPECT_EQ(Text("MLength"), "90");
  EXPECT_EQ(record.MovieLength, 90);
}

TEST_F(AudioTyping, APastedNegativeRunningTimeLosesItsSign) {
  TabTo(MLength);
  Paste(u"-90"_s);
  EXPECT_EQ(Text("MLength"), "90");
  EXPECT_EQ(record.MovieLength, 90);
}

TEST_F(AudioTyping, RubbishBecomesItsLeadingNumber) {
  TabTo(Source);
  Paste(u" -12.5 apples"_s);
  EXPECT_EQ(Text("Source"), "12.5");
  EXPECT_EQ(record.VideoOnlySize, 12.5);
  Key(Qt::Key_A, Qt::ControlModifier);
  Paste(u"apples"_s);
  EXPECT_EQ(Text("Source"), "0");
  EXPECT_EQ(record.VideoOnlySize, 0);
}

TEST_F(AudioTyping, AKeyInTheRunningTimeRepairsTheSizes) {
  Source->setText(u"1,5"_s);
  Target->setText(u"-800x"_s);
  TabTo(MLength);
  Type(u"1"_s);
  EXPECT_EQ(Text("Source"), "1");
  EXPECT_EQ(Text("Target"), "800");
}

TEST_F(AudioTyping, AClearedTargetBecomesOneThoughItIsBeingEdited) {
  TabTo(Target);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Text("Target"), "1");
  EXPECT_EQ(record.TargetAVISize, 1);
}

TEST_F(AudioTyping, AClearedVideoFileBecomesOneThoughItIsBeingEdited) {
  TabTo(Source);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Text("Source"), "1");
  EXPECT_EQ(record.VideoOnlySize, 1);
}

TEST_F(AudioTyping, AClearedRunningTimeStoresZeroAndShowsNothing) {
  TabTo(MLength);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Text("MLength"), "");
  EXPECT_EQ(record.MovieLength, 0);
  EXPECT_EQ(Text("Result"), "");
  EXPECT_EQ(Text("Qual"), "");
}

TEST_F(AudioTyping, ARunningTimeLeftEmptyBecomesOneWithoutRecomputing) {
  TabTo(MLength);
  Key(Qt::Key_Delete);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
  EXPECT_EQ(Text("Result"), "");
}

TEST_F(AudioTyping, ARunningTimeOfZeroShowsNothingAndBecomesOneWhenLeft) {
  TabTo(MLength);
  TypeOver(u"0"_s);
  EXPECT_EQ(Text("MLength"), "0");
  EXPECT_EQ(record.MovieLength, 0);
  EXPECT_EQ(Text("Result"), "");
  EXPECT_EQ(Text("Qual"), "");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text("MLength"), "1");
  EXPECT_EQ(record.MovieLength, 1);
  EXPECT_EQ(Text("Result"), "");
}

TEST_F(AudioTyping, ARunningTimeLeftBeforeItsLastKeyIsLetGoKeepsItsNumber) {
  TabTo(MLength);
  TypeOver(u"12"_s);
  KeyDown(Qt::Key_X, u"x"_s);
  Key(Qt::Key_Tab);
  EXPECT_EQ(record.MovieLength, 12);
}

TEST_F(AudioTyping, AFractionBelowOneCanBeTyped) {
  TabTo(MLength);
  TypeOver(u".5"_s);
  EXPECT_EQ(Text("MLength"), ".5");
  EXPECT_EQ(record.MovieLength, 0.5);
  EXPECT_EQ(Text("Result"), "27962");
}

TEST_F(AudioTyping, ABarePeriodCountsAsZeroUntilTheRunningTimeIsLeft) {
  TabTo(MLength);
  TypeOver(u"."_s);
  EXPECT_EQ(Text("MLength"), ".");
  EXPECT_EQ(record.MovieLength, 0);
  EXPECT_EQ(Text("Result"), "");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text("MLength"), "1");
}

TEST_F(AudioTyping, FieldsSelectTheirFirstTenCharacters) {
  for (auto* field : {MLength, Source, Target}) {
    field->setText(u"123456789012"_s);
    Result->setFocus();
    field->setFocus();
    EXPECT_EQ(field->selectedText(), u"1234567890"_s) << field->objectName().toStdString();
  }
}

class AudioSpinning : public AudioWindow {};

struct SpinCase {
  std::string name;
  double minutes = 0;
  double source = 0;
  double target = 0;
  const char* button = nullptr;
  const char* field = nullptr;
  std::string expected;
};

void PrintTo(const SpinCase& instance, std::ostream* out) { *out << instance.name; }

class AudioSteps : public AudioWindow, public ::testing::WithParamInterface<SpinCase> {};

TEST_P(AudioSteps, ByOneShortClick) {
  const auto& [name, minutes, source, target, button, field, expected] = GetParam();
  OpenWith(minutes, source, target);
  Result->setText(u"untouched"_s);
  Click(Find(window, QString::fromLatin1(button)));
  EXPECT_EQ(Text(field), expected);
  EXPECT_NE(Text("Result"), "untouched");
  EXPECT_TRUE(Find(window, QString::fromLatin1(field))->hasFocus());
  clock.Advance(10);
  EXPECT_EQ(Text(field), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Each, AudioSteps,
    ::testing::Values(
        SpinCase{"LongerFilm", 100, 550, 650, "MLengthP", "MLength", "101"},
        SpinCase{"ShorterFilm", 100, 550, 650, "MLengthM", "MLength", "99"},
        SpinCase{"ShortestFilm", 1, 550, 650, "MLengthM", "MLength", "1"},
        SpinCase{"FilmThatWouldCrossTheBound", 1.5, 550, 650, "MLengthM", "MLength", "1.5"},
        SpinCase{"LargerVideo", 100, 550, 650, "SourceP", "Source", "551"},
        SpinCase{"VideoUpToTheTarget", 100, 649, 650, "SourceP", "Source", "650"},
        SpinCase{"VideoAtTheTarget", 100, 650, 650, "SourceP", "Source", "650"},
        SpinCase{"VideoAboveTheTargetIsPulledDown", 100, 700, 650, "SourceP", "Source", "650"},
        SpinCase{"VideoThatWouldCrossTheTarget", 100, 649.5, 650, "SourceP", "Source", "649.5"},
        SpinCase{"TargetAsABoundIsRoundedToEven", 100, 650, 650.5, "SourceP", "Source", "650"},
        SpinCase{"TargetAsABoundIsRoundedUp", 100, 650, 650.6, "SourceP", "Source", "651"},
        SpinCase{"TargetAsABoundIsADiscOfToday", 100, 40000, 47000, "SourceP", "Source", "40001"},
        SpinCase{"TargetAsABoundStopsAtItsLargest", 100, 3e9, 4e9, "SourceP", "Source",
                 "2147483647"},
        SpinCase{"SmallerVideo", 100, 550, 650, "SourceM", "Source", "549"},
        SpinCase{"SmallestVideo", 100, 1, 650, "SourceM", "Source", "1"},
        SpinCase{"NoVideoIsPulledUp", 100, 0, 650, "SourceM", "Source", "1"},
        SpinCase{"LargerTarget", 100, 550, 650, "TargetP", "Target", "651"},
        SpinCase{"SmallerTarget", 100, 550, 650, "TargetM", "Target", "649"},
        SpinCase{"TargetDownToTheVideo", 100, 550, 551, "TargetM", "Target", "550"},
        SpinCase{"TargetAtTheVideo", 100, 550, 550, "TargetM", "Target", "550"},
        SpinCase{"TargetBelowTheVideoIsPulledUp", 100, 550, 500, "TargetM", "Target", "550"}),
    [](const auto& instance) { return instance.param.name; });

TEST_F(AudioSpinning, ArrowKeysStepLikeAShortClick) {
  OpenWith(100, 550, 650);
  TabTo(Target);
  Key(Qt::Key_Up);
  EXPECT_EQ(Text("Target"), "651");
  EXPECT_EQ(record.TargetAVISize, 651);
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  EXPECT_EQ(Text("Target"), "649");
  TabTo(Source);
  Key(Qt::Key_Up);
  EXPECT_EQ(Text("Source"), "551");
  TabTo(MLength);
  Key(Qt::Key_Down);
  EXPECT_EQ(Text("MLength"), "99");
}

TEST_F(AudioSpinning, HoldingStepsWithoutRecomputingUntilTheEnd) {
  OpenWith(100, 550, 650);
  auto* plus = Spin(u"MLengthP"_s);
  Press(plus);
  EXPECT_EQ(Text("MLength"), "101");
  EXPECT_EQ(record.MovieLength, 101);
  clock.Advance(0.675);  // steps at 0.55, 0.60, 0.65
  EXPECT_EQ(Text("MLength"), "104");
  EXPECT_EQ(record.MovieLength, 101);
  LetGo(plus);
  clock.Advance(1);
  EXPECT_EQ(Text("MLength"), "105");  // the step after the release
  EXPECT_EQ(record.MovieLength, 105);
  EXPECT_TRUE(MLength->hasFocus());
}

TEST_F(AudioSpinning, ABoundTakenFromAFieldHoldsForTheWholePress) {
  OpenWith(100, 640, 650);
  auto* plus = Spin(u"SourceP"_s);
  Press(plus);
  Target->setText(u"660"_s);
  clock.Advance(5);
  EXPECT_EQ(Text("Source"), "650");
  LetGo(plus);
  clock.Advance(1);
  Click(plus);
  EXPECT_EQ(Text("Source"), "651");
}

TEST_F(AudioSpinning, AnEmptyFieldCountsAsZero) {
  OpenWith(100, 550, 650);
  MLength->setText({});
  Click(Spin(u"MLengthP"_s));
  EXPECT_EQ(Text("MLength"), "1");
}

TEST_F(AudioSpinning, ClosingWhileAButtonIsHeldEndsIt) {
  OpenWith(100, 550, 650);
  Press(Spin(u"TargetP"_s));
  clock.Advance(0.6);
  window->close();
  clock.Advance(5);
  EXPECT_EQ(record.TargetAVISize, 651);
}

TEST_F(AudioSpinning, EscapeClosesTheWindow) {
  OpenCalculator();
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window != nullptr && window->isVisible());
}

TEST_F(AudioTyping, TheOnePutIntoAnEmptiedFieldIsReplacedByTheNextKey) {
  for (auto* field : {Source, Target}) {
    TabTo(field);
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_Delete);
    EXPECT_EQ(field->text(), u"1"_s);
    EXPECT_EQ(field->selectedText(), u"1"_s);
    Type(u"600"_s);
    EXPECT_EQ(field->text(), u"600"_s);
  }
}

TEST_F(AudioTyping, AClickOnTheOnePutInKeepsItSelected) {
  TabTo(Source);
  Source->setText({});
  Click(Source);
  EXPECT_EQ(Source->selectedText(), u"1"_s);
}

TEST_F(AudioTyping, OpeningAndLeavingKeepsARunningTimeThatIsShownShorter) {
  window->close();
  record.MovieLength = 20.0 / 60;
  OpenCalculator();
  EXPECT_EQ(Text("MLength"), "0.333");
  Click(MLength);
  Click(Source);
  EXPECT_EQ(record.MovieLength, 20.0 / 60);
}

}  // namespace
}  // namespace brindle
