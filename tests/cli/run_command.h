// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <QDir>
#include <QFile>
#include <QObject>
#include <QString>
#include <gtest/gtest.h>

#include "base/time/clock.h"
#include "cli/command_line.h"
#include "cli/console.h"
#include "tests/base/settings/temporary_folder.h"

namespace brindle {

/// A console that keeps what is written, and is interrupted when a test says so.
class FakeConsole : public Console {
 public:
  void WriteAnswer(std::string_view text) override { answer += text; }
  void WriteError(std::string_view line) override { errors.append(line).append("\n"); }
  void ShowProgress(std::string_view line) override {
    if (!line.empty()) {
      progress.emplace_back(line);
    }
  }
  [[nodiscard]] bool IsInterrupted() const override { return looks_++ >= interruptedAtLook; }

  std::string answer;
  std::string errors;
  std::vector<std::string> progress;
  /// How often it is asked without having been interrupted.
  int interruptedAtLook = std::numeric_limits<int>::max();

 private:
  mutable int looks_ = 0;
};

/// Time passes as fast as a test says, whenever it is looked at.
class TickingClock : public Clock {
 public:
  [[nodiscard]] double Now() const override { return now_ += tick; }
  [[nodiscard]] float SecondsSinceMidnight() const override { return 0; }
  void After(double, QObject*, std::function<void()>) override {}

  double tick = 0.001;  ///< seconds

 private:
  mutable double now_ = 0;
};

/// What came of a run of the program.
struct RunResult {
  int code = 0;
  std::string answer;
  std::string errors;
};

/// The words of a line: "time 5 'a b'" has three.
inline std::vector<std::string> WordsOf(std::string_view line) {
  std::vector<std::string> words(1);
  bool isQuoted = false;
  for (const char c : line) {
    if (c == '\'') {
      isQuoted = !isQuoted;
    } else if (c == ' ' && !isQuoted) {
      words.emplace_back();
    } else {
      words.back() += c;
    }
  }
  return words;
}

/// A path as the system's messages write it.
inline std::string Native(const QString& path) {
  return QDir::toNativeSeparators(path).toStdString();
}

/// The system's reason for a file that is not there, without a period.
inline std::string NoSuchFile() {
  const TemporaryFolder empty;
  QFile file(empty.PathOf("nothing"));
  EXPECT_FALSE(file.open(QIODevice::ReadOnly));
  auto reason = file.errorString().toStdString();
  if (reason.ends_with('.')) {
    reason.pop_back();
  }
  return reason;
}

/// Runs the program within the test, with a folder of its own for settings and records.
class CommandRunner {
 public:
  [[nodiscard]] RunResult Run(const std::vector<std::string>& arguments) const {
    FakeConsole console;
    return Run(arguments, console);
  }
  [[nodiscard]] RunResult Run(const std::vector<std::string>& arguments,
                              FakeConsole& console) const {
    const auto code =
        RunCommandLine(arguments, {.program = folder.Path(), .config = folder.PathOf("config")},
                       clock, console, films);
    return {static_cast<int>(code), console.answer, console.errors};
  }
  [[nodiscard]] RunResult Run(std::string_view line) const { return Run(WordsOf(line)); }

  TemporaryFolder folder;
  TickingClock clock;
  FilmReaderMaker films;
};

}  // namespace brindle
