// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "media/film_work.h"

namespace brindle {

/// The reader of films.
[[nodiscard]] std::unique_ptr<FilmReader> MakeFilmReader();

}  // namespace brindle
