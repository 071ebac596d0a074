// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include <QJsonObject>

namespace brindle {

/// Holds a JSON value against a schema, as far as docs/brindle.schema.json uses the language of
/// schemas. A word of that language that is not known here is a fault, so that nothing goes
/// unchecked.
class JsonSchema {
 public:
  explicit JsonSchema(QJsonObject root) : root_(std::move(root)) {}

  /// What is wrong with the text, with the place of it; empty if nothing is.
  [[nodiscard]] std::string FaultOf(const std::string& text) const;

 private:
  [[nodiscard]] std::string Check(const QJsonValue& value, const QJsonValue& schema,
                                  const std::string& place) const;
  [[nodiscard]] std::string CheckWord(const QString& word, const QJsonValue& wanted,
                                      const QJsonObject& schema, const QJsonValue& value,
                                      const std::string& place) const;
  [[nodiscard]] std::string CheckMembers(const QJsonObject& value, const QJsonObject& schema,
                                         const std::string& place) const;

  QJsonObject root_;
};

}  // namespace brindle
