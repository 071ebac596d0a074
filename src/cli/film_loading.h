// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>
#include <tl/expected.hpp>

#include "media/film_work.h"

namespace brindle {

/// What reads films; or why there is none. It comes from a library that is loaded now, where the
/// program can do without it.
[[nodiscard]] tl::expected<std::shared_ptr<FilmReader>, std::string> LoadFilmReader();

}  // namespace brindle
