// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The video bitrate calculator: media, running time and audio in; bitrate, sizes and quality out.
[[nodiscard]] std::unique_ptr<Form> MakeBitrateCalc(Services& services);

}  // namespace brindle
