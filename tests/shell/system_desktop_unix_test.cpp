// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <csignal>
#include <memory>
#include <ostream>
#include <string>
#include <sys/wait.h>
#include <vector>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

#include "shell/desktop_commands.h"
#include "shell/system_desktop.h"
#include "shell/system_registry.h"
#include "tests/base/settings/environment.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fakes.h"
#include "tests/support/unprivileged.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr int Patience = 30000;  // milliseconds

// A desktop whose programs are stand-ins: each notes its name, its folder and its arguments, and
// exits as the test has set.
class SystemDesktopTest : public ::testing::Test {
 protected:
  SystemDesktopTest() {
    path.Set(commands.Path());
    currentDesktop.Set({});
    EXPECT_TRUE(QDir(program.Path()).mkpath(u"help"_s));
  }

  void TearDown() override {
    AwaitEnds();
    clock.Advance(0);
    EXPECT_TRUE(boxes.AllAsked()) << "a box was expected";
  }

  // Waits until every stand-in has ended and the program knows it.
  static void AwaitEnds() {
    const auto noneIsLeft = [] {
      siginfo_t info{};
      return waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) != 0 && errno == ECHILD;
    };
    EXPECT_TRUE(QTest::qWaitFor(noneIsLeft, Patience));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  // `last` is what the stand-in does after its note. It writes the note in one piece, because two
  // stand-ins may write at once.
  void Install(const char* name, const std::string& last = "exit 0") const {
    Put(name, "#!/bin/sh\nnote=$(printf '%s|' '" + std::string(name) +
                  "' \"$PWD\" \"$@\")\nprintf '%s\\n' \"$note\" >>'" +
                  notes.PathOf("all").toStdString() + "'\n" + last + "\n");
  }

  void Put(const char* name, const std::string& content) const {
    commands.Put(name, content);
    EXPECT_TRUE(QFile::setPermissions(commands.PathOf(name),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
  }

  // The notes of the stand-ins, once there are `count` of them.
  std::vector<std::string> Notes(int count) const {
    const auto lines = [this] {
      return QString::fromStdString(notes.Bytes("all")).split(u'\n', Qt::SkipEmptyParts);
    };
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return QFile::exists(notes.PathOf("all")) && lines().size() >= count; }, Patience));
    std::vector<std::string> texts;
    for (const auto& line : lines()) {
      texts.push_back(line.toStdString());
    }
    return texts;
  }

  // "NAME|the program's folder|ARGUMENT|".
  [[nodiscard]] std::string Note(const std::string& name,
                                 const std::vector<std::string>& arguments) const {
    std::string note = name + "|" + program.Path().toStdString() + "|";
    for (const auto& argument : arguments) {
      note += argument + "|";
    }
    return note;
  }

  // Expects one box, and no second one, with this text, opened from the event loop.
  void ExpectBox(const std::string& text) {
    boxes.Answer(BoxAnswer::Ok);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] {
          clock.Advance(0);
          return !boxes.asked.empty();
        },
        Patience));
    ASSERT_EQ(boxes.asked.size(), 1U);
    EXPECT_EQ(boxes.asked.front().text, text);
    EXPECT_EQ(boxes.asked.front().buttons, BoxButtons::Ok);
  }

  TemporaryFolder commands;
  TemporaryFolder program;
  TemporaryFolder notes;
  Environment path{"PATH"};
  Environment currentDesktop{"XDG_CURRENT_DESKTOP"};
  FakeBoxes boxes;
  FakeClock clock;
  std::unique_ptr<SystemDesktop> desktop =
      std::make_unique<SystemDesktop>(boxes, clock, program.Path());
};

constexpr auto Site = "https://example.org/brindle";
constexpr auto NoOpener = ": none of these is installed: xdg-open, gio, x-www-browser";

TEST_F(SystemDesktopTest, AnAddressGoesToTheDesktopsOpenerInTheProgramsFolder) {
  Install("xdg-open");
  Install("gio");
  Install("x-www-browser");
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  EXPECT_EQ(Notes(1), std::vector{Note("xdg-open", {Site})});
}

TEST_F(SystemDesktopTest, EveryCallAsksOnceMore) {
  Install("xdg-open");
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  Notes(1);
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  EXPECT_EQ(Notes(2), std::vector(2, Note("xdg-open", {Site})));
}

TEST_F(SystemDesktopTest, ALetterGoesToTheSameOpener) {
  Install("xdg-open");
  desktop->OpenAddress(nullptr, u"mailto:velbrin@example.org"_s);
  EXPECT_EQ(Notes(1), std::vector{Note("xdg-open", {"mailto:velbrin@example.org"})});
}

TEST_F(SystemDesktopTest, AnAddressIsOneArgumentThatNoShellReads) {
  Install("xdg-open");
  desktop->OpenAddress(nullptr, u"https://example.org/a b;$(touch x)'\"`é`"_s);
  EXPECT_EQ(Notes(1), std::vector{Note("xdg-open", {"https://example.org/a%20b;$(touch%20x)'%22%60"
                                                    "%C3%A9%60"})});
}

TEST_F(SystemDesktopTest, WithoutTheFirstOpenerTheNextIsAsked) {
  Install("gio");
  Install("x-www-browser");
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  EXPECT_EQ(Notes(1), std::vector{Note("gio", {"open", Site})});
}

TEST_F(SystemDesktopTest, ABrowserAloneIsAskedItself) {
  Install("x-www-browser");
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  EXPECT_EQ(Notes(1), std::vector{Note("x-www-browser", {Site})});
}

TEST_F(SystemDesktopTest, WithoutAnyOpenerTheAddressIsTold) {
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  ExpectBox(std::string("Cannot start ") + Site + NoOpener);
}

TEST_F(SystemDesktopTest, WhatCannotBeStartedIsToldAfterTheCallOnly) {
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  EXPECT_TRUE(boxes.asked.empty());
  ExpectBox(std::string("Cannot start ") + Site + NoOpener);
}

TEST_F(SystemDesktopTest, TheBoxBelongsToTheWindowThatAskedAsLongAsItStands) {
  auto asker = std::make_unique<QWidget>();
  asker->show();
  desktop->OpenAddress(asker.get(), QString::fromLatin1(Site));
  boxes.Answer(BoxAnswer::Ok);
  boxes.Answer(BoxAnswer::Ok);
  boxes.Answer(BoxAnswer::Ok);
  clock.Advance(0);
  ASSERT_EQ(boxes.asked.size(), 1U);
  EXPECT_EQ(boxes.asked.front().owner, asker.get());
  desktop->OpenAddress(asker.get(), QString::fromLatin1(Site));
  asker->hide();
  clock.Advance(0);
  EXPECT_NE(boxes.asked.back().owner, asker.get());
  desktop->OpenAddress(asker.get(), QString::fromLatin1(Site));
  asker.reset();
  clock.Advance(0);
  EXPECT_EQ(boxes.asked.back().owner, nullptr);
}

TEST_F(SystemDesktopTest, NothingIsToldOnceTheProgramIsGone) {
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  desktop.reset();
  clock.Advance(1);
  EXPECT_TRUE(boxes.asked.empty());
}

TEST_F(SystemDesktopTest, AnOpenerThatFindsNoProgramIsToldSo) {
  Install("xdg-open", "exit 3");
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  ExpectBox(std::string("Cannot start ") + Site + ": no program for it is installed");
}

TEST_F(SystemDesktopTest, AnOpenerThatFailsIsNamedWithItsCode) {
  Install("xdg-open", "exit 4");
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  ExpectBox(std::string("Cannot start ") + Site + ": " + commands.PathOf("xdg-open").toStdString() +
            " ended with code 4");
}

TEST_F(SystemDesktopTest, AnOpenerThatCrashesIsNamed) {
  Install("xdg-open", "kill -KILL $$");
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  ExpectBox(std::string("Cannot start ") + Site + ": " + commands.PathOf("xdg-open").toStdString() +
            " crashed");
}

TEST_F(SystemDesktopTest, WhoFailsMuchLaterWasStartedWell) {
  const auto go = notes.PathOf("go").toStdString();
  const auto gone = notes.PathOf("gone").toStdString();
  Install("xdg-open",
          "while [ ! -e '" + go + "' ]; do /bin/sleep 0.02; done\n: >'" + gone + "'\nexit 4");
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  Notes(1);
  clock.Advance(11);
  notes.Put("go", "");
  AwaitEnds();
  EXPECT_TRUE(QFile::exists(notes.PathOf("gone")));
  clock.Advance(0);
  EXPECT_TRUE(boxes.asked.empty());
}

TEST_F(SystemDesktopTest, WhatWasStartedLivesOnWhenTheProgramEnds) {
  const auto go = notes.PathOf("go").toStdString();
  Install("xdg-open", "while [ ! -e '" + go + "' ]; do /bin/sleep 0.02; done\n: >'" +
                          notes.PathOf("gone").toStdString() + "'\nexit 4");
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  Notes(1);
  desktop.reset();
  notes.Put("go", "");
  AwaitEnds();
  EXPECT_TRUE(QFile::exists(notes.PathOf("gone")));
}

// In a session of its own, no signal of this program's terminal reaches it; and the signals that
// this program ignores are not ignored there.
TEST_F(SystemDesktopTest, WhatIsStartedHasItsOwnSessionAndItsOwnSignals) {
  constexpr unsigned long ofTooLargeFiles = 1UL << (SIGXFSZ - 1);
  const auto state = notes.PathOf("state").toStdString();
  Install("xdg-open",
          "read -r _ _ _ _ _ session _ </proc/$$/stat\n"
          "while read -r name value; do [ $name != SigIgn: ] || ignored=$value; done "
          "</proc/$$/status\n"
          "echo $$ $session $ignored >'" +
              state + "'");
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  AwaitEnds();
  std::signal(SIGXFSZ, before);
  const auto words = QString::fromStdString(notes.Bytes("state")).simplified().split(u' ');
  ASSERT_EQ(words.size(), 3) << notes.Bytes("state");
  EXPECT_EQ(words[0], words[1]) << "the session is another's";
  EXPECT_EQ(words[2].toULong(nullptr, 16) & ofTooLargeFiles, 0U);
}

TEST_F(SystemDesktopTest, WithoutTheProgramsFolderAddressesAreOpenedAllTheSame) {
  Install("xdg-open");
  SystemDesktop other(boxes, clock, program.PathOf("gone"));
  other.OpenAddress(nullptr, QString::fromLatin1(Site));
  EXPECT_EQ(Notes(1),
            std::vector{"xdg-open|" + QDir::currentPath().toStdString() + "|" + Site + "|"});
}

TEST_F(SystemDesktopTest, AFileThatIsNoProgramIsToldWithTheSystemsReason) {
  Put("xdg-open", "#!/no/such/interpreter\n");
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  ExpectBox(std::string("Cannot start ") + Site + ": " + "No such file or directory");
}

TEST_F(SystemDesktopTest, AFileThatMayNotBeExecutedCountsAsNone) {
  commands.Put("xdg-open", "#!/bin/sh\n");
  desktop->OpenAddress(nullptr, QString::fromLatin1(Site));
  ExpectBox(std::string("Cannot start ") + Site + NoOpener);
}

TEST_F(SystemDesktopTest, AHelpPageIsOpenedFromBesideTheProgram) {
  Install("xdg-open");
  program.Put("help/WavNorm.html", "<html/>");
  desktop->OpenHelp(nullptr, u"WavNorm"_s);
  EXPECT_EQ(Notes(1), std::vector{Note("xdg-open", {"file://" + program.Path().toStdString() +
                                                    "/help/WavNorm.html"})});
}

TEST_F(SystemDesktopTest, AnInstalledProgramsPageIsFoundWhereThePackagePutsIt) {
  ASSERT_TRUE(QDir(program.Path()).mkpath(u"bin"_s));
  ASSERT_TRUE(QDir(program.Path()).mkpath(u"share/brindle2/help"_s));
  program.Put("share/brindle2/help/WavNorm.html", "<html/>");
  const auto bin = program.PathOf("bin");
  const auto installed = HelpCommand(bin, u"WavNorm"_s);
  EXPECT_EQ(installed.name, program.PathOf("share/brindle2/help/WavNorm.html"));
  ASSERT_TRUE(QDir(bin).mkpath(u"help"_s));
  program.Put("bin/help/WavNorm.html", "<html/>");
  EXPECT_EQ(HelpCommand(bin, u"WavNorm"_s).name, program.PathOf("bin/help/WavNorm.html"))
      << "what lies beside the program comes first";
  EXPECT_EQ(HelpCommand(bin, u"QuickC"_s).name, program.PathOf("bin/help/QuickC.html"));
}

TEST_F(SystemDesktopTest, AFolderWithBlanksAndLettersOfAnyScriptIsFound) {
  Install("xdg-open");
  ASSERT_TRUE(QDir(program.Path()).mkpath(u"Über %20 音/help"_s));
  program.Put("Über %20 音/help/index.html", "<html/>");
  SystemDesktop other(boxes, clock, program.PathOf("Über %20 音"));
  other.OpenHelp(nullptr, FirstHelpPage.toString());
  const auto url =
      "file://" + program.Path().toStdString() + "/%C3%9Cber%20%2520%20%E9%9F%B3/help/index.html|";
  EXPECT_TRUE(Notes(1).front().ends_with(url)) << Notes(1).front();
}

TEST_F(SystemDesktopTest, AHelpPageThatIsNotThereIsNamed) {
  Install("xdg-open");
  desktop->OpenHelp(nullptr, u"WavNorm"_s);
  ExpectBox("Cannot start " + program.PathOf("help/WavNorm.html").toStdString() +
            ": No such file or directory");
  EXPECT_FALSE(QFile::exists(notes.PathOf("all")));
}

TEST_F(SystemDesktopTest, AHelpPageThatMayNotBeReadIsNamedWithTheReason) {
  program.Put("WavNorm.html", "<html/>");
  ExpectNoFindingsAsNobody(program, [this](Findings& found) {
    QDir(program.Path()).mkpath(u"own/help"_s);
    const auto page = program.PathOf("own/help/WavNorm.html");
    QFile::copy(program.PathOf("WavNorm.html"), page);
    QFile::setPermissions(page, {});
    const auto command = HelpCommand(program.PathOf("own"), u"WavNorm"_s);
    found.ExpectEqual(command.name.toStdString(), page.toStdString(), "the name");
    found.ExpectEqual(command.reason.toStdString(), "Permission denied", "the reason");
  });
}

TEST_F(SystemDesktopTest, APageIsOpenedAtEveryCall) {
  Install("xdg-open");
  program.Put("help/index.html", "<html/>");
  program.Put("help/WavNorm.html", "<html/>");
  for (const auto& page : {FirstHelpPage.toString(), u"WavNorm"_s}) {
    desktop->OpenHelp(nullptr, page);
    desktop->OpenHelp(nullptr, page);
  }
  EXPECT_EQ(Notes(4).size(), 4U);
}

TEST_F(SystemDesktopTest, WithoutAnyOpenerTheHelpPageIsNamed) {
  program.Put("help/index.html", "<html/>");
  desktop->OpenHelp(nullptr, FirstHelpPage.toString());
  ExpectBox("Cannot start " + program.PathOf("help/index.html").toStdString() + NoOpener);
}

TEST_F(SystemDesktopTest, TheCalculatorRunsInTheProgramsFolder) {
  Install("xcalc");
  desktop->StartCalculator(nullptr);
  EXPECT_EQ(Notes(1), std::vector{Note("xcalc", {})});
}

TEST_F(SystemDesktopTest, WithoutAnyCalculatorTheyAreNamed) {
  desktop->StartCalculator(nullptr);
  ExpectBox(
      "Cannot start a calculator: none of these is installed: gnome-calculator, kcalc, mate-calc, "
      "galculator, qalculate-qt, qalculate-gtk, speedcrunch, deepin-calculator, xcalc");
}

TEST_F(SystemDesktopTest, OnlyTheOpenersCodeMeansThatNoProgramIsInstalled) {
  Install("xcalc", "exit 3");
  desktop->StartCalculator(nullptr);
  ExpectBox("Cannot start xcalc: " + commands.PathOf("xcalc").toStdString() + " ended with code 3");
}

TEST_F(SystemDesktopTest, ACalculatorThatCannotShowItselfIsNamed) {
  Install("xcalc", "exit 1");
  desktop->StartCalculator(nullptr);
  ExpectBox("Cannot start xcalc: " + commands.PathOf("xcalc").toStdString() + " ended with code 1");
}

struct CalculatorCase {
  const char* name = "";
  std::vector<const char*> installed;
  const char* desktops = "";
  const char* started = "";
};

void PrintTo(const CalculatorCase& row, std::ostream* out) { *out << row.name; }

class ChosenCalculator : public SystemDesktopTest,
                         public ::testing::WithParamInterface<CalculatorCase> {};

TEST_P(ChosenCalculator, IsTheFirstThatSuits) {
  for (const auto* name : GetParam().installed) {
    Install(name);
  }
  currentDesktop.Set(QString::fromLatin1(GetParam().desktops));
  desktop->StartCalculator(nullptr);
  EXPECT_EQ(Notes(1), std::vector{Note(GetParam().started, {})});
}

INSTANTIATE_TEST_SUITE_P(
    Each, ChosenCalculator,
    ::testing::Values(
        CalculatorCase{"InOrder", {"xcalc", "kcalc", "gnome-calculator"}, "", "gnome-calculator"},
        CalculatorCase{"OfTheDesktop", {"xcalc", "kcalc", "gnome-calculator"}, "KDE", "kcalc"},
        CalculatorCase{"OfOneOfItsNames",
                       {"kcalc", "gnome-calculator", "mate-calc"},
                       "Unknown:mate",
                       "mate-calc"},
        CalculatorCase{"OfAnotherWhereItsOwnIsMissing", {"kcalc"}, "GNOME", "kcalc"},
        CalculatorCase{"OfNoDesktopIsNotPreferred", {"xcalc", "kcalc"}, ":", "kcalc"}),
    [](const auto& instance) { return std::string(instance.param.name); });

// Where there is no registry, the remover finds nothing to remove.
TEST(SystemRegistryElsewhere, FindsNothing) {
  SystemRegistry registry;
  Registry::Key key = 99;
  EXPECT_NE(registry.OpenKey(RegistryRoot::LocalMachine, u"SOFTWARE"_s, key), 0);
  EXPECT_EQ(key, 0U);
  EXPECT_NE(registry.DeleteValue(key, u"Trickler"_s), 0);
  registry.CloseKey(key);
}

}  // namespace
}  // namespace brindle
