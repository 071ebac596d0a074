// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

namespace brindle {

/// One step of 1 upwards under an upper bound; without a `limit` there is no bound. At or above the
/// bound the result is the bound; a step that would cross it leaves the value as it is. That 99.5
/// under 100 stays 99.5 is deliberate: only a value at or beyond the bound is set to it, and a
/// typed fraction below it survives (StepUpTest, FractionBelowAHundred).
[[nodiscard]] double StepUp(double value, std::optional<double> limit);

/// One step of 1 downwards over a lower bound, the mirror image of StepUp().
[[nodiscard]] double StepDown(double value, std::optional<double> limit);

/// `value` at 15 significant digits, divided by 10 as long as it is greater than `limit`: 5000
/// under 999 is 500, 1234 under 999 is 123.4. Dropping digits instead of clamping is deliberate:
/// the digits typed before the one too many stay (ShrinkByTensTest, DropsDigitsUntilItFits). Stops
/// for every input, a negative limit included; a value that is not finite counts as 0.
[[nodiscard]] double ShrinkByTens(double value, double limit);

}  // namespace brindle
