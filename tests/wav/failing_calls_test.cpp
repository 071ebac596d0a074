// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Disks that refuse: each call of each kind fails in turn, once or for good, during a pass, its
// undo and its end. What went wrong is said in one message, and no recording is lost.

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <regex>
#include <string>
#include <utility>
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

using Call = MemoryDisk::Call;

// Levels share new ones, so that the record keeps bits.
const RecordedPass How{.gain = 4};

struct FailingCase {
  std::string name;
  Call call = Call::Write;
};

const std::vector<FailingCase> Cases{
    {"Open", Call::Open},           {"Read", Call::Read},     {"Write", Call::Write},
    {"SetLength", Call::SetLength}, {"Sync", Call::Sync},     {"Create", Call::Create},
    {"Remove", Call::Remove},       {"Rename", Call::Rename}, {"SyncFolder", Call::SyncFolder},
};

// Fails the call of this number, counted from 0, and all later ones if it is `forGood`. `*asked` is
// how many there were.
MemoryDisk::Fails FailsAt(Call call, int number, bool forGood, std::shared_ptr<int> asked) {
  return [=](Call asking, const std::string&) {
    if (asking != call) {
      return false;
    }
    const int now = (*asked)++;
    return now == number || (forGood && now > number);
  };
}

bool IsOneMessage(std::string end) {
  std::replace(end.begin(), end.end(), '\\', '/');  // as some systems write paths
  static const std::regex message(
      "(no record: )?Cannot (read|write) (/music/recording\\.wav|/state(/[0-9a-f]{16}\\.undo)?): "
      "the disk refuses");
  return std::regex_match(end, message);
}

class FailingCalls : public ::testing::TestWithParam<FailingCase> {
 protected:
  using Task = std::function<std::string(const MemoryDisk&)>;

  void SetUp() override {
    original_ = WavParts{.samples = Noise(2 * Block + 500)}.Bytes();
    MemoryDisk disk(Before());
    ASSERT_EQ(NormalizeOn(disk, How), "completed");
    mapped_ = *disk.Bytes(Recording);
  }

  [[nodiscard]] DiskImage Before() const { return {{Recording, original_}}; }
  static std::string Normalize(const MemoryDisk& disk) { return NormalizeOn(disk, How); }
  static std::string Undo(const MemoryDisk& disk) { return UndoOn(disk); }
  static std::string Finish(const MemoryDisk& disk) { return FinishOn(disk); }

  void ExpectNothingLost(const DiskImage& before, const Task& task) const {
    for (const bool forGood : {false, true}) {
      // A disk that is dead from one of three calls on is much like one that dies at the next.
      const int step = forGood && !qEnvironmentVariableIsSet("BRINDLE_TEST_LONG") ? 3 : 1;
      bool hasFailed = true;
      for (int number = 0; hasFailed; number += step) {
        SCOPED_TRACE("call " + std::to_string(number) + (forGood ? " and all later" : ""));
        MemoryDisk disk(before);
        const auto asked = std::make_shared<int>(0);
        disk.SetFailure(FailsAt(GetParam().call, number, forGood, asked));
        const auto end = task(disk);
        hasFailed = *asked > number;
        // Looking for records passes over those that cannot be read now.
        EXPECT_TRUE(end == "completed" || end == "no record" || IsOneMessage(end)) << end;
        disk.SetFailure({});
        ExpectBothWays(disk);
        if (HasFailure()) {
          return;
        }
      }
    }
  }

 private:
  void ExpectBothWays(const MemoryDisk& disk) const {
    if (RecordsOn(disk).Find().empty()) {
      EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), original_), "none");
      EXPECT_EQ(disk.Files().size(), 1U) << "something is left behind";
      return;
    }
    const MemoryDisk finished(disk.Files());
    EXPECT_EQ(UndoOn(disk), "completed");
    EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), original_), "none");
    EXPECT_EQ(disk.Files().size(), 1U);
    EXPECT_EQ(FinishOn(finished), "completed");
    EXPECT_EQ(FirstDifference(*finished.Bytes(Recording), mapped_), "none");
  }

  std::string original_;
  std::string mapped_;
};

TEST_P(FailingCalls, DuringAPass) { ExpectNothingLost(Before(), Normalize); }

TEST_P(FailingCalls, DuringTheUndoOfAWholePass) {
  const MemoryDisk disk(Before());
  ASSERT_EQ(NormalizeOn(disk, How), "completed");
  ExpectNothingLost(disk.Files(), Undo);
}

TEST_P(FailingCalls, DuringTheUndoOfAnAbortedPass) {
  const MemoryDisk disk(Before());
  ASSERT_EQ(NormalizeOn(disk, How, 0), "aborted");
  ExpectNothingLost(disk.Files(), Undo);
}

TEST_P(FailingCalls, DuringTheEndOfAnAbortedPass) {
  const MemoryDisk disk(Before());
  ASSERT_EQ(NormalizeOn(disk, How, 0), "aborted");
  ExpectNothingLost(disk.Files(), Finish);
}

TEST_P(FailingCalls, DuringTheEndOfAHalfUndonePass) {
  const MemoryDisk disk(Before());
  ASSERT_EQ(NormalizeOn(disk, How), "completed");
  ASSERT_EQ(UndoOn(disk, 2), "aborted");
  ExpectNothingLost(disk.Files(), Finish);
}

INSTANTIATE_TEST_SUITE_P(Calls, FailingCalls, ::testing::ValuesIn(Cases), NameOf);

// Nothing of the recording has changed, and nothing is left behind, unless even that cannot be
// removed.
TEST(FailingRecord, LeavesNothingBehind) {
  const auto original = WavParts{.samples = Noise(Block)}.Bytes();
  for (const auto call :
       {Call::Create, Call::Write, Call::SetLength, Call::Sync, Call::SyncFolder}) {
    const auto asked = std::make_shared<int>(0);
    MemoryDisk disk({{Recording, original}});
    disk.SetFailure(FailsAt(call, 0, true, asked));
    const auto end = NormalizeOn(disk, How);
    EXPECT_TRUE(end.starts_with("no record: ") && IsOneMessage(end)) << end;
    EXPECT_EQ(disk.Files(), (DiskImage{{Recording, original}}));
  }
}

}  // namespace
}  // namespace brindle
