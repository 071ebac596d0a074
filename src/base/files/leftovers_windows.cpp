// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QFile>
#include <QString>

#include "base/files/leftovers.h"

namespace brindle {

// The toolkit opens a temporary file in a way that nobody else can, and an open file cannot be
// removed.
BeingWritten::BeingWritten(int) {}

BeingWritten::~BeingWritten() = default;

void RemoveLeftover(const QString& path) { QFile::remove(path); }

}  // namespace brindle
