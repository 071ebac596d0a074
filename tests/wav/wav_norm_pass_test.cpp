// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QString>
#include <QTimer>
#include <gtest/gtest.h>

#include "base/settings/settings.h"
#include "tests/support/named_case.h"
#include "tests/wav/normalizer_window.h"
#include "tests/wav/wav_builder.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

bool Matches(const std::string& text, const QString& pattern) {
  return QRegularExpression(pattern).match(QString::fromStdString(text)).hasMatch();
}

// --- The scan ----------------------------------------------------------------------------------

class ScanningWindow : public NormalizerWindow {
 protected:
  void OpenLoaded(const WavParts& wav) {
    const auto path = Put("in.wav", wav);
    OpenNormalizer();
    OpenFile(path);
  }
};

TEST_F(ScanningWindow, ShowsThePeaks) {
  OpenLoaded(Quiet());
  ClickOn("btnScan");
  EXPECT_EQ(Shown(), Scanned);
  EXPECT_EQ(Disabled(), "");
  EXPECT_EQ(Peaks(), "-16384 8191");
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
  EXPECT_FALSE(QFile::exists(PathOf("out.wav")));
}

struct PeakCase {
  const char* name = nullptr;
  std::vector<std::int16_t> samples;
  std::string peaks;
};

class ScannedPeaks : public NormalizerWindow, public ::testing::WithParamInterface<PeakCase> {};

TEST_P(ScannedPeaks, NeverLeaveZeroOut) {
  OpenScanned({.levels = GetParam().samples});
  EXPECT_EQ(Peaks(), GetParam().peaks);
  EXPECT_EQ(Shown(), Scanned);
}

INSTANTIATE_TEST_SUITE_P(Each, ScannedPeaks,
                         ::testing::Values(PeakCase{"Silent", {0, 0, 0}, "0 0"},
                                           PeakCase{"OnlyAbove", {5, 7}, "0 7"},
                                           PeakCase{"OnlyBelow", {-5, -7}, "-7 0"},
                                           PeakCase{"Ends", {-32768, 32767}, "-32768 32767"}),
                         NameOf);

TEST_F(ScanningWindow, ShowsHowFarItIs) {
  OpenLoaded(Long(5));
  LetUpdatesCome();
  During("Scanning...", [&] {
    EXPECT_EQ(Shown(), "abort progress Scanning...");
    EXPECT_EQ(Disabled(), "Target btnOpen btnScan btnNorm");
    EXPECT_EQ(FocusedControl(), "Cancel");
    EXPECT_EQ(Text("Perc"), "0%");
    EXPECT_EQ(Text("ETA1"), "ETA:");
    EXPECT_EQ(Text("ETA2"), "") << "nothing is known at no percent";
    EXPECT_EQ(Progress(), 0);
    clock.Elapse(200);
  });
  During("Scanning...", [&] {
    EXPECT_EQ(Text("Perc"), "20%");
    EXPECT_EQ(Progress(), 20);
    EXPECT_TRUE(Matches(Text("ETA2"), u"^13:[2-5][0-9]$"_s)) << Text("ETA2");
  });
  During("Scanning...", [&] { EXPECT_EQ(Text("Perc"), "40%"); });
  During("Scanning...", [&] {
    EXPECT_EQ(Text("Perc"), "60%");
    EXPECT_EQ(Progress(), 60);
  });
  ClickOn("btnScan");
  EXPECT_EQ(Shown(), Scanned);
  EXPECT_EQ(Disabled(), "");
  EXPECT_EQ(FocusedControl(), "btnScan");
  EXPECT_EQ(Peaks(), "-16384 8191");
}

TEST_F(ScanningWindow, TellsTheRemainingTimeInMinutesAndSeconds) {
  OpenLoaded(Long(20));
  clock.AdvanceAtEveryLook(0.6);
  double passed = 0;
  for (int block = 0; block < 17; ++block) {
    During("Scanning...", [&] {
      clock.AdvanceAtEveryLook(0);
      clock.Elapse(0.6);
      passed += 0.6;
    });
  }
  // At 90 %, 1683 seconds and the looks at the clock before the first update.
  During("Scanning...", [&] { clock.Elapse(1683 - passed); });
  During("Scanning...", [&] {
    EXPECT_EQ(Text("Perc"), "90%");
    EXPECT_EQ(Text("ETA2"), "3:07");
  });
  ClickOn("btnScan");
}

TEST_F(ScanningWindow, BeginsAnewWithoutOldFigures) {
  OpenLoaded(Long(4));
  LetUpdatesCome();
  for (int scan = 0; scan < 2; ++scan) {
    During("Scanning...", [&] {
      EXPECT_EQ(Text("Perc"), "0%");
      EXPECT_EQ(Progress(), 0);
      EXPECT_EQ(Text("ETA2"), "");
    });
    During("Scanning...", [&] { EXPECT_NE(Text("ETA2"), ""); });
    During("Scanning...", [&] { EXPECT_EQ(Text("Perc"), "50%"); });
    ClickOn("btnScan");
  }
}

TEST_F(ScanningWindow, LeavesPeaksAndNormalizeOfTheScanBeforeInSight) {
  OpenScanned(Long(3));
  LetUpdatesCome();
  During("Scanning...", [&] {
    EXPECT_EQ(Shown(), "peaks normalize abort progress Scanning...");
    EXPECT_EQ(Disabled(), "Target btnOpen btnScan btnNorm");
  });
  ClickOn("btnScan");
  EXPECT_EQ(Shown(), Scanned);
}

TEST_F(ScanningWindow, AbortedShowsWhatItSaw) {
  OpenLoaded(Long(4));
  auto wav = Long(4);
  wav.levels[40000] = 20000;  // in the second block
  Put("in.wav", wav);
  LetUpdatesCome();
  During("Scanning...", [&] { ClickOn("Cancel"); });
  ClickOn("btnScan");
  EXPECT_EQ(Peaks(), "-16384 8191");
  EXPECT_EQ(Shown(), Scanned);
  EXPECT_EQ(Boxes(), Texts());
  // The scan took the request: the next one runs to its end.
  During("Scanning...", [] {});
  During("Scanning...", [] {});
  ClickOn("btnScan");
  EXPECT_EQ(Peaks(), "-16384 20000");
}

TEST_F(ScanningWindow, IsAbortedByTheKeyboard) {
  OpenLoaded(Long(4));
  LetUpdatesCome();
  int updates = 0;
  During("Scanning...", [&] {
    Key(Qt::Key_Space);
    QTimer::singleShot(0, window, [&] { updates += Text("Status") == "Scanning..." ? 1 : 0; });
  });
  ClickOn("btnScan");
  EXPECT_EQ(updates, 0) << "the scan goes on";
  EXPECT_EQ(Shown(), Scanned);
  EXPECT_EQ(FocusedControl(), "btnScan");
}

TEST_F(ScanningWindow, IsNotStartedTwice) {
  OpenLoaded(Long(4));
  LetUpdatesCome();
  dialogs.paths.clear();
  During("Scanning...", [&] {
    ClickOn("btnOpen");
    Find<QAbstractButton>(window, u"btnScan"_s)->click();
    Find<QAbstractButton>(window, u"btnNorm"_s)->click();
    ClickOn("Target");
  });
  ClickOn("btnScan");
  EXPECT_EQ(dialogs.asked.size(), 1U);
  EXPECT_EQ(Peaks(), "-16384 8191");
}

TEST_F(ScanningWindow, LetsTheOptionsBeChanged) {
  OpenLoaded(Long(3));
  LetUpdatesCome();
  During("Scanning...", [&] {
    ClickOn("Mbuffer");
    ClickOn("Output(0)");
    EXPECT_EQ(Disabled(), "TargetFile Target btnOpen btnScan btnNorm");
    ClickOn("Output(1)");
    EXPECT_EQ(Disabled(), "Target btnOpen btnScan btnNorm") << "no browsing before the scan's end";
    TabTo(PercNorm);
    TypeOver(u"50"_s);
  });
  ClickOn("btnScan");
  EXPECT_TRUE(record.WavMultiBuffer);
  EXPECT_EQ(record.WavNormalizePercent, 50);
  EXPECT_EQ(Disabled(), "");
  EXPECT_EQ(FocusedControl(), "PercNorm") << "the focus is left where the user took it";
}

TEST_F(ScanningWindow, FailsWithOneMessage) {
  record.WavAutoNormalize = true;
  OpenLoaded(Quiet());
  QFile::remove(PathOf("in.wav"));
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnScan");
  ASSERT_EQ(questions.asked.size(), 1U);
  EXPECT_EQ(questions.asked[0].buttons, BoxButtons::Ok);
  const auto text = Boxes().at(0);
  EXPECT_TRUE(text.starts_with("Cannot read " + PathOf("in.wav").toStdString() + ": ")) << text;
  EXPECT_EQ(Text("Status"), "");
  EXPECT_EQ(Disabled(), "");
  EXPECT_FALSE(Control("Cancel")->isVisible());
  EXPECT_FALSE(Control("ProgBar")->isVisible());
}

TEST_F(ScanningWindow, OfAFileWithoutDataAnyMoreFails) {
  OpenLoaded(Quiet());
  auto wav = Quiet();
  wav.dataTag = "none";
  Put("in.wav", wav);
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnScan");
  const auto text = questions.asked.at(0).text;
  EXPECT_TRUE(text.starts_with("Cannot read " + PathOf("in.wav").toStdString() + ": ")) << text;
  EXPECT_EQ(Disabled(), "");
}

TEST_F(ScanningWindow, GoesOnToNormalizeWhenToldTo) {
  record.WavAutoNormalize = true;
  OpenLoaded(Quiet());
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnScan");
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("200", false)});
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(QuietAmplified()));
  EXPECT_EQ(Shown(), AfterAPass);
}

TEST_F(ScanningWindow, GoesOnToNormalizeEvenAfterAnAbort) {
  record.WavAutoNormalize = true;
  OpenLoaded(Long(4));
  LetUpdatesCome();
  During("Scanning...", [&] { ClickOn("Cancel"); });
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnScan");
  EXPECT_TRUE(Boxes().at(0).starts_with("WAV file was successfully normalized."));
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4)));
}

TEST_F(ScanningWindow, GoesByTheOptionOfItsStart) {
  OpenLoaded(Long(3));
  LetUpdatesCome();
  During("Scanning...", [&] { ClickOn("AutoNorm"); });
  ClickOn("btnScan");
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_EQ(Shown(), Scanned);
  During("Scanning...", [&] { ClickOn("AutoNorm"); });
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnScan");
  EXPECT_EQ(Boxes().size(), 1U);
  EXPECT_FALSE(record.WavAutoNormalize);
}

// --- What is not normalized --------------------------------------------------------------------

struct NeedlessCase {
  const char* name = nullptr;
  std::vector<std::int16_t> samples;
  float tolerance = 0;  // percent
  const char* percent = "100";
  bool isRequired = false;
};

class NeedlessPasses : public NormalizerWindow,
                       public ::testing::WithParamInterface<NeedlessCase> {};

TEST_P(NeedlessPasses, AreTold) {
  const auto& [name, samples, tolerance, percent, isRequired] = GetParam();
  record.WavTolerance = tolerance;
  OpenScanned({.levels = samples});
  TabTo(PercNorm);
  TypeOver(QString::fromLatin1(percent));
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  ASSERT_EQ(questions.asked.size(), 1U);
  EXPECT_EQ(questions.asked[0].buttons, BoxButtons::Ok);
  EXPECT_EQ(questions.asked[0].text != NotRequired, isRequired) << questions.asked[0].text;
  EXPECT_EQ(QFile::exists(PathOf("out.wav")), isRequired);
  EXPECT_EQ(Shown(), isRequired ? AfterAPass : Scanned);
  EXPECT_EQ(Disabled(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Each, NeedlessPasses,
    ::testing::Values(NeedlessCase{"Silent", {0, 0}, 0, "100", false},
                      NeedlessCase{"SilentAtNothing", {0, 0}, 0, "0", false},
                      NeedlessCase{"FullWithoutTolerance", {-32768, 32767}, 0, "100", true},
                      NeedlessCase{"FullWithTolerance", {-32768, 32000}, 1, "100", false},
                      NeedlessCase{"WithinTheTolerance", {-32768, 0}, 10, "91", false},
                      NeedlessCase{"AtTheToleranceBelow", {-32768, 0}, 10, "90", true},
                      NeedlessCase{"AboveTheTolerance", {-16384, 0}, 30, "100", true},
                      NeedlessCase{"WithinALargeTolerance", {-16384, 0}, 101, "100", false},
                      NeedlessCase{"NegativeTolerance", {-32768, 0}, -5, "100", true},
                      NeedlessCase{"OnlyTheTopIsLoud", {0, 32767}, 1, "100", false},
                      NeedlessCase{"OnlyTheBottomIsLoud", {0, -32768}, 1, "100", false}),
    NameOf);

// --- The pass ----------------------------------------------------------------------------------

TEST_F(NormalizingWindow, WritesTheTargetAndTellsOfIt) {
  OpenScanned(Quiet());
  questions.Answer(BoxAnswer::Ok, [&] {
    // The pass is over but for its message.
    EXPECT_EQ(Shown(), "info scan abort Normalizing...");
    EXPECT_EQ(Disabled(), "Mbuffer Target PercNorm btnOpen btnScan btnNorm");
    EXPECT_EQ(BytesOf("out.wav"), BytesOf(QuietAmplified()));
  });
  ClickOn("btnNorm");
  ASSERT_EQ(questions.asked.size(), 1U);
  EXPECT_EQ(questions.asked[0].buttons, BoxButtons::Ok);
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("200", false)});
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(QuietAmplified()));
  EXPECT_EQ(Shown(), AfterAPass);
  EXPECT_EQ(Disabled(), "");
}

TEST_F(NormalizingWindow, NamesItsBuffers) {
  record.WavMultiBuffer = true;
  OpenScanned(Quiet());
  Normalize();
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("200", true)});
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(QuietAmplified()));
}

TEST_F(NormalizingWindow, TellsTheThroughputOfTheScan) {
  const auto path = Put("in.wav", Quiet());
  OpenNormalizer();
  OpenFile(path);
  clock.AdvanceAtEveryLook(1e-6);
  ClickOn("btnScan");
  clock.AdvanceAtEveryLook(0);
  Normalize();
  const auto text = Boxes().at(0);
  EXPECT_TRUE(Matches(text, u"scanning throughput: [0-9]+(\\.[0-9]{1,2})?MB/s"_s)) << text;
  EXPECT_EQ(text.find("scanning throughput: 0MB/s"), std::string::npos) << text;
  EXPECT_NE(text.find("Average normalization throughput: 0MB/s"), std::string::npos) << text;
}

TEST_F(NormalizingWindow, TellsItsOwnThroughput) {
  OpenScanned(Quiet());
  clock.AdvanceAtEveryLook(1e-6);
  Normalize();
  const auto text = Boxes().at(0);
  EXPECT_NE(text.find("Average scanning throughput: 0MB/s"), std::string::npos) << text;
  EXPECT_TRUE(Matches(text, u"normalization throughput: [0-9]+(\\.[0-9]{1,2})?MB/s"_s)) << text;
  EXPECT_EQ(text.find("normalization throughput: 0MB/s"), std::string::npos) << text;
}

struct GainCase {
  const char* name = nullptr;
  std::vector<std::int16_t> samples;
  const char* percent = nullptr;
  std::string amplification;
  std::vector<std::int16_t> expected;
};

class Gains : public NormalizerWindow, public ::testing::WithParamInterface<GainCase> {};

TEST_P(Gains, ComeOfPeaksAndPercentage) {
  record.WavTolerance = 0;
  OpenScanned({.levels = GetParam().samples});
  TabTo(PercNorm);
  TypeOver(QString::fromLatin1(GetParam().percent));
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime(GetParam().amplification, false)});
  EXPECT_EQ(BytesOf("out.wav"), BytesOf({.levels = GetParam().expected}));
}

INSTANTIATE_TEST_SUITE_P(
    Each, Gains,
    ::testing::Values(
        GainCase{"Full", {-16384, 8191}, "100", "200", {-32768, 16382}},
        GainCase{"HalfTiesToEven", {-32768, 32767, 3, 5}, "50", "50", {-16384, 16384, 2, 2}},
        GainCase{"Unchanged", {-32768, 32767, 7}, "100", "100", {-32768, 32767, 7}},
        GainCase{"Nothing", {-16384, 8191}, "0", "0", {0, 0}},
        GainCase{"Negative", {-16384, 8191}, "-50", "-100", {16384, -8191}},
        GainCase{"Fraction", {-32768, 1000}, "12.5", "12.5", {-4096, 125}},
        GainCase{"OnlyAbove", {0, 16384}, "100", "199.99", {0, 32767}},
        GainCase{"OnlyBelow", {0, -16384}, "100", "200", {0, -32768}}),
    NameOf);

TEST_F(NormalizingWindow, ShowsHowFarItIs) {
  OpenScanned(Long(5));
  LetUpdatesCome();
  During("Normalizing...", [&] {
    EXPECT_EQ(Shown(), "info scan abort progress Normalizing...");
    EXPECT_EQ(Disabled(), "Mbuffer Target PercNorm btnOpen btnScan btnNorm");
    EXPECT_EQ(FocusedControl(), "Cancel");
    EXPECT_EQ(Text("Perc"), "0%");
    EXPECT_EQ(Text("ETA2"), "");
    clock.Elapse(200);
  });
  During("Normalizing...", [&] {
    EXPECT_EQ(Text("Perc"), "20%");
    EXPECT_EQ(Progress(), 20);
    EXPECT_TRUE(Matches(Text("ETA2"), u"^13:[2-5][0-9]$"_s)) << Text("ETA2");
  });
  Normalize();
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(5)));
  EXPECT_EQ(FocusedControl(), "btnScan");
}

TEST_F(NormalizingWindow, NeedsAScanBeforeTheNextOne) {
  OpenScanned(Quiet());
  Normalize();
  EXPECT_EQ(Shown(), AfterAPass);
  ClickOn("btnScan");
  EXPECT_EQ(Shown(), Scanned);
}

TEST_F(NormalizingWindow, AppliesThePeaksOfTheFileBefore) {
  OpenScanned(Quiet());
  const WavParts other{.levels = {-1000, 1000, 20000, 3}};
  OpenFile(Put("other.wav", other));
  EXPECT_EQ(Shown(), "info scan normalize");
  Normalize();
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("200", false)});
  EXPECT_EQ(BytesOf("out.wav"), BytesOf({.levels = Amplified(other.levels, 2)}));
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
}

TEST_F(NormalizingWindow, KeepsItsOptionsThroughout) {
  OpenScanned(Long(3));
  LetUpdatesCome();
  During("Normalizing...", [&] {
    ClickOn("Output(0)");
    ClickOn("AutoNorm");
    ClickOn("RemFolders");
    TabTo(Toler);
    Key(Qt::Key_End);
    ClickOn("Mbuffer");  // disabled
    EXPECT_EQ(Disabled(), "Mbuffer TargetFile Target PercNorm btnOpen btnScan btnNorm");
  });
  Normalize();
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Long(3)));
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(3)));
  const auto text = Boxes().at(0);
  EXPECT_NE(text.find("Applied amplification: 200%"), std::string::npos) << text;
  EXPECT_NE(text.find("single buffer"), std::string::npos) << text;
  EXPECT_TRUE(record.WavOverwriteSource);
  EXPECT_TRUE(record.WavAutoNormalize);
  EXPECT_FALSE(record.WavRememberFolders);
  EXPECT_FALSE(record.WavMultiBuffer);
  EXPECT_EQ(record.WavTolerance, 30);
  EXPECT_EQ(Disabled(), "TargetFile Target") << "what was chosen meanwhile holds from now on";
}

TEST_F(NormalizingWindow, KeepsToTheSource) {
  record.WavOverwriteSource = true;
  OpenScanned(Long(3));
  LetUpdatesCome();
  During("Normalizing...", [&] { ClickOn("Output(1)"); });
  Normalize();
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(LongAmplified(3)));
  EXPECT_FALSE(QFile::exists(PathOf("out.wav")));
  EXPECT_FALSE(record.WavOverwriteSource);
  EXPECT_EQ(Disabled(), "");
}

TEST_F(NormalizingWindow, StartsNothingElseMeanwhile) {
  OpenScanned(Long(3));
  dialogs.asked.clear();
  LetUpdatesCome();
  During("Normalizing...", [&] {
    for (const auto* name : {"btnOpen", "btnScan", "btnNorm", "Target"}) {
      Find<QAbstractButton>(window, QString::fromLatin1(name))->click();
    }
    Control("AutoNorm")->setFocus();
    Key(Qt::Key_Return);
  });
  Normalize();
  EXPECT_EQ(dialogs.asked.size(), 0U);
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(3)));
}

TEST_F(NormalizingWindow, LetsNothingElseStartAtItsBeginning) {
  OpenScanned(Quiet());
  dialogs.asked.clear();
  bool wasIn = false;
  Press(Control("btnNorm"));
  QTimer::singleShot(0, window, [&] {
    wasIn = true;
    EXPECT_EQ(Shown(), Scanned);
    for (const auto* name : {"btnOpen", "btnScan", "btnNorm"}) {
      Find<QAbstractButton>(window, QString::fromLatin1(name))->click();
    }
  });
  questions.Answer(BoxAnswer::Ok, [&] { EXPECT_TRUE(wasIn); });
  LetGo(Control("btnNorm"));
  AwaitEnd();
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("200", false)});
  EXPECT_EQ(dialogs.asked.size(), 0U);
}

TEST_F(NormalizingWindow, OverwritesTheSource) {
  record.WavOverwriteSource = true;
  OpenScanned(Quiet());
  Normalize();
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("200", false)});
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(QuietAmplified()));
  EXPECT_FALSE(QFile::exists(PathOf("out.wav")));
  EXPECT_EQ(Disabled(), "TargetFile Target");
}

// --- The question about the target ------------------------------------------------------------

TEST_F(NormalizingWindow, AsksBeforeItOverwrites) {
  Put("out.wav", QByteArray("precious"));
  OpenScanned(Quiet());
  questions.Answer(BoxAnswer::Yes, [&] {
    EXPECT_EQ(Shown(), "info scan abort progress Normalizing...");
    EXPECT_EQ(Disabled(), "Target PercNorm btnOpen btnScan btnNorm")
        << "the box for buffers only follows when the files are open";
    EXPECT_EQ(BytesOf("out.wav"), "precious");
  });
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  ASSERT_EQ(questions.asked.size(), 2U);
  EXPECT_EQ(questions.asked[0].text, Overwrite);
  EXPECT_EQ(questions.asked[0].buttons, BoxButtons::YesNoDefaultNo);
  EXPECT_EQ(questions.asked[1].text, StatisticsWithoutTime("200", false));
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(QuietAmplified()));
}

TEST_F(NormalizingWindow, LeavesATargetThatIsToStay) {
  Put("out.wav", QByteArray("precious"));
  OpenScanned(Quiet());
  questions.Answer(BoxAnswer::No);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{Overwrite});
  EXPECT_EQ(BytesOf("out.wav"), "precious");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
  EXPECT_EQ(Shown(), AfterAPass);
  EXPECT_EQ(Disabled(), "");
}

TEST_F(NormalizingWindow, AsksNothingAboutAnEmptyTarget) {
  Put("out.wav", QByteArray());
  OpenScanned(Quiet());
  Normalize();
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("200", false)});
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(QuietAmplified()));
}

TEST_F(NormalizingWindow, WorksInPlaceWhereTheTargetIsTheSource) {
  record.WavTargetFile = PathOf("in.wav");
  OpenScanned(Quiet());
  EXPECT_TRUE(IsChecked(u"Output(1)"_s));
  Normalize();
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("200", false)});
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(QuietAmplified()));
  EXPECT_TRUE(record.WavOverwriteSource);
  EXPECT_TRUE(IsChecked(u"Output(0)"_s));
  EXPECT_EQ(Disabled(), "TargetFile Target");
}

// --- Errors ------------------------------------------------------------------------------------

TEST_F(NormalizingWindow, TellsOfATargetThatIsNoAbsolutePath) {
  record.WavTargetFile = u"Output.wav"_s;
  OpenScanned(Quiet());
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{"Cannot write Output.wav: not an absolute path"});
  EXPECT_EQ(Shown(), AfterAPass);
  EXPECT_EQ(Disabled(), "");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
}

TEST_F(NormalizingWindow, TellsOfATargetThatIsAFolder) {
  ASSERT_TRUE(QDir(folder.path()).mkdir(u"out.wav"_s));
  OpenScanned(Quiet());
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{"Cannot write " + PathOf("out.wav").toStdString() + ": not a file"});
  EXPECT_EQ(Shown(), AfterAPass);
}

TEST_F(NormalizingWindow, TellsOfATargetInNoFolder) {
  record.WavTargetFile = PathOf("missing/out.wav");
  OpenScanned(Quiet());
  questions.Answer(BoxAnswer::Ok, [&] {
    // What the pass held is given free before the message.
    EXPECT_EQ(Shown(), AfterAPass);
    EXPECT_EQ(Disabled(), "");
  });
  ClickOn("btnNorm");
  ASSERT_EQ(questions.asked.size(), 1U);
  EXPECT_EQ(questions.asked[0].buttons, BoxButtons::Ok);
  EXPECT_TRUE(questions.asked[0].text.starts_with("Cannot write "));
}

TEST_F(NormalizingWindow, TellsOfASourceThatWentAwayBeforeItAsksAboutTheTarget) {
  Put("out.wav", QByteArray("precious"));
  OpenScanned(Quiet());
  QFile::remove(PathOf("in.wav"));
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  const auto texts = Boxes();
  ASSERT_EQ(texts.size(), 1U);
  EXPECT_TRUE(texts[0].starts_with("Cannot read " + PathOf("in.wav").toStdString() + ": "));
  EXPECT_EQ(BytesOf("out.wav"), "precious");
}

// --- The percentage at the start of a pass ----------------------------------------------------

struct EmptyCase {
  const char* name = nullptr;
  const char* text = nullptr;
};

class EmptyPercentages : public NormalizerWindow,
                         public ::testing::WithParamInterface<EmptyCase> {};

TEST_P(EmptyPercentages, CountAsTheStoredOne) {
  OpenScanned(Quiet());
  TabTo(PercNorm);
  TypeOver(u"50"_s);
  Key(Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_Backspace);
  Type(QString::fromLatin1(GetParam().text));
  EXPECT_EQ(record.WavNormalizePercent, 50);
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(Text("PercNorm"), "50");
  // Gain 2 at 50 % is 1, within the tolerance.
  EXPECT_EQ(Boxes(), Texts{NotRequired});
  EXPECT_EQ(record.WavNormalizePercent, 50);
}

INSTANTIATE_TEST_SUITE_P(Each, EmptyPercentages,
                         ::testing::Values(EmptyCase{"Empty", ""}, EmptyCase{"Sign", "-"},
                                           EmptyCase{"Period", "."},
                                           EmptyCase{"SignAndPeriod", "-."}),
                         NameOf);

TEST_F(NormalizingWindow, GoesByThePercentageTypedNotTheStoredOne) {
  record.WavTolerance = 0;
  OpenScanned(Quiet());
  TabTo(PercNorm);
  TypeOver(u"12.4"_s);
  EXPECT_EQ(record.WavNormalizePercent, 12);
  Normalize();
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("24.8", false)});
}

// --- Abort -------------------------------------------------------------------------------------

class AbortedNormalization : public NormalizerWindow {};

TEST_F(AbortedNormalization, AsksFirst) {
  OpenScanned(Long(4));
  LetUpdatesCome();
  During("Normalizing...", [&] {
    ClickOn("Cancel");
    EXPECT_EQ(questions.asked.size(), 1U);
  });
  questions.Answer(BoxAnswer::Yes);
  ClickOn("btnNorm");
  ASSERT_EQ(questions.asked.size(), 1U);
  EXPECT_EQ(questions.asked[0].buttons, BoxButtons::YesNoDefaultNo);
  EXPECT_EQ(questions.asked[0].text, ReallyAbort);
  EXPECT_EQ(questions.asked[0].text.size(), 73U + 22U + 27U)
      << "the blanks in front of the question";
  EXPECT_EQ(Shown(), AfterAPass);
  EXPECT_EQ(Disabled(), "");
  EXPECT_EQ(FocusedControl(), "btnScan");
  // A partial target stays: the header and the block before the update.
  auto expected = BytesOf(LongAmplified(4)).first(44 + 65536);
  EXPECT_EQ(BytesOf("out.wav"), expected);
}

TEST_F(AbortedNormalization, LeavesTheSourcePartlyAmplified) {
  record.WavOverwriteSource = true;
  OpenScanned(Long(4));
  LetUpdatesCome();
  During("Normalizing...", [&] { ClickOn("Cancel"); });
  questions.Answer(BoxAnswer::Yes);
  ClickOn("btnNorm");
  auto expected = BytesOf(Long(4));
  expected.replace(0, 44 + 65536, BytesOf(LongAmplified(4)).first(44 + 65536));
  EXPECT_EQ(BytesOf("in.wav"), expected);
}

TEST_F(AbortedNormalization, GoesOnAfterNo) {
  OpenScanned(Long(4));
  LetUpdatesCome();
  During("Normalizing...", [&] { ClickOn("Cancel"); });
  During("Normalizing...", [&] { ClickOn("Cancel"); });
  questions.Answer(BoxAnswer::No);
  questions.Answer(BoxAnswer::No);
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(questions.asked.size(), 3U);
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4)));
  clock.AdvanceAtEveryLook(0);
  ClickOn("btnScan");
  EXPECT_EQ(Peaks(), "-16384 8191");
}

TEST_F(AbortedNormalization, WithSpace) {
  OpenScanned(Long(3));
  LetUpdatesCome();
  During("Normalizing...", [&] { Key(Qt::Key_Space); });
  questions.Answer(BoxAnswer::Yes);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{ReallyAbort});
}

TEST_F(AbortedNormalization, WithEnterWhichAsksAsWell) {
  OpenScanned(Long(3));
  questions.Answer(BoxAnswer::Yes);
  LetUpdatesCome();
  During("Normalizing...", [] { Key(Qt::Key_Return); });
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{ReallyAbort});
}

TEST_F(AbortedNormalization, WithManyBuffers) {
  record.WavMultiBuffer = true;
  OpenScanned(Quiet());
  LetUpdatesCome();
  During("Normalizing...", [&] { ClickOn("Cancel"); });
  questions.Answer(BoxAnswer::Yes);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{ReallyAbort});
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(QuietAmplified()).first(46));
  EXPECT_TRUE(record.WavMultiBuffer);
  EXPECT_EQ(Disabled(), "");
}

// The request is not taken back by the pass that it ended: the next scan stops by it, too.
TEST_F(AbortedNormalization, StopsTheNextScanAtItsFirstUpdate) {
  OpenScanned(Long(4));
  auto louder = Long(4);
  louder.levels[40000] = 20000;  // in the second block
  LetUpdatesCome();
  During("Normalizing...", [&] { ClickOn("Cancel"); });
  questions.Answer(BoxAnswer::Yes);
  ClickOn("btnNorm");
  Put("in.wav", louder);
  ClickOn("btnScan");
  EXPECT_EQ(Peaks(), "-16384 8191");
  ClickOn("btnScan");
  EXPECT_EQ(Peaks(), "-16384 20000");
}

TEST_F(AbortedNormalization, TooLateIsTakenByTheNextScan) {
  OpenScanned(Long(3));
  auto louder = Long(3);
  louder.levels[40000] = 20000;  // in the second block
  LetUpdatesCome();
  During("Normalizing...", [] {});
  During("Normalizing...", [] {});
  // Behind the last update: in the loop over the last words nothing is looked at any more.
  During("Normalizing...", [&] { ClickOn("Cancel"); });
  questions.Answer(BoxAnswer::Yes);
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  const auto texts = Boxes();
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0], ReallyAbort);
  EXPECT_TRUE(texts[1].starts_with("WAV file was successfully normalized."));
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(3)));
  Put("in.wav", louder);
  ClickOn("btnScan");
  EXPECT_EQ(Peaks(), "-16384 8191");
  ClickOn("btnScan");
  EXPECT_EQ(Peaks(), "-16384 20000");
}

TEST_F(AbortedNormalization, IsForgottenByANewWindow) {
  OpenScanned(Long(3));
  LetUpdatesCome();
  During("Normalizing...", [&] { ClickOn("Cancel"); });
  questions.Answer(BoxAnswer::Yes);
  ClickOn("btnNorm");
  window->close();
  RunDeletions();
  auto louder = Long(3);
  louder.levels[40000] = 20000;
  OpenScanned(louder);
  EXPECT_EQ(Peaks(), "-16384 20000");
}

TEST_F(AbortedNormalization, OfAScanIsTakenByTheAutomaticPass) {
  record.WavAutoNormalize = true;
  const auto path = Put("in.wav", Long(4));
  OpenNormalizer();
  OpenFile(path);
  // At the start of the automatic pass nothing says that it normalizes, so nothing is asked.
  LetUpdatesCome();
  During("Scanning...", [] {});
  During("Scanning...", [] {});
  During("Scanning...", [] {});
  During("", [&] { Find<QAbstractButton>(window, u"Cancel"_s)->click(); });
  ClickOn("btnScan");
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4)).first(44 + 65536));
  EXPECT_EQ(Shown(), AfterAPass);
}

// --- What the scan leaves out --------------------------------------------------------------------

class UnseenLoudness : public NormalizingWindow {
 protected:
  static constexpr const char* CutsOff =
      "1 of 65536 samples would be cut off, at the end, which the scan leaves out.\r\n\r\n"
      "Normalize to the peaks of the whole file instead?";

  // Two blocks, of which a scan leaves out the second but for its last word.
  static WavParts LoudAtTheEnd() {
    WavParts wav = Long(2);
    wav.levels[40000] = 32000;
    return wav;
  }

  void OpenLoudAtTheEnd() {
    record.WavOverwriteSource = true;
    record.WavTolerance = 1;
    OpenScanned(LoudAtTheEnd());
    EXPECT_EQ(Peaks(), "-16384 8191");
  }
};

TEST_F(UnseenLoudness, IsNormalizedToTheWholeFileAfterYes) {
  OpenLoudAtTheEnd();
  questions.Answer(BoxAnswer::Yes, [&] {
    EXPECT_EQ(Shown(), Scanned);
    EXPECT_EQ(BytesOf("in.wav"), BytesOf(LoudAtTheEnd()));
  });
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  ASSERT_EQ(questions.asked.size(), 2U);
  EXPECT_EQ(questions.asked[0].text, CutsOff);
  EXPECT_EQ(questions.asked[0].buttons, BoxButtons::YesNo);
  EXPECT_EQ(questions.asked[1].text, StatisticsWithoutTime("102.4", false));
  const auto expected = Amplified(LoudAtTheEnd().levels, 32767 / 32000.0);
  EXPECT_EQ(BytesOf("in.wav"), BytesOf({.levels = expected}));
  EXPECT_EQ(Peaks(), "-16384 8191") << "what the scan showed stays";
  EXPECT_EQ(Shown(), AfterAPass);
}

TEST_F(UnseenLoudness, IsCutOffAfterNo) {
  OpenLoudAtTheEnd();
  questions.Answer(BoxAnswer::No);
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), (Texts{CutsOff, StatisticsWithoutTime("200", false)}));
  const auto expected = Amplified(LoudAtTheEnd().levels, 2);
  EXPECT_EQ(BytesOf("in.wav"), BytesOf({.levels = expected}));
}

TEST_F(UnseenLoudness, NeedsNothingWhereTheWholeFileIsLoudEnough) {
  record.WavTolerance = 6;
  record.WavOverwriteSource = true;
  OpenScanned(LoudAtTheEnd());
  questions.Answer(BoxAnswer::Yes);
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), (Texts{CutsOff, NotRequired}));
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(LoudAtTheEnd()));
  EXPECT_EQ(Shown(), Scanned);
  EXPECT_EQ(Disabled(), "TargetFile Target") << "nothing is left of the pass";
}

TEST_F(UnseenLoudness, IsAskedAboutAfterAnAutomaticScanToo) {
  record.WavAutoNormalize = true;
  record.WavOverwriteSource = true;
  record.WavTolerance = 1;
  questions.Answer(BoxAnswer::Yes);
  questions.Answer(BoxAnswer::Ok);
  OpenScanned(LoudAtTheEnd());
  EXPECT_EQ(Boxes(), (Texts{CutsOff, StatisticsWithoutTime("102.4", false)}));
}

TEST_F(UnseenLoudness, IsNoQuestionWhereNothingIsCutOff) {
  WavParts wav = LoudAtTheEnd();
  wav.levels[40000] = 16383;  // louder than what was seen, and still within the range
  record.WavOverwriteSource = true;
  OpenScanned(wav);
  Normalize();
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("200", false)});
}

TEST_F(UnseenLoudness, ANoteOfASecondIsNotCutOff) {
  WavParts note;
  note.channels = 1;
  note.levels.resize(44100);
  for (std::size_t i = 0; i < note.levels.size(); ++i) {
    const int swing = i % 2 == 0 ? 12000 : -12000;
    note.levels[i] = static_cast<std::int16_t>(i < 32767 ? swing : 120);
  }
  record.WavOverwriteSource = true;
  OpenScanned(note);
  questions.Answer(BoxAnswer::Yes);
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_TRUE(Matches(Boxes().front(), u"^32767 of 44100 samples would be cut off"_s));
  const auto expected = Amplified(note.levels, 32767 / 12000.0);
  note.levels = expected;
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(note));
}

TEST_F(UnseenLoudness, TheScanOfTheWholeFileCanBeAborted) {
  OpenLoudAtTheEnd();
  LetUpdatesCome();
  questions.Answer(BoxAnswer::Yes);
  During("Scanning...", [&] {
    EXPECT_EQ(Shown(), "peaks normalize abort progress Scanning...");
    ClickOn("Cancel");
  });
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{CutsOff});
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(LoudAtTheEnd()));
  EXPECT_EQ(Shown(), Scanned);
}

TEST_F(UnseenLoudness, WhatIsChosenDuringTheScanOfTheWholeFileIsForTheNextPass) {
  OpenLoudAtTheEnd();
  LetUpdatesCome();
  questions.Answer(BoxAnswer::Yes);
  questions.Answer(BoxAnswer::Ok);
  During("Scanning...", [&] {
    ClickOn("Output(1)");
    ClickOn("Mbuffer");
    PercNorm->setText(u"50"_s);
    Toler->setValue(30);
  });
  ClickOn("btnNorm");
  const auto asked = Boxes();
  EXPECT_TRUE(Matches(asked.back(), u"102.4%[^%]*single buffer"_s)) << asked.back();
  const auto expected = Amplified(LoudAtTheEnd().levels, 32767 / 32000.0);
  EXPECT_EQ(BytesOf("in.wav"), BytesOf({.levels = expected}));
  EXPECT_EQ(BytesOf("out.wav"), "(none)");
}

TEST_F(UnseenLoudness, AFileThatIsGoneMeanwhileIsAnError) {
  OpenLoudAtTheEnd();
  questions.Answer(BoxAnswer::Yes, [&] { QFile::remove(PathOf("in.wav")); });
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  const auto asked = Boxes();
  ASSERT_EQ(asked.size(), 2U);
  EXPECT_TRUE(Matches(asked[1], u"^Cannot read .*in\\.wav: "_s)) << asked[1];
  EXPECT_EQ(Shown(), Scanned);
}

TEST_F(UnseenLoudness, TheWindowMayGoWhileTheQuestionStands) {
  OpenLoudAtTheEnd();
  questions.Answer(std::nullopt);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{CutsOff});
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(LoudAtTheEnd()));
}

// --- What the window shows -----------------------------------------------------------------------

class DefaultsLoadedMeanwhile : public NormalizingWindow {
 protected:
  void LoadDefaults() { ResetToBuiltIn(record); }
};

TEST_F(DefaultsLoadedMeanwhile, ThePassWritesTheTargetThatStandsThere) {
  OpenScanned(Quiet());
  LoadDefaults();
  ASSERT_TRUE(record.WavOverwriteSource);
  Normalize();
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("200", false)});
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(QuietAmplified()));
}

TEST_F(DefaultsLoadedMeanwhile, TheScanReadsTheFileThatIsShown) {
  const auto path = Put("in.wav", Quiet());
  OpenNormalizer();
  OpenFile(path);
  LoadDefaults();
  ClickOn("btnScan");
  EXPECT_EQ(Peaks(), "-16384 8191");
}

TEST_F(DefaultsLoadedMeanwhile, ThePassHeedsTheToleranceAndTheBuffersThatStandThere) {
  record.WavTolerance = 30;
  record.WavMultiBuffer = true;
  WavParts wav;
  wav.levels = {-27000, 27000, 3};
  OpenScanned(wav);
  LoadDefaults();
  record.WavMultiBuffer = false;
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{NotRequired});
  Toler->setFocus();
  Toler->setValue(3);
  Normalize();
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("121.36", true)});
}

TEST_F(DefaultsLoadedMeanwhile, TheSourceIsOverwrittenWhereThatStandsThere) {
  record.WavOverwriteSource = true;
  OpenScanned(Quiet());
  LoadDefaults();
  record.WavOverwriteSource = false;
  record.WavTargetFile = PathOf("other.wav");
  Normalize();
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(QuietAmplified()));
  EXPECT_EQ(BytesOf("other.wav"), "(none)");
}

}  // namespace
}  // namespace brindle
