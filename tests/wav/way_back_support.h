// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <QDir>
#include <QString>
#include <gtest/gtest.h>

#include "tests/wav/memory_disk.h"
#include "tests/wav/pass_support.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/pass.h"
#include "wav/pass_record.h"
#include "wav/pass_records.h"
#include "wav/undo_pass.h"
#include "wav/way_back.h"

namespace brindle {

inline constexpr const char* Recording = "/music/recording.wav";
inline constexpr const char* StateFolder = "/state";

/// How a message writes a path.
inline std::string InMessages(const std::string& path) {
  return QDir::toNativeSeparators(QString::fromStdString(path)).toStdString();
}
inline std::string CannotWriteRecording(const std::string& reason) {
  return "Cannot write " + InMessages(Recording) + ": " + reason;
}

/// A pass in place over the recording of a disk in memory.
struct RecordedPass {
  double gain = 2;
  Buffering buffering = Buffering::Single;
  qint64 pieceSize = BlockSize;
  LevelRange levels = {.lowest = -32768, .highest = 32767};
};

inline QString RecordingPath() { return QString::fromUtf8(Recording); }
inline PassRecords RecordsOn(const MemoryDisk& disk) {
  return PassRecords(QString::fromUtf8(StateFolder), disk);
}

/// What came of a pass, in words: "completed", "aborted", or the message of the error.
inline std::string TextOfEnd(const PassState& end) {
  if (const auto* error = std::get_if<WavError>(&end)) {
    return MessageOf(*error).toStdString();
  }
  return std::holds_alternative<PassCompleted>(end) ? "completed" : "aborted";
}

inline std::string Run(Pass& pass, int updates = -1) {
  return TextOfEnd(RunToEnd(pass, [&](const PassProgress&) { return updates-- != 0; }));
}

/// The whole pass with its record. Aborted at an update of this number, if there is one.
inline std::string NormalizeOn(const MemoryDisk& disk, const RecordedPass& how, int updates = -1) {
  const ReadClock clock(updates < 0 ? 0 : 1);
  Normalization pass({.source = RecordingPath(), .isInPlace = true}, disk);
  const auto opened = pass.Open();
  if (!opened) {
    return TextOf(opened);
  }
  auto facts = pass.FactsFor(how.gain, how.buffering, {.levels = how.levels});
  if (!facts) {
    return TextOf(facts);
  }
  // The bits of every piece end with a byte.
  facts->bitsRoom -= facts->grid.Count();
  facts->grid.size = how.pieceSize;
  facts->bitsRoom += facts->grid.Count();
  auto record = RecordsOn(disk).Create(*facts);
  if (!record) {
    return "no record: " + CannotWrite(record.error()).toStdString();
  }
  if (const auto kept = pass.KeepRecord(std::move(*record)); !kept) {
    return TextOf(kept);
  }
  pass.Start(GainTable(how.gain), how.buffering, clock);
  return Run(pass, updates);
}

/// The way back of the recording.
inline WayBack WayBackOn(const MemoryDisk& disk) {
  WayBack way(QString::fromUtf8(StateFolder), disk);
  way.LookFor(RecordingPath());
  return way;
}

/// Takes the newest pass back.
inline std::string UndoOn(const MemoryDisk& disk, int updates = -1) {
  const ReadClock clock(updates < 0 ? 0 : 1);
  auto way = WayBackOn(disk);
  if (!way.IsThere()) {
    return "no record";
  }
  auto undo = way.Undo(clock);
  if (!undo) {
    return "no record: " + CannotRead(undo.error()).toStdString();
  }
  const auto end = Run(**undo, updates);
  undo->reset();
  if (end == "completed") {
    way.Forget();
  }
  return end;
}

/// Goes on with the newest pass.
inline std::string FinishOn(const MemoryDisk& disk, int updates = -1) {
  const ReadClock clock(updates < 0 ? 0 : 1);
  const auto way = WayBackOn(disk);
  if (!way.IsThere()) {
    return "no record";
  }
  const auto pass = way.Finish(clock);
  return pass ? Run(**pass, updates) : TextOf(pass);
}

}  // namespace brindle
