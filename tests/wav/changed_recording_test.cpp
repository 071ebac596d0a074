// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Recordings that somebody changed after a pass: neither the undo nor the end of the pass touches
// them.

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"
#include "tests/wav/memory_disk.h"
#include "tests/wav/normalization_support.h"
#include "tests/wav/wav_builder.h"
#include "tests/wav/way_back_support.h"

namespace brindle {
namespace {

constexpr std::size_t Head = 44;
std::string Changed() {
  return CannotWriteRecording("the file was changed since it was normalized");
}

enum class Left { Complete, Interrupted, HalfUndone };

struct ChangeCase {
  std::string name;
  Left left = Left::Complete;
  std::function<void(std::string& recording)> change;
  bool isRefusedByUndo = true;
  bool isRefusedByFinish = true;
};

std::function<void(std::string&)> FlipAt(std::size_t at) {
  return [at](std::string& recording) { recording[at] = static_cast<char>(recording[at] ^ 0x40); };
}

// The words of four pieces are mapped, except the last 500 bytes of the file.
const std::vector<ChangeCase> Cases{
    {"FirstPiece", Left::Complete, FlipAt(Head)},
    {"LastPiece", Left::Complete, FlipAt(Head + 3 * Block + 400)},
    {"LastByteThatIsMapped", Left::Complete, FlipAt(Head + 3 * Block + 999)},
    {"FirstByteThatIsNot", Left::Complete, FlipAt(Head + 3 * Block + 1000), false, false},
    {"LastByteOfTheFile", Left::Complete, FlipAt(Head + 3 * Block + 1499), false, false},
    {"Header", Left::Complete, FlipAt(24)},
    {"DeclaredLength", Left::Complete, FlipAt(41)},
    {"Longer", Left::Complete, [](std::string& recording) { recording += 'x'; }},
    {"Shorter", Left::Complete, [](std::string& recording) { recording.pop_back(); }},
    {"MuchShorter", Left::Complete, [](std::string& recording) { recording.resize(Head + 10); }},
    {"MappedPiece", Left::Interrupted, FlipAt(Head + Block - 1)},
    {"PieceInFlight", Left::Interrupted, FlipAt(Head + Block + 777)},
    {"PieceThatIsNotMapped", Left::Interrupted, FlipAt(Head + 2 * Block + 5), false, false},
    {"HeaderWhenInterrupted", Left::Interrupted, FlipAt(24)},
    {"LongerWhenInterrupted", Left::Interrupted, [](std::string& recording) { recording += 'x'; }},
    {"MappedPieceWhenHalfUndone", Left::HalfUndone, FlipAt(Head + 10)},
    {"PieceInFlightWhenHalfUndone", Left::HalfUndone, FlipAt(Head + 2 * Block + 10)},
    {"UndonePiece", Left::HalfUndone, FlipAt(Head + 3 * Block + 10)},
};

class ChangedRecording : public ::testing::TestWithParam<ChangeCase> {
 protected:
  void SetUp() override {
    const RecordedPass pass{.gain = -3};
    const WavParts parts{.samples = Noise(3 * Block + 1000), .behind = std::string(500, 'b')};
    MemoryDisk disk({{Recording, parts.Bytes()}});
    switch (GetParam().left) {
      case Left::Complete:
        ASSERT_EQ(NormalizeOn(disk, pass), "completed");
        break;
      case Left::Interrupted:
        // The first update is due before the last block of the first piece is done.
        ASSERT_EQ(NormalizeOn(disk, pass, 1), "aborted");
        ASSERT_EQ(RecordsOn(disk).Find().front().boundary, 1);
        break;
      case Left::HalfUndone:
        ASSERT_EQ(NormalizeOn(disk, pass), "completed");
        ASSERT_EQ(UndoOn(disk, 5), "aborted");
        ASSERT_EQ(RecordsOn(disk).Find().front().boundary, 2);
        break;
    }
    auto recording = *disk.Bytes(Recording);
    GetParam().change(recording);
    disk.Put(Recording, recording);
    left_ = disk.Files();
  }

  // What comes of it, and nothing may have been written if it refuses.
  void ExpectOutcome(const std::function<std::string(const MemoryDisk&)>& run,
                     bool isRefused) const {
    const MemoryDisk disk(left_);
    EXPECT_EQ(run(disk), isRefused ? Changed() : "completed");
    if (!isRefused) {
      return;
    }
    EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), left_.at(Recording)), "none");
    for (const auto& logged : disk.Log()) {
      EXPECT_FALSE(logged.call == MemoryDisk::Call::Write && logged.path == Recording)
          << "a write at " << logged.offset;
    }
    EXPECT_EQ(disk.FilesIn(QString::fromUtf8(StateFolder)).size(), 1) << "the record stays";
  }

 private:
  DiskImage left_;
};

TEST_P(ChangedRecording, IsNotTouchedByAnUndo) {
  ExpectOutcome([](const MemoryDisk& disk) { return UndoOn(disk); }, GetParam().isRefusedByUndo);
}

TEST_P(ChangedRecording, IsNotTouchedByTheEndOfThePass) {
  ExpectOutcome([](const MemoryDisk& disk) { return FinishOn(disk); },
                GetParam().isRefusedByFinish);
}

INSTANTIATE_TEST_SUITE_P(Cases, ChangedRecording, ::testing::ValuesIn(Cases), NameOf);

TEST(ChangedRecordingTest, WhatIsNotMappedKeepsTheChange) {
  const RecordedPass pass{.gain = -3};
  const auto original =
      WavParts{.samples = Noise(3 * Block + 1000), .behind = std::string(500, 'b')}.Bytes();
  MemoryDisk disk({{Recording, original}});
  ASSERT_EQ(NormalizeOn(disk, pass), "completed");
  auto changed = *disk.Bytes(Recording);
  changed.back() = 'c';
  disk.Put(Recording, changed);
  EXPECT_EQ(UndoOn(disk), "completed");
  EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), original.substr(0, original.size() - 1) + 'c'),
            "none");
}

}  // namespace
}  // namespace brindle
