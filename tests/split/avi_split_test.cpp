// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <cstdint>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/numbers/numeric_text.h"
#include "tests/split/avi_split_window.h"
#include "tests/support/handler_table.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr const char* NothingOfTwo = "- -";
constexpr const char* NothingOfThree = "- - - -";

const Names Fields{"AVIsize", "Frames", "KeyFs", "Size1", "Size2"};

class SplitHandlers : public HandlerTable<AviSplitWindow> {
 protected:
  void OpenForEvent() { OpenForRow(GetParam().control == "SetF(0)" ? u"SetF(1)"_s : u"SetF(0)"_s); }
};

TEST_P(SplitHandlers, FillBlankFields) {
  record.SplitSegmentsMode = 1;
  OpenForEvent();
  EmptyFields(Fields);
  Happen();
  ExpectFills(Fields);
  EXPECT_FALSE(Recomputed());
  EXPECT_EQ(Stored(), Names());
}

TEST_P(SplitHandlers, RecomputeAndStore) {
  record.SplitSegmentsMode = 1;
  OpenForEvent();
  AVIsize->setText(u"1000"_s);
  Frames->setText(u"75000"_s);  // whole, so that a recomputation does not change the running time
  Size1->setText(u"300"_s);
  Size2->setText(u"200"_s);
  KeyFs->setText(u"5"_s);
  Happen();
  EXPECT_EQ(Recomputed(), GetParam().recomputes);
  ExpectStores();
}

INSTANTIATE_TEST_SUITE_P(
    Fields, SplitHandlers,
    Rows({{.control = "AVIsize", .event = Event::KeyPress},
          {.control = "AVIsize",
           .event = Event::KeyUp,
           .recomputes = true,
           .stores = {"SplitAVISize=1000"},
           .fills = {"Frames=1", "Size1=0", "Size2=0", "KeyFs=1"}},
          {.control = "AVIsize", .event = Event::GotFocus},
          {.control = "AVIsize", .event = Event::LostFocus},
          {.control = "AVIsize",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = {"SplitAVISize=1000"},
           .fills = {"Frames=1", "Size1=0", "Size2=0", "KeyFs=1"}},
          {.control = "AVIsize", .event = Event::MouseUp},
          // The stored running time is that of the text before the key.
          {.control = "Frames", .event = Event::KeyPress, .stores = {"MovieLength=50"}},
          {.control = "Frames",
           .event = Event::KeyUp,
           .recomputes = true,
           .stores = {"MovieLength=50"},
           .fills = {"AVIsize=1", "Size1=1", "Size2=0", "KeyFs=1"}},
          {.control = "Frames", .event = Event::GotFocus},
          {.control = "Frames", .event = Event::LostFocus},
          {.control = "Frames",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = {"MovieLength=50"},
           .fills = {"AVIsize=1", "Size1=1", "Size2=0", "KeyFs=1"}},
          {.control = "Frames", .event = Event::MouseUp, .stores = {"MovieLength=50"}},
          {.control = "Size1", .event = Event::KeyPress},
          {.control = "Size1",
           .event = Event::KeyUp,
           .recomputes = true,
           .stores = {"SplitSize1=300"},
           .fills = {"AVIsize=1", "Frames=1", "Size2=1", "KeyFs=1"}},
          {.control = "Size1", .event = Event::GotFocus},
          {.control = "Size1", .event = Event::LostFocus},
          {.control = "Size1",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = {"SplitSize1=300"},
           .fills = {"AVIsize=1", "Frames=1", "Size2=1", "KeyFs=1"}},
          {.control = "Size1", .event = Event::MouseUp},
          {.control = "Size2", .event = Event::KeyPress},
          {.control = "Size2",
           .event = Event::KeyUp,
           .recomputes = true,
           .stores = {"SplitSize2=200"},
           .fills = {"AVIsize=1", "Frames=1", "Size1=1", "KeyFs=1"}},
          {.control = "Size2", .event = Event::GotFocus},
          {.control = "Size2", .event = Event::LostFocus},
          {.control = "Size2",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = {"SplitSize2=200"},
           .fills = {"AVIsize=1", "Frames=1", "Size1=1", "KeyFs=1"}},
          {.control = "Size2", .event = Event::MouseUp},
          {.control = "KeyFs", .event = Event::KeyPress, .stores = {"KeyframeInterval=5"}},
          {.control = "KeyFs",
           .event = Event::KeyUp,
           .recomputes = true,
           .stores = {"KeyframeInterval=5"},
           .fills = {"AVIsize=1", "Frames=1", "Size1=1", "Size2=0"}},
          {.control = "KeyFs", .event = Event::GotFocus},
          {.control = "KeyFs", .event = Event::LostFocus},
          {.control = "KeyFs",
           .event = Event::MouseDown,
           .recomputes = true,
           .stores = {"KeyframeInterval=5"},
           .fills = {"AVIsize=1", "Frames=1", "Size1=1", "Size2=0"}},
          {.control = "KeyFs", .event = Event::MouseUp}}),
    RowName);

INSTANTIATE_TEST_SUITE_P(Results, SplitHandlers,
                         Rows(WithoutHandler({"Size3", "SetF(0)", "SetF(1)", "SetF(2)", "SetF(3)",
                                              "SetF(4)", "SetF(5)", "SetF(6)", "SetF(7)"},
                                             {Event::KeyPress, Event::KeyUp, Event::GotFocus,
                                              Event::LostFocus, Event::MouseDown, Event::MouseUp})),
                         RowName);

INSTANTIATE_TEST_SUITE_P(
    Labels, SplitHandlers,
    Rows(WithoutHandler({"KeyFr", "Time1", "Time2", "Time3", "SegNo3Lab", "SegNo3Lab2"},
                        {Event::KeyPress, Event::KeyUp, Event::MouseDown, Event::MouseUp})),
    RowName);

// An option does something when it becomes selected, and only then.
INSTANTIATE_TEST_SUITE_P(Options, SplitHandlers,
                         Rows(WithoutHandler({"Segs(0)", "System(1)", "System(2)"},
                                             {Event::KeyPress, Event::KeyUp, Event::GotFocus,
                                              Event::LostFocus, Event::MouseDown})),
                         RowName);

INSTANTIATE_TEST_SUITE_P(SelectedOptions, SplitHandlers,
                         Rows(WithoutHandler({"Segs(1)", "System(0)"},
                                             {Event::MouseDown, Event::MouseUp})),
                         RowName);

// With two segments the second size is a result and is not filled.
class SplitHandlersOfTwo : public SplitHandlers {};

TEST_P(SplitHandlersOfTwo, FillBlankFieldsButTheSecondSize) {
  OpenForEvent();
  EmptyFields(Fields);
  Happen();
  ExpectFills(Fields);
  EXPECT_FALSE(Recomputed());
  EXPECT_EQ(Stored(), Names());
}

INSTANTIATE_TEST_SUITE_P(
    Fields, SplitHandlersOfTwo,
    Rows(
        {{.control = "AVIsize", .event = Event::KeyUp, .fills = {"Frames=1", "Size1=0", "KeyFs=1"}},
         {.control = "AVIsize",
          .event = Event::MouseDown,
          .fills = {"Frames=1", "Size1=0", "KeyFs=1"}},
         {.control = "Frames", .event = Event::KeyUp, .fills = {"AVIsize=1", "Size1=1", "KeyFs=1"}},
         {.control = "Frames",
          .event = Event::MouseDown,
          .fills = {"AVIsize=1", "Size1=1", "KeyFs=1"}},
         {.control = "Size1", .event = Event::KeyUp, .fills = {"AVIsize=1", "Frames=1", "KeyFs=1"}},
         {.control = "Size1",
          .event = Event::MouseDown,
          .fills = {"AVIsize=1", "Frames=1", "KeyFs=1"}},
         {.control = "Size2",
          .event = Event::KeyUp,
          .fills = {"AVIsize=1", "Frames=1", "Size1=1", "KeyFs=1"}},
         {.control = "Size2",
          .event = Event::MouseDown,
          .fills = {"AVIsize=1", "Frames=1", "Size1=1", "KeyFs=1"}},
         {.control = "KeyFs", .event = Event::KeyUp, .fills = {"AVIsize=1", "Frames=1", "Size1=1"}},
         {.control = "KeyFs",
          .event = Event::MouseDown,
          .fills = {"AVIsize=1", "Frames=1", "Size1=1"}},
         {.control = "Frames", .event = Event::KeyPress},
         {.control = "Frames", .event = Event::MouseUp},
         {.control = "KeyFs", .event = Event::KeyPress}}),
    RowName);

struct OpenCase {
  std::string name;
  void (*change)(Settings&) = nullptr;
  std::string sizes;
  std::string frames;
  std::string duration;
  std::string keyFs;
  std::string keyFrames;
  std::string ranges;
};

class SplitOpens : public AviSplitWindow, public ::testing::WithParamInterface<OpenCase> {};

TEST_P(SplitOpens, WithTheFiguresOfTheRecord) {
  const auto& [name, change, sizes, frames, duration, keyFs, keyFrames, ranges] = GetParam();
  change(record);
  OpenCalculator();
  EXPECT_EQ(Sizes(), sizes);
  EXPECT_EQ(Text("Frames"), frames);
  EXPECT_EQ(Duration(), duration);
  EXPECT_EQ(Text("KeyFs"), keyFs);
  EXPECT_EQ(Text("KeyFr"), keyFrames);
  EXPECT_EQ(Ranges(), ranges);
}

constexpr const char* Pal = "150000";
constexpr const char* HundredMinutes = "1:40:00.00";

void Sizes(Settings& record, double file, double first, double second = 700) {
  record.SplitAVISize = file;
  record.SplitSize1 = first;
  record.SplitSize2 = second;
}

void ThreeSizes(Settings& record, double file, double first, double second) {
  record.SplitSegmentsMode = 1;
  Sizes(record, file, first, second);
}

INSTANTIATE_TEST_SUITE_P(
    Two, SplitOpens,
    ::testing::Values(
        OpenCase{"BuiltInFigures", [](auto&) {}, "1300 700 600", Pal, HundredMinutes, "10", "600",
                 "80750-150000 0-80749"},
        OpenCase{"TheMiddle", [](auto& r) { Sizes(r, 1300, 650); }, "1300 650 650", Pal,
                 HundredMinutes, "10", "600", "75000-150000 0-74999"},
        OpenCase{"FirstSegmentBelowAnInterval", [](auto& r) { Sizes(r, 1300, 1); }, "1300 1 1299",
                 Pal, HundredMinutes, "10", "600", "0-150000 0-"},
        OpenCase{"DecimalsWithoutNoise", [](auto& r) { Sizes(r, 100.3, 33.1); }, "100.3 33.1 67.2",
                 Pal, HundredMinutes, "10", "600", "49500-150000 0-49499"},
        OpenCase{"NoRunningTime", [](auto& r) { r.MovieLength = 0; }, "1300 700 600", "1500",
                 "0:1:00.00", "10", "6", "750-1500 0-749"},
        OpenCase{"FractionOfAFrame", [](auto& r) { r.MovieLength = 90.33333; }, "1300 700 600",
                 "135499", "1:30:20.00", "10", "541", "72750-135499 0-72749"},
        OpenCase{"Film", [](auto& r) { r.FrameRateSystem = 1; }, "1300 700 600", "143856",
                 HundredMinutes, "10", "599", "77280-143856 0-77279"},
        OpenCase{"Ntsc", [](auto& r) { r.FrameRateSystem = 2; }, "1300 700 600", "179820",
                 HundredMinutes, "10", "599", "96600-179820 0-96599"},
        OpenCase{"StrangeFrameRateSystem", [](auto& r) { r.FrameRateSystem = 7; }, "1300 700 600",
                 "0", "::", "10", "", NothingOfTwo},
        OpenCase{"NegativeFrameRateSystem", [](auto& r) { r.FrameRateSystem = -1; }, "1300 700 600",
                 "0", "::", "10", "", NothingOfTwo},
        OpenCase{"FirstSegmentAboveTheFile", [](auto& r) { Sizes(r, 1300, 2000); }, "1300 1300 ",
                 Pal, HundredMinutes, "10", "600", NothingOfTwo},
        OpenCase{"NegativeFirstSegment", [](auto& r) { Sizes(r, 1300, -100); }, "1300 -100 1400",
                 Pal, HundredMinutes, "10", "600", NothingOfTwo},
        OpenCase{"NegativeFile", [](auto& r) { Sizes(r, -1300, 700); }, "-1300 -1300 ", Pal,
                 HundredMinutes, "10", "600", NothingOfTwo},
        OpenCase{"NoFile", [](auto& r) { Sizes(r, 0, 0); }, "0 0 0", Pal, HundredMinutes, "10",
                 "600", NothingOfTwo},
        OpenCase{"NoFileButASegment", [](auto& r) { Sizes(r, 0, 700); }, "0 0 ", Pal,
                 HundredMinutes, "10", "600", NothingOfTwo},
        OpenCase{"NoInterval", [](auto& r) { r.KeyframeInterval = 0; }, "1300 700 600", Pal,
                 HundredMinutes, "1", "6000", "80750-150000 0-80749"},
        OpenCase{"LongestInterval", [](auto& r) { r.KeyframeInterval = 32767; }, "1300 700 600",
                 Pal, HundredMinutes, "32767", "0", "0-150000 0-"}),
    NameOf);

// Key frames do not run backwards: there is nowhere to cut.
INSTANTIATE_TEST_SUITE_P(NegativeInterval, SplitOpens,
                         ::testing::Values(OpenCase{
                             "CutsNothing", [](auto& r) { r.KeyframeInterval = -10; },
                             "1300 700 600", Pal, HundredMinutes, "-10", "-600", NothingOfTwo}),
                         NameOf);

INSTANTIATE_TEST_SUITE_P(
    Three, SplitOpens,
    ::testing::Values(
        OpenCase{"UsualFigures", [](auto& r) { ThreeSizes(r, 1300, 400, 500); }, "1300 400 500 400",
                 Pal, HundredMinutes, "10", "600", "46000-150000 0-45999 103500-150000 0-103499"},
        OpenCase{"BuiltInSizesAreTooLarge", [](auto& r) { r.SplitSegmentsMode = 1; },
                 "1300 700 600 0", Pal, HundredMinutes, "10", "600",
                 "80750-150000 0-80749 149750-150000 0-149749"},
        OpenCase{"TwoSegmentsFillTheFile", [](auto& r) { ThreeSizes(r, 1300, 650, 650); },
                 "1300 650 650 0", Pal, HundredMinutes, "10", "600",
                 "75000-150000 0-74999 150000-150000 0-149999"},
        OpenCase{"DecimalsThatFillTheFile", [](auto& r) { ThreeSizes(r, 100.3, 33.1, 67.2); },
                 "100.3 33.1 67.2 0", Pal, HundredMinutes, "10", "600",
                 "49500-150000 0-49499 149750-150000 0-149749"},
        OpenCase{"FirstSegmentAboveTheFile", [](auto& r) { ThreeSizes(r, 1300, 2000, 700); },
                 "1300 1300 0 0", Pal, HundredMinutes, "10", "600",
                 "150000-150000 0-149999 150000-150000 0-149999"},
        OpenCase{"NegativeFirstSegment", [](auto& r) { ThreeSizes(r, 1300, -100, 500); },
                 "1300 -100 500 900", Pal, HundredMinutes, "10", "600", NothingOfThree},
        OpenCase{"NegativeSecondSegment", [](auto& r) { ThreeSizes(r, 1300, 400, -500); },
                 "1300 400  1400", Pal, HundredMinutes, "10", "600", NothingOfThree},
        OpenCase{"NoFile", [](auto& r) { ThreeSizes(r, 0, 0, 0); }, "0 0 0 0", Pal, HundredMinutes,
                 "10", "600", NothingOfThree},
        OpenCase{"StrangeFrameRateSystem",
                 [](auto& r) {
                   ThreeSizes(r, 1300, 400, 500);
                   r.FrameRateSystem = 7;
                 },
                 "1300 400 500 400", "0", "::", "10", "", NothingOfThree}),
    NameOf);

struct ModeCase {
  std::string name;
  double stored = 0;
  int selected = 0;
};

class SplitModes : public AviSplitWindow, public ::testing::WithParamInterface<ModeCase> {};

TEST_P(SplitModes, OtherThanZeroAreThreeSegments) {
  const auto& [name, stored, selected] = GetParam();
  record.SplitSegmentsMode = stored;
  OpenCalculator();
  EXPECT_EQ(IsChecked(u"Segs(0)"_s), selected == 0);
  EXPECT_EQ(IsChecked(u"Segs(1)"_s), selected == 1);
  EXPECT_EQ(Size3->isVisible(), selected == 1);
  EXPECT_EQ(record.SplitSegmentsMode, selected);
}

INSTANTIATE_TEST_SUITE_P(Stored, SplitModes,
                         ::testing::Values(ModeCase{"Zero", 0, 0}, ModeCase{"One", 1, 1},
                                           ModeCase{"Two", 2, 1}, ModeCase{"MinusOne", -1, 1},
                                           ModeCase{"Fraction", 0.25, 1},
                                           ModeCase{"Huge", 1e300, 1}),
                         NameOf);

class SplitLoading : public AviSplitWindow {};

TEST_F(SplitLoading, ShowsItsCaptionAndSelectsTheSizeOfTheFile) {
  OpenCalculator();
  EXPECT_EQ(window->windowTitle(), u"Velbrin's Brindle 2 : AVI Splitting Calc"_s);
  EXPECT_EQ(QApplication::focusWidget(), AVIsize);
  EXPECT_EQ(AVIsize->selectedText(), u"1300"_s);
  EXPECT_TRUE(IsChecked(u"System(0)"_s));
  EXPECT_FALSE(IsChecked(u"System(1)"_s));
  EXPECT_FALSE(IsChecked(u"System(2)"_s));
}

TEST_F(SplitLoading, NoRunningTimeBecomesOneMinuteInTheRecord) {
  record.MovieLength = 0;
  OpenCalculator();
  EXPECT_EQ(record.MovieLength, 1);
}

TEST_F(SplitLoading, KeepsARunningTimeThatIsNoWholeNumberOfFrames) {
  record.MovieLength = 90.33333;
  OpenCalculator();
  EXPECT_EQ(Text("Frames"), "135499");
  EXPECT_EQ(record.MovieLength, 90.33333);
}

TEST_F(SplitLoading, StoresNothingElse) {
  record.SplitSegmentsMode = 1;
  record.SplitSize1 = 2000;
  record.KeyframeInterval = 0;
  OpenCalculator();
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(record.SplitAVISize, 1300);
  EXPECT_EQ(record.SplitSize1, 2000);
  EXPECT_EQ(record.SplitSize2, 700);
  EXPECT_EQ(record.KeyframeInterval, 0);
  EXPECT_EQ(record.SplitSegmentsMode, 1);
  EXPECT_EQ(record.FrameRateSystem, 0);
}

TEST_F(SplitLoading, AStrangeFrameRateSystemSelectsNothingAndKeepsTheRunningTime) {
  record.FrameRateSystem = 7;
  OpenCalculator();
  for (const auto& name : {u"System(0)"_s, u"System(1)"_s, u"System(2)"_s}) {
    EXPECT_FALSE(IsChecked(name)) << name.toStdString();
  }
  EXPECT_EQ(record.FrameRateSystem, 7);
  EXPECT_EQ(record.MovieLength, 100);
  Enter(Frames, u"75000"_s);
  Enter(AVIsize, u"1400"_s);
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(Text("Frames"), "0");
  EXPECT_EQ(Text("KeyFr"), "");
  EXPECT_EQ(Ranges(), NothingOfTwo);
  Choose(u"System(0)"_s);
  EXPECT_EQ(Text("Frames"), Pal);
  EXPECT_EQ(Ranges(), "75000-150000 0-74999");
}

TEST_F(SplitLoading, EscapeClosesAndReopeningShowsWhatWasTyped) {
  OpenThree(1300, 400, 500);
  Enter(AVIsize, u"1200.5"_s);
  Enter(Frames, u"100000"_s);
  Enter(Size1, u"300.25"_s);
  Enter(Size2, u"200"_s);
  Enter(KeyFs, u"4"_s);
  Choose(u"System(2)"_s);
  const auto ranges = Ranges();
  const auto frames = Text("Frames");
  Key(Qt::Key_Escape);
  EXPECT_TRUE(window == nullptr || !window->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  OpenCalculator();
  EXPECT_EQ(Sizes(), "1200.5 300.25 200 700.25");
  EXPECT_EQ(Text("KeyFs"), "4");
  EXPECT_EQ(Text("Frames"), frames);
  EXPECT_EQ(Ranges(), ranges);
  EXPECT_TRUE(IsChecked(u"System(2)"_s));
  EXPECT_TRUE(IsChecked(u"Segs(1)"_s));
}

// A text pasted over a field.
struct EntryCase {
  std::string name;
  const char* field = nullptr;
  const char* entered = nullptr;
  std::string shown;
  double stored = 0;
  bool recomputes = false;
};

class SplitSizeEntry : public AviSplitWindow, public ::testing::WithParamInterface<EntryCase> {};

TEST_P(SplitSizeEntry, IsRepairedAndStored) {
  const auto& [name, fieldName, entered, shown, stored, recomputes] = GetParam();
  OpenThree(1300, 400, 500);
  auto* field = Field(QString::fromLatin1(fieldName));
  field->setFocus();
  ArmRecomputation();
  const auto ranges = Ranges();
  Enter(field, QString::fromLatin1(entered));
  EXPECT_EQ(Text(fieldName), shown);
  const std::map<std::string, double> sizes{
      {"AVIsize", record.SplitAVISize}, {"Size1", record.SplitSize1}, {"Size2", record.SplitSize2}};
  EXPECT_EQ(sizes.at(fieldName), stored);
  EXPECT_EQ(Recomputed(), recomputes);
  EXPECT_EQ(Ranges() != ranges, recomputes);
}

INSTANTIATE_TEST_SUITE_P(
    Each, SplitSizeEntry,
    ::testing::Values(EntryCase{"File", "AVIsize", "1400", "1400", 1400, true},
                      EntryCase{"FractionOfAFile", "AVIsize", ".5", ".5", 0.5, true},
                      EntryCase{"NoFile", "AVIsize", "0", "0", 0, false},
                      EntryCase{"NegativeFile", "AVIsize", "-1400", "1400", 1400, true},
                      EntryCase{"FileWithUnit", "AVIsize", "1400.5MB", "1400.5", 1400.5, true},
                      EntryCase{"NegativeFileWithUnit", "AVIsize", "-9MB", "9", 9, true},
                      EntryCase{"FileThatIsNoNumber", "AVIsize", "file", "0", 0, false},
                      EntryCase{"FileOutOfRange", "AVIsize", "1e999", "0", 0, false},
                      EntryCase{"FileJustBegun", "AVIsize", "-", "-", 0, false},
                      EntryCase{"First", "Size1", "450", "450", 450, true},
                      EntryCase{"NoFirst", "Size1", "0", "0", 0, false},
                      EntryCase{"NegativeFirst", "Size1", "-450", "450", 450, true},
                      EntryCase{"FirstWithComma", "Size1", "450,5", "450", 450, true},
                      EntryCase{"FirstThatIsNoNumber", "Size1", "x", "0", 0, false},
                      EntryCase{"FirstThatBlanksTheRanges", "Size1", "1301", "1301", 1301, true},
                      EntryCase{"Second", "Size2", "550", "550", 550, true},
                      EntryCase{"NoSecond", "Size2", "0", "0", 0, false},
                      EntryCase{"NegativeSecond", "Size2", "-550", "550", 550, true},
                      EntryCase{"SecondWithBlanks", "Size2", " 550 ", " 550 ", 550, true},
                      EntryCase{"SecondThatIsNoNumber", "Size2", "x550", "0", 0, false},
                      EntryCase{"SecondThatBlanksTheRanges", "Size2", "901", "901", 901, true}),
    NameOf);

class FramesEntry : public AviSplitWindow, public ::testing::WithParamInterface<EntryCase> {};

TEST_P(FramesEntry, SetsTheRunningTime) {
  const auto& [name, fieldName, entered, shown, minutes, recomputes] = GetParam();
  OpenCalculator();
  Frames->setFocus();
  ArmRecomputation();
  Enter(Frames, QString::fromLatin1(entered));
  EXPECT_EQ(Text("Frames"), shown);
  EXPECT_DOUBLE_EQ(record.MovieLength, minutes);
  EXPECT_EQ(Recomputed(), recomputes);
}

INSTANTIATE_TEST_SUITE_P(
    Each, FramesEntry,
    ::testing::Values(
        EntryCase{"Usual", "Frames", "75000", "75000", 50, true},
        EntryCase{"One", "Frames", "1", "1", 1 / 1500.0, true},
        EntryCase{"FractionIsCutOff", "Frames", "75000.9", "75000", 50, true},
        EntryCase{"Limit", "Frames", "99999999", "99999999", 99999999 / 1500.0, true},
        EntryCase{"FractionAboveTheLimitLosesADigit", "Frames", "99999999.5", "9999999",
                  9999999 / 1500.0, true},
        EntryCase{"AboveTheLimitLosesADigit", "Frames", "100000000", "10000000", 10000000 / 1500.0,
                  true},
        EntryCase{"NineDigits", "Frames", "123456789", "12345678", 12345678 / 1500.0, true},
        EntryCase{"TwelveDigits", "Frames", "123456789012", "12345678", 12345678 / 1500.0, true},
        EntryCase{"Exponent", "Frames", "1e300", "10000000", 10000000 / 1500.0, true},
        EntryCase{"Negative", "Frames", "-75000", "75000", 50, true},
        EntryCase{"NegativeFractionGoesDownFirst", "Frames", "-1499.5", "1500", 1, true},
        EntryCase{"NegativeBeyondTheLimit", "Frames", "-123456789", "123456789", 123456789 / 1500.0,
                  true},
        EntryCase{"WithUnit", "Frames", "75000f", "75000", 50, true},
        EntryCase{"Zero", "Frames", "0", "0", 100, false},
        EntryCase{"LessThanOne", "Frames", "0.9", "0", 100, false},
        EntryCase{"NoNumber", "Frames", "abc", "0", 100, false},
        EntryCase{"JustBegun", "Frames", "-", "0", 100, false}),
    NameOf);

class KeyFsEntry : public AviSplitWindow, public ::testing::WithParamInterface<EntryCase> {};

TEST_P(KeyFsEntry, IsDividedByTenTwiceAtMost) {
  const auto& [name, fieldName, entered, shown, stored, recomputes] = GetParam();
  OpenCalculator();
  KeyFs->setFocus();
  ArmRecomputation();
  Enter(KeyFs, QString::fromLatin1(entered));
  EXPECT_EQ(Text("KeyFs"), shown);
  EXPECT_EQ(record.KeyframeInterval, stored);
  EXPECT_EQ(Recomputed(), recomputes);
}

INSTANTIATE_TEST_SUITE_P(
    Each, KeyFsEntry,
    ::testing::Values(
        EntryCase{"Usual", "KeyFs", "5", "5", 5, true},
        EntryCase{"Limit", "KeyFs", "100", "100", 100, true},
        EntryCase{"JustAboveTheLimit", "KeyFs", "100.5", "10", 10, true},
        EntryCase{"OnceDivided", "KeyFs", "250", "25", 25, true},
        EntryCase{"OnceDividedToTheLimit", "KeyFs", "1000", "100", 100, true},
        EntryCase{"TwiceDivided", "KeyFs", "5000", "50", 50, true},
        EntryCase{"NotDividedAgain", "KeyFs", "50000", "500", 500, true},
        EntryCase{"FractionIsCutOff", "KeyFs", "999", "99", 99, true},
        EntryCase{"StopsAtTheLargestInterval", "KeyFs", "5000000", "50000", 32767, true},
        EntryCase{"Negative", "KeyFs", "-20", "20", 20, true},
        EntryCase{"NegativeIsTurnedBeforeItIsDivided", "KeyFs", "-250", "25", 25, true},
        EntryCase{"WithUnit", "KeyFs", "12sec", "12", 12, true},
        EntryCase{"Zero", "KeyFs", "0", "0", 0, false},
        EntryCase{"LessThanOne", "KeyFs", "0.9", "0", 0, false},
        EntryCase{"NoNumber", "KeyFs", "sec", "0", 0, false}),
    NameOf);

class SplitTyping : public AviSplitWindow {};

TEST_F(SplitTyping, TheFirstSizeComesBackWhileTheFileIsTyped) {
  OpenCalculator();
  Type(u"1"_s);
  EXPECT_EQ(Sizes(), "1 1 0");
  EXPECT_EQ(Ranges(), "150000-150000 0-149999");
  Type(u"400"_s);
  EXPECT_EQ(Sizes(), "1400 700 700");
  EXPECT_EQ(Ranges(), "75000-150000 0-74999");
  EXPECT_EQ(record.SplitAVISize, 1400);
  EXPECT_EQ(record.SplitSize1, 700);
}

TEST_F(SplitTyping, BothSizesFollowTheFileOfThreeInThisOrder) {
  OpenThree(1300, 400, 500);
  Enter(AVIsize, u"700"_s);
  EXPECT_EQ(Sizes(), "700 400 300 0");
  Enter(AVIsize, u"300"_s);
  EXPECT_EQ(Sizes(), "300 300 0 0");
  EXPECT_EQ(record.SplitSize1, 400);
  EXPECT_EQ(record.SplitSize2, 500);
}

TEST_F(SplitTyping, TheSecondSizeFollowsTheFirstAndStopsAtNothing) {
  OpenThree(1300, 400, 500);
  Enter(Size1, u"1000"_s);
  EXPECT_EQ(Sizes(), "1300 1000 300 0");
  Enter(Size1, u"2000"_s);
  EXPECT_EQ(Sizes(), "1300 2000 0 ");
  EXPECT_EQ(Ranges(), NothingOfThree);
  EXPECT_EQ(record.SplitSize1, 2000);
  EXPECT_EQ(record.SplitSize2, 500);
}

TEST_F(SplitTyping, ASizeTypedBeyondTheFileStandsUntilAnotherFieldIsEdited) {
  OpenCalculator();
  Enter(Size1, u"1301"_s);
  EXPECT_EQ(Sizes(), "1300 1301 ");
  EXPECT_EQ(Ranges(), NothingOfTwo);
  Click(KeyFs);
  EXPECT_EQ(Sizes(), "1300 1300 0");
  EXPECT_EQ(Ranges(), "150000-150000 0-149999");
  EXPECT_EQ(record.SplitSize1, 1301);
}

TEST_F(SplitTyping, ASecondSizeTypedBeyondTheRestStandsUntilAnotherFieldIsEdited) {
  OpenThree(1300, 400, 500);
  Enter(Size2, u"900.1"_s);
  EXPECT_EQ(Sizes(), "1300 400 900.1 ");
  EXPECT_EQ(Ranges(), NothingOfThree);
  Click(Size1);
  EXPECT_EQ(Sizes(), "1300 400 900 0");
  EXPECT_EQ(Ranges(), "46000-150000 0-45999 149750-150000 0-149749");
}

TEST_F(SplitTyping, DecimalsThatFillTheFileLeaveNoNoise) {
  OpenThree(1300, 20, 10);
  Enter(AVIsize, u"100.3"_s);
  Enter(Size1, u"33.1"_s);
  Enter(Size2, u"67.2"_s);
  EXPECT_EQ(Sizes(), "100.3 33.1 67.2 0");
  EXPECT_EQ(Ranges(), "49500-150000 0-49499 149750-150000 0-149749");
  Choose(u"Segs(0)"_s);
  EXPECT_EQ(Sizes(), "100.3 33.1 67.2");
}

TEST_F(SplitTyping, APastedNegativeFileTurnsTheFirstSizeBeforeItsSignIsRepaired) {
  OpenCalculator();
  Enter(AVIsize, u"-1400"_s);
  EXPECT_EQ(Sizes(), "1400 -1400 2800");
  EXPECT_EQ(Ranges(), NothingOfTwo);
}

TEST_F(SplitTyping, NumbersBelowOneAndBelowZeroCanBeTyped) {
  OpenCalculator();
  TabTo(Size1);
  Type(u"."_s);
  EXPECT_EQ(Text("Size1"), ".");
  Type(u"5"_s);
  EXPECT_EQ(Text("Size1"), ".5");
  EXPECT_EQ(record.SplitSize1, 0.5);
  TypeOver(u"-20"_s);
  EXPECT_EQ(Text("Size1"), "20");
  EXPECT_EQ(record.SplitSize1, 20);
}

TEST_F(SplitTyping, AnEmptiedSizeStaysEmptyAndIsFilledFromAnotherField) {
  OpenThree(1300, 400, 500);
  Clear(Size1);
  EXPECT_EQ(Sizes(), "1300  500 400");
  EXPECT_EQ(record.SplitSize1, 400);
  Clear(Size2);
  EXPECT_EQ(Sizes(), "1300 1  400");
  EXPECT_EQ(record.SplitSize2, 500);
  Click(KeyFs);
  EXPECT_EQ(Sizes(), "1300 1 1 1298");
}

TEST_F(SplitTyping, AnEmptiedFileTakesTheFirstSizeWithIt) {
  OpenCalculator();
  ArmRecomputation();
  Clear(AVIsize);
  EXPECT_EQ(Sizes(), " 0 600");
  EXPECT_EQ(record.SplitAVISize, 1300);
  EXPECT_EQ(record.SplitSize1, 700);
  EXPECT_FALSE(Recomputed());
  Click(KeyFs);
  EXPECT_EQ(Text("AVIsize"), "1");
}

TEST_F(SplitTyping, EmptiedFramesAreThoseOfTheRunningTimeAtTheNextEdit) {
  OpenCalculator();
  ArmRecomputation();
  Clear(Frames);
  EXPECT_EQ(Text("Frames"), "");
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_FALSE(Recomputed());
  Click(AVIsize);
  EXPECT_EQ(Text("Frames"), Pal);
}

TEST_F(SplitTyping, AnEmptiedIntervalIsOneSecondAtTheNextEdit) {
  OpenCalculator();
  ArmRecomputation();
  Clear(KeyFs);
  EXPECT_EQ(Text("KeyFs"), "");
  EXPECT_EQ(record.KeyframeInterval, 10);
  EXPECT_FALSE(Recomputed());
  Click(AVIsize);
  EXPECT_EQ(Text("KeyFs"), "1");
  EXPECT_EQ(Text("KeyFr"), "6000");
  EXPECT_EQ(record.KeyframeInterval, 10);
}

TEST_F(SplitTyping, AnIntervalOfZeroStandsUntilItIsUsed) {
  OpenCalculator();
  Enter(KeyFs, u"0"_s);
  EXPECT_EQ(Text("KeyFs"), "0");
  Click(AVIsize);
  EXPECT_EQ(Text("KeyFs"), "1");
  EXPECT_EQ(record.KeyframeInterval, 0);
}

TEST_F(SplitTyping, AnIntervalBelowAFrameLeavesNoKeyFrames) {
  OpenCalculator();
  KeyFs->setText(u"0.03"_s);
  Click(AVIsize);
  EXPECT_EQ(Text("KeyFr"), "");
  EXPECT_EQ(Ranges(), NothingOfTwo);
  EXPECT_EQ(Text("Frames"), Pal);
  EXPECT_EQ(record.MovieLength, 100);
}

TEST_F(SplitTyping, NothingOfNothingHasNoRanges) {
  OpenCalculator();
  Enter(AVIsize, u"0"_s);
  Choose(u"System(1)"_s);
  EXPECT_EQ(Sizes(), "0 0 0");
  EXPECT_EQ(Ranges(), NothingOfTwo);
  EXPECT_EQ(Text("KeyFr"), "599");
}

TEST_F(SplitTyping, FramesAreLimitedKeyByKey) {
  OpenCalculator();
  TabTo(Frames);
  Type(u"12345678"_s);
  EXPECT_EQ(Text("Frames"), "12345678");
  Type(u"9"_s);
  EXPECT_EQ(Text("Frames"), "12345678");
  EXPECT_DOUBLE_EQ(record.MovieLength, 12345678 / 1500.0);
  EXPECT_EQ(Duration(), "137:10:27.12");
}

TEST_F(SplitTyping, TheIntervalIsLimitedKeyByKey) {
  OpenCalculator();
  TabTo(KeyFs);
  Type(u"250"_s);
  EXPECT_EQ(Text("KeyFs"), "25");
  EXPECT_EQ(record.KeyframeInterval, 25);
  EXPECT_EQ(Text("KeyFr"), "240");
}

TEST_F(SplitTyping, FramesShowTheirDuration) {
  OpenCalculator();
  Enter(Frames, u"98765"_s);
  EXPECT_EQ(Duration(), "1:5:50.60");
  Enter(Frames, u"1"_s);
  EXPECT_EQ(Duration(), "0:0:00.04");
}

TEST_F(SplitTyping, TheRunningTimeOfAnotherWindowIsTakenAtTheNextEdit) {
  OpenCalculator();
  record.MovieLength = 50.0001;
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(Text("Frames"), "75000");
  EXPECT_EQ(record.MovieLength, 50.0001);
}

// The texts in the fields, and the stored values, after a key goes down but before its field takes
// it, or after the mouse is released.
struct LimitCase {
  std::string name;
  Event event = Event::KeyPress;
  const char* field = nullptr;
  const char* before = nullptr;
  std::string after;
  double minutes = 0;
  int interval = 0;
};

class LimitsWithoutRecomputing : public AviSplitWindow,
                                 public ::testing::WithParamInterface<LimitCase> {};

TEST_P(LimitsWithoutRecomputing, AndStores) {
  const auto& [name, event, fieldName, before, after, minutes, interval] = GetParam();
  OpenCalculator();
  auto* field = Field(QString::fromLatin1(fieldName));
  Prepare(event, field, FirstRange);
  field->setText(QString::fromLatin1(before));
  ArmRecomputation();
  if (event == Event::KeyPress) {
    KeyDown(Qt::Key_Return);  // leaves the text alone
  } else {
    LetGo(field);
  }
  EXPECT_EQ(Text(fieldName), after);
  EXPECT_DOUBLE_EQ(record.MovieLength, minutes);
  EXPECT_EQ(record.KeyframeInterval, interval);
  EXPECT_FALSE(Recomputed());
}

INSTANTIATE_TEST_SUITE_P(
    Each, LimitsWithoutRecomputing,
    ::testing::Values(
        LimitCase{"KeyOnFrames", Event::KeyPress, "Frames", "123456789", "12345678",
                  12345678 / 1500.0, 10},
        LimitCase{"KeyOnFractionOfFrames", Event::KeyPress, "Frames", "1500.9", "1500", 1, 10},
        LimitCase{"KeyOnFramesWithUnit", Event::KeyPress, "Frames", "1500f", "1500", 1, 10},
        LimitCase{"KeyOnNoFrames", Event::KeyPress, "Frames", "0", "0", 0, 10},
        LimitCase{"KeyOnEmptyFrames", Event::KeyPress, "Frames", "", "", 100, 10},
        LimitCase{"MouseOnFrames", Event::MouseUp, "Frames", "123456789", "12345678",
                  12345678 / 1500.0, 10},
        LimitCase{"MouseOnFractionOfFrames", Event::MouseUp, "Frames", "1500.9", "1500", 1, 10},
        LimitCase{"MouseOnEmptyFrames", Event::MouseUp, "Frames", "", "", 100, 10},
        LimitCase{"KeyOnInterval", Event::KeyPress, "KeyFs", "250", "25", 100, 25},
        LimitCase{"KeyOnLongInterval", Event::KeyPress, "KeyFs", "5000", "50", 100, 50},
        LimitCase{"KeyOnLongestInterval", Event::KeyPress, "KeyFs", "50000", "500", 100, 500},
        LimitCase{"KeyOnFractionOfAnInterval", Event::KeyPress, "KeyFs", "12.7", "12.7", 100, 13},
        LimitCase{"KeyOnNoInterval", Event::KeyPress, "KeyFs", "0", "0", 100, 0},
        LimitCase{"KeyOnEmptyInterval", Event::KeyPress, "KeyFs", "", "", 100, 10},
        LimitCase{"MouseOnInterval", Event::MouseUp, "KeyFs", "250", "250", 100, 10}),
    NameOf);

// A text that is not a number and that no handler of its field has repaired yet, because its key is
// still down.
struct UnrepairedCase {
  std::string name;
  double mode = 0;
  const char* field = nullptr;
  std::string computedSize;
  std::string ranges;
};

class SplitOfUnrepairedText : public AviSplitWindow,
                              public ::testing::WithParamInterface<UnrepairedCase> {};

TEST_P(SplitOfUnrepairedText, CountsItAsNothing) {
  const auto& [name, mode, fieldName, computedSize, ranges] = GetParam();
  record.SplitSegmentsMode = mode;
  record.SplitSize1 = 400;
  record.SplitSize2 = 500;
  OpenCalculator();
  Field(QString::fromLatin1(fieldName))->setFocus();
  Key(Qt::Key_End);
  KeyDown(Qt::Key_X, u"x"_s);
  Choose(u"System(1)"_s);
  EXPECT_EQ(Text(mode == 0 ? "Size2" : "Size3"), computedSize);
  EXPECT_EQ(Ranges(), ranges);
}

INSTANTIATE_TEST_SUITE_P(
    Each, SplitOfUnrepairedText,
    ::testing::Values(UnrepairedCase{"FileOfTwo", 0, "AVIsize", "", NothingOfTwo},
                      UnrepairedCase{"FileOfThree", 1, "AVIsize", "", NothingOfThree},
                      UnrepairedCase{"FirstOfTwo", 0, "Size1", "1300", "0-143856 0-"}),
    NameOf);

// With three segments the leading number of such a text counts.
class LeadingNumberOfThree : public AviSplitWindow {
 protected:
  // Types over the contents of the field; no key has been released yet.
  static void TypeHeld(TextField* field, const QString& text) {
    field->setFocus();
    for (const QChar c : text) {
      KeyDown(Qt::Key_A, c);
    }
  }
};

TEST_F(LeadingNumberOfThree, OfTheFirstSizeIsSplitOff) {
  OpenThree(1300, 400, 500);
  TypeHeld(Size1, u"600abc"_s);
  Choose(u"System(1)"_s);
  EXPECT_EQ(Sizes(), "1300 600abc 500 200");
  const auto ranges = Ranges();
  EXPECT_NE(ranges, NothingOfThree);
  Enter(Size1, u"600"_s);
  EXPECT_EQ(Ranges(), ranges);
}

TEST_F(LeadingNumberOfThree, OfTheSecondSizeIsSplitOff) {
  OpenThree(1300, 500, 400);
  TypeHeld(Size2, u"600abc"_s);
  Choose(u"System(1)"_s);
  EXPECT_EQ(Sizes(), "1300 500 600abc 200");
  const auto ranges = Ranges();
  EXPECT_NE(ranges, NothingOfThree);
  Enter(Size2, u"600"_s);
  EXPECT_EQ(Ranges(), ranges);
}

TEST_F(LeadingNumberOfThree, OfTheFirstSizeLimitsTheSecond) {
  OpenThree(1300, 400, 500);
  TypeHeld(Size1, u"900abc"_s);
  Click(KeyFs);
  EXPECT_EQ(Sizes(), "1300 900abc 400 0");
}

// Cutting to the file compares the whole text, which is not a number.
TEST_F(LeadingNumberOfThree, DoesNotCutTheFirstSizeToTheFile) {
  OpenThree(1300, 400, 500);
  TypeHeld(Size1, u"2000abc"_s);
  Click(KeyFs);
  EXPECT_EQ(Text("Size1"), "2000abc");
}

struct SystemCase {
  std::string name;
  int system = 0;
  std::string frames;
  std::string keyFrames;
  std::string two;
  std::string three;
};

class SplitSystems : public AviSplitWindow, public ::testing::WithParamInterface<SystemCase> {
 protected:
  // Selects the system of the case, after another one.
  void SelectIt() {
    record.FrameRateSystem = GetParam().system == 0 ? 1 : 0;
    OpenCalculator();
    Choose(u"System(%1)"_s.arg(GetParam().system));
  }
};

TEST_P(SplitSystems, ChangeFramesAndIntervals) {
  SelectIt();
  EXPECT_EQ(record.FrameRateSystem, GetParam().system);
  EXPECT_EQ(Text("Frames"), GetParam().frames);
  EXPECT_EQ(Text("KeyFr"), GetParam().keyFrames);
  EXPECT_EQ(Duration(), HundredMinutes);
  EXPECT_EQ(Ranges(), GetParam().two);
}

TEST_P(SplitSystems, ChangeThreeSegments) {
  record.SplitSegmentsMode = 1;
  record.SplitSize1 = 400;
  record.SplitSize2 = 500;
  SelectIt();
  EXPECT_EQ(Text("Frames"), GetParam().frames);
  EXPECT_EQ(Ranges(), GetParam().three);
}

TEST_P(SplitSystems, CountFramesEnteredAtTheirRate) {
  SelectIt();
  Enter(Frames, QString::fromStdString(GetParam().frames));
  EXPECT_DOUBLE_EQ(record.MovieLength, 100);
  EXPECT_EQ(Text("Frames"), GetParam().frames);
}

INSTANTIATE_TEST_SUITE_P(
    Each, SplitSystems,
    ::testing::Values(SystemCase{"Pal", 0, "150000", "600", "80750-150000 0-80749",
                                 "46000-150000 0-45999 103500-150000 0-103499"},
                      SystemCase{"Film", 1, "143856", "599", "77280-143856 0-77279",
                                 "44160-143856 0-44159 99360-143856 0-99359"},
                      SystemCase{"Ntsc", 2, "179820", "599", "96600-179820 0-96599",
                                 "55200-179820 0-55199 124200-179820 0-124199"}),
    NameOf);

class SplitOptions : public AviSplitWindow {};

TEST_F(SplitOptions, AnotherRateAndBackKeepsTheRunningTime) {
  record.MovieLength = 1001 / 1500.0;
  OpenCalculator();
  EXPECT_EQ(Text("Frames"), "1001");
  Choose(u"System(1)"_s);  // 959.999 frames
  EXPECT_EQ(Text("Frames"), "959");
  EXPECT_EQ(record.MovieLength, 1001 / 1500.0);
  Choose(u"System(0)"_s);
  EXPECT_EQ(Text("Frames"), "1001");
}

TEST_F(SplitOptions, ARateThatIsSelectedAlreadyChangesNothing) {
  OpenCalculator();
  ArmRecomputation();
  Choose(u"System(0)"_s);
  Choose(u"Segs(0)"_s);
  EXPECT_FALSE(Recomputed());
}

TEST_F(SplitOptions, ARateFillsNoBlankFieldsButTheInterval) {
  OpenThree(1300, 400, 500);
  for (auto* field : {AVIsize, Frames, Size1, Size2, KeyFs}) {
    field->setText({});
  }
  Choose(u"System(1)"_s);
  EXPECT_EQ(Sizes(), "   0");
  EXPECT_EQ(Text("Frames"), "143856");
  EXPECT_EQ(Text("KeyFs"), "1");
  EXPECT_EQ(Ranges(), NothingOfThree);
}

TEST_F(SplitOptions, SegmentsFillAllBlankFields) {
  OpenCalculator();
  for (auto* field : {AVIsize, Frames, Size1, KeyFs}) {
    field->setText({});
  }
  Choose(u"Segs(1)"_s);
  EXPECT_EQ(Sizes(), "1 1 0 0");  // the second, computed before, is clamped as one of three
  EXPECT_EQ(Text("Frames"), Pal);
  EXPECT_EQ(Text("KeyFs"), "1");
}

TEST_F(SplitOptions, SegmentsAreStoredAndRecomputed) {
  record.SplitSize1 = 400;
  OpenCalculator();
  ArmRecomputation();
  Choose(u"Segs(1)"_s);
  EXPECT_EQ(record.SplitSegmentsMode, 1);
  EXPECT_TRUE(Recomputed());
  EXPECT_EQ(Sizes(), "1300 400 900 0");
  EXPECT_EQ(Ranges(), "46000-150000 0-45999 149750-150000 0-149749");
  Enter(Size2, u"500"_s);
  ArmRecomputation();
  Choose(u"Segs(0)"_s);
  EXPECT_EQ(record.SplitSegmentsMode, 0);
  EXPECT_TRUE(Recomputed());
  EXPECT_EQ(Sizes(), "1300 400 900");
  EXPECT_EQ(Ranges(), "46000-150000 0-45999");
  EXPECT_EQ(record.SplitSize2, 500);
}

TEST_F(SplitOptions, TheSecondSizeOfTwoIsAResult) {
  OpenCalculator();
  EXPECT_TRUE(Size2->isReadOnly());
  Click(Size2);
  Type(u"9"_s);
  Paste(u"9"_s);
  EXPECT_EQ(Text("Size2"), "600");
  Choose(u"Segs(1)"_s);
  EXPECT_FALSE(Size2->isReadOnly());
  Enter(Size2, u"9"_s);
  EXPECT_EQ(Text("Size2"), "9");
  Choose(u"Segs(0)"_s);
  EXPECT_TRUE(Size2->isReadOnly());
}

TEST_F(SplitOptions, AClickOrKeyInTheSecondSizeOfTwoStoresNothing) {
  OpenCalculator();
  Click(Size2);
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(Text("Size2"), "600");
  EXPECT_EQ(record.SplitSize2, 700);
}

TEST_F(SplitTyping, AClickOnFramesThatTheProgramCountedKeepsTheRunningTime) {
  record.MovieLength = 90.33333;
  OpenCalculator();
  Click(Frames);
  Key(Qt::Key_Left);
  EXPECT_EQ(record.MovieLength, 90.33333);
  Enter(Frames, u"135499"_s);
  EXPECT_DOUBLE_EQ(record.MovieLength, 135499 / 1500.0);
}

TEST_F(SplitTyping, AClickOnASizeThatWasCutToFitStoresNothing) {
  OpenCalculator();
  Enter(AVIsize, u"500"_s);
  EXPECT_EQ(Sizes(), "500 500 0");
  Click(Size1);
  EXPECT_EQ(record.SplitSize1, 700);
  Enter(AVIsize, u"1400"_s);
  EXPECT_EQ(Sizes(), "1400 700 700");
}

TEST_F(SplitTyping, BothSizesOfThreeComeBackWhileTheFileIsTyped) {
  OpenThree(2100, 1300, 700);
  Enter(AVIsize, u"1400"_s);
  EXPECT_EQ(Sizes(), "1400 1300 100 0");
  EXPECT_EQ(record.SplitSize1, 1300);
  EXPECT_EQ(record.SplitSize2, 700);
  Enter(AVIsize, u"2100"_s);
  EXPECT_EQ(Sizes(), "2100 1300 700 100");
}

TEST_F(SplitLoading, ACountThatIsNotFiniteIsBlankAndKeepsTheRunningTime) {
  record.MovieLength = 1e307;
  OpenCalculator();
  EXPECT_EQ(Text("Frames"), "");
  EXPECT_EQ(Text("KeyFr"), "");
  EXPECT_EQ(Duration(), "::");
  EXPECT_EQ(Ranges(), NothingOfTwo);
  Click(Find(window, u"Size1"_s));
  EXPECT_EQ(Text("Frames"), "");
  EXPECT_EQ(record.MovieLength, 1e307);
}

class SplitPlaces : public AviSplitWindow {
 protected:
  const std::set<QString> thirdSegment{u"SegNo3Lab"_s, u"SegNo3Lab2"_s, u"Size3"_s,  u"SetF(4)"_s,
                                       u"SetF(5)"_s,   u"SetF(6)"_s,    u"SetF(7)"_s};

  void ExpectThirdSegment(bool isShown) const {
    for (const auto& name : thirdSegment) {
      EXPECT_EQ(Find(window, name)->isVisible(), isShown) << name.toStdString();
    }
    for (int i = 0; i < 4; ++i) {
      EXPECT_TRUE(Find(window, u"SetF(%1)"_s.arg(i))->isVisible()) << i;
    }
  }

  // The places of all controls in the window, hidden ones included, in the order in which they were
  // made.
  [[nodiscard]] std::vector<std::pair<std::string, QRect>> Places() const {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    std::vector<std::pair<std::string, QRect>> places{{"window", QRect(QPoint(), window->size())}};
    for (const auto* widget : window->findChildren<QWidget*>()) {
      auto name = widget->objectName().toStdString();
      if (const auto* label = qobject_cast<const QLabel*>(widget); label != nullptr) {
        name += name.empty() ? label->text().toStdString() : "";
      }
      places.emplace_back(name, QRect(widget->mapTo(window.data(), QPoint()), widget->size()));
    }
    return places;
  }
};

void ExpectSame(const std::vector<std::pair<std::string, QRect>>& before,
                const std::vector<std::pair<std::string, QRect>>& after) {
  ASSERT_EQ(before.size(), after.size());
  for (std::size_t i = 0; i < before.size(); ++i) {
    EXPECT_EQ(before[i].first, after[i].first);
    EXPECT_EQ(before[i].second, after[i].second) << before[i].first;
  }
}

TEST_F(SplitPlaces, OfTwoAndThreeSegmentsAreTheSame) {
  OpenCalculator();
  ExpectThirdSegment(false);
  const auto two = Places();
  ASSERT_GT(two.size(), 40U);
  Choose(u"Segs(1)"_s);
  ExpectThirdSegment(true);
  ExpectSame(two, Places());
  Choose(u"Segs(0)"_s);
  ExpectThirdSegment(false);
  ExpectSame(two, Places());
}

TEST_F(SplitPlaces, AreTheSameHoweverTheWindowOpens) {
  OpenCalculator();
  const auto two = Places();
  window->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  record.SplitSegmentsMode = 1;
  OpenCalculator();
  ExpectThirdSegment(true);
  ExpectSame(two, Places());
  Choose(u"Segs(0)"_s);
  ExpectThirdSegment(false);
  ExpectSame(two, Places());
}

TEST_F(SplitPlaces, StayWithLongFigures) {
  OpenCalculator();
  const auto before = Places();
  Enter(Frames, u"99999999"_s);
  Enter(AVIsize, u"123456.789"_s);
  Enter(KeyFs, u"1"_s);
  ExpectSame(before, Places());
  Enter(Size1, u"1234567"_s);
  ExpectSame(before, Places());
}

TEST_F(SplitPlaces, TabSkipsWhatIsHidden) {
  OpenCalculator();
  std::set<QWidget*> reached;
  for (int i = 0; i < 40; ++i) {
    Key(Qt::Key_Tab);
    reached.insert(QApplication::focusWidget());
  }
  for (const auto& name : thirdSegment) {
    EXPECT_EQ(reached.count(Find(window, name)), 0U) << name.toStdString();
  }
  EXPECT_EQ(reached.count(Find(window, u"SetF(3)"_s)), 1U);
}

class SplitFields : public AviSplitWindow {};

TEST_F(SplitFields, SelectTheirWholeText) {
  OpenThree(1300, 400, 500);
  const auto text = u"123456789012345"_s;
  for (auto* field : {AVIsize, Frames, KeyFs, Size1, Size2, Size3}) {
    FirstRange->setFocus();
    field->setText(text);
    field->setFocus();
    EXPECT_EQ(field->selectedText(), text) << field->objectName().toStdString();
  }
}

TEST_F(SplitFields, TheClickThatBringsTheFocusKeepsTheSelection) {
  OpenThree(1300, 400, 500);
  for (auto* field : {Frames, KeyFs, Size1, Size2, Size3, AVIsize}) {
    Click(field);
    EXPECT_EQ(field->selectedText(), field->text()) << field->objectName().toStdString();
    EXPECT_FALSE(field->text().isEmpty()) << field->objectName().toStdString();
  }
}

TEST_F(SplitFields, OfRangesSelectNothingByThemselves) {
  OpenThree(1300, 400, 500);
  for (int i = 0; i < 8; ++i) {
    auto* field = Field(u"SetF(%1)"_s.arg(i));
    field->setFocus();
    EXPECT_FALSE(field->hasSelectedText()) << i;
  }
}

TEST_F(SplitFields, OfResultsCanBeSelectedButNotChanged) {
  OpenThree(1300, 400, 500);
  std::vector<TextField*> results{Size3};
  for (int i = 0; i < 8; ++i) {
    results.push_back(Field(u"SetF(%1)"_s.arg(i)));
  }
  for (auto* field : results) {
    const auto before = field->text();
    ASSERT_FALSE(before.isEmpty());
    EXPECT_TRUE(field->isReadOnly());
    field->setFocus();
    Type(u"9"_s);
    Paste(u"9"_s);
    Key(Qt::Key_Backspace);
    EXPECT_EQ(field->text(), before) << field->objectName().toStdString();
    field->deselect();
    DoubleClick(field);
    EXPECT_EQ(field->selectedText(), before) << field->objectName().toStdString();
    LetGo(field);
  }
}

struct ExtremeCase {
  std::string name;
  QString entered;
};

class SplitExtremes : public AviSplitWindow, public ::testing::WithParamInterface<ExtremeCase> {
 protected:
  // Every field and label for a number shows a number, or is blank.
  void ExpectNumbers() const {
    std::vector<QString> names{u"AVIsize"_s, u"Frames"_s, u"Size1"_s, u"Size2"_s, u"Size3"_s,
                               u"KeyFs"_s,   u"KeyFr"_s,  u"Time1"_s, u"Time2"_s, u"Time3"_s};
    for (int i = 0; i < 8; ++i) {
      names.push_back(u"SetF(%1)"_s.arg(i));
    }
    for (const auto& name : names) {
      const auto text = Text(name);
      EXPECT_TRUE(text.empty() || IsNumeric(text)) << name.toStdString() << " shows " << text;
    }
  }
};

TEST_P(SplitExtremes, ShowNumbersOrNothing) {
  OpenThree(1300, 400, 500);
  for (auto* field : {AVIsize, Frames, Size1, Size2, KeyFs}) {
    SCOPED_TRACE(field->objectName().toStdString());
    Enter(field, GetParam().entered);
    EXPECT_LE(field->text().size(), 400);
    ExpectNumbers();
    for (const auto& option : {u"Segs(0)"_s, u"System(1)"_s, u"Segs(1)"_s, u"System(0)"_s}) {
      Choose(option);
      ExpectNumbers();
    }
  }
}

TEST_P(SplitExtremes, OfTheRecordShowNumbersOrNothing) {
  const double value = LeadingNumber(GetParam().entered.toStdString());
  for (const double mode : {0, 1}) {
    record.MovieLength = value;
    record.SplitAVISize = value;
    record.SplitSize1 = value;
    record.SplitSize2 = value;
    record.KeyframeInterval = value < 0 ? -32768 : 32767;
    record.SplitSegmentsMode = mode;
    OpenCalculator();
    ExpectNumbers();
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Each, SplitExtremes,
    ::testing::Values(ExtremeCase{"Largest", u"1.7e308"_s}, ExtremeCase{"Lowest", u"-1.7e308"_s},
                      ExtremeCase{"Huge", u"1e300"_s}, ExtremeCase{"Smallest", u"5e-324"_s},
                      ExtremeCase{"Tiny", u"1e-15"_s}, ExtremeCase{"TooLong", QString(1000, u'9')},
                      ExtremeCase{"OutOfRange", u"1e999"_s}, ExtremeCase{"Infinity", u"inf"_s},
                      ExtremeCase{"NotANumber", u"nan"_s},
                      ExtremeCase{"OtherDigits", u"\u0663\u0664"_s}),
    NameOf);

}  // namespace
}  // namespace brindle
