// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <map>
#include <memory>

#include <QObject>

#include "base/input/form.h"
#include "base/windows/desktop.h"
#include "base/windows/window_list.h"

namespace brindle {

/// Owns the windows that other windows open or load, at most one of each kind. A window that is
/// closed is deleted once control is back in the event loop; the next show makes a new one. F1 in a
/// window opens the help page with the window's name.
class OwningWindowList : public QObject, public WindowList {
  Q_OBJECT

 public:
  /// Makes a complete window, or throws.
  using Factory = std::function<std::unique_ptr<Form>()>;

  explicit OwningWindowList(Desktop& desktop) : desktop_(desktop) {}

  /// Sets how a kind of window is made.
  void Add(WindowId id, Factory factory);

  Form& Load(WindowId id) override;
  void Open(WindowId id) override;
  void AskAllToClose(const std::function<void()>& agreed) override;
  void CloseAllUnasked() override;

 Q_SIGNALS:
  /// A window has been made, and is not shown yet.
  void Made(Form& form);

 private:
  void Forget(WindowId id);

  Desktop& desktop_;
  std::map<WindowId, Factory> factories_;
  std::map<WindowId, std::unique_ptr<Form>> windows_;
};

}  // namespace brindle
