// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <tl/expected.hpp>
#include <variant>

#include <QString>

#include "wav/wav_error.h"
#include "wav/wav_file.h"

namespace brindle {

/// The contents of a WAV file's header. No field is checked: a damaged one stays damaged.
struct WavHeader {
  std::optional<std::int32_t> sampleRate;  ///< Hz; none from 2^31 on
  std::int16_t bitsPerSample = 0;
  std::int16_t channels = 0;
  std::uint32_t dataLength = 0;  ///< bytes, as declared

  /// Seconds of the declared length; none if rate, bits or channels are missing or 0. 1000 bytes at
  /// 44100 Hz, 16 bits, 2 channels: 1000 / 176400 s.
  [[nodiscard]] std::optional<double> Duration() const;
};

/// Why a file is not opened although it can be read.
enum class WavRefusal { AlreadyOpen, NotAWav, NotPcm };

/// Why a file is not opened: it is refused, or could not be read.
using WavNotOpened = std::variant<WavRefusal, WavError>;

/// The message about it for the user.
[[nodiscard]] QString MessageOf(const WavNotOpened& reason);

/// Finds the format block ("fmt " or "FMT " at a position from 1 to 32768) and the sample data
/// ("data" or "DATA" at 1 to 65537) wherever the tags are, in chunks or not; the first match wins.
/// Accepts uncompressed PCM (format code 1) only. Bytes after the end of the file count as 0.
[[nodiscard]] tl::expected<WavHeader, WavNotOpened> ReadHeader(const QString& path);

/// Where the samples of a file are.
struct SampleData {
  qint64 start = 0;       ///< position of the first sample byte; the first byte of a file is 1
  qint64 length = 0;      ///< bytes, cut to the file; below 0 if the file ends within the header
  qint64 fileLength = 0;  ///< bytes

  /// The last position at which a loop over blocks of `size` bytes reads one. It deliberately
  /// depends on the end of the *file*: so the loop leaves the last whole block of samples to the
  /// code after it, and takes in data after the samples. Peaks and normalized files stay those of
  /// older versions (LiteralModel, UnseenWords).
  [[nodiscard]] qint64 BlockEnd(qint64 size) const { return fileLength - length % size - size - 1; }
  /// The last position at which a loop over words reads one.
  [[nodiscard]] qint64 LastWord() const { return start + length - 2; }
};

/// Finds the sample data again, "data" or "DATA" anywhere in the file; if there is none, the error
/// is "no sample data". A declared length that runs past the end of the file is cut there.
[[nodiscard]] WavResult<SampleData> LocateData(WavFile& file);

}  // namespace brindle
