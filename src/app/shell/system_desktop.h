// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "app/windows/desktop.h"

namespace brindle {

/// The desktop that the program really runs on.
class SystemDesktop : public Desktop {
 public:
  void Beep() override;
};

}  // namespace brindle
