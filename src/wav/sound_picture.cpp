// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/sound_picture.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "wav/level_range.h"
#include "wav/samples.h"
#include "wav/wav_header.h"

namespace brindle {

SoundPicture::SoundPicture(const SampleData& data)
    : data_(data),
      words_(std::max<qint64>(WordsUpTo(data.start, data.LastWord()), 1)),
      columns_(static_cast<std::size_t>(std::min(words_, MostColumns))) {}

void SoundPicture::Add(qint64 position, std::span<const std::int16_t> levels) {
  auto word = (position - data_.start) / WordSize;
  while (!levels.empty()) {
    const auto column = ColumnOf(word);
    const auto rest = static_cast<qint64>(levels.size());
    const auto share =
        column == Count() - 1 ? rest : std::min(rest, FirstWordOf(column + 1) - word);
    const auto size = static_cast<std::size_t>(share);
    columns_[static_cast<std::size_t>(column)].Include(RangeOf(levels.first(size)));
    levels = levels.subspan(size);
    word += share;
  }
}

void SoundPicture::Amplify(std::size_t columns, double gain) {
  std::for_each_n(columns_.begin(), columns,
                  [gain](LevelRange& column) { column = Amplified(column, gain); });
}

LevelRange SoundPicture::RangeOfColumns(std::size_t first, std::size_t end) const {
  LevelRange range;
  for (const auto& column : Columns().subspan(first, end - first)) {
    range.Include(column);
  }
  return range;
}

Peaks SoundPicture::Ends() const {
  LevelRange range{.lowest = 0, .highest = 0};
  range.Include(RangeOfColumns(0, columns_.size()));
  return {.lowest = range.lowest, .highest = range.highest};
}

std::size_t SoundPicture::ColumnsWithin(double percent) const {
  if (columns_.empty()) {
    return 0;
  }
  const auto bytes = static_cast<qint64>(percent * static_cast<double>(data_.fileLength) / 100);
  const auto word = std::max<qint64>(bytes - (data_.start - 1), 0) / WordSize;
  return static_cast<std::size_t>(word >= words_ ? Count() : ColumnOf(word));
}

qint64 SoundPicture::ColumnOf(qint64 word) const {
  return std::clamp<qint64>(word, 0, words_ - 1) * Count() / words_;
}

qint64 SoundPicture::FirstWordOf(qint64 column) const {
  return (column * words_ + Count() - 1) / Count();
}

}  // namespace brindle
