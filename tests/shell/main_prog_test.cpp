// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/main_prog.h"

#include <ostream>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QCheckBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QString>
#include <gtest/gtest.h>

#include "base/input/spin_button.h"
#include "shell/window_catalogue.h"
#include "tests/shell/main_window.h"
#include "tests/support/sample_film.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

using NameList = std::vector<std::string>;

constexpr auto NameOf = [](const auto& instance) { return std::string(instance.param.name); };

// A control of the main window as the user finds it. A control without a caption has a picture.
struct ControlCase {
  const char* name = "";
  const char* frame = "";
  const char* caption = "";
  const char* tooltip = "";
  const char* description = "";
  bool enabled = false;
};

void PrintTo(const ControlCase& row, std::ostream* out) { *out << row.name; }

class MainWindowControl : public MainWindow, public ::testing::WithParamInterface<ControlCase> {};

TEST_P(MainWindowControl, StandsAsItShould) {
  const auto& row = GetParam();
  Start();
  auto* control = Find<QAbstractButton>(main.get(), QString::fromLatin1(row.name));
  ASSERT_NE(control, nullptr);
  const auto* frame = qobject_cast<QGroupBox*>(control->parentWidget());
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->title().toStdString(), row.frame);
  EXPECT_EQ(control->text().toStdString(), row.caption);
  EXPECT_EQ(control->icon().isNull(), *row.caption != '\0');
  EXPECT_EQ(control->toolTip().toStdString(), row.tooltip);
  EXPECT_EQ(control->isEnabled(), row.enabled);
  EXPECT_TRUE(control->isVisible());
}

TEST_P(MainWindowControl, HasItsDescriptionBesideIt) {
  const auto& row = GetParam();
  Start();
  const auto* control = Find(main.get(), QString::fromLatin1(row.name));
  std::string beside;
  for (const auto* label : control->parentWidget()->findChildren<QLabel*>()) {
    const auto middle = label->geometry().center().y();
    if (label->x() > control->geometry().right() && middle >= control->geometry().top() &&
        middle <= control->geometry().bottom()) {
      beside += label->text().toStdString();
    }
  }
  EXPECT_EQ(beside, row.description);
}

INSTANTIATE_TEST_SUITE_P(
    Each, MainWindowControl,
    ::testing::Values(
        ControlCase{"VideoBC", "Calculators", "", "",
                    "Calculate the DivX bitrate based on movie length and target size.", true},
        ControlCase{"AudioBC", "Calculators", "", "",
                    "Calculate the optimal MP3/WMA bitrate after encoding the video.", true},
        ControlCase{"HDC", "Calculators", "", "",
                    "Calculate the space for the AVI and WAV, AC3 or MP3 files.", true},
        ControlCase{"AVISplitC", "Calculators", "", "",
                    "Calculate which frames to delete for spliting the AVI to 2 or 3 parts.", true},
        ControlCase{"RAR", "Calculators", "", "",
                    "Calculate a suitable resolution for video based on the Aspect Ratio.", true},
        ControlCase{"QuickCon", "Calculators", "Quick Converter", "", "", true},
        ControlCase{"WinCalc", "Calculators", "Windows Calculator", "", "", true},
        ControlCase{"Normalize", "Tools", "", "Easily normalize any 16bit PCM WAV file", "", true},
        ControlCase{"Adremove", "Tools", "", "Disable DivX 5 pro GAIN spyware", "", true},
        ControlCase{"HelpWin", "Extra", "Help", "", "", true},
        ControlCase{"Update", "Extra", "Check for Updates",
                    "If you are connected to the internet you can check for updates", "", true},
        ControlCase{"SaveOnExit", "Extra", "Save On Exit", "Save settings upon exiting the program",
                    "", true},
        ControlCase{"Defaults", "Extra", "Load Defaults", "Load the default settings", "", true},
        ControlCase{"SaveSettings", "Extra", "Save Settings", "Save current settings", "", true},
        ControlCase{"About", "Extra", "About...", "Some basic info on the program and the author",
                    "", true},
        ControlCase{"Webs", "Extra", "Velbrin's Website", "Visit velbrin's website.", "", true}),
    NameOf);

TEST_F(MainWindow, HasItsCaption) {
  Start();
  EXPECT_EQ(main->windowTitle(), u"Velbrin's Brindle 2.91 DX"_s);
}

using Asked = std::vector<std::string>;

TEST_F(MainWindow, AsksTheDesktopForNothingByItself) {
  Start();
  EXPECT_EQ(desktop.calculators, 0);
  EXPECT_EQ(desktop.pages, Asked());
  EXPECT_EQ(desktop.addresses, Asked());
}

TEST_F(MainWindow, EveryClickStartsOneMoreCalculator) {
  Start();
  ClickOn(u"WinCalc"_s);
  EXPECT_EQ(desktop.calculators, 1);
  ClickOn(u"WinCalc"_s);
  EXPECT_EQ(desktop.calculators, 2);
  EXPECT_EQ(desktop.askers, std::vector<QWidget*>(2, main.get()));
}

TEST_F(MainWindow, TheHelpButtonOpensTheFirstPage) {
  Start();
  ClickOn(u"HelpWin"_s);
  EXPECT_EQ(desktop.pages, Asked{"index"});
}

TEST_F(MainWindow, F1OpensThePageOfTheMainWindow) {
  Start();
  Key(Qt::Key_F1);
  EXPECT_EQ(desktop.pages, Asked{"MainProg"});
  EXPECT_EQ(desktop.askers, std::vector<QWidget*>{main.get()});
}

TEST_F(MainWindow, EveryClickOpensTheWebSiteOnceMore) {
  product.website = u"https://example.org/other"_s;
  Start();
  ClickOn(u"Webs"_s);
  EXPECT_EQ(desktop.addresses, Asked{"https://example.org/other"});
  ClickOn(u"Webs"_s);
  EXPECT_EQ(desktop.addresses, Asked(2, "https://example.org/other"));
  EXPECT_EQ(desktop.askers, std::vector<QWidget*>(2, main.get()));
}

TEST_F(MainWindow, TheRemoverAsksAndOnNoLeavesTheRegistryAlone) {
  Start();
  boxes.Answer(BoxAnswer::No);
  ClickOn(u"Adremove"_s);
  ASSERT_EQ(boxes.asked.size(), 1U);
  EXPECT_EQ(boxes.asked.front().buttons, BoxButtons::YesNo);
  EXPECT_EQ(registry.done, Asked());
}

TEST_F(MainWindow, TheRemoverDeletesTheEntryOnYes) {
  registry.key = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run"_s;
  registry.values = {u"Trickler"_s};
  Start();
  boxes.Answer(BoxAnswer::Yes);
  boxes.Answer(BoxAnswer::Cancel);
  ClickOn(u"Adremove"_s);
  ASSERT_EQ(boxes.asked.size(), 2U);
  EXPECT_EQ(boxes.asked.back().text, "GAIN spyware was successfully disabled.");
  EXPECT_TRUE(registry.values.empty());
  for (const auto& asked : boxes.asked) {
    EXPECT_EQ(asked.owner, main.get());
  }
}

struct OpeningCase {
  const char* name = "";  // the button's
  WindowId opens = WindowId::BitrateCalc;
};

void PrintTo(const OpeningCase& row, std::ostream* out) { *out << row.name; }

class OpeningButton : public MainWindow, public ::testing::WithParamInterface<OpeningCase> {};

TEST_P(OpeningButton, OpensItsOwnWindowAndNoOther) {
  for (const auto& entry : AllWindows()) {
    const auto id = entry.id;
    const auto* name = id == GetParam().opens ? "Wanted" : "Unwanted";
    windows.Add(id, [name] {
      return std::make_unique<Form>(QString::fromLatin1(name), QString::fromLatin1(name));
    });
  }
  Start();
  ClickOn(QString::fromLatin1(GetParam().name));
  EXPECT_EQ(Standing(u"Wanted"_s).size(), 1U);
  EXPECT_EQ(Standing(u"Unwanted"_s).size(), 0U);
  ClickOn(QString::fromLatin1(GetParam().name));
  EXPECT_EQ(Standing(u"Wanted"_s).size(), 1U);
  EXPECT_TRUE(main->isVisible());
}

INSTANTIATE_TEST_SUITE_P(Each, OpeningButton,
                         ::testing::Values(OpeningCase{"VideoBC", WindowId::BitrateCalc},
                                           OpeningCase{"AudioBC", WindowId::AudioCalc},
                                           OpeningCase{"HDC", WindowId::HDCalc},
                                           OpeningCase{"AVISplitC", WindowId::AVISplit},
                                           OpeningCase{"RAR", WindowId::AspectRa},
                                           OpeningCase{"QuickCon", WindowId::QuickC},
                                           OpeningCase{"Normalize", WindowId::WavNorm},
                                           OpeningCase{"Update", WindowId::WebUpdate},
                                           OpeningCase{"Defaults", WindowId::DefaultW},
                                           OpeningCase{"About", WindowId::AboutWin}),
                         NameOf);

TEST_F(MainWindow, ACalculatorAskedForTwiceIsTheSameWindow) {
  Start();
  ClickOn(u"VideoBC"_s);
  const auto first = Standing(u"BitrateCalc"_s);
  ASSERT_EQ(first.size(), 1U);
  ClickOn(u"VideoBC"_s);
  EXPECT_EQ(Standing(u"BitrateCalc"_s), first);
}

TEST_F(MainWindow, EscapeDoesNotCloseIt) {
  Start();
  Key(Qt::Key_Escape);
  EXPECT_TRUE(main->isVisible());
}

TEST_F(MainWindow, TheFieldsOfTheRunAreSetWhenItLoads) {
  Load();
  EXPECT_EQ(record.SpinRepeatInterval, 0.05F);
  EXPECT_EQ(record.SpinFirstDelay, 0.5F);
  EXPECT_EQ(record.AppFolder, folder.path());
}

TEST_F(MainWindow, WithoutAProgramFolderTheSettingsGoToTheUsersFolder) {
  ASSERT_TRUE(folder.remove());
  Load();
  EXPECT_EQ(record.AppFolder, config.path());
  EXPECT_EQ(TemporaryFolder::BytesOf(config.filePath(u"Brindle2.ini"_s)), FirstFile());
}

TEST_F(MainWindow, TheFirstStartWritesTheDefaultFile) {
  Start();
  EXPECT_EQ(File(), FirstFile());
  EXPECT_EQ(Names(), NameList{"Brindle2.ini"});
  EXPECT_TRUE(SaveOnExit()->isChecked());
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(record.ExtraMaterial, 0);
  EXPECT_EQ(record.HDVideoMode, 0);
  EXPECT_EQ(record.WavTargetFile, u"C:\\Out.wav"_s);
}

TEST_F(MainWindow, AnEmptyFileIsAFirstStart) {
  Put("Brindle2.ini", "");
  Start();
  EXPECT_EQ(File(), FirstFile());
  EXPECT_EQ(Names(), NameList{"Brindle2.ini"});
  EXPECT_TRUE(SaveOnExit()->isChecked());
}

TEST_F(MainWindow, TemporaryFilesOfAKilledSaveAreGoneAfterTheNextStart) {
  Put("Brindle2.ini.tmp-61426344", "half a fi");
  Put("Brindle2.ini.bak.tmp-61426344", "");
  Put("Brindle2.ini.backup", "the user's own");
  Start();
  EXPECT_EQ(Names(), (NameList{"Brindle2.ini", "Brindle2.ini.backup"}));
  EXPECT_TRUE(boxes.asked.empty());
}

TEST_F(MainWindow, AFileOfAllLinesIsReadAndLeftAsItIs) {
  NameList texts;
  for (const auto& line : KnownLines()) {
    texts.emplace_back(line.otherText);
  }
  texts.at(11) = "1";  // ticked
  const auto bytes = Joined(texts, "\n");
  Put("Brindle2.ini", bytes);
  Start();
  const Stored stored{record, SaveOnExit()->isChecked()};
  for (std::size_t line = 0; line < KnownLines().size(); ++line) {
    const auto& known = KnownLines()[line];
    if (line != 11) {
      EXPECT_EQ(Shown(ValueIn(stored, known.field)), Shown(known.other)) << known.name;
    }
  }
  EXPECT_TRUE(SaveOnExit()->isChecked());
  EXPECT_EQ(File(), bytes);
  EXPECT_EQ(Names(), NameList{"Brindle2.ini"});
}

struct ContentCase {
  const char* name = "";
  std::string bytes;
};

void PrintTo(const ContentCase& row, std::ostream* out) { *out << row.name; }

class UnusableFile : public MainWindow, public ::testing::WithParamInterface<ContentCase> {
 protected:
  UnusableFile() { Put("Brindle2.ini", GetParam().bytes); }
};

TEST_P(UnusableFile, GivesWayToTheDefaultsAndIsKept) {
  Start();
  EXPECT_EQ(File(), FirstFile());
  EXPECT_EQ(Bytes("Brindle2.ini.bak"), GetParam().bytes);
  EXPECT_EQ(Names(), (NameList{"Brindle2.ini", "Brindle2.ini.bak"}));
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(record.ExtraMaterial, 0) << "taken from a file that cannot be used";
  EXPECT_TRUE(SaveOnExit()->isChecked());
}

TEST_P(UnusableFile, TakesThePlaceOfAnOlderOneThatWasKept) {
  Put("Brindle2.ini.bak", std::string(5000, 'x'));
  Start();
  EXPECT_EQ(Bytes("Brindle2.ini.bak"), GetParam().bytes);
}

TEST_P(UnusableFile, ThatCannotBeKeptStays) {
  ASSERT_TRUE(QDir(folder.path()).mkpath(u"Brindle2.ini.bak/inner"_s));
  boxes.Answer(BoxAnswer::Ok);
  Start();
  ExpectOneBox(Cannot("write", "Brindle2.ini.bak"));
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(File(), GetParam().bytes);
  main->close();
  EXPECT_EQ(File(), GetParam().bytes);
}

std::string LinesOf(std::size_t count) {
  auto texts = TextsWith(16, "25");
  texts.resize(count, "more");
  return Joined(texts, "\r\n");
}

INSTANTIATE_TEST_SUITE_P(
    Each, UnusableFile,
    ::testing::Values(ContentCase{"OfOneLine", LinesOf(1)},
                      ContentCase{"OfOneLineTooFew", LinesOf(41)},
                      ContentCase{"OfOneLineTooMany", LinesOf(43)},
                      ContentCase{"WithAWordForANumber", FileWith(10, "long")},
                      ContentCase{"WithACommaForAPeriod", FileWith(1, "0,5859375")},
                      ContentCase{"WithABareBoolean", FileWith(30, "TRUE")},
                      ContentCase{"WithAWordForTheCheckBox", FileWith(12, "yes")}),
    NameOf);

class FolderInTheWay : public MainWindow {
 protected:
  void SetUp() override {
    PutFolderInTheWay();
    boxes.Answer(BoxAnswer::Ok);
    Start();
  }
};

TEST_F(FolderInTheWay, IsToldInOneBoxAndTheDefaultsAreUsed) {
  ExpectOneBox(Cannot("read"));
  EXPECT_FALSE(SaveOnExit()->isChecked());
  EXPECT_EQ(record.MovieLength, 100);
  EXPECT_EQ(record.WavTargetFile, u"C:\\Out.wav"_s);
  EXPECT_EQ(record.AppFolder, folder.path());
  EXPECT_EQ(Names(), NameList{"Brindle2.ini"});
}

TEST_F(FolderInTheWay, IsNotWrittenWhenTheProgramEnds) {
  main->close();
  EXPECT_EQ(boxes.asked.size(), 1U);
  EXPECT_EQ(Names(), NameList{"Brindle2.ini"});
}

TEST_F(FolderInTheWay, FailsASaveThatTheUserAsksFor) {
  boxes.asked.clear();
  boxes.Answer(BoxAnswer::Ok);
  ClickOn(u"SaveSettings"_s);
  ExpectOneBox(Cannot("write"));
  EXPECT_TRUE(main->isVisible());
}

TEST_F(FolderInTheWay, OnceGoneDoesNotKeepTheUserFromSaving) {
  ASSERT_TRUE(QDir(PathOf("Brindle2.ini")).removeRecursively());
  ClickOn(u"SaveSettings"_s);
  EXPECT_EQ(File(), FileWith(12, "0"));
}

TEST_F(MainWindow, TheCheckBoxOfTheFileCanBeUnticked) {
  Put("Brindle2.ini", FileWith(12, "0"));
  Start();
  EXPECT_FALSE(SaveOnExit()->isChecked());
}

TEST_F(MainWindow, TheCheckBoxIsTickedForOneOnly) {
  Put("Brindle2.ini", FileWith(12, "2"));
  Start();
  EXPECT_FALSE(SaveOnExit()->isChecked());
}

TEST_F(MainWindow, ClosedUntickedItSavesNothing) {
  const auto bytes = FileWith(12, "0");
  Put("Brindle2.ini", bytes);
  Start();
  record.MovieLength = 125.5;
  main->close();
  EXPECT_FALSE(main->isVisible());
  EXPECT_EQ(File(), bytes);
}

TEST_F(MainWindow, ClosedUntickedItWritesNoMissingFile) {
  Start();
  ToggleSaveOnExit();
  ASSERT_TRUE(QFile::remove(PathOf("Brindle2.ini")));
  main->close();
  EXPECT_EQ(Names(), NameList{});
}

TEST_F(MainWindow, ClosedTickedItSaves) {
  Start();
  record.MovieLength = 125.5;
  main->close();
  EXPECT_FALSE(main->isVisible());
  EXPECT_EQ(File(), FileWith(10, "125.5"));
}

TEST_F(MainWindow, TickedByTheUserItSavesWhenClosed) {
  Put("Brindle2.ini", FileWith(12, "0"));
  Start();
  ToggleSaveOnExit();
  main->close();
  EXPECT_EQ(File(), FirstFile());
}

TEST_F(MainWindow, TickingAndUntickingWritesNothing) {
  Start();
  ASSERT_TRUE(QFile::remove(PathOf("Brindle2.ini")));
  ToggleSaveOnExit();
  ToggleSaveOnExit();
  EXPECT_EQ(Names(), NameList{});
}

TEST_F(MainWindow, TellsOnceThatItIsClosedAfterItHasSaved) {
  Start();
  record.MovieLength = 125.5;
  NameList seen;
  QObject::connect(main.get(), &MainProg::Closed, [&] { seen.push_back(File()); });
  main->close();
  main->close();
  EXPECT_EQ(seen, NameList{FileWith(10, "125.5")});
}

TEST_F(MainWindow, SavesWhenTheUserAsksForIt) {
  Start();
  record.MovieLength = 125.5;
  ClickOn(u"SaveSettings"_s);
  EXPECT_EQ(File(), FileWith(10, "125.5"));
  EXPECT_EQ(Names(), NameList{"Brindle2.ini"});
}

TEST_F(MainWindow, SavesTheCheckBoxAsItStands) {
  Start();
  ToggleSaveOnExit();
  ClickOn(u"SaveSettings"_s);
  EXPECT_EQ(File(), FileWith(12, "0"));
}

TEST_F(MainWindow, AFileThatCannotBeWrittenIsToldAndTheProgramGoesOn) {
  Start();
  PutFolderInTheWay();
  boxes.Answer(BoxAnswer::Ok);
  ClickOn(u"SaveSettings"_s);
  ExpectOneBox(Cannot("write"));
  EXPECT_TRUE(main->isVisible());

  ASSERT_TRUE(QDir(PathOf("Brindle2.ini")).removeRecursively());
  ClickOn(u"SaveSettings"_s);
  EXPECT_EQ(boxes.asked.size(), 1U);
  EXPECT_EQ(File(), FirstFile());
}

TEST_F(MainWindow, AFileThatCannotBeWrittenAtTheEndIsToldAndTheProgramEnds) {
  Start();
  PutFolderInTheWay();
  int closed = 0;
  QObject::connect(main.get(), &MainProg::Closed, [&] { ++closed; });
  boxes.Answer(BoxAnswer::Ok);
  main->close();
  ExpectOneBox(Cannot("write"));
  EXPECT_EQ(closed, 1);
  EXPECT_FALSE(main->isVisible());
}

TEST_F(MainWindow, ClosedWithACalculatorOpenItSavesWhatWasTypedThere) {
  Start();
  auto* calculator = Open(WindowId::BitrateCalc);
  TabTo(Find(calculator, u"MLength"_s));
  TypeOver(u"125.5"_s);
  main->close();
  EXPECT_EQ(File(), FileWith(10, "125.5"));
}

TEST_F(MainWindow, ClosedWhileASpinButtonIsHeldItSavesAndTheHoldGoesOnHarmlessly) {
  Start();
  auto* calculator = Open(WindowId::BitrateCalc);
  auto* plus = Find<SpinButton>(calculator, u"MLengthP"_s);
  Press(plus);
  main->close();
  EXPECT_EQ(File(), FileWith(10, "101"));
  main.reset();
  clock.Advance(2);
  LetGo(plus);
  clock.Advance(2);
  EXPECT_EQ(File(), FileWith(10, "101")) << "nothing else is saved";
}

TEST_F(MainWindow, ClosedWhileASpinButtonRepeatsItSavesTheLastRecomputation) {
  Start();
  auto* calculator = Open(WindowId::BitrateCalc);
  Press(Find<SpinButton>(calculator, u"MLengthP"_s));
  clock.Advance(0.72);
  const auto shown = Find<QLineEdit>(calculator, u"MLength"_s)->text().toDouble();
  EXPECT_GT(shown, 103);
  main->close();
  EXPECT_EQ(File(), FileWith(10, "101")) << "repeated steps do not recompute";
}

struct DropCase {
  const char* name = "";    ///< of the button
  const char* window = "";  ///< that it opens
};

class FilmOnAButton : public MainWindow, public ::testing::WithParamInterface<DropCase> {};

TEST_P(FilmOnAButton, GoesToTheWindowThatItOpens) {
  Start();
  const auto path = QDir::toNativeSeparators(QStringLiteral("/films/holiday.avi"));
  ASSERT_TRUE(DropFile(Find(main.get(), QString::fromLatin1(GetParam().name)), path));
  EXPECT_EQ(Standing(QString::fromLatin1(GetParam().window)).size(), 1U);
  ASSERT_EQ(films.begun.size(), 1U);
  EXPECT_EQ(films.Last().order, path);
  ASSERT_TRUE(DropFile(Find(main.get(), QString::fromLatin1(GetParam().name)), path));
  EXPECT_EQ(Standing(QString::fromLatin1(GetParam().window)).size(), 1U);
  EXPECT_EQ(films.begun.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(
    Buttons, FilmOnAButton,
    ::testing::Values(DropCase{"VideoBC", "BitrateCalc"}, DropCase{"AudioBC", "AudioCalc"},
                      DropCase{"HDC", "HDCalc"}, DropCase{"AVISplitC", "AVISplit"},
                      DropCase{"RAR", "AspectRa"}, DropCase{"QuickCon", "QuickC"}),
    NameOf);

TEST_F(MainWindow, AFileOnTheNormalizersButtonIsOpenedInTheNormalizer) {
  Start();
  Put("holiday.avi", std::string("RIFF\1\2\3\4AVI LIST", 16));
  boxes.Answer(BoxAnswer::Ok);
  ASSERT_TRUE(DropFile(Find(main.get(), u"Normalize"_s), PathOf("holiday.avi")));
  EXPECT_EQ(Standing(u"WavNorm"_s).size(), 1U);
  ASSERT_EQ(boxes.asked.size(), 1U);
}

TEST_F(MainWindow, TakesNoFileElsewhere) {
  Start();
  for (const auto& name : {u"WinCalc"_s, u"About"_s, u"Adremove"_s}) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(PathOf("holiday.avi"))});
    QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.ignore();
    QCoreApplication::sendEvent(Find(main.get(), name), &enter);
    EXPECT_FALSE(enter.isAccepted()) << name.toStdString();
  }
}

}  // namespace
}  // namespace brindle
