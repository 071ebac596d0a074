// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_header.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include <QString>

#include "base/files/system_files.h"
#include "wav/wav_bytes.h"
#include "wav/wav_file.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t TagSize = 4;
constexpr std::size_t FormatBlockSize = 24;
constexpr std::size_t DataHeaderSize = 8;
constexpr std::size_t LastFormatPosition = 32768;
constexpr std::size_t LastDataPosition = 65537;
constexpr std::int16_t Pcm = 1;
constexpr int BitsPerByte = 8;

struct Tag {
  std::string_view lower;
  std::string_view upper;
};
constexpr Tag Format{"fmt ", "FMT "};
constexpr Tag Data{"data", "DATA"};

// The position of the first tag, counted from 0; npos if there is none. Finds either spelling, but
// not a mixed one.
std::size_t Find(std::string_view bytes, const Tag& tag) {
  return std::min(bytes.find(tag.lower), bytes.find(tag.upper));
}

// The tag with its block, if it begins at a position from 1 to `last`.
std::optional<std::string_view> FindBlock(std::string_view bytes, const Tag& tag, std::size_t last,
                                          std::size_t blockSize) {
  const auto at = Find(bytes.substr(0, last - 1 + TagSize), tag);
  if (at == std::string_view::npos) {
    return std::nullopt;
  }
  return bytes.substr(at, blockSize);
}

std::span<std::byte> Bytes(std::string& text) {
  return std::as_writable_bytes(std::span(text.data(), text.size()));
}

}  // namespace

std::optional<double> WavHeader::Duration() const {
  const double bytesPerSecond =
      static_cast<double>(sampleRate.value_or(0)) * bitsPerSample * channels / BitsPerByte;
  if (bytesPerSecond == 0) {
    return std::nullopt;
  }
  return dataLength / bytesPerSecond;
}

QString MessageOf(const WavNotOpened& reason) {
  if (const auto* error = std::get_if<WavError>(&reason)) {
    return MessageOf(*error);
  }
  switch (std::get<WavRefusal>(reason)) {
    case WavRefusal::AlreadyOpen:
      return u"File already open."_s;
    case WavRefusal::NotPcm:
      return u"This program only accepts uncompressed PCM WAV files."_s;
    case WavRefusal::NotAWav:
      break;
  }
  return u"This file does not appear to be a valid WAV."_s;
}

tl::expected<WavHeader, WavNotOpened> ReadHeader(const QString& path) {
  const auto refused = [](WavRefusal refusal) { return tl::unexpected<WavNotOpened>(refusal); };
  WavFile file;
  const auto opened = file.OpenForReading(path);
  if (IsLocked(path)) {
    return refused(WavRefusal::AlreadyOpen);
  }
  if (!opened) {
    return tl::unexpected<WavNotOpened>(opened.error());
  }
  std::string head(LastDataPosition - 1 + DataHeaderSize, '\0');
  if (const auto read = file.ReadPadded(1, Bytes(head)); !read) {
    return tl::unexpected<WavNotOpened>(read.error());
  }
  const auto format = FindBlock(head, Format, LastFormatPosition, FormatBlockSize);
  if (!format) {
    return refused(WavRefusal::NotAWav);
  }
  if (Bytes2ToInt(format->substr(8)) != Pcm) {
    return refused(WavRefusal::NotPcm);
  }
  const auto data = FindBlock(head, Data, LastDataPosition, DataHeaderSize);
  if (!data) {
    return refused(WavRefusal::NotAWav);
  }
  return WavHeader{.sampleRate = Bytes4ToLong(format->substr(12)),
                   .bitsPerSample = Bytes2ToInt(format->substr(22)),
                   .channels = Bytes2ToInt(format->substr(10)),
                   .dataLength = Bytes4ToUnsigned(data->substr(TagSize))};
}

WavResult<SampleData> LocateData(WavFile& file) {
  constexpr std::size_t step = 65536;
  // Each piece overlaps the next one, for a data header that crosses their border.
  std::string piece(step + DataHeaderSize - 1, '\0');
  for (qint64 position = 1;; position += step) {
    const auto read = file.ReadPadded(position, Bytes(piece));
    if (!read) {
      return tl::unexpected(read.error());
    }
    const auto at = Find(std::string_view(piece).substr(0, step + TagSize - 1), Data);
    if (at != std::string_view::npos) {
      const qint64 start = position + static_cast<qint64>(at + DataHeaderSize);
      const qint64 declared = Bytes4ToUnsigned(std::string_view(piece).substr(at + TagSize));
      return file.Length(WavError::Failed::Reading).map([&](qint64 fileLength) {
        return SampleData{start, std::min(declared, fileLength + 1 - start), fileLength};
      });
    }
    if (*read <= step) {
      return tl::unexpected(file.ErrorBecause(WavError::Failed::Reading, u"no sample data"_s));
    }
  }
}

}  // namespace brindle
