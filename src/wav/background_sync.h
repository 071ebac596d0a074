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

/// Has the system write a file out on a thread of its own: the disk may take long. Nothing else may
/// use the file meanwhile. The end of its life waits for that of the thread.
class BackgroundSync {
 public:
  explicit BackgroundSync(const WavFile& file);

  /// What came of it, as soon as that is known; nothing after `patience`.
  [[nodiscard]] std::optional<WavResult<void>> Await(std::chrono::milliseconds patience);

 private:
  const WavFile& file_;
  std::optional<WavResult<void>> result_;  // the thread's until it has ended
  std::unique_ptr<QThread, std::function<void(QThread*)>> thread_;
};

}  // namespace brindle
