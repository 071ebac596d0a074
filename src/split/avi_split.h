// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The AVI split calculator: which frames to delete so that each part of a large file has its size
/// and begins on a key frame.
[[nodiscard]] std::unique_ptr<Form> MakeAVISplit(Services& services);

}  // namespace brindle
