// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/pass.h"

#include <string>
#include <vector>

#include <QString>
#include <gtest/gtest.h>

#include "tests/wav/fake_pass.h"
#include "wav/wav_error.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

class RunningToEnd : public ::testing::Test {
 protected:
  using Happened = std::vector<std::string>;

  // Runs the pass and says no where it is at this percentage; what it ended with.
  std::string Run(Pass& pass, int noAt = -1) {
    return StateText(RunToEnd(pass, [&](const PassProgress& progress) {
      happened.push_back("asked at " + std::to_string(progress.wholePercent));
      return progress.wholePercent != noAt;
    }));
  }

  Happened happened;
};

TEST_F(RunningToEnd, AsksAfterEachPieceButTheLast) {
  FakePass pass(happened, {GoesOnAt(10), GoesOnAt(60), PassCompleted()});
  EXPECT_EQ(Run(pass), "completed");
  EXPECT_EQ(happened, (Happened{"advance", "asked at 10", "advance", "asked at 60", "advance"}));
}

TEST_F(RunningToEnd, AsksNothingOfASinglePiece) {
  FakePass pass(happened, {PassCompleted()});
  EXPECT_EQ(Run(pass), "completed");
  EXPECT_EQ(happened, Happened{"advance"});
}

TEST_F(RunningToEnd, AbortsInPlaceOfTheNextPiece) {
  FakePass pass(happened, {GoesOnAt(10), GoesOnAt(60), PassCompleted()});
  EXPECT_EQ(Run(pass, 10), "aborted");
  EXPECT_EQ(happened, (Happened{"advance", "asked at 10", "abort"}));
}

TEST_F(RunningToEnd, EndsByAnError) {
  FakePass pass(happened,
                {GoesOnAt(10), WavError{WavError::Failed::Reading, {u"/a.wav"_s, u"gone"_s}}});
  EXPECT_EQ(Run(pass), "Cannot read /a.wav: gone");
  EXPECT_EQ(happened, (Happened{"advance", "asked at 10", "advance"}));
}

// A pass that has written everything does not end by an abort.
TEST_F(RunningToEnd, GoesOnWithAPassThatDoesNotEndByTheAbort) {
  FakePass pass(happened, {GoesOnAt(10), PassCompleted()});
  pass.whenAborted = {GoesOnAt(100)};
  EXPECT_EQ(Run(pass, 10), "completed");
  EXPECT_EQ(happened, (Happened{"advance", "asked at 10", "abort", "asked at 100", "advance"}));
}

}  // namespace
}  // namespace brindle
