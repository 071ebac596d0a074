// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>

namespace brindle {

/// The nearest 16-bit whole number, ties to even (2.5 gives 2, 3.5 gives 4); a number outside the
/// type's range becomes the nearer end of it (40000 gives 32767); not-a-number gives 0.
[[nodiscard]] std::int16_t ToInteger16(double value);

/// The nearest 32-bit whole number, ties to even, clamped to the type's range; not-a-number gives
/// 0.
[[nodiscard]] std::int32_t ToInteger32(double value);

/// The number at 15 significant digits, rounded to `decimals` places (0 to 15), ties to even: 0.125
/// to 2 decimals is 0.12. A number that is not finite comes back unchanged.
[[nodiscard]] double RoundedTo(double value, int decimals);

/// The floor of the number at 15 significant digits: 28.999999999999996 is 29, -0.5 is -1. A number
/// that is not finite comes back unchanged.
[[nodiscard]] double WholePart(double value);

/// Whether the number at 15 significant digits is a whole number. False if it is not finite.
[[nodiscard]] bool IsWhole(double value);

/// Rounds both operands with ToInteger32(), divides, and truncates the quotient toward zero.
/// Nothing if the divisor rounds to 0.
[[nodiscard]] std::optional<std::int64_t> IntegerDivided(double dividend, double divisor);

/// The remainder that IntegerDivided() leaves, with the sign of the dividend. Nothing if the
/// divisor rounds to 0.
[[nodiscard]] std::optional<std::int64_t> Modulo(double dividend, double divisor);

}  // namespace brindle
