// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/shell/all_windows.h"

#include <functional>
#include <memory>

#include "app/shell/default_w.h"
#include "video/bitrate_calc.h"

namespace brindle {

void AddAllWindows(WindowList& windows, Services& services, const std::function<void()>& initDat) {
  windows.Add(WindowId::BitrateCalc, [&] { return std::make_unique<BitrateCalc>(services); });
  windows.Add(WindowId::DefaultW,
              [&services, initDat] { return std::make_unique<DefaultW>(services, initDat); });
}

}  // namespace brindle
