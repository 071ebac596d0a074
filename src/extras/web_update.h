// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The update panel. It opens the update page in the desktop's browser when it loads, and shows the
/// address so that the user can open it again; the window itself does not use the network.
[[nodiscard]] std::unique_ptr<Form> MakeWebUpdate(Services& services);

}  // namespace brindle
