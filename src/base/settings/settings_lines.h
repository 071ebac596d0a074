// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <variant>

#include <QByteArray>
#include <QString>

#include "base/settings/settings.h"

namespace brindle {

/// The line of the SaveOnExit check box, which is no field of the record.
struct SaveOnExitLine {};

using SettingsField = std::variant<double Settings::*, float Settings::*, std::int16_t Settings::*,
                                   bool Settings::*, QString Settings::*, SaveOnExitLine>;

/// One line of the settings file: a value is known only by the line it stands on.
struct SettingsLine {
  SettingsField field;
  bool keptByDefaults = false;  ///< loading the defaults leaves the field as it is
  bool isExact = false;         ///< written with as many digits as give the very same number
};

inline constexpr std::size_t SettingsLineCount = 42;

/// The lines of the settings file in their order.
[[nodiscard]] std::span<const SettingsLine, SettingsLineCount> SettingsLines();

/// The bytes of the settings file: 42 lines ended by CR LF. Numbers with up to 15 significant
/// digits (what is worked out from what was typed, in as few as read back exactly) and a period,
/// Booleans as #TRUE# and #FALSE#, texts raw in UTF-8; a text that holds a line break is written as
/// the empty text.
[[nodiscard]] QByteArray WriteLines(const Settings& record, bool saveOnExit);

struct ReadLinesResult {
  Settings record;
  bool saveOnExit = false;
};

/// Reads the bytes of a settings file over `record`, whose run-time fields stay. LF and CR LF end a
/// line; the last line needs no end. Whole numbers are rounded (ties to even) and stop at their
/// type's ends. Nothing where there are not exactly 42 lines or a value is not of its line's type.
[[nodiscard]] std::optional<ReadLinesResult> ReadLines(const QByteArray& bytes, Settings record);

}  // namespace brindle
