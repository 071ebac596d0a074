// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The window that asks once more before the defaults are loaded. `initDat` loads the defaults and
/// writes them.
[[nodiscard]] std::unique_ptr<Form> MakeDefaultW(Services& services, std::function<void()> initDat);

}  // namespace brindle
