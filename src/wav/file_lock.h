// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace brindle {

/// Whether another program holds a lock on the open file with this descriptor that keeps others
/// from reading it. False where the system cannot tell.
[[nodiscard]] bool IsLocked(int descriptor);

}  // namespace brindle
