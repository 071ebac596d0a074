// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/text_field.h"
#include "base/numbers/running_time.h"

namespace brindle {

/// A running time in three fields: whole hours, whole minutes, and seconds with two decimals.
/// Together they stand for exactly the running time they show until somebody changes one of them;
/// then the others still stand for what they were written from.
class RunningTimeFields {
 public:
  RunningTimeFields(TextField& hours, TextField& minutes, TextField& seconds);

  /// Shows a running time of `minutes`, rounded to hundredths of a second so that it never shows
  /// 60.00 seconds; shows nothing if it is not finite.
  void Write(double minutes);
  /// Shows only the hours and minutes and leaves the seconds, which are being typed. Rounds
  /// nothing: the typed seconds are not rounded either, and would be counted twice.
  void ShowBesideSeconds(double minutes);

  /// The running time in minutes; empty fields count as 0.
  [[nodiscard]] double Minutes() const;

  [[nodiscard]] TextField& Hours() const { return hours_; }
  [[nodiscard]] TextField& WholeMinutes() const { return minutes_; }
  [[nodiscard]] TextField& Seconds() const { return seconds_; }

 private:
  void ShowHoursAndMinutes(const RunningTime& time);
  [[nodiscard]] RunningTime Parts() const;

  TextField& hours_;
  TextField& minutes_;
  TextField& seconds_;
  double shown_ = 0;        // minutes
  RunningTime shownParts_;  // what the fields stood for when they were shown
};

}  // namespace brindle
