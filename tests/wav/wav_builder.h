// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brindle {

/// The bytes of a number, lowest first.
inline std::string Number(std::uint64_t number, int bytes) {
  std::string text;
  for (; bytes > 0; --bytes) {
    text.push_back(static_cast<char>(number % 256));
    number /= 256;
  }
  return text;
}

/// What a WAV file is made of. A test states only what differs from a usual file without samples.
struct WavParts {
  std::vector<std::int16_t> levels = {};  ///< the samples, ...
  std::string samples = {};               ///< ... or their bytes
  std::string before = {};                ///< what stands between the format and the data
  std::string behind = {};                ///< what follows the samples
  std::uint16_t format = 1;               ///< 1 is PCM
  std::uint16_t channels = 2;
  std::uint32_t rate = 44100;
  std::uint16_t bits = 16;
  std::optional<std::uint32_t> declared = {};  ///< length of the data, if not the true one
  std::string formatTag = "fmt ";
  std::string dataTag = "data";

  /// The position of the first sample byte, counted from 1, where nothing stands before the data.
  static constexpr std::size_t FirstStart = 45;
  [[nodiscard]] std::size_t Start() const { return FirstStart + before.size(); }

  [[nodiscard]] std::string Bytes() const {
    const auto frame = std::uint64_t{channels} * bits / 8;  // bytes
    auto data = samples;
    for (const auto level : levels) {
      data += Number(static_cast<std::uint16_t>(level), 2);
    }
    const auto length = declared.value_or(static_cast<std::uint32_t>(data.size()));
    return "RIFF" + Number(Start() - 9 + length, 4) + "WAVE" + formatTag + Number(16, 4) +
           Number(format, 2) + Number(channels, 2) + Number(rate, 4) + Number(rate * frame, 4) +
           Number(frame, 2) + Number(bits, 2) + before + dataTag + Number(length, 4) + data +
           behind;
  }
};

/// What brings the first sample byte to this position, put before the data.
inline std::string UpTo(std::size_t start) {
  return std::string(start - WavParts::FirstStart, '\0');
}

}  // namespace brindle
