// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// What the program is, and how to reach its author.
[[nodiscard]] std::unique_ptr<Form> MakeAboutWin(Services& services);

}  // namespace brindle
