// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The audio bitrate calculator: running time, video file and target size in; the bitrate that
/// still fits, and the standard one below it, out.
[[nodiscard]] std::unique_ptr<Form> MakeAudioCalc(Services& services);

}  // namespace brindle
