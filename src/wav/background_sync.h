// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include <QThread>

#include "wav/wav_error.h"
#include "wav/wav_file.h"

namespace brindle {

/// Makes the system write a file to the disk, on a separate thread because that may take long.
/// Nothing else may use the file in the meantime. The destructor waits for the thread.
class BackgroundSync {
 public:
  explicit BackgroundSync(const WavFile& file);

  /// The result, as soon as it is known; none if it is still unknown after `patience`.
  [[nodiscard]] std::optional<WavResult<void>> Await(std::chrono::milliseconds patience);

 private:
  const WavFile& file_;
  std::optional<WavResult<void>> result_;  // belongs to the thread until that has ended
  std::unique_ptr<QThread, std::function<void(QThread*)>> thread_;
};

}  // namespace brindle
