// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Passes in place that have lost their way back, or nearly.

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <QSemaphore>
#include <QString>
#include <gtest/gtest.h>

#include "tests/wav/memory_disk.h"
#include "tests/wav/normalization_support.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/wav_builder.h"
#include "tests/wav/way_back_support.h"
#include "wav/buffering.h"
#include "wav/gain.h"
#include "wav/level_range.h"
#include "wav/normalization.h"
#include "wav/pass_record.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// The chunk after the samples has levels that the samples have not, and the loops map it, too: with
// it, the peaks of its piece share their new level with others.
TEST(WayBackCases, ChunkAfterTheSamplesTakesRoomForItsWholePiece) {
  constexpr std::int16_t peak = 16000;
  std::vector<std::int16_t> levels(30000);
  for (std::size_t i = 0; i < levels.size(); ++i) {
    levels[i] = i % 10 == 0 ? peak : static_cast<std::int16_t>(i % 15000);
  }
  const auto original = WavParts{.levels = levels, .behind = std::string(6000, 'z')}.Bytes();
  const MemoryDisk disk({{Recording, original}});
  EXPECT_EQ(NormalizeOn(disk, {.gain = 32767.0 / peak,
                               .buffering = Buffering::Multi,
                               .pieceSize = PassRecord::PieceSize,
                               .levels = {.lowest = 0, .highest = peak}}),
            "completed");
  EXPECT_EQ(UndoOn(disk), "completed");
  EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), original), "none");
}

TEST(WayBackCases, LevelsOfAnotherStateOfTheFileAreNotTrusted) {
  const MemoryDisk disk({{Recording, WavParts{.samples = Noise(Block)}.Bytes()}});
  Normalization pass({.source = RecordingPath(), .isInPlace = true}, disk);
  ASSERT_TRUE(pass.Open());
  const LevelRange quiet{.lowest = -12000, .highest = 12000};
  const auto roomFor = [&](const KnownLevels& known) {
    return pass.FactsFor(2, Buffering::Single, known)->bitsRoom;
  };
  const auto stamp = pass.FactsFor(2, Buffering::Single, {})->stamp;
  auto changed = stamp;
  ++changed.changed;
  EXPECT_LT(roomFor({.levels = quiet, .of = stamp}), roomFor({}));
  EXPECT_EQ(roomFor({.levels = quiet, .of = changed}), roomFor({}));
}

TEST(WayBackCases, ALaterPassIsTheNewestAlthoughTheClockWasSetBack) {
  const MemoryDisk disk({{Recording, WavParts{.samples = Noise(Block)}.Bytes()}});
  {
    const ReadClock clock;
    Normalization pass({.source = RecordingPath(), .isInPlace = true}, disk);
    ASSERT_TRUE(pass.Open());
    auto facts = *pass.FactsFor(1.5, Buffering::Single, {});
    const auto inAnHour =
        std::chrono::system_clock::now().time_since_epoch() + std::chrono::hours(1);
    facts.created = std::chrono::duration_cast<std::chrono::microseconds>(inAnHour).count();
    auto record =
        PassRecord::Create(disk, QString::fromUtf8(StateFolder) + u"/first.undo"_s, facts);
    ASSERT_TRUE(record);
    ASSERT_TRUE(pass.KeepRecord(std::move(*record)));
    pass.Start(GainTable(1.5), Buffering::Single, clock);
    ASSERT_EQ(brindle::Run(pass), "completed");
  }
  const auto once = *disk.Bytes(Recording);
  ASSERT_EQ(NormalizeOn(disk, {.gain = 0.5}), "completed");
  WayBackOn(disk).Complete(RecordingPath());
  EXPECT_EQ(UndoOn(disk), "completed");
  EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), once), "none");
}

// The disk is slow with the last piece: everything is mapped, so the pass is complete.
TEST(WayBackCases, AbortAfterTheLastWordComesTooLate) {
  MemoryDisk disk({{Recording, WavParts{.samples = Noise(1000)}.Bytes()}});
  const auto original = *disk.Bytes(Recording);
  QSemaphore hasAborted;
  std::atomic<bool> isMapped = false;
  disk.SetFailure([&](MemoryDisk::Call call, const std::string& path) {
    isMapped = isMapped || (call == MemoryDisk::Call::Write && path == Recording);
    if (call == MemoryDisk::Call::Sync && path == Recording && isMapped) {
      hasAborted.acquire();
    }
    return false;
  });
  const ReadClock clock(1);
  Normalization pass({.source = RecordingPath(), .isInPlace = true}, disk);
  ASSERT_TRUE(pass.Open());
  auto record = RecordsOn(disk).Create(*pass.FactsFor(2, Buffering::Single, {}));
  ASSERT_TRUE(record);
  ASSERT_TRUE(pass.KeepRecord(std::move(*record)));
  pass.Start(GainTable(2), Buffering::Single, clock);
  int abortions = 0;
  const auto end = RunToEnd(pass, [&](const PassProgress&) {
    if (isMapped) {
      ++abortions;
      constexpr int enough = 1000;  // for every sync that follows
      hasAborted.release(enough);
    }
    return !isMapped;
  });
  EXPECT_EQ(TextOfEnd(end), "completed");
  EXPECT_GT(abortions, 0);
  EXPECT_NE(*disk.Bytes(Recording), original);
}

}  // namespace
}  // namespace brindle
