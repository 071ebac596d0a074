// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/json.h"

#include <string>
#include <string_view>
#include <vector>

#include "base/numbers/json_text.h"
#include "base/numbers/numeric_text.h"

namespace brindle {

void JsonObject::Add(std::string_view key, double number) {
  const auto text = ExactTextOf(number);
  AddRaw(key, text.empty() ? "null" : text);
}

void JsonObject::Add(std::string_view key, std::string_view text) { AddRaw(key, JsonText(text)); }

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
  members_.append(members_.empty() ? "" : ",").append(JsonText(key)).append(":").append(value);
}

}  // namespace brindle
