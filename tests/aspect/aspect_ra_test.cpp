// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <set>
#include <string>
#include <vector>

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QObject>
#include <QPoint>
#include <QSlider>
#include <QString>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <gtest/gtest.h>

#include "aspect/resolution.h"
#include "base/numbers/numeric_text.h"
#include "base/settings/settings.h"
#include "tests/aspect/aspect_window.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

enum Mode { Free, Standard, Custom };

// --- Opening -----------------------------------------------------------------------------------

struct OpeningCase {
  std::string name;
  void (*change)(Settings& record) = nullptr;  // of the built-in settings
  int option = -1;                             // selected
  std::string enabled;
  std::string standard;  // shown in AR1
  std::string custom;    // shown in AR2, and stored
  std::string figures;
};

class Opening : public AspectWindow, public ::testing::WithParamInterface<OpeningCase> {};

TEST_P(Opening, ShowsTheRecordAsFarAsItCan) {
  const auto& expected = GetParam();
  expected.change(record);
  const Settings before = record;
  OpenCalculator();
  EXPECT_EQ(SelectedOption(), expected.option);
  EXPECT_EQ(Enabled(), expected.enabled);
  EXPECT_EQ(AR1->currentText().toStdString(), expected.standard);
  EXPECT_EQ(Text("AR2"), expected.custom);
  EXPECT_EQ(Figures(), expected.figures);
  EXPECT_EQ(MODUL->currentText(), u"16"_s);
  EXPECT_EQ(record.ResolutionIncrement, 16);
  EXPECT_EQ(record.CustomAspect, SingleOf(expected.custom));
  // The rest of the record is unchanged: values out of range are shown differently, but not stored
  // so.
  EXPECT_EQ(record.ResHorizontal, before.ResHorizontal);
  EXPECT_EQ(record.ResVertical, before.ResVertical);
  EXPECT_EQ(record.AspectMode, before.AspectMode);
  EXPECT_EQ(record.StandardAspect, before.StandardAspect);
}

const std::string Wide = "16:9 (1.778:1)";
const std::string Linked = "592x336 198912 777 1.762 -0.9%";
const std::string Unlinked = "592x336 198912 777 1.762 N/A";

void SetMode(Settings& record, std::int16_t mode) { record.AspectMode = mode; }
void SetStandard(Settings& record, std::int16_t index) {
  record.AspectMode = Standard;
  record.StandardAspect = index;
}
void SetCustom(Settings& record, float ratio) {
  record.AspectMode = Custom;
  record.CustomAspect = ratio;
}
void SetFree(Settings& record, std::int16_t width, std::int16_t height) {
  record.AspectMode = Free;
  record.ResHorizontal = width;
  record.ResVertical = height;
}

INSTANTIATE_TEST_SUITE_P(
    Modes, Opening,
    ::testing::Values(OpeningCase{"BuiltIn", [](auto&) {}, 1, "AR1", Wide, "1.778", Linked},
                      OpeningCase{"Free", [](auto& r) { SetFree(r, 400, 208); }, 0, "", Wide,
                                  "1.778", "400x208 83200 325 1.923 N/A"},
                      OpeningCase{"Custom", [](auto& r) { SetCustom(r, 2.35F); }, 2, "AR2", Wide,
                                  "2.35", "592x256 151552 592 2.312 -1.62%"},
                      OpeningCase{"BelowTheFirst", [](auto& r) { SetMode(r, -1); }, -1, "", Wide,
                                  "1.778", Unlinked},
                      OpeningCase{"BehindTheLast", [](auto& r) { SetMode(r, 3); }, -1, "", Wide,
                                  "1.778", Unlinked},
                      OpeningCase{"FarBehindTheLast", [](auto& r) { SetMode(r, 7); }, -1, "", Wide,
                                  "1.778", Unlinked},
                      OpeningCase{"Largest", [](auto& r) { SetMode(r, 32767); }, -1, "", Wide,
                                  "1.778", Unlinked}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    StandardRatios, Opening,
    ::testing::Values(OpeningCase{"First", [](auto& r) { SetStandard(r, 0); }, 1, "AR1", "1:1",
                                  "1.778", "592x576 340992 1332 1.028 2.8%"},
                      OpeningCase{"Last", [](auto& r) { SetStandard(r, 5); }, 1, "AR1", "2.35:1",
                                  "1.778", "592x256 151552 592 2.312 -1.62%"},
                      OpeningCase{"BeforeTheFirst", [](auto& r) { SetStandard(r, -1); }, 1, "AR1",
                                  "", "1.778", Unlinked},
                      OpeningCase{"BehindTheLast", [](auto& r) { SetStandard(r, 6); }, 1, "AR1", "",
                                  "1.778", Unlinked},
                      OpeningCase{"Largest", [](auto& r) { SetStandard(r, 32767); }, 1, "AR1", "",
                                  "1.778", Unlinked},
                      OpeningCase{"Least", [](auto& r) { SetStandard(r, -32768); }, 1, "AR1", "",
                                  "1.778", Unlinked},
                      OpeningCase{"OutsideInFreeMode",
                                  [](auto& r) {
                                    SetStandard(r, 6);
                                    SetMode(r, Free);
                                  },
                                  0, "", "", "1.778", Unlinked}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    CustomRatios, Opening,
    ::testing::Values(OpeningCase{"None", [](auto& r) { SetCustom(r, 0); }, 2, "AR2", Wide, "0",
                                  Unlinked},
                      OpeningCase{"Negative", [](auto& r) { SetCustom(r, -2); }, 2, "AR2", Wide,
                                  "2", "592x288 170496 666 2.056 2.8%"},
                      OpeningCase{"TooLarge", [](auto& r) { SetCustom(r, 150); }, 2, "AR2", Wide,
                                  "99.999", "592x160 94720 370 3.7 -96.3%"},
                      OpeningCase{"ExactlyTooLarge", [](auto& r) { SetCustom(r, 100); }, 2, "AR2",
                                  Wide, "99.999", "592x160 94720 370 3.7 -96.3%"},
                      OpeningCase{"FarTooLarge", [](auto& r) { SetCustom(r, 1e30F); }, 2, "AR2",
                                  Wide, "99.999", "592x160 94720 370 3.7 -96.3%"},
                      OpeningCase{"FarTooNegative", [](auto& r) { SetCustom(r, -1e30F); }, 2, "AR2",
                                  Wide, "99.999", "592x160 94720 370 3.7 -96.3%"},
                      OpeningCase{"Tiny", [](auto& r) { SetCustom(r, 1e-30F); }, 2, "AR2", Wide,
                                  "1E-30", "592x576 340992 1332 1.028 1.02799999674013E+32%"},
                      OpeningCase{"TooLargeInFreeMode",
                                  [](auto& r) {
                                    SetCustom(r, 150);
                                    SetMode(r, Free);
                                  },
                                  0, "", Wide, "99.999", Unlinked}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Resolutions, Opening,
    ::testing::Values(OpeningCase{"NoWidth", [](auto& r) { r.ResHorizontal = 0; }, 1, "AR1", Wide,
                                  "1.778", "320x176 56320 220 1.818 2.25%"},
                      OpeningCase{"TooWide", [](auto& r) { r.ResHorizontal = 1000; }, 1, "AR1",
                                  Wide, "1.778", "720x400 288000 1125 1.8 1.24%"},
                      OpeningCase{"HeightOfAnotherRatio", [](auto& r) { r.ResVertical = 160; }, 1,
                                  "AR1", Wide, "1.778", Linked},
                      OpeningCase{"NoHeight", [](auto& r) { SetFree(r, 592, 0); }, 0, "", Wide,
                                  "1.778", "592x160 94720 370 3.7 N/A"},
                      OpeningCase{"TooHigh", [](auto& r) { SetFree(r, 592, 5000); }, 0, "", Wide,
                                  "1.778", "592x576 340992 1332 1.028 N/A"},
                      OpeningCase{"FarBelowZero", [](auto& r) { SetFree(r, -32768, -1); }, 0, "",
                                  Wide, "1.778", "320x160 51200 200 2 N/A"},
                      OpeningCase{"OffTheGrid", [](auto& r) { SetFree(r, 600, 328); }, 0, "", Wide,
                                  "1.778", "608x320 194560 760 1.9 N/A"}),
    NameOf);

class AspectRaTest : public AspectWindow {};

TEST_F(AspectRaTest, OpensWithAnIncrementOf16WhateverWasStored) {
  for (const int stored : {0, 2, 32, -5, 7, 32767}) {
    record.ResolutionIncrement = static_cast<std::int16_t>(stored);
    OpenCalculator();
    EXPECT_EQ(record.ResolutionIncrement, 16);
    EXPECT_EQ(MODUL->currentText(), u"16"_s);
    for (const auto* slider : {HRES, VRES}) {
      EXPECT_EQ(slider->singleStep(), 16);
      EXPECT_EQ(slider->pageStep(), 16);
      EXPECT_EQ(slider->tickInterval(), 16);
    }
    EXPECT_EQ(Figures(), Linked);
    window->close();
  }
}

TEST_F(AspectRaTest, ListsHoldTheirEntriesInTheirOrder) {
  OpenCalculator();
  EXPECT_EQ(EntriesOf(AR1, " | "),
            "1:1 | 4:3 (1.33:1) | 1.66:1 | 16:9 (1.778:1) | 1.85:1 | 2.35:1");
  EXPECT_EQ(EntriesOf(MODUL), "2 4 8 16 32");
  for (int i = 0; i < MODUL->count(); ++i) {
    EXPECT_EQ(MODUL->itemData(i).toInt(), MODUL->itemText(i).toInt());
  }
}

TEST_F(AspectRaTest, SlidersOpenWithTheirRanges) {
  OpenCalculator();
  EXPECT_EQ(HRES->minimum(), 320);
  EXPECT_EQ(HRES->maximum(), 720);
  EXPECT_EQ(VRES->minimum(), 160);
  EXPECT_EQ(VRES->maximum(), 576);
}

TEST_F(AspectRaTest, ReopensWithWhatWasStoredOnTheGridOf16) {
  OpenCalculator();
  Click(Option(Custom));
  PressKeys(AR2, {});
  TypeOver(u"2.35"_s);
  Pick(MODUL, 0);
  PressKeys(HRES, {Qt::Key_Right});
  ASSERT_EQ(Shown(), "594x252");
  EXPECT_EQ(StoredResolution(), "594x252");
  EXPECT_EQ(record.ResolutionIncrement, 2);
  window->close();

  OpenCalculator();
  EXPECT_EQ(record.ResolutionIncrement, 16);
  EXPECT_EQ(MODUL->currentText(), u"16"_s);
  EXPECT_EQ(SelectedOption(), Custom);
  EXPECT_EQ(Text("AR2"), "2.35");
  EXPECT_EQ(Figures(), "592x256 151552 592 2.312 -1.62%");
  EXPECT_EQ(StoredResolution(), "594x252");  // no slider was moved
}

TEST_F(AspectRaTest, DefaultsLoadedMeanwhileLeaveTheSteps) {
  OpenFree(400, 208);
  ResetToBuiltIn(record);
  PressKeys(HRES, {Qt::Key_Right});
  EXPECT_EQ(HRES->value(), 416);
  EXPECT_EQ(record.ResolutionIncrement, 16);
}

// --- The ratio ---------------------------------------------------------------------------------

TEST_F(AspectRaTest, EveryModeEnablesItsOwnRatioOnly) {
  record.CustomAspect = 2.35F;
  OpenFree(592, 400);
  EXPECT_EQ(Enabled(), "");
  Click(Option(Standard));
  EXPECT_EQ(Enabled(), "AR1");
  EXPECT_EQ(record.AspectMode, Standard);
  EXPECT_EQ(Figures(), Linked);
  EXPECT_EQ(StoredResolution(), "592x336");
  EXPECT_TRUE(Option(Standard)->hasFocus());
  Click(Option(Custom));
  EXPECT_EQ(Enabled(), "AR2");
  EXPECT_EQ(record.AspectMode, Custom);
  EXPECT_EQ(Figures(), "592x256 151552 592 2.312 -1.62%");
  EXPECT_EQ(StoredResolution(), "592x256");
  Click(Option(Free));
  EXPECT_EQ(Enabled(), "");
  EXPECT_EQ(record.AspectMode, Free);
  EXPECT_EQ(Figures(), "592x256 151552 592 2.312 N/A");
}

TEST_F(AspectRaTest, OptionsArePickedByTheArrowKeysToo) {
  OpenFree(592, 400);
  Key(Qt::Key_Down);
  EXPECT_EQ(SelectedOption(), Standard);
  EXPECT_EQ(Figures(), Linked);
  Key(Qt::Key_Down);
  EXPECT_EQ(SelectedOption(), Custom);
  EXPECT_EQ(Enabled(), "AR2");
  EXPECT_EQ(record.AspectMode, Custom);
}

TEST_F(AspectRaTest, AStrangeModeEndsWithTheFirstOptionPicked) {
  record.AspectMode = 7;
  OpenCalculator();
  Click(Option(Standard));
  EXPECT_EQ(SelectedOption(), Standard);
  EXPECT_EQ(record.AspectMode, Standard);
  EXPECT_EQ(Figures(), Linked);
}

TEST_F(AspectRaTest, EveryStandardRatioIsPickedByTheKeyboard) {
  OpenStandard(3, 720);
  TabTo(AR1);
  const std::vector<std::string> figures{
      "720x576 414720 1620 1.25 25%",    "720x544 391680 1530 1.324 -0.45%",
      "720x432 311040 1215 1.667 0.42%", "720x400 288000 1125 1.8 1.24%",
      "720x384 276480 1080 1.875 1.35%", "720x304 218880 855 2.368 0.77%"};
  Key(Qt::Key_Home);
  for (int index = 0; index < static_cast<int>(figures.size()); ++index) {
    EXPECT_EQ(AR1->currentIndex(), index);
    EXPECT_EQ(record.StandardAspect, index);
    EXPECT_EQ(Figures(), figures[static_cast<std::size_t>(index)]);
    EXPECT_EQ(StoredResolution(), Shown());
    EXPECT_TRUE(AR1->hasFocus());
    EXPECT_EQ(Enabled(), "AR1");
    Key(Qt::Key_Down);
  }
}

TEST_F(AspectRaTest, AStrangeStandardRatioEndsWithTheFirstEntryPicked) {
  OpenStandard(6, 720);
  PressKeys(AR1, {Qt::Key_Down});
  EXPECT_EQ(record.StandardAspect, 0);
  EXPECT_EQ(Figures(), "720x576 414720 1620 1.25 25%");
}

struct TypingCase {
  std::string name;
  void (*type)() = nullptr;  // into AR2, all of it selected
  std::string text;
  float stored = 0;
  std::string figures;
};

class TypedRatio : public AspectWindow, public ::testing::WithParamInterface<TypingCase> {};

TEST_P(TypedRatio, IsRepairedStoredAndLinked) {
  const auto& expected = GetParam();
  OpenCustom(1.778F);
  TabTo(AR2);
  ASSERT_EQ(AR2->selectedText(), u"1.778"_s);
  expected.type();
  EXPECT_EQ(Text("AR2"), expected.text);
  EXPECT_EQ(record.CustomAspect, expected.stored);
  EXPECT_EQ(Figures(), expected.figures);
  EXPECT_EQ(StoredResolution(), Shown());
  EXPECT_TRUE(AR2->hasFocus());
  EXPECT_FALSE(AR2->hasSelectedText());
  EXPECT_EQ(AR2->cursorPosition(), AR2->text().size());
}

const std::string AtOnePoint85 = "592x320 189440 740 1.85 0%";
const std::string AtOne = "592x576 340992 1332 1.028 2.8%";
const std::string AtTwo = "592x288 170496 666 2.056 2.8%";
const std::string AtMost = "592x160 94720 370 3.7 -96.3%";

INSTANTIATE_TEST_SUITE_P(
    Numbers, TypedRatio,
    ::testing::Values(
        TypingCase{"Usual", [] { Type(u"1.85"_s); }, "1.85", 1.85F, AtOnePoint85},
        TypingCase{"WithoutAZero", [] { Type(u".5"_s); }, ".5", 0.5F,
                   "592x576 340992 1332 1.028 105.6%"},
        TypingCase{"WithATrailingPeriod", [] { Type(u"2."_s); }, "2.", 2, AtTwo},
        TypingCase{"WithATrailingZero", [] { Type(u"2.0"_s); }, "2.0", 2, AtTwo},
        TypingCase{"WithAPlus", [] { Type(u"+2"_s); }, "+2", 2, AtTwo},
        TypingCase{"BetweenBlanks", [] { Paste(u" 2 "_s); }, " 2 ", 2, AtTwo},
        TypingCase{"BelowZero", [] { Type(u"-2"_s); }, "2", 2, AtTwo},
        TypingCase{"FractionBelowZero", [] { Type(u"-.5"_s); }, "0.5", 0.5F,
                   "592x576 340992 1332 1.028 105.6%"},
        TypingCase{"TooLarge", [] { Type(u"150"_s); }, "99.999", 99.999F, AtMost},
        TypingCase{"JustTooLarge", [] { Type(u"100"_s); }, "99.999", 99.999F, AtMost},
        TypingCase{"JustSmallEnough", [] { Type(u"99.9999"_s); }, "99.9999", 99.9999F, AtMost},
        TypingCase{"FarTooLarge", [] { Paste(u"1e300"_s); }, "99.999", 99.999F, AtMost},
        TypingCase{"TooFarBelowZero", [] { Paste(u"-150"_s); }, "99.999", 99.999F, AtMost},
        TypingCase{"Tiny", [] { Paste(u"1e-30"_s); }, "1e-30", 1e-30F,
                   "592x576 340992 1332 1.028 1.02799999674013E+32%"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    NoNumbers, TypedRatio,
    ::testing::Values(
        TypingCase{"Deleted", [] { Key(Qt::Key_Delete); }, "0", 0, Unlinked},
        TypingCase{"Backspaced", [] { Key(Qt::Key_Backspace); }, "0", 0, Unlinked},
        TypingCase{"Zero", [] { Type(u"0"_s); }, "0", 0, Unlinked},
        TypingCase{"TooSmallForASingle", [] { Paste(u"1e-60"_s); }, "1e-60", 0, Unlinked},
        TypingCase{"Letters", [] { Paste(u"abc"_s); }, "0", 0, Unlinked},
        TypingCase{"LettersTyped", [] { Type(u"x"_s); }, "0", 0, Unlinked},
        TypingCase{"OutOfRange", [] { Paste(u"1e999"_s); }, "0", 0, Unlinked},
        TypingCase{"LettersBehind", [] { Paste(u"1.85:1"_s); }, "1.85", 1.85F, AtOnePoint85},
        TypingCase{"LettersBehindANegative", [] { Paste(u"-1.85x"_s); }, "1.85", 1.85F,
                   AtOnePoint85},
        TypingCase{"LettersBehindTooMuch", [] { Paste(u"150x"_s); }, "99.999", 99.999F, AtMost},
        TypingCase{"DecimalComma", [] { Paste(u"1,85"_s); }, "1", 1, AtOne},
        TypingCase{"ExponentBegun", [] { Type(u"1e"_s); }, "1", 1, AtOne},
        TypingCase{"MinusBegun", [] { Type(u"-"_s); }, "-", 0, Unlinked},
        TypingCase{"PlusBegun", [] { Type(u"+"_s); }, "+", 0, Unlinked},
        TypingCase{"PeriodBegun", [] { Type(u"."_s); }, ".", 0, Unlinked},
        TypingCase{"FractionBegun", [] { Type(u"-."_s); }, "-.", 0, Unlinked}),
    NameOf);

TEST_F(AspectRaTest, ARatioIsTypedKeyByKey) {
  OpenCustom(1.778F);
  TabTo(AR2);
  struct Step {
    QString key;
    std::string text;
    std::string shown;
  };
  for (const auto& [key, text, shown] :
       {Step{u"2"_s, "2", "592x288"}, Step{u"."_s, "2.", "592x288"}, Step{u"3"_s, "2.3", "592x256"},
        Step{u"5"_s, "2.35", "592x256"}}) {
    Type(key);
    EXPECT_EQ(Text("AR2"), text);
    EXPECT_EQ(AR2->cursorPosition(), AR2->text().size());
    EXPECT_EQ(record.CustomAspect, SingleOf(text));
    EXPECT_EQ(Shown(), shown);
  }
}

TEST_F(AspectRaTest, ARatioIsTakenBackKeyByKey) {
  OpenCustom(1.778F);
  TabTo(AR2);
  Key(Qt::Key_End);
  for (const std::string text : {"1.77", "1.7", "1.", "1", "0", "0"}) {
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Text("AR2"), text);
    EXPECT_EQ(AR2->cursorPosition(), AR2->text().size());
    EXPECT_EQ(record.CustomAspect, SingleOf(text));
  }
  Type(u".5"_s);
  EXPECT_EQ(Text("AR2"), "0.5");
  EXPECT_EQ(record.CustomAspect, 0.5F);
}

TEST_F(AspectRaTest, ADigitInTheMiddleLeavesTheCursorAfterIt) {
  OpenCustom(1.778F);
  TabTo(AR2);
  Key(Qt::Key_Home);
  Type(u"2"_s);
  EXPECT_EQ(Text("AR2"), "21.778");
  EXPECT_EQ(AR2->cursorPosition(), 1);
  Type(u"x"_s);
  EXPECT_EQ(Text("AR2"), "2");
  EXPECT_EQ(AR2->cursorPosition(), 1);
}

TEST_F(AspectRaTest, ANumberJustBegunBecomesZeroWhenTheFieldIsLeft) {
  for (const auto& begun : {u"."_s, u"-"_s, u"+."_s}) {
    OpenCustom(1.778F);
    TabTo(AR2);
    Type(begun);
    ASSERT_EQ(AR2->text(), begun);
    Key(Qt::Key_Tab);
    EXPECT_FALSE(AR2->hasFocus());
    EXPECT_EQ(Text("AR2"), "0");
    window->close();
  }
}

TEST_F(AspectRaTest, TheFieldChangedFromOutsideTakesTheFocusWhereItIsEnabled) {
  OpenCustom(1.778F);
  TabTo(HRES);
  AR2->setText(u"-"_s);
  EXPECT_EQ(record.CustomAspect, 0);
  AR2->setText(u"2"_s);
  EXPECT_TRUE(AR2->hasFocus());
  EXPECT_EQ(Figures(), AtTwo);
}

TEST_F(AspectRaTest, TheFieldChangedWhileItIsDisabledIsStoredButLinksNothing) {
  OpenFree(592, 400);
  TabTo(HRES);
  AR2->setText(u"-2.35x"_s);
  EXPECT_EQ(Text("AR2"), "2.35");
  EXPECT_EQ(record.CustomAspect, 2.35F);
  EXPECT_EQ(Shown(), "592x400");
  EXPECT_EQ(Enabled(), "");
  EXPECT_TRUE(HRES->hasFocus());
}

// Counts how often the watched widgets are enabled or disabled.
class EnablingCounter : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    count += event->type() == QEvent::EnabledChange ? 1 : 0;
    return QObject::eventFilter(watched, event);
  }
  int count = 0;
};

TEST_F(AspectRaTest, WhatEndsEnabledIsNeverDisabledOnTheWay) {
  OpenCustom(1.778F);
  EnablingCounter counter;
  AR2->installEventFilter(&counter);
  TabTo(AR2);
  Type(u"1.85x"_s);
  PressKeys(HRES, {Qt::Key_Right});
  Pick(MODUL, 1);
  EXPECT_EQ(counter.count, 0);
  Click(Option(Standard));
  EXPECT_EQ(counter.count, 1);
  AR1->installEventFilter(&counter);
  Pick(AR1, 2);
  EXPECT_EQ(counter.count, 1);
}

TEST_F(AspectRaTest, TheErrorOfAnExtremeRatioIsNotCutOff) {
  OpenCustom(1.778F);
  const auto* error = Find<QLabel>(window, u"Stats(5)"_s);
  TabTo(AR2);
  for (const auto& ratio : {u"99.999"_s, u"0.02"_s, u"0.012"_s, u"0.001"_s, u"0.0001"_s,
                            u"0.0000001"_s, u"1e-30"_s, u"1e-45"_s}) {
    Key(Qt::Key_A, Qt::ControlModifier);
    Paste(ratio);
    ASSERT_EQ(AR2->text(), ratio);
    EXPECT_LE(error->fontMetrics().horizontalAdvance(error->text()), error->contentsRect().width())
        << error->text().toStdString();
  }
}

// --- The sliders -------------------------------------------------------------------------------

struct SliderCase {
  std::string name;
  Mode mode = Free;
  float custom = 0;
  const char* slider = nullptr;
  Qt::Key key = Qt::Key_unknown;
  std::string figures;
};

class MovedSlider : public AspectWindow, public ::testing::WithParamInterface<SliderCase> {};

TEST_P(MovedSlider, MovesTheOtherWhereThereIsARatio) {
  const auto& [name, mode, custom, slider, key, figures] = GetParam();
  SetMode(record, static_cast<std::int16_t>(mode));
  record.CustomAspect = custom;
  OpenCalculator();
  auto* moved = Find(window, QString::fromLatin1(slider));
  PressKeys(moved, {key});
  EXPECT_EQ(Figures(), figures);
  EXPECT_EQ(StoredResolution(), Shown());
  EXPECT_TRUE(moved->hasFocus());
}

// From 592 x 336.
INSTANTIATE_TEST_SUITE_P(
    Unlinked, MovedSlider,
    ::testing::Values(
        SliderCase{"WidthRight", Free, 1, "HRES", Qt::Key_Right, "608x336 204288 798 1.81 N/A"},
        SliderCase{"WidthLeft", Free, 1, "HRES", Qt::Key_Left, "576x336 193536 756 1.714 N/A"},
        SliderCase{"WidthUp", Free, 1, "HRES", Qt::Key_Up, "608x336 204288 798 1.81 N/A"},
        SliderCase{"WidthDown", Free, 1, "HRES", Qt::Key_Down, "576x336 193536 756 1.714 N/A"},
        SliderCase{"WidthPageUp", Free, 1, "HRES", Qt::Key_PageUp, "608x336 204288 798 1.81 N/A"},
        SliderCase{"WidthPageDown", Free, 1, "HRES", Qt::Key_PageDown,
                   "576x336 193536 756 1.714 N/A"},
        SliderCase{"WidthHome", Free, 1, "HRES", Qt::Key_Home, "320x336 107520 420 0.952 N/A"},
        SliderCase{"WidthEnd", Free, 1, "HRES", Qt::Key_End, "720x336 241920 945 2.143 N/A"},
        SliderCase{"HeightRight", Free, 1, "VRES", Qt::Key_Right, "592x352 208384 814 1.682 N/A"},
        SliderCase{"HeightHome", Free, 1, "VRES", Qt::Key_Home, "592x160 94720 370 3.7 N/A"},
        SliderCase{"HeightEnd", Free, 1, "VRES", Qt::Key_End, "592x576 340992 1332 1.028 N/A"},
        SliderCase{"NoCustomRatio", Custom, 0, "HRES", Qt::Key_End,
                   "720x336 241920 945 2.143 N/A"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Linked, MovedSlider,
    ::testing::Values(
        SliderCase{"WidthRight", Standard, 1, "HRES", Qt::Key_Right,
                   "608x336 204288 798 1.81 1.8%"},
        SliderCase{"WidthLeft", Standard, 1, "HRES", Qt::Key_Left, "576x320 184320 720 1.8 1.24%"},
        SliderCase{"WidthPageUp", Standard, 1, "HRES", Qt::Key_PageUp,
                   "608x336 204288 798 1.81 1.8%"},
        SliderCase{"WidthPageDown", Standard, 1, "HRES", Qt::Key_PageDown,
                   "576x320 184320 720 1.8 1.24%"},
        SliderCase{"WidthHome", Standard, 1, "HRES", Qt::Key_Home, "320x176 56320 220 1.818 2.25%"},
        SliderCase{"WidthEnd", Standard, 1, "HRES", Qt::Key_End, "720x400 288000 1125 1.8 1.24%"},
        SliderCase{"HeightRight", Standard, 1, "VRES", Qt::Key_Right,
                   "624x352 219648 858 1.773 -0.28%"},
        SliderCase{"HeightLeft", Standard, 1, "VRES", Qt::Key_Left, "576x320 184320 720 1.8 1.24%"},
        SliderCase{"HeightPageUp", Standard, 1, "VRES", Qt::Key_PageUp,
                   "624x352 219648 858 1.773 -0.28%"}),
    NameOf);

// The slider that the user moves stays where the user put it.
INSTANTIATE_TEST_SUITE_P(
    OutOfRange, MovedSlider,
    ::testing::Values(SliderCase{"WidthTooLarge", Standard, 1, "VRES", Qt::Key_End,
                                 "720x576 414720 1620 1.25 -29.7%"},
                      SliderCase{"WidthTooSmall", Standard, 1, "VRES", Qt::Key_Home,
                                 "320x160 51200 200 2 12.49%"},
                      SliderCase{"HeightTooLarge", Custom, 1, "HRES", Qt::Key_End,
                                 "720x576 414720 1620 1.25 25%"},
                      SliderCase{"HeightTooSmall", Custom, 2.35F, "HRES", Qt::Key_Home,
                                 "320x160 51200 200 2 -14.89%"},
                      SliderCase{"WidthFarTooLarge", Custom, 99.999F, "VRES", Qt::Key_Right,
                                 "720x176 126720 495 4.091 -95.91%"},
                      SliderCase{"HeightFarTooLarge", Custom, 0.5F, "HRES", Qt::Key_Home,
                                 "320x576 184320 720 0.556 11.2%"},
                      SliderCase{"WidthFarTooSmall", Custom, 0.5F, "VRES", Qt::Key_Home,
                                 "320x160 51200 200 2 300%"}),
    NameOf);

TEST_F(AspectRaTest, AWidthOf640AtSixteenToNineIs352High) {
  OpenStandard(3, 624);
  PressKeys(HRES, {Qt::Key_Right});
  EXPECT_EQ(Figures(), "640x352 225280 880 1.818 2.25%");
}

TEST_F(AspectRaTest, ASliderAtItsEndChangesAndStoresNothing) {
  OpenFree(1000, 208);
  PressKeys(HRES, {Qt::Key_Right, Qt::Key_End, Qt::Key_PageUp});
  EXPECT_EQ(Shown(), "720x208");
  EXPECT_EQ(StoredResolution(), "1000x208");
  PressKeys(VRES, {Qt::Key_Right});
  EXPECT_EQ(StoredResolution(), "720x224");
}

// How often the sliders moved.
struct Moves {
  Moves(const QSlider* first, const QSlider* second) {
    QObject::connect(first, &QSlider::valueChanged, &context, [this] { ++width; });
    QObject::connect(second, &QSlider::valueChanged, &context, [this] { ++height; });
  }
  QObject context;
  int width = 0;
  int height = 0;
};

TEST_F(AspectRaTest, ASliderMovedByTheProgramDoesNotMoveTheOther) {
  OpenStandard(5, 592);
  const Moves moves(HRES, VRES);
  PressKeys(HRES, {Qt::Key_End});
  EXPECT_EQ(Shown(), "720x304");
  EXPECT_EQ(moves.width, 1);
  EXPECT_EQ(moves.height, 1);
  PressKeys(VRES, {Qt::Key_Right});  // 752 would be needed
  EXPECT_EQ(Shown(), "720x320");
  EXPECT_EQ(moves.width, 1);
  EXPECT_EQ(moves.height, 2);
  PressKeys(VRES, {Qt::Key_Home});  // the single near 2.35 is below it: 375.99998
  EXPECT_EQ(Shown(), "368x160");
  EXPECT_EQ(moves.width, 2);
  EXPECT_EQ(moves.height, 3);
}

TEST_F(AspectRaTest, SlidersMovedByAToolSnapAndLink) {
  OpenStandard(3, 592);
  HRES->setValue(641);
  EXPECT_EQ(Figures(), "640x352 225280 880 1.818 2.25%");
  VRES->setValue(567);
  EXPECT_EQ(Shown(), "720x560");
  EXPECT_EQ(StoredResolution(), "720x560");
}

// The place of the handle in the slider.
QPoint HandleOf(const QSlider* slider) {
  QStyleOptionSlider option;
  option.initFrom(slider);
  option.subControls = QStyle::SC_All;
  option.orientation = slider->orientation();
  option.minimum = slider->minimum();
  option.maximum = slider->maximum();
  option.tickPosition = slider->tickPosition();
  option.tickInterval = slider->tickInterval();
  option.sliderPosition = slider->sliderPosition();
  option.sliderValue = slider->value();
  option.singleStep = slider->singleStep();
  option.pageStep = slider->pageStep();
  return slider->style()
      ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider)
      .center();
}

TEST_F(AspectRaTest, ClickingBesideTheHandleMovesOneStep) {
  OpenStandard(3, 720);
  const QPoint groove(HRES->width() / 2, HandleOf(HRES).y());
  QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, HRES->mapTo(window, groove));
  EXPECT_EQ(Figures(), "704x400 281600 1100 1.76 -1.01%");
  EXPECT_EQ(StoredResolution(), "704x400");
}

// Drags the handle across the whole slider and reports every value on the way.
template <class Check>
std::set<int> Drag(Slider* slider, const Check& check) {
  std::set<int> values;
  auto position = HandleOf(slider);
  QTest::mousePress(slider->window()->windowHandle(), Qt::LeftButton, {},
                    slider->mapTo(slider->window(), position));
  const int end = slider->width() + 20;
  for (int x = -20; x < end; x += 3) {
    position.setX(x);
    MoveTo(slider, position);
    values.insert(slider->value());
    check();
  }
  QTest::mouseRelease(slider->window()->windowHandle(), Qt::LeftButton, {},
                      slider->mapTo(slider->window(), position));
  return values;
}

TEST_F(AspectRaTest, DraggingTheWidthKeepsBothOnTheGridAndLinked) {
  OpenStandard(3, 592);
  const auto values = Drag(HRES, [this] {
    EXPECT_EQ(HRES->value() % 16, 0);
    EXPECT_EQ(VRES->value(), HeightFor(HRES->value(), 1.778F, 16));
    EXPECT_EQ(Shown(), std::to_string(HRES->value()) + "x" + std::to_string(VRES->value()));
  });
  EXPECT_EQ(values.size(), 26U);  // 320 to 720, all of them
  EXPECT_EQ(Figures(), "720x400 288000 1125 1.8 1.24%");
  EXPECT_EQ(StoredResolution(), "720x400");
}

TEST_F(AspectRaTest, DraggingTheHeightKeepsBothOnTheGridAndLinked) {
  OpenStandard(3, 592);
  const auto values = Drag(VRES, [this] {
    EXPECT_EQ(VRES->value() % 16, 0);
    EXPECT_EQ(HRES->value(), std::clamp(WidthFor(VRES->value(), 1.778F, 16), 320, 720));
    EXPECT_EQ(Shown(), std::to_string(HRES->value()) + "x" + std::to_string(VRES->value()));
  });
  EXPECT_EQ(values.size(), 27U);  // 160 to 576, all of them
  EXPECT_EQ(Figures(), "720x576 414720 1620 1.25 -29.7%");
}

TEST_F(AspectRaTest, DraggingTheWidthInFreeModeLeavesTheHeight) {
  OpenFree(400, 208);
  Drag(HRES, [this] { EXPECT_EQ(VRES->value(), 208); });
  EXPECT_EQ(StoredResolution(), "720x208");
}

// --- The increment -----------------------------------------------------------------------------

struct IncrementCase {
  std::string name;
  Mode mode = Free;
  int width = 0;
  int height = 0;
  int index = 0;  // in the list of increments
  std::string figures;
};

class Increment : public AspectWindow, public ::testing::WithParamInterface<IncrementCase> {};

TEST_P(Increment, SnapsBothAndLinksThemAgain) {
  const auto& [name, mode, width, height, index, figures] = GetParam();
  OpenFree(width, height);
  if (mode != Free) {
    Click(Option(mode));
  }
  Pick(MODUL, index);
  const int modulus = 2 << index;
  EXPECT_EQ(MODUL->currentText().toInt(), modulus);
  EXPECT_EQ(record.ResolutionIncrement, modulus);
  EXPECT_EQ(Figures(), figures);
  EXPECT_EQ(StoredResolution(), Shown());
  EXPECT_TRUE(MODUL->hasFocus());
}

INSTANTIATE_TEST_SUITE_P(
    Unlinked, Increment,
    ::testing::Values(
        IncrementCase{"Of32FromTies", Free, 720, 336, 4, "704x320 225280 880 2.2 N/A"},
        IncrementCase{"Of32FromALowerTie", Free, 336, 368, 4, "320x384 122880 480 0.833 N/A"},
        IncrementCase{"Of32OnTheGrid", Free, 640, 320, 4, "640x320 204800 800 2 N/A"},
        IncrementCase{"Of2", Free, 720, 336, 0, "720x336 241920 945 2.143 N/A"},
        IncrementCase{"Of16Again", Free, 720, 336, 3, "720x336 241920 945 2.143 N/A"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Linked, Increment,
    ::testing::Values(
        IncrementCase{"Of2", Standard, 592, 336, 0, "592x332 196544 798 1.783 0.28%"},
        IncrementCase{"Of4", Standard, 592, 336, 1, "592x332 196544 798 1.783 0.28%"},
        IncrementCase{"Of8", Standard, 592, 336, 2, "592x336 198912 777 1.762 -0.9%"},
        IncrementCase{"Of16", Standard, 592, 336, 3, "592x336 198912 777 1.762 -0.9%"},
        IncrementCase{"Of32", Standard, 592, 336, 4, "576x320 184320 720 1.8 1.24%"},
        IncrementCase{"Of32AtTheEnd", Standard, 720, 400, 4, "704x384 270336 1056 1.833 3.09%"}),
    NameOf);

class IncrementSteps : public AspectWindow, public ::testing::WithParamInterface<int> {};

TEST_P(IncrementSteps, AreThoseOfBothSliders) {
  OpenFree(384, 192);
  Pick(MODUL, GetParam());
  const int modulus = 2 << GetParam();
  for (auto* slider : {HRES, VRES}) {
    EXPECT_EQ(slider->singleStep(), modulus);
    EXPECT_EQ(slider->pageStep(), modulus);
    EXPECT_EQ(slider->tickInterval(), modulus);
    const int before = slider->value();
    PressKeys(slider, {Qt::Key_Right});
    EXPECT_EQ(slider->value(), before + modulus);
    Key(Qt::Key_PageUp);
    EXPECT_EQ(slider->value(), before + 2 * modulus);
    Key(Qt::Key_Left);
    Key(Qt::Key_PageDown);
    EXPECT_EQ(slider->value(), before);
  }
}

INSTANTIATE_TEST_SUITE_P(Each, IncrementSteps, ::testing::Range(0, 5), [](const auto& instance) {
  return "Of" + std::to_string(2 << instance.param);
});

TEST_F(AspectRaTest, AtAnIncrementOf32TheLargestWidthIs704) {
  OpenFree(640, 320);
  Pick(MODUL, 4);
  PressKeys(HRES, {Qt::Key_End});
  EXPECT_EQ(Shown(), "704x320");
  Key(Qt::Key_Right);
  EXPECT_EQ(Figures(), "704x320 225280 880 2.2 N/A");
  EXPECT_EQ(StoredResolution(), "704x320");
}

TEST_F(AspectRaTest, AtAnIncrementOf32TheWidthThatTheProgramSetsSnapsToo) {
  OpenStandard(3, 640);
  Pick(MODUL, 4);
  PressKeys(VRES, {Qt::Key_End});
  EXPECT_EQ(Figures(), "704x576 405504 1584 1.222 -31.27%");
  EXPECT_EQ(StoredResolution(), "704x576");
  PressKeys(HRES, {Qt::Key_End});  // stays there, and moves nothing
  EXPECT_EQ(StoredResolution(), Shown());
}

TEST_F(AspectRaTest, AFinerIncrementLeavesTheRemaindersToTheHeight) {
  OpenFree(720, 576);
  Pick(MODUL, 2);
  PressKeys(HRES, {Qt::Key_Left});
  EXPECT_EQ(Figures(), "712x576 410112 1584 1.236 N/A");
  PressKeys(VRES, {Qt::Key_Left});
  EXPECT_EQ(Figures(), "712x568 404416 1620 1.254 N/A");
  PressKeys(HRES, {Qt::Key_Right});
  EXPECT_EQ(Figures(), "720x568 408960 1656 1.268 N/A");
}

// --- Mouse wheel, Escape -----------------------------------------------------------------------

TEST_F(AspectRaTest, TheWheelOverWhatHasNotTheFocusChangesNothing) {
  OpenCalculator();
  auto* focused = QApplication::focusWidget();
  for (auto* control : std::initializer_list<QWidget*>{AR1, AR2, MODUL, HRES, VRES}) {
    Wheel(control, 1);
    Wheel(control, -2);
    EXPECT_EQ(QApplication::focusWidget(), focused) << control->objectName().toStdString();
  }
  EXPECT_EQ(Figures(), Linked);
  EXPECT_EQ(AR1->currentText().toStdString(), Wide);
  EXPECT_EQ(MODUL->currentText(), u"16"_s);
  EXPECT_EQ(record.StandardAspect, 3);
  EXPECT_EQ(record.ResolutionIncrement, 16);
}

TEST_F(AspectRaTest, TheWheelOverWhatHasTheFocusCountsAsTheUser) {
  OpenCalculator();
  TabTo(HRES);
  Wheel(HRES, 1);
  EXPECT_EQ(Shown(), "608x336");
  TabTo(VRES);
  Wheel(VRES, 1);
  EXPECT_EQ(Shown(), "624x352");
  TabTo(MODUL);
  Wheel(MODUL, -1);
  EXPECT_EQ(record.ResolutionIncrement, 32);
  TabTo(AR1);
  Wheel(AR1, -1);
  EXPECT_EQ(record.StandardAspect, 4);
}

struct EscapeCase {
  std::string name;
  Mode mode = Free;
};

class Escaping : public AspectWindow, public ::testing::WithParamInterface<EscapeCase> {};

TEST_P(Escaping, ClosesTheWindow) {
  const auto& [name, mode] = GetParam();
  SetMode(record, static_cast<std::int16_t>(mode));
  OpenCalculator();
  TabTo(name == "Option" ? Option(mode) : Find(window, QString::fromStdString(name)));
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window != nullptr && window->isVisible());
  EXPECT_EQ(StoredResolution(), "592x336");
}

INSTANTIATE_TEST_SUITE_P(From, Escaping,
                         ::testing::Values(EscapeCase{"Option", Free}, EscapeCase{"AR1", Standard},
                                           EscapeCase{"AR2", Custom}, EscapeCase{"MODUL", Free},
                                           EscapeCase{"HRES", Standard},
                                           EscapeCase{"VRES", Standard}),
                         NameOf);

TEST_F(AspectRaTest, AnOpenListTakesEscapeFirst) {
  OpenCalculator();
  for (auto* list : {AR1, MODUL}) {
    PressKeys(list, {Qt::Key_Space});
    ASSERT_TRUE(QTest::qWaitFor([list] { return list->view()->isVisible(); }, 10000));
    QTest::keyClick(list->view(), Qt::Key_Escape);
    EXPECT_FALSE(list->view()->isVisible());
    ASSERT_TRUE(window->isVisible());
    window->activateWindow();
    WaitForActive(window);
  }
  EXPECT_EQ(Figures(), Linked);
  EXPECT_EQ(record.StandardAspect, 3);
}

}  // namespace
}  // namespace brindle
