// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_norm.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QProgressBar>
#include <QSlider>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/settings/settings.h"
#include "base/settings/settings_lines.h"
#include "tests/support/handler_event.h"
#include "tests/support/handler_table.h"
#include "tests/support/named_case.h"
#include "tests/wav/normalizer_window.h"
#include "tests/wav/wav_builder.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

const std::string NoFile;

// --- Loading -----------------------------------------------------------------------------------

class Loading : public NormalizerWindow {};

TEST_F(Loading, ShowsNoFile) {
  OpenNormalizer();
  EXPECT_EQ(window->objectName(), u"WavNorm"_s);
  EXPECT_EQ(window->windowTitle(), u"WAV Normalizer (rev3)"_s);
  EXPECT_EQ(Shown(), NoFile);
  EXPECT_EQ(Disabled(), "");
  EXPECT_EQ(Info(), "No File Loaded Samplerate Sample Mode Duration");
  EXPECT_EQ(FocusedControl(), "Mbuffer");
  EXPECT_EQ(questions.asked.size(), 0U);
}

struct FlagCase {
  const char* name = nullptr;  // of the box
  bool Settings::*field = nullptr;
};

class LoadedFlags : public NormalizerWindow, public ::testing::WithParamInterface<FlagCase> {};

TEST_P(LoadedFlags, TickTheirOwnBox) {
  const std::initializer_list<const char*> boxNames{"Mbuffer", "AutoNorm", "RemFolders"};
  for (const bool value : {false, true}) {
    record.WavMultiBuffer = !value;
    record.WavAutoNormalize = !value;
    record.WavRememberFolders = !value;
    record.*GetParam().field = value;
    OpenNormalizer();
    for (const auto* box : boxNames) {
      EXPECT_EQ(IsChecked(QString::fromLatin1(box)), value == (box == std::string(GetParam().name)))
          << box;
    }
    EXPECT_EQ(record.*GetParam().field, value);
    window->close();
    RunDeletions();
  }
}

TEST_P(LoadedFlags, FollowTheirBox) {
  record.*GetParam().field = false;
  record.WavTargetFile = u"/kept/target.wav"_s;
  record.WavSourceFile = u"/kept/source.wav"_s;
  OpenNormalizer();
  const auto target = record.WavTargetFile;
  const auto source = record.WavSourceFile;
  ClickOn(GetParam().name);
  EXPECT_TRUE(record.*GetParam().field);
  TabTo(Control(GetParam().name));
  Key(Qt::Key_Space);
  EXPECT_FALSE(record.*GetParam().field);
  EXPECT_EQ(record.WavTargetFile, target) << "the paths are forgotten at the next opening only";
  EXPECT_EQ(record.WavSourceFile, source);
}

INSTANTIATE_TEST_SUITE_P(Each, LoadedFlags,
                         ::testing::Values(FlagCase{"Mbuffer", &Settings::WavMultiBuffer},
                                           FlagCase{"AutoNorm", &Settings::WavAutoNormalize},
                                           FlagCase{"RemFolders", &Settings::WavRememberFolders}),
                         NameOf);

struct ToleranceCase {
  const char* name = nullptr;
  float stored = 0;  // percent
  int slider = 0;
  std::string label;
};

class LoadedTolerance : public NormalizerWindow,
                        public ::testing::WithParamInterface<ToleranceCase> {};

TEST_P(LoadedTolerance, IsShownAndKeptAsStored) {
  record.WavTolerance = GetParam().stored;
  OpenNormalizer();
  EXPECT_EQ(Toler->value(), GetParam().slider);
  EXPECT_EQ(Text("TolerTxt"), GetParam().label);
  EXPECT_EQ(record.WavTolerance, GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(Each, LoadedTolerance,
                         ::testing::Values(ToleranceCase{"None", 0, 0, "0%"},
                                           ToleranceCase{"Whole", 6, 6, "6%"},
                                           ToleranceCase{"TieToEvenBelow", 2.5F, 2, "2.5%"},
                                           ToleranceCase{"TieToEvenAbove", 3.5F, 4, "3.5%"},
                                           ToleranceCase{"AboveATie", 2.501F, 3, "2.501%"},
                                           ToleranceCase{"Single", 1.778F, 2, "1.778%"},
                                           ToleranceCase{"Most", 30, 30, "30%"},
                                           ToleranceCase{"AboveTheMost", 31, 30, "31%"},
                                           ToleranceCase{"FarAbove", 1e30F, 30, "1E+30%"},
                                           ToleranceCase{"BelowTheLeast", -1, 0, "-1%"},
                                           ToleranceCase{"FarBelow", -1e30F, 0, "-1E+30%"}),
                         NameOf);

TEST_F(Loading, SetsUpTheSlider) {
  OpenNormalizer();
  EXPECT_EQ(Toler->minimum(), 0);
  EXPECT_EQ(Toler->maximum(), 30);
  EXPECT_EQ(Toler->tickInterval(), 3);
  EXPECT_NE(Toler->tickPosition(), QSlider::NoTicks);
  EXPECT_EQ(Toler->singleStep(), 1);
  EXPECT_EQ(Toler->pageStep(), 5);
}

TEST_F(Loading, ShowsTheTargetPercentageAsStored) {
  for (const std::int16_t percent :
       std::initializer_list<std::int16_t>{100, 50, 0, -20, 32767, -32768}) {
    record.WavNormalizePercent = percent;
    OpenNormalizer();
    // Above 100 the field does to the text what it does to a typed one.
    const std::int16_t shown = percent > 100 ? std::int16_t{100} : percent;
    EXPECT_EQ(Text("PercNorm"), std::to_string(shown));
    EXPECT_EQ(record.WavNormalizePercent, shown);
    window->close();
    RunDeletions();
  }
}

TEST_F(Loading, KeepsTheRememberedPaths) {
  record.WavTargetFile = u"/music/target file.wav"_s;
  record.WavSourceFile = u"/music/source file.wav"_s;
  OpenNormalizer();
  EXPECT_EQ(record.WavTargetFile, u"/music/target file.wav"_s);
  EXPECT_EQ(record.WavSourceFile, u"/music/source file.wav"_s);
  EXPECT_EQ(Text("TargetFile"), "/music/target file.wav");
  EXPECT_EQ(Control("TargetFile")->toolTip(), u"/music/target file.wav"_s);
  EXPECT_EQ(Text("WavInfo1"), "No File Loaded");
}

TEST_F(Loading, ForgetsThePathsEveryTime) {
  record.WavRememberFolders = false;
  for (int times = 0; times < 2; ++times) {
    record.WavTargetFile = u"/music/target.wav"_s;
    record.WavSourceFile = u"/music/source.wav"_s;
    OpenNormalizer();
    EXPECT_EQ(record.WavTargetFile, u"C:\\Output.wav"_s);
    EXPECT_EQ(record.WavSourceFile, QString());
    EXPECT_EQ(Text("TargetFile"), "C:\\Output.wav");
    EXPECT_EQ(Control("TargetFile")->toolTip(), u"C:\\Output.wav"_s);
    window->close();
    RunDeletions();
  }
}

TEST_F(Loading, SelectsTheTarget) {
  record.WavOverwriteSource = false;
  OpenNormalizer();
  EXPECT_FALSE(IsChecked(u"Output(0)"_s));
  EXPECT_TRUE(IsChecked(u"Output(1)"_s));
  EXPECT_EQ(Disabled(), "");
  EXPECT_FALSE(record.WavOverwriteSource);
}

TEST_F(Loading, SelectsTheSource) {
  record.WavOverwriteSource = true;
  OpenNormalizer();
  EXPECT_TRUE(IsChecked(u"Output(0)"_s));
  EXPECT_FALSE(IsChecked(u"Output(1)"_s));
  EXPECT_EQ(Disabled(), "TargetFile Target");
  EXPECT_TRUE(record.WavOverwriteSource);
}

TEST_F(Loading, StoresNothingElse) {
  record.WavTolerance = 99.5F;
  record.WavMultiBuffer = true;
  record.WavAutoNormalize = true;
  record.WavSourceFile = u"/music/source.wav"_s;
  const auto before = WriteLines(record, true).toStdString();
  OpenNormalizer();
  EXPECT_EQ(WriteLines(record, true).toStdString(), before);
}

TEST_F(Loading, IsOfOneWindowOnly) {
  OpenNormalizer();
  windows.Open(WindowId::WavNorm);
  int count = 0;
  for (const auto* widget : QApplication::topLevelWidgets()) {
    count += widget->objectName() == u"WavNorm"_s ? 1 : 0;
  }
  EXPECT_EQ(count, 1);
}

// --- Handlers ----------------------------------------------------------------------------------

// The events of the controls that have no handler.
class QuietEvents : public NormalizerWindow, public ::testing::WithParamInterface<HandlerRow> {};

TEST_P(QuietEvents, ChangeNothing) {
  OpenNormalizer();
  auto* control = Find(window, QString::fromStdString(GetParam().control));
  auto* elsewhere = GetParam().control == "AutoNorm" ? Control("Mbuffer") : Control("AutoNorm");
  Prepare(GetParam().event, control, elsewhere);
  record.WavNormalizePercent = 77;
  record.WavTolerance = 7.5F;
  record.WavTargetFile = u"/other"_s;
  const auto before = WriteLines(record, true).toStdString();
  const auto shown = Shown() + Disabled() + Text("PercNorm") + Text("TolerTxt") + Info();
  Cause(GetParam().event, control, elsewhere);
  EXPECT_EQ(WriteLines(record, true).toStdString(), before);
  EXPECT_EQ(Shown() + Disabled() + Text("PercNorm") + Text("TolerTxt") + Info(), shown);
}

INSTANTIATE_TEST_SUITE_P(Focus, QuietEvents,
                         Rows(WithoutHandler({"PercNorm", "Mbuffer", "AutoNorm", "RemFolders",
                                              "btnOpen", "Target", "Output(0)", "Output(1)",
                                              "Toler"},
                                             {Event::GotFocus, Event::LostFocus})),
                         RowName);
INSTANTIATE_TEST_SUITE_P(Field, QuietEvents,
                         Rows(WithoutHandler({"PercNorm"},
                                             {Event::KeyUp, Event::MouseDown, Event::MouseUp})),
                         RowName);

class OutputOptions : public NormalizerWindow {};

TEST_F(OutputOptions, StoreAndEnable) {
  OpenNormalizer();
  ClickOn("Output(0)");
  EXPECT_TRUE(record.WavOverwriteSource);
  EXPECT_EQ(Disabled(), "TargetFile Target");
  ClickOn("Output(1)");
  EXPECT_FALSE(record.WavOverwriteSource);
  EXPECT_EQ(Disabled(), "");
}

TEST_F(OutputOptions, WorkByTheKeyboard) {
  OpenNormalizer();
  TabTo(Control("Output(1)"));
  Key(Qt::Key_Up);
  EXPECT_TRUE(IsChecked(u"Output(0)"_s));
  EXPECT_TRUE(record.WavOverwriteSource);
  EXPECT_EQ(Disabled(), "TargetFile Target");
  Key(Qt::Key_Down);
  EXPECT_FALSE(record.WavOverwriteSource);
  EXPECT_EQ(Disabled(), "");
}

class Browsing : public NormalizerWindow {};

TEST_F(Browsing, AsksWithTheRememberedTarget) {
  OpenNormalizer();
  dialogs.paths.push_back(u"/music/new.wav"_s);
  ClickOn("Target");
  ASSERT_EQ(dialogs.asked.size(), 1U);
  EXPECT_EQ(dialogs.asked[0].name, u"DLG"_s);
  EXPECT_EQ(dialogs.asked[0].title, u"Save As"_s);
  EXPECT_EQ(dialogs.asked[0].filters, QStringList{u"PCM WAV file (*.wav)"_s});
  EXPECT_EQ(dialogs.asked[0].start, PathOf("out.wav"));
  EXPECT_EQ(dialogs.suffixes, std::vector<QString>{u"wav"_s});
  EXPECT_EQ(record.WavTargetFile, u"/music/new.wav"_s);
  EXPECT_EQ(Text("TargetFile"), "/music/new.wav");
  EXPECT_EQ(Control("TargetFile")->toolTip(), u"/music/new.wav"_s);
}

TEST_F(Browsing, StartsWithNothingWhereNothingIsRemembered) {
  record.WavRememberFolders = false;
  OpenNormalizer();
  dialogs.paths.push_back(u"/music/new.wav"_s);
  ClickOn("Target");
  ASSERT_EQ(dialogs.asked.size(), 1U);
  EXPECT_EQ(dialogs.asked[0].start, QString());
  EXPECT_EQ(record.WavTargetFile, u"/music/new.wav"_s);
}

TEST_F(Browsing, CancelledChangesNothing) {
  OpenNormalizer();
  dialogs.paths.emplace_back();
  ClickOn("Target");
  EXPECT_EQ(record.WavTargetFile, PathOf("out.wav"));
  EXPECT_EQ(Text("TargetFile"), PathOf("out.wav").toStdString());
}

TEST_F(Browsing, DoesNotAskAboutOverwriting) {
  Put("there.wav", Quiet());
  OpenNormalizer();
  dialogs.paths.push_back(PathOf("there.wav"));
  ClickOn("Target");
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_EQ(record.WavTargetFile, PathOf("there.wav"));
}

TEST_F(Browsing, ShowsAnyPathWhole) {
  OpenNormalizer();
  const auto size = window->size();
  const auto path = u"/<b>&amp;&x</b>/"_s + QString(400, u'l') + u".wav"_s;
  dialogs.paths.push_back(path);
  ClickOn("Target");
  EXPECT_EQ(Text("TargetFile"), path.toStdString());
  QCoreApplication::processEvents();
  EXPECT_EQ(window->size(), size);
}

// --- The percentage ----------------------------------------------------------------------------

struct TypedCase {
  const char* name = nullptr;
  const char* typed = nullptr;
  std::string shown;
  std::int16_t stored = 0;  // 77 before
};

class TypedPercentages : public NormalizerWindow, public ::testing::WithParamInterface<TypedCase> {
 protected:
  void BeginTyping() {
    record.WavNormalizePercent = 77;
    OpenNormalizer();
    TabTo(PercNorm);
    Key(Qt::Key_A, Qt::ControlModifier);
  }
  void ExpectIt() const {
    EXPECT_EQ(Text("PercNorm"), GetParam().shown);
    EXPECT_EQ(record.WavNormalizePercent, GetParam().stored);
  }
};

TEST_P(TypedPercentages, AreRepairedAndStored) {
  BeginTyping();
  Type(QString::fromLatin1(GetParam().typed));
  ExpectIt();
  Key(Qt::Key_Tab);
  ExpectIt();
}

INSTANTIATE_TEST_SUITE_P(
    Typed, TypedPercentages,
    ::testing::Values(
        TypedCase{"Whole", "50", "50", 50}, TypedCase{"Zero", "0", "0", 0},
        TypedCase{"NumberWithALetter", "12x", "12", 12}, TypedCase{"Letter", "x", "0", 0},
        TypedCase{"AboveTheMost", "150", "100", 100},
        TypedCase{"JustAboveTheMost", "100.1", "100", 100}, TypedCase{"TheMost", "100", "100", 100},
        TypedCase{"Negative", "-20", "-20", -20},
        TypedCase{"FarNegative", "-99999", "-99999", -32768}, TypedCase{"TieDown", "2.5", "2.5", 2},
        TypedCase{"TieUp", "3.5", "3.5", 4}, TypedCase{"Fraction", ".5", ".5", 0},
        TypedCase{"Comma", "1,5", "1.5", 2}, TypedCase{"OnlyBegun", "-", "-", 77},
        TypedCase{"OnlyAPeriod", ".", ".", 77}, TypedCase{"OnlyASign", "+", "+", 77},
        TypedCase{"OnlySignAndPeriod", "-.", "-.", 77}, TypedCase{"SignWithALetter", "-x", "0", 0},
        TypedCase{"TwoSigns", "--", "0", 0}, TypedCase{"Blank", " ", "0", 0}),
    NameOf);

class PastedPercentages : public TypedPercentages {};

TEST_P(PastedPercentages, AreRepairedAndStored) {
  BeginTyping();
  Paste(QString::fromLatin1(GetParam().typed));
  ExpectIt();
}

INSTANTIATE_TEST_SUITE_P(Pasted, PastedPercentages,
                         ::testing::Values(TypedCase{"Exponent", "1e1", "1e1", 10},
                                           TypedCase{"LargeExponent", "1e5", "100", 100},
                                           TypedCase{"Comma", "1,5", "1", 1},
                                           TypedCase{"Unit", "50 %", "50", 50},
                                           TypedCase{"Blanks", " 40 ", " 40 ", 40},
                                           TypedCase{"OutOfRange", "1e999", "0", 0},
                                           TypedCase{"Infinity", "inf", "0", 0},
                                           TypedCase{"FarNegative", "-1e300", "-1e300", -32768}),
                         NameOf);

class Percentage : public NormalizerWindow {};

TEST_F(Percentage, EmptiedStoresNothing) {
  record.WavNormalizePercent = 77;
  OpenNormalizer();
  TabTo(PercNorm);
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Text("PercNorm"), "");
  EXPECT_EQ(record.WavNormalizePercent, 77);
}

TEST_F(Percentage, IsStoredAtEveryKey) {
  OpenNormalizer();
  TabTo(PercNorm);
  Key(Qt::Key_A, Qt::ControlModifier);
  Type(u"5"_s);
  EXPECT_EQ(record.WavNormalizePercent, 5);
  Type(u"0"_s);
  EXPECT_EQ(record.WavNormalizePercent, 50);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(record.WavNormalizePercent, 5);
}

TEST_F(Percentage, LetsANegativeOneBeTyped) {
  OpenNormalizer();
  TabTo(PercNorm);
  TypeOver(u"-"_s);
  EXPECT_EQ(record.WavNormalizePercent, 100);
  Type(u"2"_s);
  EXPECT_EQ(Text("PercNorm"), "-2");
  EXPECT_EQ(record.WavNormalizePercent, -2);
}

TEST_F(Percentage, IsNotChangedByTheArrowKeysOrTheWheel) {
  OpenNormalizer();
  TabTo(PercNorm);
  Key(Qt::Key_Up);
  Key(Qt::Key_Down);
  Wheel(PercNorm, 1);
  EXPECT_EQ(Text("PercNorm"), "100");
  EXPECT_EQ(record.WavNormalizePercent, 100);
}

// --- The tolerance -----------------------------------------------------------------------------

struct SlideCase {
  const char* name = nullptr;
  float stored = 0;
  Qt::Key key = Qt::Key_Right;
  int slider = 0;
};

class Sliding : public NormalizerWindow, public ::testing::WithParamInterface<SlideCase> {};

TEST_P(Sliding, StoresAndShows) {
  record.WavTolerance = GetParam().stored;
  OpenNormalizer();
  TabTo(Toler);
  Key(GetParam().key);
  EXPECT_EQ(Toler->value(), GetParam().slider);
  EXPECT_EQ(record.WavTolerance, static_cast<float>(GetParam().slider));
  EXPECT_EQ(Text("TolerTxt"), std::to_string(GetParam().slider) + "%");
}

INSTANTIATE_TEST_SUITE_P(Keys, Sliding,
                         ::testing::Values(SlideCase{"Right", 6, Qt::Key_Right, 7},
                                           SlideCase{"Left", 6, Qt::Key_Left, 5},
                                           SlideCase{"PageUp", 6, Qt::Key_PageUp, 11},
                                           SlideCase{"PageDown", 6, Qt::Key_PageDown, 1},
                                           SlideCase{"PageDownToTheEnd", 3, Qt::Key_PageDown, 0},
                                           SlideCase{"PageUpToTheEnd", 28, Qt::Key_PageUp, 30},
                                           SlideCase{"Home", 6, Qt::Key_Home, 0},
                                           SlideCase{"End", 6, Qt::Key_End, 30},
                                           SlideCase{"FromAFraction", 2.5F, Qt::Key_Right, 3},
                                           SlideCase{"FromOutside", 99, Qt::Key_Left, 29}),
                         NameOf);

TEST_F(Loading, ASliderThatCannotGoOnStoresNothing) {
  record.WavTolerance = 99;
  OpenNormalizer();
  TabTo(Toler);
  Key(Qt::Key_Right);
  EXPECT_EQ(record.WavTolerance, 99);
  EXPECT_EQ(Text("TolerTxt"), "99%");
}

// --- Opening a file ----------------------------------------------------------------------------

class OpeningFiles : public NormalizerWindow {};

TEST_F(OpeningFiles, AsksWithTheRememberedSource) {
  record.WavSourceFile = u"/music/before.wav"_s;
  const auto path = Put("in.wav", Quiet());
  OpenNormalizer();
  OpenFile(path);
  ASSERT_EQ(dialogs.asked.size(), 1U);
  EXPECT_EQ(dialogs.asked[0].name, u"DLG"_s);
  EXPECT_EQ(dialogs.asked[0].title, u"Select Files"_s);
  EXPECT_EQ(dialogs.asked[0].start, u"/music/before.wav"_s);
  ASSERT_EQ(dialogs.asked[0].filters.size(), 2);
  EXPECT_EQ(dialogs.asked[0].filters[0], u"WAV files (*.wav)"_s);
  EXPECT_TRUE(dialogs.asked[0].filters[1].startsWith(u"All Files (*.*)"_s));
  EXPECT_EQ(dialogs.suffixes.size(), 0U);
}

TEST_F(OpeningFiles, StartsWithNothingWhereNothingIsRemembered) {
  record.WavRememberFolders = false;
  const auto path = Put("in.wav", Quiet());
  OpenNormalizer();
  OpenFile(path);
  OpenFile(path);
  ASSERT_EQ(dialogs.asked.size(), 2U);
  EXPECT_EQ(dialogs.asked[1].start, QString());
  EXPECT_EQ(record.WavSourceFile, path);
}

TEST_F(OpeningFiles, ShowsWhatTheyAre) {
  const auto path = Put("in.wav", Quiet());
  OpenNormalizer();
  OpenFile(path);
  EXPECT_EQ(Shown(), Loaded);
  EXPECT_EQ(Disabled(), "");
  EXPECT_EQ(Info(), "in.wav 44100Hz 16bit Stereo 0:00:00");
  EXPECT_EQ(record.WavSourceFile, path);
  EXPECT_EQ(Boxes(), Texts());
}

TEST_F(OpeningFiles, CancelledChangesNothing) {
  OpenNormalizer();
  dialogs.paths.emplace_back();
  ClickOn("btnOpen");
  EXPECT_EQ(Shown(), NoFile);
  const auto path = Put("in.wav", Quiet());
  OpenFile(path);
  dialogs.paths.emplace_back();
  ClickOn("btnOpen");
  EXPECT_EQ(Shown(), Loaded);
  EXPECT_EQ(record.WavSourceFile, path);
}

struct InfoCase {
  const char* name = nullptr;
  WavParts wav;
  std::string info;
};

class FileInfos : public NormalizerWindow, public ::testing::WithParamInterface<InfoCase> {};

WavParts Rated(std::uint32_t rate, std::uint16_t bits, std::uint16_t channels,
               std::uint32_t declared) {
  return {.levels = {1, 2}, .channels = channels, .rate = rate, .bits = bits, .declared = declared};
}

TEST_P(FileInfos, ReplaceThoseOfTheFileBefore) {
  OpenNormalizer();
  OpenFile(Put("before.wav", Rated(8000, 8, 4, 8000 * 4 * 61)));
  EXPECT_EQ(Info(), "before.wav 8000Hz 8bit 4Ch 0:01:01");
  OpenFile(Put("a.wav", GetParam().wav));
  EXPECT_EQ(Info(), "a.wav " + GetParam().info);
  EXPECT_EQ(Shown(), Loaded);
  EXPECT_EQ(Boxes(), Texts());
}

INSTANTIATE_TEST_SUITE_P(
    Each, FileInfos,
    ::testing::Values(
        InfoCase{"Thousand", Rated(44100, 16, 2, 1000), "44100Hz 16bit Stereo 0:00:00.006"},
        InfoCase{"Mono", Rated(48000, 16, 1, 96000), "48000Hz 16bit Mono 0:00:01"},
        InfoCase{"SixChannels", Rated(48000, 24, 6, 864000), "48000Hz 24bit 6Ch 0:00:01"},
        InfoCase{"EightBits", Rated(11025, 8, 1, 11025), "11025Hz 8bit Mono 0:00:01"},
        InfoCase{"RestBelowNothing", Rated(1000, 8, 1, 59700), "1000Hz 8bit Mono 0:01:-00.3"},
        InfoCase{"Hours", Rated(100, 8, 1, 100 * 36125), "100Hz 8bit Mono 10:02:05"},
        // What a damaged field does not tell stays as it was.
        InfoCase{"NoChannels", Rated(44100, 16, 0, 1000), "44100Hz 16bit 4Ch 0:01:01"},
        InfoCase{"NegativeChannels", Rated(1000, 8, 0xFFFF, 1000), "1000Hz 8bit 4Ch 0:00:-01"},
        InfoCase{"NoRate", Rated(0, 16, 2, 1000), "0Hz 16bit Stereo 0:01:01"},
        InfoCase{"RateTooHigh", Rated(0x80000000U, 16, 2, 1000), "8000Hz 16bit Stereo 0:01:01"},
        InfoCase{"NoBits", Rated(44100, 0, 2, 1000), "44100Hz 0bit Stereo 0:01:01"},
        InfoCase{"UpperCaseTags",
                 {.levels = {1}, .formatTag = "FMT ", .dataTag = "DATA"},
                 "44100Hz 16bit Stereo 0:00:00"}),
    NameOf);

struct RefusalCase {
  const char* name = nullptr;
  WavParts wav;
  std::string message;
};

class RefusedFiles : public NormalizerWindow, public ::testing::WithParamInterface<RefusalCase> {};

TEST_P(RefusedFiles, LeaveNoFile) {
  OpenScanned(Quiet());
  ASSERT_EQ(Shown(), Scanned);
  const auto before = record.WavSourceFile;
  questions.Answer(BoxAnswer::Ok, [&] { EXPECT_EQ(record.WavSourceFile, before); });
  OpenFile(Put("bad.wav", GetParam().wav));
  ASSERT_EQ(questions.asked.size(), 1U);
  EXPECT_EQ(questions.asked[0].buttons, BoxButtons::Ok);
  EXPECT_EQ(Boxes(), Texts{GetParam().message});
  // The reset hides the labels of the file, Scan and Normalize, and nothing else.
  EXPECT_EQ(Shown(), "peaks");
  EXPECT_EQ(Disabled(), "");
  EXPECT_EQ(Info(), "in.wav 44100Hz 16bit Stereo 0:00:00");
  EXPECT_EQ(record.WavSourceFile, before);
}

constexpr const char* NotAWav = "This file does not appear to be a valid WAV.";
constexpr const char* NotPcm = "This program only accepts uncompressed PCM WAV files.";

INSTANTIATE_TEST_SUITE_P(
    Each, RefusedFiles,
    ::testing::Values(
        RefusalCase{"NoFormat", {.levels = {1}, .formatTag = "fmtx"}, NotAWav},
        RefusalCase{"MixedCaseFormat", {.levels = {1}, .formatTag = "Fmt "}, NotAWav},
        RefusalCase{"NoData", {.levels = {1}, .dataTag = "dat "}, NotAWav},
        RefusalCase{"MixedCaseData", {.levels = {1}, .dataTag = "Data"}, NotAWav},
        RefusalCase{"Extensible", {.levels = {1}, .format = 0xFFFE}, NotPcm},
        RefusalCase{"Compressed", {.levels = {1}, .format = 85}, NotPcm},
        RefusalCase{"FormatBeforeData", {.levels = {1}, .format = 2, .dataTag = "none"}, NotPcm}),
    NameOf);

TEST_F(OpeningFiles, OfNoFileFailsWithOneMessage) {
  OpenNormalizer();
  questions.Answer(BoxAnswer::Ok);
  OpenFile(PathOf("missing.wav"));
  ASSERT_EQ(questions.asked.size(), 1U);
  EXPECT_EQ(questions.asked[0].buttons, BoxButtons::Ok);
  const auto text = Boxes().at(0);
  const auto beginning = "Cannot read " + PathOf("missing.wav").toStdString() + ": ";
  EXPECT_TRUE(text.starts_with(beginning)) << text;
  EXPECT_GT(text.size(), beginning.size());
  EXPECT_EQ(Shown(), NoFile);
  EXPECT_FALSE(QFile::exists(PathOf("missing.wav")));
}

TEST_F(OpeningFiles, OfAFolderFailsWithOneMessage) {
  OpenNormalizer();
  questions.Answer(BoxAnswer::Ok);
  const auto path = QDir::toNativeSeparators(folder.path());
  OpenFile(path);
  EXPECT_EQ(Boxes(), Texts{"Cannot read " + path.toStdString() + ": not a file"});
  EXPECT_EQ(Shown(), NoFile);
}

TEST_F(OpeningFiles, AnEmptyFileIsNoWav) {
  OpenNormalizer();
  questions.Answer(BoxAnswer::Ok);
  OpenFile(Put("empty.wav", QByteArray()));
  EXPECT_EQ(Boxes(), Texts{Refused});
  EXPECT_EQ(Shown(), NoFile);
}

TEST_F(OpeningFiles, HidesThePeaksButLeavesNormalize) {
  OpenScanned(Quiet());
  EXPECT_EQ(Shown(), Scanned);
  OpenFile(Put("other.wav", Quiet()));
  EXPECT_EQ(Shown(), "info scan normalize");
  EXPECT_EQ(Peaks(), "-16384 8191");
}

TEST_F(OpeningFiles, SucceedsAfterAFailure) {
  const auto path = Put("in.wav", Quiet());
  OpenNormalizer();
  questions.Answer(BoxAnswer::Ok);
  OpenFile(Put("bad.wav", QByteArray("nothing")));
  OpenFile(path);
  EXPECT_EQ(Shown(), Loaded);
  EXPECT_EQ(record.WavSourceFile, path);
}

TEST_F(OpeningFiles, AFileTitleIsShownAsItIs) {
  ExpectTitleShown(u"xa&b;&amp;"_s + QString(150, u'm') + u".wav"_s);
}

// --- Dropping a file ---------------------------------------------------------------------------

class DroppedFiles : public NormalizerWindow {};

TEST_F(DroppedFiles, AreOpened) {
  const auto path = Put("in.wav", Quiet());
  for (const auto* control : {"WavInfo1", "PercNorm", "TargetFile", "btnOpen"}) {
    OpenNormalizer();
    EXPECT_TRUE(DropOn(control, path)) << control;
    EXPECT_EQ(Shown(), Loaded) << control;
    EXPECT_EQ(record.WavSourceFile, path);
    EXPECT_EQ(Text("PercNorm"), "100");
    window->close();
    RunDeletions();
    record.WavSourceFile.clear();
  }
}

TEST_F(DroppedFiles, AreNotOpenedIfTheyAreFilms) {
  OpenNormalizer();
  const auto path = Put("holiday.avi", QByteArray("RIFF\1\2\3\4AVI LIST", 16));
  questions.Answer(BoxAnswer::Ok);
  EXPECT_TRUE(DropOn("WavInfo1", path));
  ASSERT_EQ(questions.asked.size(), 1U);
  const auto& text = questions.asked.front().text;
  EXPECT_TRUE(text.ends_with("\r\nffmpeg -i holiday.avi -vn -c:a pcm_s16le holiday.wav")) << text;
  EXPECT_EQ(Shown(), NoFile);
}

TEST_F(DroppedFiles, AreRefusedLikeOthers) {
  OpenNormalizer();
  questions.Answer(BoxAnswer::Ok);
  EXPECT_TRUE(DropOn("WavInfo1", Put("bad.wav", QByteArray("nothing"))));
  EXPECT_EQ(Boxes(), Texts{Refused});
  EXPECT_EQ(Shown(), NoFile);
}

TEST_F(DroppedFiles, MustBeFiles) {
  OpenNormalizer();
  QMimeData text;
  text.setText(u"50"_s);
  EXPECT_FALSE(DropOn("WavInfo1", text));
  EXPECT_FALSE(DropOn("PercNorm", text));
  QMimeData address;
  address.setUrls({QUrl(u"https://example.org/a.wav"_s)});
  EXPECT_FALSE(DropOn("WavInfo1", address));
  EXPECT_EQ(Shown(), NoFile);
  EXPECT_EQ(Text("PercNorm"), "100");
}

TEST_F(DroppedFiles, AreTurnedAwayDuringAScan) {
  const auto other = Put("other.wav", Quiet());
  const auto path = Put("in.wav", Long(3));
  OpenNormalizer();
  OpenFile(path);
  LetUpdatesCome();
  During("Scanning...", [&] { EXPECT_FALSE(DropOn("WavInfo1", other)); });
  ClickOn("btnScan");
  EXPECT_EQ(record.WavSourceFile, path);
  EXPECT_EQ(Text("WavInfo1"), "in.wav");
  EXPECT_TRUE(DropOn("WavInfo1", other)) << "after the scan";
  EXPECT_EQ(record.WavSourceFile, other);
}

TEST_F(DroppedFiles, AreTurnedAwayDuringANormalization) {
  const auto other = Put("other.wav", Quiet());
  OpenScanned(Long(3));
  LetUpdatesCome();
  During("Normalizing...", [&] { EXPECT_FALSE(DropOn("WavInfo1", other)); });
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(record.WavSourceFile, PathOf("in.wav"));
  EXPECT_EQ(Text("WavInfo1"), "in.wav");
}

TEST_F(DroppedFiles, LetGoJustBeforeAScanAreTurnedAway) {
  const auto other = Put("other.wav", Quiet());
  const auto path = Put("in.wav", Long(3));
  OpenNormalizer();
  OpenFile(path);
  LetUpdatesCome();
  Press(Control("btnScan"));
  // Straight to the window: the drop is told from the event loop, which the scan lets in first.
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(other)});
  QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(window, &enter);
  QDropEvent drop({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(window, &drop);
  EXPECT_TRUE(drop.isAccepted());
  LetGo(Control("btnScan"));
  AwaitEnd();
  EXPECT_EQ(record.WavSourceFile, path);
  EXPECT_EQ(Text("WavInfo1"), "in.wav");
  EXPECT_EQ(Peaks(), "-16384 8191");
}

// --- The keyboard alone ------------------------------------------------------------------------

class KeyboardAlone : public NormalizerWindow {
 protected:
  [[nodiscard]] Texts TabOrder() const {
    Texts order;
    auto* first = window->focusWidget();
    do {
      order.push_back(FocusedControl());
      Key(Qt::Key_Tab);
    } while (window->focusWidget() != first && order.size() < 30);
    return order;
  }
  void PressSpaceOn(const char* name) {
    TabTo(Control(name));
    Key(Qt::Key_Space);
    AwaitEnd();
  }
};

TEST_F(KeyboardAlone, TabGoesInReadingOrder) {
  OpenNormalizer();
  EXPECT_EQ(TabOrder(), (Texts{"Mbuffer", "AutoNorm", "RemFolders", "Toler", "Output(1)", "Target",
                               "PercNorm", "btnOpen"}));
}

TEST_F(KeyboardAlone, TabReachesWhatIsShownLater) {
  OpenScanned(Quiet());
  Control("Mbuffer")->setFocus();
  EXPECT_EQ(TabOrder(), (Texts{"Mbuffer", "AutoNorm", "RemFolders", "Toler", "Output(1)", "Target",
                               "PercNorm", "btnOpen", "btnScan", "btnNorm"}));
}

TEST_F(KeyboardAlone, TabSkipsWhatIsDisabled) {
  record.WavOverwriteSource = true;
  OpenNormalizer();
  EXPECT_EQ(TabOrder(), (Texts{"Mbuffer", "AutoNorm", "RemFolders", "Toler", "Output(0)",
                               "PercNorm", "btnOpen"}));
}

TEST_F(KeyboardAlone, NormalizesAFile) {
  const auto path = Put("in.wav", Quiet());
  OpenNormalizer();
  dialogs.paths = {PathOf("new.wav"), path};
  PressSpaceOn("Target");
  PressSpaceOn("btnOpen");
  EXPECT_EQ(FocusedControl(), "btnOpen");
  PressSpaceOn("btnScan");
  EXPECT_EQ(FocusedControl(), "btnScan") << "where the focus was before it went to Abort";
  questions.Answer(BoxAnswer::Ok);
  PressSpaceOn("btnNorm");
  EXPECT_EQ(BytesOf("new.wav"), BytesOf(QuietAmplified()));
  EXPECT_TRUE(window->focusWidget() != nullptr && window->focusWidget()->isVisible())
      << FocusedControl();
}

TEST_F(KeyboardAlone, EscapeClosesFromEveryControl) {
  for (const auto* name : {"Mbuffer", "Toler", "Output(1)", "Target", "PercNorm", "btnOpen"}) {
    OpenNormalizer();
    TabTo(Control(name));
    Key(Qt::Key_Escape);
    RunDeletions();
    EXPECT_EQ(window, nullptr) << name;
  }
}

}  // namespace
}  // namespace brindle
