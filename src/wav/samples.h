// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <QtGlobal>

namespace brindle {

// Sample data is a sequence of signed 16-bit words, lowest byte first, whatever the file says about
// its width and channels.
static_assert(std::endian::native == std::endian::little, "the words of a file are the machine's");

using Samples = std::span<std::int16_t>;

/// Bytes of one word.
inline constexpr qint64 WordSize = 2;
/// Bytes of one block of a scan or a pass.
inline constexpr qint64 BlockSize = 65536;
/// Words of one block.
inline constexpr std::size_t BlockWords = BlockSize / WordSize;
/// How many levels a word can have, -32768 to 32767.
inline constexpr std::size_t LevelCount = 65536;
/// The index of level 0 in a table of all levels.
inline constexpr std::size_t LevelZero = 32768;

using SampleBuffer = std::vector<std::int16_t>;

[[nodiscard]] inline std::span<std::byte> BytesOf(Samples samples) {
  return std::as_writable_bytes(samples);
}

/// How many words a loop visits from `position` to `last` in steps of 2 bytes.
[[nodiscard]] constexpr qint64 WordsUpTo(qint64 position, qint64 last) {
  return last < position ? 0 : (last - position) / WordSize + 1;
}

}  // namespace brindle
