// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/settings/settings.h"
#include "cli/json.h"
#include "cli/options.h"
#include "cli/reading.h"

namespace brindle {

// Inputs that several commands have. Each gives what was written, or what the settings have.

/// The running time and the frame rate of the film.
struct FilmInput {
  std::optional<WrittenTime> length;
  std::optional<double> rate;

  void AddLength(Options& options);
  void AddRate(Options& options);

  /// Frames per second.
  [[nodiscard]] double Rate(const Settings& record) const;
  [[nodiscard]] double Minutes(const Settings& record) const;
};

/// What the AVI container itself adds, in KB per second of running time.
struct OverheadInput {
  std::optional<bool> frameOverhead;
  std::optional<bool> interleaveOverhead;
  std::optional<WrittenInterval> interleave;

  void AddFrames(Options& options);
  void AddInterleaving(Options& options);

  /// Of the video frames.
  [[nodiscard]] double Video(const Settings& record, const FilmInput& film) const;
  /// Of the interleaving.
  [[nodiscard]] double Audio(const Settings& record, const FilmInput& film) const;
};

/// The codec generation.
struct DivXInput {
  std::optional<std::int16_t> version;

  void Add(Options& options);
  [[nodiscard]] std::int16_t Option(const Settings& record) const {
    return version.value_or(record.DivXOption);
  }
};

/// A size in the options' help: "700MB".
[[nodiscard]] std::string MegaBytesText(double megaBytes);
/// "1:42:30.00".
[[nodiscard]] std::string ClockText(double minutes);
/// One decimal, as the windows show sizes in MB; empty for what they leave blank.
[[nodiscard]] std::string ShownMegaBytes(double megaBytes);

}  // namespace brindle
