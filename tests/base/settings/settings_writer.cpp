// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Usage: settings_writer FOLDER
// Writes two contents in turn to the settings file of FOLDER until it is killed. Sends one byte to
// its standard output before the first write and after each one; ends when nobody reads them.

#include <span>
#include <unistd.h>

#include <QFile>
#include <QString>

#include "base/settings/settings_file.h"
#include "tests/base/settings/writer_contents.h"

namespace {

bool Tell() { return write(STDOUT_FILENO, ".", 1) == 1; }

}  // namespace

int main(int argc, char** argv) {
  const std::span arguments(argv, static_cast<std::size_t>(argc));
  if (arguments.size() != 2) {
    return 2;
  }
  const brindle::SettingsFile file(QFile::decodeName(arguments[1]));
  const auto longContent = brindle::LongContent();
  const auto shortContent = brindle::ShortContent();
  bool isLong = true;
  while (Tell()) {
    if (!file.Write(isLong ? longContent : shortContent)) {
      return 1;
    }
    isLong = !isLong;
  }
  return 0;
}
