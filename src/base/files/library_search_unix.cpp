// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/files/library_search.h"

namespace brindle {

void LimitLibrarySearch() {}

}  // namespace brindle
