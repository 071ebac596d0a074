// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <QApplication>
#include <QString>
#include <gtest/gtest.h>

#include "base/numbers/frame_rate.h"
#include "base/numbers/numeric_text.h"
#include "tests/convert/quick_window.h"
#include "tests/support/handler_table.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

const Names All(FieldNames.begin(), FieldNames.end());
const Names Length{"MovieLength"};
const Names Quick{"QuickSizeMB"};

Names TimesAnd(const Names& sizes) {
  Names names(TimeNames.begin(), TimeNames.end());
  names.insert(sizes.begin(), sizes.end());
  return names;
}

class QuickHandlers : public HandlerTable<QuickWindow> {};

TEST_P(QuickHandlers, DoWhatTheirTableSaysToEmptyFields) {
  OpenForRow(u"System(0)"_s);
  EmptyFields(All);
  Happen();
  ExpectFills(All);
  ExpectStores();
}

INSTANTIATE_TEST_SUITE_P(
    TimeFields, QuickHandlers,
    Rows({{.control = "Time1", .event = Event::KeyPress},
          {.control = "Time1", .event = Event::KeyUp, .stores = Length, .fills = {"Min", "Frames"}},
          {.control = "Time1", .event = Event::GotFocus},
          {.control = "Time1", .event = Event::LostFocus, .fills = All},
          {.control = "Time1", .event = Event::MouseDown, .stores = Length, .fills = All},
          {.control = "Time1", .event = Event::MouseUp},
          {.control = "Time2", .event = Event::KeyPress},
          {.control = "Time2", .event = Event::KeyUp, .stores = Length, .fills = {"Min", "Frames"}},
          {.control = "Time2", .event = Event::GotFocus},
          {.control = "Time2", .event = Event::LostFocus, .fills = All},
          {.control = "Time2", .event = Event::MouseDown, .stores = Length, .fills = All},
          {.control = "Time2", .event = Event::MouseUp},
          {.control = "Time3", .event = Event::KeyPress},
          {.control = "Time3", .event = Event::KeyUp, .stores = Length, .fills = {"Min", "Frames"}},
          {.control = "Time3", .event = Event::GotFocus},
          {.control = "Time3", .event = Event::LostFocus, .fills = All},
          {.control = "Time3", .event = Event::MouseDown, .fills = All},
          {.control = "Time3", .event = Event::MouseUp},
          {.control = "Min", .event = Event::KeyPress},
          {.control = "Min",
           .event = Event::KeyUp,
           .stores = Length,
           .fills = {"Time1", "Time2", "Time3", "Frames"}},
          {.control = "Min", .event = Event::GotFocus},
          {.control = "Min", .event = Event::LostFocus, .fills = All},
          {.control = "Min", .event = Event::MouseDown, .stores = Length, .fills = All},
          {.control = "Min", .event = Event::MouseUp},
          {.control = "Frames", .event = Event::KeyPress},
          {.control = "Frames",
           .event = Event::KeyUp,
           .stores = Length,
           .fills = {"Time1", "Time2", "Time3", "Min"}},
          {.control = "Frames", .event = Event::GotFocus},
          {.control = "Frames", .event = Event::LostFocus, .fills = All},
          {.control = "Frames", .event = Event::MouseDown, .stores = Length, .fills = All},
          {.control = "Frames", .event = Event::MouseUp}}),
    RowName);

// A press fills all four sizes with 0; tidying then blanks a 0, except in bytes and in the pressed
// field.
INSTANTIATE_TEST_SUITE_P(
    SizeFields, QuickHandlers,
    Rows({{.control = "B", .event = Event::KeyPress, .stores = Quick, .fills = {"KB", "MB", "GB"}},
          {.control = "B", .event = Event::KeyUp, .stores = Quick, .fills = {"KB", "MB", "GB"}},
          {.control = "B", .event = Event::GotFocus},
          {.control = "B", .event = Event::LostFocus, .fills = All},
          {.control = "B", .event = Event::MouseDown, .stores = Quick, .fills = TimesAnd({"B"})},
          {.control = "B", .event = Event::MouseUp, .stores = Quick, .fills = {"KB", "MB", "GB"}},
          {.control = "KB", .event = Event::KeyPress, .stores = Quick, .fills = {"B", "MB", "GB"}},
          {.control = "KB", .event = Event::KeyUp, .stores = Quick, .fills = {"B", "MB", "GB"}},
          {.control = "KB", .event = Event::GotFocus},
          {.control = "KB", .event = Event::LostFocus, .fills = All},
          {.control = "KB",
           .event = Event::MouseDown,
           .stores = Quick,
           .fills = TimesAnd({"B", "KB"})},
          {.control = "KB", .event = Event::MouseUp, .stores = Quick, .fills = {"B", "MB", "GB"}},
          {.control = "MB", .event = Event::KeyPress, .stores = Quick, .fills = {"B", "KB", "GB"}},
          {.control = "MB", .event = Event::KeyUp, .stores = Quick, .fills = {"B", "KB", "GB"}},
          {.control = "MB", .event = Event::GotFocus},
          {.control = "MB", .event = Event::LostFocus, .fills = All},
          {.control = "MB",
           .event = Event::MouseDown,
           .stores = Quick,
           .fills = TimesAnd({"B", "MB"})},
          {.control = "MB", .event = Event::MouseUp, .stores = Quick, .fills = {"B", "KB", "GB"}},
          {.control = "GB", .event = Event::KeyPress, .stores = Quick, .fills = {"B", "KB", "MB"}},
          {.control = "GB", .event = Event::KeyUp, .stores = Quick, .fills = {"B", "KB", "MB"}},
          {.control = "GB", .event = Event::GotFocus},
          {.control = "GB", .event = Event::LostFocus, .fills = All},
          {.control = "GB",
           .event = Event::MouseDown,
           .stores = Quick,
           .fills = TimesAnd({"B", "GB"})},
          {.control = "GB", .event = Event::MouseUp, .stores = Quick, .fills = {"B", "KB", "MB"}}}),
    RowName);

// The result of one event for a value above the field's limit, and the values of the record that
// the event writes. If the fields are normalized first, minutes and seconds are carried instead.
struct LimitRow {
  std::string control;
  Event event = Event::KeyUp;
  std::string before;
  std::string after = before;
  Names stores = {};
};

void PrintTo(const LimitRow& row, std::ostream* out) {
  *out << EventOfControl(row.control, row.event);
}

class QuickLimits : public QuickWindow, public ::testing::WithParamInterface<LimitRow> {};

TEST_P(QuickLimits, DropDigits) {
  const auto& [control, event, before, after, stores] = GetParam();
  OpenCalculator();
  auto* field = FieldNamed(control);
  Prepare(event, field, Systems.front());
  field->setText(QString::fromStdString(before));
  Forget();

  if (event == Event::KeyPress) {
    KeyDown(Qt::Key_Return);  // this key does not change the text itself
  } else {
    Cause(event, field, Systems.front());
  }

  EXPECT_EQ(Text(control.c_str()), after);
  EXPECT_EQ(Stored(), stores);
}

INSTANTIATE_TEST_SUITE_P(
    TimeFields, QuickLimits,
    ::testing::Values(
        LimitRow{.control = "Time1", .event = Event::KeyPress, .before = "5000", .after = "500"},
        LimitRow{.control = "Time1",
                 .event = Event::KeyUp,
                 .before = "5000",
                 .after = "500",
                 .stores = Length},
        LimitRow{.control = "Time1", .event = Event::GotFocus, .before = "5000"},
        LimitRow{.control = "Time1", .event = Event::LostFocus, .before = "5000"},
        LimitRow{.control = "Time1",
                 .event = Event::MouseDown,
                 .before = "5000",
                 .after = "500",
                 .stores = Length},
        LimitRow{.control = "Time1", .event = Event::MouseUp, .before = "5000"},
        LimitRow{.control = "Time2", .event = Event::KeyPress, .before = "250", .after = "25"},
        LimitRow{.control = "Time2",
                 .event = Event::KeyUp,
                 .before = "250",
                 .after = "25",
                 .stores = Length},
        LimitRow{.control = "Time2", .event = Event::GotFocus, .before = "250"},
        LimitRow{.control = "Time2", .event = Event::LostFocus, .before = "250", .after = "10"},
        LimitRow{.control = "Time2",
                 .event = Event::MouseDown,
                 .before = "250",
                 .after = "10",
                 .stores = Length},
        LimitRow{.control = "Time2", .event = Event::MouseUp, .before = "250"},
        LimitRow{.control = "Time3", .event = Event::KeyPress, .before = "123.5", .after = "12.35"},
        LimitRow{.control = "Time3",
                 .event = Event::KeyUp,
                 .before = "123.5",
                 .after = "12.35",
                 .stores = Length},
        LimitRow{.control = "Time3", .event = Event::GotFocus, .before = "123.5"},
        LimitRow{
            .control = "Time3", .event = Event::LostFocus, .before = "123.5", .after = "04.00"},
        LimitRow{.control = "Time3", .event = Event::MouseDown, .before = "123.5", .after = "4"},
        LimitRow{.control = "Time3", .event = Event::MouseUp, .before = "123.5", .after = "12.35"},
        LimitRow{.control = "Min", .event = Event::KeyPress, .before = "20000", .after = "2000"},
        LimitRow{.control = "Min",
                 .event = Event::KeyUp,
                 .before = "20000",
                 .after = "2000",
                 .stores = Length},
        LimitRow{.control = "Min", .event = Event::GotFocus, .before = "20000"},
        LimitRow{.control = "Min", .event = Event::LostFocus, .before = "20000"},
        LimitRow{.control = "Min",
                 .event = Event::MouseDown,
                 .before = "20000",
                 .after = "2000",
                 .stores = Length},
        LimitRow{.control = "Min", .event = Event::MouseUp, .before = "20000", .after = "2000"},
        LimitRow{
            .control = "Frames", .event = Event::KeyPress, .before = "4000000", .after = "400000"},
        LimitRow{.control = "Frames",
                 .event = Event::KeyUp,
                 .before = "4000000",
                 .after = "400000",
                 .stores = Length},
        LimitRow{.control = "Frames", .event = Event::GotFocus, .before = "4000000"},
        LimitRow{.control = "Frames", .event = Event::LostFocus, .before = "4000000"},
        LimitRow{.control = "Frames",
                 .event = Event::MouseDown,
                 .before = "4000000",
                 .after = "400000",
                 .stores = Length},
        LimitRow{
            .control = "Frames", .event = Event::MouseUp, .before = "4000000", .after = "400000"}),
    RowName);

INSTANTIATE_TEST_SUITE_P(
    SizeFields, QuickLimits,
    ::testing::Values(LimitRow{.control = "B",
                               .event = Event::KeyPress,
                               .before = "2e20",
                               .after = "20000000000000000000",
                               .stores = Quick},
                      LimitRow{.control = "B",
                               .event = Event::KeyUp,
                               .before = "2e20",
                               .after = "20000000000000000000",
                               .stores = Quick},
                      LimitRow{.control = "B", .event = Event::GotFocus, .before = "2e20"},
                      LimitRow{.control = "B", .event = Event::LostFocus, .before = "2e20"},
                      LimitRow{.control = "B",
                               .event = Event::MouseDown,
                               .before = "2e20",
                               .after = "20000000000000000000",
                               .stores = Quick},
                      LimitRow{.control = "B",
                               .event = Event::MouseUp,
                               .before = "2e20",
                               .after = "20000000000000000000",
                               .stores = Quick},
                      LimitRow{.control = "KB",
                               .event = Event::KeyPress,
                               .before = "2e17",
                               .after = "20000000000000000",
                               .stores = Quick},
                      LimitRow{.control = "KB",
                               .event = Event::KeyUp,
                               .before = "2e17",
                               .after = "20000000000000000",
                               .stores = Quick},
                      LimitRow{.control = "KB", .event = Event::GotFocus, .before = "2e17"},
                      LimitRow{.control = "KB", .event = Event::LostFocus, .before = "2e17"},
                      LimitRow{.control = "KB",
                               .event = Event::MouseDown,
                               .before = "2e17",
                               .after = "20000000000000000",
                               .stores = Quick},
                      LimitRow{.control = "KB",
                               .event = Event::MouseUp,
                               .before = "2e17",
                               .after = "20000000000000000",
                               .stores = Quick},
                      LimitRow{.control = "MB",
                               .event = Event::KeyPress,
                               .before = "2e14",
                               .after = "20000000000000",
                               .stores = Quick},
                      LimitRow{.control = "MB",
                               .event = Event::KeyUp,
                               .before = "2e14",
                               .after = "20000000000000",
                               .stores = Quick},
                      LimitRow{.control = "MB", .event = Event::GotFocus, .before = "2e14"},
                      LimitRow{.control = "MB", .event = Event::LostFocus, .before = "2e14"},
                      LimitRow{.control = "MB",
                               .event = Event::MouseDown,
                               .before = "2e14",
                               .after = "20000000000000",
                               .stores = Quick},
                      LimitRow{.control = "MB",
                               .event = Event::MouseUp,
                               .before = "2e14",
                               .after = "20000000000000",
                               .stores = Quick},
                      LimitRow{.control = "GB",
                               .event = Event::KeyPress,
                               .before = "2e11",
                               .after = "20000000000",
                               .stores = Quick},
                      LimitRow{.control = "GB",
                               .event = Event::KeyUp,
                               .before = "2e11",
                               .after = "20000000000",
                               .stores = Quick},
                      LimitRow{.control = "GB", .event = Event::GotFocus, .before = "2e11"},
                      LimitRow{.control = "GB", .event = Event::LostFocus, .before = "2e11"},
                      LimitRow{.control = "GB",
                               .event = Event::MouseDown,
                               .before = "2e11",
                               .after = "20000000000",
                               .stores = Quick},
                      LimitRow{.control = "GB",
                               .event = Event::MouseUp,
                               .before = "2e11",
                               .after = "20000000000",
                               .stores = Quick}),
    RowName);

// Every limit itself is accepted.
struct AcceptedCase {
  std::string name;
  std::string text;
};

class QuickAccepted : public QuickWindow, public ::testing::WithParamInterface<AcceptedCase> {};

TEST_P(QuickAccepted, StandsAsItIs) {
  const auto& [name, text] = GetParam();
  OpenCalculator();
  PasteOver(name, QString::fromStdString(text));
  EXPECT_EQ(Text(name.c_str()), text);
}

INSTANTIATE_TEST_SUITE_P(
    Largest, QuickAccepted,
    ::testing::Values(AcceptedCase{"Time1", "999"}, AcceptedCase{"Time2", "99"},
                      AcceptedCase{"Time3", "99.999"}, AcceptedCase{"Min", "10000"},
                      AcceptedCase{"Frames", "3000000"}, AcceptedCase{"B", "100000000000000000000"},
                      AcceptedCase{"KB", "97656250000000000"}, AcceptedCase{"MB", "95367431640625"},
                      AcceptedCase{"GB", "93132257462"}),
    NameOf);

class QuickOpening : public QuickWindow {};

TEST_F(QuickOpening, ShowsTheBuiltInFigures) {
  OpenCalculator();
  EXPECT_EQ(window->windowTitle(), u"Velbrin's Brindle 2 : Quick Convert"_s);
  EXPECT_EQ(Time(), "1:40:00.00 100 150000");
  EXPECT_EQ(Size(), "1073741824|1048576|1024|1");
  EXPECT_EQ(SelectedSystem(), 0);
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(record.QuickSizeMB, 1024);
}

TEST_F(QuickOpening, BeginsInTheMinutesNotInATimeField) {
  OpenCalculator();
  EXPECT_EQ(QApplication::focusWidget(), FieldNamed("Min"));
  EXPECT_EQ(FieldNamed("Min")->selectedText(), u"100"_s);
}

struct OpeningCase {
  std::string name;
  double minutes = 100;
  std::int16_t system = 0;
  std::string time;
};

class QuickOpeningTimes : public QuickWindow, public ::testing::WithParamInterface<OpeningCase> {};

TEST_P(QuickOpeningTimes, AreShownAndKept) {
  const auto& [name, minutes, system, time] = GetParam();
  record.MovieLength = minutes;
  record.FrameRateSystem = system;
  OpenCalculator();
  EXPECT_EQ(Time(), time);
  EXPECT_EQ(SelectedSystem(), system);
  EXPECT_EQ(record.FrameRateSystem, system);
  EXPECT_EQ(record.MovieLength, minutes);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, QuickOpeningTimes,
    ::testing::Values(
        OpeningCase{"Pal", 100, 0, "1:40:00.00 100 150000"},
        OpeningCase{"Film", 100, 1, "1:40:00.00 100 143856"},
        OpeningCase{"Ntsc", 100, 2, "1:40:00.00 100 179820"},
        OpeningCase{"Fraction", 125.5, 0, "2:5:30.00 125.5 188250"},
        OpeningCase{"NoWholeNumberOfFrames", 90.33333, 0, "1:30:20.00 90.333 135499"},
        OpeningCase{"TwentySecondsOfNtsc", 20.0 / 60, 2, "0:0:20.00 0.333 599"},
        OpeningCase{"NoTime", 0, 0, "0:0:00.00 0 0"},
        OpeningCase{"LessThanAFrame", 0.0001, 0, "0:0:00.01 0 0"},
        OpeningCase{"NegativeTime", -100, 0, "-2:20:00.00 -100 -150000"},
        OpeningCase{"WholePalFramesStay", 29.0 / 25 / 60, 0, "0:0:01.16 0.019 29"},
        OpeningCase{"WholeFilmFramesStay", 29.0 / 23.976 / 60, 1, "0:0:01.21 0.02 29"},
        OpeningCase{"WholeNtscFramesStay", 29.0 / 29.97 / 60, 2, "0:0:00.97 0.016 29"}),
    NameOf);

struct OpeningSizeCase {
  std::string name;
  double megaBytes = 0;
  std::string size;
};

class QuickOpeningSizes : public QuickWindow,
                          public ::testing::WithParamInterface<OpeningSizeCase> {};

TEST_P(QuickOpeningSizes, StandUntidied) {
  const auto& [name, megaBytes, size] = GetParam();
  record.QuickSizeMB = megaBytes;
  OpenCalculator();
  EXPECT_EQ(Size(), size);
  EXPECT_EQ(record.QuickSizeMB, megaBytes);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, QuickOpeningSizes,
    ::testing::Values(OpeningSizeCase{"Zero", 0, "0|0|0|0"},
                      OpeningSizeCase{"Half", 0.5, "524288|512|0.5|0.00048828125"},
                      OpeningSizeCase{"Disc", 650, "681574400|665600|650|0.634765625"},
                      OpeningSizeCase{"Third", 1.0 / 3,
                                      "349525.333333333|341.333333333333|0.333333333333333|"
                                      "0.000325520833333333"},
                      OpeningSizeCase{"Negative", -5, "-5242880|-5120|-5|-0.0048828125"},
                      OpeningSizeCase{"Large", 12345678901.25,
                                      "12945382599557100|12641975194880|12345678901.25|"
                                      "12056327.052002"}),
    NameOf);

class QuickHugeRecord : public QuickWindow, public ::testing::WithParamInterface<double> {};

TEST_P(QuickHugeRecord, ShowsOnlyNumbersAndTakesNewOnes) {
  record.MovieLength = GetParam();
  record.QuickSizeMB = GetParam();
  OpenCalculator();
  EXPECT_TRUE(ShowsOnlyNumbers());
  EXPECT_TRUE(std::isfinite(record.MovieLength));
  for (const auto* name : FieldNames) {
    Click(FieldNamed(name));
    EXPECT_TRUE(ShowsOnlyNumbers()) << name;
  }
  Enter("Min", "90");
  EXPECT_EQ(Time(), "1:30:00.00 90 135000");
  Enter("MB", "1");
  EXPECT_EQ(Size(), "1048576|1024|1|0.0009765625");
}

INSTANTIATE_TEST_SUITE_P(Each, QuickHugeRecord,
                         ::testing::Values(1e17, 1e300, 1.7e308, -1e17, -1.7e308));

// A text typed over a field, and the contents of all fields: first while it is typed, then when the
// field is left. An empty text means deleting.
struct TypedCase {
  std::string name;
  std::string field;
  std::string typed;
  std::string during;
  std::string after;
  double stored = 0;  ///< the running time in the record, in minutes
  std::int16_t system = 0;
};

class QuickTyping : public QuickWindow, public ::testing::WithParamInterface<TypedCase> {};

TEST_P(QuickTyping, ConvertsTheRunningTime) {
  const auto& [name, field, typed, during, after, stored, system] = GetParam();
  record.FrameRateSystem = system;
  OpenCalculator();
  Enter(field, typed);
  EXPECT_EQ(Time(), during);
  EXPECT_NEAR(record.MovieLength, stored, std::abs(stored) * 1e-14);
  const double before = record.MovieLength;
  Leave();
  EXPECT_EQ(Time(), after);
  EXPECT_EQ(record.MovieLength, before);  // leaving a field recomputes nothing
  EXPECT_EQ(record.QuickSizeMB, 1024);
}

INSTANTIATE_TEST_SUITE_P(
    Hours, QuickTyping,
    ::testing::Values(
        TypedCase{"Whole", "Time1", "2", "2:40:0 160 240000", "2:40:0 160 240000", 160},
        TypedCase{"AboveTheLimit", "Time1", "1234", "123.4:40:0 7444 11166000",
                  "123:40:0 7444 11166000", 7444},
        TypedCase{"WithAFraction", "Time1", "1.5", "1.5:40:0 130 195000", "1:40:0 130 195000", 130},
        TypedCase{"OnlyAFraction", "Time1", ".5", "0.5:40:0 70 105000", "0:40:0 70 105000", 70},
        TypedCase{"WithALeadingZero", "Time1", "05", "5:40:0 340 510000", "5:40:0 340 510000", 340},
        TypedCase{"AMinusSign", "Time1", "-", "0:40:0 40 60000", "0:40:0 40 60000", 40},
        TypedCase{"WithLetters", "Time1", "12xyz", "12:40:0 760 1140000", "12:40:0 760 1140000",
                  760},
        TypedCase{"Emptied", "Time1", "", ":40:0 40 60000", "0:40:0 40 60000", 40}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Minutes, QuickTyping,
    ::testing::Values(
        TypedCase{"SixtyStays", "Time2", "60", "1:60:0 120 180000", "1:60:0 120 180000", 120},
        TypedCase{"SixtyOneIsCarried", "Time2", "61", "1:61:0 121 181500", "2:1:0 121 181500", 121},
        TypedCase{"AboveTheLimit", "Time2", "250", "1:25:0 85 127500", "1:25:0 85 127500", 85},
        TypedCase{"EndingInAPeriod", "Time2", "1.", "1:1.:0 61 91500", "1:1:0 61 91500", 61},
        TypedCase{"WithAZeroInTheFraction", "Time2", "10.05", "1:10.05:0 70.05 105075",
                  "1:10:0 70.05 105075", 70.05},
        TypedCase{"Emptied", "Time2", "", "1::0 60 90000", "1:0:0 60 90000", 60}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Seconds, QuickTyping,
    ::testing::Values(
        TypedCase{"WithAZeroInTheFraction", "Time3", "10.05", "1:40:10.05 100.168 150251",
                  "1:40:10.05 100.168 150251", 100 + 10.05 / 60},
        TypedCase{"EndingInAPeriod", "Time3", "10.", "1:40:10. 100.167 150250",
                  "1:40:10.00 100.167 150250", 150250.0 / 1500},
        TypedCase{"EndingInAZero", "Time3", "10.0", "1:40:10.0 100.167 150250",
                  "1:40:10.00 100.167 150250", 150250.0 / 1500},
        TypedCase{"OnlyAFraction", "Time3", ".5", "1:40:.5 100.008 150012",
                  "1:40:00.50 100.008 150012", 100 + 0.5 / 60},
        TypedCase{"AMinusSign", "Time3", "-", "1:40:- 100 150000", "1:40:00.00 100 150000", 100},
        TypedCase{"APeriod", "Time3", ".", "1:40:. 100 150000", "1:40:00.00 100 150000", 100},
        TypedCase{"Negative", "Time3", "-5", "1:40:5 100.083 150125", "1:40:05.00 100.083 150125",
                  150125.0 / 1500},
        TypedCase{"WithLetters", "Time3", "12xyz", "1:40:12 100.2 150300",
                  "1:40:12.00 100.2 150300", 100.2},
        TypedCase{"AboveTheLimit", "Time3", "123.5", "1:40:12.35 100.206 150308",
                  "1:40:12.35 100.206 150308", 100 + 12.35 / 60},
        TypedCase{"JustAboveTheLimit", "Time3", "99.9995", "1:40:9.99995 100.167 150249",
                  "1:40:10.00 100.167 150249", 100 + 9.99995 / 60},
        TypedCase{"SixtyStays", "Time3", "60", "1:40:60 101 151500", "1:40:60.00 101 151500", 101},
        TypedCase{"AreRoundedAndCarried", "Time3", "75.5", "1:40:75.5 101.258 151887",
                  "1:41:16.00 101.258 151887", 100 + 75.5 / 60},
        TypedCase{"Emptied", "Time3", "", "1:40: 100 150000", "1:40:00.00 100 150000", 100}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    RunningTime, QuickTyping,
    ::testing::Values(
        TypedCase{"WithAFraction", "Min", "83.417", "1:23:25.02 83.417 125125",
                  "1:23:25.02 83.417 125125", 83.417},
        TypedCase{"EndingInAZero", "Min", "90.50", "1:30:30.00 90.50 135750", "1:30:30 90.5 135750",
                  90.5},
        TypedCase{"OfLessThanAMinute", "Min", "0.4", "0:0:24.00 0.4 600", "0:0:24 0.4 600", 0.4},
        TypedCase{"WithFourDecimals", "Min", "90.0004", "1:30:00.02 90.0004 135000",
                  "1:30:0.02 90 135000", 90.0004},
        TypedCase{"Zero", "Min", "0", "0:0:00.00 0 0", "0:0:0 0 0", 0},
        TypedCase{"APeriod", "Min", ".", "0:0:00.00 . 0", "0:0:0 0 0", 0},
        TypedCase{"AMinusSign", "Min", "-", "0:0:00.00 - 0", "0:0:0 0 0", 0},
        TypedCase{"Negative", "Min", "-90", "1:30:00.00 90 135000", "1:30:0 90 135000", 90},
        TypedCase{"WithLetters", "Min", "12xyz", "0:12:00.00 12 18000", "0:12:0 12 18000", 12},
        TypedCase{"AtTheLimit", "Min", "10000", "166:40:00.00 10000 15000000",
                  "166:40:0 10000 15000000", 10000},
        TypedCase{"AboveTheLimit", "Min", "10001", "16:40:06.00 1000.1 1500150",
                  "16:40:6 1000.1 1500150", 1000.1},
        TypedCase{"OfFilm", "Min", "100", "1:40:00.00 100 143856", "1:40:0 100 143856", 100, 1},
        TypedCase{"Emptied", "Min", "", "0:0:00.00  0", "0:0:0 0 0", 0}),
    NameOf);

// The time is shown in hundredths of a second, but it counts as exactly that of the frames.
INSTANTIATE_TEST_SUITE_P(
    Frames, QuickTyping,
    ::testing::Values(TypedCase{"OfNtsc", "Frames", "150000", "1:23:25.01 83.417 150000",
                                "1:23:25.01 83.417 150000", 150000 / 29.97 / 60, 2},
                      TypedCase{"OneOfFilm", "Frames", "1", "0:0:00.04 0.001 1", "0:0:0.04 0.001 1",
                                1 / 23.976 / 60, 1},
                      TypedCase{"AtTheLimit", "Frames", "3000000", "33:20:00.00 2000 3000000",
                                "33:20:0 2000 3000000", 2000},
                      TypedCase{"AboveTheLimit", "Frames", "3000001", "3:20:00.00 200 300000.1",
                                "3:20:0 200 300000.1", 300000.1 / 1500},
                      TypedCase{"WithLetters", "Frames", "12xyz", "0:0:00.48 0.008 12",
                                "0:0:0.48 0.008 12", 0.008},
                      TypedCase{"Negative", "Frames", "-20", "0:0:00.80 0.013 20",
                                "0:0:0.8 0.013 20", 0.8 / 60},
                      TypedCase{"EndingInAZero", "Frames", "20.0", "0:0:00.80 0.013 20.0",
                                "0:0:0.8 0.013 20.0", 0.8 / 60},
                      TypedCase{"AMinusSign", "Frames", "-", "0:0:00.00 0 -", "0:0:0 0 0", 0},
                      TypedCase{"Emptied", "Frames", "", "0:0:00.00 0 ", "0:0:0 0 0", 0}),
    NameOf);

struct PasteCase {
  std::string name;
  std::string field;
  QString pasted;
  std::string shown;
};

class QuickPasting : public QuickWindow, public ::testing::WithParamInterface<PasteCase> {};

TEST_P(QuickPasting, RepairsTheTextOfTheField) {
  const auto& [name, field, pasted, shown] = GetParam();
  OpenCalculator();
  PasteOver(field, pasted);
  EXPECT_EQ(Text(field.c_str()), shown);
  EXPECT_TRUE(ShowsOnlyNumbers());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, QuickPasting,
    ::testing::Values(PasteCase{"Words", "Time1", u"abc"_s, "0"},
                      PasteCase{"OutOfRange", "Time1", u"1e999"_s, "0"},
                      PasteCase{"Huge", "Time1", u"3e300"_s, "300"},
                      PasteCase{"FourHundredDigits", "Time1", QString(500, u'9'), "0"},
                      PasteCase{"BlanksAreRewritten", "Time1", u" 7 "_s, "7"},
                      PasteCase{"NegativeHours", "Time1", u"-7"_s, "7"},
                      PasteCase{"NotANumber", "Time2", u"nan"_s, "0"},
                      PasteCase{"WithADecimalComma", "Time2", u"1,5"_s, "1"},
                      PasteCase{"NegativeMinutesOfText", "Time2", u"-12.5 min"_s, "12.5"},
                      PasteCase{"BlanksStay", "Time3", u" 7 "_s, " 7 "},
                      PasteCase{"SignStays", "Time3", u"+5"_s, "+5"},
                      PasteCase{"AnotherScript", "Time3", u"\u0663"_s, "0"},
                      PasteCase{"NegativeSeconds", "Time3", u"-7.50"_s, "7.5"},
                      PasteCase{"OnlyABlank", "Min", u" "_s, "0"},
                      PasteCase{"LeadingZerosStay", "Min", u"00100"_s, "00100"},
                      PasteCase{"TwoPeriods", "Min", u"1.2.3"_s, "1.2"},
                      PasteCase{"Infinity", "Min", u"inf"_s, "0"},
                      PasteCase{"AnExponentStays", "Frames", u"1e5"_s, "1e5"},
                      PasteCase{"AnUnfinishedExponent", "Frames", u"12e"_s, "12"},
                      PasteCase{"HugeFrames", "Frames", u"2e300"_s, "2000000"},
                      PasteCase{"HugeBytes", "B", u"2e300"_s, "20000000000000000000"},
                      PasteCase{"LettersBehindKilobytes", "KB", u"12xyz"_s, "12"},
                      PasteCase{"NegativeTextOfMegabytes", "MB", u"-5 MB"_s, "5"},
                      PasteCase{"NegativeMegabytesStay", "MB", u"-5"_s, "-5"},
                      PasteCase{"OutOfRangeGigabytes", "GB", u"1e999"_s, "0"}),
    NameOf);

// Hours, minutes and seconds before and after any field is left.
struct CarryCase {
  std::string name;
  std::array<std::string, 3> before;
  std::string after;
};

class QuickNormalizing : public QuickWindow, public ::testing::WithParamInterface<CarryCase> {};

TEST_P(QuickNormalizing, CarriesWhatIsAboveSixty) {
  const auto& [name, before, after] = GetParam();
  OpenCalculator();
  for (std::size_t i = 0; i < before.size(); ++i) {
    FieldNamed(TimeNames.at(i))->setText(QString::fromStdString(before.at(i)));
  }
  Forget();
  Leave();
  EXPECT_EQ(Text("Time1") + ":" + Text("Time2") + ":" + Text("Time3"), after);
  EXPECT_EQ(Stored(), Names());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, QuickNormalizing,
    ::testing::Values(
        CarryCase{"SixtyMinutesStay", {"1", "60", "0"}, "1:60:0"},
        CarryCase{"SixtyOneMinutes", {"1", "61", "0"}, "2:1:0"},
        CarryCase{"FractionOfAMinuteFallsBeforeTheCarry", {"1", "60.9", "0"}, "1:60:0"},
        CarryCase{"ManyMinutes", {"1", "250", "0"}, "5:10:0"},
        CarryCase{"SixtySecondsStay", {"1", "40", "60"}, "1:40:60"},
        CarryCase{"JustAboveSixtySeconds", {"1", "40", "60.4"}, "1:41:0"},
        CarryCase{"SixtyOneSeconds", {"1", "40", "61"}, "1:41:1"},
        CarryCase{"HalfASecondRoundsUpToEven", {"1", "40", "75.5"}, "1:41:16"},
        CarryCase{"HalfASecondRoundsDownToEven", {"1", "40", "74.5"}, "1:41:14"},
        CarryCase{"SecondsMakeSixtyMinutes", {"1", "59", "75"}, "1:60:15"},
        CarryCase{"SecondsMakeSixtyOneMinutes", {"1", "60", "75"}, "2:1:15"},
        CarryCase{"MinutesAreCarriedBeforeTheSeconds", {"0", "121", "130"}, "2:3:10"},
        CarryCase{"HoursAreNotLimited", {"999", "61", "0"}, "1000:1:0"},
        CarryCase{"FractionsOfHoursAndMinutesFall", {"1.9", "2.9", "3.9"}, "1:2:3.9"},
        CarryCase{"NegativesAreFloored", {"-1.5", "-0.5", "-0.5"}, "-2:-1:-0.5"},
        CarryCase{"LettersFall", {"12xyz", "7 min", "3.5s"}, "12:7:3.5"},
        CarryCase{"Rubbish", {"abc", "-", "-"}, "0:0:0"},
        CarryCase{"TrailingZerosFall", {"01", "40", "010.50"}, "1:40:10.5"},
        CarryCase{"TrailingPeriodStays", {"1", "40", "10."}, "1:40:10."},
        CarryCase{"TrailingPeriodDoesNotKeepFromTheCarry", {"1", "40", "75."}, "1:41:15"},
        CarryCase{"BlanksAreFilled", {"", "", ""}, "0:0:0"},
        CarryCase{"BlankHoursTakeTheCarry", {"", "61", ""}, "1:1:0"},
        CarryCase{"BlankMinutesTakeTheCarry", {"", "", "61"}, "0:1:1"}),
    NameOf);

class QuickTimes : public QuickWindow {
 protected:
  void SetUp() override { OpenCalculator(); }
};

TEST_F(QuickTimes, AreNormalizedBeforeAMousePressRecomputes) {
  auto* minutes = FieldNamed("Time2");
  minutes->setFocus();
  minutes->setText(u"61"_s);
  Press(minutes);
  EXPECT_EQ(Time(), "2:1:0 121 181500");
  EXPECT_EQ(record.MovieLength, 121);
}

TEST_F(QuickTimes, AreNormalizedBeforeAMousePressDropsDigits) {
  auto* hours = FieldNamed("Time1");
  hours->setFocus();
  hours->setText(u"1234.9"_s);
  Press(hours);
  EXPECT_EQ(Text("Time1"), "123.4");  // 123 the other way round
}

TEST_F(QuickTimes, AreNotNormalizedWhenAKeyIsLetGo) {
  for (const auto* name : {"Time1", "Time2", "Time3", "Min", "Frames"}) {
    auto* field = FieldNamed(name);
    field->setFocus();
    FieldNamed("B")->setText({});
    KeyLetGo(Qt::Key_Home);
    EXPECT_EQ(Text("B"), "") << name;
  }
}

TEST_F(QuickTimes, AreRecomputedFromSecondsOnlyByAKey) {
  auto* seconds = FieldNamed("Time3");
  seconds->setFocus();
  seconds->setText(u"30"_s);
  Press(seconds);
  LetGo(seconds);
  EXPECT_EQ(Time(), "1:40:30 100 150000");
  EXPECT_EQ(record.MovieLength, 100);
  KeyLetGo(Qt::Key_Home);
  EXPECT_EQ(Time(), "1:40:30 100.5 150750");
  EXPECT_EQ(record.MovieLength, 100.5);
}

TEST_F(QuickTimes, ShowThePlainSecondsToWhoeverComesToThem) {
  FieldNamed("Time3")->setText(u"07.50"_s);
  Key(Qt::Key_Tab, Qt::ShiftModifier);
  ASSERT_EQ(QApplication::focusWidget(), FieldNamed("Time3"));
  EXPECT_EQ(Text("Time3"), "7.5");
  EXPECT_EQ(FieldNamed("Time3")->selectedText(), u"7.5"_s);
}

TEST_F(QuickTimes, SecondsBeingTypedKeepTheirZerosAtAPressOfTheMouse) {
  auto* seconds = FieldNamed("Time3");
  seconds->setFocus();
  TypeOver(u"10.0"_s);
  Click(seconds);
  EXPECT_EQ(Text("Time3"), "10.0");
  Key(Qt::Key_End);
  Type(u"5"_s);
  EXPECT_EQ(Text("Time3"), "10.05");
}

TEST_F(QuickTimes, FollowEveryKeyInTheMinutes) {
  Type(u"9"_s);  // over the selected minutes
  EXPECT_EQ(Time(), "0:9:00.00 9 13500");
  EXPECT_EQ(record.MovieLength, 9);
  Type(u"0"_s);
  EXPECT_EQ(Time(), "1:30:00.00 90 135000");
  EXPECT_EQ(record.MovieLength, 90);
}

TEST_F(QuickTimes, StayWhereAnotherFrameRateIsChosen) {
  Click(Systems[1]);
  EXPECT_EQ(record.FrameRateSystem, 1);
  EXPECT_EQ(Time(), "1:40:0 100 143856");
  EXPECT_EQ(record.MovieLength, 100);
  Click(Systems[2]);
  EXPECT_EQ(record.FrameRateSystem, 2);
  EXPECT_EQ(Time(), "1:40:0 100 179820");
  EXPECT_EQ(record.MovieLength, 100);
  Click(Systems[0]);
  EXPECT_EQ(record.FrameRateSystem, 0);
  EXPECT_EQ(Time(), "1:40:0 100 150000");
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(Size(), "1073741824|1048576|1024|1");
  EXPECT_EQ(record.QuickSizeMB, 1024);
}

TEST_F(QuickTimes, StayWhenAnotherRateCountsTheirFrames) {
  record.MovieLength = 100.0006;
  Click(Systems[2]);
  EXPECT_EQ(Text("Frames"), "179821");  // 179821.07892
  EXPECT_EQ(record.MovieLength, 100.0006);
  EXPECT_EQ(Text("Min"), "100");
}

TEST_F(QuickTimes, ConvertBackAtTheChosenRate) {
  Click(Systems[2]);
  Enter("Frames", "179820");
  EXPECT_EQ(Time(), "1:40:00.00 100 179820");
  Enter("Min", "1");
  EXPECT_EQ(Time(), "0:1:00.00 1 1798");
}

// A frame-rate system that does not exist.
class QuickUnknownSystem : public QuickWindow, public ::testing::WithParamInterface<std::int16_t> {
 protected:
  void SetUp() override {
    record.FrameRateSystem = GetParam();
    OpenCalculator();
  }
};

TEST_P(QuickUnknownSystem, SelectsNothingAndKeepsTheRunningTime) {
  EXPECT_EQ(SelectedSystem(), -1);
  EXPECT_EQ(record.FrameRateSystem, GetParam());
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(Time(), ":: 100 0");  // no rate, no time of the frames
  EXPECT_EQ(Size(), "1073741824|1048576|1024|1");
}

TEST_P(QuickUnknownSystem, StillConvertsTimeAndMinutes) {
  Enter("Min", "90");
  EXPECT_EQ(record.MovieLength, 90);
  EXPECT_EQ(Text("Time1") + ":" + Text("Time2") + ":" + Text("Time3"), "1:30:00.00");
  Enter("Time1", "2");
  EXPECT_EQ(record.MovieLength, 150);
  EXPECT_EQ(Text("Min"), "150");
  EXPECT_TRUE(ShowsOnlyNumbers());
  EXPECT_EQ(record.FrameRateSystem, GetParam());
}

TEST_P(QuickUnknownSystem, KeepsTheRunningTimeWhereFramesArePressedOrTyped) {
  Press(FieldNamed("Frames"));
  LetGo(FieldNamed("Frames"));
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_TRUE(ShowsOnlyNumbers());
  Enter("Frames", "5");
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_TRUE(ShowsOnlyNumbers());
}

TEST_P(QuickUnknownSystem, ConvertsTheKeptTimeOnceASystemIsChosen) {
  Click(Systems[0]);
  EXPECT_EQ(SelectedSystem(), 0);
  EXPECT_EQ(record.FrameRateSystem, 0);
  EXPECT_EQ(Text("Frames"), "150000");
  EXPECT_EQ(record.MovieLength, 100);
}

INSTANTIATE_TEST_SUITE_P(Each, QuickUnknownSystem, ::testing::Values<std::int16_t>(7, -1, 32767));

// A text typed over one of the size fields, and the contents of all four: first while it is typed,
// then when the field is left.
struct SizeCase {
  std::string name;
  std::string field;
  std::string typed;
  std::string during;
  double stored = 0;
  std::string after;
};

class QuickSizes : public QuickWindow, public ::testing::WithParamInterface<SizeCase> {};

TEST_P(QuickSizes, FollowTheOneThatIsTyped) {
  const auto& [name, field, typed, during, stored, after] = GetParam();
  OpenCalculator();
  Enter(field, typed);
  EXPECT_EQ(Size(), during);
  EXPECT_EQ(record.QuickSizeMB, stored);
  Leave();
  EXPECT_EQ(Size(), after.empty() ? during : after);
  EXPECT_EQ(record.QuickSizeMB, stored);
  EXPECT_EQ(record.MovieLength, 100);
}

constexpr auto OneMegabyte = "1048576|1024|1|0.0009765625";

INSTANTIATE_TEST_SUITE_P(
    Ordinary, QuickSizes,
    ::testing::Values(SizeCase{"Bytes", "B", "1048576", OneMegabyte, 1},
                      SizeCase{"Kilobytes", "KB", "1024", OneMegabyte, 1},
                      SizeCase{"Megabytes", "MB", "1", OneMegabyte, 1},
                      SizeCase{"Gigabytes", "GB", "1", "1073741824|1048576|1024|1", 1024},
                      SizeCase{"Fraction", "KB", "0.7",
                               "716.8|0.7|0.00068359375|0.000000667572021484375", 0.00068359375},
                      SizeCase{"TypedFieldIsNotTidied", "MB", "2.0", "2097152|2048|2.0|0.001953125",
                               2},
                      SizeCase{"LettersFall", "KB", "12xyz",
                               "12288|12|0.01171875|0.000011444091796875", 0.01171875},
                      SizeCase{"NegativeStays", "MB", "-5", "-5242880|-5120|-5|-0.0048828125", -5}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    OfNothing, QuickSizes,
    ::testing::Values(SizeCase{"ZeroBytes", "B", "0", "0|||", 0, "0|0|0|0"},
                      SizeCase{"ZeroKilobytes", "KB", "0", "0|0||", 0, "0|0|0|0"},
                      SizeCase{"ZeroMegabytes", "MB", "0", "0||0|", 0, "0|0|0|0"},
                      SizeCase{"ZeroGigabytes", "GB", "0", "0|||0", 0, "0|0|0|0"},
                      SizeCase{"APeriod", "GB", ".", "0|||.", 0, "0|0|0|0"},
                      SizeCase{"AMinusSign", "B", "-", "-|||", 0, "0|0|0|0"},
                      SizeCase{"ClearedBytes", "B", "", "|0|0|0", 0, "0|0|0|0"},
                      SizeCase{"ClearedKilobytes", "KB", "", "0||0|0", 0, "0|0|0|0"},
                      SizeCase{"ClearedMegabytes", "MB", "", "0|0||0", 0, "0|0|0|0"},
                      SizeCase{"ClearedGigabytes", "GB", "", "0|0|0|", 0, "0|0|0|0"}),
    NameOf);

// The stored megabytes keep the decimals that tidying removes from the field.
INSTANTIATE_TEST_SUITE_P(
    Large, QuickSizes,
    ::testing::Values(
        SizeCase{"StoredBeforeTheTidying", "B", "12945382717499999",
                 "12945382717499999|12641975310058.6|12345679013.7|12056327.1618448",
                 12945382717499999.0 / 1024 / 1024},
        SizeCase{"AboveTheLimitOfBytes", "B", "200000000000000000000",
                 "20000000000000000000|19531250000000000|19073486328125|18626451492.3",
                 19073486328125},
        SizeCase{"AtTheLimitOfBytes", "B", "100000000000000000000",
                 "100000000000000000000|97656250000000000|95367431640625|93132257461.5",
                 95367431640625},
        SizeCase{"AtTheLimitOfGigabytes", "GB", "93132257462",
                 "100000000000485000000|97656250000474100|95367431641088|93132257462",
                 95367431641088},
        SizeCase{"AboveTheLimitOfGigabytes", "GB", "93132257463",
                 "10000000000155900000|9765625000152270|9536743164211.2|9313225746.3",
                 9536743164211.2}),
    NameOf);

class QuickSizeFields : public QuickWindow {
 protected:
  void SetUp() override { OpenCalculator(); }
};

TEST_F(QuickSizeFields, BecomeZeroTogetherWhereOneIsEmptyWhenAnyFieldIsLeft) {
  for (const auto* name : SizeNames) {
    Enter("MB", "1024");
    FieldNamed("Min")->setFocus();
    FieldNamed(name)->setText({});
    Leave();
    EXPECT_EQ(Size(), "0|0|0|0") << name;
    EXPECT_EQ(record.QuickSizeMB, 1024) << name;
  }
}

TEST_F(QuickSizeFields, StayWhereNoneIsEmptyWhenAFieldIsLeft) {
  FieldNamed("KB")->setText(u"12345678901.25"_s);
  Leave();
  EXPECT_EQ(Size(), "1073741824|12345678901.25|1024|1");
}

TEST_F(QuickSizeFields, ConvertWhereTheMouseIsPressedAndLetGo) {
  auto* field = FieldNamed("KB");
  field->setFocus();
  field->setText(u"1024"_s);
  Press(field);
  EXPECT_EQ(Size(), OneMegabyte);
  EXPECT_EQ(record.QuickSizeMB, 1);
  field->setText(u"2048"_s);
  LetGo(field);
  EXPECT_EQ(Size(), "2097152|2048|2|0.001953125");
  EXPECT_EQ(record.QuickSizeMB, 2);
}

TEST_F(QuickSizeFields, ConvertBeforeAndAfterTheFieldTakesAKey) {
  auto* field = FieldNamed("MB");
  field->setFocus();
  field->setText(u"1"_s);
  KeyDown(Qt::Key_0, u"0"_s);
  EXPECT_EQ(Size(), "1048576|1024|10|0.0009765625");
  KeyLetGo(Qt::Key_0, u"0"_s);
  EXPECT_EQ(Size(), "10485760|10240|10|0.009765625");
}

TEST_F(QuickSizeFields, KeepTheTimeFieldsAtEveryKey) {
  FieldNamed("MB")->setFocus();
  FieldNamed("Time2")->setText(u"61"_s);
  Type(u"5"_s);
  EXPECT_EQ(Text("Time2"), "61");
  Press(FieldNamed("MB"));
  EXPECT_EQ(Text("Time2"), "1");
}

class QuickFocus : public QuickWindow {
 protected:
  void SetUp() override { OpenCalculator(); }
};

TEST_F(QuickFocus, SelectsTheWholeTextHoweverLong) {
  for (const auto* name : FieldNames) {
    Leave();
    auto* field = FieldNamed(name);
    field->setText(u"1234567890.12345"_s);
    field->setFocus();
    EXPECT_EQ(field->selectedText(), u"1234567890.12345"_s) << name;
  }
}

TEST_F(QuickFocus, KeepsTheSelectionInTheClickThatBringsIt) {
  for (const auto* name : FieldNames) {
    Leave();
    auto* field = FieldNamed(name);
    Click(field);
    EXPECT_FALSE(field->text().isEmpty()) << name;
    EXPECT_EQ(field->selectedText(), field->text()) << name;
  }
}

class QuickClosing : public QuickWindow {};

TEST_F(QuickClosing, IsWhatEscapeDoesInEveryField) {
  for (const auto* name : FieldNames) {
    OpenCalculator();
    FieldNamed(name)->setFocus();
    Key(Qt::Key_Escape);
    EXPECT_TRUE(window == nullptr || !window->isVisible()) << name;
  }
}

TEST_F(QuickClosing, KeepsWhatWasTyped) {
  OpenCalculator();
  Click(Systems[1]);
  Enter("Min", "90");
  Enter("MB", "650");
  Key(Qt::Key_Escape);
  OpenCalculator();
  EXPECT_EQ(SelectedSystem(), 1);
  EXPECT_EQ(Time(), "1:30:00.00 90 129470");
  EXPECT_EQ(Size(), "681574400|665600|650|0.634765625");
}

// --- Laws of what was typed ---------------------------------------------------------------------

class QuickLaws : public QuickWindow, public ::testing::WithParamInterface<std::int16_t> {
 protected:
  void SetUp() override {
    record.FrameRateSystem = GetParam();
    OpenCalculator();
  }
  void Reopen() {
    Key(Qt::Key_Escape);
    OpenCalculator();
  }
};

// Every 1999th count up to 200,000, and those around the ends. RunningTimeFields has all of them,
// without a window.
TEST_P(QuickLaws, FramesTypedSurviveAClickInEachOtherFieldClosingAndOpening) {
  std::vector<int> counts{1, 2, 1999, 2000, 199999, 200000};
  for (int frames = 17; frames <= 200000; frames += 1999) {
    counts.push_back(frames);
  }
  for (const int frames : counts) {
    const auto typed = std::to_string(frames);
    Enter("Frames", typed);
    const double minutes = record.MovieLength;
    ASSERT_EQ(minutes, frames / FramesPerSecond(GetParam()) / 60);
    for (const auto* name : {"Time1", "Time2", "Time3", "Min", "B", "Frames"}) {
      Click(FieldNamed(name));
      ASSERT_EQ(Text("Frames"), typed) << "after a click in " << name;
      ASSERT_EQ(record.MovieLength, minutes) << frames << " after a click in " << name;
    }
    Reopen();
    ASSERT_EQ(Text("Frames"), typed) << "opened again";
    ASSERT_EQ(record.MovieLength, minutes) << frames << " opened again";
  }
}

TEST_P(QuickLaws, SecondsTypedSurviveAClickInEachOtherFieldClosingAndOpening) {
  Enter("Time1", "0");
  Enter("Time2", "0");
  for (int second = 1; second < 60; ++second) {
    Enter("Time3", std::to_string(second));
    ASSERT_EQ(record.MovieLength, second / 60.0);
    for (const auto* name : {"Time1", "Time2", "Min", "Frames", "Time3"}) {
      Click(FieldNamed(name));
      ASSERT_EQ(record.MovieLength, second / 60.0) << second << " after a click in " << name;
    }
    Reopen();
    ASSERT_EQ(NumberOf(Text("Time3")), second);
    ASSERT_EQ(record.MovieLength, second / 60.0);
  }
}

TEST_P(QuickLaws, BytesTypedSurviveAClickInEachOtherField) {
  for (const auto* bytes : {"1", "1023", "123456789", "1234567890123456", "99999999999999999"}) {
    Enter("B", bytes);
    const auto megaBytes = record.QuickSizeMB;
    const auto shown = NumberOf(Text("B"));
    for (const auto* name : {"KB", "MB", "GB", "KB"}) {
      Click(FieldNamed(name));
      ASSERT_EQ(Text("B"), TextOf(shown)) << "after a click in " << name;
      ASSERT_EQ(record.QuickSizeMB, megaBytes) << bytes << " after a click in " << name;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(EachSystem, QuickLaws, ::testing::Values(0, 1, 2));

}  // namespace
}  // namespace brindle
