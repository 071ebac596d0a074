// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/cli/json_schema.h"

#include <cmath>
#include <string>

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>
#include <QString>
#include <QStringList>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

std::string TypeOf(const QJsonValue& value) {
  switch (value.type()) {
    case QJsonValue::Null:
      return "null";
    case QJsonValue::Bool:
      return "boolean";
    case QJsonValue::Double:
      return value.toDouble() == std::floor(value.toDouble()) ? "integer" : "number";
    case QJsonValue::String:
      return "string";
    case QJsonValue::Array:
      return "array";
    case QJsonValue::Object:
      return "object";
    case QJsonValue::Undefined:
      break;
  }
  return "nothing";
}

bool IsOfType(const QJsonValue& value, const QJsonValue& wanted) {
  if (wanted.isArray()) {
    for (const auto& one : wanted.toArray()) {
      if (IsOfType(value, one)) {
        return true;
      }
    }
    return false;
  }
  const auto type = TypeOf(value);
  const auto name = wanted.toString().toStdString();
  return type == name || (type == "integer" && name == "number");
}

}  // namespace

std::string JsonSchema::FaultOf(const std::string& text) const {
  QJsonParseError error;
  const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(text), &error);
  if (error.error != QJsonParseError::NoError) {
    return error.errorString().toStdString() + " at " + std::to_string(error.offset);
  }
  return Check(document.object(), root_, "$");
}

std::string JsonSchema::Check(const QJsonValue& value, const QJsonValue& schema,
                              const std::string& place) const {
  if (schema.isBool()) {
    return schema.toBool() ? "" : place + " may not be there";
  }
  const auto words = schema.toObject();
  for (auto word = words.begin(); word != words.end(); ++word) {
    const auto fault = CheckWord(word.key(), word.value(), words, value, place);
    if (!fault.empty()) {
      return fault;
    }
  }
  return {};
}

std::string JsonSchema::CheckWord(const QString& word, const QJsonValue& wanted,
                                  const QJsonObject& schema, const QJsonValue& value,
                                  const std::string& place) const {
  static const QStringList saysNothing{u"$schema"_s, u"$id"_s,         u"$defs"_s,
                                       u"title"_s,   u"description"_s, u"additionalProperties"_s};
  if (saysNothing.contains(word)) {
    return {};
  }
  if (word == u"$ref"_s) {
    const auto name = wanted.toString().section(u'/', -1);
    const auto definition = root_.value(u"$defs"_s).toObject().value(name);
    return definition.isUndefined() ? "no definition " + name.toStdString()
                                    : Check(value, definition, place);
  }
  if (word == u"type"_s) {
    return IsOfType(value, wanted) ? "" : place + " is of the type " + TypeOf(value);
  }
  if (word == u"const"_s) {
    return value == wanted ? "" : place + " is another constant";
  }
  if (word == u"enum"_s) {
    return wanted.toArray().contains(value) ? "" : place + " is none of the values";
  }
  if (word == u"minimum"_s) {
    return value.toDouble() >= wanted.toDouble() ? "" : place + " is too small";
  }
  if (word == u"maximum"_s) {
    return value.toDouble() <= wanted.toDouble() ? "" : place + " is too large";
  }
  if (word == u"items"_s) {
    int index = 0;
    for (const auto& item : value.toArray()) {
      const auto fault = Check(item, wanted, place + "[" + std::to_string(index++) + "]");
      if (!fault.empty()) {
        return fault;
      }
    }
    return {};
  }
  if (word == u"oneOf"_s) {
    int fits = 0;
    std::string faults;
    for (const auto& one : wanted.toArray()) {
      const auto fault = Check(value, one, place);
      fits += fault.empty() ? 1 : 0;
      faults += "\n  " + fault;
    }
    return fits == 1 ? "" : place + " fits " + std::to_string(fits) + " of the forms:" + faults;
  }
  if (word == u"required"_s) {
    for (const auto& name : wanted.toArray()) {
      if (!value.toObject().contains(name.toString())) {
        return place + " has no " + name.toString().toStdString();
      }
    }
    return {};
  }
  if (word == u"properties"_s) {
    return CheckMembers(value.toObject(), schema, place);
  }
  return "a word that is not known here: " + word.toStdString();
}

std::string JsonSchema::CheckMembers(const QJsonObject& value, const QJsonObject& schema,
                                     const std::string& place) const {
  const auto properties = schema.value(u"properties"_s).toObject();
  for (auto member = value.begin(); member != value.end(); ++member) {
    const auto known = properties.value(member.key());
    const auto there = place + "." + member.key().toStdString();
    if (known.isUndefined() && !schema.value(u"additionalProperties"_s).toBool(true)) {
      return there + " is not known";
    }
    const auto fault = known.isUndefined() ? std::string() : Check(member.value(), known, there);
    if (!fault.empty()) {
      return fault;
    }
  }
  return {};
}

}  // namespace brindle
