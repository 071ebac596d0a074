// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/support/real_pointer.h"

namespace brindle {

// The tests have a screen of their own, which has no pointer.
void IgnoreRealPointer() {}

}  // namespace brindle
