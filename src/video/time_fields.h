// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/input/text_field.h"

namespace brindle {

/// A running time in three fields that repair what is typed into them instead of rejecting keys.
/// Too large an entry loses digits until it fits, deliberately: 5000 hours become 500.
struct TimeFields {
  TextField* hours = nullptr;    ///< whole, at most 999
  TextField* minutes = nullptr;  ///< whole, at most 99
  TextField* seconds = nullptr;  ///< at most 99.999
};

/// What hours undergo at every key: a text that is no number becomes its leading number, tens drop.
void RepairHours(TextField* field);
/// The same for minutes.
void RepairMinutes(TextField* field);
/// The same for seconds, which stay as they are typed unless they are above their limit.
void RepairSeconds(TextField* field);

/// Repairs all three fields and gives their running time in minutes; empty fields count as 0. Hours
/// and minutes lose sign and fraction. A period at the end of the seconds stays, so that decimals
/// can be typed behind it.
[[nodiscard]] double RepairedMinutes(const TimeFields& fields);

/// Shows a running time of `minutes`. Seconds that are being typed (`editingSeconds`) keep their
/// text, but for whole minutes above 60 in them; exactly 60 deliberately stays.
void ShowTime(const TimeFields& fields, double minutes, bool editingSeconds);

}  // namespace brindle
