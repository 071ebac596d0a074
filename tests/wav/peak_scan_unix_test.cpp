// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <sys/stat.h>

#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/child_process.h"
#include "tests/support/unprivileged.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/pass_unix_support.h"
#include "tests/wav/peak_scan_support.h"
#include "tests/wav/wav_builder.h"
#include "wav/peak_scan.h"

namespace brindle {
namespace {

TEST_F(FailureOfScan, PipeIsNotAFileAndNotWaitedFor) {
  const auto path = Folder().PathOf("pipe.wav");
  ASSERT_EQ(mkfifo(path.toUtf8().constData(), S_IRWXU), 0);
  EXPECT_EQ(InImpatientChild([&] { return ErrorOfScan(path); }),
            "Cannot read " + NativePath(path) + ": not a file");
}

TEST_F(FailureOfScan, DeviceIsNotAFile) {
  EXPECT_EQ(ErrorOfScan(QStringLiteral("/dev/zero")), "Cannot read /dev/zero: not a file");
}

TEST_F(FailureOfScan, FileThatMayNotBeRead) {
  const auto path = Folder().PathOf("secret.wav");
  Folder().Put("secret.wav", WavParts{.samples = Noise(100)}.Bytes());
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    SetMode(path, 0);
    found.ExpectEqual(ErrorOfScan(path),
                      "Cannot read " + NativePath(path) + ": " + ReasonOf(EACCES), "the scan");
  });
}

TEST_F(FailureOfScan, FileInAFolderThatMayNotBeEntered) {
  const auto path = Folder().PathOf("secret.wav");
  Folder().Put("secret.wav", WavParts{.samples = Noise(100)}.Bytes());
  ExpectNoFindingsAsNobody(Folder(), [&](Findings& found) {
    SetMode(Folder().Path(), 0);
    found.ExpectEqual(ErrorOfScan(path),
                      "Cannot read " + NativePath(path) + ": " + ReasonOf(EACCES), "the scan");
  });
}

TEST_F(FailureOfScan, FileThatBecomesShorterMeanwhile) {
  const auto path = Folder().PathOf("shrinking.wav");
  const auto bytes = WavParts{.samples = Noise(5 * Block)}.Bytes();
  // In the block that comes next, in a later one, in the words behind them.
  for (const std::size_t length : {44 + Block + 100, 44 + 3 * Block, 44 + 5 * Block - 1}) {
    Folder().Put("shrinking.wav", bytes);
    const ReadClock clock(1);
    ScriptedObserver observer;
    observer.onUpdate = [&](std::size_t) {
      std::filesystem::resize_file(path.toStdU16String(), length);
    };
    const auto scan = ScanPeaks(path, clock, observer);
    EXPECT_EQ(TextOf(scan.error), "Cannot read " + NativePath(path) + ": the file became shorter")
        << length;
    EXPECT_FALSE(scan.isAborted);
  }
}

TEST_F(PeakScanTest, FileDeletedMeanwhileIsScannedToItsEnd) {
  const auto path = Folder().PathOf("deleted.wav");
  const auto samples = Filled(4 * Block, 7) + Filled(2, -9);
  Folder().Put("deleted.wav", WavParts{.samples = samples}.Bytes());
  const ReadClock clock(1);
  ScriptedObserver observer;
  observer.onUpdate = [&](std::size_t) { QFile::remove(path); };
  const auto scan = ScanPeaks(path, clock, observer);
  EXPECT_EQ(TextOf(scan.error), "no error");
  EXPECT_EQ(scan.lowest, -9);
  EXPECT_EQ(scan.highest, 7);
}

}  // namespace
}  // namespace brindle
