// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <windows.h>

#include "base/files/library_search.h"

namespace brindle {

void LimitLibrarySearch() { SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32); }

}  // namespace brindle
