// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/owning_window_list.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "base/input/form.h"

namespace brindle {

void OwningWindowList::Add(WindowId id, Factory factory) { factories_[id] = std::move(factory); }

Form& OwningWindowList::Load(WindowId id) {
  auto window = windows_.find(id);
  if (window != windows_.end() && !window->second->isVisible()) {
    // It was loaded for a single use and never shown, so its contents may be out of date.
    Forget(id);
    window = windows_.end();
  }
  if (window == windows_.end()) {
    window = windows_.emplace(id, factories_.at(id)()).first;
    auto* form = window->second.get();
    connect(form, &Form::Closed, this, [this, id] { Forget(id); });
    connect(form, &Form::HelpAsked, this,
            [this, form] { desktop_.OpenHelp(form, form->objectName()); });
    Q_EMIT Made(*form);
  }
  return *window->second;
}

void OwningWindowList::Open(WindowId id) {
  auto& form = Load(id);
  form.setWindowState(form.windowState() & ~Qt::WindowMinimized);
  form.show();
  form.raise();
  form.activateWindow();
}

void OwningWindowList::AskAllToClose(const std::function<void()>& agreed) {
  const bool allAgree = std::all_of(windows_.begin(), windows_.end(), [&](const auto& window) {
    return window.second->MayClose([this, agreed] { AskAllToClose(agreed); });
  });
  if (allAgree) {
    CloseAllUnasked();
    agreed();
  }
}

void OwningWindowList::CloseAllUnasked() {
  for (const auto& [id, window] : windows_) {
    window->WillClose();
  }
}

void OwningWindowList::Forget(WindowId id) {
  auto closed = windows_.extract(id);
  closed.mapped().release()->deleteLater();
}

}  // namespace brindle
