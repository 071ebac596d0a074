// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace brindle {

// The scan and the pass once more, step by step and one word after the other, on a whole file in
// memory: what the engine, which reads blocks where it can, is held against. Positions count from
// 1. It shares no line with the engine.

using FileBytes = std::vector<std::uint8_t>;

struct LiteralData {
  std::int64_t start = 0;
  std::int64_t length = 0;
  std::int64_t fileLength = 0;
};

/// Nothing where the file has no data tag.
[[nodiscard]] std::optional<LiteralData> LocateLiterally(const FileBytes& file);

struct LiteralScan {
  std::int64_t lowest = 0;
  std::int64_t highest = 0;
  std::int64_t measuredBytes = 0;  ///< what the throughput counts
};

/// The file must have a data tag; so for the passes.
[[nodiscard]] LiteralScan ScanLiterally(const FileBytes& file);

/// The 65536 entries of the gain table; that of a level is at level + 32768.
using LiteralTable = std::vector<std::int16_t>;
[[nodiscard]] LiteralTable TableLiterally(double gain);

/// The file behind a pass. In place and to a target alike: nothing is read after it was written,
/// and what the loops leave out is the source's in either.
[[nodiscard]] FileBytes NormalizeMultiLiterally(const FileBytes& file, const LiteralTable& levels);
[[nodiscard]] FileBytes NormalizeSingleLiterally(const FileBytes& file, const LiteralTable& levels);

}  // namespace brindle
