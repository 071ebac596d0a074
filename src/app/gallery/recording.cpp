// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/gallery/recording.h"

#include <cmath>
#include <cstdint>

#include <QDataStream>
#include <QFile>
#include <QIODevice>
#include <QString>

namespace brindle {

bool WriteRecording(const QString& path) {
  constexpr std::uint32_t rate = 44100;  // Hz
  constexpr std::uint16_t channels = 2;
  constexpr std::uint16_t bytesPerSample = 2;
  constexpr std::uint32_t frames = rate * 100;
  constexpr std::uint32_t dataLength = frames * channels * bytesPerSample;
  constexpr double loudness = 21000;
  constexpr double pitch = 0.03;
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) {
    return false;
  }
  QDataStream out(&file);
  out.setByteOrder(QDataStream::LittleEndian);
  out.writeRawData("RIFF", 4);
  out << dataLength + 36;
  out.writeRawData("WAVEfmt ", 8);
  out << std::uint32_t{16} << std::uint16_t{1} << channels << rate
      << rate * channels * bytesPerSample << std::uint16_t{channels * bytesPerSample}
      << std::uint16_t{8 * bytesPerSample};
  out.writeRawData("data", 4);
  out << dataLength;
  for (std::uint32_t frame = 0; frame < frames; ++frame) {
    const auto level = static_cast<std::int16_t>(loudness * std::sin(frame * pitch));
    out << level << level;
  }
  return out.status() == QDataStream::Ok;
}

}  // namespace brindle
