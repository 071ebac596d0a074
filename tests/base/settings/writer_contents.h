// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include "base/settings/settings.h"
#include "base/settings/settings_lines.h"

namespace brindle {

/// The two contents that the writer writes in turn: a short one, and one long enough to be caught
/// half written.
inline QByteArray ShortContent() { return WriteLines(BuiltInSettings(), true); }

inline QByteArray LongContent() {
  constexpr qsizetype length = 200'000;
  Settings record = BuiltInSettings();
  record.MovieLength = 125.5;
  record.WavSourceFile = QString(length, u'x');
  return WriteLines(record, false);
}

}  // namespace brindle
