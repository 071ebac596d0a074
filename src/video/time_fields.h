// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/running_time_fields.h"
#include "base/input/text_field.h"

namespace brindle {

// What is typed into the fields of a running time is repaired instead of rejected. Too large an
// entry loses digits until it fits, deliberately: of 5000 hours the digit too many goes, and 500
// stay.

/// What hours undergo at every key: a text that is no number becomes its leading number, tens drop.
void RepairHours(TextField* field);
/// The same for minutes.
void RepairMinutes(TextField* field);
/// The same for seconds, which stay as they are typed unless they are above their limit.
void RepairSeconds(TextField* field);

/// Repairs all three fields and gives their running time in minutes; empty fields count as 0. Hours
/// and minutes lose sign and fraction. A period at the end of the seconds stays, so that decimals
/// can be typed after it.
[[nodiscard]] double RepairedMinutes(const RunningTimeFields& fields);

/// Shows a running time of `minutes`. Seconds that are being typed (`editingSeconds`) keep their
/// text, but for the whole minutes in them: these are carried, once, and the rest stays.
void ShowTime(RunningTimeFields& fields, double minutes, bool editingSeconds);

}  // namespace brindle
