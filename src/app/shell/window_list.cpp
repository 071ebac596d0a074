// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/shell/window_list.h"

#include <utility>

#include "app/input/form.h"

namespace brindle {

void WindowList::Add(WindowId id, Factory factory) { factories_[id] = std::move(factory); }

bool WindowList::Has(WindowId id) const { return factories_.contains(id); }

Form& WindowList::Load(WindowId id) {
  auto window = windows_.find(id);
  if (window == windows_.end()) {
    window = windows_.emplace(id, factories_.at(id)()).first;
    connect(window->second.get(), &Form::Closed, this, [this, id] { Forget(id); });
  }
  return *window->second;
}

void WindowList::Show(WindowId id) {
  auto& form = Load(id);
  form.setWindowState(form.windowState() & ~Qt::WindowMinimized);
  form.show();
  form.raise();
  form.activateWindow();
}

void WindowList::Forget(WindowId id) {
  auto closed = windows_.extract(id);
  closed.mapped().release()->deleteLater();
}

}  // namespace brindle
