// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

#include <QDir>
#include <QString>
#include <gtest/gtest.h>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "base/files/system_disk.h"
#include "tests/base/settings/temporary_folder.h"

namespace brindle {

/// "PATH: REASON", or "no error".
template <class Value>
std::string ErrorOf(const FileResult<Value>& result) {
  return result ? "no error"
                : result.error().path.toStdString() + ": " + result.error().reason.toStdString();
}

inline std::string ErrorAt(const QString& path, const std::string& reason) {
  return QDir::toNativeSeparators(path).toStdString() + ": " + reason;
}
/// The system's words for one of its errors.
inline std::string ErrorAt(const QString& path, int error) {
  return ErrorAt(path, qt_error_string(error).toStdString());
}

inline std::span<const std::byte> BytesOf(const std::string& text) {
  return std::as_bytes(std::span(text));
}

/// What is read, or the error.
inline std::string Read(DiskFile& file, qint64 offset, std::size_t length) {
  std::string text(length, '\0');
  const auto there = file.Read(offset, std::as_writable_bytes(std::span(text)));
  return there ? text.substr(0, *there) : ErrorOf(there);
}

inline std::string Write(DiskFile& file, qint64 offset, const std::string& text) {
  return ErrorOf(file.Write(offset, BytesOf(text)));
}

/// A file, opened; the test fails if it cannot be.
inline std::unique_ptr<DiskFile> Opened(const QString& path, OpenFor use = OpenFor::Changing) {
  auto file = TheSystemsDisk().Open(path, use);
  EXPECT_EQ(ErrorOf(file), "no error");
  return file ? std::move(*file) : nullptr;
}

/// A folder with a file of some text.
class SystemDiskTest : public ::testing::Test {
 protected:
  void SetUp() override { folder_.Put("file", "abcdefgh"); }

  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }
  [[nodiscard]] QString Path() const { return folder_.PathOf("file"); }
  [[nodiscard]] QString Missing() const { return folder_.PathOf("missing"); }
  [[nodiscard]] std::string Bytes() const { return folder_.Bytes("file"); }

 private:
  TemporaryFolder folder_;
};

}  // namespace brindle
