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

/// The line of the SaveOnExit check box, which is not a field of the record.
struct SaveOnExitLine {};

using SettingsField = std::variant<double Settings::*, float Settings::*, std::int16_t Settings::*,
                                   bool Settings::*, QString Settings::*, SaveOnExitLine>;

/// One line of the settings file: only the number of its line says which value it is.
struct SettingsLine {
  SettingsField field;
  bool keptByDefaults = false;  ///< loading the defaults leaves the field as it is
  bool isExact = false;         ///< written with enough digits to read back as the very same number
};

inline constexpr std::size_t SettingsLineCount = 42;

/// The lines of the settings file, in order.
[[nodiscard]] std::span<const SettingsLine, SettingsLineCount> SettingsLines();

/// The bytes of the settings file: 42 lines, each ended by CR LF. Numbers have up to 15 significant
/// digits (values worked out from what was typed have as few as read back exactly) and a period,
/// Booleans are #TRUE# and #FALSE#, texts are raw UTF-8; a text with a line break is written as the
/// empty text.
[[nodiscard]] QByteArray WriteLines(const Settings& record, bool saveOnExit);

struct ReadLinesResult {
  Settings record;
  bool saveOnExit = false;
};

/// Reads the bytes of a settings file over `record`, whose run-time fields stay. LF and CR LF end a
/// line; the last line needs no end. Whole numbers are rounded (ties to even) and clamped to their
/// type's range. Nothing unless there are exactly 42 lines and every value is of its line's type.
[[nodiscard]] std::optional<ReadLinesResult> ReadLines(const QByteArray& bytes, Settings record);

}  // namespace brindle
