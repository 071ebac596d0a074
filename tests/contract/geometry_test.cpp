// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Nothing is cut off, overlaps, stands out of line or moves. The scale comes from QT_SCALE_FACTOR,
// the size of the font from BRINDLE_TEST_POINT_SIZE.

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QByteArray>
#include <QComboBox>
#include <QFile>
#include <QFont>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRect>
#include <QString>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/elided_label.h"
#include "base/input/slider.h"
#include "tests/contract/any_window.h"
#include "tests/contract/contract_table.h"
#include "tests/support/sample_film.h"
#include "tests/wav/wav_builder.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr int Tolerance = 2;  // device-independent pixels

const char* PointSize() { return std::getenv("BRINDLE_TEST_POINT_SIZE"); }

std::string Called(const QWidget* widget) {
  auto name = widget->objectName().toStdString();
  if (const auto* label = qobject_cast<const QLabel*>(widget); label != nullptr) {
    name += " \"" + label->text().toStdString() + "\"";
  }
  const auto box = widget->geometry();
  return std::string(widget->metaObject()->className()) + " " + name + " at " +
         std::to_string(box.x()) + "," + std::to_string(box.y()) + " of " +
         std::to_string(box.width()) + "x" + std::to_string(box.height());
}

// The visible children of a widget that are no windows, from top to bottom.
std::vector<QWidget*> ChildrenOf(const QWidget* parent) {
  std::vector<QWidget*> children;
  for (auto* child : parent->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    if (child->isVisible() && !child->isWindow()) {
      children.push_back(child);
    }
  }
  std::stable_sort(children.begin(), children.end(), [](const auto* a, const auto* b) {
    return a->geometry().center().y() < b->geometry().center().y();
  });
  return children;
}

void ForEach(const QWidget* parent, const std::function<void(const QWidget*)>& action) {
  action(parent);
  for (const auto* child : ChildrenOf(parent)) {
    ForEach(child, action);
  }
}

// What holds more than one line of others: a group, or the line around a picture.
bool IsFrame(const QWidget* widget) {
  return qobject_cast<const QGroupBox*>(widget) != nullptr ||
         widget->metaObject() == &QFrame::staticMetaObject;
}

bool ShareARow(const QWidget* a, const QWidget* b) {
  return a->geometry().top() <= b->geometry().bottom() &&
         b->geometry().top() <= a->geometry().bottom();
}

// The lines of a frame or window, each from left to right; frames in it are no lines.
std::vector<std::vector<QWidget*>> RowsIn(const QWidget* parent) {
  std::vector<std::vector<QWidget*>> rows;
  for (auto* child : ChildrenOf(parent)) {
    if (IsFrame(child)) {
      continue;
    }
    if (rows.empty() || !ShareARow(rows.back().front(), child)) {
      rows.emplace_back();
    }
    rows.back().push_back(child);
  }
  for (auto& row : rows) {
    std::stable_sort(row.begin(), row.end(),
                     [](const auto* a, const auto* b) { return a->x() < b->x(); });
  }
  return rows;
}

// How much room the text of a field or list has.
int RoomForText(const QLineEdit* field) {
  QStyleOptionFrame option;
  option.initFrom(field);
  option.rect = field->rect();
  option.lineWidth = field->hasFrame()
                         ? field->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, field)
                         : 0;
  constexpr int innerMargins = 4;  // the toolkit's own, both sides together
  return field->style()->subElementRect(QStyle::SE_LineEditContents, &option, field).width() -
         innerMargins;
}

// Empty where all of the widget's own text can be read.
std::string CutOff(const QWidget* widget) {
  const auto fits = [&](QSize needed) {
    return needed.width() <= widget->width() && needed.height() <= widget->height();
  };
  const auto metrics = widget->fontMetrics();
  if (const auto* frame = qobject_cast<const QGroupBox*>(widget)) {
    return fits(metrics.size(Qt::TextSingleLine, frame->title())) ? "" : "frame";
  }
  if (qobject_cast<const ElidedLabel*>(widget) != nullptr) {
    return metrics.height() <= widget->height() ? "" : "height of text";
  }
  if (const auto* label = qobject_cast<const QLabel*>(widget)) {
    if (label->wordWrap()) {
      const auto needed = metrics.boundingRect(QRect(0, 0, label->contentsRect().width(), 10000),
                                               Qt::TextWordWrap, label->text());
      return fits(needed.size()) ? "" : "wrapped text";
    }
    return fits(metrics.size(0, label->text())) ? "" : "text";
  }
  if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
    return fits(button->sizeHint()) ? "" : "button";
  }
  if (const auto* list = qobject_cast<const QComboBox*>(widget)) {
    if (!list->isEditable()) {
      return list->sizeHint().width() <= list->width() ? "" : "list";
    }
    for (int i = 0; i < list->count(); ++i) {
      if (metrics.horizontalAdvance(list->itemText(i)) > RoomForText(list->lineEdit())) {
        return "entry " + list->itemText(i).toStdString();
      }
    }
    return "";
  }
  if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
    if (metrics.horizontalAdvance(field->text()) > RoomForText(field)) {
      return "field";
    }
    return metrics.height() <= field->height() ? "" : "height of field";
  }
  return "";
}

class GeometryOf : public AnyWindow, public ::testing::WithParamInterface<WindowRow> {
 protected:
  static void SetUpTestSuite() {
    if (PointSize() != nullptr) {
      QFont font = QApplication::font();
      font.setPointSize(std::atoi(PointSize()));
      QApplication::setFont(font);
    }
  }

  void SetUp() override {
    window = OpenByName(GetParam().name);
    ASSERT_NE(window, nullptr);
    ShowAll(window);
    QCoreApplication::processEvents();
  }

  QWidget* window = nullptr;
};

TEST_P(GeometryOf, TheRunHasItsScaleAndFont) {
  if (qEnvironmentVariableIsSet("QT_SCALE_FACTOR")) {
    // Not by the C library, which would look for a comma where the locale has one.
    EXPECT_DOUBLE_EQ(window->devicePixelRatioF(), qgetenv("QT_SCALE_FACTOR").toDouble());
  }
  if (PointSize() != nullptr) {
    EXPECT_EQ(window->font().pointSize(), std::atoi(PointSize()));
    for (const auto* label : window->findChildren<QLabel*>()) {
      EXPECT_GE(label->font().pointSize(), std::atoi(PointSize())) << Called(label);
    }
  }
}

TEST_P(GeometryOf, NoTwoNeighboursOverlap) {
  ForEach(window, [](const QWidget* parent) {
    const auto children = ChildrenOf(parent);
    for (std::size_t i = 0; i < children.size(); ++i) {
      for (std::size_t j = i + 1; j < children.size(); ++j) {
        EXPECT_FALSE(children[i]->geometry().intersects(children[j]->geometry()))
            << Called(children[i]) << " and " << Called(children[j]);
      }
    }
  });
}

TEST_P(GeometryOf, NothingLeavesItsParent) {
  ForEach(window, [](const QWidget* parent) {
    for (const auto* child : ChildrenOf(parent)) {
      EXPECT_TRUE(parent->rect().contains(child->geometry()))
          << Called(child) << " in " << Called(parent);
    }
  });
}

TEST_P(GeometryOf, NoTextIsCutOff) {
  int seen = 0;
  ForEach(window, [&](const QWidget* widget) {
    ++seen;
    EXPECT_EQ(CutOff(widget), "") << Called(widget);
  });
  EXPECT_GT(seen, 3);
}

TEST_P(GeometryOf, WhatSharesALineIsCentredOnIt) {
  ForEach(window, [](const QWidget* parent) {
    if (qobject_cast<const QComboBox*>(parent) != nullptr) {
      return;
    }
    const auto children = ChildrenOf(parent);
    for (std::size_t i = 0; i < children.size(); ++i) {
      for (std::size_t j = i + 1; j < children.size(); ++j) {
        const auto* a = children[i];
        const auto* b = children[j];
        if (ShareARow(a, b) && !IsFrame(a) && !IsFrame(b)) {
          // Twice the middle, which for an even height lies between two pixels.
          const auto middles = [](const QWidget* widget) {
            return widget->geometry().top() + widget->geometry().bottom();
          };
          EXPECT_LE(std::abs(middles(a) - middles(b)), 2 * Tolerance)
              << Called(a) << " and " << Called(b);
        }
      }
    }
  });
}

TEST_P(GeometryOf, TheLinesOfAFrameBeginAtOneEdge) {
  for (const auto* frame : window->findChildren<QGroupBox*>()) {
    const auto rows = RowsIn(frame);
    ASSERT_FALSE(rows.empty()) << frame->title().toStdString();
    for (const auto& row : rows) {
      EXPECT_EQ(row.front()->x(), rows.front().front()->x())
          << frame->title().toStdString() << ": " << Called(row.front());
    }
  }
}

// Behind labels, that is; the lines of buttons need no second edge.
TEST_P(GeometryOf, TheControlsBehindLabelsBeginAtOneEdge) {
  for (const auto* frame : window->findChildren<QGroupBox*>()) {
    const QWidget* first = nullptr;
    for (const auto& row : RowsIn(frame)) {
      if (row.size() > 1 && qobject_cast<const QLabel*>(row.front()) != nullptr) {
        first = first == nullptr ? row[1] : first;
        EXPECT_EQ(row[1]->x(), first->x())
            << frame->title().toStdString() << ": " << Called(row[1]);
      }
    }
  }
}

TEST_P(GeometryOf, FramesBesideAndBelowEachOtherShareTheirEdges) {
  auto frames = window->findChildren<QGroupBox*>();
  QRect all;
  for (const auto* frame : frames) {
    all |= frame->geometry();
  }
  // A frame across the whole window has the edges of the first and the last column.
  if (std::any_of(frames.begin(), frames.end(),
                  [&](const auto* frame) { return frame->width() < all.width(); })) {
    frames.removeIf(
        [&](const auto* frame) { return frame->x() == all.x() && frame->width() == all.width(); });
  }
  for (const auto* a : frames) {
    for (const auto* b : frames) {
      if (a->x() <= b->geometry().right() && b->x() <= a->geometry().right()) {
        EXPECT_EQ(a->x(), b->x()) << Called(a) << " and " << Called(b);
        EXPECT_EQ(a->geometry().right(), b->geometry().right())
            << Called(a) << " and " << Called(b);
      }
      if (ShareARow(a, b) && a->y() != b->y()) {
        // One tall frame beside a column of others: the first of the column is level with it.
        EXPECT_TRUE(std::any_of(frames.begin(), frames.end(),
                                [&](const auto* c) {
                                  return c->y() == std::min(a->y(), b->y()) &&
                                         c->x() == (a->y() < b->y() ? b : a)->x();
                                }))
            << Called(a) << " and " << Called(b);
      }
    }
  }
}

// Options and boxes answer on their caption only.
TEST_P(GeometryOf, AClickInTheMiddleOfAnOptionOrBoxIsOnItsCaption) {
  for (const auto* button : window->findChildren<QAbstractButton*>()) {
    if (button->isCheckable()) {
      EXPECT_LE(button->width(), button->sizeHint().width()) << Called(button);
    }
  }
}

TEST_P(GeometryOf, ItIsAsLargeAsItsContentsAsk) { EXPECT_EQ(window->size(), window->sizeHint()); }

INSTANTIATE_TEST_SUITE_P(Each, GeometryOf, ::testing::ValuesIn(WindowRows()),
                         [](const auto& instance) { return instance.param.name; });

// The boxes of a window and of everything in it, before and after something happened.
class GeometryStays : public AnyWindow {
 protected:
  static void SetUpTestSuite() {
    if (PointSize() != nullptr) {
      QFont font = QApplication::font();
      font.setPointSize(std::atoi(PointSize()));
      QApplication::setFont(font);
    }
  }

  void Start(const std::string& name) {
    window = OpenByName(name);
    ASSERT_NE(window, nullptr);
    before = Boxes();
    ASSERT_GT(before.size(), 10U);
  }

  [[nodiscard]] std::map<const QWidget*, QRect> Boxes() const {
    QCoreApplication::processEvents();
    std::map<const QWidget*, QRect> found;
    ForEach(window, [&](const QWidget* widget) {
      found[widget] = widget == window ? QRect(QPoint(), widget->size()) : widget->geometry();
    });
    return found;
  }

  void ExpectNothingMoved() const {
    const auto after = Boxes();
    EXPECT_EQ(after.size(), before.size());
    for (const auto& [widget, box] : after) {
      EXPECT_TRUE(before.contains(widget) && before.at(widget) == box)
          << Called(widget) << ", before at " << before.at(widget).y() << " and "
          << before.at(widget).height() << " high";
    }
  }

  void ExpectAllAsBefore() const {
    ExpectNothingMoved();
    for (const auto* label : window->findChildren<QLabel*>()) {
      EXPECT_EQ(CutOff(label), "") << Called(label);
    }
  }

  void Enter(const QString& name, const QString& text) const {
    TabTo(Find(window, name));
    TypeOver(text);
    Key(Qt::Key_Tab);
  }

  [[nodiscard]] QString TextOf(const QString& name) const {
    return Find<QLabel>(window, name)->text();
  }

  QWidget* window = nullptr;
  std::map<const QWidget*, QRect> before;
};

class BitrateCalcStays : public GeometryStays {
 protected:
  void SetUp() override { Start("BitrateCalc"); }
};

TEST_F(BitrateCalcStays, WithTheLongestRating) {
  Enter(u"MLength"_s, u"1"_s);
  ASSERT_EQ(TextOf(u"Qual"_s), u"Max. setting is 10000"_s);
  ExpectAllAsBefore();
}

TEST_F(BitrateCalcStays, WithEveryOtherRating) {
  for (const int minutes : {10, 30, 50, 60, 70, 90, 110, 130, 180, 300}) {
    Enter(u"MLength"_s, QString::number(minutes));
    ExpectAllAsBefore();
  }
}

TEST_F(BitrateCalcStays, WithoutAnyResult) {
  Enter(u"Capacity"_s, u"0"_s);
  Enter(u"Audio"_s, u"0"_s);
  record.VideoFrameOverhead = 0;
  record.AudioInterleaveOverhead = 0;
  Enter(u"MLength"_s, u"100"_s);
  ASSERT_EQ(Find<QLineEdit>(window, u"Result"_s)->text(), QString());
  ASSERT_EQ(TextOf(u"Qual"_s), QString());
  ASSERT_EQ(TextOf(u"Stat(0)"_s), QString());
  ASSERT_EQ(TextOf(u"Stat(1)"_s), QString());
  ASSERT_EQ(TextOf(u"Stat(2)"_s), QString());
  ExpectAllAsBefore();
}

TEST_F(BitrateCalcStays, WithTheSizesOfALargeShelfOfDiscs) {
  Enter(u"Capacity"_s, u"99999"_s);
  Enter(u"CDs"_s, u"99"_s);
  Enter(u"MLength"_s, u"99999"_s);
  ASSERT_GE(TextOf(u"Stat(0)"_s).size(), 9) << TextOf(u"Stat(0)"_s).toStdString();
  ExpectAllAsBefore();
}

TEST_F(BitrateCalcStays, WithSizesBeyondAnyDisc) {
  Enter(u"Capacity"_s, u"99999999999999999999"_s);
  ASSERT_GE(TextOf(u"Stat(0)"_s).size(), 20) << TextOf(u"Stat(0)"_s).toStdString();
  ExpectNothingMoved();
}

TEST_F(BitrateCalcStays, WithFieldsFullOfDigits) {
  for (const auto& name : {u"Time1"_s, u"Time2"_s, u"Time3"_s}) {
    Enter(name, u"99.9999999999"_s);
  }
  ExpectAllAsBefore();
}

TEST_F(BitrateCalcStays, WithTheOtherOption) {
  Find<QAbstractButton>(window, u"DivX(0)"_s)->click();
  ExpectAllAsBefore();
}

TEST_F(BitrateCalcStays, WhileAFieldIsEmpty) {
  TabTo(Find(window, u"MLength"_s));
  TypeOver(u"1"_s);
  Key(Qt::Key_Backspace);
  ExpectAllAsBefore();
}

TEST_F(BitrateCalcStays, WithInterleavingSwitchedOff) {
  window->close();
  record.VideoFrameOverhead = 0;
  record.AudioInterleaveOverhead = 0;
  const auto sizeBefore = before.at(window);
  window = OpenByName("BitrateCalc");
  ASSERT_EQ(TextOf(u"Interl"_s), u"OFF"_s);
  EXPECT_EQ(window->size(), sizeBefore.size());
}

class AudioCalcStays : public GeometryStays {
 protected:
  void SetUp() override { Start("AudioCalc"); }
};

TEST_F(AudioCalcStays, WithEverySuggestion) {
  std::set<QString> seen;
  for (const int target :
       {550, 561, 577, 583, 590, 597, 604, 625, 636, 647, 675, 697, 718, 740, 9999999}) {
    Enter(u"Target"_s, QString::number(target));
    seen.insert(TextOf(u"Qual"_s));
    ExpectAllAsBefore();
  }
  EXPECT_EQ(seen.size(), 15U);
}

class HDCalcStays : public GeometryStays {
 protected:
  void SetUp() override { Start("HDCalc"); }
};

TEST_F(HDCalcStays, WithEveryOption) {
  for (const auto& name :
       {u"Video(1)"_s, u"Video(0)"_s, u"Audio(2)"_s, u"Audio(1)"_s, u"DivX(0)"_s}) {
    Find<QAbstractButton>(window, name)->click();
    ExpectAllAsBefore();
  }
}

TEST_F(HDCalcStays, WithAWholeCupboardOfDisks) {
  Enter(u"MLength"_s, u"500000"_s);
  ASSERT_EQ(TextOf(u"Result"_s).size(), 7) << TextOf(u"Result"_s).toStdString();
  ExpectAllAsBefore();
  Enter(u"MLength"_s, u"500000000000"_s);
  ExpectNothingMoved();
}

TEST_F(HDCalcStays, WithoutAnyResult) {
  Enter(u"MLength"_s, u"0"_s);
  ASSERT_EQ(TextOf(u"Result"_s), QString());
  ExpectAllAsBefore();
}

class AVISplitStays : public GeometryStays {
 protected:
  void SetUp() override { Start("AVISplit"); }

  void Choose(const QString& name) const { Find<QAbstractButton>(window, name)->click(); }
};

TEST_F(AVISplitStays, BetweenTwoAndThreeSegments) {
  Choose(u"Segs(0)"_s);
  QCoreApplication::processEvents();
  EXPECT_FALSE(Find(window, u"Size3"_s)->isVisible());
  EXPECT_EQ(window->size(), before.at(window).size());
  for (const auto& [widget, box] : Boxes()) {
    EXPECT_TRUE(before.contains(widget) && before.at(widget) == box) << Called(widget);
  }
  Choose(u"Segs(1)"_s);
  ExpectAllAsBefore();
}

TEST_F(AVISplitStays, WithEveryFrameRateAndTheMostFrames) {
  for (const auto& name : {u"System(1)"_s, u"System(2)"_s, u"System(0)"_s}) {
    Choose(name);
    ExpectAllAsBefore();
  }
  Enter(u"Frames"_s, u"99999999"_s);
  ASSERT_EQ(Find<QLineEdit>(window, u"SetF(1)"_s)->text(), u"99999999"_s);
  ExpectAllAsBefore();
}

class AspectRaStays : public GeometryStays {
 protected:
  void SetUp() override { Start("AspectRa"); }
};

TEST_F(AspectRaStays, WithEveryRatio) {
  Find<QAbstractButton>(window, u"AspectR(2)"_s)->click();
  for (const auto& ratio : {u"0.01"_s, u"2.35"_s, u"99.999"_s, u"0"_s}) {
    Enter(u"AR2"_s, ratio);
    ExpectAllAsBefore();
  }
  Find<QAbstractButton>(window, u"AspectR(0)"_s)->click();
  ASSERT_EQ(TextOf(u"Stats(5)"_s), u"N/A"_s);
  ExpectAllAsBefore();
}

class AdvancedStays : public GeometryStays {
 protected:
  void SetUp() override { Start("Advanced"); }
};

TEST_F(AdvancedStays, WithEveryOptionAndBox) {
  for (const auto& name :
       {u"InterlOpt(1)"_s, u"InterlOpt(3)"_s, u"InterlOpt(4)"_s, u"AOver"_s, u"VOver"_s}) {
    Find<QAbstractButton>(window, name)->click();
    ExpectAllAsBefore();
  }
}

class FilmStays : public GeometryStays, public ::testing::WithParamInterface<std::string> {
 protected:
  void SetUp() override { Start(GetParam()); }
};

TEST_P(FilmStays, WhileItIsReadAndWhenItHasFilledTheWindow) {
  auto film = SampleFilm();
  film.seconds = 6151;  // 102.517 minutes
  ASSERT_TRUE(DropFile(window, QString(60, u'w') + u".avi"_s));
  ExpectNothingMoved();
  films.Last().calls.progress(100);
  ExpectNothingMoved();
  films.Last().calls.ended(film);
  ExpectAllAsBefore();
  for (const auto* field : window->findChildren<QLineEdit*>()) {
    EXPECT_EQ(CutOff(field), "") << Called(field);
  }
}

INSTANTIATE_TEST_SUITE_P(Each, FilmStays,
                         ::testing::Values("BitrateCalc", "Advanced", "AudioCalc", "HDCalc",
                                           "AVISplit", "QuickC", "AspectRa"),
                         [](const auto& instance) { return instance.param; });

class WavNormStays : public GeometryStays {
 protected:
  void SetUp() override {
    Start("WavNorm");
    path = folder.filePath(QString(60, u'w') + u".wav"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const WavParts wav{
        .samples = std::string(0x40000, '\x40'), .channels = 6, .rate = 2147483647, .bits = 0x8000};
    const auto bytes = QByteArray::fromStdString(wav.Bytes());
    ASSERT_EQ(file.write(bytes), bytes.size());
  }

  void Push(const QString& button) {
    Find<QPushButton>(window, button)->click();
    RunToRest();
  }

  // What was hidden takes the room that was kept for it.
  void ExpectTheOthersStay() const {
    for (const auto& [widget, box] : Boxes()) {
      EXPECT_TRUE(!before.contains(widget) || before.at(widget) == box) << Called(widget);
      EXPECT_EQ(CutOff(widget), "") << Called(widget);
    }
  }

  QString path;
};

TEST_F(WavNormStays, FromTheOpenFileToTheEndOfAPass) {
  dialogs.paths = {path};
  Push(u"btnOpen"_s);
  ASSERT_EQ(TextOf(u"WavInfo2"_s), u"2147483647Hz"_s);
  ExpectTheOthersStay();
  clock.AdvanceAtEveryLook(1);
  int looks = 0;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, window, [&] {
    ++looks;
    ExpectTheOthersStay();
  });
  watch.start(0);
  Push(u"btnScan"_s);
  ASSERT_GT(looks, 1);
  ASSERT_EQ(TextOf(u"MaxV"_s), u"16448"_s);
  boxes.Answer(BoxAnswer::Ok);
  Push(u"btnNorm"_s);
  watch.stop();
  ExpectTheOthersStay();
}

TEST_F(WavNormStays, WithAnyTolerance) {
  for (const int value : {0, 30}) {
    Find<Slider>(window, u"Toler"_s)->setValue(value);
    ExpectAllAsBefore();
  }
}

}  // namespace
}  // namespace brindle
