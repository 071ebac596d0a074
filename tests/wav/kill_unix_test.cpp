// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// A program that is killed at any moment of a pass, of its rest or of an undo.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

#include <QString>
#include <QtGlobal>
#include <gtest/gtest.h>

#include "base/time/clock.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/wav/normalization_support.h"
#include "tests/wav/wav_builder.h"
#include "tests/wav/way_back_support.h"
#include "wav/level_range.h"
#include "wav/way_back.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;
using Microseconds = std::chrono::microseconds;

class Killed : public ::testing::Test {
 protected:
  static constexpr double Amplification = 2.5;
  static constexpr std::size_t DataBytes = (2 * std::size_t{64} + 3) * Block + 501;

  void SetUp() override {
    original_ = WavParts{.samples = Noise(DataBytes), .behind = "behind"}.Bytes();
    folder_.Put("recording.wav", original_);
    whole_ = TimeOf([this] { ASSERT_EQ(Pass(), "completed"); });
    mapped_ = Recording();
    undo_ = TimeOf([this] { ASSERT_EQ(Undo(), "completed"); });
    ASSERT_EQ(FirstDifference(Recording(), original_), "none");
    ASSERT_NE(mapped_, original_);
  }

  static int Times(int usual, int all) {
    return qEnvironmentVariableIsSet("BRINDLE_TEST_LONG") ? all : usual;
  }

  // What comes of it, in words.
  [[nodiscard]] std::string Pass() const {
    const SystemClock clock;
    Normalization pass({.source = Path(), .isInPlace = true});
    if (const auto opened = pass.Open(); !opened) {
      return TextOf(opened);
    }
    const auto kept = Way().Keep(pass, Amplification, Buffering::Multi, {});
    if (!kept) {
      return CannotWrite(kept.error()).toStdString();
    }
    pass.Start(GainTable(Amplification), Buffering::Multi, clock);
    return brindle::Run(pass);
  }
  [[nodiscard]] std::string Finish() const {
    const SystemClock clock;
    auto way = Way();
    way.LookFor(Path());
    if (!way.IsInterrupted()) {
      return "nothing to finish";
    }
    const auto pass = way.Finish(clock);
    return pass ? brindle::Run(**pass) : TextOf(pass);
  }
  [[nodiscard]] std::string Undo() const {
    const SystemClock clock;
    auto way = Way();
    way.LookFor(Path());
    if (!way.IsThere()) {
      return "nothing to undo";
    }
    std::string end;
    if (const auto undo = way.Undo(clock)) {
      end = brindle::Run(**undo);
    }
    if (end == "completed") {
      way.Forget();
    }
    return end;
  }

  // Does it in a process of its own, which is killed at a moment up to `longest` later.
  void KillWithin(Microseconds longest, const std::function<void()>& action) {
    std::uniform_int_distribution<long> moment(0, longest.count());
    const pid_t child = fork();
    if (child == 0) {
      action();
      _exit(0);
    }
    ASSERT_GT(child, 0);
    usleep(static_cast<useconds_t>(moment(random_)));
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    killed_ += WIFSIGNALED(status) ? 1 : 0;
  }

  // Afterwards the recording is original, with no record of it.
  void ExpectUndone(const std::string& moment) const {
    const auto end = Undo();
    EXPECT_TRUE(end == "completed" || end == "nothing to undo") << end << ", " << moment;
    EXPECT_EQ(FirstDifference(Recording(), original_), "none") << moment;
  }
  void ExpectFinished(const std::string& moment) const {
    const auto end = Finish();
    EXPECT_TRUE(end == "completed" || end == "nothing to finish") << end << ", " << moment;
    const auto bytes = Recording();
    EXPECT_TRUE(bytes == mapped_ || (end == "nothing to finish" && bytes == original_)) << moment;
  }

  [[nodiscard]] Microseconds TimeOfPass() const { return whole_; }
  [[nodiscard]] Microseconds TimeOfUndo() const { return undo_; }
  [[nodiscard]] int KilledInTime() const { return killed_; }

 private:
  static Microseconds TimeOf(const std::function<void()>& action) {
    const auto begun = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration_cast<Microseconds>(std::chrono::steady_clock::now() - begun);
  }

  [[nodiscard]] QString Path() const { return folder_.PathOf("recording.wav"); }
  [[nodiscard]] std::string Recording() const { return folder_.Bytes("recording.wav"); }
  [[nodiscard]] WayBack Way() const { return WayBack(folder_.PathOf("records")); }

  TemporaryFolder folder_;
  std::string original_;
  std::string mapped_;
  Microseconds whole_{};
  Microseconds undo_{};
  std::mt19937 random_{20261122};  // NOLINT(cert-msc51-cpp): the same moments every time
  int killed_ = 0;
};

TEST_F(Killed, PassCanBeUndoneOrFinished) {
  const int times = Times(20, 1000);
  for (int i = 0; i < times && !HasFailure(); ++i) {
    const auto moment = "kill " + std::to_string(i);
    KillWithin(TimeOfPass(), [this] { static_cast<void>(Pass()); });
    if (i % 2 == 0) {
      ExpectFinished(moment);
    }
    ExpectUndone(moment);
  }
  EXPECT_GT(KilledInTime(), times / 4) << "most were over before they were killed";
}

TEST_F(Killed, UndoCanBeUndoneOrFinished) {
  const int times = Times(10, 300);
  for (int i = 0; i < times && !HasFailure(); ++i) {
    const auto moment = "kill " + std::to_string(i);
    ASSERT_EQ(Pass(), "completed");
    KillWithin(TimeOfUndo(), [this] { static_cast<void>(Undo()); });
    if (i % 2 == 0) {
      ExpectFinished(moment);
    }
    ExpectUndone(moment);
  }
  EXPECT_GT(KilledInTime(), times / 4) << "most were over before they were killed";
}

TEST_F(Killed, RestOfAPassCanBeUndoneOrFinished) {
  const int times = Times(5, 100);
  for (int i = 0; i < times && !HasFailure(); ++i) {
    const auto moment = "kill " + std::to_string(i);
    KillWithin(TimeOfPass(), [this] { static_cast<void>(Pass()); });
    KillWithin(TimeOfPass(), [this] { static_cast<void>(Finish()); });
    ExpectFinished(moment);
    ExpectUndone(moment);
  }
}

}  // namespace
}  // namespace brindle
