// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QCoreApplication>
#include <QLineEdit>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "tests/shell/main_window.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class DefaultWTest : public MainWindow {
 protected:
  // Opens the window of the "Load Defaults" button after some values have been changed.
  void Ask() {
    Start();
    record.MovieLength = 125.5;
    record.CDCount = 3;
    record.ExtraMaterial = 25;
    record.HDVideoMode = 1;
    record.WavSourceFile = u"/home/ann/Concert.wav"_s;
    ToggleSaveOnExit();
    ASSERT_FALSE(SaveOnExit()->isChecked());
    ClickOn(u"Defaults"_s);
    ASSERT_EQ(Standing(u"DefaultW"_s).size(), 1U);
    window = Standing(u"DefaultW"_s).front();
    WaitForActive(window);
  }

  void ExpectDefaultsLoaded() const {
    EXPECT_EQ(record.MovieLength, 100);
    EXPECT_EQ(record.CDCount, 1);
    EXPECT_EQ(record.WavSourceFile, QString());
    EXPECT_EQ(record.WavTargetFile, u"C:\\Out.wav"_s);
    EXPECT_TRUE(SaveOnExit()->isChecked());
  }

  void ExpectNothingChanged() const {
    EXPECT_EQ(record.MovieLength, 125.5);
    EXPECT_EQ(record.CDCount, 3);
    EXPECT_EQ(record.WavSourceFile, u"/home/ann/Concert.wav"_s);
    EXPECT_FALSE(SaveOnExit()->isChecked());
    EXPECT_EQ(File(), FirstFile());
  }

  QPointer<QWidget> window;
};

TEST_F(DefaultWTest, BeepsOnceWhenItLoads) {
  Start();
  EXPECT_EQ(desktop.beeps, 0);
  ClickOn(u"Defaults"_s);
  EXPECT_EQ(desktop.beeps, 1);
  ClickOn(u"Defaults"_s);
  EXPECT_EQ(desktop.beeps, 1) << "it was there already";
  Standing(u"DefaultW"_s).front()->close();
  ClickOn(u"Defaults"_s);
  EXPECT_EQ(desktop.beeps, 2);
}

TEST_F(DefaultWTest, OnlyShownItChangesNothing) {
  Ask();
  ExpectNothingChanged();
}

TEST_F(DefaultWTest, ConfirmedItLoadsTheDefaultsAndCloses) {
  Ask();
  Click(Find(window, u"Command1"_s));
  EXPECT_TRUE(Standing(u"DefaultW"_s).empty());
  ExpectDefaultsLoaded();
  EXPECT_EQ(desktop.beeps, 1);
}

TEST_F(DefaultWTest, ConfirmedByKeyboardItLoadsTheDefaultsAndCloses) {
  Ask();
  TabTo(Find(window, u"Command1"_s));
  Key(Qt::Key_Space);
  EXPECT_TRUE(Standing(u"DefaultW"_s).empty());
  ExpectDefaultsLoaded();
}

TEST_F(DefaultWTest, TwoFieldsKeepTheirValuesInTheRecordAndTheNewFile) {
  Ask();
  Click(Find(window, u"Command1"_s));
  EXPECT_EQ(record.ExtraMaterial, 25);
  EXPECT_EQ(record.HDVideoMode, 1);
  auto expected = BuiltInTexts();
  expected.at(15) = "25";
  expected.at(16) = "1";
  EXPECT_EQ(File(), Joined(expected, "\r\n"));
}

TEST_F(DefaultWTest, ConfirmedItKeepsNoOldFile) {
  Ask();
  Click(Find(window, u"Command1"_s));
  EXPECT_EQ(Names(), std::vector<std::string>{"Brindle2.ini"});
}

TEST_F(DefaultWTest, TheSecondButtonOnlyCloses) {
  Ask();
  Click(Find(window, u"Command2"_s));
  EXPECT_TRUE(Standing(u"DefaultW"_s).empty());
  ExpectNothingChanged();
}

TEST_F(DefaultWTest, EscapeOnlyCloses) {
  Ask();
  Key(Qt::Key_Escape);
  EXPECT_TRUE(Standing(u"DefaultW"_s).empty());
  ExpectNothingChanged();
}

TEST_F(DefaultWTest, ClosedByTheDesktopItChangesNothing) {
  Ask();
  window->close();
  ExpectNothingChanged();
}

TEST_F(DefaultWTest, OpenWindowsKeepTheirValuesUntilTheyAreOpenedAgain) {
  Start();
  record.MovieLength = 90.5;
  auto* calculator = Open(WindowId::BitrateCalc);
  const auto minutes = [&] { return Find<QLineEdit>(calculator, u"MLength"_s)->text(); };
  auto* question = Open(WindowId::DefaultW);
  Click(Find(question, u"Command1"_s));
  EXPECT_EQ(minutes(), u"90.5"_s);
  calculator->activateWindow();
  WaitForActive(calculator);
  EXPECT_EQ(minutes(), u"90.5"_s);
  EXPECT_EQ(record.MovieLength, 100) << "a window that only stood there wrote into the record";

  calculator->close();
  EXPECT_EQ(record.MovieLength, 100);
  calculator = Open(WindowId::BitrateCalc);
  EXPECT_EQ(minutes(), u"100"_s);
}

TEST_F(DefaultWTest, AFileThatCannotBeWrittenIsToldOnceAndTheWindowCloses) {
  Ask();
  PutFolderInTheWay();
  boxes.Answer(BoxAnswer::Ok,
               [] { EXPECT_EQ(Standing(u"DefaultW"_s).size(), 1U) << "closed under the message"; });
  Click(Find(window, u"Command1"_s));
  ExpectOneBox(Cannot("write"));
  EXPECT_TRUE(Standing(u"DefaultW"_s).empty());
  EXPECT_TRUE(main->isVisible());
  ExpectDefaultsLoaded();
}

}  // namespace
}  // namespace brindle
