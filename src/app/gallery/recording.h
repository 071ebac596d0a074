// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace brindle {

/// Writes a minute and forty seconds of sound, 16-bit stereo at 44100 Hz, that is not as loud as it could be.
[[nodiscard]] bool WriteRecording(const QString& path);

}  // namespace brindle
