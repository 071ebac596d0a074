// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/json.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/numbers/numeric_text.h"

namespace brindle {
namespace {

std::string InQuotes(std::string_view text) {
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

}  // namespace

void JsonObject::Add(std::string_view key, double number) {
  const auto text = ExactTextOf(number);
  AddRaw(key, text.empty() ? "null" : text);
}

void JsonObject::Add(std::string_view key, std::string_view text) { AddRaw(key, InQuotes(text)); }

void JsonObject::Add(std::string_view key, bool value) { AddRaw(key, value ? "true" : "false"); }

void JsonObject::Add(std::string_view key, const JsonObject& object) { AddRaw(key, object.Text()); }

void JsonObject::Add(std::string_view key, const std::vector<JsonObject>& objects) {
  std::string list = "[";
  for (const auto& object : objects) {
    list += (list.size() > 1 ? "," : "") + object.Text();
  }
  AddRaw(key, list + "]");
}

void JsonObject::AddNull(std::string_view key) { AddRaw(key, "null"); }

void JsonObject::Append(const JsonObject& other) {
  members_ += (members_.empty() || other.members_.empty() ? "" : ",") + other.members_;
}

void JsonObject::AddShown(std::string_view key, std::string_view shown, double exact) {
  if (shown.empty()) {
    AddNull(key);
  } else {
    Add(key, NumberOf(shown));
  }
  Add(std::string(key) + "_exact", exact);
}

void JsonObject::AddRaw(std::string_view key, std::string_view value) {
  members_.append(members_.empty() ? "" : ",").append(InQuotes(key)).append(":").append(value);
}

}  // namespace brindle
