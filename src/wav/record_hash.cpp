// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/record_hash.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// Compiled in, so that the program needs no further library where it runs.
#define XXH_INLINE_ALL  // NOLINT(cppcoreguidelines-macro-usage): the library's own switch
#include <xxhash.h>

#include "wav/samples.h"
#include "wav/wide_hash.h"

namespace brindle {

quint64 HashOf(std::span<const std::byte> bytes) {
#ifdef BRINDLE_HAS_WIDE_HASH
  if (__builtin_cpu_supports("avx2")) {
    return WideHashOf(bytes.data(), bytes.size());
  }
#endif
  return XXH3_64bits(bytes.data(), bytes.size());
}

quint64 HashOfBlocks(std::span<const quint64> blockHashes) {
  return HashOf(std::as_bytes(blockHashes));
}

quint64 HashOfPiece(std::span<const std::int16_t> words) {
  std::vector<quint64> hashes;
  for (; !words.empty(); words = words.subspan(std::min(words.size(), BlockWords))) {
    hashes.push_back(HashOf(std::as_bytes(words.first(std::min(words.size(), BlockWords)))));
  }
  return HashOfBlocks(hashes);
}

}  // namespace brindle
