// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QApplication>
#include <QByteArray>
#include <QCheckBox>
#include <QDialog>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/file_dialogs.h"
#include "base/input/message_boxes.h"
#include "base/input/modal_dialogs.h"
#include "shell/main_prog.h"
#include "tests/support/named_case.h"
#include "tests/wav/normalizer_window.h"
#include "tests/wav/wav_builder.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// The ways in which a window of the program is closed.
enum class Way { Close, Escape, MainWindow };

struct WayCase {
  const char* name = nullptr;
  Way way = Way::Close;
};

const auto Ways =
    ::testing::Values(WayCase{"ByItself", Way::Close}, WayCase{"ByEscape", Way::Escape},
                      WayCase{"WithTheMainWindow", Way::MainWindow});

// The normalizer and the main window, which keeps the settings file.
class ClosingWindow : public NormalizerWindow {
 protected:
  static constexpr const char* SettingsFile = "Brindle2.ini";

  void SetUp() override {
    const Settings mine = record;
    main =
        MakeMainProg(prepared, ProgramFolders{.program = folder.path(), .config = folder.path()});
    QObject::connect(main.get(), &Form::Closed, [this] { ++mainClosed; });
    record = mine;
    record.AppFolder = folder.path();
    main->show();
    WaitForActive(main.get());
    fileBefore = BytesOf(SettingsFile);
  }

  void TearDown() override {
    NormalizerWindow::TearDown();
    RunDeletions();
  }

  void CloseBy(Way way) {
    switch (way) {
      case Way::Close:
        window->close();
        break;
      case Way::Escape:
        window->activateWindow();
        WaitForActive(window);
        Key(Qt::Key_Escape);
        break;
      case Way::MainWindow:
        main->close();
        break;
    }
  }

  // What came of closing the window that way: it is gone, or hidden with the ended program.
  void ExpectClosed(Way way) {
    RunDeletions();
    if (way == Way::MainWindow) {
      EXPECT_EQ(mainClosed, 1);
      EXPECT_NE(BytesOf(SettingsFile), fileBefore) << "nothing is saved";
    } else {
      EXPECT_EQ(window, nullptr) << "the window stands";
      EXPECT_EQ(mainClosed, 0);
      EXPECT_EQ(BytesOf(SettingsFile), fileBefore);
    }
  }
  void ExpectOpen() const {
    EXPECT_TRUE(window != nullptr && window->isVisible());
    EXPECT_TRUE(main->isVisible());
    EXPECT_EQ(mainClosed, 0);
    EXPECT_EQ(BytesOf(SettingsFile), fileBefore) << "saved before the question was answered";
  }

  // The next window is like the first.
  void ExpectReopens() {
    clock.AdvanceAtEveryLook(0);
    record.WavAutoNormalize = false;
    record.WavOverwriteSource = false;
    record.WavTargetFile = PathOf("again.wav");
    questions.asked.clear();
    Put("in.wav", Quiet());
    OpenNormalizer();
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(Disabled(), "");
    OpenFile(PathOf("in.wav"));
    ClickOn("btnScan");
    EXPECT_EQ(Shown(), "info peaks scan normalize");
    questions.Answer(BoxAnswer::Ok);
    ClickOn("btnNorm");
    EXPECT_EQ(BytesOf("again.wav"), BytesOf(QuietAmplified()));
    EXPECT_EQ(Boxes().size(), 1U);
    window->close();
    RunDeletions();
    EXPECT_EQ(window, nullptr);
  }

  // Lets a scanned file of some length stand in the window, its updates due.
  void OpenScannedLong() {
    OpenScanned(Long(4));
    LetUpdatesCome();
  }

  std::unique_ptr<MainProg> main;
  int mainClosed = 0;
  QByteArray fileBefore;
};

class ClosedWays : public ClosingWindow, public ::testing::WithParamInterface<WayCase> {
 protected:
  void CloseIt() { CloseBy(GetParam().way); }
  void ExpectIt() { ExpectClosed(GetParam().way); }
  void ExpectReopensUnlessEnded() {
    if (GetParam().way != Way::MainWindow) {
      ExpectReopens();
    }
  }
};

TEST_P(ClosedWays, WhileNothingRuns) {
  OpenScanned(Quiet());
  CloseIt();
  ExpectIt();
  EXPECT_EQ(Boxes(), Texts());
  ExpectReopensUnlessEnded();
}

TEST_P(ClosedWays, DuringAScan) {
  record.WavAutoNormalize = true;  // it must not go on to that
  const auto path = Put("in.wav", Long(4));
  OpenNormalizer();
  OpenFile(path);
  LetUpdatesCome();
  During("Scanning...", [&] { CloseIt(); });
  ClickOn("btnScan");
  ExpectIt();
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_FALSE(QFile::exists(PathOf("out.wav")));
  ExpectReopensUnlessEnded();
}

TEST_P(ClosedWays, DuringANormalizationAfterTheQuestion) {
  OpenScannedLong();
  questions.Answer(BoxAnswer::Yes, [&] { ExpectOpen(); });
  During("Normalizing...", [&] { CloseIt(); });
  ClickOn("btnNorm");
  ExpectIt();
  ASSERT_EQ(questions.asked.size(), 1U);
  EXPECT_EQ(questions.asked[0].text, ReallyAbort);
  EXPECT_EQ(questions.asked[0].buttons, BoxButtons::YesNoDefaultNo);
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4)).first(44 + 65536));
  ExpectReopensUnlessEnded();
}

TEST_P(ClosedWays, NotDuringANormalizationThatIsToGoOn) {
  OpenScannedLong();
  questions.Answer(BoxAnswer::No, [&] { ExpectOpen(); });
  questions.Answer(BoxAnswer::Ok);
  During("Normalizing...", [&] {
    CloseIt();
    ExpectOpen();
    EXPECT_EQ(Text("Status"), "Normalizing...");
  });
  ClickOn("btnNorm");
  RunDeletions();
  ExpectOpen();
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4)));
  EXPECT_EQ(Shown(), "info scan");
  EXPECT_EQ(Disabled(), "");
  // And it closes without a question afterwards.
  questions.asked.clear();
  CloseIt();
  ExpectIt();
  EXPECT_EQ(Boxes(), Texts());
}

TEST_P(ClosedWays, DuringAPassWithManyBuffers) {
  record.WavMultiBuffer = true;
  OpenScanned(Quiet());
  LetUpdatesCome();
  questions.Answer(BoxAnswer::Yes);
  During("Normalizing...", [&] { CloseIt(); });
  ClickOn("btnNorm");
  ExpectIt();
  EXPECT_EQ(Boxes(), Texts{ReallyAbort});
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(QuietAmplified()).first(46));
}

TEST_P(ClosedWays, BehindTheLoopsOfAPass) {
  OpenScannedLong();
  questions.Answer(BoxAnswer::Yes,
                   [&] { EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4))); });
  for (int update = 0; update < 3; ++update) {
    During("Normalizing...", [] {});
  }
  During("Normalizing...", [&] { CloseIt(); });
  ClickOn("btnNorm");
  ExpectIt();
  EXPECT_EQ(Boxes(), Texts{ReallyAbort}) << "no statistics of a window that is closed";
}

// Into the moment in which a pass first lets events in, before it has begun.
TEST_P(ClosedWays, AtTheStartOfAPass) {
  OpenScanned(Quiet());
  Press(Control("btnNorm"));
  QTimer::singleShot(0, window, [&] { CloseIt(); });
  LetGo(Control("btnNorm"));
  AwaitEnd();
  ExpectIt();
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_FALSE(QFile::exists(PathOf("out.wav")));
  ExpectReopensUnlessEnded();
}

TEST_P(ClosedWays, AtTheStartOfAnAutomaticPass) {
  record.WavAutoNormalize = true;
  const auto path = Put("in.wav", Long(3));
  OpenNormalizer();
  OpenFile(path);
  LetUpdatesCome();
  During("Scanning...", [] {});
  During("Scanning...", [] {});
  During("", [&] { CloseIt(); });
  ClickOn("btnScan");
  ExpectIt();
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_FALSE(QFile::exists(PathOf("out.wav")));
  ExpectReopensUnlessEnded();
}

INSTANTIATE_TEST_SUITE_P(Each, ClosedWays, Ways, NameOf);

// --- By the system, which waits for no answer ----------------------------------------------------

class ClosedBySystem : public ClosingWindow {};

TEST_F(ClosedBySystem, ANormalizationStopsAtItsNextUpdateUnasked) {
  OpenScannedLong();
  During("Normalizing...", [&] { main->CloseUnasked(); });
  ClickOn("btnNorm");
  ExpectClosed(Way::MainWindow);
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4)).first(44 + 65536));
}

TEST_F(ClosedBySystem, AScanStopsAtItsNextUpdate) {
  record.WavAutoNormalize = true;
  const auto path = Put("in.wav", Long(4));
  OpenNormalizer();
  OpenFile(path);
  LetUpdatesCome();
  During("Scanning...", [&] { main->CloseUnasked(); });
  ClickOn("btnScan");
  ExpectClosed(Way::MainWindow);
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_FALSE(QFile::exists(PathOf("out.wav")));
}

TEST_F(ClosedBySystem, AnAbortThatIsAskedAboutIsNotAnswered) {
  OpenScannedLong();
  questions.Answer(std::nullopt, [&] { main->CloseUnasked(); });
  During("Normalizing...", [&] { ClickOn("Cancel"); });
  ClickOn("btnNorm");
  ExpectClosed(Way::MainWindow);
  EXPECT_EQ(Boxes(), Texts{ReallyAbort});
}

TEST_F(ClosedBySystem, TheMainWindowsOwnQuestionIsNotAnswered) {
  OpenScannedLong();
  questions.Answer(std::nullopt);
  During("Normalizing...", [&] {
    main->close();
    ExpectOpen();
    main->CloseUnasked();
  });
  ClickOn("btnNorm");
  ExpectClosed(Way::MainWindow);
  EXPECT_EQ(Boxes(), Texts{ReallyAbort});
}

TEST_F(ClosedBySystem, AQuestionAboutTheTargetOverwritesNothing) {
  Put("out.wav", QByteArray("precious"));
  OpenScanned(Quiet());
  questions.Answer(std::nullopt, [&] { main->CloseUnasked(); });
  ClickOn("btnNorm");
  ExpectClosed(Way::MainWindow);
  EXPECT_EQ(BytesOf("out.wav"), "precious");
}

// --- While a box stands ------------------------------------------------------------------------

// A box of the normalizer's own, under which the window is closed. The box may be told of it
// (nothing is the answer), or may still be answered afterwards.
struct BoxCase {
  const char* name = nullptr;
  Way way = Way::Close;
  std::optional<BoxAnswer> answer;
};

class ClosedUnderABox : public ClosingWindow, public ::testing::WithParamInterface<BoxCase> {
 protected:
  // The box under which the window is closed.
  void AnswerClosing() {
    questions.Answer(GetParam().answer, [&] { CloseBy(GetParam().way); });
  }
  void ExpectIt() {
    ExpectClosed(GetParam().way);
    if (GetParam().way != Way::MainWindow) {
      ExpectReopens();
    }
  }
};

TEST_P(ClosedUnderABox, OfARefusedFile) {
  OpenNormalizer();
  AnswerClosing();
  OpenFile(Put("bad.wav", QByteArray("nothing")));
  EXPECT_EQ(Boxes(), Texts{Refused});
  ExpectIt();
}

TEST_P(ClosedUnderABox, OfADroppedFile) {
  OpenNormalizer();
  AnswerClosing();
  EXPECT_TRUE(DropOn("WavInfo1", Put("bad.wav", QByteArray("nothing"))));
  EXPECT_EQ(Boxes(), Texts{Refused});
  EXPECT_EQ(record.WavSourceFile.toStdString(), "");
  ExpectIt();
}

TEST_P(ClosedUnderABox, OfAFailedScan) {
  const auto path = Put("in.wav", Quiet());
  OpenNormalizer();
  OpenFile(path);
  QFile::remove(path);
  AnswerClosing();
  ClickOn("btnScan");
  EXPECT_EQ(Boxes().size(), 1U);
  ExpectIt();
}

TEST_P(ClosedUnderABox, OfANeedlessPass) {
  OpenScanned({.levels = {0, 0}});
  AnswerClosing();
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{NotRequired});
  ExpectIt();
}

TEST_P(ClosedUnderABox, OfAFailedPass) {
  record.WavTargetFile = PathOf("missing/out.wav");
  OpenScanned(Quiet());
  AnswerClosing();
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes().size(), 1U);
  ExpectIt();
}

TEST_P(ClosedUnderABox, OfTheStatistics) {
  OpenScanned(Quiet());
  AnswerClosing();
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes().size(), 1U) << "the pass is over, nothing is left to abort";
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(QuietAmplified()));
  ExpectIt();
}

TEST_P(ClosedUnderABox, OfAnAutomaticPass) {
  record.WavAutoNormalize = true;
  const auto path = Put("in.wav", Quiet());
  OpenNormalizer();
  OpenFile(path);
  AnswerClosing();
  ClickOn("btnScan");
  EXPECT_EQ(Boxes().size(), 1U);
  ExpectIt();
}

TEST_P(ClosedUnderABox, ThatAsksAboutTheTarget) {
  Put("out.wav", QByteArray("precious"));
  OpenScanned(Quiet());
  AnswerClosing();
  questions.Answer(BoxAnswer::Yes, [&] { ExpectOpen(); });
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), (Texts{Overwrite, ReallyAbort}));
  EXPECT_EQ(BytesOf("out.wav"), "precious");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
  ExpectIt();
}

TEST_P(ClosedUnderABox, ThatAsksAboutTheAbort) {
  OpenScannedLong();
  During("Normalizing...", [&] { ClickOn("Cancel"); });
  AnswerClosing();
  questions.Answer(BoxAnswer::Yes, [&] { ExpectOpen(); });
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), (Texts{ReallyAbort, ReallyAbort}));
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4)).first(44 + 65536));
  ExpectIt();
}

INSTANTIATE_TEST_SUITE_P(Each, ClosedUnderABox,
                         ::testing::Values(BoxCase{"ToldOfIt", Way::Close, std::nullopt},
                                           BoxCase{"AnsweredYes", Way::Close, BoxAnswer::Yes},
                                           BoxCase{"AnsweredNo", Way::Close, BoxAnswer::No},
                                           BoxCase{"WithTheMainWindow", Way::MainWindow,
                                                   std::nullopt}),
                         NameOf);

TEST_F(ClosingWindow, UnderTheTargetsQuestionIsNotDoneWhenThePassIsToGoOn) {
  Put("out.wav", QByteArray("precious"));
  OpenScanned(Quiet());
  questions.Answer(BoxAnswer::Yes, [&] {
    main->close();
    ExpectOpen();
  });
  questions.Answer(BoxAnswer::No);
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  ExpectOpen();
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(QuietAmplified()));
}

// A window that is about to close is asked once; the program may end meanwhile, though.
TEST_F(ClosingWindow, AgainUnderItsOwnQuestionAsksOnce) {
  OpenScannedLong();
  During("Normalizing...", [&] { window->close(); });
  questions.Answer(BoxAnswer::Yes, [&] {
    window->close();
    ExpectOpen();
  });
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{ReallyAbort});
  ExpectClosed(Way::Close);
  ExpectReopens();
}

TEST_F(ClosingWindow, AgainUnderItsOwnQuestionLeavesItOpenAfterNo) {
  OpenScannedLong();
  During("Normalizing...", [&] { window->close(); });
  questions.Answer(BoxAnswer::No, [&] { window->close(); });
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  ExpectOpen();
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4)));
  window->close();
  ExpectClosed(Way::Close);
}

TEST_F(ClosingWindow, WithTheMainWindowUnderItsOwnQuestion) {
  OpenScannedLong();
  During("Normalizing...", [&] { window->close(); });
  questions.Answer(std::nullopt, [&] { main->close(); });
  questions.Answer(BoxAnswer::Yes, [&] { ExpectOpen(); });
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), (Texts{ReallyAbort, ReallyAbort}));
  ExpectClosed(Way::MainWindow);
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4)).first(44 + 65536));
}

// Closing the normalizer takes the main window's question about it away: the main window stays.
TEST_F(ClosingWindow, UnderTheQuestionOfTheMainWindow) {
  for (const auto answer : {BoxAnswer::No, BoxAnswer::Yes}) {
    OpenScannedLong();
    QFile::remove(PathOf("out.wav"));
    During("Normalizing...", [&] { main->close(); });
    questions.Answer(answer, [&] { window->close(); });
    questions.Answer(BoxAnswer::Yes, [&] { ExpectOpen(); });
    ClickOn("btnNorm");
    EXPECT_EQ(Boxes(), (Texts{ReallyAbort, ReallyAbort}));
    RunDeletions();
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(mainClosed, 0);
    EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4)).first(44 + 65536));
    clock.AdvanceAtEveryLook(0);
  }
}

TEST_F(ClosingWindow, SavesWhatWasChosenBeforeTheQuestion) {
  OpenScannedLong();
  During("Normalizing...", [&] {
    ClickOn("AutoNorm");
    main->close();
  });
  questions.Answer(BoxAnswer::Yes, [&] { ExpectOpen(); });
  ClickOn("btnNorm");
  EXPECT_EQ(mainClosed, 1);
  EXPECT_NE(BytesOf(SettingsFile).indexOf(PathOf("in.wav").toUtf8()), -1);
}

TEST_F(ClosingWindow, UnsavedAnEndAsksTheQuestionAllTheSame) {
  Find<QCheckBox>(main.get(), u"SaveOnExit"_s)->setChecked(false);
  OpenScannedLong();
  During("Normalizing...", [&] { main->close(); });
  questions.Answer(BoxAnswer::Yes);
  ClickOn("btnNorm");
  EXPECT_EQ(mainClosed, 1);
  EXPECT_EQ(BytesOf(SettingsFile), fileBefore);
}

TEST_F(ClosingWindow, ANewOneCanBeOpenedBeforeThePassHasEnded) {
  OpenScannedLong();
  QPointer<QWidget> first = window;
  questions.Answer(BoxAnswer::Yes);
  During("Normalizing...", [&] {
    window->close();
    OpenNormalizer();
    EXPECT_NE(window, first);
    EXPECT_EQ(Shown(), "");
  });
  ClickOn("btnNorm");
  RunDeletions();
  EXPECT_EQ(first, nullptr);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(Shown(), "") << "the end of the old pass is none of the new window's";
  EXPECT_EQ(Disabled(), "");
  EXPECT_EQ(Text("Status"), "");
}

TEST_F(ClosingWindow, InOneGoWithAnAbortAsksOnce) {
  OpenScannedLong();
  During("Scanning...", [&] {
    ClickOn("Cancel");
    window->close();
  });
  ClickOn("btnScan");
  EXPECT_EQ(Boxes(), Texts());
  ExpectClosed(Way::Close);
}

// --- With the dialogs of the screen ------------------------------------------------------------

// The real boxes and file dialogs, which let events in while they stand.
class ClosingOnTheScreen : public NormalizerWindow {
 protected:
  static constexpr int Patience = 10000;  // milliseconds

  ClosingOnTheScreen() {
    AddAllWindows(windows, onScreen, [](const auto& then) { then(); });
  }

  // Does something once a modal dialog stands and is active.
  template <class Dialog>
  void WhenOpen(const std::function<void(Dialog*)>& action) {
    QObject::connect(&look, &QTimer::timeout, [this, action] {
      if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget())) {
        look.stop();
        look.disconnect();
        ++seen;
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return QApplication::activeWindow() == dialog; }, Patience));
        action(dialog);
      }
    });
    look.start(0);
  }
  void OpenLoaded(const WavParts& wav) {
    const auto path = Put("in.wav", wav);
    OpenNormalizer();
    WhenOpen<QFileDialog>([&](QFileDialog* dialog) {
      dialog->selectFile(path);
      auto* name = dialog->findChild<QLineEdit*>(u"fileNameEdit"_s);
      name->setText(path);
      Key(Qt::Key_Return);
    });
    ClickOn("btnOpen");
    EXPECT_EQ(Shown(), "info scan");
  }

  ModalDialogs modal;
  ScreenMessageBoxes boxesOnScreen{modal};
  ScreenFileDialogs dialogsOnScreen{modal};
  Services onScreen{record,  windows,  clock, boxesOnScreen, dialogsOnScreen,
                    desktop, registry, films, parts,         product};
  QTimer look;
  int seen = 0;
};

TEST_F(ClosingOnTheScreen, EscapeInTheQuestionMeansNo) {
  OpenLoaded(Long(3));
  ClickOn("btnScan");
  LetUpdatesCome();
  During("Normalizing...", [&] {
    WhenOpen<QMessageBox>([&](QMessageBox* box) {
      EXPECT_EQ(box->text().toStdString(), ReallyAbort);
      WhenOpen<QMessageBox>([](QMessageBox* statistics) { statistics->close(); });
      Key(Qt::Key_Escape);
    });
    ClickOn("Cancel");
  });
  ClickOn("btnNorm");
  EXPECT_EQ(seen, 3);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(3)));
}

TEST_F(ClosingOnTheScreen, TheEndOfTheProgramAnswersNoQuestionAboutTheTarget) {
  Put("out.wav", QByteArray("precious"));
  OpenLoaded(Quiet());
  ClickOn("btnScan");
  WhenOpen<QMessageBox>([&](QMessageBox*) { modal.End(); });
  ClickOn("btnNorm");
  EXPECT_EQ(seen, 2);
  EXPECT_EQ(BytesOf("out.wav"), "precious");
}

TEST_F(ClosingOnTheScreen, TheEndOfTheProgramEndsAPassUnderItsQuestion) {
  OpenLoaded(Long(4));
  ClickOn("btnScan");
  LetUpdatesCome();
  During("Normalizing...", [&] {
    WhenOpen<QMessageBox>([&](QMessageBox*) {
      modal.End();
      windows.CloseAllUnasked();
    });
    ClickOn("Cancel");
  });
  ClickOn("btnNorm");
  EXPECT_EQ(seen, 2);
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(LongAmplified(4)).first(44 + 65536));
}

TEST_F(ClosingOnTheScreen, TheEndOfTheProgramTakesAFileDialogAway) {
  OpenNormalizer();
  WhenOpen<QFileDialog>([&](QFileDialog*) { modal.End(); });
  ClickOn("btnOpen");
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(record.WavSourceFile.toStdString(), "");
  window->close();
  RunDeletions();
  EXPECT_EQ(window, nullptr);
}

TEST_F(ClosingOnTheScreen, TheEndOfTheProgramTakesATargetDialogAway) {
  OpenNormalizer();
  WhenOpen<QFileDialog>([&](QFileDialog*) { modal.End(); });
  ClickOn("Target");
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(record.WavTargetFile.toStdString(), PathOf("out.wav").toStdString());
}

TEST_F(ClosingOnTheScreen, AWindowClosedUnderItsFileDialogTakesNoFile) {
  const auto path = Put("in.wav", Quiet());
  OpenNormalizer();
  WhenOpen<QFileDialog>([&](QFileDialog* dialog) {
    dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(path);
    window->close();
    static_cast<QDialog*>(dialog)->done(QDialog::Accepted);
  });
  ClickOn("btnOpen");
  EXPECT_EQ(record.WavSourceFile.toStdString(), "");
  RunDeletions();
  EXPECT_EQ(window, nullptr);
}

// The window is gone by the time at which its message would be answered.
TEST_F(ClosingOnTheScreen, AWindowClosedUnderTheMessageOfADroppedFileHearsNoAnswer) {
  const auto path = Put("in.wav", Quiet());
  OpenNormalizer();
  EXPECT_TRUE(DropOn("WavInfo1", path));
  WhenOpen<QMessageBox>([&](QMessageBox* box) {
    EXPECT_EQ(box->text().toStdString(), Refused);
    EXPECT_FALSE(DropOn("WavInfo1", path)) << "while a message stands";
    const QPointer<QMessageBox> message = box;
    window->close();
    EXPECT_FALSE(box->isVisible()) << "the message outlives its window";
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    static_cast<QDialog*>(box)->done(QMessageBox::Ok);
    EXPECT_FALSE(Control("btnScan")->isHidden()) << "the answer resets the window";
    RunDeletions();
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(message, nullptr);
  });
  EXPECT_TRUE(DropOn("WavInfo1", Put("bad.wav", QByteArray("nothing"))));
  AwaitEnd();
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(record.WavSourceFile, path);
  OpenNormalizer();
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Disabled(), "");
  EXPECT_TRUE(DropOn("WavInfo1", path));
  EXPECT_EQ(Shown(), Loaded);
}

TEST_F(ClosingOnTheScreen, AWindowClosedUnderItsTargetDialogTakesNoTarget) {
  OpenNormalizer();
  WhenOpen<QFileDialog>([&](QFileDialog* dialog) {
    dialog->findChild<QLineEdit*>(u"fileNameEdit"_s)->setText(PathOf("new.wav"));
    window->close();
    static_cast<QDialog*>(dialog)->done(QDialog::Accepted);
  });
  ClickOn("Target");
  EXPECT_EQ(record.WavTargetFile.toStdString(), PathOf("out.wav").toStdString());
  RunDeletions();
  EXPECT_EQ(window, nullptr);
}

}  // namespace
}  // namespace brindle
