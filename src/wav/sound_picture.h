// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <QtGlobal>

#include "wav/level_range.h"
#include "wav/wav_header.h"

namespace brindle {

/// A picture of the sound of one file: columns from its beginning to its end, each with the range
/// of the levels that were read of its share of the words. A value of at most 8 KB, however long
/// the file is.
///
/// Every column has the same share of the words, to within one word: of n words, column c of k has
/// those from c * n / k, rounded up, to the first of column c + 1. 5000 words in 2048 columns: the
/// first three columns have the words 0 to 2, 3 and 4, 5 to 7. A file with fewer words than columns
/// has a column for each word.
class SoundPicture {
 public:
  /// Enough for a window of 900 device-independent pixels at 200 %.
  static constexpr qint64 MostColumns = 2048;

  /// Of no file: it has no columns.
  SoundPicture() = default;
  /// Of the samples of a file, none of which has been read yet. Has at least one column.
  explicit SoundPicture(const SampleData& data);

  /// Adds words that were read from `position` on, which counts from 1 like that of a file. What
  /// is not among the samples belongs to the first or the last column: a scan may count it, and the
  /// picture shows what was read.
  void Add(qint64 position, std::span<const std::int16_t> levels);

  /// Has the first columns be what a pass with this gain makes of them.
  void Amplify(std::size_t columns, double gain);

  /// From the beginning of the file to its end; empty where nothing was read.
  [[nodiscard]] std::span<const LevelRange> Columns() const { return columns_; }

  /// The range of the columns from `first` to `end`, which does not belong to them.
  [[nodiscard]] LevelRange RangeOfColumns(std::size_t first, std::size_t end) const;

  /// The peaks of all that was read; 0 and 0 if it was nothing.
  [[nodiscard]] Peaks Ends() const;

  /// How many columns lie wholly within the first `percent` of the file, header included: 44 bytes
  /// of header and 100 words have 100 columns, and 39 of them are in the first 50 % of the file.
  [[nodiscard]] std::size_t ColumnsWithin(double percent) const;

 private:
  [[nodiscard]] qint64 Count() const { return static_cast<qint64>(columns_.size()); }
  [[nodiscard]] qint64 ColumnOf(qint64 word) const;
  [[nodiscard]] qint64 FirstWordOf(qint64 column) const;

  SampleData data_;
  qint64 words_ = 0;  // that the columns share
  std::vector<LevelRange> columns_;
};

}  // namespace brindle
