// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <tl/expected.hpp>

#include <QString>

#include "base/files/file_error.h"

namespace brindle {

/// Why a file could not be read or written.
struct WavError {
  enum class Failed { Reading, Writing };
  Failed failed = Failed::Reading;
  FileError error;
};

/// A value from a file, or the reason why there is none.
template <class Value>
using WavResult = tl::expected<Value, WavError>;

/// Turns the error of a file into one of reading or writing it.
[[nodiscard]] inline auto FailedAt(WavError::Failed failed) {
  return [failed](const FileError& error) { return WavError{failed, error}; };
}

/// "Cannot read PATH: REASON" or "Cannot write PATH: REASON".
[[nodiscard]] inline QString MessageOf(const WavError& error) {
  return error.failed == WavError::Failed::Reading ? CannotRead(error.error)
                                                   : CannotWrite(error.error);
}

}  // namespace brindle
