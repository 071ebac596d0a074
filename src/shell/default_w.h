// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The window that asks for confirmation before the built-in settings are loaded. `initDat` loads
/// and writes them.
[[nodiscard]] std::unique_ptr<Form> MakeDefaultW(Services& services, std::function<void()> initDat);

}  // namespace brindle
