// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// What a crash at any moment leaves of a recording: a pass or an undo is cut off after each of its
// calls to the disk, with every kind of selection of what had reached it. Finishing then gives
// exactly what an undisturbed pass gives, and undoing exactly the original.

#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include <QtGlobal>
#include <gtest/gtest.h>

#include "tests/support/named_case.h"
#include "tests/wav/memory_disk.h"
#include "tests/wav/normalization_support.h"
#include "tests/wav/wav_builder.h"
#include "tests/wav/way_back_support.h"

namespace brindle {
namespace {

struct CrashCase {
  std::string name;
  RecordedPass pass;
  std::size_t dataBytes = 0;
  std::string behind;
};

const std::vector<CrashCase> Cases{
    {"Amplified", {.gain = 2, .levels = {.lowest = -12000, .highest = 12000}}, 3 * Block + 500, ""},
    {"CutOff", {.gain = 4}, 2 * Block + 501, "chunk"},
    {"Halved", {.gain = 0.5, .buffering = Buffering::Multi}, 2 * Block + 100, ""},
};

class Crash : public ::testing::TestWithParam<CrashCase> {
 protected:
  void SetUp() override {
    const auto& row = GetParam();
    original_ = WavParts{.samples = Noise(row.dataBytes), .behind = row.behind}.Bytes();
    before_ = {{Recording, original_}};
    MemoryDisk disk(before_);
    ASSERT_EQ(NormalizeOn(disk, row.pass), "completed");
    log_ = disk.Log();
    after_ = disk.Files();
    mapped_ = *disk.Bytes(Recording);
    ASSERT_NE(mapped_, original_);
  }

  // How many selections there are for each moment.
  static std::size_t Selections(std::size_t moments) {
    const std::size_t all = qEnvironmentVariableIsSet("BRINDLE_TEST_LONG") ? 2500 : 60;
    return all / moments + 1;
  }

  // Whichever way is taken from here, nothing is lost.
  void ExpectBothWays(const DiskImage& image, const std::string& moment) const {
    const MemoryDisk first(image);
    const auto records = RecordsOn(first).Find();
    if (records.empty()) {
      EXPECT_EQ(FirstDifference(*first.Bytes(Recording), original_), "none") << moment;
      return;
    }
    ASSERT_EQ(records.size(), 1U) << moment;
    const MemoryDisk second(first.Files());
    EXPECT_EQ(UndoOn(first), "completed") << moment;
    EXPECT_EQ(FirstDifference(*first.Bytes(Recording), original_), "none") << "undo " << moment;
    EXPECT_EQ(first.Files().size(), 1U) << moment;
    EXPECT_EQ(FinishOn(second), "completed") << moment;
    EXPECT_EQ(FirstDifference(*second.Bytes(Recording), mapped_), "none") << "finish " << moment;
    EXPECT_EQ(UndoOn(second), "completed") << moment;
    EXPECT_EQ(FirstDifference(*second.Bytes(Recording), original_), "none") << "both " << moment;
  }

  void ExpectBothWaysAtAnyMoment(const DiskImage& before,
                                 const std::vector<MemoryDisk::Logged>& log) const {
    std::mt19937 random(20261122);  // NOLINT(cert-msc51-cpp): the same crashes every time
    for (std::size_t calls = 0; calls <= log.size(); ++calls) {
      for (std::size_t i = 0; i < Selections(log.size() + 1); ++i) {
        ExpectBothWays(AfterCrash(before, log, calls, random),
                       "after " + std::to_string(calls) + " calls, selection " + std::to_string(i));
        if (HasFailure()) {
          return;
        }
      }
    }
  }

  [[nodiscard]] const DiskImage& Before() const { return before_; }
  [[nodiscard]] const DiskImage& After() const { return after_; }
  [[nodiscard]] const std::vector<MemoryDisk::Logged>& Log() const { return log_; }

 private:
  std::string original_;
  std::string mapped_;
  DiskImage before_;
  DiskImage after_;
  std::vector<MemoryDisk::Logged> log_;
};

TEST_P(Crash, DuringAPass) { ExpectBothWaysAtAnyMoment(Before(), Log()); }

TEST_P(Crash, DuringTheUndoOfAWholePass) {
  const MemoryDisk disk(After());
  ASSERT_EQ(UndoOn(disk), "completed");
  ExpectBothWaysAtAnyMoment(After(), disk.Log());
}

TEST_P(Crash, DuringTheUndoOrTheEndOfAnAbortedPass) {
  const MemoryDisk aborted(Before());
  ASSERT_EQ(NormalizeOn(aborted, GetParam().pass, 1), "aborted");
  const MemoryDisk undone(aborted.Files());
  ASSERT_EQ(UndoOn(undone), "completed");
  ExpectBothWaysAtAnyMoment(aborted.Files(), undone.Log());
  const MemoryDisk finished(aborted.Files());
  ASSERT_EQ(FinishOn(finished), "completed");
  ExpectBothWaysAtAnyMoment(aborted.Files(), finished.Log());
}

INSTANTIATE_TEST_SUITE_P(Cases, Crash, ::testing::ValuesIn(Cases), NameOf);

}  // namespace
}  // namespace brindle
