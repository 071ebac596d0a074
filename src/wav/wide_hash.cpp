// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// This file alone is compiled for processors with AVX2. It must not use a function that other files
// have too: the linker keeps one copy of it, which may be this one.

#include "wav/wide_hash.h"

#include <cstddef>
#include <cstdint>

#define XXH_INLINE_ALL  // NOLINT(cppcoreguidelines-macro-usage): the library's own switch
#include <xxhash.h>

namespace brindle {

std::uint64_t WideHashOf(const void* bytes, std::size_t count) { return XXH3_64bits(bytes, count); }

}  // namespace brindle
