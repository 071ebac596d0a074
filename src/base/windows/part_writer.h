// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <tl/expected.hpp>
#include <vector>

#include <QString>

#include "base/interface.h"
#include "base/windows/film_source.h"

namespace brindle {

/// Which parts of a film to write.
struct PartOrder {
  QString film;                    ///< its path
  std::vector<std::int64_t> cuts;  ///< the first frame of each part but the first; key frames
  QString folder;                  ///< where the parts go
  bool overwrites = false;         ///< parts of the same name that are there already
};

/// A part of a film that was written.
struct WrittenPart {
  QString path;
  std::int64_t bytes = 0;
  double seconds = 0;  ///< running time
};

/// Writes parts of films, without encoding them anew.
class PartWriter : public Interface {
 public:
  using Written = tl::expected<std::vector<WrittenPart>, QString>;

  /// What the writing calls, from the event loop.
  struct Calls {
    /// With whole percents, now and then.
    std::function<void(int percent)> progress;
    /// Once, at the end, with the parts or with the one message that says why there are none. The
    /// job may be destroyed in it.
    std::function<void(const Written& written)> ended;
  };

  /// Begins to write. A writing that is stopped takes away what it has written.
  [[nodiscard]] virtual std::unique_ptr<FilmJob> Begin(const PartOrder& order,
                                                       const Calls& calls) = 0;
};

}  // namespace brindle
