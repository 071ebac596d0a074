// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/windows/services.h"

namespace brindle {

/// The product as this build was configured.
[[nodiscard]] Product BuiltProduct();

/// The application's name, icon and manners, set on the toolkit before the first window.
void SetUpApplication();

}  // namespace brindle
