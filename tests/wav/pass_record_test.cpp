// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Records that are damaged, cut short or made up: whatever is done with them, no recording becomes
// anything but its original or what the pass makes of it.

#include "wav/pass_record.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <gtest/gtest.h>

#include "tests/support/named_case.h"
#include "tests/wav/memory_disk.h"
#include "tests/wav/normalization_support.h"
#include "tests/wav/record_bytes.h"
#include "tests/wav/wav_builder.h"
#include "tests/wav/way_back_support.h"
#include "wav/pass_records.h"
#include "wav/record_hash.h"

namespace brindle {
namespace {

using Call = MemoryDisk::Call;

// Of two pieces, the second one of a few bytes. Levels share new ones.
const RecordedPass How{.gain = 4};
std::string Original() { return WavParts{.samples = Noise(Block + 300)}.Bytes(); }

enum class Left { Complete, InFlight, HalfUndone };

struct LeftCase {
  std::string name;
  Left left = Left::Complete;
};

const std::vector<LeftCase> Cases{
    {"Complete", Left::Complete},
    {"InFlight", Left::InFlight},
    {"HalfUndone", Left::HalfUndone},
};

class DamagedRecord : public ::testing::TestWithParam<LeftCase> {
 protected:
  void SetUp() override {
    original_ = Original();
    MemoryDisk disk({{Recording, original_}});
    ASSERT_EQ(NormalizeOn(disk, How), "completed");
    mapped_ = *disk.Bytes(Recording);
    switch (GetParam().left) {
      case Left::Complete:
        break;
      case Left::InFlight:
        LeaveInFlight(disk);
        break;
      case Left::HalfUndone:
        // The last piece is written back, but not known to be on the disk.
        FailThirdSyncOf(disk, [](const MemoryDisk& failing) { return UndoOn(failing); });
        break;
    }
    recording_ = *disk.Bytes(Recording);
    for (const auto& [path, bytes] : disk.Files()) {
      if (path != Recording) {
        path_ = path;
        record_ = bytes;
      }
    }
    ASSERT_FALSE(record_.empty());
  }

  [[nodiscard]] const std::string& Record() const { return record_; }

  // The record is not used, or if it is, what comes of it is right. True if it was not even found.
  bool ExpectNothingLost(const std::string& record) const {
    const DiskImage image{{Recording, recording_}, {path_, record}};
    const MemoryDisk disk(image);
    RecordProblems problems;
    if (RecordsOn(disk).Find(&problems).empty()) {
      EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), recording_), "none");
      wasSetAside_ = problems.setAside.size() == 1 &&
                     disk.Files() == DiskImage{{Recording, recording_},
                                               {problems.setAside.front().toStdString(), record}};
      return true;
    }
    ExpectRightOrUntouched(image, original_, [](const MemoryDisk& on) { return UndoOn(on); });
    ExpectRightOrUntouched(image, mapped_, [](const MemoryDisk& on) { return FinishOn(on); });
    return false;
  }
  [[nodiscard]] bool WasSetAside() const { return wasSetAside_; }

  void ExpectNothingLostWithByteChanged(std::size_t at) const {
    SCOPED_TRACE("byte " + std::to_string(at));
    auto record = record_;
    record[at] = static_cast<char>(record[at] ^ 0x41);
    if (ExpectNothingLost(record)) {
      EXPECT_TRUE(WasSetAside());
    }
  }

 private:
  static void FailThirdSyncOf(MemoryDisk& disk,
                              const std::function<std::string(const MemoryDisk&)>& run) {
    disk.SetFailure([syncs = 0](Call call, const std::string& path) mutable {
      return call == Call::Sync && path == Recording && ++syncs == 3;
    });
    EXPECT_EQ(run(disk), CannotWriteRecording("the disk refuses"));
    disk.SetFailure({});
  }

  // Half of the last piece is written.
  void LeaveInFlight(MemoryDisk& disk) const {
    ASSERT_EQ(UndoOn(disk), "completed");
    FailThirdSyncOf(disk, [](const MemoryDisk& failing) { return NormalizeOn(failing, How); });
    auto half = *disk.Bytes(Recording);
    half.replace(half.size() - 150, 150, original_, original_.size() - 150, 150);
    disk.Put(Recording, half);
  }

  void ExpectRightOrUntouched(const DiskImage& image, const std::string& right,
                              const std::function<std::string(const MemoryDisk&)>& run) const {
    const MemoryDisk disk(image);
    const auto end = run(disk);
    EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), end == "completed" ? right : recording_),
              "none")
        << end;
  }

  std::string original_;
  std::string mapped_;
  std::string recording_;
  std::string record_;
  std::string path_;
  mutable bool wasSetAside_ = false;
};

// In the last two cases it leads to the same end as an undamaged one.
TEST_P(DamagedRecord, IsNotDamagedAtFirst) { EXPECT_FALSE(ExpectNothingLost(Record())); }

TEST_P(DamagedRecord, InTheHeader) {
  const auto facts = FactsBytes({.path = RecordingPath()}).size();
  for (std::size_t at = 0; at < PreambleBytes + facts && !HasFailure(); ++at) {
    ExpectNothingLostWithByteChanged(at);
  }
}

TEST_P(DamagedRecord, InAHeadOrItsCopy) {
  const std::size_t step = qEnvironmentVariableIsSet("BRINDLE_TEST_LONG") ? 1 : 5;
  for (const auto head : HeadOffsets(Record())) {
    for (std::size_t at = 0; at < HeadBytes && !HasFailure(); at += step) {
      ExpectNothingLostWithByteChanged(head + at);
    }
  }
}

TEST_P(DamagedRecord, InTheFactsOfAPiece) {
  const auto facts = PieceFactsAt(Record());
  for (std::size_t at = 0; at < 2 * PieceFactsBytes && !HasFailure(); ++at) {
    ExpectNothingLostWithByteChanged(facts + at);
  }
}

TEST_P(DamagedRecord, InTheBitsOrTheOriginals) {
  const std::size_t step = qEnvironmentVariableIsSet("BRINDLE_TEST_LONG") ? 257 : 9001;
  for (auto at = PieceFactsAt(Record()) + RecordUnit; at < Record().size() && !HasFailure();
       at += step) {
    ExpectNothingLostWithByteChanged(at);
  }
}

TEST_P(DamagedRecord, CutShort) {
  std::vector<std::size_t> lengths;
  for (std::size_t length = 0; length < Record().size();
       length += length < 256 ? 1 : (length < 5 * RecordUnit ? 511 : 20011)) {
    lengths.push_back(length);
  }
  lengths.push_back(Record().size() - 1);
  for (const auto length : lengths) {
    SCOPED_TRACE(std::to_string(length) + " bytes");
    if (ExpectNothingLost(Record().substr(0, length))) {
      // A new record that has no whole mark was never used.
      EXPECT_EQ(WasSetAside(), length >= MarkBytes);
    }
    if (HasFailure()) {
      return;
    }
  }
}

// A disk may give zeros where it lost something.
TEST_P(DamagedRecord, WithPagesOfZeros) {
  for (std::size_t at = RecordUnit; at < Record().size(); at += 7 * RecordUnit) {
    SCOPED_TRACE("zeros at " + std::to_string(at));
    auto record = Record();
    record.replace(at, RecordUnit, std::string(std::min(RecordUnit, record.size() - at), '\0'));
    ExpectNothingLost(record);
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, DamagedRecord, ::testing::ValuesIn(Cases), NameOf);

// Records that were made up: all hashes are right.

struct MadeUpCase {
  std::string name;
  std::function<void(PassFacts& facts)> change;
};

const std::vector<MadeUpCase> MadeUpCases{
    {"NegativeLength", [](PassFacts& facts) { facts.fileLength = -1; }},
    {"EndlessFile",
     [](PassFacts& facts) { facts.fileLength = std::numeric_limits<qint64>::max(); }},
    {"NoPieces", [](PassFacts& facts) { facts.grid.size = 0; }},
    {"NegativePieces", [](PassFacts& facts) { facts.grid.size = -BlockSize; }},
    {"UnevenPieces", [](PassFacts& facts) { facts.grid.size = BlockSize + 2; }},
    {"EndlessPieces", [](PassFacts& facts) { facts.grid.size = PassRecord::PieceSize * 2; }},
    {"StartBeforeTheFile", [](PassFacts& facts) { facts.grid.start = 0; }},
    {"NegativeStart", [](PassFacts& facts) { facts.grid.start = -5; }},
    {"EndBeforeTheStart", [](PassFacts& facts) { facts.grid.end = facts.grid.start - 2; }},
    {"EndAfterTheFile", [](PassFacts& facts) { facts.grid.end += 2; }},
    {"HalfAWord", [](PassFacts& facts) { facts.grid.end -= 1; }},
    {"NoHead", [](PassFacts& facts) { facts.headLength = 0; }},
    {"EndlessHead",
     [](PassFacts& facts) { facts.headLength = std::numeric_limits<qint64>::max(); }},
    {"NegativeBits", [](PassFacts& facts) { facts.bitsRoom = -1; }},
    {"EndlessBits", [](PassFacts& facts) { facts.bitsRoom = std::numeric_limits<qint64>::max(); }},
    {"NoNumber", [](PassFacts& facts) { facts.gain = std::numeric_limits<double>::quiet_NaN(); }},
    {"NoText", [](PassFacts& facts) { facts.path = QChar(0xD800); }},
    {"EndedText", [](PassFacts& facts) { facts.path += QChar(); }},
    {"EndlessGain", [](PassFacts& facts) { facts.gain = std::numeric_limits<double>::infinity(); }},
};

class MadeUpRecord : public ::testing::TestWithParam<MadeUpCase> {};

TEST_P(MadeUpRecord, IsSetAside) {
  MemoryDisk disk({{Recording, Original()}});
  ASSERT_EQ(NormalizeOn(disk, How), "completed");
  const auto found = RecordsOn(disk).Find().front();
  const auto path = found.path.toStdString();
  const auto record = *disk.Bytes(path);
  ASSERT_EQ(HeaderBytes(FactsBytes(found.facts)), record.substr(0, RecordUnit)) << "the layout";
  auto facts = found.facts;
  GetParam().change(facts);
  disk.Put(path, HeaderBytes(FactsBytes(facts)) + record.substr(RecordUnit));
  RecordProblems problems;
  EXPECT_TRUE(RecordsOn(disk).Find(&problems).empty());
  EXPECT_EQ(problems.setAside, QStringList(found.path + QStringLiteral(".unusable")));
}

INSTANTIATE_TEST_SUITE_P(Cases, MadeUpRecord, ::testing::ValuesIn(MadeUpCases), NameOf);

// The record says that the pass maps other words than its loops do, or in other pieces.
TEST(MadeUpRecordTest, LeadsTheLoopsNowhereElse) {
  const std::vector<std::function<void(PassFacts&)>> changes{
      [](PassFacts& facts) { facts.grid.end -= 2; },
      [](PassFacts& facts) { facts.grid.end = facts.grid.start; },
      [](PassFacts& facts) { facts.grid.end -= 1'000; },
      [](PassFacts& facts) {
        facts.grid.start += 2;
        facts.headLength += 2;
      },
  };
  for (const auto& change : changes) {
    const MemoryDisk disk({{Recording, Original()}});
    Normalization pass({.source = RecordingPath(), .isInPlace = true}, disk);
    ASSERT_TRUE(pass.Open());
    auto facts = *pass.FactsFor(How.gain, How.buffering, {.levels = How.levels});
    change(facts);
    facts.bitsRoom = 0;
    const auto head = Original().substr(0, static_cast<std::size_t>(facts.headLength));
    facts.headHash = HashOf(std::as_bytes(std::span(head)));
    auto record = RecordsOn(disk).Create(facts);
    ASSERT_TRUE(record);
    const auto path = record->Path().toStdString();
    EXPECT_EQ(TextOf(pass.KeepRecord(std::move(*record))),
              "Cannot read " + InMessages(path) + ": the record of the pass is damaged");
  }
}

TEST(MadeUpRecordTest, PiecesSmallerThanARoundOfBlocksAreNotTaken) {
  const MemoryDisk disk({{Recording, WavParts{.samples = Noise(130 * Block)}.Bytes()}});
  const auto end = NormalizeOn(disk, {.buffering = Buffering::Multi});
  EXPECT_TRUE(end.ends_with(": the record of the pass is damaged")) << end;
}

TEST(MadeUpRecordTest, BitsAreNoMoreThanTheFileHas) {
  MemoryDisk disk({{Recording, Original()}});
  ASSERT_EQ(NormalizeOn(disk, How), "completed");
  const auto found = RecordsOn(disk).Find().front();
  const auto path = found.path.toStdString();
  auto facts = found.facts;
  facts.fileLength = facts.bitsRoom = qint64{1} << 50;
  auto record = HeaderBytes(FactsBytes(facts)) + disk.Bytes(path)->substr(RecordUnit);
  const auto at = PieceFactsAt(record) + PieceFactsBytes;
  record.replace(at + BitsEndInPieceFacts, 8, Number(std::uint64_t{1} << 49, 8));
  Reseal(record, at, PieceFactsBytes);
  disk.Put(path, record);
  RecordProblems problems;
  EXPECT_TRUE(RecordsOn(disk).Find(&problems).empty());
  EXPECT_EQ(problems.setAside.size(), 1);
}

// Bits that end before they begin, or nowhere.
TEST(MadeUpRecordTest, BitsOfAPieceAreThoseOfTheRecord) {
  MemoryDisk disk({{Recording, WavParts{.samples = Noise(3 * Block)}.Bytes()}});
  ASSERT_EQ(NormalizeOn(disk, How), "completed");
  const auto found = RecordsOn(disk).Find().front();
  const auto path = found.path.toStdString();
  const auto record = *disk.Bytes(path);
  for (const qint64 wrong : {qint64{-1}, std::numeric_limits<qint64>::max(),
                             std::numeric_limits<qint64>::min(), found.facts.bitsRoom}) {
    auto changed = record;
    const auto at = PieceFactsAt(record);
    changed.replace(at + BitsEndInPieceFacts, 8, Number(static_cast<std::uint64_t>(wrong), 8));
    Reseal(changed, at, PieceFactsBytes);
    disk.Put(path, changed);
    RecordProblems problems;
    EXPECT_TRUE(RecordsOn(disk).Find(&problems).empty()) << wrong;
    EXPECT_EQ(problems.setAside.size(), 1) << wrong;
  }
}

}  // namespace
}  // namespace brindle
