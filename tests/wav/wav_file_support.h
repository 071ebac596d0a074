// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <variant>

#include <QDir>
#include <QString>
#include <gtest/gtest.h>

#include "base/files/system_files.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/wav/pass_support.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {

class WavFileTest : public ::testing::Test {
 protected:
  // The bytes read, or the message of the error.
  static std::string Read(WavFile& file, qint64 position, std::size_t count) {
    std::string bytes(count, '?');
    const auto read = file.Read(position, std::as_writable_bytes(std::span(bytes)));
    return read ? bytes : TextOf(read);
  }
  // The bytes with their padding, and how many are there.
  static std::string ReadPadded(WavFile& file, qint64 position, std::size_t count) {
    std::string bytes(count, '?');
    const auto there = file.ReadPadded(position, std::as_writable_bytes(std::span(bytes)));
    return there ? bytes + std::to_string(*there) : TextOf(there);
  }
  static std::string Write(WavFile& file, qint64 position, const std::string& bytes) {
    return TextOf(file.Write(position, std::as_bytes(std::span(bytes))));
  }

  // -1 where it cannot be told.
  static qint64 LengthOf(const WavFile& file) {
    return file.Length(WavError::Failed::Reading).value_or(-1);
  }

  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }
  [[nodiscard]] QString Path() const { return folder_.PathOf("file.wav"); }

 private:
  TemporaryFolder folder_;
};

/// Which paths lead to one file.
class SameFileTest : public WavFileTest {
 protected:
  void SetUp() override {
    Folder().Put("file.wav", "abc");
    Folder().Put("copy.wav", "abc");
    ASSERT_TRUE(QDir().mkdir(Folder().PathOf("folder")));
    std::filesystem::create_hard_link(Path().toStdU16String(),
                                      Folder().PathOf("hard.wav").toStdU16String());
  }

  void ExpectSame(const QString& path, bool isSame) const {
    EXPECT_EQ(LeadToSameFile(Path(), path), isSame) << path.toStdString();
    EXPECT_EQ(LeadToSameFile(path, Path()), isSame) << path.toStdString();
  }
};

/// What opening a file says in words: "already open", "no WAV", the message of an error, or the
/// length of its data.
inline std::string Opening(const QString& path) {
  const auto header = ReadHeader(path);
  if (header) {
    return std::to_string(header->dataLength);
  }
  if (const auto* refusal = std::get_if<WavRefusal>(&header.error())) {
    return *refusal == WavRefusal::AlreadyOpen ? "already open" : "no WAV";
  }
  return MessageOf(header.error()).toStdString();
}

}  // namespace brindle
