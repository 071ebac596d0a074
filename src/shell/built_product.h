// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/windows/services.h"

namespace brindle {

/// The product as this build was configured.
[[nodiscard]] Product BuiltProduct();

/// Sets the application's name, icon and behaviour in the toolkit, before the first window.
void SetUpApplication();

}  // namespace brindle
