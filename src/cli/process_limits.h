// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace brindle {

/// From now on this process gets at most 1 GB of memory and some minutes of the processor's time:
/// films are other people's bytes, and a window waits for the answer.
void LimitThisProcess();

}  // namespace brindle
