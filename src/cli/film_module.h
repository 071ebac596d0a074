// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "media/film_work.h"

namespace brindle {

/// What a program asks the library that reads films for: a new reader, which the program deletes.
using NewFilmReader = FilmReader* (*)();
constexpr const char* NewFilmReaderName = "brindle_new_film_reader";

}  // namespace brindle
