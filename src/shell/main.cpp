// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QApplication>

#include "base/files/library_search.h"
#include "base/settings/settings_file.h"
#include "shell/built_product.h"
#include "shell/look.h"
#include "shell/program.h"
#include "shell/start_arguments.h"
#include "shell/start_console.h"
#include "shell/termination.h"

int main(int argc, char** argv) {
  brindle::LimitLibrarySearch();
  const auto start = brindle::ReadStartArguments(brindle::ArgumentsAtStart(argc, argv));
  if (start.wish != brindle::StartArguments::Wish::Start) {
    constexpr int wrongUsage = 2;
    const bool isError = start.wish == brindle::StartArguments::Wish::Refuse;
    brindle::TellAtStart(start.text, isError);
    return isError ? wrongUsage : 0;
  }
  brindle::AskForDarkPalette();
  const QApplication application(argc, argv);
  brindle::SetUpApplication();
  brindle::FollowPalette();
  brindle::Program program(brindle::BuiltProduct(), {.program = QApplication::applicationDirPath(),
                                                     .config = brindle::DesktopConfigFolder()});
  const brindle::Termination termination;
  QObject::connect(&termination, &brindle::Termination::Asked, &program, &brindle::Program::End);
  QObject::connect(&termination, &brindle::Termination::SessionEnds, &program,
                   &brindle::Program::EndWithSession);
  program.Start(start.file);
  return QApplication::exec();
}
