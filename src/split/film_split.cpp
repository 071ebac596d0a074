// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "split/film_split.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "media/film.h"
#include "media/part_sizes.h"
#include "split/split_plan.h"

namespace brindle {
namespace {

// Larger sizes are beyond every film.
constexpr double MostBytes = 9007199254740992;
constexpr double BytesOfMegaByte = 1048576;

std::int64_t BytesOf(double megaBytes) {
  return static_cast<std::int64_t>(
      std::clamp(std::floor(megaBytes * BytesOfMegaByte), -1.0, MostBytes));
}

}  // namespace

FilmSplit SplitOfFilm(const Film& film, const std::vector<double>& megaBytes) {
  std::vector<std::int64_t> sizes;
  sizes.reserve(megaBytes.size());
  for (const double size : megaBytes) {
    sizes.push_back(BytesOf(size));
  }
  const auto cuts = CutsFor(film, sizes);
  if (!cuts) {
    return {};
  }
  FilmSplit split;
  std::size_t from = 0;
  for (const auto cut : *cuts) {
    split.cuts.push_back(film.keyFrames.at(cut).frame);
    split.bytes.push_back(PartBytes(film, from, cut));
    from = cut;
  }
  split.bytes.push_back(PartBytes(film, from, film.keyFrames.size()));
  return split;
}

SplitPlan PlanOfFilm(const Film& film, const FilmSplit& split, std::size_t parts) {
  if (!film.video || split.cuts.size() + 1 != parts) {
    return {};
  }
  const auto frames = static_cast<double>(film.video->frames);
  SplitPlan plan;
  std::size_t range = 0;
  for (const auto cut : split.cuts) {
    const auto first = static_cast<double>(cut);
    plan.at(range) = {first, frames};
    plan.at(range + 1) = {0, first - 1};
    range += 2;
  }
  return plan;
}

}  // namespace brindle
