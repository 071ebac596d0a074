// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QSocketNotifier>

#include "shell/termination.h"

namespace brindle {
namespace {

// A signal handler may do next to nothing: it writes one byte that wakes the event loop.
int writeEnd = -1;

void WakeEventLoop(int) {
  const char byte = 0;
  [[maybe_unused]] const auto written = write(writeEnd, &byte, 1);
}

}  // namespace

Termination::Termination() {
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { Q_EMIT SessionEnds(); });
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    return;  // the signals keep their usual effect
  }
  writeEnd = ends[1];
  auto* notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this, readEnd = ends[0]] {
    char byte = 0;
    [[maybe_unused]] const auto taken = read(readEnd, &byte, 1);
    Q_EMIT Asked();
  });

  struct sigaction action = {};
  action.sa_handler =
      WakeEventLoop;  // NOLINT(cppcoreguidelines-pro-type-union-access): POSIX's form
  action.sa_flags = SA_RESTART;
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    sigaction(signal, &action, nullptr);
  }
  // If a file must not grow, that is an error of the write, not the end of the program.
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace brindle
