// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <variant>

#include <QFile>
#include <QString>

namespace brindle {

// What the toolkit does not tell of a file.

/// Whether another program keeps others from reading the file: `file` is open, or could not be
/// opened. False where the system cannot tell.
[[nodiscard]] bool IsLocked(const QFile& file);

/// Bytes of an open file, asked of the system now; its reason where it refuses. The toolkit takes a
/// file whose length it cannot tell for an empty one.
[[nodiscard]] std::variant<qint64, QString> LengthOf(const QFile& file);

/// Why an open file is no longer what stands at its path: "the file is gone", "the file was
/// replaced", or the system's reason where it cannot be told; nothing where it still stands there.
[[nodiscard]] std::optional<QString> WhyNotAtItsPath(const QFile& file);

/// Whether both paths lead to one existing file: links, relative forms, and letter case where the
/// file system ignores it, make no difference.
[[nodiscard]] bool LeadToSameFile(const QString& path, const QString& other);

}  // namespace brindle
