// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/film_module.h"

#include "media/libav/film_library.h"

extern "C" __attribute__((visibility("default"))) brindle::FilmReader* brindle_new_film_reader();

brindle::FilmReader* brindle_new_film_reader() { return brindle::MakeFilmReader().release(); }
