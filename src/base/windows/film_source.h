// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <tl/expected.hpp>

#include <QString>

#include "base/interface.h"
#include "media/film.h"

namespace brindle {

/// Something that goes on in a process of its own. Destroying it stops it: none of its functions
/// runs any more.
class FilmJob : public Interface {};

/// Reads what there is to know about films. Nothing here waits, and no film, however damaged, harms
/// the program.
class FilmSource : public Interface {
 public:
  using Read = tl::expected<Film, QString>;

  /// What a reading calls, from the event loop.
  struct Calls {
    /// With whole percents, now and then.
    std::function<void(int percent)> progress;
    /// Once, at the end, with the film or with the one message that says why there is none. The job
    /// may be destroyed in it.
    std::function<void(const Read& read)> ended;
  };

  /// Begins to read the film file at an absolute path.
  [[nodiscard]] virtual std::unique_ptr<FilmJob> Begin(const QString& path, const Calls& calls) = 0;
};

}  // namespace brindle
