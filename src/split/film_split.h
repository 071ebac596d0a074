// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "media/film.h"
#include "split/split_plan.h"

namespace brindle {

/// A film cut on its real key frames.
struct FilmSplit {
  std::vector<std::int64_t> cuts;   ///< the first frame of each part but the first
  std::vector<std::int64_t> bytes;  ///< of each part when it is written; empty if none is possible
};

/// Cuts a film so that each part but the last is as large as it can be within its size, in MB of
/// 1,048,576 bytes. There are fewer parts if the film ends within one. No part is possible if a
/// size is negative or too small for what lies between two key frames. Example: key frames every
/// 10 MB, 25 MB: the second part begins at the third key frame.
[[nodiscard]] FilmSplit SplitOfFilm(const Film& film, const std::vector<double>& megaBytes);

/// The frames to delete for each part, as PlanOfTwo() and PlanOfThree() have them; nothing unless
/// there are so many parts.
[[nodiscard]] SplitPlan PlanOfFilm(const Film& film, const FilmSplit& split, std::size_t parts);

}  // namespace brindle
