// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>

#include <QString>
#include <gtest/gtest.h>

#include "tests/shell/main_window.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

struct GuardedCase {
  const char* button = "";
  WindowId opens = WindowId::AspectRa;
};

void PrintTo(const GuardedCase& row, std::ostream* out) { *out << row.button; }

// The two buttons whose window may lack a shared library on the user's system.
class GuardedShow : public MainWindow, public ::testing::WithParamInterface<GuardedCase> {
 protected:
  // Starts the program with a window whose creation fails halfway, with this description.
  void StartWithFailure(const std::string& description) {
    windows.Add(GetParam().opens, [this, description]() -> std::unique_ptr<Form> {
      ++made;
      const Form half(u"Half"_s, u"Half"_s);
      throw std::runtime_error(description);
    });
    Start();
  }

  void ClickIt() { ClickOn(QString::fromLatin1(GetParam().button)); }

  static std::string Message(const std::string& file) {
    return "You are missing a shared library file (" + file +
           "). Please visit the program homepage\r\nat : https://example.org/brindle and download "
           "the FULL installation package.";
  }

  void ExpectMessage(const std::string& description, const std::string& file) {
    StartWithFailure(description);
    boxes.Answer(BoxAnswer::Cancel);
    ClickIt();
    ASSERT_EQ(boxes.asked.size(), 1U);
    EXPECT_EQ(boxes.asked.front().text, Message(file));
    EXPECT_EQ(boxes.asked.front().buttons, BoxButtons::CancelTryAgainContinue);
  }

  int made = 0;
};

TEST_P(GuardedShow, NamesTheMissingFile) {
  ExpectMessage("Component 'slide.ocx' or one of its parts is missing", "slide.ocx");
}

TEST_P(GuardedShow, NamesTheFirstOfTwoFiles) {
  ExpectMessage("'slide.ocx' needs 'slide.dll'", "slide.ocx");
}

TEST_P(GuardedShow, LeavesTheParenthesesEmptyWhereNoFileIsNamed) {
  ExpectMessage("Out of memory", "");
}

TEST_P(GuardedShow, LeavesTheParenthesesEmptyForASingleQuote) {
  ExpectMessage("It doesn't load", "");
}

TEST_P(GuardedShow, NamesAFileOfAnotherScriptAsItIs) {
  ExpectMessage("Component '%1 <b>音</b>.ocx' is missing", "%1 <b>音</b>.ocx");
}

TEST_P(GuardedShow, LeavesNoWindowAndTheMainWindowStanding) {
  StartWithFailure("Component 'slide.ocx' is missing");
  boxes.Answer(BoxAnswer::Cancel);
  ClickIt();
  for (const auto* window : QApplication::topLevelWidgets()) {
    EXPECT_TRUE(window == main.get() || !window->isVisible()) << window->objectName().toStdString();
  }
  EXPECT_TRUE(main->isVisible());
}

TEST_P(GuardedShow, TriesAgainAtTheNextClickOnly) {
  StartWithFailure("Component 'slide.ocx' is missing");
  for (const std::optional<BoxAnswer> answer :
       {std::optional(BoxAnswer::Cancel), std::optional(BoxAnswer::TryAgain),
        std::optional(BoxAnswer::Continue), std::optional<BoxAnswer>()}) {
    const int madeBefore = made;
    const auto askedBefore = boxes.asked.size();
    boxes.Answer(answer);
    ClickIt();
    EXPECT_EQ(made, madeBefore + 1);
    EXPECT_EQ(boxes.asked.size(), askedBefore + 1);
  }
}

TEST_P(GuardedShow, SaysNothingWhereTheWindowOpens) {
  windows.Add(GetParam().opens, [] { return std::make_unique<Form>(u"Whole"_s, u"Whole"_s); });
  Start();
  ClickIt();
  EXPECT_EQ(Standing(u"Whole"_s).size(), 1U);
  EXPECT_EQ(boxes.asked.size(), 0U);
}

TEST_P(GuardedShow, OpensTheWindowOnceItCanBeMade) {
  StartWithFailure("Component 'slide.ocx' is missing");
  boxes.Answer(BoxAnswer::TryAgain);
  ClickIt();
  windows.Add(GetParam().opens, [] { return std::make_unique<Form>(u"Whole"_s, u"Whole"_s); });
  ClickIt();
  EXPECT_EQ(Standing(u"Whole"_s).size(), 1U);
  EXPECT_EQ(boxes.asked.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Each, GuardedShow,
                         ::testing::Values(GuardedCase{"RAR", WindowId::AspectRa},
                                           GuardedCase{"Normalize", WindowId::WavNorm}),
                         [](const auto& instance) { return std::string(instance.param.button); });

}  // namespace
}  // namespace brindle
