// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QBoxLayout>

#include "base/input/labels.h"
#include "base/input/push_button.h"
#include "wav/pass.h"
#include "wav/progress_line.h"

namespace brindle {

/// The lower end of the normalizer: the buttons that begin and abort a task, and what runs.
class TaskPanel {
 public:
  PushButton btnOpen;
  PushButton btnScan;
  PushButton btnNorm;
  PushButton Undo;
  PushButton Cancel;

 private:
  ProgressLine progress_;
  ValueLabel Status;

 public:
  TaskPanel();
  [[nodiscard]] QBoxLayout* Buttons();
  [[nodiscard]] QBoxLayout* Progress();

  /// A task begins: it can be aborted, and is the next thing that a key means.
  void BeginScan();
  void BeginNormalization();
  void BeginUndo();
  void ShowProgress(const PassProgress& progress) { progress_.Update(progress); }
  void HideProgress() { progress_.HideProgress(); }
  void ClearStatus() { Status.Write({}); }

  /// While a task runs no other one can be begun.
  void SetIdle(bool isIdle);

  /// The focus goes from the button to the scan's.
  void HideCancel();

 private:
  void Begin(const QString& status);
};

}  // namespace brindle
