// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/background_sync.h"

#include <chrono>
#include <optional>

#include <QDeadlineTimer>
#include <QThread>

namespace brindle {

BackgroundSync::BackgroundSync(const WavFile& file)
    : file_(file),
      thread_(QThread::create([this] { result_ = file_.Sync(); }), [](QThread* thread) {
        thread->wait();
        delete thread;
      }) {
  thread_->start();
}

std::optional<WavResult<void>> BackgroundSync::Await(std::chrono::milliseconds patience) {
  if (!thread_->wait(QDeadlineTimer(patience))) {
    return std::nullopt;
  }
  // The system may have been unable to start the thread.
  if (!result_) {
    result_ = file_.Sync();
  }
  return result_;
}

}  // namespace brindle
