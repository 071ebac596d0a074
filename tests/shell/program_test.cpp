// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/program.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "base/input/spin_button.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/shell/main_window.h"
#include "tests/support/user.h"
#include "tests/wav/wav_builder.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr int Patience = 10000;  // milliseconds

// The whole program on the system's own clock, in the event loop that it ends. A test says what to
// do in the meantime; what is then left is checked after the end.
class ProgramTest : public ::testing::Test {
 protected:
  // Runs the program to its end and gives its exit code. A program that does not end fails the
  // test.
  int Run(const std::function<void()>& meanwhile, const QString& file = {}) {
    program = std::make_unique<Program>(
        Product{.website = u"https://example.org/brindle"_s, .author = u"Velbrin 2026"_s},
        ProgramFolders{.program = folder.Path(), .config = folder.Path()});
    QTimer watchdog;
    QObject::connect(&watchdog, &QTimer::timeout, [] {
      ADD_FAILURE() << "the program does not end";
      for (auto* window : QApplication::topLevelWidgets()) {
        window->hide();
      }
      QApplication::exit(99);
    });
    watchdog.start(2 * Patience);
    program->Start(file);
    QTimer::singleShot(0, qApp, meanwhile);
    return QApplication::exec();
  }

  // Waits some seconds for the one window of this name to be shown and active.
  static QWidget* Await(const QString& name) {
    if (!QTest::qWaitFor([&] { return Standing(name).size() == 1; }, Patience)) {
      ADD_FAILURE() << name.toStdString() << " does not appear";
      return nullptr;
    }
    auto* window = Standing(name).front();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window, Patience)) << name.toStdString();
    return window;
  }

  // Runs `action` once the message box is open, while its caller waits for the answer.
  void WhenABoxStands(const std::function<void(QMessageBox*)>& action) {
    QObject::connect(&look, &QTimer::timeout, [this, action] {
      if (const auto boxes = Standing(u"MessageBox"_s); !boxes.empty()) {
        look.stop();
        ++boxesSeen;
        // Not the toolkit's own wait, which takes a box for active as soon as its owner is.
        EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == boxes.front(); },
                                    Patience));
        action(qobject_cast<QMessageBox*>(boxes.front()));
      }
    });
    look.start(5);
  }

  static QWidget* AwaitMainWindow() {
    Await(u"Splash"_s);
    Key(Qt::Key_Space);
    return Await(u"MainProg"_s);
  }

  static void ClickIn(const QWidget* window, const QString& name) {
    Click(window->findChild<QWidget*>(name));
  }

  static void ExpectNothingVisible() {
    for (const auto* window : QApplication::topLevelWidgets()) {
      EXPECT_FALSE(window->isVisible()) << window->objectName().toStdString();
    }
  }

  // Puts a folder where the file is; not even the superuser can replace that by a file.
  void PutFolderInTheWay() const {
    QFile::remove(folder.PathOf("Brindle2.ini"));
    ASSERT_TRUE(QDir(folder.Path()).mkpath(u"Brindle2.ini/inner"_s));
  }

  [[nodiscard]] std::string File() const { return folder.Bytes("Brindle2.ini"); }

  TemporaryFolder folder;
  std::unique_ptr<Program> program;
  QTimer look;
  int boxesSeen = 0;
};

TEST_F(ProgramTest, AKeyOnTheSplashBringsTheMainWindow) {
  EXPECT_EQ(Run([&] {
              Await(u"Splash"_s);
              EXPECT_TRUE(Standing(u"MainProg"_s).empty());
              EXPECT_EQ(folder.Names(), std::vector<std::string>{}) << "loaded too early";
              Key(Qt::Key_Space);
              Await(u"MainProg"_s);
              EXPECT_TRUE(Standing(u"Splash"_s).empty());
              EXPECT_EQ(File(), FirstFile());
              program->End();
            }),
            0);
}

TEST_F(ProgramTest, LeftAloneTheSplashGivesWayToTheMainWindow) {
  EXPECT_EQ(Run([&] {
              Await(u"MainProg"_s);
              EXPECT_TRUE(Standing(u"Splash"_s).empty());
              program->End();
            }),
            0);
}

TEST_F(ProgramTest, AFileToStartWithIsOpenedInTheNormalizer) {
  folder.Put("concert.wav", WavParts{.levels = {1, 2, 3, 4}}.Bytes());
  EXPECT_EQ(Run(
                [&] {
                  Await(u"Splash"_s);
                  Key(Qt::Key_Space);
                  const auto* normalizer = Await(u"WavNorm"_s);
                  EXPECT_EQ(Standing(u"MainProg"_s).size(), 1U);
                  const auto* name = normalizer->findChild<QLabel*>(u"WavInfo1"_s);
                  EXPECT_EQ(name->text().toStdString(), "concert.wav");
                  EXPECT_TRUE(normalizer->findChild<QWidget*>(u"btnScan"_s)->isVisible());
                  program->End();
                },
                folder.PathOf("concert.wav")),
            0);
}

TEST_F(ProgramTest, TheSplashIsGoneForGood) {
  EXPECT_EQ(Run([&] {
              const QPointer<QWidget> splash(Await(u"Splash"_s));
              Key(Qt::Key_Space);
              Await(u"MainProg"_s);
              EXPECT_TRUE(QTest::qWaitFor([&] { return splash == nullptr; }, Patience));
              program->End();
            }),
            0);
}

TEST_F(ProgramTest, AnEndDuringTheSplashSavesNothing) {
  EXPECT_EQ(Run([&] {
              Await(u"Splash"_s);
              program->End();
            }),
            0);
  ExpectNothingVisible();
  EXPECT_EQ(folder.Names(), std::vector<std::string>{});
}

TEST_F(ProgramTest, AnEndDuringADismissedSplashBringsNoMainWindow) {
  EXPECT_EQ(Run([&] {
              auto* splash = Await(u"Splash"_s);
              // Sent straight to the window: the end comes before the next turn of the event loop.
              QKeyEvent key(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, u" "_s);
              QApplication::sendEvent(splash, &key);
              program->End();
            }),
            0);
  // The splash would look at the clock again within this time.
  EXPECT_FALSE(QTest::qWaitFor([&] { return !Standing(u"MainProg"_s).empty(); }, 200));
  ExpectNothingVisible();
  EXPECT_EQ(folder.Names(), std::vector<std::string>{});
}

TEST_F(ProgramTest, AnEndSavesAndHidesEveryWindow) {
  EXPECT_EQ(Run([&] {
              auto* main = AwaitMainWindow();
              ClickIn(main, u"Defaults"_s);
              ClickIn(main, u"VideoBC"_s);
              auto* calculator = Await(u"BitrateCalc"_s);
              TabTo(calculator->findChild<QWidget*>(u"MLength"_s));
              TypeOver(u"125.5"_s);
              EXPECT_EQ(File(), FirstFile());
              program->End();
            }),
            0);
  ExpectNothingVisible();
  EXPECT_EQ(File(), FileWith(10, "125.5"));
}

TEST_F(ProgramTest, ClosingTheMainWindowEndsTheProgramWhateverElseIsOpen) {
  EXPECT_EQ(Run([&] {
              auto* main = AwaitMainWindow();
              ClickIn(main, u"VideoBC"_s);
              Await(u"BitrateCalc"_s);
              main->close();
            }),
            0);
  ExpectNothingVisible();
}

TEST_F(ProgramTest, ClosingAnotherWindowEndsNothing) {
  EXPECT_EQ(Run([&] {
              auto* main = AwaitMainWindow();
              ClickIn(main, u"VideoBC"_s);
              Await(u"BitrateCalc"_s);
              Key(Qt::Key_Escape);
              EXPECT_TRUE(Standing(u"BitrateCalc"_s).empty());
              EXPECT_EQ(Standing(u"MainProg"_s).size(), 1U);
              program->End();
            }),
            0);
}

TEST_F(ProgramTest, UntickedAnEndSavesNothing) {
  folder.Put("Brindle2.ini", FileWith(12, "0"));
  EXPECT_EQ(Run([&] {
              auto* main = AwaitMainWindow();
              ClickIn(main, u"VideoBC"_s);
              auto* calculator = Await(u"BitrateCalc"_s);
              TabTo(calculator->findChild<QWidget*>(u"MLength"_s));
              TypeOver(u"125.5"_s);
              program->End();
            }),
            0);
  EXPECT_EQ(File(), FileWith(12, "0"));
}

TEST_F(ProgramTest, OnlyTheFirstEndCounts) {
  EXPECT_EQ(Run([&] {
              AwaitMainWindow();
              program->End();
              QFile::remove(folder.PathOf("Brindle2.ini"));
              program->End();
            }),
            0);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{});
}

TEST_F(ProgramTest, TheDefaultsWindowLoadsTheDefaults) {
  folder.Put("Brindle2.ini", FileWith(10, "125.5"));
  EXPECT_EQ(Run([&] {
              ClickIn(AwaitMainWindow(), u"Defaults"_s);
              ClickIn(Await(u"DefaultW"_s), u"Command1"_s);
              EXPECT_EQ(File(), FirstFile());
              program->End();
            }),
            0);
}

TEST_F(ProgramTest, AnEndWhileASpinButtonIsHeldIsSafe) {
  EXPECT_EQ(
      Run([&] {
        ClickIn(AwaitMainWindow(), u"VideoBC"_s);
        auto* calculator = Await(u"BitrateCalc"_s);
        auto* minutes = calculator->findChild<QLineEdit*>(u"MLength"_s);
        Press(calculator->findChild<SpinButton*>(u"MLengthP"_s));
        EXPECT_TRUE(QTest::qWaitFor([&] { return minutes->text().toDouble() > 102; }, Patience));
        program->End();
      }),
      0);
  ExpectNothingVisible();
  EXPECT_EQ(File(), FileWith(10, "101"));
}

TEST_F(ProgramTest, AnEndWhileABoxStandsTakesItAway) {
  folder.Put("Brindle2.ini", FileWith(12, "0"));
  bool handlerWentOn = false;
  EXPECT_EQ(Run([&] {
              auto* main = AwaitMainWindow();
              PutFolderInTheWay();
              WhenABoxStands([&](QMessageBox*) { program->End(); });
              ClickIn(main, u"SaveSettings"_s);
              handlerWentOn = true;
            }),
            0);
  EXPECT_EQ(boxesSeen, 1);
  EXPECT_TRUE(handlerWentOn);
  ExpectNothingVisible();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ProgramTest, AnEndWhileABoxStandsStillSaves) {
  EXPECT_EQ(Run([&] {
              auto* main = AwaitMainWindow();
              PutFolderInTheWay();
              WhenABoxStands([&](QMessageBox*) {
                QDir(folder.PathOf("Brindle2.ini")).removeRecursively();
                program->End();
              });
              ClickIn(main, u"SaveSettings"_s);
            }),
            0);
  EXPECT_EQ(boxesSeen, 1);
  ExpectNothingVisible();
  EXPECT_EQ(File(), FirstFile());
}

TEST_F(ProgramTest, AnEndWhileTheMainWindowsFirstBoxStandsShowsNoMainWindow) {
  PutFolderInTheWay();
  EXPECT_EQ(Run([&] {
              Await(u"Splash"_s);
              WhenABoxStands([&](QMessageBox*) { program->End(); });
              Key(Qt::Key_Space);
            }),
            0);
  EXPECT_EQ(boxesSeen, 1);
  ExpectNothingVisible();
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"Brindle2.ini"});
}

TEST_F(ProgramTest, AFileThatCannotBeReadIsToldBeforeTheMainWindowStands) {
  PutFolderInTheWay();
  EXPECT_EQ(Run([&] {
              Await(u"Splash"_s);
              WhenABoxStands([&](QMessageBox* box) {
                EXPECT_TRUE(box->text().startsWith(
                    u"Cannot read "_s + QDir::toNativeSeparators(folder.PathOf("Brindle2.ini"))))
                    << box->text().toStdString();
                EXPECT_TRUE(Standing(u"Splash"_s).empty());
                EXPECT_TRUE(Standing(u"MainProg"_s).empty());
                Key(Qt::Key_Return);
              });
              Key(Qt::Key_Space);
              Await(u"MainProg"_s);
              program->End();
            }),
            0);
  EXPECT_EQ(boxesSeen, 1);
}

TEST_F(ProgramTest, AFileThatCannotBeWrittenAtTheEndIsToldAndTheProgramEnds) {
  EXPECT_EQ(Run([&] {
              AwaitMainWindow();
              PutFolderInTheWay();
              WhenABoxStands([](QMessageBox*) { Key(Qt::Key_Return); });
              program->End();
            }),
            0);
  EXPECT_EQ(boxesSeen, 1);
  ExpectNothingVisible();
}

TEST_F(ProgramTest, AtTheEndOfTheSessionNothingIsTold) {
  EXPECT_EQ(Run([&] {
              AwaitMainWindow();
              PutFolderInTheWay();
              program->EndWithSession();
              EXPECT_TRUE(Standing(u"MessageBox"_s).empty());
            }),
            0);
  ExpectNothingVisible();
}

TEST_F(ProgramTest, TheEndOfTheSessionSaves) {
  EXPECT_EQ(Run([&] {
              ClickIn(AwaitMainWindow(), u"VideoBC"_s);
              TabTo(Await(u"BitrateCalc"_s)->findChild<QWidget*>(u"MLength"_s));
              TypeOver(u"125.5"_s);
              program->EndWithSession();
            }),
            0);
  ExpectNothingVisible();
  EXPECT_EQ(File(), FileWith(10, "125.5"));
}

}  // namespace
}  // namespace brindle
