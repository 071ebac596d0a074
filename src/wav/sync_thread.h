// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "base/files/disk.h"
#include "base/files/file_error.h"

namespace brindle {

/// Has the system write files out on a thread of its own, because the disk may take long: one at a
/// time, and nothing else may use the file meanwhile. Destroying this waits for nothing: the thread
/// keeps the file until the disk has it, or the program ends.
class SyncThread {
 public:
  SyncThread();
  SyncThread(const SyncThread&) = delete;
  SyncThread(SyncThread&&) = delete;
  SyncThread& operator=(const SyncThread&) = delete;
  SyncThread& operator=(SyncThread&&) = delete;
  ~SyncThread();

  /// Whether a file is being written out, and what came of it has not been told.
  [[nodiscard]] bool IsAtWork() const { return isAtWork_; }
  /// Begins with a file. It is done at once if the system has no thread to give.
  void Begin(std::shared_ptr<const DiskFile> file);
  /// What came of it, as soon as that is known; nothing after `patience`.
  [[nodiscard]] std::optional<FileResult<void>> Await(std::chrono::milliseconds patience);

 private:
  struct Shared;
  [[nodiscard]] bool StartThread();
  static void Run(const std::shared_ptr<Shared>& shared);

  std::shared_ptr<Shared> shared_;  // with the thread, once there is one
  bool hasThread_ = false;
  bool isAtWork_ = false;
};

}  // namespace brindle
