// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace brindle {

/// How a pass reads and writes: 64 blocks of 64 KB in turn, or one.
enum class Buffering { Multi, Single };

}  // namespace brindle
