// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Answers about films that nobody gave. What is believed is within its ranges, and its parts can be
// computed.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include <QByteArray>

#include "media/film_json.h"
#include "media/part_sizes.h"

namespace brindle {
namespace {

void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

void Check(const QByteArray& json) {
  const auto film = FilmOfJson(json);
  if (!film) {
    Require(!film.error().isEmpty());
    return;
  }
  // What is written is read again, and is the same.
  const auto again = FilmOfJson(QByteArray::fromStdString(JsonOf(*film, "film")));
  Require(again.has_value());
  Require(JsonOf(*again, "film") == JsonOf(*film, "film"));
  Require(std::isfinite(film->seconds) && film->seconds >= 0);
  if (film->video) {
    Require(std::isfinite(film->video->frameRate.Value()) && film->video->frameRate.Value() > 0);
    Require(std::isfinite(film->video->Shape()) && film->video->Shape() > 0);
  }
  for (std::size_t i = 1; i < film->keyFrames.size(); ++i) {
    Require(film->keyFrames[i - 1].frame < film->keyFrames[i].frame);
  }
  if (!film->keyFrames.empty()) {
    const auto whole = PartBytes(*film, 0, film->keyFrames.size());
    Require(whole >= 0);
    const auto cuts = CutsFor(*film, {whole / 2, whole / 2});
    Require(!cuts || cuts->size() <= 2);
  }
}

}  // namespace
}  // namespace brindle

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // An input is text; the library's bytes are its own.
  brindle::Check(QByteArray(reinterpret_cast<const char*>(data),  // NOLINT(*-reinterpret-cast)
                            static_cast<qsizetype>(size)));
  return 0;
}
