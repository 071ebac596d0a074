// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/json_text.h"

#include <string>
#include <string_view>

namespace brindle {

std::string JsonText(std::string_view text) {
  constexpr std::string_view hex = "0123456789abcdef";
  std::string quoted = "\"";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      quoted += {'\\', c};
    } else if (byte < 0x20 || byte == 0x7F) {
      quoted += "\\u00";
      quoted += {hex[byte / 16U], hex[byte % 16U]};
    } else {
      quoted += c;
    }
  }
  return quoted + '"';
}

}  // namespace brindle
