// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace brindle {

/// From now on, libraries come from the system's own folder only, not from where the program or a
/// file lies. Where only administrators decide on that, it does nothing.
void LimitLibrarySearch();

}  // namespace brindle
