// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include <QString>

#include "tests/wav/wav_builder.h"
#include "wav/buffering.h"
#include "wav/pass_record.h"
#include "wav/record_hash.h"

namespace brindle {

// The layout of a record once more, so that a test can damage it, or make one up whose hashes are
// right.

inline constexpr std::size_t RecordUnit = 4096;
inline constexpr std::size_t MarkBytes = 16;
inline constexpr std::size_t PreambleBytes = MarkBytes + 16;
inline constexpr std::size_t HeadBytes = 48;
inline constexpr std::size_t HeadCopy = 2048;
inline constexpr std::size_t PieceFactsBytes = 36;
inline constexpr std::size_t BitsEndInPieceFacts = 24;

inline std::string HashBytes(const std::string& bytes) {
  return Number(HashOf(std::as_bytes(std::span(bytes))), 8);
}

inline std::string MarkOf(char version) { return std::string("Brindle undo\r\n\x1A") + version; }

inline std::string FactsBytes(const PassFacts& facts) {
  const auto number = [](qint64 value) { return Number(static_cast<std::uint64_t>(value), 8); };
  std::string path;
  for (const auto character : facts.path) {
    path += Number(character.unicode(), 2);
  }
  return Number(path.size(), 4) + path + Number(facts.stamp.volume, 8) +
         Number(facts.stamp.number, 8) + Number(facts.stamp.changed, 8) + number(facts.created) +
         number(facts.fileLength) + number(facts.headLength) + Number(facts.headHash, 8) +
         number(facts.grid.start) + number(facts.grid.end) + number(facts.grid.size) +
         number(facts.bitsRoom) + Number(std::bit_cast<std::uint64_t>(facts.gain), 8) +
         Number(facts.buffering == Buffering::Multi ? 1 : 0, 1);
}

/// The record up to the heads.
inline std::string HeaderBytes(const std::string& facts, char version = '1') {
  auto bytes = MarkOf(version) + Number(facts.size(), 8) + HashBytes(facts) + facts;
  bytes.resize((bytes.size() + RecordUnit - 1) / RecordUnit * RecordUnit, '\0');
  return bytes;
}

/// Where the heads begin; 0 if the record is too short for that.
inline std::size_t HeadsAt(const std::string& record) {
  std::uint64_t facts = 0;
  if (record.size() < PreambleBytes) {
    return 0;
  }
  std::memcpy(&facts, record.data() + MarkBytes, sizeof(facts));
  return facts > record.size() ? 0
                               : (PreambleBytes + facts + RecordUnit - 1) / RecordUnit * RecordUnit;
}

/// Where the facts of the pieces begin.
inline std::size_t PieceFactsAt(const std::string& record) {
  return HeadsAt(record) + 2 * RecordUnit;
}

/// Corrects the hash in front of these bytes, if they are all there.
inline void Reseal(std::string& record, std::size_t at, std::size_t bytes) {
  if (at + bytes <= record.size()) {
    record.replace(at, 8, HashBytes(record.substr(at + 8, bytes - 8)));
  }
}

/// Corrects the hash of the facts of the pass.
inline void ResealFacts(std::string& record) {
  std::uint64_t facts = 0;
  if (HeadsAt(record) == 0) {
    return;
  }
  std::memcpy(&facts, record.data() + MarkBytes, sizeof(facts));
  if (PreambleBytes + facts <= record.size()) {
    record.replace(MarkBytes + 8, 8, HashBytes(record.substr(PreambleBytes, facts)));
  }
}

/// The offsets of both heads and their copies.
inline std::vector<std::size_t> HeadOffsets(const std::string& record) {
  const auto heads = HeadsAt(record);
  return {heads, heads + HeadCopy, heads + RecordUnit, heads + RecordUnit + HeadCopy};
}

}  // namespace brindle
