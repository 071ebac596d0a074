// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// with_environment PROGRAM [ARGUMENT...]: runs a Windows program with every environment variable
// WITH_NAME also set as NAME, and exits with its code. This is needed because Wine hides the
// toolkit's own variables (QT_...) from programs.

#include <cwchar>
#include <string>
#include <windows.h>

namespace {

const std::wstring Prefix = L"WITH_";

void SetVariables() {
  wchar_t* const block = GetEnvironmentStringsW();
  for (const wchar_t* entry = block; *entry != L'\0'; entry += std::wcslen(entry) + 1) {
    const std::wstring variable(entry);
    const auto equals = variable.find(L'=', 1);
    if (variable.starts_with(Prefix) && equals != std::wstring::npos) {
      SetEnvironmentVariableW(variable.substr(Prefix.size(), equals - Prefix.size()).c_str(),
                              variable.substr(equals + 1).c_str());
    }
  }
  FreeEnvironmentStringsW(block);
}

// The rest of the command line after this program's own name, which may be in quotes, exactly as
// written.
std::wstring RestOfCommandLine() {
  std::wstring line(GetCommandLineW());
  const auto end = line.starts_with(L'"') ? line.find(L'"', 1) + 1 : line.find(L' ');
  const auto rest = line.find_first_not_of(L' ', end);
  return rest == std::wstring::npos ? std::wstring() : line.substr(rest);
}

}  // namespace

int main() {
  SetVariables();
  auto line = RestOfCommandLine();
  STARTUPINFOW startUp = {};
  startUp.cb = sizeof(startUp);
  PROCESS_INFORMATION process = {};
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startUp,
                     &process) == FALSE) {
    return 127;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = 127;
  GetExitCodeProcess(process.hProcess, &code);
  return static_cast<int>(code);
}
