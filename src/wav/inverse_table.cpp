// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/inverse_table.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "wav/gain.h"
#include "wav/level_range.h"
#include "wav/samples.h"

namespace brindle {

namespace {

constexpr int BitsPerByte = 8;

std::size_t IndexOf(int level) {
  const int index = level + static_cast<int>(LevelZero);
  return static_cast<std::size_t>(index);
}

// The table rises or falls, so the levels that share a new one stand side by side.
bool IsReversible(const GainTable& table, LevelRange range) {
  for (int level = range.lowest; level < range.highest; ++level) {
    if (table(static_cast<std::int16_t>(level)) == table(static_cast<std::int16_t>(level + 1))) {
      return false;
    }
  }
  return true;
}

void Append(unsigned number, int count, std::vector<std::byte>& bits, int& used) {
  while (count > 0) {
    if (used == 0) {
      bits.push_back(std::byte{0});
    }
    const int taken = std::min(count, BitsPerByte - used);
    const unsigned part = number & ((1U << static_cast<unsigned>(taken)) - 1);
    bits.back() |= static_cast<std::byte>(part << static_cast<unsigned>(used));
    number >>= static_cast<unsigned>(taken);
    count -= taken;
    used = (used + taken) % BitsPerByte;
  }
}

// The bits are there.
unsigned Take(int count, std::span<const std::byte> bits, qint64& at) {
  unsigned number = 0;
  for (int taken = 0; taken < count;) {
    const auto inByte = static_cast<int>(at % BitsPerByte);
    const int more = std::min(count - taken, BitsPerByte - inByte);
    const auto byte = std::to_integer<unsigned>(bits[static_cast<std::size_t>(at / BitsPerByte)]);
    const unsigned part =
        (byte >> static_cast<unsigned>(inByte)) & ((1U << static_cast<unsigned>(more)) - 1);
    number |= part << static_cast<unsigned>(taken);
    taken += more;
    at += more;
  }
  return number;
}

// Any level, if the range has all of them: then there is no new level that is impossible, unless
// several share one.
std::int16_t LevelOutside(LevelRange range) {
  if (range.lowest > AllLevels.lowest) {
    return static_cast<std::int16_t>(range.lowest - 1);
  }
  return static_cast<std::int16_t>(range.highest < AllLevels.highest ? range.highest + 1 : 0);
}

}  // namespace

InverseTable::InverseTable(const GainTable& table, LevelRange range)
    : first_(LevelOutside(range)), bits_(LevelCount, Impossible), range_(range) {
  for (int first = range.lowest; first <= range.highest;) {
    const auto mapped = table(static_cast<std::int16_t>(first));
    int next = first + 1;
    while (next <= range.highest && table(static_cast<std::int16_t>(next)) == mapped) {
      ++next;
    }
    const auto bits = static_cast<int>(std::bit_width(static_cast<unsigned>(next - first - 1)));
    first_[mapped] = static_cast<std::int16_t>(first);
    bits_[IndexOf(mapped)] = static_cast<std::uint8_t>(bits);
    mostBits_ = std::max(mostBits_, bits);
    first = next;
  }
}

void InverseTable::Keep(std::span<const std::int16_t> originals, const GainTable& table,
                        std::vector<std::byte>& bits, int& used) const {
  for (const auto level : originals) {
    const auto mapped = table(level);
    Append(static_cast<unsigned>(level - first_[mapped]), bits_[IndexOf(mapped)], bits, used);
  }
}

bool InverseTable::Restore(Samples words, std::span<const std::byte> bits, qint64& at) const {
  if (mostBits_ == 0) {
    first_.Map(words);
    const auto restored = RangeOf(words);
    return restored.lowest >= range_.lowest && restored.highest <= range_.highest;
  }
  const auto end = static_cast<qint64>(bits.size()) * BitsPerByte;
  for (auto& word : words) {
    const int count = bits_[IndexOf(word)];
    if (count == Impossible || count > end - at) {
      return false;
    }
    const auto original = first_[word] + (count == 0 ? 0 : static_cast<int>(Take(count, bits, at)));
    word = static_cast<std::int16_t>(original);
  }
  return true;
}

int MostBitsLost(const GainTable& table, LevelRange range) {
  return IsReversible(table, range) ? 0 : InverseTable(table, range).MostBits();
}

}  // namespace brindle
