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
