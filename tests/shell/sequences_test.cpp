// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/windows/window_list.h"
#include "shell/window_catalogue.h"
#include "tests/support/named_case.h"
#include "tests/support/user.h"
#include "tests/support/window_test.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// All by hand, with the built-in settings: 700 MB are 716800 KB, 100 minutes are 6000 seconds, and
// every video frame at 25 fps costs 0.5859375 KB/s, as does every interval of audio after one
// frame.
constexpr const char* VideoResult = "841";                     // both overheads
constexpr const char* VideoResultWithOneOverhead = "846";      // 4.8 kbit/s more
constexpr const char* VideoResultWithoutOverhead = "851";      // and once more
constexpr const char* AudioResult = "205";                     // 150 MB less the interleaving
constexpr const char* AudioResultWithoutInterleaving = "210";  // 150 MB x 8192 x 1.024 / 6000

/// Several windows of one program, used in turn as a person does.
class Sequences : public WindowTest {
 protected:
  static QString NameOfWindow(WindowId id) {
    const auto all = AllWindows();
    return std::find_if(all.begin(), all.end(), [id](const auto& entry) { return entry.id == id; })
        ->name.toString();
  }

  static void RunDeletions() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  /// How many windows of this kind there are, shown or not.
  static int Count(WindowId id) {
    RunDeletions();
    int count = 0;
    for (const auto* widget : QApplication::topLevelWidgets()) {
      count += widget->objectName() == NameOfWindow(id) ? 1 : 0;
    }
    return count;
  }

  /// The window of this kind, shown or not; null if there is none.
  static QWidget* Existing(WindowId id) {
    RunDeletions();
    for (auto* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == NameOfWindow(id)) {
        return widget;
      }
    }
    return nullptr;
  }

  /// Opens the window or brings it to the front, as its button in the main window does.
  QWidget* Use(WindowId id) {
    windows.Open(id);
    auto* window = Existing(id);
    WaitForActive(window);
    return window;
  }

  /// Opens the overhead settings from one of the two windows that offer them.
  QWidget* UseAdvancedOf(WindowId id) {
    auto* opener = Use(id);
    Click(Find(opener, id == WindowId::BitrateCalc ? u"Advance"_s : u"Command1"_s));
    auto* advanced = Existing(WindowId::Advanced);
    EXPECT_NE(advanced, nullptr);
    WaitForActive(advanced);
    return advanced;
  }

  void Close(WindowId id) {
    Use(id)->close();
    EXPECT_EQ(Existing(id), nullptr);
  }

  void ClickOk() {
    auto* advanced = Use(WindowId::Advanced);
    Click(Find(advanced, u"Command1"_s));
    EXPECT_EQ(Existing(WindowId::Advanced), nullptr);
  }

  /// Clicks a box or an option.
  void Choose(WindowId id, const QString& name) { Click(Find(Use(id), name)); }

  void TypeInto(WindowId id, const QString& name, const QString& text) {
    auto* window = Use(id);
    TabTo(Find(window, name));
    TypeOver(text);
  }

  /// The text of a field or label.
  static std::string Text(WindowId id, const QString& name) {
    auto* window = Existing(id);
    if (window == nullptr) {
      return "no window";
    }
    auto* control = Find(window, name);
    if (auto* field = qobject_cast<QLineEdit*>(control)) {
      return field->text().toStdString();
    }
    auto* label = qobject_cast<QLabel*>(control);
    return label != nullptr ? label->text().toStdString() : "no text";
  }
  static std::string ResultOf(WindowId id) { return Text(id, u"Result"_s); }
  static std::string InterlOf(WindowId id) { return Text(id, u"Interl"_s); }
  static std::string LengthIn(WindowId id) { return Text(id, u"MLength"_s); }

  static bool IsChecked(WindowId id, const QString& name) {
    return Find<QAbstractButton>(Existing(id), name)->isChecked();
  }
};

struct PairCase {
  std::string name;
  WindowId from = WindowId::BitrateCalc;
  WindowId to = WindowId::AudioCalc;
};

class RunningTimeSequences : public Sequences, public ::testing::WithParamInterface<PairCase> {};

TEST_P(RunningTimeSequences, TypedInOneItStandsInTheNextOpened) {
  const auto& [name, from, to] = GetParam();
  TypeInto(from, u"MLength"_s, u"90.5"_s);
  EXPECT_EQ(record.MovieLength, 90.5);
  Use(to);
  EXPECT_EQ(LengthIn(to), "90.5");
}

TEST_P(RunningTimeSequences, TypedInOneAndClosedItStandsInTheNextOpened) {
  const auto& [name, from, to] = GetParam();
  TypeInto(from, u"MLength"_s, u"125.25"_s);
  Key(Qt::Key_Escape);
  ASSERT_EQ(Existing(from), nullptr);
  Use(to);
  EXPECT_EQ(LengthIn(to), "125.25");
}

TEST_P(RunningTimeSequences, AnOpenWindowKeepsItsOwnUntilItIsLoadedAfresh) {
  const auto& [name, from, to] = GetParam();
  Use(to);
  const auto result = ResultOf(to);
  TypeInto(from, u"MLength"_s, u"90.5"_s);
  Use(to);
  EXPECT_EQ(LengthIn(to), "100");
  EXPECT_EQ(ResultOf(to), result);

  Close(to);
  Use(to);
  EXPECT_EQ(LengthIn(to), "90.5");
  EXPECT_NE(ResultOf(to), result);
}

TEST_P(RunningTimeSequences, AnOpenWindowPutsItsOwnBackWhenItIsUsed) {
  const auto& [name, from, to] = GetParam();
  Use(to);
  TypeInto(from, u"MLength"_s, u"90.5"_s);
  ASSERT_EQ(record.MovieLength, 90.5);
  auto* window = Use(to);
  TabTo(Find(window, u"MLength"_s));
  KeyLetGo(Qt::Key_Left);
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(LengthIn(from), "90.5");
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, RunningTimeSequences,
    ::testing::Values(PairCase{"VideoThenAudio", WindowId::BitrateCalc, WindowId::AudioCalc},
                      PairCase{"VideoThenDisk", WindowId::BitrateCalc, WindowId::HDCalc},
                      PairCase{"AudioThenVideo", WindowId::AudioCalc, WindowId::BitrateCalc},
                      PairCase{"AudioThenDisk", WindowId::AudioCalc, WindowId::HDCalc},
                      PairCase{"DiskThenVideo", WindowId::HDCalc, WindowId::BitrateCalc},
                      PairCase{"DiskThenAudio", WindowId::HDCalc, WindowId::AudioCalc}),
    NameOf);

TEST_F(Sequences, TheRunningTimeGoesRoundAllThreeWindows) {
  TypeInto(WindowId::BitrateCalc, u"MLength"_s, u"90"_s);
  Use(WindowId::AudioCalc);
  EXPECT_EQ(LengthIn(WindowId::AudioCalc), "90");
  TypeInto(WindowId::AudioCalc, u"MLength"_s, u"80"_s);
  Use(WindowId::HDCalc);
  EXPECT_EQ(LengthIn(WindowId::HDCalc), "80");
  TypeInto(WindowId::HDCalc, u"MLength"_s, u"70"_s);
  Close(WindowId::BitrateCalc);
  Use(WindowId::BitrateCalc);
  EXPECT_EQ(LengthIn(WindowId::BitrateCalc), "70");
  EXPECT_EQ(LengthIn(WindowId::AudioCalc), "80");
}

TEST_F(Sequences, TheCodecOfTheBitrateWindowIsThatOfTheDiskWindow) {
  Choose(WindowId::BitrateCalc, u"DivX(0)"_s);
  Use(WindowId::HDCalc);
  EXPECT_TRUE(IsChecked(WindowId::HDCalc, u"DivX(0)"_s));
  EXPECT_FALSE(IsChecked(WindowId::HDCalc, u"DivX(1)"_s));
}

TEST_F(Sequences, TheCodecOfTheDiskWindowIsThatOfTheBitrateWindow) {
  Choose(WindowId::HDCalc, u"DivX(0)"_s);
  Use(WindowId::BitrateCalc);
  EXPECT_TRUE(IsChecked(WindowId::BitrateCalc, u"DivX(0)"_s));
  EXPECT_EQ(ResultOf(WindowId::BitrateCalc), "821");
}

TEST_F(Sequences, AnOpenWindowKeepsItsCodecUntilItIsLoadedAfresh) {
  Use(WindowId::BitrateCalc);
  Choose(WindowId::HDCalc, u"DivX(0)"_s);
  Use(WindowId::BitrateCalc);
  EXPECT_TRUE(IsChecked(WindowId::BitrateCalc, u"DivX(1)"_s));
  EXPECT_EQ(ResultOf(WindowId::BitrateCalc), VideoResult);
  Close(WindowId::BitrateCalc);
  Use(WindowId::BitrateCalc);
  EXPECT_TRUE(IsChecked(WindowId::BitrateCalc, u"DivX(0)"_s));
}

TEST_F(Sequences, TheVideoSizeOfTheAudioWindowIsThatOfTheDiskWindow) {
  TypeInto(WindowId::AudioCalc, u"Source"_s, u"600.5"_s);
  Use(WindowId::HDCalc);
  EXPECT_EQ(Text(WindowId::HDCalc, u"Video2"_s), "600.5");
}

TEST_F(Sequences, TheVideoSizeOfTheDiskWindowIsThatOfTheAudioWindow) {
  Choose(WindowId::HDCalc, u"Video(1)"_s);
  TypeInto(WindowId::HDCalc, u"Video2"_s, u"600"_s);
  Use(WindowId::AudioCalc);
  EXPECT_EQ(Text(WindowId::AudioCalc, u"Source"_s), "600");
  // 100 MB less the interleaving.
  EXPECT_EQ(ResultOf(WindowId::AudioCalc), "135");
}

TEST_F(Sequences, AnOpenWindowKeepsItsVideoSizeUntilItIsLoadedAfresh) {
  Use(WindowId::HDCalc);
  TypeInto(WindowId::AudioCalc, u"Source"_s, u"600"_s);
  Use(WindowId::HDCalc);
  EXPECT_EQ(Text(WindowId::HDCalc, u"Video2"_s), "550");
  Close(WindowId::HDCalc);
  Use(WindowId::HDCalc);
  EXPECT_EQ(Text(WindowId::HDCalc, u"Video2"_s), "600");
}

TEST_F(Sequences, BothOpenersBringTheSameOneWindow) {
  const auto* first = UseAdvancedOf(WindowId::BitrateCalc);
  EXPECT_EQ(record.AdvancedCaller, 1);
  const auto* second = UseAdvancedOf(WindowId::AudioCalc);
  EXPECT_EQ(record.AdvancedCaller, 2);
  EXPECT_EQ(first, second);
  EXPECT_EQ(Count(WindowId::Advanced), 1);
}

TEST_F(Sequences, TheWindowThatOpensItAgainLoadsNothingAnew) {
  auto* advanced = UseAdvancedOf(WindowId::BitrateCalc);
  TabTo(Find(advanced, u"Iframe1"_s));
  TypeOver(u"25"_s);
  UseAdvancedOf(WindowId::AudioCalc);
  EXPECT_EQ(Text(WindowId::Advanced, u"Iframe1"_s), "25");
}

struct LastOpenerCase {
  std::string name;
  WindowId first = WindowId::BitrateCalc;
  WindowId last = WindowId::AudioCalc;
  std::string_view firstResult;  // as it was
  std::string_view lastResult;   // as it was
  std::string_view lastWithoutOverhead;
};

class LastOpener : public Sequences, public ::testing::WithParamInterface<LastOpenerCase> {};

TEST_P(LastOpener, IsTheOneThatOkRefreshes) {
  const auto& row = GetParam();
  UseAdvancedOf(row.first);
  UseAdvancedOf(row.last);
  Choose(WindowId::Advanced, u"VOver"_s);
  Choose(WindowId::Advanced, u"AOver"_s);
  EXPECT_EQ(ResultOf(row.last), row.lastResult);
  ClickOk();
  EXPECT_EQ(ResultOf(row.last), row.lastWithoutOverhead);
  EXPECT_EQ(InterlOf(row.last), "OFF");
  EXPECT_EQ(ResultOf(row.first), row.firstResult);
  EXPECT_EQ(InterlOf(row.first), "ON");

  Close(row.first);
  Use(row.first);
  EXPECT_EQ(InterlOf(row.first), "OFF");
  EXPECT_NE(ResultOf(row.first), row.firstResult);
}

TEST_P(LastOpener, IsForgottenWhenTheOtherOpensItOnceMore) {
  const auto& row = GetParam();
  UseAdvancedOf(row.last);
  UseAdvancedOf(row.first);
  UseAdvancedOf(row.last);
  UseAdvancedOf(row.first);
  Choose(WindowId::Advanced, u"VOver"_s);
  Choose(WindowId::Advanced, u"AOver"_s);
  ClickOk();
  EXPECT_EQ(InterlOf(row.first), "OFF");
  EXPECT_EQ(ResultOf(row.last), row.lastResult);
  EXPECT_EQ(InterlOf(row.last), "ON");
}

INSTANTIATE_TEST_SUITE_P(
    Orders, LastOpener,
    ::testing::Values(LastOpenerCase{"VideoThenAudio", WindowId::BitrateCalc, WindowId::AudioCalc,
                                     VideoResult, AudioResult, AudioResultWithoutInterleaving},
                      LastOpenerCase{"AudioThenVideo", WindowId::AudioCalc, WindowId::BitrateCalc,
                                     AudioResult, VideoResult, VideoResultWithoutOverhead}),
    NameOf);

struct ClosedOpenerCase {
  std::string name;
  WindowId id = WindowId::BitrateCalc;
  std::string_view withoutOverhead;
};

class ClosedOpener : public Sequences, public ::testing::WithParamInterface<ClosedOpenerCase> {};

TEST_P(ClosedOpener, IsLoadedByOkAndAfreshWhenItIsShown) {
  const auto& [name, id, withoutOverhead] = GetParam();
  UseAdvancedOf(id);
  Close(id);
  Choose(WindowId::Advanced, u"VOver"_s);
  Choose(WindowId::Advanced, u"AOver"_s);
  ClickOk();
  const auto* loaded = Existing(id);
  ASSERT_NE(loaded, nullptr);
  EXPECT_FALSE(loaded->isVisible());

  TypeInto(WindowId::HDCalc, u"MLength"_s, u"55"_s);
  ASSERT_EQ(record.MovieLength, 55);
  EXPECT_EQ(ResultOf(id), withoutOverhead);
  Use(id);
  EXPECT_EQ(LengthIn(id), "55");
  EXPECT_EQ(InterlOf(id), "OFF");
  EXPECT_EQ(record.MovieLength, 55);
}

TEST_P(ClosedOpener, IsUsableOnceItIsShown) {
  const auto& [name, id, withoutOverhead] = GetParam();
  UseAdvancedOf(id);
  Close(id);
  ClickOk();
  TypeInto(id, u"MLength"_s, u"90"_s);
  EXPECT_EQ(record.MovieLength, 90);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Existing(id), nullptr);
}

TEST_P(ClosedOpener, IsNotLoadedByEscape) {
  const auto& [name, id, withoutOverhead] = GetParam();
  UseAdvancedOf(id);
  Close(id);
  Use(WindowId::Advanced);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Existing(WindowId::Advanced), nullptr);
  EXPECT_EQ(Existing(id), nullptr);
}

TEST_P(ClosedOpener, LoadedUnseenOpensTheSettingsAgainOnceShown) {
  const auto& [name, id, withoutOverhead] = GetParam();
  UseAdvancedOf(id);
  Close(id);
  ClickOk();
  UseAdvancedOf(id);
  Choose(WindowId::Advanced, u"VOver"_s);
  Choose(WindowId::Advanced, u"AOver"_s);
  ClickOk();
  EXPECT_EQ(Count(id), 1);
  EXPECT_EQ(ResultOf(id), withoutOverhead);
}

INSTANTIATE_TEST_SUITE_P(Openers, ClosedOpener,
                         ::testing::Values(ClosedOpenerCase{"Video", WindowId::BitrateCalc,
                                                            VideoResultWithoutOverhead},
                                           ClosedOpenerCase{"Audio", WindowId::AudioCalc,
                                                            AudioResultWithoutInterleaving}),
                         NameOf);

TEST_F(Sequences, OnlyTheInterleavingIsTakenFromTheAudio) {
  UseAdvancedOf(WindowId::AudioCalc);
  Choose(WindowId::Advanced, u"AOver"_s);
  ClickOk();
  EXPECT_EQ(record.VideoFrameOverhead, 0.5859375);
  EXPECT_EQ(ResultOf(WindowId::AudioCalc), AudioResultWithoutInterleaving);
  EXPECT_EQ(InterlOf(WindowId::AudioCalc), "ON");

  UseAdvancedOf(WindowId::AudioCalc);
  Choose(WindowId::Advanced, u"AOver"_s);
  Choose(WindowId::Advanced, u"VOver"_s);
  ClickOk();
  EXPECT_EQ(record.VideoFrameOverhead, 0);
  EXPECT_EQ(ResultOf(WindowId::AudioCalc), AudioResult);
  EXPECT_EQ(InterlOf(WindowId::AudioCalc), "ON");
}

TEST_F(Sequences, BothOverheadsAreTakenFromTheVideo) {
  UseAdvancedOf(WindowId::BitrateCalc);
  Choose(WindowId::Advanced, u"AOver"_s);
  ClickOk();
  EXPECT_EQ(ResultOf(WindowId::BitrateCalc), VideoResultWithOneOverhead);
  UseAdvancedOf(WindowId::BitrateCalc);
  Choose(WindowId::Advanced, u"AOver"_s);
  Choose(WindowId::Advanced, u"VOver"_s);
  ClickOk();
  EXPECT_EQ(ResultOf(WindowId::BitrateCalc), VideoResultWithOneOverhead);
  UseAdvancedOf(WindowId::BitrateCalc);
  Choose(WindowId::Advanced, u"AOver"_s);
  ClickOk();
  EXPECT_EQ(ResultOf(WindowId::BitrateCalc), VideoResultWithoutOverhead);
  EXPECT_EQ(InterlOf(WindowId::BitrateCalc), "OFF");
}

TEST_F(Sequences, AnOptionChangesTheFrameRateAndTheFramesFollowAtTheNextRecomputation) {
  record.FrameRateSystem = 1;
  UseAdvancedOf(WindowId::BitrateCalc);
  ASSERT_TRUE(IsChecked(WindowId::Advanced, u"InterlOpt(3)"_s));
  Choose(WindowId::Advanced, u"InterlOpt(4)"_s);
  EXPECT_EQ(record.InterleaveOption, 4);
  EXPECT_EQ(record.FrameRateSystem, 2);
  EXPECT_EQ(record.VideoFrameOverhead, 24 * 23.976 / 1024);
  EXPECT_DOUBLE_EQ(record.AudioInterleaveOverhead, 0.702421875);

  ClickOk();
  EXPECT_EQ(record.VideoFrameOverhead, 24 * 29.97 / 1024);
  // 2 x 0.702421875 KB/s: 955.7333 - 125 - 11.2388 kbit/s, times 1.024.
  EXPECT_EQ(ResultOf(WindowId::BitrateCalc), "839");
}

TEST_F(Sequences, ClosedWithoutOkTheFramesStayAtTheOldRateUntilTheNextOpening) {
  record.FrameRateSystem = 1;
  UseAdvancedOf(WindowId::BitrateCalc);
  Choose(WindowId::Advanced, u"InterlOpt(4)"_s);
  Key(Qt::Key_Escape);
  ASSERT_EQ(Existing(WindowId::Advanced), nullptr);
  EXPECT_EQ(record.FrameRateSystem, 2);
  EXPECT_EQ(record.VideoFrameOverhead, 24 * 23.976 / 1024);

  UseAdvancedOf(WindowId::AudioCalc);
  EXPECT_TRUE(IsChecked(WindowId::Advanced, u"InterlOpt(4)"_s));
  EXPECT_EQ(record.VideoFrameOverhead, 24 * 29.97 / 1024);
}

TEST_F(Sequences, OpeningTheSettingsCountsTheTextsFromBeforeTheirLoadButShowsNothingOfIt) {
  record.InterleaveOption = 1;
  record.InterleaveTime = 40;  // 0.5859375 KB/s, as stored
  UseAdvancedOf(WindowId::AudioCalc);
  EXPECT_EQ(record.AudioInterleaveOverhead, 0.05859375);  // of 400 ms
  Key(Qt::Key_Escape);
  ASSERT_EQ(Existing(WindowId::Advanced), nullptr);
  EXPECT_EQ(ResultOf(WindowId::AudioCalc), AudioResult);

  auto* audio = Use(WindowId::AudioCalc);
  TabTo(Find(audio, u"Target"_s));
  KeyLetGo(Qt::Key_Left);
  // 209.7152 - 0.48 kbit/s.
  EXPECT_EQ(ResultOf(WindowId::AudioCalc), "209");

  UseAdvancedOf(WindowId::AudioCalc);
  ClickOk();
  EXPECT_EQ(record.AudioInterleaveOverhead, 0.5859375);
  EXPECT_EQ(ResultOf(WindowId::AudioCalc), AudioResult);
}

TEST_F(Sequences, OpeningTheSettingsUntickedTurnsTheLabelOfTheNextWindowOn) {
  record.VideoFrameOverhead = 0;
  record.AudioInterleaveOverhead = 0;
  record.VideoOverheadOn = 0;
  record.AudioOverheadOn = 0;
  UseAdvancedOf(WindowId::BitrateCalc);
  EXPECT_EQ(InterlOf(WindowId::BitrateCalc), "OFF");
  Use(WindowId::AudioCalc);
  EXPECT_EQ(InterlOf(WindowId::AudioCalc), "ON");

  ClickOk();
  EXPECT_EQ(record.AudioInterleaveOverhead, 0);
  EXPECT_EQ(InterlOf(WindowId::BitrateCalc), "OFF");
  Close(WindowId::AudioCalc);
  Use(WindowId::AudioCalc);
  EXPECT_EQ(InterlOf(WindowId::AudioCalc), "OFF");
}

// The refreshed window computes with its own figures, and stores them again.
TEST_F(Sequences, OkRecomputesTheOpenerWithTheFiguresThatItShows) {
  UseAdvancedOf(WindowId::BitrateCalc);
  TypeInto(WindowId::HDCalc, u"MLength"_s, u"55"_s);
  ASSERT_EQ(record.MovieLength, 55);
  Choose(WindowId::Advanced, u"VOver"_s);
  Choose(WindowId::Advanced, u"AOver"_s);
  ClickOk();
  EXPECT_EQ(LengthIn(WindowId::BitrateCalc), "100");
  EXPECT_EQ(ResultOf(WindowId::BitrateCalc), VideoResultWithoutOverhead);
  EXPECT_EQ(record.MovieLength, 100);
}

TEST_F(Sequences, TheDiskWindowKnowsNothingOfOverheads) {
  Use(WindowId::HDCalc);
  const auto result = ResultOf(WindowId::HDCalc);
  ASSERT_NE(result, "");
  UseAdvancedOf(WindowId::BitrateCalc);
  Choose(WindowId::Advanced, u"VOver"_s);
  Choose(WindowId::Advanced, u"AOver"_s);
  ClickOk();
  Close(WindowId::HDCalc);
  Use(WindowId::HDCalc);
  EXPECT_EQ(ResultOf(WindowId::HDCalc), result);
}

TEST_F(Sequences, TheFrameRateOfTheSplitWindowIsThatOfTheConverter) {
  Choose(WindowId::AVISplit, u"System(1)"_s);
  EXPECT_EQ(Text(WindowId::AVISplit, u"Frames"_s), "143856");
  Use(WindowId::QuickC);
  EXPECT_TRUE(IsChecked(WindowId::QuickC, u"System(1)"_s));
  EXPECT_EQ(Text(WindowId::QuickC, u"Frames"_s), "143856");
  EXPECT_EQ(Text(WindowId::QuickC, u"Min"_s), "100");
}

TEST_F(Sequences, TheFrameRateOfTheConverterIsThatOfTheSplitWindowAndOfTheOverheads) {
  Choose(WindowId::QuickC, u"System(2)"_s);
  EXPECT_EQ(Text(WindowId::QuickC, u"Frames"_s), "179820");
  Use(WindowId::AVISplit);
  EXPECT_TRUE(IsChecked(WindowId::AVISplit, u"System(2)"_s));
  EXPECT_EQ(Text(WindowId::AVISplit, u"Frames"_s), "179820");
  UseAdvancedOf(WindowId::BitrateCalc);
  EXPECT_TRUE(IsChecked(WindowId::Advanced, u"InterlOpt(4)"_s));
}

TEST_F(Sequences, TheOptionOfTheOverheadsIsTheFrameRateOfTheConverter) {
  UseAdvancedOf(WindowId::AudioCalc);
  Choose(WindowId::Advanced, u"InterlOpt(4)"_s);
  Use(WindowId::QuickC);
  EXPECT_TRUE(IsChecked(WindowId::QuickC, u"System(2)"_s));
}

TEST_F(Sequences, ARunningTimeThatIsNoWholeNumberOfFramesStaysInEveryWindow) {
  TypeInto(WindowId::BitrateCalc, u"MLength"_s, u"100.001"_s);  // 150001.5 frames
  EXPECT_EQ(record.MovieLength, 100.001);
  Use(WindowId::AVISplit);
  EXPECT_EQ(Text(WindowId::AVISplit, u"Frames"_s), "150001");
  Use(WindowId::HDCalc);
  EXPECT_EQ(LengthIn(WindowId::HDCalc), "100.001");
  Use(WindowId::QuickC);
  EXPECT_EQ(Text(WindowId::QuickC, u"Frames"_s), "150001");
  EXPECT_EQ(record.MovieLength, 100.001);
}

TEST_F(Sequences, FramesTypedInTheConverterStayInEveryWindow) {
  Choose(WindowId::QuickC, u"System(2)"_s);
  TypeInto(WindowId::QuickC, u"Frames"_s, u"2000"_s);
  Use(WindowId::BitrateCalc);
  Use(WindowId::AudioCalc);
  Use(WindowId::AVISplit);
  EXPECT_EQ(Text(WindowId::AVISplit, u"Frames"_s), "2000");
  Close(WindowId::QuickC);
  Use(WindowId::QuickC);
  EXPECT_EQ(Text(WindowId::QuickC, u"Frames"_s), "2000");
  EXPECT_EQ(record.MovieLength, 2000 / 29.97 / 60);
}

// Chance also decides which windows stay open while others are looked at.
TEST_F(Sequences, OpeningLookingAtAndClosingWindowsInAnyOrderChangesNoRunningTime) {
  std::mt19937 random(20261122);
  std::uniform_real_distribution<double> minutes(0.01, 400);
  std::vector<WindowId> order{WindowId::BitrateCalc, WindowId::AudioCalc, WindowId::HDCalc,
                              WindowId::AVISplit,    WindowId::QuickC,    WindowId::AspectRa,
                              WindowId::Advanced};
  for (int evening = 0; evening < 12; ++evening) {
    const double exact = minutes(random);
    record.MovieLength = exact;
    record.FrameRateSystem = static_cast<std::int16_t>(evening % 3);
    std::shuffle(order.begin(), order.end(), random);
    for (const auto id : order) {
      Use(id);
      for (int control = 0; control < 20; ++control) {
        Key(Qt::Key_Tab);
      }
      ASSERT_EQ(record.MovieLength, exact) << evening << ", window " << static_cast<int>(id);
      if (random() % 2 == 0) {
        Close(id);
      }
    }
    for (const auto id : order) {
      if (Existing(id) != nullptr) {
        Close(id);
      }
    }
    ASSERT_EQ(record.MovieLength, exact) << evening;
  }
}

TEST_F(Sequences, FramesTypedInTheSplitWindowAreTheRunningTimeOfTheCalculators) {
  TypeInto(WindowId::AVISplit, u"Frames"_s, u"135000"_s);
  Use(WindowId::AudioCalc);
  EXPECT_EQ(LengthIn(WindowId::AudioCalc), "90");
  Use(WindowId::QuickC);
  EXPECT_EQ(Text(WindowId::QuickC, u"Min"_s), "90");
}

TEST_F(Sequences, MinutesTypedInTheConverterAreTheFramesOfTheSplitWindow) {
  TypeInto(WindowId::QuickC, u"Min"_s, u"90"_s);
  Use(WindowId::AVISplit);
  EXPECT_EQ(Text(WindowId::AVISplit, u"Frames"_s), "135000");
  Use(WindowId::BitrateCalc);
  EXPECT_EQ(LengthIn(WindowId::BitrateCalc), "90");
}

TEST_F(Sequences, TheSplitWindowClosedAndOpenedAgainShowsItsThreeSegments) {
  Choose(WindowId::AVISplit, u"Segs(1)"_s);
  EXPECT_EQ(Text(WindowId::AVISplit, u"SetF(7)"_s), "149749");
  Close(WindowId::AVISplit);
  Use(WindowId::AVISplit);
  EXPECT_TRUE(IsChecked(WindowId::AVISplit, u"Segs(1)"_s));
  EXPECT_EQ(Text(WindowId::AVISplit, u"SetF(7)"_s), "149749");
}

}  // namespace
}  // namespace brindle
