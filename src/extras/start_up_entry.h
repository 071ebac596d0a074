// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include "base/input/message_boxes.h"
#include "base/windows/registry.h"

namespace brindle {

/// Asks, and on Yes removes the entry of the machine-wide start-up key that launches the
/// advertising component of DivX 5 pro at every start; reports the outcome.
void RemoveStartUpEntry(QWidget* owner, MessageBoxes& boxes, Registry& registry);

/// Deletes the value `valueName` of the key `subKey` under `root`. A box reports whether it was
/// deleted; the answer does not matter. A key that cannot be opened has the same outcome as a value
/// that cannot be deleted.
void DeleteRunValue(QWidget* owner, MessageBoxes& boxes, Registry& registry, RegistryRoot root,
                    const QString& subKey, const QString& valueName);

}  // namespace brindle
