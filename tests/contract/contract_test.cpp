// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QString>
#include <QToolButton>
#include <QVariant>
#include <QWidget>
#include <gtest/gtest.h>

#include "base/input/link_label.h"
#include "shell/window_catalogue.h"
#include "tests/contract/any_window.h"
#include "tests/contract/contract_table.h"
#include "wav/sound_view.h"

namespace brindle {

namespace {

using namespace Qt::StringLiterals;

using NameList = std::vector<std::string>;

std::string NameOf(const QWidget* widget) { return widget->objectName().toStdString(); }

// The kind that a tool sees; empty for what is no control.
std::string KindOf(const QWidget* control) {
  if (const auto* list = qobject_cast<const QComboBox*>(control)) {
    return list->isEditable() ? "list" : "choice";
  }
  if (qobject_cast<const QGroupBox*>(control) != nullptr) {
    return "frame";
  }
  if (qobject_cast<const QSlider*>(control) != nullptr) {
    return "slider";
  }
  if (qobject_cast<const QProgressBar*>(control) != nullptr) {
    return "progress bar";
  }
  if (qobject_cast<const QLineEdit*>(control) != nullptr) {
    return "field";
  }
  if (qobject_cast<const QRadioButton*>(control) != nullptr) {
    return "option";
  }
  if (qobject_cast<const QCheckBox*>(control) != nullptr) {
    return "check box";
  }
  if (qobject_cast<const QToolButton*>(control) != nullptr) {
    return "spin button";
  }
  if (const auto* button = qobject_cast<const QPushButton*>(control)) {
    return button->icon().isNull() ? "button" : "picture button";
  }
  if (qobject_cast<const LinkLabel*>(control) != nullptr) {
    return "link";
  }
  if (qobject_cast<const SoundView*>(control) != nullptr) {
    return "picture";
  }
  if (const auto* label = qobject_cast<const QLabel*>(control)) {
    return label->pixmap(Qt::ReturnByValue).isNull() ? "label" : "picture";
  }
  return qobject_cast<const QFrame*>(control) != nullptr ? "line" : "";
}

std::string NameOf(Kind kind) {
  switch (kind) {
    case Kind::Picture:
      return "picture";
    case Kind::Label:
      return "label";
    case Kind::Button:
      return "button";
    case Kind::PictureButton:
      return "picture button";
    case Kind::SpinButton:
      return "spin button";
    case Kind::CheckBox:
      return "check box";
    case Kind::Option:
      return "option";
    case Kind::Field:
      return "field";
    case Kind::List:
      return "list";
    case Kind::Choice:
      return "choice";
    case Kind::Slider:
      return "slider";
    case Kind::Progress:
      return "progress bar";
    case Kind::Link:
      return "link";
    case Kind::Line:
      return "line";
    case Kind::Frame:
      return "frame";
  }
  return "";
}

std::string CaptionOf(const QWidget* control) {
  if (const auto* list = qobject_cast<const QComboBox*>(control)) {
    return list->currentText().toStdString();
  }
  if (const auto* field = qobject_cast<const QLineEdit*>(control)) {
    return field->text().toStdString();
  }
  if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
    return button->text().toStdString();
  }
  if (const auto* frame = qobject_cast<const QGroupBox*>(control)) {
    return frame->title().toStdString();
  }
  const auto* label = qobject_cast<const QLabel*>(control);
  return label != nullptr ? label->text().toStdString() : "";
}

std::string FrameOf(const QWidget* control) {
  for (const auto* outer = control->parentWidget(); outer != nullptr;
       outer = outer->parentWidget()) {
    if (const auto* frame = qobject_cast<const QGroupBox*>(outer)) {
      return frame->title().toStdString();
    }
  }
  return "";
}

// The name that was given, else the one that the toolkit makes of the caption.
std::string AccessibleNameOf(QWidget* control) {
  if (!control->accessibleName().isEmpty()) {
    return control->accessibleName().toStdString();
  }
  return QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name).toStdString();
}

// The text part of a list, what drops down from it, and all that these are made of.
bool IsPartOfAList(const QWidget* widget) {
  for (const auto* outer = widget->parentWidget(); outer != nullptr;
       outer = outer->parentWidget()) {
    if (qobject_cast<const QComboBox*>(outer) != nullptr) {
      return true;
    }
  }
  return false;
}

// Everything in a window that can be named, clicked or typed into; the parts of a list and the bare
// captions are none.
std::vector<QWidget*> ControlsIn(const QWidget* window) {
  std::vector<QWidget*> controls;
  for (auto* widget : window->findChildren<QWidget*>()) {
    const bool isNamed =
        !widget->objectName().isEmpty() && !widget->objectName().startsWith(u"qt_"_s);
    const bool isInteractive =
        widget->focusPolicy() != Qt::NoFocus || qobject_cast<QAbstractButton*>(widget) != nullptr;
    if (!IsPartOfAList(widget) && (isNamed || isInteractive)) {
      controls.push_back(widget);
    }
  }
  return controls;
}

class WindowContract : public AnyWindow, public ::testing::WithParamInterface<WindowRow> {
 protected:
  QWidget* OpenIt() { return OpenByName(GetParam().name); }
};

TEST_P(WindowContract, CarriesItsNameAndCaption) {
  const auto* window = OpenIt();
  EXPECT_EQ(NameOf(window), GetParam().name);
  EXPECT_EQ(window->windowTitle().toStdString(), GetParam().caption);
}

TEST_P(WindowContract, HasExactlyTheControlsOfTheTable) {
  std::multiset<std::string> found;
  for (const auto* control : ControlsIn(OpenIt())) {
    found.insert(NameOf(control));
  }
  std::multiset<std::string> expected;
  for (const auto& row : RowsOf(GetParam().name)) {
    expected.insert(row.name);
  }
  EXPECT_EQ(found, expected);
}

TEST_P(WindowContract, ShowsPlainTextEverywhere) {
  const auto* window = OpenIt();
  for (const auto* label : window->findChildren<QLabel*>()) {
    if (!label->text().isEmpty()) {
      EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
    }
  }
  for (const auto* widget : window->findChildren<QWidget*>()) {
    EXPECT_FALSE(Qt::mightBeRichText(widget->toolTip())) << NameOf(widget);
  }
}

// With every control shown and enabled: those that are not needed yet keep their place.
class TabOrder : public WindowContract {
 protected:
  QWidget* OpenEnabled() {
    auto* window = OpenIt();
    ShowAll(window);
    for (auto* control : ControlsIn(window)) {
      control->setEnabled(true);
    }
    return window;
  }

  // The options of an array are one stop: "DivX" for "DivX(0)" and "DivX(1)".
  static std::string StopOf(const std::string& name) { return name.substr(0, name.find('(')); }

  static NameList Expected() {
    std::map<int, std::string> places;
    for (const auto& row : RowsOf(GetParam().name)) {
      if (row.tab != NoTab) {
        const auto stop = StopOf(row.name);
        EXPECT_EQ(places.emplace(row.tab, stop).first->second, stop) << "two at " << row.tab;
      }
    }
    NameList stops;
    for (const auto& [place, stop] : places) {
      stops.push_back(stop);
    }
    return stops;
  }

  // The same, beginning with what has the focus now.
  static NameList ExpectedFrom(const QWidget* window) {
    auto stops = Expected();
    const auto* focused = window->focusWidget();
    const auto now = focused != nullptr ? StopOf(NameOf(ControlOf(focused))) : "none";
    std::rotate(stops.begin(), std::find(stops.begin(), stops.end(), now), stops.end());
    return stops;
  }

  // What has the focus at first and after each press of the key.
  static NameList Walk(const QWidget* window, Qt::Key key, std::size_t length) {
    NameList stops;
    for (std::size_t i = 0; i < length; ++i) {
      const auto* focused = window->focusWidget();
      stops.push_back(focused != nullptr ? StopOf(NameOf(ControlOf(focused))) : "none");
      Key(key);
    }
    return stops;
  }
};

TEST_P(TabOrder, BeginsWithTheFirstControlButNoPartOfARunningTime) {
  auto expected = Expected();
  if (GetParam().name == "QuickC") {
    expected.erase(expected.begin(), expected.begin() + 3);
  }
  EXPECT_EQ(Walk(OpenIt(), Qt::Key_Tab, 1).front(), expected.front());
}

TEST_P(TabOrder, IsReadingOrderAndComesRound) {
  auto* window = OpenEnabled();
  auto expected = ExpectedFrom(window);
  expected.push_back(expected.front());
  EXPECT_EQ(Walk(window, Qt::Key_Tab, expected.size()), expected);
}

TEST_P(TabOrder, AtEveryStopF1OpensTheHelpOfTheWindow) {
  auto* window = OpenEnabled();
  const auto stops = ExpectedFrom(window);
  for (std::size_t i = 0; i < stops.size(); ++i) {
    desktop.pages.clear();
    Key(Qt::Key_F1);
    EXPECT_EQ(desktop.pages, NameList{GetParam().name}) << stops.at(i);
    Key(Qt::Key_Tab);
  }
}

TEST_P(TabOrder, AtEveryStopEscapeClosesTheWindowUnlessItIsTheMainOne) {
  const auto count = Expected().size();
  for (std::size_t i = 0; i < count; ++i) {
    const QPointer<QWidget> window(OpenIt());
    Walk(window, Qt::Key_Tab, i);
    Key(Qt::Key_Escape);
    EXPECT_EQ(window != nullptr && window->isVisible(), GetParam().name == "MainProg") << i;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST_P(TabOrder, GoesBackTheSameWay) {
  auto* window = OpenEnabled();
  const auto names = ExpectedFrom(window);
  NameList expected{names.front()};
  expected.insert(expected.end(), names.rbegin(), names.rend());
  EXPECT_EQ(Walk(window, Qt::Key_Backtab, expected.size()), expected);
}

TEST_P(TabOrder, LeavesOutWhatIsDisabledOrHidden) {
  auto* window = OpenIt();
  std::set<std::string> left;
  for (const auto* control : ControlsIn(window)) {
    if (!control->isEnabled() || control->isHidden()) {
      left.insert(NameOf(control));
    }
  }
  auto expected = ExpectedFrom(window);
  std::erase_if(expected, [&](const auto& stop) { return left.contains(stop); });
  expected.push_back(expected.front());
  EXPECT_EQ(Walk(window, Qt::Key_Tab, expected.size()), expected);
}

std::vector<WindowRow> WindowsWithTabOrder() {
  auto rows = WindowRows();
  std::erase_if(rows, [](const auto& row) { return row.name == "Splash"; });
  return rows;
}

constexpr auto WindowName = [](const auto& instance) { return instance.param.name; };

INSTANTIATE_TEST_SUITE_P(Each, WindowContract, ::testing::ValuesIn(WindowRows()), WindowName);
INSTANTIATE_TEST_SUITE_P(Each, TabOrder, ::testing::ValuesIn(WindowsWithTabOrder()), WindowName);

// A window that is added to the catalogue, but not to the table of this test, is named here.
class Catalogued : public AnyWindow, public ::testing::WithParamInterface<CatalogueEntry> {
 protected:
  static std::string Name() { return GetParam().name.toString().toStdString(); }
};

TEST_P(Catalogued, IsTheWindowOfThisName) {
  const auto* window = Open(GetParam().id);
  EXPECT_EQ(NameOf(window), Name());
}

TEST_P(Catalogued, HasItsRowsInTheContractTable) {
  const auto& rows = WindowRows();
  EXPECT_EQ(
      std::count_if(rows.begin(), rows.end(), [](const auto& row) { return row.name == Name(); }),
      1)
      << Name() << " belongs into WindowRows()";
  EXPECT_FALSE(RowsOf(Name()).empty()) << Name() << " belongs into ControlRows()";
}

INSTANTIATE_TEST_SUITE_P(Each, Catalogued, ::testing::ValuesIn(AllWindows()),
                         [](const auto& instance) {
                           return instance.param.name.toString().toStdString();
                         });

class ControlContract : public AnyWindow, public ::testing::WithParamInterface<ControlRow> {
 protected:
  void SetUp() override {
    window = OpenByName(GetParam().window);
    control = Find(window, QString::fromStdString(GetParam().name));
    ASSERT_NE(control, nullptr);
  }

  // In a table the heading stands above: of several lines the first one counts.
  [[nodiscard]] bool BeginsWithAHeading(const std::string& text) const {
    for (const auto* label : window->findChildren<QLabel*>()) {
      const auto heading = label->text().section(u'\n', 0, 0).toStdString();
      if (heading.size() > 3 && text.starts_with(heading)) {
        return true;
      }
    }
    return false;
  }

  QWidget* window = nullptr;
  QWidget* control = nullptr;
};

TEST_P(ControlContract, HoldsWhatTheTableSays) {
  const auto& row = GetParam();
  EXPECT_EQ(KindOf(control), NameOf(row.kind));
  EXPECT_EQ(FrameOf(control), row.frame);
  EXPECT_EQ(CaptionOf(control), row.caption);
  EXPECT_EQ(control->toolTip().toStdString(), row.tooltip);
  EXPECT_EQ(AccessibleNameOf(control), row.accessibleName);
  EXPECT_EQ(control->isHidden(), row.isHidden);
  EXPECT_TRUE(window->isAncestorOf(control));
}

TEST_P(ControlContract, OfAnArrayItCarriesItsIndex) {
  const auto& row = GetParam();
  if (row.kind == Kind::Option) {
    const auto index = row.name.substr(row.name.find('(') + 1, 1);
    EXPECT_EQ(control->property("Index"), QVariant(std::atoi(index.c_str())));
  }
}

// Fields, lists, spin buttons, options and values of a frame are named by what a person sees on
// their line: the label or option that begins it, else the frame and the unit behind. What carries
// a caption of its own, or begins a line, is named by that.
TEST_P(ControlContract, IsNamedByWhatStandsBesideIt) {
  const auto& row = GetParam();
  const std::set<Kind> labelled{Kind::Field,  Kind::List,  Kind::SpinButton,
                                Kind::Option, Kind::Label, Kind::Link};
  // Several values share a line of the normalizer; they are named by the table alone.
  const bool isValueOfMany = row.window == "WavNorm" && row.kind == Kind::Label;
  if (row.window == "Splash" || !labelled.contains(row.kind) || isValueOfMany ||
      row.accessibleName == row.caption) {
    return;
  }
  std::string left;
  std::string right;
  int leftEdge = -1;
  for (const auto* other : control->parentWidget()->findChildren<QWidget*>()) {
    const auto middle = control->geometry().center().y();
    const auto text = CaptionOf(other);
    const bool isHead = KindOf(other) == "label" || KindOf(other) == "option";
    if (!isHead || text.empty() || other->geometry().top() > middle ||
        middle > other->geometry().bottom()) {
      continue;
    }
    if (other->x() > control->x()) {
      right = text;
    } else if (other->geometry().right() < control->x() &&
               (leftEdge < 0 || other->x() < leftEdge)) {
      left = text;
      leftEdge = other->x();
    }
  }
  const auto text = leftEdge >= 0 ? left : FrameOf(control) + " " + right;
  const NameList possible{text, text + " plus", text + " minus", text + " " + row.tooltip};
  const bool isNamedSo =
      std::find(possible.begin(), possible.end(), row.accessibleName) != possible.end();
  const bool isInATable = row.window == "AVISplit";
  EXPECT_TRUE(isNamedSo || (isInATable && BeginsWithAHeading(row.accessibleName)))
      << "beside it stands " << text;
}

INSTANTIATE_TEST_SUITE_P(Each, ControlContract, ::testing::ValuesIn(ControlRows()),
                         [](const auto& instance) { return IdentifierOf(instance.param); });

struct FigureRow {
  std::string window;
  std::string control;
};

void PrintTo(const FigureRow& row, std::ostream* out) { *out << row.window << '.' << row.control; }

// A field with a plus and a minus button, by the name of the field.
class Stepped : public AnyWindow, public ::testing::WithParamInterface<FigureRow> {
 protected:
  // What the field shows after something has been done to a window that was just opened.
  std::string After(const std::function<void(const QWidget* window, QWidget* field)>& action) {
    const QPointer<QWidget> window(OpenByName(GetParam().window));
    auto* field = Find(window, QString::fromStdString(GetParam().control));
    if (!field->isEnabled()) {
      Click(Find(window, u"Video(1)"_s));  // the option that enables it
    }
    action(window, field);
    const auto text = CaptionOf(field);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return text;
  }
  std::string AfterClickOn(const char* button) {
    record = before_;
    return After([&](const QWidget* window, QWidget* field) {
      Click(field);
      Click(Find(window, QString::fromStdString(GetParam().control + button)));
    });
  }
  std::string AfterKey(Qt::Key key) {
    record = before_;
    return After([&](const QWidget*, QWidget* field) {
      Click(field);
      Key(key);
    });
  }

 private:
  Settings before_ = record;
};

TEST_P(Stepped, UpAndDownDoWhatAClickOnPlusAndMinusDoes) {
  const auto more = AfterClickOn("P");
  const auto less = AfterClickOn("M");
  EXPECT_EQ(AfterKey(Qt::Key_Up), more);
  EXPECT_EQ(AfterKey(Qt::Key_Down), less);
  EXPECT_NE(more, less);
}

std::vector<FigureRow> SteppedFields() {
  std::vector<FigureRow> fields;
  for (const auto& row : ControlRows()) {
    if (row.kind == Kind::SpinButton && row.name.ends_with('P')) {
      fields.push_back({row.window, row.name.substr(0, row.name.size() - 1)});
    }
  }
  return fields;
}

INSTANTIATE_TEST_SUITE_P(Each, Stepped, ::testing::ValuesIn(SteppedFields()),
                         [](const auto& instance) {
                           return IdentifierOf(instance.param.window, instance.param.control);
                         });

// A figure that people carry away.
class Figure : public AnyWindow, public ::testing::WithParamInterface<FigureRow> {};

TEST_P(Figure, IsReachedByTabAndCopiedAsAPlainNumber) {
  const auto* window = OpenByName(GetParam().window);
  auto* control = Find(window, QString::fromStdString(GetParam().control));
  ASSERT_NE(control, nullptr);
  QApplication::clipboard()->setText(u"other"_s);
  TabTo(control);
  Key(Qt::Key_C, Qt::ControlModifier);
  const auto copied = QApplication::clipboard()->text().toStdString();
  EXPECT_EQ(copied, CaptionOf(control));
  EXPECT_FALSE(copied.empty());
  EXPECT_EQ(copied.find_first_not_of("0123456789."), std::string::npos) << copied;
}

INSTANTIATE_TEST_SUITE_P(
    Each, Figure,
    ::testing::Values(FigureRow{"BitrateCalc", "Result"}, FigureRow{"AudioCalc", "Result"},
                      FigureRow{"HDCalc", "Result"}, FigureRow{"AVISplit", "Size3"},
                      FigureRow{"AVISplit", "SetF(0)"}, FigureRow{"AVISplit", "SetF(1)"},
                      FigureRow{"AVISplit", "SetF(2)"}, FigureRow{"AVISplit", "SetF(3)"},
                      FigureRow{"AVISplit", "SetF(4)"}, FigureRow{"AVISplit", "SetF(5)"},
                      FigureRow{"AVISplit", "SetF(6)"}, FigureRow{"AVISplit", "SetF(7)"},
                      FigureRow{"QuickC", "Time1"}, FigureRow{"QuickC", "Time2"},
                      FigureRow{"QuickC", "Time3"}, FigureRow{"QuickC", "Min"},
                      FigureRow{"QuickC", "Frames"}, FigureRow{"QuickC", "B"},
                      FigureRow{"QuickC", "KB"}, FigureRow{"QuickC", "MB"},
                      FigureRow{"QuickC", "GB"}, FigureRow{"AspectRa", "HRESL"},
                      FigureRow{"AspectRa", "VRESL"}),
    [](const auto& instance) {
      return IdentifierOf(instance.param.window, instance.param.control);
    });

TEST(ContractTable, NamesEveryControlOnce) {
  std::set<std::string> seen;
  for (const auto& row : ControlRows()) {
    EXPECT_TRUE(seen.insert(row.window + "." + row.name).second) << row.window << "." << row.name;
  }
}

}  // namespace
}  // namespace brindle
