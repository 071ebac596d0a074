// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace brindle {

/// Keeps the messages of the machine's own pointer from the tests' windows: where it happens to
/// lie, a window that opens under it would take it for a person's. The tests' clicks do not come
/// that way.
void IgnoreRealPointer();

}  // namespace brindle
