// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/printable.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace brindle {
namespace {

unsigned char ByteAt(std::string_view text, std::size_t i) {
  return static_cast<unsigned char>(text[i]);
}

bool Continues(unsigned char byte) { return byte >= 0x80 && byte < 0xC0; }

// How many bytes the character at the beginning of the text has; 0 if it is not printable.
std::size_t LengthOfPrintable(std::string_view text) {
  const auto first = ByteAt(text, 0);
  if (first < 0x80) {
    return first >= 0x20 && first != 0x7F ? 1 : 0;
  }
  const std::size_t length = first >= 0xC2 && first < 0xE0   ? 2
                             : first >= 0xE0 && first < 0xF0 ? 3
                             : first >= 0xF0 && first < 0xF5 ? 4
                                                             : 0;
  if (length == 0 || text.size() < length) {
    return 0;
  }
  for (std::size_t i = 1; i < length; ++i) {
    if (!Continues(ByteAt(text, i))) {
      return 0;
    }
  }
  const auto second = ByteAt(text, 1);
  const bool isControl = first == 0xC2 && second < 0xA0;
  // Too long a form, half of a pair, or beyond the last character.
  const bool isWrong = (first == 0xE0 && second < 0xA0) || (first == 0xED && second >= 0xA0) ||
                       (first == 0xF0 && second < 0x90) || (first == 0xF4 && second >= 0x90);
  return isControl || isWrong ? 0 : length;
}

std::string PrintableUpTo(std::string_view text, std::size_t most) {
  constexpr std::string_view hex = "0123456789abcdef";
  std::string printable;
  while (!text.empty()) {
    if (printable.size() >= most) {
      return printable + "...";
    }
    const auto length = LengthOfPrintable(text);
    if (length == 0) {
      const auto byte = ByteAt(text, 0);
      printable += {'\\', 'x', hex[byte / 16U], hex[byte % 16U]};
      text.remove_prefix(1);
    } else {
      printable += text.substr(0, length);
      text.remove_prefix(length);
    }
  }
  return printable;
}

}  // namespace

std::string Printable(std::string_view text) { return PrintableUpTo(text, std::string_view::npos); }

std::string Quoted(std::string_view text) {
  constexpr std::size_t most = 60;
  return '"' + PrintableUpTo(text, most) + '"';
}

}  // namespace brindle
