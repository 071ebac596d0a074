// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_bytes.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace brindle {

namespace {

std::uint32_t Number(std::string_view bytes) {
  constexpr int bitsPerByte = 8;
  std::uint32_t number = 0;
  int place = 0;
  for (const char byte : bytes) {
    number |= std::uint32_t{static_cast<unsigned char>(byte)} << place;
    place += bitsPerByte;
  }
  return number;
}

}  // namespace

std::int16_t Bytes2ToInt(std::string_view text) {
  return static_cast<std::int16_t>(Number(text.substr(0, 2)));
}

std::optional<std::int32_t> Bytes4ToLong(std::string_view text) {
  const auto number = Bytes4ToUnsigned(text);
  if (number > std::numeric_limits<std::int32_t>::max()) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(number);
}

std::uint32_t Bytes4ToUnsigned(std::string_view text) { return Number(text.substr(0, 4)); }

}  // namespace brindle
