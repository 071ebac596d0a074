// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace brindle {

/// The number of `count` bytes from `at` on, the lowest first. What is past the end counts as 0.
[[nodiscard]] inline std::uint64_t LittleEndian(std::span<const std::byte> bytes, std::size_t at,
                                                std::size_t count) {
  std::uint64_t value = 0;
  for (std::size_t i = count; i-- > 0;) {
    const auto place = at + i;
    value = value << 8U | (place < bytes.size() ? std::to_integer<std::uint64_t>(bytes[place]) : 0);
  }
  return value;
}

[[nodiscard]] inline std::uint32_t Word32(std::span<const std::byte> bytes, std::size_t at) {
  return static_cast<std::uint32_t>(LittleEndian(bytes, at, 4));
}

/// Four letters as the number that they are in a file.
[[nodiscard]] constexpr std::uint32_t FourLetters(std::string_view letters) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;) {
    value = value << 8U | static_cast<unsigned char>(letters[i]);
  }
  return value;
}

inline void AppendNumber(std::vector<std::byte>& bytes, std::uint64_t value, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    bytes.push_back(static_cast<std::byte>(value >> (8 * i) & 0xFFU));
  }
}

inline void Append32(std::vector<std::byte>& bytes, std::uint64_t value) {
  AppendNumber(bytes, value, 4);
}

/// Writes 32 bits over those at `at`, which exist.
inline void Put32(std::vector<std::byte>& bytes, std::size_t at, std::uint64_t value) {
  for (std::size_t i = 0; i < 4; ++i) {
    bytes[at + i] = static_cast<std::byte>(value >> (8 * i) & 0xFFU);
  }
}

}  // namespace brindle
