// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "gallery/recording.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include <QDataStream>
#include <QFile>
#include <QIODevice>
#include <QString>

namespace brindle {

namespace {

constexpr std::uint16_t Channels = 2;
constexpr std::uint16_t BytesPerSample = 2;
constexpr std::uint16_t BytesPerFrame = Channels * BytesPerSample;

}  // namespace

void WriteWavHeader(QDataStream& out, std::uint32_t dataLength) {
  constexpr std::uint32_t restOfHeader = 36;
  constexpr std::uint32_t formatLength = 16;
  constexpr std::uint16_t pcm = 1;
  constexpr std::uint16_t bitsPerSample = 8 * BytesPerSample;
  out.setByteOrder(QDataStream::LittleEndian);
  out.writeRawData("RIFF", 4);
  out << dataLength + restOfHeader;
  out.writeRawData("WAVEfmt ", 8);
  out << formatLength << pcm << Channels << SamplesPerSecond << SamplesPerSecond * BytesPerFrame
      << BytesPerFrame << bitsPerSample;
  out.writeRawData("data", 4);
  out << dataLength;
}

bool WriteRecording(const QString& path) {
  constexpr std::uint32_t frames = SamplesPerSecond * 100;
  constexpr double loudness = 21000;
  constexpr double pitch = 0.03;
  // Songs with a pause after each, the middle one loudest.
  constexpr double songs = 3;
  constexpr double beat = 0.0002;
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) {
    return false;
  }
  QDataStream out(&file);
  WriteWavHeader(out, frames * BytesPerFrame);
  for (std::uint32_t frame = 0; frame < frames; ++frame) {
    const double song = std::sin(std::numbers::pi * songs * frame / frames);
    const double whole = std::sin(std::numbers::pi * frame / frames);
    const double swell = std::sqrt(std::abs(song)) * (0.4 + 0.65 * whole) *
                         (0.7 + 0.3 * std::sin(frame * beat) * std::sin(frame * beat * 0.37));
    const auto level =
        static_cast<std::int16_t>(loudness * std::min(swell, 1.0) * std::sin(frame * pitch));
    out << level << level;
  }
  return out.status() == QDataStream::Ok && file.flush();
}

}  // namespace brindle
