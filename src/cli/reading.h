// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tl/expected.hpp>

#include "cli/printable.h"
#include "convert/size_units.h"

namespace brindle {

// How values are written on the command line. Numbers have a decimal point in every language, and
// nothing is guessed: what is not written in one of the forms below is an error, which says what is
// wrong and how to write it.

/// What a text stands for, or what is wrong with it.
template <class Value>
using Reading = tl::expected<Value, std::string>;

/// A number of 0 or more: "25", "23.976".
[[nodiscard]] Reading<double> ReadNumber(std::string_view text);

/// A number from 1 to 32767 without decimals.
[[nodiscard]] Reading<std::int16_t> ReadCount(std::string_view text);

/// A size with its unit: "700MB", "700 MiB", "734003200B". Without a unit it is in MB. One KB is
/// 1024 bytes, with or without the i.
struct WrittenSize {
  double number = 0;
  SizeUnit unit = SizeUnit::MB;
};
[[nodiscard]] Reading<WrittenSize> ReadSize(std::string_view text);

/// The same in MB of 1024 KB: "4.7GB" gives 4812.8.
[[nodiscard]] Reading<double> ReadMegaBytes(std::string_view text);

/// A running time as it was written: in minutes ("102.5"), as hours:minutes:seconds ("1:42:30.5"),
/// or as frames ("153750f").
struct WrittenTime {
  double minutes = 0;
  std::optional<double> frames;  ///< if there are any, they count, and not the minutes
};
[[nodiscard]] Reading<WrittenTime> ReadTime(std::string_view text);

/// Frames per second: a number above 0, "pal" (25), "film" (23.976) or "ntsc" (29.97).
[[nodiscard]] Reading<double> ReadRate(std::string_view text);

/// kbit/s: "192", "192k", "192kbps".
[[nodiscard]] Reading<double> ReadKiloBits(std::string_view text);

/// Percent: "98" or "98%".
[[nodiscard]] Reading<double> ReadPercent(std::string_view text);
/// The same, at most 100.
[[nodiscard]] Reading<double> ReadShare(std::string_view text);

/// "on" or "off".
[[nodiscard]] Reading<bool> ReadSwitch(std::string_view text);

/// The option of a codec generation: "3" gives 0; "4", "5" and "4/5" give 1.
[[nodiscard]] Reading<std::int16_t> ReadDivX(std::string_view text);

/// How often audio is interleaved: every so many milliseconds ("400ms") or frames ("10").
struct WrittenInterval {
  double number = 0;
  bool isInMilliSeconds = false;
};
[[nodiscard]] Reading<WrittenInterval> ReadInterval(std::string_view text);

/// The ratio of a film's width to its height. 0 is none: "free".
[[nodiscard]] Reading<float> ReadRatio(std::string_view text);

}  // namespace brindle
