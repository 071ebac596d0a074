// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/temporary_folder.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/wav_builder.h"
#include "wav/pass.h"
#include "wav/peak_scan.h"

namespace brindle {

/// A level that fills a block.
inline std::string Filled(std::size_t bytes, std::int16_t level) {
  std::string samples(bytes, '\0');
  for (std::size_t i = 0; i + 1 < bytes; i += 2) {
    std::memcpy(samples.data() + i, &level, sizeof(level));
  }
  return samples;
}

/// Calls `read` with the position of each word that the loops of a usual scan read, one by one, of
/// samples that begin at a position and are so many bytes long.
template <class Read>
void ForEachScannedWord(qint64 start, qint64 length, qint64 fileLength, const Read& read) {
  const qint64 blockEnd = fileLength - length % 65536 - 65536 - 1;
  for (qint64 position = start; position <= blockEnd; position += 65536) {
    for (qint64 word = 0; word < 32768; ++word) {
      read(position + 2 * word);
    }
  }
  for (qint64 position = blockEnd + 65536; position <= start + length - 2; position += 2) {
    read(position);
  }
}

class PeakScanTest : public ::testing::Test {
 protected:
  // Scans a file of these parts, and holds that the file is as it was.
  ScanResult Scan(const WavParts& parts, const Clock& clock, PassObserver& observer) const {
    const auto bytes = parts.Bytes();
    folder_.Put("scanned.wav", bytes);
    const auto scan = ScanPeaks(folder_.PathOf("scanned.wav"), clock, observer);
    EXPECT_EQ(TextOf(scan.error), "no error");
    EXPECT_TRUE(folder_.Bytes("scanned.wav") == bytes);
    return scan;
  }

  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }

 private:
  TemporaryFolder folder_;
};

/// Files that cannot be scanned.
class FailureOfScan : public PeakScanTest {};

/// The message of the error of a scan, or "no error".
inline std::string ErrorOfScan(const QString& path) {
  const ReadClock clock(1);
  ScriptedObserver observer;
  const auto scan = ScanPeaks(path, clock, observer);
  return TextOf(scan.error);
}

}  // namespace brindle
