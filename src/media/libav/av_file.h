// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <QString>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "media/libav/part_files.h"

extern "C" {
#include <libavformat/avformat.h>
}

namespace brindle {

/// The library's own words for one of its errors.
[[nodiscard]] QString ReasonOf(int error);

/// A file that the library reads through this program: it opens nothing by itself.
class AvInput {
 public:
  /// `goesOn` is asked with the position at every read; false ends what the library is doing.
  AvInput(DiskFile& file, std::int64_t length, std::function<bool(std::int64_t)> goesOn);
  AvInput(const AvInput&) = delete;
  AvInput& operator=(const AvInput&) = delete;
  AvInput(AvInput&&) = delete;
  AvInput& operator=(AvInput&&) = delete;
  ~AvInput();

  /// Opens the film and finds out what is in it. The error is a reason for people.
  [[nodiscard]] tl::expected<void, QString> Open();

  [[nodiscard]] AVFormatContext* Context() const { return context_; }
  [[nodiscard]] bool IsStopped() const { return isStopped_; }
  [[nodiscard]] const std::optional<FileError>& Error() const { return error_; }
  /// Whether packets come as they stand in the file, one for each entry of its index.
  [[nodiscard]] bool IsMovFamily() const;

 private:
  static int ReadSome(void* self, std::uint8_t* buffer, int size);
  static std::int64_t SeekTo(void* self, std::int64_t offset, int whence);

  DiskFile& file_;
  std::int64_t length_;
  std::function<bool(std::int64_t)> goesOn_;
  std::int64_t position_ = 0;
  std::int64_t leftToLookAt_ = 0;  // bytes, while the film is opened
  bool isOpening_ = false;
  bool isStopped_ = false;
  std::optional<FileError> error_;
  AVIOContext* io_ = nullptr;
  AVFormatContext* context_ = nullptr;
};

/// A file that the library writes through this program.
class AvOutput {
 public:
  /// The format is one of the library's names: "matroska", "mp4".
  AvOutput(PartFile& file, const std::string& format);
  AvOutput(const AvOutput&) = delete;
  AvOutput& operator=(const AvOutput&) = delete;
  AvOutput(AvOutput&&) = delete;
  AvOutput& operator=(AvOutput&&) = delete;
  ~AvOutput();

  [[nodiscard]] AVFormatContext* Context() const { return context_; }

 private:
  static int WriteSome(void* self, std::uint8_t* buffer, int size);
  static std::int64_t SeekTo(void* self, std::int64_t offset, int whence);

  PartFile& file_;
  AVIOContext* io_ = nullptr;
  AVFormatContext* context_ = nullptr;
};

}  // namespace brindle
