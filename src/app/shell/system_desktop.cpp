// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/shell/system_desktop.h"

#include <QApplication>

namespace brindle {

void SystemDesktop::Beep() { QApplication::beep(); }

}  // namespace brindle
