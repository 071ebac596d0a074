// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QObject>
#include <QWidget>

#include "base/input/message_boxes.h"
#include "base/time/clock.h"
#include "wav/pass.h"
#include "wav/pass_driver.h"

namespace brindle {

/// What the normalizer is doing: one thing at a time, which the user can abort.
class TaskRunner : public QObject {
  Q_OBJECT

 public:
  /// Busy: nothing can be started, nothing is to be aborted.
  enum class Running { Nothing, Busy, Scan, Normalization, Undo };

  /// Shows questions over `window`.
  TaskRunner(QWidget& window, MessageBoxes& boxes, Clock& clock,
             std::function<void(const PassProgress&)> show);

  [[nodiscard]] bool IsIdle() const { return running_ == Running::Nothing; }
  /// Nothing can be started any more, but the window goes on showing that it could.
  void BeBusy() { running_ = Running::Busy; }
  void SetRunning(Running running);

  /// See PassDriver.
  void Drive(Pass& pass, const std::function<void(const PassState&)>& ended);
  void AfterEvents(const std::function<void()>& action) { driver_.AfterEvents(action); }

  /// The user wants to abort what runs: a normalization only after a question. Taken at the next
  /// update of a pass that has one. Deliberately kept by a pass that has none any more: the next
  /// scan stops by it.
  void Abort();
  /// A new task does not stop by an old request.
  void ForgetAbort() { AbortRequested = false; }

  /// The window is to be closed: asks first if a file would be left as no one wants it.
  void AskToClose(const std::function<void()>& agreed);
  /// Drops everything that it still had to do.
  void Stop() { driver_.Stop(); }

 Q_SIGNALS:
  void IdleChanged(bool isIdle);

 private:
  void AskWhetherToAbort(const std::function<void()>& agreed);

  QWidget& window_;
  MessageBoxes& boxes_;
  bool AbortRequested = false;
  Running running_ = Running::Nothing;
  PassDriver driver_;
};

}  // namespace brindle
