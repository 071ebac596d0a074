// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Replaces a program of the Windows desktop, under that program's name: adds a line to the file
// that BRINDLE_TEST_NOTES names, "NAME|CURRENT FOLDER|HOW ITS WINDOW IS TO BE SHOWN|ARGUMENT|...",
// and exits with BRINDLE_TEST_EXIT or 0.

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <windows.h>

int main(int argc, char** argv) {
  const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
  STARTUPINFOA startUp = {};
  startUp.cb = sizeof(startUp);
  GetStartupInfoA(&startUp);
  const bool isTold = (startUp.dwFlags & STARTF_USESHOWWINDOW) != 0;

  std::string note = std::filesystem::path(arguments[0]).stem().string() + "|" +
                     std::filesystem::current_path().string() + "|" +
                     (isTold ? std::to_string(startUp.wShowWindow) : "not told") + "|";
  for (const auto* argument : arguments.subspan(1)) {
    note.append(argument).append("|");
  }
  const char* notes = std::getenv("BRINDLE_TEST_NOTES");
  std::ofstream(notes == nullptr ? "notes" : notes, std::ios::app) << note << '\n';
  const char* code = std::getenv("BRINDLE_TEST_EXIT");
  return code == nullptr ? 0 : std::atoi(code);
}
