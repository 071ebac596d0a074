// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace brindle {

/// The units of a data size, each 1024 times the one before.
enum class SizeUnit { B, KB, MB, GB };

inline constexpr std::array SizeUnits{SizeUnit::B, SizeUnit::KB, SizeUnit::MB, SizeUnit::GB};

/// A size in each unit, in the order of SizeUnits.
using Sizes = std::array<double, SizeUnits.size()>;

[[nodiscard]] constexpr std::size_t IndexOf(SizeUnit unit) {
  return static_cast<std::size_t>(unit);
}

/// The largest size that is accepted, 1e20 bytes, in each unit: 1e20, 9.765625e16, 95367431640625,
/// and 93132257462, which deliberately is the quotient 93132257461.547... rounded up: a limit that
/// fields have always had (LargestSizeTest).
[[nodiscard]] double LargestSize(SizeUnit unit);

/// A size in all units, computed from one of them without loss. Example: 1 MB is 1024 KB, 1048576 B
/// and 0.0009765625 GB.
[[nodiscard]] Sizes SizesFrom(SizeUnit unit, double size);

/// How to show a size that is not being typed: above 9999999999 with plain digits and at most one
/// decimal; whole sizes without decimals. A size of exactly 0 is "0" in bytes and deliberately
/// blank in the other units, as users know it (TidiesSizes, Zero). An empty text stays empty.
[[nodiscard]] std::string TidiedSize(SizeUnit unit, const std::string& text);

}  // namespace brindle
