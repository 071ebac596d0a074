// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <memory>
#include <string>

#include "cli/film_loading.h"

#ifdef BRINDLE_HAS_FILMS
#include "media/libav/film_library.h"
#endif

namespace brindle {

tl::expected<std::shared_ptr<FilmReader>, std::string> LoadFilmReader() {
#ifdef BRINDLE_HAS_FILMS
  return std::shared_ptr<FilmReader>(MakeFilmReader());
#else
  return tl::unexpected(std::string("this program was built without what reads films"));
#endif
}

}  // namespace brindle
