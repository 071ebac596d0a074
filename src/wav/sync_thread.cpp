// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/sync_thread.h"

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#include "base/files/disk.h"
#include "base/files/file_error.h"

namespace brindle {

struct SyncThread::Shared {
  std::mutex mutex;  // of all that follows
  std::condition_variable changed;
  std::shared_ptr<const DiskFile> file;
  std::optional<FileResult<void>> outcome;
  bool isLeft = false;
};

SyncThread::SyncThread() : shared_(std::make_shared<Shared>()) {}

SyncThread::~SyncThread() {
  const std::lock_guard lock(shared_->mutex);
  shared_->isLeft = true;
  shared_->changed.notify_all();
}

void SyncThread::Begin(std::shared_ptr<const DiskFile> file) {
  isAtWork_ = true;
  hasThread_ = hasThread_ || StartThread();
  const std::lock_guard lock(shared_->mutex);
  if (!hasThread_) {
    shared_->outcome = file->Sync();
    return;
  }
  shared_->file = std::move(file);
  shared_->changed.notify_all();
}

bool SyncThread::StartThread() {
  try {
    std::thread(Run, shared_).detach();
    return true;
  } catch (const std::system_error&) {
    return false;
  }
}

std::optional<FileResult<void>> SyncThread::Await(std::chrono::milliseconds patience) {
  std::unique_lock lock(shared_->mutex);
  if (!shared_->changed.wait_for(lock, patience, [this] { return shared_->outcome.has_value(); })) {
    return std::nullopt;
  }
  isAtWork_ = false;
  return std::exchange(shared_->outcome, std::nullopt);
}

// The thread itself: a file at a time until nobody is left to ask.
void SyncThread::Run(const std::shared_ptr<Shared>& shared) {
  std::unique_lock lock(shared->mutex);
  while (true) {
    shared->changed.wait(lock, [&] { return shared->file || shared->isLeft; });
    auto file = std::exchange(shared->file, nullptr);
    if (!file) {
      return;
    }
    lock.unlock();
    auto outcome = file->Sync();
    file.reset();
    lock.lock();
    shared->outcome = std::move(outcome);
    shared->changed.notify_all();
  }
}

}  // namespace brindle
