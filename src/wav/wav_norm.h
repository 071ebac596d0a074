// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The WAV normalizer: opens a PCM WAV file, scans it for its peaks, and amplifies it so that they
/// reach a percentage of the 16-bit range.
[[nodiscard]] std::unique_ptr<Form> MakeWavNorm(Services& services);

}  // namespace brindle
