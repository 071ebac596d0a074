// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "extras/start_up_entry.h"

#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <QString>
#include <gtest/gtest.h>

#include "tests/support/fakes.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

using Done = std::vector<std::string>;

constexpr auto Question =
    "The program will attempt to disable DivX pro's GAIN spyware by\r\n"
    "removing it from the registry. It has been tested under Win ME\r\n"
    "and XP for DivX 5.0 to 5.02. Are you sure you wish to continue?";
constexpr auto RunKey = "open SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr auto Success = "GAIN spyware was successfully disabled.";
constexpr auto Failure = "Error disabling GAIN spyware.";

// Boxes that add themselves to the list of registry calls when they open.
class NotingBoxes : public FakeBoxes {
 public:
  explicit NotingBoxes(Done& done) : done_(done) {}
  void Ask(QWidget* owner, const QString& text, BoxButtons buttons,
           const WhenAnswered& answered) override {
    done_.emplace_back("box");
    FakeBoxes::Ask(owner, text, buttons, answered);
  }

 private:
  Done& done_;
};

class StartUpEntry : public ::testing::Test {
 protected:
  StartUpEntry() {
    registry.key = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run"_s;
    registry.values = {u"Trickler"_s, u"Other"_s};
  }

  void Remove(std::optional<BoxAnswer> answer) {
    boxes.Answer(answer);
    boxes.Answer(BoxAnswer::Cancel);
    RemoveStartUpEntry(nullptr, boxes, registry);
  }

  void ExpectOutcome(const char* message) {
    ASSERT_EQ(boxes.asked.size(), 2U);
    EXPECT_EQ(boxes.asked.back().text, message);
    EXPECT_EQ(boxes.asked.back().buttons, BoxButtons::CancelTryAgainContinue);
  }

  FakeRegistry registry;
  NotingBoxes boxes{registry.done};
};

TEST_F(StartUpEntry, AsksFirst) {
  Remove(BoxAnswer::No);
  ASSERT_EQ(boxes.asked.size(), 1U);
  EXPECT_EQ(boxes.asked.front().text, Question);
  EXPECT_EQ(boxes.asked.front().buttons, BoxButtons::YesNo);
}

TEST_F(StartUpEntry, OnYesDeletesTheOneValueAndTellsBeforeTheKeyIsClosed) {
  Remove(BoxAnswer::Yes);
  EXPECT_EQ(registry.done, (Done{"box", RunKey, "delete Trickler", "box", "close"}));
  EXPECT_EQ(registry.values, std::set<QString>{u"Other"_s});
  ExpectOutcome(Success);
}

struct AnswerCase {
  const char* name = "";
  std::optional<BoxAnswer> answer;
};

void PrintTo(const AnswerCase& row, std::ostream* out) { *out << row.name; }

constexpr auto NameOfCase = [](const auto& instance) { return std::string(instance.param.name); };

class AnyOtherAnswer : public StartUpEntry, public ::testing::WithParamInterface<AnswerCase> {};

TEST_P(AnyOtherAnswer, TouchesNothing) {
  Remove(GetParam().answer);
  EXPECT_EQ(registry.done, Done{"box"});
  EXPECT_EQ(registry.values.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Each, AnyOtherAnswer,
                         ::testing::Values(AnswerCase{"No", BoxAnswer::No},
                                           AnswerCase{"Ok", BoxAnswer::Ok},
                                           AnswerCase{"Cancel", BoxAnswer::Cancel},
                                           AnswerCase{"TryAgain", BoxAnswer::TryAgain},
                                           AnswerCase{"Continue", BoxAnswer::Continue},
                                           AnswerCase{"TheEndOfTheProgram", std::nullopt}),
                         NameOfCase);

class AnswerToTheOutcome : public StartUpEntry, public ::testing::WithParamInterface<AnswerCase> {};

TEST_P(AnswerToTheOutcome, DoesNotMatter) {
  boxes.Answer(BoxAnswer::Yes);
  boxes.Answer(GetParam().answer);
  RemoveStartUpEntry(nullptr, boxes, registry);
  EXPECT_EQ(registry.done, (Done{"box", RunKey, "delete Trickler", "box", "close"}));
  EXPECT_EQ(boxes.asked.size(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Each, AnswerToTheOutcome,
                         ::testing::Values(AnswerCase{"Cancel", BoxAnswer::Cancel},
                                           AnswerCase{"TryAgain", BoxAnswer::TryAgain},
                                           AnswerCase{"Continue", BoxAnswer::Continue},
                                           AnswerCase{"TheEndOfTheProgram", std::nullopt}),
                         NameOfCase);

TEST_F(StartUpEntry, TheSecondTimeIsAnError) {
  Remove(BoxAnswer::Yes);
  boxes.asked.clear();
  Remove(BoxAnswer::Yes);
  ExpectOutcome(Failure);
  EXPECT_EQ(registry.values, std::set<QString>{u"Other"_s});
}

TEST_F(StartUpEntry, AValueThatIsNotThereIsAnError) {
  registry.values = {u"Other"_s};
  Remove(BoxAnswer::Yes);
  ExpectOutcome(Failure);
}

TEST_F(StartUpEntry, AKeyThatMayNotBeWrittenIsAnErrorAndKeepsTheValue) {
  registry.isReadOnly = true;
  Remove(BoxAnswer::Yes);
  ExpectOutcome(Failure);
  EXPECT_EQ(registry.values.size(), 2U);
}

TEST_F(StartUpEntry, FromAKeyThatDoesNotOpenTheDeletionIsTriedAllTheSame) {
  registry.key = u"SOFTWARE"_s;
  Remove(BoxAnswer::Yes);
  EXPECT_EQ(registry.done,
            (Done{"box", RunKey, "delete from nothing Trickler", "box", "close nothing"}));
  ExpectOutcome(Failure);
}

TEST_F(StartUpEntry, AnyNamedValueOfAnyKeyCanBeDeleted) {
  registry.key = u"A\\B"_s;
  boxes.Answer(BoxAnswer::Continue);
  DeleteRunValue(nullptr, boxes, registry, RegistryRoot::LocalMachine, u"A\\B"_s, u"Other"_s);
  EXPECT_EQ(registry.done, (Done{"open A\\B", "delete Other", "box", "close"}));
  EXPECT_EQ(registry.values, std::set<QString>{u"Trickler"_s});
}

}  // namespace
}  // namespace brindle
