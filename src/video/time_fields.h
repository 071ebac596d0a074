// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/running_time_fields.h"
#include "base/input/text_field.h"

namespace brindle {

// Entries in the fields of a running time are repaired, not rejected. An entry that is too large
// deliberately loses digits until it fits: of 5000 hours, the last digit goes and the 500 typed
// before it stay. So a digit too many costs nothing else of what was typed (RunningTimeFields,
// TooManyHoursLoseADigit).

/// Repairs hours at every key: a text that is not a number becomes its leading number, and the
/// value loses digits until it fits.
void RepairHours(TextField& field);
/// The same for minutes.
void RepairMinutes(TextField& field);
/// The same for seconds, which stay as typed unless they are above their limit.
void RepairSeconds(TextField& field);

/// Repairs all three fields and gives their running time in minutes; empty fields count as 0. Hours
/// and minutes lose sign and fraction. A period at the end of the seconds stays, so that decimals
/// can be typed after it.
[[nodiscard]] double RepairedMinutes(const RunningTimeFields& fields);

/// Shows a running time of `minutes`. Seconds that are being typed (`editingSeconds`) keep their
/// text, except for any whole minutes in them: these are carried, once, and the rest stays.
void ShowTime(RunningTimeFields& fields, double minutes, bool editingSeconds);

}  // namespace brindle
