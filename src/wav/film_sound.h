// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string_view>

#include <QString>

namespace brindle {

/// How much of a file tells whether it is a film.
inline constexpr int FilmBeginning = 400;  // bytes

/// Whether a file that begins with these bytes is a film: an AVI, Matroska, MP4, MPEG, ASF or Flash
/// video file. A WAV file never is.
[[nodiscard]] bool BeginsLikeFilm(std::string_view bytes);

/// Whether there is a film at the path. What cannot be read is none.
[[nodiscard]] bool IsFilm(const QString& path);

/// What to tell a user who wants to normalize the film at the path: how to get its sound.
[[nodiscard]] QString HowToGetSound(const QString& path);

}  // namespace brindle
