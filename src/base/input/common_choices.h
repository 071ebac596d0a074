// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

#include "base/input/option_group.h"

namespace brindle {

// Choices that several calculators offer in the same words.

/// The usual bitrates of compressed audio in kbit/s, with "0" for none.
[[nodiscard]] QStringList UsualAudioBitrates();

/// Adds the codec generations 0 (version 3) and 1 (versions 4 and 5), names them after `label`, and
/// gives them for the line of that label.
[[nodiscard]] QList<QWidget*> AddDivXVersions(OptionGroup& group, const QString& label);

/// Adds the frame-rate systems 0 (PAL), 1 and 2 (NTSC) and gives them in this order.
[[nodiscard]] QList<QWidget*> AddFrameRateSystems(OptionGroup& group);

}  // namespace brindle
