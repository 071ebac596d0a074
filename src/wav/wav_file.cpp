// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_file.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <variant>

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

// The toolkit's files take characters.
// NOLINTBEGIN(cppcoreguidelines-pro-type-reinterpret-cast): bytes are bytes by either name
char* Chars(std::byte* bytes) { return reinterpret_cast<char*>(bytes); }
const char* Chars(const std::byte* bytes) { return reinterpret_cast<const char*>(bytes); }
// NOLINTEND(cppcoreguidelines-pro-type-reinterpret-cast)

}  // namespace

QString MessageOf(const WavError& error) {
  return error.failed == WavError::Failed::Reading ? CannotRead(error.error)
                                                   : CannotWrite(error.error);
}

std::optional<WavError> WavFile::OpenForReading(const QString& path) {
  return Open(path, QIODevice::ReadOnly | QIODevice::ExistingOnly, WavError::Failed::Reading);
}

std::optional<WavError> WavFile::OpenForChanging(const QString& path) {
  return Open(path, QIODevice::ReadWrite | QIODevice::ExistingOnly, WavError::Failed::Writing);
}

std::optional<WavError> WavFile::OpenOrCreate(const QString& path) {
  return Open(path, QIODevice::ReadWrite, WavError::Failed::Writing);
}

bool WavFile::IsLockedByAnother() const { return IsLocked(file_); }

std::optional<WavError> WavFile::Read(qint64 position, std::span<std::byte> bytes) {
  const auto read = ReadPadded(position, bytes);
  if (const auto* error = std::get_if<WavError>(&read)) {
    return *error;
  }
  return std::get<std::size_t>(read) < bytes.size()
             ? std::optional(BecameShorter(WavError::Failed::Reading))
             : std::nullopt;
}

std::variant<qint64, WavError> WavFile::Length(WavError::Failed failed) const {
  const auto length = LengthOf(file_);
  if (const auto* reason = std::get_if<QString>(&length)) {
    return ErrorBecause(failed, *reason);
  }
  return std::get<qint64>(length);
}

std::optional<WavError> WavFile::CheckReaches(qint64 position, WavError::Failed failed) const {
  const auto length = Length(failed);
  if (const auto* error = std::get_if<WavError>(&length)) {
    return *error;
  }
  return std::get<qint64>(length) < position ? std::optional(BecameShorter(failed)) : std::nullopt;
}

std::optional<WavError> WavFile::Sync() const {
  const auto reason = SyncFile(file_.handle());
  return reason ? std::optional(ErrorBecause(WavError::Failed::Writing, *reason)) : std::nullopt;
}

std::optional<WavError> WavFile::CheckStands(qint64 length) const {
  if (const auto reason = WhyNotAtItsPath(file_)) {
    return ErrorBecause(WavError::Failed::Writing, *reason);
  }
  return CheckReaches(length, WavError::Failed::Writing);
}

WavError WavFile::BecameShorter(WavError::Failed failed) const {
  return ErrorBecause(failed, u"the file became shorter"_s);
}

std::variant<std::size_t, WavError> WavFile::ReadPadded(qint64 position,
                                                        std::span<std::byte> bytes) {
  if (!SeekTo(position)) {
    return SystemError(WavError::Failed::Reading);
  }
  auto rest = bytes;
  while (!rest.empty()) {
    const qint64 read = file_.read(Chars(rest.data()), static_cast<qint64>(rest.size()));
    if (read < 0) {
      return SystemError(WavError::Failed::Reading);
    }
    if (read == 0) {
      break;
    }
    rest = rest.subspan(static_cast<std::size_t>(read));
  }
  std::fill(rest.begin(), rest.end(), std::byte{0});
  return bytes.size() - rest.size();
}

// A disk that fills up takes a part first and tells its reason only when asked to take the rest.
std::optional<WavError> WavFile::Write(qint64 position, std::span<const std::byte> bytes) {
  if (!SeekTo(position)) {
    return SystemError(WavError::Failed::Writing);
  }
  while (!bytes.empty()) {
    const qint64 written = file_.write(Chars(bytes.data()), static_cast<qint64>(bytes.size()));
    if (written <= 0) {
      return SystemError(WavError::Failed::Writing);
    }
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return std::nullopt;
}

WavError WavFile::ErrorBecause(WavError::Failed failed, const QString& reason) const {
  return {failed, ErrorOf(file_.fileName(), reason)};
}

std::optional<WavError> WavFile::Open(const QString& path, QIODevice::OpenMode mode,
                                      WavError::Failed failed) {
  file_.close();
  file_.setFileName(path);
  if (auto error = WhatIsAt(path).error) {
    return WavError{failed, *error};
  }
  if (!file_.open(mode | QIODevice::Unbuffered)) {
    return SystemError(failed);
  }
  return std::nullopt;
}

WavError WavFile::SystemError(WavError::Failed failed) const {
  return {failed, ErrorOf(file_.fileName(), file_)};
}

bool WavFile::SeekTo(qint64 position) {
  return file_.pos() == position - 1 || file_.seek(position - 1);
}

}  // namespace brindle
