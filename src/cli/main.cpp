// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QCoreApplication>

#include "base/files/library_search.h"
#include "base/settings/settings_file.h"
#include "base/time/clock.h"
#include "cli/command_line.h"
#include "cli/console.h"
#include "cli/film_loading.h"

int main(int argc, char** argv) {
  brindle::LimitLibrarySearch();
  brindle::OccupyStandardFiles();
  const auto arguments = brindle::ArgumentsOf(argc, argv);
  const QCoreApplication application(argc, argv);
  const brindle::SystemClock clock;
  brindle::SystemConsole console;
  const auto code = brindle::RunCommandLine(
      arguments,
      {.program = QCoreApplication::applicationDirPath(), .config = brindle::DesktopConfigFolder()},
      clock, console, brindle::LoadFilmReader);
  const bool isWritten = console.Finish();
  return static_cast<int>(
      isWritten || code != brindle::ExitCode::Answered ? code : brindle::ExitCode::Failed);
}
