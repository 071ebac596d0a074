// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <fstream>
#include <string>
#include <vector>
#include <windows.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QString>
#include <QTest>
#include <QVariant>
#include <gtest/gtest.h>

#include "shell/desktop_commands.h"
#include "shell/system_desktop.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/shell/in_wine.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fakes.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr int Patience = 30000;  // milliseconds

// A desktop whose calculator and help viewer are stand-ins in the place of the system's own
// programs: only in Wine, where nobody else uses that place.
class SystemDesktopTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!RunsInWine()) {
      GTEST_SKIP() << "NOT RUN: programs of a real system would have to be replaced";
    }
    qputenv("BRINDLE_TEST_NOTES", QDir::toNativeSeparators(notes.PathOf("all")).toLocal8Bit());
  }
  void TearDown() override {
    for (const auto& path : installed_) {
      EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::remove(path); }, Patience));
    }
    qunsetenv("BRINDLE_TEST_NOTES");
    qunsetenv("BRINDLE_TEST_EXIT");
    clock.Advance(0);
    EXPECT_TRUE(boxes.AllAsked()) << "a box was expected";
  }

  void Install(const QString& name) {
    std::array<wchar_t, MAX_PATH> folder{};
    GetSystemDirectoryW(folder.data(), MAX_PATH);
    const auto path = QString::fromWCharArray(folder.data()) + u'\\' + name + u".exe"_s;
    ASSERT_FALSE(QFile::exists(path)) << path.toStdString();
    ASSERT_TRUE(QFile::copy(QString::fromUtf8(DESKTOP_STAND_IN), path));
    installed_.push_back(path);
  }

  [[nodiscard]] std::string AwaitNotes() const {
    EXPECT_TRUE(QTest::qWaitFor(
        [this] {
          return QFile::exists(notes.PathOf("all")) &&
                 QString::fromStdString(notes.Bytes("all")).endsWith(u'\n');
        },
        Patience));
    return QString::fromStdString(notes.Bytes("all")).trimmed().toStdString();
  }
  [[nodiscard]] std::string Folder() const {
    return QDir::toNativeSeparators(program.Path()).toStdString();
  }

  // Expects one box with this text, opened from the event loop.
  void ExpectBox(const std::string& start) {
    boxes.Answer(BoxAnswer::Ok);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] {
          clock.Advance(0);
          return !boxes.asked.empty();
        },
        Patience));
    ASSERT_EQ(boxes.asked.size(), 1U);
    const auto text = boxes.asked.front().text;
    EXPECT_TRUE(text.starts_with(start) && text.size() > start.size()) << text;
    EXPECT_EQ(boxes.asked.front().buttons, BoxButtons::Ok);
  }

  TemporaryFolder program;
  TemporaryFolder notes;
  FakeBoxes boxes;
  FakeClock clock;
  SystemDesktop desktop{boxes, clock, program.Path()};

 private:
  std::vector<QString> installed_;
};

TEST_F(SystemDesktopTest, CalculatorStartsMinimizedInTheProgramsFolder) {
  Install(u"calc"_s);
  desktop.StartCalculator(nullptr);
  EXPECT_EQ(AwaitNotes(), "calc|" + Folder() + "|2|");
}

TEST_F(SystemDesktopTest, MissingCalculatorIsTold) {
  desktop.StartCalculator(nullptr);
  ExpectBox("Cannot start calc: ");
}

TEST_F(SystemDesktopTest, HelpIsFoundThroughTheProgramsFolder) {
  Install(u"hh"_s);
  program.Put("Brindle2.chm", "help");
  desktop.OpenHelp(nullptr, FirstHelpPage.toString());
  EXPECT_EQ(AwaitNotes(), "hh|" + Folder() + "|1|Brindle2.chm|");
}

TEST_F(SystemDesktopTest, HelpOfAWindowIsItsPage) {
  Install(u"hh"_s);
  program.Put("Brindle2.chm", "help");
  desktop.OpenHelp(nullptr, u"BitrateCalc"_s);
  EXPECT_EQ(AwaitNotes(), "hh|" + Folder() + "|1|Brindle2.chm::/BitrateCalc.html|");
}

// The help in the forms that a package has it.
class HelpInTwoForms : public SystemDesktopTest {
 protected:
  void SetUp() override {
    SystemDesktopTest::SetUp();
    if (IsSkipped()) {
      return;
    }
    Install(u"hh"_s);
    PutHelpIn(program.Path());
    ASSERT_TRUE(QFile::copy(QString::fromUtf8(DESKTOP_STAND_IN), program.PathOf("browser.exe")));
    chosen_ = browsers_.value(u".html/."_s);
    browsers_.setValue(u".html/."_s, u"brindle-test"_s);
    browsers_.setValue(
        u"brindle-test/shell/open/command/."_s,
        u"\"%1\" \"%2\""_s.arg(QDir::toNativeSeparators(program.PathOf("browser.exe")), u"%1"_s));
    browsers_.sync();
  }
  void TearDown() override {
    if (chosen_.isValid()) {
      browsers_.setValue(u".html/."_s, chosen_);
      browsers_.remove(u"brindle-test"_s);
      browsers_.sync();
    }
    SystemDesktopTest::TearDown();
  }

  static void PutHelpIn(const QString& folder) {
    ASSERT_TRUE(QDir(folder).mkpath(u"help"_s));
    for (const auto& name : {u"Brindle2.chm"_s, u"help/index.html"_s, u"help/BitrateCalc.html"_s}) {
      QFile file(folder + u'/' + name);
      ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    }
  }
  // What the system writes beside a file that was downloaded or unpacked from a download.
  void Mark(const char* zone) const {
    std::ofstream mark(program.PathOf("Brindle2.chm:Zone.Identifier").toStdString());
    mark << "[ZoneTransfer]\r\nZoneId=" << zone
         << "\r\nHostUrl=https://example.org/brindle.zip\r\n";
    ASSERT_TRUE(mark.flush().good());
  }
  void ExpectViewer() {
    desktop.OpenHelp(nullptr, u"BitrateCalc"_s);
    EXPECT_EQ(AwaitNotes(), "hh|" + Folder() + "|1|Brindle2.chm::/BitrateCalc.html|");
  }
  void ExpectBrowser(const std::string& file) const {
    const auto asked = AwaitNotes();
    EXPECT_TRUE(asked.starts_with("browser|") && asked.ends_with("|" + file + "|")) << asked;
  }

 private:
  QSettings browsers_{uR"(HKEY_CLASSES_ROOT)"_s, QSettings::NativeFormat};
  QVariant chosen_;
};

TEST_F(HelpInTwoForms, OpensInTheViewer) { ExpectViewer(); }

TEST_F(HelpInTwoForms, FromTheInternetOpensInTheBrowser) {
  Mark("3");
  desktop.OpenHelp(nullptr, u"BitrateCalc"_s);
  ExpectBrowser(Folder() + R"(\help\BitrateCalc.html)");
}

TEST_F(HelpInTwoForms, FromASiteThatNobodyTrustsOpensInTheBrowser) {
  Mark("4");
  desktop.OpenHelp(nullptr, FirstHelpPage.toString());
  ExpectBrowser(Folder() + R"(\help\index.html)");
}

TEST_F(HelpInTwoForms, FromTheOwnNetworkOpensInTheViewer) {
  Mark("1");
  ExpectViewer();
}

TEST_F(HelpInTwoForms, WithAMarkOfNoZoneOpensInTheViewer) {
  Mark("");
  ExpectViewer();
}

TEST_F(HelpInTwoForms, BelowANumberSignOpensInTheBrowser) {
  const auto folder = program.PathOf("C# programs");
  PutHelpIn(folder);
  SystemDesktop(boxes, clock, folder).OpenHelp(nullptr, u"BitrateCalc"_s);
  ExpectBrowser(Folder() + "\\C# programs\\help\\BitrateCalc.html");
}

TEST_F(HelpInTwoForms, WithoutTheFileOpensInTheBrowser) {
  ASSERT_TRUE(QFile::remove(program.PathOf("Brindle2.chm")));
  desktop.OpenHelp(nullptr, u"BitrateCalc"_s);
  ExpectBrowser(Folder() + R"(\help\BitrateCalc.html)");
}

TEST_F(HelpInTwoForms, WithoutThePageOpensInTheViewerAllTheSame) {
  Mark("3");
  ASSERT_TRUE(QFile::remove(program.PathOf("help/BitrateCalc.html")));
  ExpectViewer();
}

TEST_F(SystemDesktopTest, MissingHelpIsTold) {
  desktop.OpenHelp(nullptr, u"BitrateCalc"_s);
  ExpectBox("Cannot start " + Folder() + "\\Brindle2.chm: ");
}

TEST_F(SystemDesktopTest, CodeThatAProgramEndsWithTellsNothing) {
  Install(u"calc"_s);
  qputenv("BRINDLE_TEST_EXIT", "1");
  desktop.StartCalculator(nullptr);
  EXPECT_EQ(AwaitNotes(), "calc|" + Folder() + "|2|");
  QTest::qWait(500);
  clock.Advance(0);
  EXPECT_TRUE(boxes.asked.empty());
}

TEST_F(SystemDesktopTest, AddressThatNothingOpensIsTold) {
  desktop.OpenAddress(nullptr, u"brindle-no-such-scheme:x"_s);
  ExpectBox("Cannot start brindle-no-such-scheme:x: ");
}

}  // namespace
}  // namespace brindle
