// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// A library that a stranger has put beside the program, under the name of one of the system's:
// leaves a file beside itself, with ".loaded" after its own name, once it is loaded.

#include <fstream>
#include <string>
#include <windows.h>

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    std::string name(MAX_PATH, '\0');
    name.resize(GetModuleFileNameA(library, name.data(), MAX_PATH));
    std::ofstream(name + ".loaded") << "loaded\n";
  }
  return TRUE;
}
