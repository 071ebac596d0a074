// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindle {

/// A JSON object whose members keep their order.
class JsonObject {
 public:
  /// Null if the number is not finite. All its digits are written.
  void Add(std::string_view key, double number);
  void Add(std::string_view key, std::string_view text);
  void Add(std::string_view key, const char* text) { Add(key, std::string_view(text)); }
  void Add(std::string_view key, bool value);
  void Add(std::string_view key, const JsonObject& object);
  void Add(std::string_view key, const std::vector<JsonObject>& objects);
  void AddNull(std::string_view key);
  /// Adds the members of another object.
  void Append(const JsonObject& other);

  /// A number as people see it, and the exact one as KEY_exact beside it. Null for a text
  /// that is empty because there is nothing to show.
  void AddShown(std::string_view key, std::string_view shown, double exact);

  /// On one line.
  [[nodiscard]] std::string Text() const { return "{" + members_ + "}"; }

 private:
  void AddRaw(std::string_view key, std::string_view value);

  std::string members_;
};

}  // namespace brindle
