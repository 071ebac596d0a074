// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <QtGlobal>

namespace brindle {

/// The hash that records use for bytes: XXH3, 64 bits.
[[nodiscard]] quint64 HashOf(std::span<const std::byte> bytes);
/// The same for a piece: the hash of the hashes of its blocks, so that a block is hashed while it
/// is in the processor's cache.
[[nodiscard]] quint64 HashOfBlocks(std::span<const quint64> blockHashes);
[[nodiscard]] quint64 HashOfPiece(std::span<const std::int16_t> words);

}  // namespace brindle
