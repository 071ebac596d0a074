// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_file.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <span>

#include <QFile>
#include <QIODevice>
#include <QString>

#include "base/files/at_path.h"
#include "base/files/file_error.h"
#include "base/files/sync_file.h"
#include "wav/system_files.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

// The toolkit's files take characters, not bytes.
// NOLINTBEGIN(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes by either name
char* Chars(std::byte* bytes) { return reinterpret_cast<char*>(bytes); }
const char* Chars(const std::byte* bytes) { return reinterpret_cast<const char*>(bytes); }
// NOLINTEND(cppcoreguidelines-pro-type-reinterpret-cast)

}  // namespace

WavResult<void> WavFile::OpenForReading(const QString& path) {
  return Open(path, QIODevice::ReadOnly | QIODevice::ExistingOnly, WavError::Failed::Reading);
}

WavResult<void> WavFile::OpenForChanging(const QString& path) {
  return Open(path, QIODevice::ReadWrite | QIODevice::ExistingOnly, WavError::Failed::Writing);
}

WavResult<void> WavFile::OpenOrCreate(const QString& path) {
  return Open(path, QIODevice::ReadWrite, WavError::Failed::Writing);
}

bool WavFile::IsLockedByAnother() const { return IsLocked(file_); }

WavResult<void> WavFile::Read(qint64 position, std::span<std::byte> bytes) {
  return ReadPadded(position, bytes).and_then([&](std::size_t there) -> WavResult<void> {
    if (there < bytes.size()) {
      return tl::unexpected(BecameShorter(WavError::Failed::Reading));
    }
    return {};
  });
}

WavResult<qint64> WavFile::Length(WavError::Failed failed) const {
  return LengthOf(file_).map_error(Because(failed));
}

WavResult<void> WavFile::CheckReaches(qint64 position, WavError::Failed failed) const {
  return Length(failed).and_then([&](qint64 length) -> WavResult<void> {
    if (length < position) {
      return tl::unexpected(BecameShorter(failed));
    }
    return {};
  });
}

WavResult<void> WavFile::Sync() const {
  return SyncFile(file_.handle()).map_error(Because(WavError::Failed::Writing));
}

WavResult<void> WavFile::CheckStands(qint64 length) const {
  return CheckAtItsPath(file_).map_error(Because(WavError::Failed::Writing)).and_then([&] {
    return CheckReaches(length, WavError::Failed::Writing);
  });
}

std::function<WavError(const QString& reason)> WavFile::Because(WavError::Failed failed) const {
  return [this, failed](const QString& reason) { return ErrorBecause(failed, reason); };
}

WavError WavFile::BecameShorter(WavError::Failed failed) const {
  return ErrorBecause(failed, u"the file became shorter"_s);
}

WavResult<std::size_t> WavFile::ReadPadded(qint64 position, std::span<std::byte> bytes) {
  if (!SeekTo(position)) {
    return tl::unexpected(SystemError(WavError::Failed::Reading));
  }
  auto rest = bytes;
  while (!rest.empty()) {
    const qint64 read = file_.read(Chars(rest.data()), static_cast<qint64>(rest.size()));
    if (read < 0) {
      return tl::unexpected(SystemError(WavError::Failed::Reading));
    }
    if (read == 0) {
      break;
    }
    rest = rest.subspan(static_cast<std::size_t>(read));
  }
  std::fill(rest.begin(), rest.end(), std::byte{0});
  return bytes.size() - rest.size();
}

// A disk that fills up first accepts a part, and gives its reason only when asked to take the rest.
WavResult<void> WavFile::Write(qint64 position, std::span<const std::byte> bytes) {
  if (!SeekTo(position)) {
    return tl::unexpected(SystemError(WavError::Failed::Writing));
  }
  while (!bytes.empty()) {
    const qint64 written = file_.write(Chars(bytes.data()), static_cast<qint64>(bytes.size()));
    if (written <= 0) {
      return tl::unexpected(SystemError(WavError::Failed::Writing));
    }
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return {};
}

WavError WavFile::ErrorBecause(WavError::Failed failed, const QString& reason) const {
  return {failed, ErrorOf(file_.fileName(), reason)};
}

WavResult<void> WavFile::Open(const QString& path, QIODevice::OpenMode mode,
                              WavError::Failed failed) {
  file_.close();
  file_.setFileName(path);
  if (const auto standing = IsFileAt(path); !standing) {
    return tl::unexpected(WavError{failed, standing.error()});
  }
  if (!file_.open(mode | QIODevice::Unbuffered)) {
    return tl::unexpected(SystemError(failed));
  }
  return {};
}

WavError WavFile::SystemError(WavError::Failed failed) const {
  return {failed, ErrorOf(file_.fileName(), file_)};
}

bool WavFile::SeekTo(qint64 position) {
  return file_.pos() == position - 1 || file_.seek(position - 1);
}

}  // namespace brindle
