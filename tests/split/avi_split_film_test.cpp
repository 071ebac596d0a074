// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The split calculator with a film.

#include <cstdint>
#include <string>
#include <vector>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "tests/split/avi_split_window.h"
#include "tests/support/sample_film.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class SplitOfAFilm : public AviSplitWindow {
 protected:
  void OpenWith(const Film& film) {
    OpenCalculator();
    Take(film);
  }
  void Take(const Film& film) {
    ASSERT_TRUE(DropFile(window, path));
    films.Last().calls.ended(film);
  }

  [[nodiscard]] std::string PartSizes() const { return Text("PartSizes"); }
  [[nodiscard]] QPushButton* WriteParts() const {
    return Find<QPushButton>(window, u"WriteParts"_s);
  }

  // Presses the button and chooses the folder.
  void WriteInto(const QString& into) {
    dialogs.paths = {into};
    Click(WriteParts());
  }

  QTemporaryDir target;
  QString path = folder.filePath(u"holiday.avi"_s);
};

TEST_F(SplitOfAFilm, CutsAtTheLastKeyFrameWithWhichThePartFits) {
  OpenWith(SampleFilm());
  EXPECT_EQ(Text("Size1"), "700");
  EXPECT_EQ(Ranges(), "83700-153750 0-83699");
  EXPECT_EQ(PartSizes(), "Segments: 697.51 MB, 585.01 MB");
  EXPECT_EQ(Find(window, u"PartSizes"_s)->toolTip().toStdString(),
            "Segment 1: 731391760 bytes\nSegment 2: 613426960 bytes");
}

TEST_F(SplitOfAFilm, CutsAgainAtEverySize) {
  OpenWith(SampleFilm());
  Enter(Size1, u"500"_s);
  EXPECT_EQ(Ranges(), "59700-153750 0-59699");
  EXPECT_EQ(PartSizes(), "Segments: 497.51 MB, 785.01 MB");
}

TEST_F(SplitOfAFilm, CutsInThree) {
  OpenThree(1300, 500, 400);
  Take(SampleFilm());
  EXPECT_EQ(Ranges(), "59700-153750 0-59699 107400-153750 0-107399");
  EXPECT_EQ(PartSizes(), "Segments: 497.51 MB, 397.51 MB, 387.51 MB");
  Choose(u"Segs(0)"_s);
  EXPECT_EQ(Ranges(), "59700-153750 0-59699");
  EXPECT_EQ(PartSizes(), "Segments: 497.51 MB, 785.01 MB");
}

TEST_F(SplitOfAFilm, SaysWhenItNeedNotBeSplit) {
  OpenWith(SampleFilm());
  Enter(Size1, u"1282.51"_s);
  EXPECT_EQ(Ranges(), "- -");
  EXPECT_EQ(PartSizes(), "The film fits into one segment: 1282.51 MB");
  EXPECT_FALSE(WriteParts()->isEnabled());
}

TEST_F(SplitOfAFilm, SaysWhenASegmentIsTooSmallForAKeyFrame) {
  OpenWith(SampleFilm());
  Enter(Size1, u"2"_s);
  EXPECT_EQ(Ranges(), "- -");
  EXPECT_EQ(PartSizes(), "No key frame lies within a segment of this size");
  EXPECT_FALSE(WriteParts()->isEnabled());
}

TEST_F(SplitOfAFilm, WithoutKeyFramesIsThatOfItsFigures) {
  auto film = SampleFilm();
  film.keyFrames.clear();
  OpenWith(film);
  EXPECT_EQ(Text("AVIsize") + " " + Text("Frames") + " " + Text("KeyFs"), "1282.51 153750 10");
  EXPECT_EQ(Ranges(), "83750-153750 0-83749");
  EXPECT_EQ(PartSizes(), "");
  EXPECT_FALSE(WriteParts()->isEnabled());
}

TEST_F(SplitOfAFilm, HasTheFilmsOwnFrameNumbersAtAnyRate) {
  auto film = SampleFilm();
  film.video->frameRate = {50, 1};
  OpenWith(film);
  EXPECT_TRUE(IsChecked(u"System(2)"_s));
  EXPECT_EQ(Text("Frames"), "153750");
  EXPECT_EQ(Ranges(), "83700-153750 0-83699");
}

TEST_F(SplitOfAFilm, EndsWhenTheFramesTheIntervalOrTheSizeIsTyped) {
  for (auto* field : {&Frames, &KeyFs, &AVIsize}) {
    OpenWith(SampleFilm());
    EXPECT_NE(PartSizes(), "");
    Enter(*field, (*field)->text());
    EXPECT_EQ(PartSizes(), "") << (*field)->objectName().toStdString();
    EXPECT_EQ(Ranges(), "83700-153750 0-83699") << "every 12 seconds, as the film has them";
    EXPECT_FALSE(WriteParts()->isEnabled());
    Enter(KeyFs, u"10"_s);
    EXPECT_EQ(Ranges(), "83750-153750 0-83749");
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST_F(SplitOfAFilm, ThatWasNeverThereHasNoSizes) {
  OpenCalculator();
  Enter(Size1, u"650"_s);
  EXPECT_EQ(PartSizes(), "");
  EXPECT_FALSE(WriteParts()->isEnabled());
}

// --- Writing the parts -------------------------------------------------------------------------

TEST_F(SplitOfAFilm, IsWrittenIntoAFolder) {
  OpenWith(SampleFilm());
  WriteInto(target.path());
  EXPECT_EQ(dialogs.asked.back().start, folder.path()) << "beside the film";
  ASSERT_EQ(parts.begun.size(), 1U);
  const auto& order = parts.Last().order;
  EXPECT_EQ(order.film, QDir::toNativeSeparators(path));
  EXPECT_EQ(order.cuts, std::vector<std::int64_t>{83700});
  EXPECT_EQ(order.folder, target.path());
  EXPECT_FALSE(order.overwrites);
}

TEST_F(SplitOfAFilm, IsWrittenWithProgressAndRemainingTime) {
  OpenWith(SampleFilm());
  const auto width = WriteParts()->width();
  WriteInto(target.path());
  EXPECT_EQ(PartSizes(), "Writing...");
  EXPECT_EQ(Text("FilmLine").substr(0, 12), "holiday.avi:");
  clock.Elapse(30);
  parts.Last().calls.progress(25);
  EXPECT_EQ(PartSizes(), "Writing: 25 %, 0:01:30 left");
  EXPECT_EQ(WriteParts()->text(), u"Abort"_s);
  QCoreApplication::processEvents();
  EXPECT_EQ(WriteParts()->width(), width);
  EXPECT_FALSE(IsEnabled(u"FromFile"_s));
  EXPECT_FALSE(DropFile(window, path)) << "the film that is being written stays";
  Enter(Size1, u"500"_s);
  EXPECT_EQ(PartSizes(), "Writing: 25 %, 0:01:30 left");
}

TEST_F(SplitOfAFilm, TellsSizesAndDurationsWhenItIsWritten) {
  OpenWith(SampleFilm());
  WriteInto(target.path());
  boxes.Answer(BoxAnswer::Ok);
  parts.Last().calls.ended(
      std::vector<WrittenPart>{{target.filePath(u"holiday.part1.avi"_s), 731391760, 3348},
                               {target.filePath(u"holiday.part2.avi"_s), 613426960, 2802}});
  ASSERT_EQ(boxes.asked.size(), 1U);
  EXPECT_EQ(boxes.asked.front().text,
            "2 segments were written:\n"
            "holiday.part1.avi: 697.51 MB, 0:55:48\n"
            "holiday.part2.avi: 585.01 MB, 0:46:42");
  EXPECT_EQ(PartSizes(), "Segments: 697.51 MB, 585.01 MB");
  EXPECT_EQ(WriteParts()->text(), u"Write Parts..."_s);
  EXPECT_TRUE(WriteParts()->isEnabled());
  EXPECT_TRUE(IsEnabled(u"FromFile"_s));
}

TEST_F(SplitOfAFilm, TellsWhyItCannotBeWritten) {
  OpenWith(SampleFilm());
  WriteInto(target.path());
  boxes.Answer(BoxAnswer::Ok);
  parts.Last().calls.ended(tl::unexpected(u"Cannot write /discs: full"_s));
  EXPECT_EQ(boxes.asked.front().text, "Cannot write /discs: full");
  EXPECT_EQ(PartSizes(), "Segments: 697.51 MB, 585.01 MB");
}

TEST_F(SplitOfAFilm, IsAbortedByTheSameButton) {
  OpenWith(SampleFilm());
  WriteInto(target.path());
  Click(WriteParts());
  EXPECT_FALSE(parts.IsBusy());
  EXPECT_EQ(PartSizes(), "Segments: 697.51 MB, 585.01 MB");
  EXPECT_TRUE(IsEnabled(u"FromFile"_s));
}

TEST_F(SplitOfAFilm, OverwritesOnlyWhenTheUserAgrees) {
  QFile there(target.filePath(u"holiday.part2.avi"_s));
  ASSERT_TRUE(there.open(QIODevice::WriteOnly));
  OpenWith(SampleFilm());
  boxes.Answer(BoxAnswer::No);
  WriteInto(target.path());
  ASSERT_EQ(boxes.asked.size(), 1U);
  EXPECT_EQ(boxes.asked.front().text, "holiday.part2.avi exists already. Overwrite it?");
  EXPECT_EQ(boxes.asked.front().buttons, BoxButtons::YesNoDefaultNo);
  EXPECT_TRUE(parts.begun.empty());
  boxes.Answer(BoxAnswer::Yes);
  WriteInto(target.path());
  ASSERT_EQ(parts.begun.size(), 1U);
  EXPECT_TRUE(parts.Last().order.overwrites);
}

TEST_F(SplitOfAFilm, OfAnotherContainerIsLookedForUnderItsName) {
  QFile there(target.filePath(u"holiday.part1.mkv"_s));
  ASSERT_TRUE(there.open(QIODevice::WriteOnly));
  auto film = SampleFilm();
  film.container = "mpegts";
  film.parts.container = "matroska";
  OpenWith(film);
  boxes.Answer(BoxAnswer::No);
  WriteInto(target.path());
  EXPECT_TRUE(boxes.AllAsked());
}

TEST_F(SplitOfAFilm, ThatCannotBeWrittenHasSizesAllTheSame) {
  auto film = SampleFilm();
  film.parts.container.clear();
  OpenWith(film);
  EXPECT_NE(PartSizes(), "");
  EXPECT_FALSE(WriteParts()->isEnabled());
}

TEST_F(SplitOfAFilm, AsksBeforeTheWindowClosesWhileItIsWritten) {
  OpenWith(SampleFilm());
  WriteInto(target.path());
  boxes.Answer(BoxAnswer::No);
  window->close();
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(parts.IsBusy());
  EXPECT_EQ(boxes.asked.front().text, "The segments are being written. Abort?");
  EXPECT_EQ(boxes.asked.front().buttons, BoxButtons::YesNoDefaultNo);
  boxes.Answer(BoxAnswer::Yes);
  window->close();
  EXPECT_FALSE(parts.IsBusy());
}

}  // namespace
}  // namespace brindle
