// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The disk space calculator: video by bitrate or size, running time and audio in; megabytes out.
[[nodiscard]] std::unique_ptr<Form> MakeHDCalc(Services& services);

}  // namespace brindle
