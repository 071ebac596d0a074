// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/task_runner.h"

#include <functional>
#include <utility>

#include <QWidget>

#include "base/input/message_boxes.h"
#include "base/input/number_fields.h"
#include "base/time/clock.h"
#include "wav/pass.h"
#include "wav/wav_text.h"

namespace brindle {

TaskRunner::TaskRunner(QWidget& window, MessageBoxes& boxes, Clock& clock,
                       std::function<void(const PassProgress&)> show)
    : window_(window),
      boxes_(boxes),
      driver_(clock, std::move(show), [this] { return AbortRequested; }) {}

void TaskRunner::SetRunning(Running running) {
  running_ = running;
  Q_EMIT IdleChanged(IsIdle());
}

void TaskRunner::Drive(Pass& pass, const std::function<void(const PassState&)>& ended) {
  driver_.Drive(pass, ended);
}

void TaskRunner::Abort() {
  if (running_ == Running::Normalization) {
    AskWhetherToAbort([this] { AbortRequested = true; });
  } else {
    AbortRequested = true;
  }
}

void TaskRunner::AskToClose(const std::function<void()>& agreed) {
  if (running_ == Running::Normalization) {
    AskWhetherToAbort(agreed);
  } else {
    agreed();
  }
}

void TaskRunner::AskWhetherToAbort(const std::function<void()>& agreed) {
  boxes_.Ask(&window_, ToQString(AbortText()), BoxButtons::YesNoDefaultNo,
             [agreed](BoxAnswer answer) {
               if (answer == BoxAnswer::Yes) {
                 agreed();
               }
             });
}

}  // namespace brindle
