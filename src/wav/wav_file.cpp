// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_file.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>

#include <QString>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "wav/wav_error.h"

namespace brindle {

using namespace Qt::StringLiterals;

WavResult<void> WavFile::OpenForReading(const QString& path) {
  return Open(path, OpenFor::Reading, WavError::Failed::Reading);
}

WavResult<void> WavFile::OpenForChanging(const QString& path) {
  return Open(path, OpenFor::Changing, WavError::Failed::Writing);
}

WavResult<void> WavFile::OpenOrCreate(const QString& path) {
  return Open(path, OpenFor::ChangingOrCreate, WavError::Failed::Writing);
}

void WavFile::Close() {
  if (file_) {
    file_->Unlock();
  }
  file_.reset();
}

WavResult<void> WavFile::Lock(bool isToBeWritten) {
  return file_->Lock(isToBeWritten)
      .map_error(FailedAt(isToBeWritten ? WavError::Failed::Writing : WavError::Failed::Reading));
}

WavResult<void> WavFile::Read(qint64 position, std::span<std::byte> bytes) {
  return ReadPadded(position, bytes).and_then([&](std::size_t there) -> WavResult<void> {
    if (there < bytes.size()) {
      return tl::unexpected(BecameShorter(WavError::Failed::Reading));
    }
    return {};
  });
}

WavResult<qint64> WavFile::Length(WavError::Failed failed) const {
  return file_->Length().map_error(FailedAt(failed));
}

WavResult<void> WavFile::CheckReaches(qint64 position, WavError::Failed failed) const {
  return Length(failed).and_then([&](qint64 length) -> WavResult<void> {
    if (length < position) {
      return tl::unexpected(BecameShorter(failed));
    }
    return {};
  });
}

WavResult<void> WavFile::CheckStands(qint64 length) const {
  return file_->CheckAtItsPath().map_error(FailedAt(WavError::Failed::Writing)).and_then([&] {
    return CheckReaches(length, WavError::Failed::Writing);
  });
}

WavError WavFile::BecameShorter(WavError::Failed failed) const {
  return ErrorBecause(failed, u"the file became shorter"_s);
}

WavResult<std::size_t> WavFile::ReadPadded(qint64 position, std::span<std::byte> bytes) {
  return file_->Read(position - 1, bytes)
      .map([&](std::size_t there) {
        const auto rest = bytes.subspan(there);
        std::fill(rest.begin(), rest.end(), std::byte{0});
        return there;
      })
      .map_error(FailedAt(WavError::Failed::Reading));
}

WavResult<void> WavFile::Write(qint64 position, std::span<const std::byte> bytes) {
  return file_->Write(position - 1, bytes).map_error(FailedAt(WavError::Failed::Writing));
}

WavError WavFile::ErrorBecause(WavError::Failed failed, const QString& reason) const {
  return {failed, ErrorOf(path_, reason)};
}

WavResult<void> WavFile::Open(const QString& path, OpenFor use, WavError::Failed failed) {
  Close();
  path_ = path;
  return disk_.Open(path, use)
      .map([this](std::unique_ptr<DiskFile> file) { file_ = std::move(file); })
      .map_error(FailedAt(failed));
}

}  // namespace brindle
