// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cstdio>
#include <io.h>
#include <memory>
#include <string>
#include <vector>
#include <windows.h>
// After the system's own header, on which it stands.
#include <shellapi.h>

#include <QString>

#include "cli/console.h"

namespace brindle {
namespace {

volatile LONG interrupted = 0;

// The first request is noted; the next one has its usual effect.
BOOL WINAPI Note(DWORD) { return InterlockedExchange(&interrupted, 1) == 0 ? TRUE : FALSE; }

}  // namespace

std::vector<std::string> ArgumentsOf(int, char**) {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(
      CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) {
    arguments.push_back(QString::fromWCharArray(words.get()[i]).toStdString());
  }
  return arguments;
}

// Files are opened by the system's own handles there, which are no such numbers.
void OccupyStandardFiles() {}

bool IsErrorATerminal() { return _isatty(_fileno(stderr)) != 0; }

void NoteInterruptions() {
  SetConsoleOutputCP(CP_UTF8);
  // Colours and the clearing of a line, which only newer consoles do unasked.
  HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
  DWORD mode = 0;
  if (GetConsoleMode(error, &mode) != 0) {
    SetConsoleMode(error, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  }
  SetConsoleCtrlHandler(Note, TRUE);
}

bool WasInterrupted() { return InterlockedCompareExchange(&interrupted, 0, 0) != 0; }

}  // namespace brindle
