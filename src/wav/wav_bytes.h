// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace brindle {

// Numbers in the bytes of a file, lowest byte first. A shorter text counts as if 0 bytes followed.

/// The signed 16-bit number of two bytes: 0x34 0x12 is 0x1234, 0xFE 0xFF is -2.
[[nodiscard]] std::int16_t Bytes2ToInt(std::string_view text);

/// The number in four bytes as a signed 32-bit one; none from 2^31 on, where that overflows.
[[nodiscard]] std::optional<std::int32_t> Bytes4ToLong(std::string_view text);

/// The unsigned number in four bytes, 0 to 2^32 - 1: how the length of sample data is read.
[[nodiscard]] std::uint32_t Bytes4ToUnsigned(std::string_view text);

}  // namespace brindle
