// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <string>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QString>
#include <gtest/gtest.h>

#include "base/input/editable_list.h"
#include "gallery/recording.h"
#include "tests/contract/any_window.h"
#include "tests/help/help_page.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// Somebody reads the example of a page and follows it step by step in the real windows. They begin
// with the built-in settings; the file to open is a recording of one minute and forty seconds.
class HelpExample : public AnyWindow, public ::testing::WithParamInterface<std::string> {
 protected:
  void SetUp() override {
    const QString recording = folder.filePath(u"Concert in Lisbon.wav"_s);
    if (GetParam() == "WavNorm") {
      ASSERT_TRUE(WriteRecording(recording));
    }
    dialogs.paths.push_back(recording);
    boxes.Answer(BoxAnswer::Ok);
  }

  QWidget* WindowNamed(const QString& name) {
    for (auto* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->objectName() == name) {
        window->activateWindow();
        WaitForActive(window);
        return window;
      }
    }
    return name == u"MainProg"_s ? OpenByName("MainProg") : Open(Listed().at(name.toStdString()));
  }

  static QLineEdit* FieldOf(QWidget* control) {
    auto* list = qobject_cast<EditableList*>(control);
    return list != nullptr ? list->Field() : qobject_cast<QLineEdit*>(control);
  }

  static std::string Shown(QWidget* control) {
    if (auto* field = FieldOf(control)) {
      return field->text().toStdString();
    }
    if (auto* choice = qobject_cast<QComboBox*>(control)) {
      return choice->currentText().toStdString();
    }
    if (auto* button = qobject_cast<QAbstractButton*>(control)) {
      return button->text().toStdString();
    }
    if (auto* slider = qobject_cast<QSlider*>(control)) {
      return std::to_string(slider->value());
    }
    auto* label = qobject_cast<QLabel*>(control);
    return label != nullptr ? label->text().toStdString() : "(shows nothing)";
  }

  // From the first entry or the lower end, one key at a time.
  static void StepTo(QWidget* control, Qt::Key step, const std::string& text) {
    constexpr int most = 400;
    TabTo(control);
    Key(Qt::Key_Home);
    for (int i = 0; i < most && Shown(control) != text; ++i) {
      Key(step);
    }
  }

  void Do(QWidget* control, const QString& text) {
    const auto expected = text.toStdString();
    if (auto* field = FieldOf(control)) {
      Click(field);
      TypeOver(text);
      EXPECT_EQ(Shown(control), expected);
    } else if (qobject_cast<QComboBox*>(control) != nullptr) {
      StepTo(control, Qt::Key_Down, expected);
      EXPECT_EQ(Shown(control), expected);
    } else if (qobject_cast<QSlider*>(control) != nullptr) {
      StepTo(control, Qt::Key_Right, expected);
      EXPECT_EQ(Shown(control), expected);
    } else {
      EXPECT_EQ(Shown(control), expected);
      Click(control);  // may close its window
      RunToRest();
    }
  }
};

TEST_P(HelpExample, ComesOutAsItSays) {
  const auto page = ReadHelpPage(QString::fromStdString(GetParam()));
  int shown = 0;
  for (const auto& step : page.example) {
    const auto where = step.window.isEmpty() ? QString::fromStdString(GetParam()) : step.window;
    auto* control = Find(WindowNamed(where), step.control);
    ASSERT_NE(control, nullptr);
    ASSERT_TRUE(control->isVisible() && control->isEnabled()) << step.control.toStdString();
    if (step.kind == ExampleStep::Kind::Does) {
      Do(control, step.text);
    } else {
      EXPECT_EQ(Shown(control), step.text.toStdString())
          << where.toStdString() << '/' << step.control.toStdString();
      ++shown;
    }
  }
  EXPECT_GT(shown, 0) << "the example shows no result";
}

INSTANTIATE_TEST_SUITE_P(Each, HelpExample,
                         ::testing::Values("MainProg", "BitrateCalc", "Advanced", "AudioCalc",
                                           "HDCalc", "AVISplit", "QuickC", "AspectRa", "WavNorm"),
                         [](const auto& instance) { return instance.param; });

}  // namespace
}  // namespace brindle
