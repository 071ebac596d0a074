// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFile>
#include <QString>

namespace brindle {

// What the toolkit does not tell of a file.

/// Whether another program keeps others from reading the file: `file` is open, or could not be
/// opened. False where the system cannot tell.
[[nodiscard]] bool IsLocked(const QFile& file);

/// Whether both paths lead to one existing file: links, relative forms, and letter case where the
/// file system ignores it, make no difference.
[[nodiscard]] bool LeadToSameFile(const QString& path, const QString& other);

}  // namespace brindle
