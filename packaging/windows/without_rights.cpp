// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT
//
// Usage: without_rights COMMAND_LINE
// Runs a command line as a user who is no administrator, and ends with its exit code: for
// packaging/windows/try-packages, because everybody is an administrator in Wine. Ends with 255 if
// it cannot be run.

#include <array>
#include <string>
#include <windows.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t* commandLine, int) {
  constexpr int failed = 255;
  HANDLE own = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own) == FALSE) {
    return failed;
  }
  std::array<char, SECURITY_MAX_SID_SIZE> administrators{};
  DWORD size = administrators.size();
  if (CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators.data(), &size) ==
      FALSE) {
    return failed;
  }
  SID_AND_ATTRIBUTES denied = {administrators.data(), 0};
  HANDLE restricted = nullptr;
  if (CreateRestrictedToken(own, DISABLE_MAX_PRIVILEGE, 1, &denied, 0, nullptr, 0, nullptr,
                            &restricted) == FALSE) {
    return failed;
  }
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process = {};
  std::wstring command(commandLine);
  if (CreateProcessAsUserW(restricted, nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                           nullptr, &start, &process) == FALSE) {
    return failed;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = failed;
  GetExitCodeProcess(process.hProcess, &code);
  return static_cast<int>(code);
}
