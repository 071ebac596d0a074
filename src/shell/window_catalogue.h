// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <span>

#include <QStringView>

#include "base/input/form.h"
#include "base/windows/services.h"
#include "base/windows/window_list.h"
#include "shell/default_w.h"
#include "shell/owning_window_list.h"

namespace brindle {

/// A window that another window can open.
struct CatalogueEntry {
  WindowId id = {};
  /// The name of the window itself, of its page in the help and of its picture.
  QStringView name;
  /// That of the button that opens it, for its title bar; empty if it has none, and takes the
  /// program's.
  QStringView picture;
  /// Makes the window. `initDat` loads the default settings.
  std::unique_ptr<Form> (*make)(Services& services, const InitDat& initDat) = nullptr;
};

/// Every window that another window can open, in the order of their ids.
[[nodiscard]] std::span<const CatalogueEntry> AllWindows();

/// Tells the list how every window of the catalogue is made. `initDat` loads the default settings.
void AddAllWindows(OwningWindowList& windows, Services& services, const InitDat& initDat);

}  // namespace brindle
