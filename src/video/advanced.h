// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The overhead settings: whether the AVI container's own overhead is counted, and how often audio
/// is interleaved.
[[nodiscard]] std::unique_ptr<Form> MakeAdvanced(Services& services);

}  // namespace brindle
