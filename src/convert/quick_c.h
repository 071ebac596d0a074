// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The quick converter: a running time as hours, minutes and seconds, as minutes and as frames; a
/// size in bytes, kilobytes, megabytes and gigabytes.
[[nodiscard]] std::unique_ptr<Form> MakeQuickC(Services& services);

}  // namespace brindle
