// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <tl/expected.hpp>
#include <vector>

#include <QString>

#include "base/interface.h"
#include "base/settings/settings.h"
#include "base/time/clock.h"
#include "cli/console.h"
#include "cli/json.h"
#include "cli/options.h"
#include "media/film_work.h"

namespace brindle {

/// How the program ends.
enum class ExitCode {
  Answered = 0,
  Failed = 1,      ///< a file or a disk
  WrongUsage = 2,  ///< of the command line
  NoAnswer = 3,    ///< there is none for these values
  Interrupted = 130,
};

/// An answer: one line for people, then lines with details; or an object for programs.
struct Answer {
  std::vector<std::string> lines;
  JsonObject json;
};

/// Where a command reports what came of it.
class Reporter {
 public:
  Reporter(Console& console, std::string command, bool isJson);

  /// Gives the answer of a whole command. An object gets the version and the command's name.
  [[nodiscard]] ExitCode Give(const Answer& answer);
  /// Says on one line why there is none, and what would make it possible.
  [[nodiscard]] ExitCode RefuseAnswer(const std::string& why);
  [[nodiscard]] ExitCode RefuseUsage(const std::string& why);

  /// Writes lines of an answer that has several parts, unless an object is asked for.
  void GivePart(const std::vector<std::string>& lines);
  /// A message on the standard error: "brindle: MESSAGE". Stays on one line whatever is in it.
  void Tell(const std::string& message);

  [[nodiscard]] bool IsJson() const { return isJson_; }
  [[nodiscard]] Console& Terminal() { return console_; }

 private:
  Console& console_;
  std::string command_;
  bool isJson_;
};

/// What a person reads about a command.
struct CommandText {
  std::string name;
  std::string summary;      ///< a few words, without a period
  std::string description;  ///< sentences
  std::string example;      ///< a command line
  std::vector<std::string> exampleOutput = {};
};

using FilmReaderMaker = std::function<tl::expected<std::shared_ptr<FilmReader>, std::string>()>;

/// What a command is given to work with.
struct Surroundings {
  /// The built-in settings or, with --settings, the user's.
  Settings record;
  /// The folder of the records of passes that can be undone. Asking for it may create the folder of
  /// the settings.
  std::function<QString()> undoFolder;
  const Clock& clock;
  /// What reads films, loaded for a command that asks for it; or why there is none.
  FilmReaderMaker films;
};

/// A command of the program. It is made anew for each run.
class Command : public Interface {
 public:
  [[nodiscard]] virtual CommandText Text() const = 0;
  virtual void AddOptions(Options& options) = 0;
  [[nodiscard]] virtual ExitCode Run(const Surroundings& given, Reporter& report) = 0;
};

}  // namespace brindle
