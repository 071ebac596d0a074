// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <tuple>

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/text_field.h"
#include "base/numbers/numeric_text.h"
#include "base/settings/settings.h"
#include "base/windows/window_list.h"
#include "tests/support/calculator_window.h"
#include "tests/support/handler_table.h"
#include "tests/support/named_case.h"
#include "tests/support/user.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// Every video frame of the three systems, by hand: 24 x frames per second / 1024.
constexpr double FramesAt25 = 0.5859375;
constexpr double FramesAt23 = 24 * 23.976 / 1024;
constexpr double FramesAt29 = 24 * 29.97 / 1024;
// Audio after every video frame, or every 400 ms: the contents of the fields at creation.
constexpr double EveryFrameAt25 = 0.5859375;
constexpr double EveryFrameAt23 = 23.4375 / (1 * (1000 / 23.976));
constexpr double EveryFrameAt29 = 23.4375 / (1 * (1000 / 29.97));
constexpr double Every400Ms = 0.05859375;

constexpr std::array FieldNames{"Itime", "Iframe1", "Iframe2", "Iframe3"};

/// All values of the record that the window may write.
struct WhatIsStored {
  double video = 0;
  double audio = 0;
  int option = 0;
  int system = 0;
  int videoOn = 0;
  int audioOn = 0;
  double time = 0;
  double frames1 = 0;
  double frames2 = 0;
  double frames3 = 0;

  bool operator==(const WhatIsStored&) const = default;
};

void PrintTo(const WhatIsStored& stored, std::ostream* out) {
  *out << "video " << stored.video << ", audio " << stored.audio << ", option " << stored.option
       << ", system " << stored.system << ", on " << stored.videoOn << ' ' << stored.audioOn
       << ", intervals " << stored.time << ' ' << stored.frames1 << ' ' << stored.frames2 << ' '
       << stored.frames3;
}

class AdvancedTest : public RecordingWindow {
 protected:
  AdvancedTest() : RecordingWindow(WindowId::Advanced, {}) {}

  /// Stores intervals that differ from each other and from the contents of the fields at creation.
  void SetIntervals() {
    record.InterleaveTime = 500;
    record.InterleaveFrames1 = 2;
    record.InterleaveFrames2 = 3;
    record.InterleaveFrames3 = 4;
  }
  void SetBoxes(std::int16_t video, std::int16_t audio) {
    record.VideoOverheadOn = video;
    record.AudioOverheadOn = audio;
  }
  /// Sets the record so that the window opens with this option.
  void SetOption(int option) {
    record.InterleaveOption = static_cast<std::int16_t>(option);
    record.FrameRateSystem = static_cast<std::int16_t>(option == 1 ? 0 : option - 2);
  }

  /// Makes the next recomputation visible.
  void ArmRecomputation() {
    record.VideoFrameOverhead = 50;
    record.AudioInterleaveOverhead = 60;
  }

  [[nodiscard]] WhatIsStored Now() const {
    return {.video = record.VideoFrameOverhead,
            .audio = record.AudioInterleaveOverhead,
            .option = record.InterleaveOption,
            .system = record.FrameRateSystem,
            .videoOn = record.VideoOverheadOn,
            .audioOn = record.AudioOverheadOn,
            .time = record.InterleaveTime,
            .frames1 = record.InterleaveFrames1,
            .frames2 = record.InterleaveFrames2,
            .frames3 = record.InterleaveFrames3};
  }

  static QString OptionName(int option) { return u"InterlOpt(%1)"_s.arg(option); }
  static QString FieldName(int option) {
    return QString::fromLatin1(FieldNames.at(static_cast<std::size_t>(option - 1)));
  }
  [[nodiscard]] TextField* FieldOf(int option) const { return Field(FieldName(option)); }

  /// Types over the contents of the field; pastes, so that any text is possible.
  void Enter(int option, const QString& text) const {
    FieldOf(option)->setFocus();
    FieldOf(option)->selectAll();
    Paste(text);
    if (text.isEmpty()) {
      Key(Qt::Key_Delete);
    }
    ASSERT_EQ(FieldOf(option)->text(), text);
  }

  static void RunDeletions() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  void ClickOk() {
    Click(Find(window, u"Command1"_s));
    EXPECT_TRUE(window == nullptr || !window->isVisible());
    RunDeletions();
    EXPECT_EQ(window, nullptr);
  }

  /// The selected option, 0 if there is none.
  [[nodiscard]] int Selected() const {
    int selected = 0;
    for (int option = 1; option <= 4; ++option) {
      if (IsChecked(OptionName(option))) {
        EXPECT_EQ(selected, 0) << "two are selected";
        selected = option;
      }
    }
    return selected;
  }

  /// The enabled options, then the enabled fields: "1234 Iframe1".
  [[nodiscard]] std::string Enabled() const {
    std::string enabled;
    for (int option = 1; option <= 4; ++option) {
      if (IsEnabled(OptionName(option))) {
        enabled += std::to_string(option);
      }
    }
    for (const auto* field : FieldNames) {
      if (IsEnabled(QString::fromLatin1(field))) {
        enabled += std::string(" ") + field;
      }
    }
    return enabled;
  }

  /// The window of this name, shown or not; null if there is none.
  static QWidget* Existing(const QString& name) {
    RunDeletions();
    for (auto* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == name) {
        return widget;
      }
    }
    return nullptr;
  }

  static std::string TextIn(const QWidget* opener, const QString& name) {
    auto* control = Find(opener, name);
    if (auto* field = qobject_cast<QLineEdit*>(control)) {
      return field->text().toStdString();
    }
    return qobject_cast<QLabel*>(control)->text().toStdString();
  }
  static std::string ResultOf(const QWidget* opener) { return TextIn(opener, u"Result"_s); }
  static std::string InterlOf(const QWidget* opener) { return TextIn(opener, u"Interl"_s); }
};

TEST_F(AdvancedTest, OpensWithTheBuiltInSettings) {
  OpenCalculator();
  EXPECT_EQ(window->windowTitle(), u"Advanced"_s);
  EXPECT_TRUE(IsChecked(u"VOver"_s));
  EXPECT_TRUE(IsChecked(u"AOver"_s));
  EXPECT_EQ(Selected(), 2);
  EXPECT_EQ(Text("Itime"), "400");
  EXPECT_EQ(Text("Iframe1"), "1");
  EXPECT_EQ(Text("Iframe2"), "1");
  EXPECT_EQ(Text("Iframe3"), "1");
  EXPECT_EQ(Enabled(), "1234 Iframe1");
}

TEST_F(AdvancedTest, FocusIsInTheFirstControl) {
  OpenCalculator();
  EXPECT_EQ(QApplication::focusWidget(), Find(window, u"VOver"_s));
}

TEST_F(AdvancedTest, FieldsShowTheStoredNumbersAsTheyAre) {
  record.InterleaveTime = 12.5;
  record.InterleaveFrames1 = -20;
  record.InterleaveFrames2 = 0;
  record.InterleaveFrames3 = 1e300;
  OpenCalculator();
  EXPECT_EQ(Text("Itime"), "12.5");
  EXPECT_EQ(Text("Iframe1"), "-20");
  EXPECT_EQ(Text("Iframe2"), "0");
  EXPECT_EQ(Text("Iframe3"), "1E+300");
  EXPECT_EQ(Now().time, 12.5);
  EXPECT_EQ(Now().frames1, -20);
}

TEST_F(AdvancedTest, TheWindowHoldsUpNoOther) {
  auto* opener = Open(WindowId::BitrateCalc);
  Click(Find(opener, u"Advance"_s));
  window = Existing(u"Advanced"_s);
  ASSERT_NE(window, nullptr);
  EXPECT_FALSE(window->isModal());
  opener->activateWindow();
  WaitForActive(opener);
  TabTo(Find(opener, u"MLength"_s));
  TypeOver(u"90"_s);
  EXPECT_EQ(record.MovieLength, 90);
  EXPECT_TRUE(window->isVisible());
}

// The record when the window loads, and the state of the window and the record afterwards.
struct LoadCase {
  std::string name;
  int option = 0;
  int system = 0;
  int videoOn = 0;
  int audioOn = 0;
  int selected = 0;
  int storedOption = 0;
  double video = 0;
  double audio = 0;
  std::string_view enabled;
};

class AdvancedLoads : public AdvancedTest, public ::testing::WithParamInterface<LoadCase> {};

// The overheads are those of the texts that the fields hold at creation, not of the stored
// intervals.
TEST_P(AdvancedLoads, FromTheRecord) {
  const auto& row = GetParam();
  ArmRecomputation();
  SetIntervals();
  record.InterleaveOption = static_cast<std::int16_t>(row.option);
  record.FrameRateSystem = static_cast<std::int16_t>(row.system);
  SetBoxes(static_cast<std::int16_t>(row.videoOn), static_cast<std::int16_t>(row.audioOn));

  OpenCalculator();

  EXPECT_EQ(Now(), (WhatIsStored{row.video, row.audio, row.storedOption, row.system, row.videoOn,
                                 row.audioOn, 500, 2, 3, 4}));
  EXPECT_EQ(Selected(), row.selected);
  EXPECT_EQ(IsChecked(u"VOver"_s), row.videoOn == 1);
  EXPECT_EQ(IsChecked(u"AOver"_s), row.audioOn == 1);
  EXPECT_EQ(Enabled(), row.enabled);
  EXPECT_EQ(Text("Itime"), "500");
  EXPECT_EQ(Text("Iframe1"), "2");
  EXPECT_EQ(Text("Iframe2"), "3");
  EXPECT_EQ(Text("Iframe3"), "4");
}

INSTANTIATE_TEST_SUITE_P(
    ByTime, AdvancedLoads,
    ::testing::Values(LoadCase{"StaysAt25", 1, 0, 1, 1, 1, 1, FramesAt25, Every400Ms, "1234 Itime"},
                      LoadCase{"StaysAt23", 1, 1, 1, 1, 1, 1, FramesAt23, Every400Ms, "1234 Itime"},
                      LoadCase{"StaysAt29", 1, 2, 1, 1, 1, 1, FramesAt29, Every400Ms, "1234 Itime"},
                      LoadCase{"StaysAtAStrangeRate", 1, 7, 1, 1, 1, 1, 0, Every400Ms,
                               "1234 Itime"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    ByFrames, AdvancedLoads,
    ::testing::Values(
        LoadCase{"PalAt25", 2, 0, 1, 1, 2, 2, FramesAt25, EveryFrameAt25, "1234 Iframe1"},
        LoadCase{"PalFollows23", 2, 1, 1, 1, 3, 3, FramesAt23, EveryFrameAt23, "1234 Iframe2"},
        LoadCase{"PalFollows29", 2, 2, 1, 1, 4, 4, FramesAt29, EveryFrameAt29, "1234 Iframe3"},
        LoadCase{"FilmFollows25", 3, 0, 1, 1, 2, 2, FramesAt25, EveryFrameAt25, "1234 Iframe1"},
        LoadCase{"FilmAt23", 3, 1, 1, 1, 3, 3, FramesAt23, EveryFrameAt23, "1234 Iframe2"},
        LoadCase{"FilmFollows29", 3, 2, 1, 1, 4, 4, FramesAt29, EveryFrameAt29, "1234 Iframe3"},
        LoadCase{"NtscFollows25", 4, 0, 1, 1, 2, 2, FramesAt25, EveryFrameAt25, "1234 Iframe1"},
        LoadCase{"NtscFollows23", 4, 1, 1, 1, 3, 3, FramesAt23, EveryFrameAt23, "1234 Iframe2"},
        LoadCase{"NtscAt29", 4, 2, 1, 1, 4, 4, FramesAt29, EveryFrameAt29, "1234 Iframe3"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Boxes, AdvancedLoads,
    ::testing::Values(LoadCase{"NoneByTime", 1, 0, 0, 0, 1, 1, 0, Every400Ms, ""},
                      LoadCase{"NoneBy25", 2, 0, 0, 0, 2, 2, 0, EveryFrameAt25, ""},
                      LoadCase{"NoneBy23", 4, 1, 0, 0, 3, 3, 0, EveryFrameAt23, ""},
                      LoadCase{"NoneBy29", 2, 2, 0, 0, 4, 4, 0, EveryFrameAt29, ""},
                      LoadCase{"VideoOnly", 2, 0, 1, 0, 2, 2, FramesAt25, EveryFrameAt25, ""},
                      LoadCase{"AudioOnly", 2, 0, 0, 1, 2, 2, 0, EveryFrameAt25, "1234 Iframe1"},
                      LoadCase{"FlagsOfTwoAreOff", 1, 0, 2, 2, 1, 1, 0, Every400Ms, ""},
                      LoadCase{"NegativeFlagsAreOff", 1, 0, -1, -1, 1, 1, 0, Every400Ms, ""}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    StrangeRecord, AdvancedLoads,
    ::testing::Values(
        LoadCase{"NoOption", 0, 0, 1, 1, 0, 0, FramesAt25, 0, "1234"},
        LoadCase{"NegativeOption", -1, 1, 1, 1, 0, -1, FramesAt23, 0, "1234"},
        LoadCase{"SmallestOption", -32768, 2, 1, 1, 0, -32768, FramesAt29, 0, "1234"},
        LoadCase{"OptionNineFollows", 9, 1, 1, 1, 3, 3, FramesAt23, EveryFrameAt23, "1234 Iframe2"},
        LoadCase{"LargestOptionFollows", 32767, 2, 1, 1, 4, 4, FramesAt29, EveryFrameAt29,
                 "1234 Iframe3"},
        LoadCase{"RateSeven", 2, 7, 1, 1, 0, 9, 0, 0, "1234"},
        LoadCase{"OptionNineAtRateSeven", 9, 7, 1, 1, 0, 9, 0, 0, "1234"},
        LoadCase{"LargestRate", 2, 32767, 1, 1, 0, 32767, 0, 0, "1234"},
        LoadCase{"LargestRateAndOption", 32767, 32767, 1, 1, 0, 32767, 0, 0, "1234"},
        LoadCase{"RateMinusOneComesOutAsTime", 2, -1, 1, 1, 1, 1, 0, Every400Ms, "1234 Itime"},
        LoadCase{"RateMinusTwo", 4, -2, 1, 1, 0, 0, 0, 0, "1234"},
        LoadCase{"SmallestRate", 3, -32768, 1, 1, 0, -32766, 0, 0, "1234"},
        LoadCase{"NoOptionVideoOnly", 0, 0, 1, 0, 0, 0, FramesAt25, 0, ""},
        LoadCase{"NoOptionAudioOnly", 0, 0, 0, 1, 0, 0, 0, 0, "1234"},
        // No handler runs at all.
        LoadCase{"NoOptionAndNoBox", 0, 0, 0, 0, 0, 0, 50, 60, ""}),
    NameOf);

TEST_F(AdvancedTest, ARecordOfZerosLoadsAndTakesAnOption) {
  record = Settings();
  record.AppFolder = folder.path();
  OpenCalculator();
  EXPECT_EQ(Selected(), 0);
  EXPECT_EQ(Enabled(), "");
  Choose(u"AOver"_s);
  EXPECT_EQ(Enabled(), "1234");
  EXPECT_EQ(record.AudioInterleaveOverhead, 0);
  Choose(OptionName(4));
  EXPECT_EQ(Enabled(), "1234 Iframe3");
  EXPECT_EQ(record.InterleaveOption, 4);
  EXPECT_EQ(record.FrameRateSystem, 2);
  EXPECT_EQ(record.AudioInterleaveOverhead, 0) << "of an interval of 0";
}

TEST_F(AdvancedTest, AStrangeFrameRateCountsNoFramesUntilAnOptionChangesIt) {
  record.FrameRateSystem = 7;
  OpenCalculator();
  Choose(u"VOver"_s);
  Choose(u"VOver"_s);
  Choose(u"AOver"_s);
  Choose(u"AOver"_s);
  EXPECT_EQ(Now(), (WhatIsStored{0, 0, 9, 7, 1, 1, 400, 1, 1, 1}));
  EXPECT_EQ(Enabled(), "1234");

  Choose(OptionName(3));
  EXPECT_EQ(Now(), (WhatIsStored{0, EveryFrameAt23, 3, 1, 1, 1, 400, 1, 1, 1}));
  Choose(u"VOver"_s);
  Choose(u"VOver"_s);
  EXPECT_EQ(record.VideoFrameOverhead, FramesAt23);
}

TEST_F(AdvancedTest, OkWithNoOptionSelectedCountsNoInterleaving) {
  record.FrameRateSystem = 7;
  record.AdvancedCaller = 1;
  auto* opener = Open(WindowId::BitrateCalc);
  EXPECT_EQ(InterlOf(opener), "ON");
  OpenCalculator();
  ClickOk();
  EXPECT_EQ(Now(), (WhatIsStored{0, 0, 9, 7, 1, 1, 400, 1, 1, 1}));
  EXPECT_EQ(InterlOf(opener), "OFF");
}

TEST_F(AdvancedTest, UntickingTheFramesBoxCountsNoFrames) {
  SetIntervals();
  OpenCalculator();
  Choose(u"VOver"_s);
  EXPECT_FALSE(IsChecked(u"VOver"_s));
  EXPECT_EQ(Now(), (WhatIsStored{0, 23.4375 / 80, 2, 0, 0, 1, 500, 2, 3, 4}));
  EXPECT_EQ(Enabled(), "1234 Iframe1");
  Choose(u"VOver"_s);
  EXPECT_TRUE(IsChecked(u"VOver"_s));
  EXPECT_EQ(Now(), (WhatIsStored{FramesAt25, 23.4375 / 80, 2, 0, 1, 1, 500, 2, 3, 4}));
}

TEST_F(AdvancedTest, UntickingTheInterleavingBoxDisablesItsOptionsAndFields) {
  SetIntervals();
  OpenCalculator();
  Choose(u"AOver"_s);
  EXPECT_FALSE(IsChecked(u"AOver"_s));
  EXPECT_EQ(Now(), (WhatIsStored{FramesAt25, 0, 2, 0, 1, 0, 500, 2, 3, 4}));
  EXPECT_EQ(Enabled(), "");
  EXPECT_EQ(Selected(), 2);
}

TEST_F(AdvancedTest, TickingTheInterleavingBoxEnablesTheChosenFieldOnly) {
  SetIntervals();
  constexpr std::array expected{"1234 Itime", "1234 Iframe1", "1234 Iframe2", "1234 Iframe3"};
  for (int option = 1; option <= 4; ++option) {
    SetOption(option);
    SetBoxes(0, 0);
    OpenCalculator();
    EXPECT_EQ(Enabled(), "");
    Choose(u"AOver"_s);
    EXPECT_EQ(record.AudioOverheadOn, 1);
    EXPECT_EQ(Enabled(), expected.at(static_cast<std::size_t>(option - 1)));
    EXPECT_EQ(record.VideoOverheadOn, 0);
    EXPECT_EQ(record.VideoFrameOverhead, 0);
    window->close();
    RunDeletions();
  }
}

TEST_F(AdvancedTest, BothBoxesUntickedCountNothing) {
  OpenCalculator();
  Choose(u"VOver"_s);
  Choose(u"AOver"_s);
  EXPECT_EQ(Now(), (WhatIsStored{0, 0, 2, 0, 0, 0, 400, 1, 1, 1}));
}

TEST_F(AdvancedTest, BoxesAreTickedByTheKeyboardToo) {
  OpenCalculator();
  TabTo(Find(window, u"AOver"_s));
  Key(Qt::Key_Space);
  EXPECT_EQ(record.AudioOverheadOn, 0);
  EXPECT_EQ(record.AudioInterleaveOverhead, 0);
  TabTo(Find(window, u"VOver"_s));
  Key(Qt::Key_Space);
  EXPECT_EQ(record.VideoOverheadOn, 0);
  EXPECT_EQ(record.VideoFrameOverhead, 0);
}

// Opening counts interleaving whatever its box says; the first click on a box corrects that.
TEST_F(AdvancedTest, AnUntickedInterleavingBoxCountsOnlyUntilABoxIsClicked) {
  SetBoxes(0, 0);
  OpenCalculator();
  EXPECT_EQ(record.AudioInterleaveOverhead, EveryFrameAt25);
  Choose(u"VOver"_s);
  EXPECT_EQ(record.VideoFrameOverhead, FramesAt25);
  EXPECT_EQ(record.AudioInterleaveOverhead, 0);
}

TEST_F(AdvancedTest, AStrangeFlagIsStoredAnewAtTheFirstClickOfItsBox) {
  SetBoxes(2, 2);
  OpenCalculator();
  Choose(u"VOver"_s);
  Choose(u"AOver"_s);
  EXPECT_EQ(record.VideoOverheadOn, 1);
  EXPECT_EQ(record.AudioOverheadOn, 1);
}

// An unticked box does not change the frame rate.
TEST_F(AdvancedTest, AnUntickedInterleavingBoxLeavesOptionAndFrameRate) {
  SetBoxes(1, 0);
  OpenCalculator();
  record.FrameRateSystem = 2;  // by another window
  record.InterleaveOption = 1;
  Choose(u"VOver"_s);
  EXPECT_EQ(record.FrameRateSystem, 2);
  EXPECT_EQ(record.InterleaveOption, 1);
}

TEST_F(AdvancedTest, TheFramesAreCountedAtTheRateFromBeforeTheOptionChangesItBack) {
  OpenCalculator();
  record.FrameRateSystem = 1;  // by another window
  Choose(u"AOver"_s);
  EXPECT_EQ(record.VideoFrameOverhead, FramesAt23);
  EXPECT_EQ(record.FrameRateSystem, 1);
  Choose(u"AOver"_s);
  EXPECT_EQ(record.VideoFrameOverhead, FramesAt23);
  EXPECT_EQ(record.FrameRateSystem, 0);
  EXPECT_EQ(record.AudioInterleaveOverhead, EveryFrameAt25);
}

class AdvancedChoice : public AdvancedTest,
                       public ::testing::WithParamInterface<std::tuple<int, int>> {};

TEST_P(AdvancedChoice, ChangesTheFrameRateButCountsFramesAtTheOldOne) {
  const auto [from, to] = GetParam();
  SetIntervals();
  SetOption(from);
  if (from == 1) {
    record.FrameRateSystem = 1;
  }
  OpenCalculator();
  ASSERT_EQ(Selected(), from);
  ArmRecomputation();

  Choose(OptionName(to));

  const std::array frames{FramesAt25, FramesAt23, FramesAt29};
  const std::array intervals{23.4375 / 500, 23.4375 / (2 * (1000 / 25.0)),
                             23.4375 / (3 * (1000 / 23.976)), 23.4375 / (4 * (1000 / 29.97))};
  const int before = from == 1 ? 1 : from - 2;
  const int after = to == 1 ? before : to - 2;
  const auto expected = from == to  // no click: it was selected already
                            ? WhatIsStored{50, 60, from, before, 1, 1, 500, 2, 3, 4}
                            : WhatIsStored{frames.at(static_cast<std::size_t>(before)),
                                           intervals.at(static_cast<std::size_t>(to - 1)),
                                           to,
                                           after,
                                           1,
                                           1,
                                           500,
                                           2,
                                           3,
                                           4};
  EXPECT_EQ(Now(), expected);
  EXPECT_EQ(Selected(), to);
  EXPECT_EQ(Enabled(), "1234 " + FieldName(to).toStdString());
}

INSTANTIATE_TEST_SUITE_P(FromTo, AdvancedChoice,
                         ::testing::Combine(::testing::Range(1, 5), ::testing::Range(1, 5)),
                         [](const auto& instance) {
                           return "From" + std::to_string(std::get<0>(instance.param)) + "To" +
                                  std::to_string(std::get<1>(instance.param));
                         });

TEST_F(AdvancedTest, AnOptionWithoutTheFramesBoxCountsNoFrames) {
  SetBoxes(0, 1);
  OpenCalculator();
  Choose(OptionName(4));
  EXPECT_EQ(Now(), (WhatIsStored{0, EveryFrameAt29, 4, 2, 0, 1, 400, 1, 1, 1}));
}

TEST_F(AdvancedTest, OptionsCannotBeClickedWhileTheBoxIsUnticked) {
  SetBoxes(1, 0);
  OpenCalculator();
  ArmRecomputation();
  for (int option = 1; option <= 4; ++option) {
    Choose(OptionName(option));
  }
  EXPECT_EQ(Now(), (WhatIsStored{50, 60, 2, 0, 1, 0, 400, 1, 1, 1}));
  EXPECT_EQ(Selected(), 2);
}

TEST_F(AdvancedTest, ArrowKeysChooseTheOptionBelow) {
  OpenCalculator();
  TabTo(Find(window, OptionName(2)));
  Key(Qt::Key_Down);
  EXPECT_EQ(Selected(), 3);
  EXPECT_EQ(Now(), (WhatIsStored{FramesAt25, EveryFrameAt23, 3, 1, 1, 1, 400, 1, 1, 1}));
  EXPECT_EQ(Enabled(), "1234 Iframe2");
}

/// Counts how often controls are enabled or disabled.
class EnabledChanges : public QObject {
 public:
  void Watch(QWidget* control) { control->installEventFilter(this); }
  [[nodiscard]] int Of(const QWidget* control) const {
    const auto found = changes_.find(control);
    return found == changes_.end() ? 0 : found->second;
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::EnabledChange) {
      ++changes_[watched];
    }
    return false;
  }

 private:
  std::map<const QObject*, int> changes_;
};

TEST_F(AdvancedTest, AChoiceTouchesOnlyTheTwoFieldsThatChange) {
  OpenCalculator();
  EnabledChanges changes;
  for (int option = 1; option <= 4; ++option) {
    changes.Watch(FieldOf(option));
    changes.Watch(Find(window, OptionName(option)));
  }
  Choose(OptionName(1));
  EXPECT_EQ(changes.Of(FieldOf(1)), 1);
  EXPECT_EQ(changes.Of(FieldOf(2)), 1);
  EXPECT_EQ(changes.Of(FieldOf(3)), 0);
  EXPECT_EQ(changes.Of(FieldOf(4)), 0);
  for (int option = 1; option <= 4; ++option) {
    EXPECT_EQ(changes.Of(Find(window, OptionName(option))), 0) << option;
  }
}

struct IntervalCase {
  std::string name;
  std::string_view text;
  double time = 0;    // the overhead if the text counts milliseconds
  double frames = 0;  // the overhead if it counts PAL frames
};

class AdvancedInterval : public AdvancedTest, public ::testing::WithParamInterface<IntervalCase> {};

TEST_P(AdvancedInterval, IsTakenAsItStandsByAClick) {
  const auto& row = GetParam();
  const auto text = QString::fromLatin1(row.text.data(), static_cast<qsizetype>(row.text.size()));
  for (int option = 1; option <= 4; ++option) {
    SetOption(option);
    SetBoxes(1, 1);
    OpenCalculator();
    Enter(option, text);
    ArmRecomputation();
    const double scale = option == 3 ? 23.976 / 25 : option == 4 ? 29.97 / 25 : 1;
    const double expected = option == 1 ? row.time : row.frames * scale;

    Choose(u"VOver"_s);
    EXPECT_DOUBLE_EQ(record.AudioInterleaveOverhead, expected) << option;
    EXPECT_EQ(record.VideoFrameOverhead, 0);

    record.AudioInterleaveOverhead = 60;
    Choose(u"AOver"_s);
    EXPECT_EQ(record.AudioInterleaveOverhead, 0) << option;
    Choose(u"AOver"_s);
    EXPECT_DOUBLE_EQ(record.AudioInterleaveOverhead, expected) << option;

    record.AudioInterleaveOverhead = 60;
    Choose(OptionName(option == 1 ? 2 : 1));
    EXPECT_NE(record.AudioInterleaveOverhead, 60);
    Choose(OptionName(option));
    EXPECT_DOUBLE_EQ(record.AudioInterleaveOverhead, expected) << option;

    // A number just begun becomes 0 when the field is left; nothing else is repaired here.
    EXPECT_EQ(FieldOf(option)->text(), IsJustBegun(row.text) ? u"0"_s : text);
    EXPECT_EQ(Now().time, 400);
    EXPECT_EQ(Now().frames1, 1);
    window->close();
    RunDeletions();
  }
}

INSTANTIATE_TEST_SUITE_P(
    NoOverhead, AdvancedInterval,
    ::testing::Values(IntervalCase{"Empty", "", 0, 0}, IntervalCase{"Zero", "0", 0, 0},
                      IntervalCase{"ZeroWithDecimals", "0.00", 0, 0},
                      IntervalCase{"MinusZero", "-0", 0, 0}, IntervalCase{"Negative", "-5", 0, 0},
                      IntervalCase{"Letters", "abc", 0, 0},
                      IntervalCase{"TrailingLetters", "12xyz", 0, 0},
                      IntervalCase{"Comma", "1,5", 0, 0}, IntervalCase{"JustBegun", "-", 0, 0},
                      IntervalCase{"Period", ".", 0, 0}, IntervalCase{"OutOfRange", "1e999", 0, 0},
                      IntervalCase{"TooSmallForARate", "1e-310", 0, 0},
                      IntervalCase{"Blank", " ", 0, 0}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Overhead, AdvancedInterval,
    ::testing::Values(IntervalCase{"Whole", "10", 2.34375, 0.05859375},
                      IntervalCase{"Fraction", "0.5", 46.875, 1.171875},
                      IntervalCase{"Blanks", " 400 ", 0.05859375, 0.00146484375},
                      IntervalCase{"Exponent", "4e2", 0.05859375, 0.00146484375},
                      IntervalCase{"BelowTheShortestTime", "20", 1.171875, 0.029296875},
                      IntervalCase{"AboveTheLimits", "1000000", 0.0000234375, 5.859375e-7}),
    NameOf);

class AdvancedFieldEvents : public HandlerTable<AdvancedTest> {};

// Getting the focus selects; no event stores, recomputes or repairs anything.
TEST_P(AdvancedFieldEvents, OnlySelectWhenTheFocusComes) {
  const auto& [control, event] = std::tie(GetParam().control, GetParam().event);
  const auto* place = std::find(FieldNames.begin(), FieldNames.end(), control);
  SetOption(static_cast<int>(place - FieldNames.begin()) + 1);
  OpenForRow(u"Command1"_s);
  SetFields(Names(FieldNames.begin(), FieldNames.end()), u"12345678901x"_s);
  ArmRecomputation();
  const auto before = Now();
  const auto enabledBefore = Enabled();

  Happen();

  EXPECT_EQ(Now(), before);
  EXPECT_EQ(Enabled(), enabledBefore);
  EXPECT_EQ(Field(QString::fromStdString(control))->selectedText(),
            event == Event::GotFocus ? u"1234567890"_s : QString());
  for (const auto* name : FieldNames) {
    const bool isBackspaced = event == Event::KeyPress && name == control;
    EXPECT_EQ(Text(name), isBackspaced ? "12345678901" : "12345678901x");
  }
}

INSTANTIATE_TEST_SUITE_P(EveryField, AdvancedFieldEvents,
                         Rows(WithoutHandler({FieldNames.begin(), FieldNames.end()},
                                             {Event::KeyPress, Event::KeyUp, Event::GotFocus,
                                              Event::LostFocus, Event::MouseDown, Event::MouseUp})),
                         RowName);

TEST_F(AdvancedTest, TypingInAFieldStoresNothingYet) {
  OpenCalculator();
  TabTo(FieldOf(2));
  EXPECT_EQ(FieldOf(2)->selectedText(), u"1"_s);
  ArmRecomputation();
  Type(u"-3.5x"_s);
  EXPECT_EQ(Text("Iframe1"), "-3.5x");
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text("Iframe1"), "-3.5x");
  EXPECT_EQ(Now(), (WhatIsStored{50, 60, 2, 0, 1, 1, 400, 1, 1, 1}));
}

TEST_F(AdvancedTest, TheClickThatBringsTheFocusKeepsTheSelection) {
  record.InterleaveFrames1 = 123456789012;
  OpenCalculator();
  Click(FieldOf(2));
  EXPECT_EQ(FieldOf(2)->selectedText(), u"1234567890"_s);
}

TEST_F(AdvancedTest, TabbingThroughTheWindowStoresNothing) {
  OpenCalculator();
  ArmRecomputation();
  auto* first = QApplication::focusWidget();
  int stops = 0;
  do {
    Key(Qt::Key_Tab);
    ++stops;
  } while (QApplication::focusWidget() != first && stops < 50);
  EXPECT_EQ(stops, 6) << "two boxes, the options, the field and the two buttons";
  EXPECT_EQ(Now(), (WhatIsStored{50, 60, 2, 0, 1, 1, 400, 1, 1, 1}));
}

struct AcceptedCase {
  std::string name;
  std::string_view text;
  double expected = 0;
};

/// Enters a text, presses OK and returns what is then in the field and in the record.
class AdvancedAccepts : public AdvancedTest {
 protected:
  void ExpectAccepted(int option, const AcceptedCase& row) {
    SetOption(option);
    OpenCalculator();
    Enter(option, QString::fromLatin1(row.text.data(), static_cast<qsizetype>(row.text.size())));
    auto written = Text(FieldName(option));
    QObject::connect(FieldOf(option), &QLineEdit::textChanged, FieldOf(option),
                     [&](const QString& text) { written = text.toStdString(); });

    ClickOk();

    const std::array intervals{record.InterleaveTime, record.InterleaveFrames1,
                               record.InterleaveFrames2, record.InterleaveFrames3};
    EXPECT_EQ(intervals.at(static_cast<std::size_t>(option - 1)), row.expected);
    EXPECT_EQ(written, std::to_string(static_cast<int>(row.expected)));
    for (std::size_t i = 0; i < intervals.size(); ++i) {
      if (i != static_cast<std::size_t>(option - 1)) {
        EXPECT_EQ(intervals.at(i), i == 0 ? 400 : 1);
      }
    }
    constexpr std::array milliSeconds{1.0, 1000 / 25.0, 1000 / 23.976, 1000 / 29.97};
    EXPECT_EQ(record.AudioInterleaveOverhead,
              23.4375 / (row.expected * milliSeconds.at(static_cast<std::size_t>(option - 1))));
  }
};

class AdvancedAcceptsTime : public AdvancedAccepts,
                            public ::testing::WithParamInterface<AcceptedCase> {};

TEST_P(AdvancedAcceptsTime, AsWholeMilliSeconds) { ExpectAccepted(1, GetParam()); }

INSTANTIATE_TEST_SUITE_P(
    Texts, AdvancedAcceptsTime,
    ::testing::Values(
        AcceptedCase{"Letters", "abc", 40}, AcceptedCase{"Empty", "", 40},
        AcceptedCase{"Blank", "  ", 40}, AcceptedCase{"TooShort", "12.7", 40},
        AcceptedCase{"JustTooShort", "39.999", 40}, AcceptedCase{"Shortest", "40", 40},
        AcceptedCase{"FractionOfTheShortest", "40.9", 40},
        AcceptedCase{"FractionIsCutOff", "1234.9", 1234}, AcceptedCase{"Longest", "400000", 400000},
        AcceptedCase{"FractionAboveTheLongest", "400000.5", 400000},
        AcceptedCase{"TooLong", "500000", 400000}, AcceptedCase{"Huge", "1e300", 400000},
        AcceptedCase{"NegativeIsTheShortest", "-500", 40}, AcceptedCase{"Zero", "0", 40},
        AcceptedCase{"TrailingLetters", "600xyz", 600},
        AcceptedCase{"NegativeWithTrailingLetters", "-600xyz", 40},
        AcceptedCase{"TooLongWithTrailingLetters", "5e5ms", 400000},
        AcceptedCase{"FractionWithTrailingLetters", "99.9ms", 99},
        AcceptedCase{"Exponent", "1e3", 1000}, AcceptedCase{"UnfinishedExponent", "600e", 600},
        AcceptedCase{"OutOfRange", "1e999", 40}, AcceptedCase{"Blanks", " 500 ", 500},
        AcceptedCase{"Comma", "600,5", 600}, AcceptedCase{"JustBegun", "-", 40},
        AcceptedCase{"Hexadecimal", "&H1000", 40}),
    NameOf);

class AdvancedAcceptsFrames : public AdvancedAccepts,
                              public ::testing::WithParamInterface<std::tuple<int, AcceptedCase>> {
};

TEST_P(AdvancedAcceptsFrames, AsWholeFrames) {
  ExpectAccepted(std::get<0>(GetParam()), std::get<1>(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, AdvancedAcceptsFrames,
    ::testing::Combine(
        ::testing::Range(2, 5),
        ::testing::Values(
            AcceptedCase{"Letters", "abc", 1}, AcceptedCase{"Empty", "", 1},
            AcceptedCase{"Zero", "0", 1}, AcceptedCase{"JustBelowOne", "0.9", 1},
            AcceptedCase{"Half", ".5", 1}, AcceptedCase{"MinusHalf", "-0.5", 1},
            AcceptedCase{"FractionIsCutOff", "2.999", 2},
            AcceptedCase{"NegativeFractionRoundsDown", "-3.5", 4},
            AcceptedCase{"NegativeLosesItsSign", "-20", 20},
            AcceptedCase{"JustBelowTheMost", "9999.9", 9999}, AcceptedCase{"Most", "10000", 10000},
            AcceptedCase{"FractionAboveTheMost", "10000.5", 10000},
            AcceptedCase{"TooMany", "20000", 10000}, AcceptedCase{"Huge", "1e300", 10000},
            AcceptedCase{"HugeNegative", "-1e300", 10000},
            AcceptedCase{"TooManyNegative", "-10000.5", 10000},
            AcceptedCase{"TrailingLetters", "12xyz", 12},
            AcceptedCase{"NegativeWithTrailingLetters", "-2.5kg", 3},
            AcceptedCase{"OutOfRange", "1e999", 1}, AcceptedCase{"JustBegun", "-", 1})),
    [](const auto& instance) {
      const auto option = static_cast<std::size_t>(std::get<0>(instance.param));
      return std::get<1>(instance.param).name + "In" + FieldNames.at(option - 1);
    });

TEST_F(AdvancedTest, OkRepairsAndStoresTheDisabledFieldsToo) {
  record.InterleaveOption = 1;
  record.InterleaveTime = 12.7;
  record.InterleaveFrames1 = -3.5;
  record.InterleaveFrames2 = 0;
  record.InterleaveFrames3 = 20000;
  OpenCalculator();
  ClickOk();
  EXPECT_EQ(Now(), (WhatIsStored{FramesAt25, 0.5859375, 1, 0, 1, 1, 40, 4, 1, 10000}));
}

TEST_F(AdvancedTest, OkStoresTheFieldsThoughBothBoxesAreUnticked) {
  SetBoxes(0, 0);
  record.InterleaveTime = -500;
  record.InterleaveFrames1 = -20;
  OpenCalculator();
  EXPECT_EQ(record.AudioInterleaveOverhead, EveryFrameAt25);
  ClickOk();
  EXPECT_EQ(Now(), (WhatIsStored{0, 0, 2, 0, 0, 0, 40, 20, 1, 1}));
}

// Frames at the rate that another window chose; then the selected option sets it back.
TEST_F(AdvancedTest, OkCountsFramesAtTheRateFromBeforeTheOptionSetsIt) {
  OpenCalculator();
  record.FrameRateSystem = 1;
  ClickOk();
  EXPECT_EQ(Now(), (WhatIsStored{FramesAt23, EveryFrameAt25, 2, 0, 1, 1, 400, 1, 1, 1}));
}

TEST_F(AdvancedTest, OkCountsFramesAtTheRateThatTheLastChoiceSet) {
  OpenCalculator();
  Choose(OptionName(4));
  EXPECT_EQ(record.VideoFrameOverhead, FramesAt25);
  ClickOk();
  EXPECT_EQ(Now(), (WhatIsStored{FramesAt29, EveryFrameAt29, 4, 2, 1, 1, 400, 1, 1, 1}));
}

TEST_F(AdvancedTest, OkByTheKeyboard) {
  OpenCalculator();
  TabTo(FieldOf(2));
  TypeOver(u"-3.5"_s);
  TabTo(Find(window, u"Command1"_s));
  EXPECT_EQ(Text("Iframe1"), "-3.5");
  Key(Qt::Key_Space);
  RunDeletions();
  EXPECT_EQ(window, nullptr);
  EXPECT_EQ(record.InterleaveFrames1, 4);
}

TEST_F(AdvancedTest, AnAcceptedIntervalStandsThereWhenTheWindowIsOpenedAgain) {
  OpenCalculator();
  Choose(OptionName(3));
  Enter(3, u"-3.5"_s);
  ClickOk();
  OpenCalculator();
  EXPECT_EQ(Selected(), 3);
  EXPECT_EQ(Text("Iframe2"), "4");
  EXPECT_EQ(Enabled(), "1234 Iframe2");
}

TEST_F(AdvancedTest, OkRefreshesTheVideoWindowThatOpenedIt) {
  auto* video = Open(WindowId::BitrateCalc);
  auto* audio = Open(WindowId::AudioCalc);
  ASSERT_EQ(ResultOf(video), "841");
  ASSERT_EQ(ResultOf(audio), "205");
  record.AdvancedCaller = 1;
  OpenCalculator();
  Choose(u"VOver"_s);
  Choose(u"AOver"_s);
  EXPECT_EQ(ResultOf(video), "841");
  EXPECT_EQ(InterlOf(video), "ON");
  ClickOk();
  EXPECT_EQ(ResultOf(video), "851");
  EXPECT_EQ(TextIn(video, u"Stat(2)"_s), "");
  EXPECT_EQ(InterlOf(video), "OFF");
  EXPECT_EQ(ResultOf(audio), "205");
  EXPECT_EQ(InterlOf(audio), "ON");
}

TEST_F(AdvancedTest, OkRefreshesTheAudioWindowThatOpenedIt) {
  auto* video = Open(WindowId::BitrateCalc);
  auto* audio = Open(WindowId::AudioCalc);
  record.AdvancedCaller = 2;
  OpenCalculator();
  Choose(u"VOver"_s);
  Choose(u"AOver"_s);
  EXPECT_EQ(ResultOf(audio), "205");
  EXPECT_EQ(InterlOf(audio), "ON");
  ClickOk();
  EXPECT_EQ(ResultOf(audio), "210");
  EXPECT_EQ(InterlOf(audio), "OFF");
  EXPECT_EQ(ResultOf(video), "841");
  EXPECT_EQ(InterlOf(video), "ON");
}

TEST_F(AdvancedTest, OkTurnsTheLabelOnAgain) {
  record.VideoFrameOverhead = 0;
  record.AudioInterleaveOverhead = 0;
  SetBoxes(0, 0);
  auto* video = Open(WindowId::BitrateCalc);
  ASSERT_EQ(InterlOf(video), "OFF");
  ASSERT_EQ(ResultOf(video), "851");
  record.AdvancedCaller = 1;
  OpenCalculator();
  Choose(u"VOver"_s);
  EXPECT_EQ(InterlOf(video), "OFF");
  ClickOk();
  EXPECT_EQ(InterlOf(video), "ON");
  EXPECT_EQ(ResultOf(video), "846");
}

TEST_F(AdvancedTest, OkForAnyoneElseRefreshesAndMakesNothing) {
  for (const int caller : {3, -1, 32767, 0}) {
    record.AdvancedCaller = static_cast<std::int16_t>(caller);
    OpenCalculator();
    ClickOk();
    EXPECT_EQ(Existing(u"BitrateCalc"_s), nullptr) << caller;
    EXPECT_EQ(Existing(u"AudioCalc"_s), nullptr) << caller;
  }
  auto* video = Open(WindowId::BitrateCalc);
  auto* audio = Open(WindowId::AudioCalc);
  OpenCalculator();
  Choose(u"VOver"_s);
  Choose(u"AOver"_s);
  ClickOk();
  EXPECT_EQ(ResultOf(video), "841");
  EXPECT_EQ(InterlOf(video), "ON");
  EXPECT_EQ(ResultOf(audio), "205");
  EXPECT_EQ(InterlOf(audio), "ON");
}

struct OpenerCase {
  std::string name;
  WindowId id = WindowId::BitrateCalc;
  std::string_view window;
  std::int16_t caller = 0;
  std::string_view result;  // without overhead
};

class AdvancedOpener : public AdvancedTest, public ::testing::WithParamInterface<OpenerCase> {
 protected:
  static QString Name() {
    const auto& name = GetParam().window;
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
  }
};

TEST_P(AdvancedOpener, IsLoadedByOkWithoutBeingShown) {
  record.AdvancedCaller = GetParam().caller;
  OpenCalculator();
  Choose(u"VOver"_s);
  Choose(u"AOver"_s);
  ASSERT_EQ(Existing(Name()), nullptr);
  ClickOk();
  const QPointer<QWidget> loaded(Existing(Name()));
  ASSERT_NE(loaded, nullptr);
  EXPECT_FALSE(loaded->isVisible());

  EXPECT_EQ(ResultOf(loaded), GetParam().result);
  EXPECT_EQ(InterlOf(loaded), "OFF");
}

TEST_P(AdvancedOpener, ThatOkLoadedIsLoadedAfreshByItsNextShow) {
  record.AdvancedCaller = GetParam().caller;
  OpenCalculator();
  Choose(u"VOver"_s);
  Choose(u"AOver"_s);
  ClickOk();
  record.MovieLength = 55;  // another window
  auto* shown = Open(GetParam().id);
  EXPECT_EQ(TextIn(shown, u"MLength"_s), "55");
  EXPECT_EQ(InterlOf(shown), "OFF");
  Click(Find(shown, u"MLength"_s));
  EXPECT_EQ(record.MovieLength, 55);
}

TEST_P(AdvancedOpener, ThatOkLoadedIsLoadedAfreshByTheNextOk) {
  record.AdvancedCaller = GetParam().caller;
  OpenCalculator();
  ClickOk();
  ASSERT_NE(Existing(Name()), nullptr);
  record.MovieLength = 55;  // another window
  OpenCalculator();
  Choose(u"VOver"_s);
  Choose(u"AOver"_s);
  ClickOk();
  auto* loaded = Existing(Name());
  ASSERT_NE(loaded, nullptr);
  EXPECT_FALSE(loaded->isVisible());
  EXPECT_EQ(InterlOf(loaded), "OFF");
  EXPECT_EQ(TextIn(loaded, u"MLength"_s), "55");
  EXPECT_EQ(record.MovieLength, 55);
}

TEST_P(AdvancedOpener, IsNotMadeByClosingWithoutOk) {
  record.AdvancedCaller = GetParam().caller;
  OpenCalculator();
  window->close();
  EXPECT_EQ(Existing(Name()), nullptr);
  EXPECT_EQ(window, nullptr);
}

TEST_P(AdvancedOpener, StaysWhereItIsAtOk) {
  record.AdvancedCaller = GetParam().caller;
  auto* opener = Open(GetParam().id);
  opener->showMinimized();
  OpenCalculator();
  Choose(u"VOver"_s);
  Choose(u"AOver"_s);
  ClickOk();
  EXPECT_TRUE(opener->isMinimized());
  EXPECT_EQ(InterlOf(opener), "OFF");
}

INSTANTIATE_TEST_SUITE_P(
    Both, AdvancedOpener,
    ::testing::Values(OpenerCase{"Video", WindowId::BitrateCalc, "BitrateCalc", 1, "851"},
                      OpenerCase{"Audio", WindowId::AudioCalc, "AudioCalc", 2, "210"}),
    NameOf);

TEST_F(AdvancedTest, AClosedOpenerIsLoadedAnewFromTheRecord) {
  auto* video = Open(WindowId::BitrateCalc);
  Click(Find(video, u"Advance"_s));
  window = Existing(u"Advanced"_s);
  WaitForActive(window);
  video->close();
  RunDeletions();
  record.MovieLength = 90.5;
  ClickOk();
  auto* loaded = Existing(u"BitrateCalc"_s);
  ASSERT_NE(loaded, nullptr);
  EXPECT_FALSE(loaded->isVisible());
  EXPECT_EQ(TextIn(loaded, u"MLength"_s), "90.5");
}

class AdvancedClosing : public AdvancedTest, public ::testing::WithParamInterface<bool> {};

TEST_P(AdvancedClosing, KeepsWhatTheClicksStoredAndRepairsNothing) {
  const bool byEscape = GetParam();
  auto* video = Open(WindowId::BitrateCalc);
  Click(Find(video, u"Advance"_s));
  window = Existing(u"Advanced"_s);
  WaitForActive(window);
  Choose(OptionName(4));
  Enter(4, u"2.5"_s);
  Choose(u"VOver"_s);
  FieldOf(4)->setFocus();
  if (byEscape) {
    Key(Qt::Key_Escape);
  } else {
    window->close();
  }
  RunDeletions();
  EXPECT_EQ(window, nullptr);
  EXPECT_EQ(Now(), (WhatIsStored{0, 23.4375 / (2.5 * (1000 / 29.97)), 4, 2, 0, 1, 400, 1, 1, 1}));
  EXPECT_EQ(ResultOf(video), "841");
  EXPECT_EQ(TextIn(video, u"Stat(2)"_s), "6.9MB");
  EXPECT_EQ(InterlOf(video), "ON");
}

TEST_P(AdvancedClosing, LeavesAnOpenerOnThoughNothingIsCounted) {
  const bool byEscape = GetParam();
  auto* audio = Open(WindowId::AudioCalc);
  Click(Find(audio, u"Command1"_s));
  window = Existing(u"Advanced"_s);
  WaitForActive(window);
  Choose(u"VOver"_s);
  Choose(u"AOver"_s);
  if (byEscape) {
    Key(Qt::Key_Escape);
  } else {
    window->close();
  }
  RunDeletions();
  EXPECT_EQ(window, nullptr);
  EXPECT_EQ(Now(), (WhatIsStored{0, 0, 2, 0, 0, 0, 400, 1, 1, 1}));
  EXPECT_EQ(ResultOf(audio), "205");
  EXPECT_EQ(InterlOf(audio), "ON");
}

INSTANTIATE_TEST_SUITE_P(Ways, AdvancedClosing, ::testing::Bool(), [](const auto& instance) {
  return instance.param ? "ByEscape" : "ByItsFrame";
});

TEST_F(AdvancedTest, WhatWasTypedBeforeEscapeIsGone) {
  OpenCalculator();
  Enter(2, u"50"_s);
  Key(Qt::Key_Escape);
  RunDeletions();
  OpenCalculator();
  EXPECT_EQ(Text("Iframe1"), "1");
  EXPECT_EQ(record.AudioInterleaveOverhead, EveryFrameAt25);
}

}  // namespace
}  // namespace brindle
