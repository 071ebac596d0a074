// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QGuiApplication>

#include "shell/termination.h"

namespace brindle {

// Who is asked to end otherwise is asked to close its windows, which the windows hear themselves.
Termination::Termination() {
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { Q_EMIT Asked(); });
}

}  // namespace brindle
