// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include "base/windows/services.h"
#include "shell/owning_window_list.h"

namespace brindle {

/// Tells the list how every window that exists is made. `initDat` loads the default settings.
void AddAllWindows(OwningWindowList& windows, Services& services,
                   const std::function<void()>& initDat);

}  // namespace brindle
