// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "tests/wav/literal_model.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

namespace brindle {
namespace {

// Plain pointers, and inline: with the sanitizers at work every call for a byte would be felt.

std::uint32_t PaddedByteAt(const FileBytes& file, std::int64_t position) {
  const auto index = static_cast<std::size_t>(position - 1);
  return index < file.size() ? file[index] : 0U;
}

bool IsTagAt(const FileBytes& file, std::int64_t position, const char* tag) {
  for (int i = 0; i < 4; ++i) {
    if (PaddedByteAt(file, position + i) != static_cast<std::uint32_t>(tag[i])) {
      return false;
    }
  }
  return true;
}

inline std::int16_t WordAt(const std::uint8_t* bytes, std::int64_t position) {
  const std::uint8_t* low = bytes + (position - 1);
  return static_cast<std::int16_t>(low[0] | low[1] << 8);
}

inline void PutWordAt(std::uint8_t* bytes, std::int64_t position, std::int16_t level) {
  std::uint8_t* low = bytes + (position - 1);
  low[0] = static_cast<std::uint8_t>(level & 0xFF);
  low[1] = static_cast<std::uint8_t>(level >> 8 & 0xFF);
}

LiteralData MustLocate(const FileBytes& file) {
  const auto data = LocateLiterally(file);
  if (!data) {
    throw std::invalid_argument("no data tag in the file");
  }
  return *data;
}

inline void MapWord(const std::uint8_t* input, std::uint8_t* output, std::int64_t position,
                    const std::int16_t* table) {
  PutWordAt(output, position, table[WordAt(input, position) + 32768]);
}

void MapSmallBlock(const std::uint8_t* input, std::uint8_t* output, std::int64_t position,
                   const std::int16_t* table) {
  for (std::int64_t j = 0; j <= 32767; ++j) {
    MapWord(input, output, position + 2 * j, table);
  }
}

}  // namespace

std::optional<LiteralData> LocateLiterally(const FileBytes& file) {
  LiteralData data;
  data.fileLength = static_cast<std::int64_t>(file.size());
  std::int64_t p = 1;
  while (!IsTagAt(file, p, "DATA") && !IsTagAt(file, p, "data")) {
    if (p > data.fileLength) {
      return std::nullopt;
    }
    ++p;
  }
  data.start = p + 8;
  const std::array<std::int64_t, 4> weights = {1, 256, 65536, 16777216};
  for (std::size_t i = 0; i < 4; ++i) {
    data.length += weights[i] * PaddedByteAt(file, p + 4 + static_cast<std::int64_t>(i));
  }
  if (data.fileLength + 1 - data.start < data.length) {
    data.length = data.fileLength + 1 - data.start;
  }
  return data;
}

LiteralScan ScanLiterally(const FileBytes& file) {
  const auto data = MustLocate(file);
  const std::uint8_t* bytes = file.data();
  std::vector<std::uint8_t> seenLevels(65536);
  std::uint8_t* seen = seenLevels.data();

  const std::int64_t blockEnd = data.fileLength - data.length % 65536 - 65536 - 1;
  std::int64_t position = data.start;
  for (; position <= blockEnd; position += 65536) {
    for (std::int64_t j = 0; j <= 32767; ++j) {
      seen[WordAt(bytes, position + 2 * j) + 32768] = 1;
    }
  }
  for (position = blockEnd + 65536; position <= data.start + data.length - 2; position += 2) {
    seen[WordAt(bytes, position) + 32768] = 1;
  }

  LiteralScan scan;
  for (std::int64_t i = 0; i <= 65535; ++i) {
    if (seen[i] != 0) {
      const std::int64_t value = i - 32768;
      if (value > scan.highest) {
        scan.highest = value;
      }
      if (value < scan.lowest) {
        scan.lowest = value;
      }
    }
  }
  scan.measuredBytes = position + data.start + 2;
  return scan;
}

LiteralTable TableLiterally(double gain) {
  LiteralTable table(65536);
  for (int i = 0; i <= 65535; ++i) {
    const double exact = (i - 32768) * gain;
    double t = std::floor(exact);
    const double rest = exact - t;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(t, 2) != 0)) {
      t += 1;
    }
    if (t > 32767) {
      t = 32767;
    }
    if (t < -32768) {
      t = -32768;
    }
    table[static_cast<std::size_t>(i)] = static_cast<std::int16_t>(t);
  }
  return table;
}

FileBytes NormalizeMultiLiterally(const FileBytes& file, const LiteralTable& levels) {
  const auto data = MustLocate(file);
  const std::int16_t* table = levels.data();
  FileBytes result = file;
  const std::uint8_t* input = file.data();
  std::uint8_t* output = result.data();

  const std::int64_t blockEnd = data.fileLength - data.length % 4194304 - 4194304 - 1;
  std::int64_t position = data.start;
  for (; position <= blockEnd; position += 4194304) {
    for (std::int64_t k = 0; k <= 63; ++k) {
      MapSmallBlock(input, output, position + k * 65536, table);
    }
  }
  while (data.fileLength - position > 65536) {
    MapSmallBlock(input, output, position, table);
    position = position + 65536;
  }
  for (std::int64_t p = position; p <= data.start + data.length - 2; p += 2) {
    MapWord(input, output, p, table);
  }
  return result;
}

FileBytes NormalizeSingleLiterally(const FileBytes& file, const LiteralTable& levels) {
  const auto data = MustLocate(file);
  const std::int16_t* table = levels.data();
  FileBytes result = file;
  const std::uint8_t* input = file.data();
  std::uint8_t* output = result.data();

  const std::int64_t blockEnd = data.fileLength - data.length % 65536 - 65536 - 1;
  std::int64_t position = data.start;
  for (; position <= blockEnd; position += 65536) {
    MapSmallBlock(input, output, position, table);
  }
  for (std::int64_t p = position; p <= data.start + data.length - 2; p += 2) {
    MapWord(input, output, p, table);
  }
  return result;
}

}  // namespace brindle
