// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace brindle {

// The largest hours, minutes and seconds that fields for the parts of a running time accept. Larger
// entries lose digits until they fit.
inline constexpr double MostHours = 999;
inline constexpr double MostMinutes = 99;
inline constexpr double MostSeconds = 99.999;

/// A running time taken apart: whole hours, whole minutes, and the seconds that remain. For a
/// running time below zero, the hours are the floor, and the rest counts up from there.
struct RunningTime {
  double hours = 0;
  double minutes = 0;
  double seconds = 0;

  [[nodiscard]] bool operator==(const RunningTime&) const = default;
};

/// `minutes` in seconds, rounded to hundredths, halves up: 1.99999 minutes are 120 seconds.
[[nodiscard]] double SecondsToHundredths(double minutes);

/// Takes this many seconds apart: 7530 are 2 hours, 5 minutes, 30 seconds. The whole parts are
/// those of WholePart(), so that whole seconds survive the way there and back.
[[nodiscard]] RunningTime TakeApart(double seconds);

/// hours x 60 + minutes + seconds / 60, in minutes. No part is limited.
[[nodiscard]] double InMinutes(const RunningTime& time);

/// The text of a running time in minutes: pattern "#" for whole minutes, otherwise "#0.###".
[[nodiscard]] std::string MinutesText(double minutes);

}  // namespace brindle
