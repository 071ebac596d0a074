// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// What a film does in every window that takes one.

#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QSlider>
#include <QString>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/windows/film_text.h"
#include "tests/contract/any_window.h"
#include "tests/support/sample_film.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

using Texts = std::map<std::string, std::string>;

constexpr auto NoFilm = "or drop a film here";
constexpr auto Holiday = "holiday.avi: 1:42:30, 25 fps, 640 x 272, 2 audio tracks";

QString HolidayPath() { return QDir::toNativeSeparators(u"/films/holiday.avi"_s); }

class FilmWindow : public AnyWindow {
 protected:
  void OpenIt(const std::string& name) {
    window = OpenByName(name);
    ASSERT_NE(window, nullptr);
  }

  // Drops the film and lets it be read.
  void Fill(const Film& film) {
    ASSERT_TRUE(DropFile(window, HolidayPath()));
    films.Last().calls.ended(film);
  }

  [[nodiscard]] std::string Line() const {
    return Find<QLabel>(window, u"FilmLine"_s)->text().toStdString();
  }
  [[nodiscard]] std::string Caption() const { return TextOf("FromFile"); }

  // What a person reads on a control: "on" for a selected option.
  [[nodiscard]] std::string TextOf(const std::string& name) const {
    const auto* control = Find(window, QString::fromStdString(name));
    if (const auto* list = qobject_cast<const QComboBox*>(control)) {
      return list->currentText().toStdString();
    }
    if (const auto* field = qobject_cast<const QLineEdit*>(control)) {
      return field->text().toStdString();
    }
    if (const auto* slider = qobject_cast<const QSlider*>(control)) {
      return std::to_string(slider->value());
    }
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    if (button != nullptr && button->isCheckable()) {
      return button->isChecked() ? "on" : "off";
    }
    return button != nullptr ? button->text().toStdString()
                             : qobject_cast<const QLabel*>(control)->text().toStdString();
  }

  void Expect(const Texts& expected) const {
    for (const auto& [name, text] : expected) {
      EXPECT_EQ(TextOf(name), text) << name;
    }
  }

  QWidget* window = nullptr;
};

// --- What is filled ----------------------------------------------------------------------------

struct FilledCase {
  std::string name;
  std::string window;
  std::function<void(Film& film, Settings& record)> prepare;
  Texts texts;  ///< afterwards
  std::string line = Holiday;
};

void PrintTo(const FilledCase& row, std::ostream* out) { *out << row.name; }

class Filled : public FilmWindow, public ::testing::WithParamInterface<FilledCase> {};

TEST_P(Filled, AsAPersonWouldFillIt) {
  auto film = SampleFilm();
  record.MovieLength = 60;
  if (GetParam().prepare) {
    GetParam().prepare(film, record);
  }
  OpenIt(GetParam().window);
  Fill(film);
  Expect(GetParam().texts);
  EXPECT_EQ(Line(), GetParam().line);
}

void WithoutTracks(Film& film, Settings&) { film.audio.clear(); }
void BySize(Film&, Settings& given) { given.HDVideoMode = 1; }
void OfVersion3(Film&, Settings& given) { given.DivXOption = 0; }
void OfWav(Film& film, Settings&) {
  film.audio = {
      {.codec = "pcm_s16le", .kilobitsPerSecond = 1536, .channels = 2, .sampleRate = 48000}};
}
void At24000Of1001(Film& film, Settings&) { film.video->frameRate = {24000, 1001}; }
void At24(Film& film, Settings&) { film.video->frameRate = {24, 1}; }
void OfHalfAMinute(Film& film, Settings&) { film.seconds = 30; }
void OfAnHour(Film& film, Settings& given) {
  film.seconds = 3600;
  given.MovieLength = 40;
}
void WithoutInterleaving(Film&, Settings& given) { given.AudioOverheadOn = 0; }
void InAnotherContainer(Film& film, Settings& given) {
  film.framesBetweenAudio.reset();
  given.AudioOverheadOn = 0;
}
void Wide(Film& film, Settings&) {
  film.video->width = 720;
  film.video->height = 576;
  film.video->pixelShape = {64, 45};
}
void FullHd(Film& film, Settings&) {
  film.video->width = 1920;
  film.video->height = 1080;
}
void WithoutVideo(Film& film, Settings&) {
  film.video.reset();
  film.keyFrames.clear();
}

INSTANTIATE_TEST_SUITE_P(
    Windows, Filled,
    ::testing::ValuesIn(std::vector<FilledCase>{
        {"BitrateCalc",
         "BitrateCalc",
         {},
         {{"MLength", "102.5"},
          {"Time1", "1"},
          {"Time2", "42"},
          {"Time3", "30.00"},
          {"Audio", "192"}}},
        {"BitrateCalcWithoutAudio",
         "BitrateCalc",
         WithoutTracks,
         {{"MLength", "102.5"}, {"Audio", "128"}},
         "holiday.avi: 1:42:30, 25 fps, 640 x 272, no audio"},
        {"BitrateCalcOfHalfAMinute",
         "BitrateCalc",
         OfHalfAMinute,
         {{"Time1", "0"}, {"Time2", "0"}, {"Time3", "30.00"}, {"MLength", "0.5"}},
         "holiday.avi: 0:00:30, 25 fps, 640 x 272, 2 audio tracks"},
        {"BitrateCalcOfAnHour",
         "BitrateCalc",
         OfAnHour,
         {{"Time1", "1"}, {"Time2", "0"}, {"Time3", "00.00"}, {"MLength", "60"}},
         "holiday.avi: 1:00:00, 25 fps, 640 x 272, 2 audio tracks"},
        {"Advanced", "Advanced", {}, {{"AOver", "on"}, {"InterlOpt(2)", "on"}, {"Iframe1", "12"}}},
        {"AdvancedTicksInterleaving",
         "Advanced",
         WithoutInterleaving,
         {{"AOver", "on"}, {"InterlOpt(2)", "on"}, {"Iframe1", "12"}}},
        {"AdvancedOfFilm",
         "Advanced",
         At24000Of1001,
         {{"InterlOpt(3)", "on"}, {"Iframe2", "12"}},
         "holiday.avi: 1:42:30, 23.976 fps, 640 x 272, 2 audio tracks"},
        {"AdvancedInAnotherContainer",
         "Advanced",
         InAnotherContainer,
         {{"AOver", "off"}, {"Iframe1", "1"}}},
        {"AudioCalc", "AudioCalc", {}, {{"MLength", "102.5"}, {"Source", "1222.62"}}},
        {"AudioCalcWithoutVideo",
         "AudioCalc",
         WithoutVideo,
         {{"MLength", "102.5"}, {"Source", "550"}},
         "holiday.avi: 1:42:30, no video, 2 audio tracks"},
        {"HDCalcByBitrate",
         "HDCalc",
         {},
         {{"MLength", "102.5"},
          {"Video1", "1668"},
          {"Video2", "550"},
          {"Audio(2)", "on"},
          {"MP2", "192"}}},
        {"HDCalcByBitrateOfVersion3", "HDCalc", OfVersion3, {{"Video1", "1629"}}},
        {"HDCalcBySize",
         "HDCalc",
         BySize,
         {{"Video1", "910"}, {"Video2", "1222.62"}, {"MP2", "192"}}},
        {"HDCalcOfWav",
         "HDCalc",
         OfWav,
         {{"Audio(1)", "on"}, {"MP2", "224"}},
         "holiday.avi: 1:42:30, 25 fps, 640 x 272, 1 audio track"},
        {"AVISplit",
         "AVISplit",
         {},
         {{"AVIsize", "1282.51"}, {"Frames", "153750"}, {"System(0)", "on"}, {"KeyFs", "12"}}},
        {"AVISplitAt24",
         "AVISplit",
         At24,
         {{"Frames", "153750"}, {"System(1)", "on"}},
         "holiday.avi: 1:42:30, 24 fps (nearest: 23.976), 640 x 272, 2 audio tracks"},
        {"QuickC",
         "QuickC",
         {},
         {{"Time1", "1"},
          {"Time2", "42"},
          {"Time3", "30"},
          {"Min", "102.5"},
          {"Frames", "153750"},
          {"System(0)", "on"},
          {"B", "1344808720"}}},
        {"QuickCAt24000Of1001",
         "QuickC",
         At24000Of1001,
         {{"System(1)", "on"}, {"Min", "102.5"}, {"Frames", "147452"}},
         "holiday.avi: 1:42:30, 23.976 fps, 640 x 272, 2 audio tracks"},
        {"AspectRa",
         "AspectRa",
         {},
         {{"AspectR(2)", "on"}, {"AR2", "2.353"}, {"HRES", "640"}, {"VRES", "272"}}},
        {"AspectRaOfAWideFilm",
         "AspectRa",
         Wide,
         {{"AR2", "1.778"}, {"HRES", "720"}, {"VRES", "400"}},
         "holiday.avi: 1:42:30, 25 fps, 720 x 576, 2 audio tracks"},
        {"AspectRaOfALargeFilm",
         "AspectRa",
         FullHd,
         {{"AR2", "1.778"}, {"HRES", "720"}, {"VRES", "400"}},
         "holiday.avi: 1:42:30, 25 fps, 1920 x 1080, 2 audio tracks"},
        {"AspectRaWithoutVideo",
         "AspectRa",
         WithoutVideo,
         {{"AspectR(1)", "on"}, {"HRES", "592"}},
         "holiday.avi: 1:42:30, no video, 2 audio tracks"},
    }),
    [](const auto& instance) { return instance.param.name; });

// --- How a film comes in -----------------------------------------------------------------------

class FilmsIn : public FilmWindow, public ::testing::WithParamInterface<std::string> {
 protected:
  void SetUp() override { OpenIt(GetParam()); }
};

TEST_P(FilmsIn, AreTakenWhereverTheyAreDropped) {
  ASSERT_TRUE(DropFile(window, HolidayPath()));
  EXPECT_EQ(films.begun.size(), 1U);
  std::size_t expected = 1;
  for (auto* field : window->findChildren<QLineEdit*>()) {
    const auto before = field->text();
    EXPECT_TRUE(DropFile(field, HolidayPath())) << field->objectName().toStdString();
    EXPECT_EQ(field->text(), before);
    EXPECT_EQ(films.begun.size(), ++expected);
  }
  EXPECT_EQ(films.Last().order, HolidayPath());
}

TEST_P(FilmsIn, TextIsStillDroppedIntoAField) {
  for (auto* field : window->findChildren<QLineEdit*>()) {
    if (!field->isReadOnly() && field->isEnabled()) {
      QMimeData data;
      data.setText(u"7"_s);
      QDragEnterEvent enter({1, 1}, Qt::CopyAction, &data, Qt::LeftButton, {});
      QCoreApplication::sendEvent(field, &enter);
      EXPECT_TRUE(enter.isAccepted()) << field->objectName().toStdString();
    }
  }
  EXPECT_TRUE(films.begun.empty());
}

TEST_P(FilmsIn, AreAskedForByTheButtonAndByItsKey) {
  dialogs.paths = {HolidayPath(), u""_s, u"/films/other.mkv"_s};
  Click(Find(window, u"FromFile"_s));
  ASSERT_EQ(films.begun.size(), 1U);
  EXPECT_EQ(films.Last().order, HolidayPath());
  EXPECT_EQ(dialogs.asked.front().title, u"Open Film"_s);
  films.Last().calls.ended(SampleFilm());
  EXPECT_EQ(Line(), Holiday);
  Key(Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(films.begun.size(), 1U) << "the user changed his mind";
  EXPECT_EQ(Line(), Holiday);
  EXPECT_EQ(dialogs.asked.back().start, HolidayPath());
  Key(Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(films.begun.size(), 2U);
  EXPECT_EQ(films.Last().order, u"/films/other.mkv"_s);
}

TEST_P(FilmsIn, AreReadWithProgressAndCanBeStopped) {
  const auto width = Find(window, u"FromFile"_s)->width();
  EXPECT_EQ(Line(), NoFilm);
  EXPECT_EQ(Caption(), "From File...");
  DropFile(window, HolidayPath());
  EXPECT_EQ(Line(), "Reading holiday.avi...");
  EXPECT_EQ(Caption(), "Stop");
  films.Last().calls.progress(34);
  EXPECT_EQ(Line(), "Reading holiday.avi: 34 %");
  QCoreApplication::processEvents();
  EXPECT_EQ(Find(window, u"FromFile"_s)->width(), width);
  dialogs.paths = {u""_s};
  Key(Qt::Key_O, Qt::ControlModifier);
  EXPECT_TRUE(films.IsBusy()) << "the key opens; it does not stop";
  Click(Find(window, u"FromFile"_s));
  EXPECT_FALSE(films.IsBusy());
  EXPECT_EQ(Line(), NoFilm);
  EXPECT_EQ(Caption(), "From File...");
}

TEST_P(FilmsIn, GiveWayToTheNextOne) {
  DropFile(window, HolidayPath());
  DropFile(window, u"/films/other.mkv"_s);
  EXPECT_TRUE(films.begun.front()->isStopped);
  EXPECT_TRUE(films.IsBusy());
  EXPECT_EQ(Line(), "Reading other.mkv...");
}

TEST_P(FilmsIn, ThatCannotBeReadChangeNothing) {
  std::map<const QWidget*, std::string> before;
  for (const auto* field : window->findChildren<QLineEdit*>()) {
    before[field] = field->text().toStdString();
  }
  DropFile(window, HolidayPath());
  boxes.Answer(BoxAnswer::Ok);
  films.Last().calls.ended(tl::unexpected(u"Cannot read /films/holiday.avi: no film"_s));
  ASSERT_EQ(boxes.asked.size(), 1U);
  EXPECT_EQ(boxes.asked.front().text, "Cannot read /films/holiday.avi: no film");
  EXPECT_EQ(boxes.asked.front().owner, window);
  for (const auto* field : window->findChildren<QLineEdit*>()) {
    EXPECT_EQ(field->text().toStdString(), before[field]) << field->objectName().toStdString();
  }
  EXPECT_EQ(Line(), NoFilm);
  EXPECT_EQ(Caption(), "From File...");
}

TEST_P(FilmsIn, StopBeingReadWhenTheWindowCloses) {
  DropFile(window, HolidayPath());
  window->close();
  EXPECT_FALSE(films.IsBusy());
}

TEST_P(FilmsIn, LeaveTheFocusWhereItWas) {
  auto* before = window->focusWidget();
  Fill(SampleFilm());
  EXPECT_EQ(window->focusWidget(), before);
}

TEST_P(FilmsIn, FillAWindowThatIsNotTheActiveOne) {
  QWidget other;
  other.show();
  other.activateWindow();
  WaitForActive(&other);
  Fill(SampleFilm());
  EXPECT_EQ(Line(), Holiday);
  const auto filled = TextOf(GetParam() == "AspectRa"   ? "AR2"
                             : GetParam() == "Advanced" ? "Iframe1"
                             : GetParam() == "QuickC"   ? "Min"
                             : GetParam() == "AVISplit" ? "Frames"
                                                        : "MLength");
  EXPECT_EQ(filled, GetParam() == "AspectRa"   ? "2.353"
                    : GetParam() == "Advanced" ? "12"
                    : GetParam() == "AVISplit" ? "153750"
                                               : "102.5");
}

TEST_P(FilmsIn, HaveANameThatIsShownAsItIs) {
  ASSERT_TRUE(DropFile(window, u"/films/<b>two\nlines<b>.avi"_s));
  films.Last().calls.ended(SampleFilm());
  EXPECT_EQ(Line().substr(0, 25), "<b>two?lines<b>.avi: 1:42");
}

INSTANTIATE_TEST_SUITE_P(Each, FilmsIn,
                         ::testing::Values("BitrateCalc", "Advanced", "AudioCalc", "HDCalc",
                                           "AVISplit", "QuickC", "AspectRa"),
                         [](const auto& instance) { return instance.param; });

// --- Until what it filled is changed -----------------------------------------------------------

struct ChangeCase {
  std::string name;
  std::string window;
  std::string control;
  QString typed;  ///< empty for a click
  bool leaves = true;
};

void PrintTo(const ChangeCase& row, std::ostream* out) { *out << row.name; }

class FilmIsLeft : public FilmWindow, public ::testing::WithParamInterface<ChangeCase> {};

TEST_P(FilmIsLeft, ByAChangeOfWhatItFilled) {
  OpenIt(GetParam().window);
  Fill(SampleFilm());
  auto* control = Find(window, QString::fromStdString(GetParam().control));
  if (GetParam().typed.isEmpty()) {
    Click(control);
  } else {
    TabTo(control);
    EXPECT_EQ(Line(), Holiday) << "the focus changes nothing";
    TypeOver(GetParam().typed);
  }
  EXPECT_EQ(Line(), GetParam().leaves ? NoFilm : Holiday);
}

INSTANTIATE_TEST_SUITE_P(Windows, FilmIsLeft,
                         ::testing::ValuesIn(std::vector<ChangeCase>{
                             {"AudioOfBitrateCalc", "BitrateCalc", "Audio", u"128"_s},
                             {"SecondsOfBitrateCalc", "BitrateCalc", "Time3", u"5"_s},
                             {"PlusOfBitrateCalc", "BitrateCalc", "MLengthP", {}},
                             {"ExtraOfBitrateCalcStays", "BitrateCalc", "Extra", u"5"_s, false},
                             {"OptionOfBitrateCalcStays", "BitrateCalc", "DivX(0)", {}, false},
                             {"FramesOfAdvanced", "Advanced", "Iframe1", u"5"_s},
                             {"RateOfAdvanced", "Advanced", "InterlOpt(4)", {}},
                             {"LengthOfAudioCalc", "AudioCalc", "MLength", u"5"_s},
                             {"TargetOfAudioCalcStays", "AudioCalc", "Target", u"650"_s, false},
                             {"BitrateOfHDCalc", "HDCalc", "Video1", u"5"_s},
                             {"AudioOfHDCalc", "HDCalc", "Audio(1)", {}},
                             {"SizeOfAVISplit", "AVISplit", "AVIsize", u"500"_s},
                             {"FramesOfAVISplit", "AVISplit", "Frames", u"5"_s},
                             {"IntervalOfAVISplit", "AVISplit", "KeyFs", u"5"_s},
                             {"SystemOfAVISplit", "AVISplit", "System(2)", {}},
                             {"FirstSizeOfAVISplitStays", "AVISplit", "Size1", u"650"_s, false},
                             {"SegmentsOfAVISplitStay", "AVISplit", "Segs(0)", {}, false},
                             {"BytesOfQuickC", "QuickC", "B", u"5"_s},
                             {"MinutesOfQuickC", "QuickC", "Min", u"5"_s},
                             {"RatioOfAspectRa", "AspectRa", "AR2", u"2"_s},
                         }),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace brindle
