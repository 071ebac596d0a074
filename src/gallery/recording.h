// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include <QDataStream>
#include <QString>

namespace brindle {

// Sound for pictures and measurements of the program: 16-bit stereo.
inline constexpr std::uint32_t SamplesPerSecond = 44100;

/// Begins a WAV file with `dataLength` bytes of samples, and makes `out` write words in the byte
/// order of such a file.
void WriteWavHeader(QDataStream& out, std::uint32_t dataLength);

/// Writes one minute and forty seconds of sound that is not as loud as it could be.
[[nodiscard]] bool WriteRecording(const QString& path);

}  // namespace brindle
