// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>

#include <QString>

#include "media/film.h"

namespace brindle {

// A film's facts as a person types them into fields or reads them in a line. Nothing where the film
// does not tell.

/// Running time in minutes, as the windows show it: "102.508".
[[nodiscard]] std::optional<QString> MinutesOf(const Film& film);

/// Running time in hours, minutes and seconds.
struct TimeTexts {
  QString hours;
  QString minutes;
  QString seconds;  ///< with at most two decimals: "30.48"
};
[[nodiscard]] std::optional<TimeTexts> TimeOf(const Film& film);

/// Bitrate of all audio tracks together, in kbit/s of 1000 bits, with at most one decimal.
[[nodiscard]] std::optional<QString> AudioBitrateOf(const Film& film);

/// Mean bitrate of the video alone in whole kbit/s of so many bits.
[[nodiscard]] std::optional<QString> VideoBitrateOf(const Film& film, double bitsOfKiloBit);

/// Width to height on the screen, with at most three decimals.
[[nodiscard]] std::optional<QString> ShapeOf(const Film& film);

/// Mean distance of its key frames in whole seconds, at least 1.
[[nodiscard]] std::optional<QString> KeyFrameDistanceOf(const Film& film);

/// Megabytes (of 1,048,576 bytes) with at most two decimals.
[[nodiscard]] QString MegaBytesText(std::int64_t bytes);

/// The frame-rate system (see FramesPerSecond()) whose rate is nearest to the film's.
[[nodiscard]] std::optional<int> NearestSystem(const Film& film);

/// What the film is, on one line: "holiday.avi: 1:42:30, 25 fps, 640 x 272, 2 audio tracks". With
/// `system`, the rate that was chosen for it is named too, if it is not the film's own.
[[nodiscard]] QString FilmText(const QString& path, const Film& film,
                               std::optional<int> system = std::nullopt);

/// "1:42:30", in whole seconds.
[[nodiscard]] QString DurationText(double seconds);

/// The name of the file at `path`, on one line whatever is in it.
[[nodiscard]] QString NameOfFile(const QString& path);

}  // namespace brindle
