// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>

namespace brindle {

/// XXH3, 64 bits, of these bytes, on a processor that has AVX2.
[[nodiscard]] std::uint64_t WideHashOf(const void* bytes, std::size_t count);

}  // namespace brindle
