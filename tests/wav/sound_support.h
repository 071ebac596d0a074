// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include <QtGlobal>

#include "wav/sound_picture.h"
#include "wav/wav_header.h"

namespace brindle {

/// The picture of a file with a header of 44 bytes and these words; at most 2048 of them have a
/// column each. A word that is none was not read. Of no words at all: a picture of no file.
inline SoundPicture PictureOf(const std::vector<std::optional<std::int16_t>>& words) {
  if (words.empty()) {
    return {};
  }
  constexpr qint64 start = 45;
  const auto length = 2 * static_cast<qint64>(words.size());
  SoundPicture picture({.start = start, .length = length, .fileLength = start - 1 + length});
  for (qint64 position = start; const auto word : words) {
    if (word) {
      const std::vector<std::int16_t> levels{*word};
      picture.Add(position, levels);
    }
    position += 2;
  }
  return picture;
}

}  // namespace brindle
