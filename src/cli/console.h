// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/interface.h"

namespace brindle {

/// Where the command line writes, and who may interrupt it.
class Console : public Interface {
 public:
  /// Writes to the standard output, which holds nothing but the answer. What it refuses is kept for
  /// the end.
  virtual void WriteAnswer(std::string_view text) = 0;
  /// Writes a line to the standard error.
  virtual void WriteError(std::string_view line) = 0;
  /// Shows a line about the progress in place of the one before; an empty one removes it. Does
  /// nothing if nobody watches: if the standard error is no terminal.
  virtual void ShowProgress(std::string_view line) = 0;
  /// Whether the user or the system has asked the program to stop.
  [[nodiscard]] virtual bool IsInterrupted() const = 0;
};

/// The terminal, pipe or file of this process. A process has one such object.
class SystemConsole : public Console {
 public:
  SystemConsole();

  void WriteAnswer(std::string_view text) override;
  void WriteError(std::string_view line) override;
  void ShowProgress(std::string_view line) override;
  [[nodiscard]] bool IsInterrupted() const override;

  /// Whether the standard output took everything. If it did not, says so, except if its reader has
  /// left.
  [[nodiscard]] bool Finish();

 private:
  bool isTerminal_;             // the standard error
  bool showsProgress_ = false;  // now
  int failure_ = 0;             // the system's number of what the output refused
};

// What each platform does in its own way.

/// The arguments of this process after its name, in UTF-8 where the system has characters, else its
/// own bytes.
[[nodiscard]] std::vector<std::string> ArgumentsOf(int argc, char** argv);
/// Sees to it that no file that is opened later takes the place of a standard file that is closed.
/// To be called before anything is opened.
void OccupyStandardFiles();
/// Whether the standard error is a terminal.
[[nodiscard]] bool IsErrorATerminal();
/// From now on, requests to end are only noted, once: the next one ends the program. A pipe without
/// a reader and a file that must not grow are errors of the write.
void NoteInterruptions();
[[nodiscard]] bool WasInterrupted();

}  // namespace brindle
