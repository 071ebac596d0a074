// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cstdio>

#include <QString>
#include <QStringList>

#include "shell/start_console.h"

namespace brindle {

QStringList ArgumentsAtStart(int argc, char** argv) {
  QStringList arguments;
  for (int i = 1; i < argc; ++i) {
    arguments.append(QString::fromLocal8Bit(argv[i]));
  }
  return arguments;
}

void TellAtStart(const QString& text, bool isError) {
  std::fputs(qPrintable(text), isError ? stderr : stdout);
}

}  // namespace brindle
