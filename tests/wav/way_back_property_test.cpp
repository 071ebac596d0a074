// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Laws of the way back, on random recordings and gains: a pass with a record does what a pass does;
// its undo gives the original; going on after an abort gives what an undisturbed pass gives; and
// the record is no longer than it needs to be.

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <random>
#include <span>
#include <string>
#include <vector>

#include <QtGlobal>
#include <gtest/gtest.h>

#include "base/files/disk.h"
#include "tests/wav/literal_model.h"
#include "tests/wav/memory_disk.h"
#include "tests/wav/normalization_support.h"
#include "tests/wav/wav_builder.h"
#include "tests/wav/way_back_support.h"
#include "wav/level_range.h"
#include "wav/pass_record.h"
#include "wav/samples.h"

namespace brindle {
namespace {

// How many random passes there are.
int Rounds(int usual) {
  return qEnvironmentVariableIsSet("BRINDLE_TEST_LONG") ? 20 * usual : usual;
}

class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}

  [[nodiscard]] std::size_t UpTo(std::size_t most) {
    return std::uniform_int_distribution<std::size_t>(0, most)(random_);
  }
  [[nodiscard]] int Between(int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(random_);
  }
  [[nodiscard]] bool OneIn(std::size_t count) { return UpTo(count - 1) == 0; }
  /// From 0.01 to 300; a few are negative.
  [[nodiscard]] double Gain() {
    const double gain =
        std::exp(std::uniform_real_distribution<double>(std::log(0.01), std::log(300))(random_));
    return OneIn(6) ? -gain : gain;
  }
  /// Words of levels up to `loudest`; an odd last byte is anything.
  [[nodiscard]] std::string Sound(std::size_t bytes, int loudest) {
    std::string sound(bytes, 'o');
    for (std::size_t i = 0; i + 1 < bytes; i += WordSize) {
      const auto level = static_cast<std::int16_t>(
          static_cast<int>(random_() % 65536) % (2 * loudest + 1) - loudest);
      std::memcpy(sound.data() + i, &level, sizeof(level));
    }
    return sound;
  }
  /// Bytes in which no tag can stand.
  [[nodiscard]] std::string Filler(std::size_t bytes) {
    std::string filler(bytes, '\0');
    for (auto& byte : filler) {
      byte = static_cast<char>(Between(128, 255));
    }
    return filler;
  }

 private:
  std::mt19937 random_;
};

FileBytes BytesOf(const std::string& text) { return {text.begin(), text.end()}; }

std::string MappedLiterally(const std::string& original, const RecordedPass& how) {
  const auto normalize =
      how.buffering == Buffering::Multi ? NormalizeMultiLiterally : NormalizeSingleLiterally;
  const auto mapped = normalize(BytesOf(original), TableLiterally(how.gain));
  return {mapped.begin(), mapped.end()};
}

// The bits that tell the level that needs most of them, counted one level after the other.
int MostBitsLiterally(double gain, LevelRange levels) {
  const auto table = TableLiterally(gain);
  std::map<std::int16_t, unsigned> sharing;
  unsigned most = 1;
  for (int level = levels.lowest; level <= levels.highest; ++level) {
    const int index = level + 32768;
    most = std::max(most, ++sharing[table[static_cast<std::size_t>(index)]]);
  }
  return static_cast<int>(std::bit_width(most - 1));
}

struct Recorded {
  std::string original;
  std::string mapped;
  RecordedPass how;
};

Recorded RandomPass(Chance& chance, qint64 pieceSize, std::size_t longest) {
  const WavParts parts{
      .samples = chance.Sound(chance.UpTo(longest), chance.Between(0, 32767)),
      .before = chance.Filler(chance.OneIn(2) ? 0 : chance.UpTo(300)),
      .behind = chance.Sound(chance.OneIn(2) ? 0 : chance.UpTo(longest / 2), 32767)};
  Recorded pass{.original = parts.Bytes(),
                .how = {.gain = chance.Gain(),
                        .buffering = chance.OneIn(2) ? Buffering::Single : Buffering::Multi,
                        .pieceSize = pieceSize}};
  std::vector<std::int16_t> levels(parts.samples.size() / WordSize);
  const auto words = std::as_bytes(std::span(parts.samples)).first(levels.size() * WordSize);
  std::copy(words.begin(), words.end(), std::as_writable_bytes(std::span(levels)).begin());
  pass.how.levels = RangeOf(levels);
  // Most passes amplify, and cut nothing off.
  const auto& range = pass.how.levels;
  const int loudest = levels.empty() ? 0 : std::max(-range.lowest, +range.highest);
  if (loudest > 0 && chance.OneIn(3)) {
    pass.how.gain = std::min(300.0, 32767.0 / loudest);
  }
  pass.mapped = MappedLiterally(pass.original, pass.how);
  return pass;
}

std::string NameOfPass(const Recorded& pass) {
  return "gain " + std::to_string(pass.how.gain) + ", " + std::to_string(pass.original.size()) +
         " bytes, " + (pass.how.buffering == Buffering::Multi ? "multi" : "single");
}

// The longest that the record of a complete pass may be: its facts, and the bits of the samples and
// of the words after them, which nobody has looked at before.
qint64 Bound(const Recorded& pass, const PassFacts& facts) {
  constexpr qint64 unit = DiskFile::DirectUnit;
  constexpr qint64 factsOfPiece = 44;
  const auto data = LocateLiterally(BytesOf(pass.original));
  const auto pieces = facts.grid.Count();
  const auto mapped = facts.grid.end - facts.grid.start;
  const auto samples = std::min<qint64>(data->length / WordSize * WordSize, mapped);
  const auto bits = MostBitsLiterally(pass.how.gain, pass.how.levels);
  const auto lost = samples / WordSize * bits / 8 + (mapped - samples);
  // The head and the two places of the boundary take a unit each; every piece may leave a part of a
  // byte.
  const auto whole = 3 * unit + (pieces * factsOfPiece + unit - 1) / unit * unit;
  return whole + (lost == 0 ? 0 : lost + pieces);
}

void ExpectRecordWithinItsBound(const MemoryDisk& disk, const Recorded& pass) {
  const auto found = RecordsOn(disk).FindFor(RecordingPath());
  if (!found) {
    // There was nothing to map.
    EXPECT_EQ(pass.mapped, pass.original);
    return;
  }
  EXPECT_LE(found->length, Bound(pass, found->facts));
  const auto mapped = found->facts.grid.end - found->facts.grid.start;
  constexpr qint64 factsOfHead = 4 * qint64{DiskFile::DirectUnit};
  EXPECT_LE(found->length, factsOfHead + mapped + found->facts.grid.Count() * 45);
}

void ExpectUndone(const MemoryDisk& disk, const Recorded& pass) {
  EXPECT_EQ(UndoOn(disk), "completed");
  EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), pass.original), "none");
  EXPECT_EQ(disk.Files().size(), 1U);
}

void ExpectLaws(Chance& chance, const Recorded& pass) {
  const MemoryDisk disk({{Recording, pass.original}});
  ASSERT_EQ(NormalizeOn(disk, pass.how), "completed");
  EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), pass.mapped), "none");
  ExpectRecordWithinItsBound(disk, pass);
  if (RecordsOn(disk).Find().empty()) {
    return;
  }
  ExpectUndone(disk, pass);

  // To and fro, ended anywhere.
  std::string way = "normalize";
  auto end = NormalizeOn(disk, pass.how, static_cast<int>(chance.UpTo(6)));
  for (int i = 0; i < 3 && !RecordsOn(disk).Find().empty(); ++i) {
    ASSERT_TRUE(end == "aborted" || end == "completed") << end;
    const bool isUndone = chance.OneIn(2);
    way += isUndone ? ", undo" : ", finish";
    const auto updates = static_cast<int>(chance.UpTo(6));
    end = isUndone ? UndoOn(disk, updates) : FinishOn(disk, updates);
  }
  SCOPED_TRACE(way);
  if (RecordsOn(disk).Find().empty()) {
    EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), pass.original), "none");
    return;
  }
  const MemoryDisk finished(disk.Files());
  EXPECT_EQ(FinishOn(finished), "completed");
  EXPECT_EQ(FirstDifference(*finished.Bytes(Recording), pass.mapped), "none");
  ExpectUndone(finished, pass);
  ExpectUndone(disk, pass);
}

TEST(WayBackLaws, InSmallPieces) {
  Chance chance(20260701);
  for (int i = 0; i < Rounds(30); ++i) {
    const auto pass = RandomPass(chance, BlockSize, 4 * Block);
    SCOPED_TRACE(NameOfPass(pass));
    ExpectLaws(chance, pass);
    if (::testing::Test::HasFailure()) {
      return;
    }
  }
}

TEST(WayBackLaws, OfRecordingsOfAFewBytes) {
  Chance chance(20260702);
  for (int i = 0; i < Rounds(30); ++i) {
    const auto pass = RandomPass(chance, BlockSize, 20);
    SCOPED_TRACE(NameOfPass(pass));
    ExpectLaws(chance, pass);
    if (::testing::Test::HasFailure()) {
      return;
    }
  }
}

TEST(WayBackLaws, InPiecesOfTheUsualSize) {
  Chance chance(20260703);
  for (int i = 0; i < Rounds(2); ++i) {
    const auto pass = RandomPass(chance, PassRecord::PieceSize, 160 * Block);
    SCOPED_TRACE(NameOfPass(pass));
    ExpectLaws(chance, pass);
    if (::testing::Test::HasFailure()) {
      return;
    }
  }
}

// Levels that share a new one, and bits that tell them apart, hide no change.
TEST(WayBackLaws, NotOneMappedWordCanBeChangedUnnoticed) {
  Chance chance(20260705);
  for (int i = 0; i < Rounds(60); ++i) {
    Recorded pass{.original = WavParts{.samples = chance.Sound(2000, 32767)}.Bytes(),
                  .how = {.gain = chance.Gain()}};
    SCOPED_TRACE(NameOfPass(pass));
    MemoryDisk disk({{Recording, pass.original}});
    ASSERT_EQ(NormalizeOn(disk, pass.how), "completed");
    auto changed = *disk.Bytes(Recording);
    const auto at = WavParts::FirstStart - 1 + chance.UpTo(999) * WordSize;
    const auto level = changed.substr(at, WordSize);
    // Another level that the pass could have left, near or far.
    const auto other = chance.OneIn(2) ? pass.original.substr(WavParts::FirstStart - 1, WordSize)
                                       : std::string{static_cast<char>(level[0] ^ 1), level[1]};
    changed.replace(at, WordSize, other == level ? std::string("??") : other);
    disk.Put(Recording, changed);
    const auto refused = CannotWriteRecording("the file was changed since it was normalized");
    EXPECT_EQ(UndoOn(disk), refused);
    EXPECT_EQ(FinishOn(disk), refused);
    EXPECT_EQ(FirstDifference(*disk.Bytes(Recording), changed), "none");
  }
}

// A pass in several buffers shows progress at every word of the last ones.
TEST(WayBackLaws, AbortedAtAnyUpdateOfTheLastWords) {
  Chance chance(20260704);
  for (const int updates : {0, 1, 2, 100, 499, 500}) {
    Recorded pass{.original = WavParts{.samples = chance.Sound(Block + 1001, 32767)}.Bytes(),
                  .how = {.gain = 1.5, .buffering = Buffering::Multi}};
    pass.mapped = MappedLiterally(pass.original, pass.how);
    const MemoryDisk disk({{Recording, pass.original}});
    ASSERT_EQ(NormalizeOn(disk, pass.how, updates), updates == 500 ? "completed" : "aborted");
    const MemoryDisk finished(disk.Files());
    EXPECT_EQ(FinishOn(finished), "completed");
    EXPECT_EQ(FirstDifference(*finished.Bytes(Recording), pass.mapped), "none") << updates;
    ExpectUndone(disk, pass);
  }
}

// Even if an update takes longer than the time between two of them.
TEST(WayBackLaws, AnUndoGoesOnAfterEveryUpdate) {
  const auto original = WavParts{.samples = Noise(4 * Block)}.Bytes();
  const MemoryDisk disk({{Recording, original}});
  ASSERT_EQ(NormalizeOn(disk, {}), "completed");
  for (int updates = 0; updates < 20; ++updates) {
    const MemoryDisk undone(disk.Files());
    const auto end = UndoOn(undone, updates);
    if (end == "completed") {
      EXPECT_EQ(FirstDifference(*undone.Bytes(Recording), original), "none");
      return;
    }
    EXPECT_EQ(end, "aborted");
  }
  FAIL() << "the undo does not come to its end";
}

TEST(WayBackLaws, AnOrdinaryAmplificationKeepsNothingButFacts) {
  for (const auto pieces : std::vector<std::size_t>{1, 2, 5}) {
    const Recorded pass{
        .original = WavParts{.samples = Noise(pieces * Block)}.Bytes(),
        .how = {.gain = 32767.0 / 12000, .levels = {.lowest = -12000, .highest = 12000}}};
    const MemoryDisk disk({{Recording, pass.original}});
    ASSERT_EQ(NormalizeOn(disk, pass.how), "completed");
    const auto found = RecordsOn(disk).FindFor(RecordingPath());
    ASSERT_TRUE(found);
    EXPECT_EQ(found->facts.bitsRoom, found->facts.grid.Count());
    EXPECT_EQ(found->length, 4 * qint64{DiskFile::DirectUnit});
  }
}

}  // namespace
}  // namespace brindle
