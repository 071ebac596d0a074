// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Records of passes that are damaged or made up. An input is a list of changes to a record that is
// right, and says whether the hashes are corrected afterwards.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <QObject>
#include <QString>

#include "base/files/at_path.h"
#include "base/time/clock.h"
#include "tests/wav/memory_disk.h"
#include "tests/wav/record_bytes.h"
#include "tests/wav/wav_builder.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/pass.h"
#include "wav/pass_record.h"
#include "wav/pass_records.h"
#include "wav/undo_pass.h"

namespace brindle {
namespace {

void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

constexpr const char* Recording = "/music/recording.wav";
constexpr const char* StateFolder = "/state";
QString RecordingPath() { return QString::fromUtf8(Recording); }
PassRecords RecordsOn(const MemoryDisk& disk) {
  return PassRecords(QString::fromUtf8(StateFolder), disk);
}

/// No update is ever due.
class StandingClock : public Clock {
 public:
  [[nodiscard]] double Now() const override { return 0; }
  [[nodiscard]] float SecondsSinceMidnight() const override { return 0; }
  void After(double, QObject*, std::function<void()>) override {}
};

bool IsCompleted(Pass& pass) {
  return std::holds_alternative<PassCompleted>(
      RunToEnd(pass, [](const PassProgress&) { return true; }));
}

bool RunWith(const MemoryDisk& disk, std::optional<PassRecord> record, double gain) {
  const StandingClock clock;
  Normalization pass({.source = RecordingPath(), .isInPlace = true}, disk);
  if (!pass.Open()) {
    return false;
  }
  if (!record) {
    auto facts = pass.FactsFor(gain, Buffering::Single, {});
    facts->grid.size = BlockSize;
    auto created = RecordsOn(disk).Create(*facts);
    Require(created.has_value());
    record.emplace(std::move(*created));
  }
  const auto buffering = record->Facts().buffering;
  if (!pass.KeepRecord(std::move(*record))) {
    return false;
  }
  pass.Start(GainTable(gain), buffering, clock);
  return IsCompleted(pass);
}

bool Finish(const MemoryDisk& disk, const FoundRecord& found) {
  auto record = RecordsOn(disk).Open(found);
  return record && RunWith(disk, std::move(*record), found.facts.gain);
}

bool Undo(const MemoryDisk& disk, const FoundRecord& found) {
  const StandingClock clock;
  auto record = RecordsOn(disk).Open(found);
  if (!record) {
    return false;
  }
  UndoPass undo(RecordingPath(), std::move(*record), clock, disk);
  return IsCompleted(undo);
}

/// A recording with a record that is right.
struct Sound {
  std::string original;
  std::string mapped;
  std::string recording;  ///< as it is now
  std::string path;       ///< of the record
  std::string record;
};

enum class Left { Complete, InFlight, HalfUndone };

Sound SoundWith(double gain, Left left) {
  constexpr std::size_t bytes = BlockSize + 300;
  std::string samples;
  for (std::uint32_t state = 1; samples.size() < bytes;) {
    state = state * 1664525 + 1013904223;
    samples += Number(state >> 16, 2);
  }
  Sound sound{.original = WavParts{.samples = samples, .behind = "chunk"}.Bytes()};
  MemoryDisk disk({{Recording, sound.original}});
  // The disk fails when the second piece is to be synchronised, on the way there or back.
  const auto fail = [&] {
    disk.SetFailure([syncs = 0](MemoryDisk::Call call, const std::string& path) mutable {
      return call == MemoryDisk::Call::Sync && path == Recording && ++syncs == 3;
    });
  };
  if (left == Left::InFlight) {
    fail();
  }
  Require(RunWith(disk, std::nullopt, gain) == (left != Left::InFlight));
  disk.SetFailure({});
  if (left == Left::HalfUndone) {
    fail();
    Require(!Undo(disk, RecordsOn(disk).Find().front()));
    disk.SetFailure({});
  }
  sound.recording = *disk.Bytes(Recording);
  sound.path = RecordsOn(disk).Find().front().path.toStdString();
  sound.record = *disk.Bytes(sound.path);
  Require(Finish(disk, RecordsOn(disk).Find().front()));
  sound.mapped = *disk.Bytes(Recording);
  return sound;
}

/// What the input asks for, byte by byte; 0 after its end.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  [[nodiscard]] bool IsAtEnd() const { return at_ >= size_; }
  [[nodiscard]] std::uint8_t Byte() { return IsAtEnd() ? std::uint8_t{0} : data_[at_++]; }
  [[nodiscard]] std::size_t Word() {
    const std::size_t low = Byte();
    return low + std::size_t{256} * Byte();
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t at_ = 0;
};

// Puts up to eight bytes somewhere: in a part of the record, at a place within it.
void Change(std::string& record, Input& input) {
  const auto heads = HeadOffsets(record);
  const auto facts = PieceFactsAt(record);
  const std::array<std::size_t, 9> parts{0,        MarkBytes, PreambleBytes,
                                         heads[0], heads[1],  heads[2],
                                         heads[3], facts,     facts + RecordUnit};
  constexpr std::size_t ends = 16;
  const std::size_t part = input.Byte();
  auto at = input.Word();
  if (part % ends == ends - 1) {
    record.resize(std::min(record.size(), at * 3));
    return;
  }
  at += parts[part % parts.size()];
  for (auto count = input.Byte() % 8 + 1; count > 0; --count, ++at) {
    const auto byte = static_cast<char>(input.Byte());
    if (at < record.size()) {
      record[at] = byte;
    }
  }
}

// Both heads are changed in their copies, too.
void CorrectHashes(std::string& record) {
  ResealFacts(record);
  for (const auto head : HeadOffsets(record)) {
    Reseal(record, head, HeadBytes);
  }
  for (std::size_t piece = 0; piece < 2; ++piece) {
    Reseal(record, PieceFactsAt(record) + piece * PieceFactsBytes, PieceFactsBytes);
  }
}

// Nothing but the words that the record names may be different.
void RequireOutsideUntouched(const std::string& before, const std::string& after,
                             const PassFacts& facts) {
  const auto start = static_cast<std::size_t>(facts.grid.start - 1);
  const auto end = static_cast<std::size_t>(facts.grid.end - 1);
  Require(before.size() == after.size());
  Require(before == after || facts.fileLength == static_cast<qint64>(before.size()));
  Require(before == after || (before.compare(0, start, after, 0, start) == 0 &&
                              before.compare(end, std::string::npos, after, end) == 0));
}

void Check(const std::uint8_t* data, std::size_t size) {
  static const std::array<Sound, 5> sounds{
      SoundWith(2, Left::Complete), SoundWith(2, Left::InFlight), SoundWith(2, Left::HalfUndone),
      SoundWith(0.1, Left::Complete), SoundWith(-1, Left::InFlight)};
  Input input(data, size);
  const auto& sound = sounds[input.Byte() % sounds.size()];
  const bool isMadeUp = input.Byte() % 2 == 1;
  auto record = sound.record;
  std::size_t changes = 0;
  for (; !input.IsAtEnd(); ++changes) {
    Change(record, input);
  }
  if (isMadeUp) {
    CorrectHashes(record);
  }

  const DiskImage image{{Recording, sound.recording}, {sound.path, record}};
  const MemoryDisk disk(image);
  RecordProblems problems;
  const auto found = RecordsOn(disk).Find(&problems);
  Require(*disk.Bytes(Recording) == sound.recording);
  if (found.empty()) {
    Require(problems.setAside.isEmpty()
                ? disk.Files().size() == 1
                : *disk.Bytes(problems.setAside.front().toStdString()) == record);
    return;
  }
  Require(found.size() == 1 && problems.setAside.isEmpty());
  const auto& one = found.front();
  Require(one.Percent() >= 0 && one.Percent() <= 100);
  static_cast<void>(RecordsOn(disk).FindFor(RecordingPath()));
  static_cast<void>(IsFileAt(one.facts.path));

  const bool isUndone = Undo(disk, one);
  const auto undone = *disk.Bytes(Recording);
  RequireOutsideUntouched(sound.recording, undone, one.facts);
  const MemoryDisk second(image);
  const bool isFinished = Finish(second, one);
  const auto finished = *second.Bytes(Recording);
  RequireOutsideUntouched(sound.recording, finished, one.facts);
  // A record of which a byte is damaged may be of no use, but it misleads nobody.
  if (!isMadeUp && changes <= 1) {
    Require(undone == (isUndone ? sound.original : sound.recording));
    Require(finished == (isFinished ? sound.mapped : sound.recording));
  }
}

}  // namespace
}  // namespace brindle

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  brindle::Check(data, size);
  return 0;
}
