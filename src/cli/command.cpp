// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/command.h"

#include <string>
#include <utility>
#include <vector>

#include "cli/printable.h"

namespace brindle {
Reporter::Reporter(Console& console, std::string command, bool isJson)
    : console_(console), command_(std::move(command)), isJson_(isJson) {}

ExitCode Reporter::Give(const Answer& answer) {
  if (isJson_) {
    constexpr double version = 1;  // of the objects, which docs/brindle.schema.json describes
    JsonObject json;
    json.Add("version", version);
    json.Add("command", command_);
    json.Append(answer.json);
    console_.WriteAnswer(json.Text() + "\n");
  } else {
    GivePart(answer.lines);
  }
  return ExitCode::Answered;
}

ExitCode Reporter::RefuseAnswer(const std::string& why) {
  Tell(why);
  return ExitCode::NoAnswer;
}

ExitCode Reporter::RefuseUsage(const std::string& why) {
  Tell(why);
  return ExitCode::WrongUsage;
}

void Reporter::GivePart(const std::vector<std::string>& lines) {
  if (isJson_) {
    return;
  }
  std::string text;
  for (const auto& line : lines) {
    text += Printable(line) + "\n";
  }
  console_.WriteAnswer(text);
}

void Reporter::Tell(const std::string& message) {
  console_.WriteError("brindle: " + Printable(message));
}

}  // namespace brindle
