// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/support/handler_table.h"

#include <map>
#include <ostream>
#include <string>
#include <vector>

#include <QString>

namespace brindle {

void PrintTo(const HandlerRow& row, std::ostream* out) {
  *out << EventOfControl(row.control, row.event);
}

std::string EventOfControl(const std::string& control, Event event) {
  auto name = control + EventName(event);
  std::erase_if(name, [](char c) { return c == '(' || c == ')'; });
  return name;
}

std::vector<HandlerRow> WithoutHandler(const std::vector<std::string>& controls,
                                       const std::vector<Event>& events) {
  std::vector<HandlerRow> rows;
  for (const auto& control : controls) {
    for (const auto event : events) {
      rows.push_back({.control = control, .event = event});
    }
  }
  return rows;
}

Effects AsStated(const std::map<std::string, std::string>& happened, const Effects& stated) {
  Effects effects;
  for (const auto& [name, text] : happened) {
    effects.insert(stated.contains(name) ? name : name + "=" + text);
  }
  return effects;
}

Effects AsStated(const std::map<std::string, double>& happened, const Effects& stated) {
  constexpr int digits = 15;
  std::map<std::string, std::string> texts;
  for (const auto& [name, number] : happened) {
    texts[name] = QString::number(number, 'g', digits).toStdString();
  }
  return AsStated(texts, stated);
}

}  // namespace brindle
