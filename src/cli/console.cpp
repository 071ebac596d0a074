// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/console.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

namespace brindle {
namespace {

// Goes to the beginning of the line and clears the rest of it.
constexpr std::string_view ClearLine = "\r\x1b[K";

void Write(std::FILE* file, std::string_view text) {
  static_cast<void>(std::fwrite(text.data(), 1, text.size(), file));
}

}  // namespace

SystemConsole::SystemConsole() : isTerminal_(IsErrorATerminal()) { NoteInterruptions(); }

void SystemConsole::WriteAnswer(std::string_view text) {
  ShowProgress({});
  errno = 0;
  const bool isWritten =
      std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  if (!isWritten && failure_ == 0) {
    failure_ = errno != 0 ? errno : EIO;
  }
}

void SystemConsole::WriteError(std::string_view line) {
  ShowProgress({});
  Write(stderr, std::string(line) + "\n");
}

void SystemConsole::ShowProgress(std::string_view line) {
  if (!isTerminal_ || (line.empty() && !showsProgress_)) {
    return;
  }
  Write(stderr, std::string(ClearLine) + std::string(line));
  std::fflush(stderr);
  showsProgress_ = !line.empty();
}

bool SystemConsole::IsInterrupted() const { return WasInterrupted(); }

bool SystemConsole::Finish() {
  ShowProgress({});
  if (failure_ != 0 && failure_ != EPIPE) {
    WriteError(std::string("brindle: cannot write the standard output: ") +
               std::strerror(failure_));
  }
  return failure_ == 0;
}

}  // namespace brindle
