// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "base/input/form.h"
#include "base/windows/services.h"

namespace brindle {

/// The resolution and aspect-ratio calculator: two sliders that keep the ratio of the film.
[[nodiscard]] std::unique_ptr<Form> MakeAspectRa(Services& services);

}  // namespace brindle
