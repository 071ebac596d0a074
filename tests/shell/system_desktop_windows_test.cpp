// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <string>
#include <vector>
#include <windows.h>

#include <QDir>
#include <QFile>
#include <QString>
#include <QTest>
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
