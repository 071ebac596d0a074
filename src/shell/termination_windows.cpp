// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QGuiApplication>

#include "shell/termination.h"

namespace brindle {

// Any other request to end asks the program to close its windows, and they receive it themselves.
Termination::Termination() {
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { Q_EMIT SessionEnds(); });
}

}  // namespace brindle
