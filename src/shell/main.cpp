// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QApplication>
#include <QDir>

#include "base/settings/settings_file.h"
#include "shell/built_product.h"
#include "shell/library_search.h"
#include "shell/look.h"
#include "shell/program.h"
#include "shell/termination.h"

int main(int argc, char** argv) {
  brindle::LimitLibrarySearch();
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
  program.Start();
  return QApplication::exec();
}
