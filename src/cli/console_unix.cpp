// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <vector>

#include "cli/console.h"

namespace brindle {
namespace {

volatile std::sig_atomic_t interrupted = 0;

void Note(int) { interrupted = 1; }

}  // namespace

std::vector<std::string> ArgumentsOf(int argc, char** argv) {
  return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

void OccupyStandardFiles() {
  for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
    if (fcntl(file, F_GETFD) == -1 && errno == EBADF) {
      // Takes the lowest number, which is this one. What is written there is still an error.
      // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): POSIX's form
      static_cast<void>(open("/dev/null", O_RDONLY));
    }
  }
}

bool IsErrorATerminal() { return isatty(STDERR_FILENO) == 1; }

void NoteInterruptions() {
  struct sigaction action = {};
  action.sa_handler = Note;  // NOLINT(cppcoreguidelines-pro-type-union-access): POSIX's form
  action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    // What the one who started the program ignores (nohup) stays ignored.
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-union-access): POSIX's form
    if (before.sa_handler != SIG_IGN) {
      sigaction(signal, &action, nullptr);
    }
  }
  for (const int signal : {SIGPIPE, SIGXFSZ}) {
    std::signal(signal, SIG_IGN);
  }
}

bool WasInterrupted() { return interrupted != 0; }

}  // namespace brindle
