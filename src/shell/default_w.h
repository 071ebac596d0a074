// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// Loads the built-in settings and writes them. `then` runs when that, and a message if it failed,
/// is over.
using InitDat = std::function<void(const std::function<void()>& then)>;

/// The window that asks for confirmation before the built-in settings are loaded.
[[nodiscard]] std::unique_ptr<Form> MakeDefaultW(Services& services, InitDat initDat);

}  // namespace brindle
