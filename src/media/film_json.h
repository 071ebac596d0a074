// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <tl/expected.hpp>

#include <QByteArray>
#include <QString>

#include "media/film.h"

namespace brindle {

/// What `brindle info FILE --json` answers: one object on one line, without a line feed. `file` is
/// the file's name as it was given.
[[nodiscard]] std::string JsonOf(const Film& film, std::string_view file);

/// The film of such an answer, which may come from anywhere: every number is within its range, key
/// frames stand in their order, and what lies before them does not shrink. Else the reason, as the
/// middle of a line: "its width is out of range".
[[nodiscard]] tl::expected<Film, QString> FilmOfJson(const QByteArray& json);

}  // namespace brindle
