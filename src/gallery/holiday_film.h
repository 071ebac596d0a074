// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include <QString>

#include "base/windows/film_source.h"
#include "base/windows/part_writer.h"
#include "media/film.h"

namespace brindle {

/// The film of the pictures: 102 and a half minutes on three discs, with key frames where scenes
/// begin.
[[nodiscard]] Film HolidayFilm();

/// Every file is that film.
class HolidayFilms : public FilmSource {
 public:
  [[nodiscard]] std::unique_ptr<FilmJob> Begin(const QString& path, const Calls& calls) override;
};

/// Writes nothing.
class NoParts : public PartWriter {
 public:
  [[nodiscard]] std::unique_ptr<FilmJob> Begin(const PartOrder& order, const Calls& calls) override;
};

}  // namespace brindle
