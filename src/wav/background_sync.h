// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include <QThread>

#include "base/files/disk.h"
#include "base/files/file_error.h"

namespace brindle {

/// Has the system write a file out on a thread of its own, because the disk may take long. Nothing
/// else may use the file meanwhile. Destroying this waits for nothing: the thread keeps the file
/// until the disk has it, or the program ends.
class BackgroundSync {
 public:
  explicit BackgroundSync(std::shared_ptr<const DiskFile> file);

  /// What came of it, as soon as that is known; nothing after `patience`.
  [[nodiscard]] std::optional<FileResult<void>> Await(std::chrono::milliseconds patience);

 private:
  struct LetGo {
    void operator()(QThread* thread) const;
  };
  // The thread's until it has ended.
  using Outcome = std::optional<FileResult<void>>;

  std::shared_ptr<const DiskFile> file_;
  std::shared_ptr<Outcome> outcome_ = std::make_shared<Outcome>();
  std::unique_ptr<QThread, LetGo> thread_;
};

}  // namespace brindle
