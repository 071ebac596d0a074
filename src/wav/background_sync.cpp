// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/background_sync.h"

#include <chrono>
#include <memory>
#include <optional>
#include <utility>

#include <QDeadlineTimer>
#include <QObject>
#include <QThread>

namespace brindle {

BackgroundSync::BackgroundSync(std::shared_ptr<const DiskFile> file)
    : file_(std::move(file)),
      thread_(QThread::create([file = file_, outcome = outcome_] { *outcome = file->Sync(); })) {
  thread_->start();
}

std::optional<FileResult<void>> BackgroundSync::Await(std::chrono::milliseconds patience) {
  if (!thread_->wait(QDeadlineTimer(patience))) {
    return std::nullopt;
  }
  // The system may have no thread to give.
  if (!*outcome_) {
    *outcome_ = file_->Sync();
  }
  return *outcome_;
}

void BackgroundSync::LetGo::operator()(QThread* thread) const {
  QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
  // It may have ended before it was connected, or never have begun.
  if (!thread->isRunning()) {
    thread->wait();
    delete thread;
  }
}

}  // namespace brindle
