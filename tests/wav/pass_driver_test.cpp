// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/pass_driver.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QApplication>
#include <QDialog>
#include <QObject>
#include <QString>
#include <gtest/gtest.h>

#include "tests/support/fake_clock.h"
#include "tests/support/named_case.h"
#include "tests/wav/fake_pass.h"
#include "wav/pass.h"
#include "wav/wav_error.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

using Happened = std::vector<std::string>;

// Each turn of the event loop is one call of RunDue().
class DrivenPass : public ::testing::Test {
 protected:
  void Drive(Pass& pass) {
    driver->Drive(pass,
                  [this](const PassState& end) { happened.push_back("ended " + StateText(end)); });
  }

  // An event that waits from now on.
  void PostEvent(const std::string& name) {
    clock.After(0, &receiver, [this, name] { happened.push_back(name); });
  }

  // What happened since the last call.
  Happened Since() { return std::exchange(happened, {}); }

  void ExpectNothingMore() {
    clock.Advance(10);
    EXPECT_EQ(Since(), Happened());
    EXPECT_EQ(clock.Waiting(), 0U);
  }

  QObject receiver;
  Happened happened;
  bool isAborted = false;
  FakeClock clock;
  std::unique_ptr<PassDriver> driver = std::make_unique<PassDriver>(
      clock,
      [this](const PassProgress& progress) {
        happened.push_back("shown " + std::to_string(progress.wholePercent));
      },
      [this] {
        happened.emplace_back("is aborted?");
        return isAborted;
      });
};

// A dialog that stops the whole program.
class ModalDialog {
 public:
  ModalDialog() {
    dialog_.setModal(true);
    dialog_.show();
    EXPECT_EQ(QApplication::activeModalWidget(), &dialog_);
  }
  void Close() { dialog_.close(); }

 private:
  QDialog dialog_;
};

TEST_F(DrivenPass, WorksItsFirstPieceAtOnceAndOneAtEachTurn) {
  FakePass pass(happened, {GoesOnAt(10), GoesOnAt(60), PassCompleted()});
  Drive(pass);
  EXPECT_EQ(Since(), (Happened{"advance", "shown 10"}));
  EXPECT_TRUE(clock.RunDue());
  EXPECT_EQ(Since(), (Happened{"is aborted?", "advance", "shown 60"}));
  EXPECT_TRUE(clock.RunDue());
  EXPECT_EQ(Since(), (Happened{"is aborted?", "advance", "ended completed"}));
  ExpectNothingMore();
}

TEST_F(DrivenPass, OfOnePieceEndsAtOnce) {
  FakePass pass(happened, {PassCompleted()});
  Drive(pass);
  EXPECT_EQ(Since(), (Happened{"advance", "ended completed"}));
  ExpectNothingMore();
}

TEST_F(DrivenPass, ShowsItsProgressBeforeTheEventsThatWait) {
  FakePass pass(happened, {GoesOnAt(10), PassCompleted()});
  PostEvent("click");
  Drive(pass);
  EXPECT_EQ(Since(), (Happened{"advance", "shown 10"}));
  clock.RunDue();
  EXPECT_EQ(Since(), (Happened{"click", "is aborted?", "advance", "ended completed"}));
}

TEST_F(DrivenPass, IsAbortedAtTheNextTurnOnly) {
  FakePass pass(happened, {GoesOnAt(10), GoesOnAt(60), PassCompleted()});
  isAborted = true;
  Drive(pass);
  EXPECT_EQ(Since(), (Happened{"advance", "shown 10"}));
  clock.RunDue();
  EXPECT_EQ(Since(), (Happened{"is aborted?", "abort", "ended aborted"}));
  ExpectNothingMore();
}

TEST_F(DrivenPass, IsAbortedByAnEventOfItsTurn) {
  FakePass pass(happened, {GoesOnAt(10), GoesOnAt(60), PassCompleted()});
  clock.After(0, &receiver, [this] { isAborted = true; });
  Drive(pass);
  clock.RunDue();
  EXPECT_EQ(Since(), (Happened{"advance", "shown 10", "is aborted?", "abort", "ended aborted"}));
}

// A pass that has written everything does not end by an abort.
TEST_F(DrivenPass, GoesOnWhereItDoesNotEndByTheAbort) {
  FakePass pass(happened, {GoesOnAt(10)});
  pass.whenAborted = {GoesOnAt(100), PassCompleted()};
  isAborted = true;
  Drive(pass);
  clock.RunDue();
  clock.RunDue();
  EXPECT_EQ(Since(), (Happened{"advance", "shown 10", "is aborted?", "abort", "shown 100",
                               "is aborted?", "abort", "ended completed"}));
  ExpectNothingMore();
}

struct EndCase {
  std::string name;
  PassState end;
  std::string told;
};

class EndOfADrivenPass : public DrivenPass, public ::testing::WithParamInterface<EndCase> {};

TEST_P(EndOfADrivenPass, IsToldAsItIs) {
  for (const bool isLater : {false, true}) {
    std::deque<PassState> pieces;
    if (isLater) {
      pieces.push_back(GoesOnAt(10));
    }
    pieces.push_back(GetParam().end);
    FakePass pass(happened, pieces);
    Drive(pass);
    clock.RunDue();
    EXPECT_EQ(Since().back(), "ended " + GetParam().told);
    ExpectNothingMore();
  }
}

INSTANTIATE_TEST_SUITE_P(
    Each, EndOfADrivenPass,
    ::testing::Values(EndCase{"Completed", PassCompleted(), "completed"},
                      EndCase{"Aborted", PassAborted(), "aborted"},
                      EndCase{"NotRead",
                              WavError{WavError::Failed::Reading, {u"/a.wav"_s, u"gone"_s}},
                              "Cannot read /a.wav: gone"},
                      EndCase{"NotWritten",
                              WavError{WavError::Failed::Writing, {u"/b.wav"_s, u"full"_s}},
                              "Cannot write /b.wav: full"}),
    NameOf);

TEST_F(DrivenPass, MayBeDestroyedByItsEndWhichMayDriveTheNext) {
  FakePass next(happened, {PassCompleted()});
  std::optional<FakePass> pass;
  pass.emplace(happened, std::deque<PassState>{GoesOnAt(10), PassAborted()});
  driver->Drive(*pass, [&](const PassState& end) {
    happened.push_back("ended " + StateText(end));
    pass.reset();
    Drive(next);
  });
  clock.RunDue();
  EXPECT_EQ(Since(), (Happened{"advance", "shown 10", "is aborted?", "advance", "ended aborted",
                               "advance", "ended completed"}));
  ExpectNothingMore();
}

TEST_F(DrivenPass, IsForgottenByStopAndMayBeDestroyedThen) {
  std::optional<FakePass> pass;
  pass.emplace(happened, std::deque<PassState>{GoesOnAt(10)});
  Drive(*pass);
  Since();
  driver->Stop();
  pass.reset();
  ExpectNothingMore();
}

TEST_F(DrivenPass, IsForgottenByAStopUnderADialog) {
  FakePass pass(happened, {GoesOnAt(10)});
  Drive(pass);
  ModalDialog dialog;
  clock.RunDue();
  Since();
  driver->Stop();
  dialog.Close();
  ExpectNothingMore();
}

TEST_F(DrivenPass, StartsAfterAStopLikeTheFirst) {
  FakePass first(happened, {GoesOnAt(10)});
  FakePass second(happened, {GoesOnAt(20), PassCompleted()});
  Drive(first);
  driver->Stop();
  Drive(second);
  Since();
  clock.RunDue();
  EXPECT_EQ(Since(), (Happened{"is aborted?", "advance", "ended completed"}));
  ExpectNothingMore();
}

TEST_F(DrivenPass, EndsWithItsDriver) {
  FakePass pass(happened, {GoesOnAt(10)});
  Drive(pass);
  Since();
  driver.reset();
  ExpectNothingMore();
}

TEST_F(DrivenPass, IsHeldByAnOpenDialog) {
  FakePass pass(happened, {GoesOnAt(10), PassCompleted()});
  Drive(pass);
  Since();
  ModalDialog dialog;
  clock.RunDue();
  clock.Advance(5);
  EXPECT_EQ(Since(), Happened());
  dialog.Close();
  clock.Advance(0.02);
  EXPECT_EQ(Since(), (Happened{"is aborted?", "advance", "ended completed"}));
  ExpectNothingMore();
}

class AfterTheEvents : public DrivenPass {
 protected:
  void LogAfterEvents(const std::string& name) {
    driver->AfterEvents([this, name] { happened.push_back(name); });
  }
};

TEST_F(AfterTheEvents, AnActionRunsAtTheNextTurn) {
  PostEvent("click");
  LogAfterEvents("action");
  EXPECT_EQ(Since(), Happened());
  clock.RunDue();
  EXPECT_EQ(Since(), (Happened{"click", "action"}));
  ExpectNothingMore();
}

TEST_F(AfterTheEvents, AnActionOfAnActionWaitsForOneMoreTurn) {
  driver->AfterEvents([this] {
    happened.emplace_back("first");
    PostEvent("click");
    LogAfterEvents("second");
  });
  clock.RunDue();
  EXPECT_EQ(Since(), Happened{"first"});
  clock.RunDue();
  EXPECT_EQ(Since(), (Happened{"click", "second"}));
}

TEST_F(AfterTheEvents, AnActionWaitsForAnOpenDialog) {
  LogAfterEvents("action");
  ModalDialog dialog;
  clock.Advance(5);
  EXPECT_EQ(Since(), Happened());
  dialog.Close();
  clock.Advance(0.02);
  EXPECT_EQ(Since(), Happened{"action"});
}

TEST_F(AfterTheEvents, AnActionIsForgottenByStop) {
  LogAfterEvents("action");
  driver->Stop();
  ExpectNothingMore();
}

}  // namespace
}  // namespace brindle
