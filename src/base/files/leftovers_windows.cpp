// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QFile>
#include <QString>

#include "base/files/leftovers.h"

namespace brindle {

// The toolkit opens a temporary file so that nobody else can, and what is open cannot be removed.
BeingWritten::BeingWritten(int) {}

BeingWritten::~BeingWritten() = default;

void RemoveLeftover(const QString& path) { QFile::remove(path); }

}  // namespace brindle
