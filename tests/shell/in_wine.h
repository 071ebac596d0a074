// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <windows.h>

namespace brindle {

/// Whether this Windows is Wine, whose folders and registry are the test's own.
inline bool RunsInWine() {
  return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

}  // namespace brindle
